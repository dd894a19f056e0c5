"""Other programs find the same points, places and times in the files that vrk3 writes."""
import csv
import datetime
import functools
import io
import json
import operator
import re
import subprocess

from support import Case, SAMPLE, VRK3, unittest


def out(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def degrees(field, side):
    value = (float(field[:-7]) * 60 + float(field[-7:])) / 60
    return value if side in "NE" else -value


def expected_points(text):
    """The points of the receiver's text, read without any of the program's code."""
    points, valid, date, time, lat, lon = [], False, None, None, 0, 0
    for name, rest, checksum in re.findall(r"\$(GPGGA|GPRMC|PGRME)([0-9.,AENMSW+-]+)\*([0-9A-F]{2})",
                                           text.replace("\n", "")):
        if functools.reduce(operator.xor, (name + rest).encode()) != int(checksum, 16):
            continue
        fields = rest.split(",")[1:]
        if name == "GPGGA":
            time, lat, lon = fields[0], degrees(*fields[1:3]), degrees(*fields[3:5])
        elif name == "GPRMC":
            valid, date, time = fields[1] == "A", fields[8], fields[0]
            lat, lon = degrees(*fields[2:4]), degrees(*fields[4:6])
        if valid:
            points.append((lat, lon, datetime.datetime.strptime(date + time, "%d%m%y%H%M%S")))
    return points


class Others(Case):
    def setUp(self):
        super().setUp()
        for name in ("raw", "gpx", "kml", "plt"):
            out(VRK3, "convert", "-q", "--to", name, "-o", self.path(name), SAMPLE)
        self.points = expected_points(self.read("raw").decode())
        self.assertGreater(len(self.points), 1000)

    def compare(self, places, times=None, within=0):
        self.assertEqual(len(places), len(self.points))
        for place, (lat, lon, _) in zip(places, self.points):
            self.assertAlmostEqual(place[0], lat, delta=5.1e-7)
            self.assertAlmostEqual(place[1], lon, delta=5.1e-7)
        for time, (_, _, wanted) in zip(times or [], self.points):
            self.assertLessEqual(abs((time - wanted).total_seconds()), within)

    def test_gpx_and_kml(self):
        def features(name, *layer):
            return json.loads(out("ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=7",
                                  "/vsistdout/", self.path(name), *layer))["features"]

        tracks = features("gpx", "track_points")
        times = [datetime.datetime.strptime(re.sub("[T/]", "-", f["properties"]["time"])[:19],
                                            "%Y-%m-%d-%H:%M:%S") for f in tracks]
        self.compare([f["geometry"]["coordinates"][1::-1] for f in tracks], times)
        line, = features("kml")
        self.compare([c[1::-1] for c in line["geometry"]["coordinates"]])

    def test_plt(self):
        rows = list(csv.DictReader(io.StringIO(out(
            "gpsbabel", "-t", "-i", "ozi", "-f", self.path("plt"), "-o", "unicsv,prec=7", "-F", "-"))))
        times = [datetime.datetime.strptime(r["Date"] + r["Time"][:8], "%Y/%m/%d%H:%M:%S") for r in rows]
        self.compare([(float(r["Latitude"]), float(r["Longitude"])) for r in rows], times, 1)


if __name__ == "__main__":
    unittest.main()
