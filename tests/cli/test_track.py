"""`vrk3 track`: whole files, and what other programs read in them."""
import csv
import io
import json
import re
import subprocess

from support import Case, ENVIRONMENT, REFERENCE, archive, gpgga, gprmc, sentence, unittest

FORMATS = ("gpx", "kml", "geojson", "csv")


def out(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True, env=dict(ENVIRONMENT, TZ="UTC")).stdout


def rows(text):
    return list(csv.DictReader(io.StringIO(text, newline="")))


def journey():
    """Two archives that overlap: midnight at the antimeridian, a pause, a jump and a single fix."""
    places = ("1630.0,S,17959.98765,E", "1630.0123,S,18000.000,E", "1630.0123456,S,17959.9,W", "1630.05,S,17959.7,W")
    text = b""
    for i, place in enumerate(places):
        time = f"23595{8 + i // 2}.{i % 2 * 5}"
        text += sentence(f"GNGGA,{time},{place},{i % 2 + 1},09,1.1,{12.5 - i},M,14.0,M,,")
        text += sentence(f"GNRMC,{time},A,{place},10.0,{359.9999 - 90 * i},230311,,,A")
    later = gprmc(120, 10, 20, "240311") + gprmc(121, 10.0001, 20, "240311") + gprmc(122, 50, 20, "240311")
    last = gpgga(122, 50, 20, -3) + sentence("GPGSA,A,3,01,,,,,,,,,,,,1.5,0.7,1")
    return {"b": archive(text[-300:] + later + last, "A <b> ]]> & \"quote\" \\ \x01\ufffe, Москва"),
            "a": archive(text + later[:100])}


def positions(coordinates):
    if isinstance(coordinates[0], list):
        return [p for c in coordinates for p in positions(c)]
    return [coordinates[1::-1]]


class Track(Case):
    def test_references(self):
        fixes = "GPRMC,12000%d,A,1000.123,N,02000.%s,E,,,230311,,"
        # A clock that is set back by five seconds while somebody walks.
        back = [gprmc(t - t // 7 * 5, 10 + t / 1e5, 20) for t in range(1, 13)]
        for name, data in {
                **journey(), "none": sentence("GPRMC,120000,V,,,,,,,230311,,") + b"$GPGGA,\r\n",
                "noise": bytes(5000), "torn": bytes(5000) + archive(b"".join(back[:6]), ""),
                "undated": b"".join(sentence(f"GPGLL,1000.{i},N,02000.0,E,12000{i},A") for i in range(8)),
                "three": sentence(fixes % (0, "456")) + sentence(fixes % (1, "45")) + gprmc(9, 1, 2),
                "gn": b"".join(sentence("GN" + (fixes % (i, "4"))[2:]) for i in range(3)),
                "lost": gprmc(1, 10, 20) + gprmc(2, 0, 0), "zero": gprmc(1, 0, 0),
                "stale": gprmc(1, 10, 20) + sentence("GPGGA,000002,1000.0000,N,02000.0000,E,0,,,,M,,M,,"),
                "back": b"".join(back), "parked": gprmc(1, 10, 20) + gpgga(2, 10, 20)}.items():
            self.write(name + ".vrk3", data if data[:1] in b"\xb5\0" else archive(data, ""))
        before = self.files()
        self.assertTranscript("track.txt")
        written = [n for n in self.files() if n not in before]
        self.assertEqual(len(written), 2 * len(FORMATS))
        for name in written:
            self.assertReference(name, self.read(name))

    def test_other_programs(self):
        for name in (f"{n}.{form}" for n in ("journey", "undated") for form in FORMATS):
            self.write(name, (REFERENCE / name).read_bytes())
        for name in ("journey", "undated"):
            for form in ("gpx", "kml"):
                schema = REFERENCE.parent / "schemas" / (form + ".xsd")
                out("xmllint", "--noout", "--schema", schema, self.path(f"{name}.{form}"))
            fixes = rows(self.read(name + ".csv").decode())
            places = [(float(f["latitude_deg"]), float(f["longitude_deg"])) for f in fixes]
            times = [f["time_utc"] for f in fixes]
            self.assertEqual(len(fixes), 7 if name == "journey" else 8)

            def compare(found):
                found = list(dict.fromkeys((lat, lon % 360) for lat, lon in found))
                self.assertEqual(len(found), len(places))
                for a, b in zip(found, places):
                    self.assertAlmostEqual(a[0], b[0], delta=5e-8)
                    self.assertAlmostEqual(a[1], b[1] % 360, delta=5e-8)

            for form in ("gpx", "kml"):
                found = rows(out("gpsbabel", "-t", "-i", form, "-f", self.path(f"{name}.{form}"),
                                 "-o", "unicsv,prec=9,utc=0", "-F", "-"))
                compare([(float(f["Latitude"]), float(f["Longitude"])) for f in found])
                self.assertEqual([f"{f['Date'].replace('/', '-')}T{f['Time']}Z" for f in found if "Time" in f],
                                 list(filter(None, times)))
            for form, layer in (("gpx", ["track_points"]), ("kml", []), ("geojson", []), ("csv", [])):
                found = json.loads(out(
                    "ogr2ogr", "-f", "GeoJSON", "-lco", "COORDINATE_PRECISION=9", "-oo", "X_POSSIBLE_NAMES=lon*",
                    "-oo", "Y_POSSIBLE_NAMES=lat*", "/vsistdout/", self.path(f"{name}.{form}"), *layer))
                compare([p for f in found["features"] for p in positions(f["geometry"]["coordinates"])])
                written = re.findall(r"20\d\d[-/]\d\d[-/]\d\d[T ][\d:.]+", self.read(f"{name}.{form}").decode())
                self.assertEqual(list(dict.fromkeys(w + "Z" for w in written)), list(filter(None, times)))


if __name__ == "__main__":
    unittest.main()
