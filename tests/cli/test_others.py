"""Other programs read what vrk3 writes: the same points, places and times."""
import csv
import datetime
import functools
import io
import json
import operator
import os
import re
import subprocess
import tempfile
import unittest

VRK3, SAMPLE = os.environ["VRK3"], os.environ["VRK3_SAMPLE"]
ENVIRONMENT = dict(os.environ, TZ="UTC", LC_ALL="C.UTF-8")


def out(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, env=ENVIRONMENT).stdout


def degrees(field, side):
    value = (float(field[:-7]) * 60 + float(field[-7:])) / 60
    return value if side in "NE" else -value


def expected_points(text):
    """What the receiver's text says, read without any of our code."""
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


class Others(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.file = {}
        for name in ("raw", "gpx", "kml", "plt"):
            cls.file[name] = os.path.join(cls.folder.name, "drive." + name)
            out(VRK3, "convert", "-q", "--to", name, "-o", cls.file[name], SAMPLE)
        cls.points = expected_points(out("cat", cls.file["raw"]))
        assert len(cls.points) > 1000

    @classmethod
    def tearDownClass(cls):
        cls.folder.cleanup()

    def compare(self, places, times=None, within=0):
        self.assertEqual(len(places), len(self.points))
        for place, (lat, lon, _) in zip(places, self.points):
            self.assertAlmostEqual(place[0], lat, delta=5.1e-7)
            self.assertAlmostEqual(place[1], lon, delta=5.1e-7)
        for time, (_, _, wanted) in zip(times or [], self.points):
            self.assertLessEqual(abs((time - wanted).total_seconds()), within)

    def test_well_formed(self):
        out("xmllint", "--noout", self.file["gpx"], self.file["kml"])

    def test_ogr(self):
        def features(name, *layer):
            return json.loads(out("ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=7",
                                  "/vsistdout/", self.file[name], *layer))["features"]

        tracks = features("gpx", "track_points")
        times = [datetime.datetime.strptime(f["properties"]["time"][:19].replace("/", "-")
                                            .replace("T", " "), "%Y-%m-%d %H:%M:%S") for f in tracks]
        self.compare([f["geometry"]["coordinates"][1::-1] for f in tracks], times)
        line = features("kml")[0]["geometry"]
        self.compare([c[1::-1] for c in line["coordinates"]])
        self.assertIn("Feature Count: 1", out("ogrinfo", "-ro", "-so", "-al", self.file["kml"]))

    def test_gpsbabel(self):
        for form, name, within in (("gpx", "gpx", 0), ("ozi", "plt", 1), ("kml", "kml", None)):
            with self.subTest(name):
                rows = list(csv.DictReader(io.StringIO(out(
                    "gpsbabel", "-t", "-i", form, "-f", self.file[name], "-o", "unicsv,prec=7",
                    "-F", "-"))))
                times = within is not None and [datetime.datetime.strptime(
                    r["Date"] + r["Time"][:8], "%Y/%m/%d%H:%M:%S") for r in rows]
                self.compare([(float(r["Latitude"]), float(r["Longitude"])) for r in rows], times,
                             within)


if __name__ == "__main__":
    unittest.main()
