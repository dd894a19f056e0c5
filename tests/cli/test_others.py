"""Other programs find the same points, places and times in the files that vrk3 writes."""
import csv
import datetime
import io
import json
import random
import re
import subprocess

from support import Case, ENVIRONMENT, archive, gprmc, unittest

UTC = dict(ENVIRONMENT, TZ="UTC")  # the days of PLT are local
FIXES = [(i, random.Random(i).uniform(-89, 89), random.Random(-i).uniform(-179, 179)) for i in range(500)]


def out(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


class Others(Case):
    def setUp(self):
        super().setUp()
        self.write("a.vrk3", archive(b"".join(gprmc(*fix) for fix in FIXES)))
        for name in ("gpx", "kml", "plt"):
            self.assertEqual(self.vrk3("convert", "--to", name, "a.vrk3", env=UTC)[0], 0)

    def compare(self, places, times=None, within=0):
        self.assertEqual(len(places), len(FIXES))
        for place, (_, lat, lon) in zip(places, FIXES):
            self.assertAlmostEqual(place[0], lat, delta=1.5e-6)  # four decimals of a minute, then six of a degree
            self.assertAlmostEqual(place[1], lon, delta=1.5e-6)
        for time, (second, _, _) in zip(times or [], FIXES):
            time = datetime.datetime.strptime(re.sub("[T/ ]", "-", time)[:19], "%Y-%m-%d-%H:%M:%S")
            self.assertLessEqual(abs((time - datetime.datetime(2011, 3, 23)).total_seconds() - second), within)

    def test_gpx_and_kml(self):
        points, (line,) = (json.loads(out(
            "ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=7", "/vsistdout/", self.path(name), *layer,
        ))["features"] for name, *layer in (("a.gpx", "track_points"), ("a.kml",)))
        self.compare([p["geometry"]["coordinates"][1::-1] for p in points],
                     [p["properties"]["time"] for p in points])
        self.compare([c[1::-1] for c in line["geometry"]["coordinates"]])

    def test_plt(self):
        rows = list(csv.DictReader(io.StringIO(out(
            "gpsbabel", "-t", "-i", "ozi", "-f", self.path("a.plt"), "-o", "unicsv,prec=7", "-F", "-"))))
        self.compare([(float(r["Latitude"]), float(r["Longitude"])) for r in rows],
                     [f'{r["Date"]} {r["Time"]}' for r in rows], 1)


if __name__ == "__main__":
    unittest.main()
