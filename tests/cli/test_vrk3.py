"""vrk3 as people start it: names, outputs, statuses, and what goes wrong on real machines."""
import fcntl
import functools
import json
import math
import operator
import os
import pathlib
import pty
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import termios
import time
import unittest
import xml.etree.ElementTree as ET

import jsonschema

VRK3, SAMPLE, SOURCE = (os.environ[n] for n in ("VRK3", "VRK3_SAMPLE", "VRK3_SOURCE"))
NOBODY = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]


def sentence(body):
    return ("$%s*%02X\r\n" % (body, functools.reduce(operator.xor, body.encode()))).encode()


def angle(value, width):
    return "%0*d%07.4f" % (width, int(abs(value)), abs(value) % 1 * 60)


def gprmc(second, lat, lon, date="230311"):
    return sentence("GPRMC,%02d%02d%02d,A,%s,%s,%s,%s,10.0,84.4,%s,,,A" % (
        second // 3600, second // 60 % 60, second % 60, angle(lat, 2), "NS"[lat < 0],
        angle(lon, 3), "EW"[lon < 0], date))


def archive(text, title="Title", stream=0xFD):
    table = title.encode() + b"\0" + bytes((stream, 4)) + b"\0\0\0"
    result = b"\xb5\xb5\x05\xb5" + struct.pack("<HH", 8 + len(table), 0) + table
    result += b"\x05\xb5\xb5\xb5" + bytes(9)
    for pos in range(0, len(text), 60000):
        piece = text[pos:pos + 60000]
        result += struct.pack("<HBB", len(piece), 0xC0, stream) + piece
    return result


GOOD = archive(gprmc(3600, 55, 37) + gprmc(3661, 55.01, 37))
LONG = archive(b"".join(gprmc(i, 48 + i / 1e5, 11) for i in range(20000)) * 4)


class Case(unittest.TestCase):
    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        os.chmod(self.folder, 0o777)
        for name, data in (("a.vrk3", GOOD), ("nogps.vrk3", archive(b"x", stream=7)),
                           ("noise.vrk3", bytes(5000)), ("empty.vrk3", b""), ("old.gpx", b"old")):
            self.write(name, data)
        os.mkdir(os.path.join(self.folder, "d.d"))

    def path(self, name):
        return pathlib.Path(self.folder, name)

    def write(self, name, data):
        self.path(name).write_bytes(data)

    def read(self, name):
        return self.path(name).read_bytes()

    def start(self, *arguments, before=(), **options):
        return subprocess.Popen([*before, VRK3, *arguments], cwd=self.folder,
                                **{"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE,
                                   "stderr": subprocess.PIPE, **options})

    def run_vrk3(self, *arguments, data=b"", **options):
        with self.start(*arguments, stdin=subprocess.PIPE, **options) as process:
            output, errors = process.communicate(data)
        return process.returncode, output, errors.decode(errors="replace")

    def half_way(self, *arguments, **options):
        """A process that has read the half of an archive from standard input and waits for more."""
        process = self.start(*arguments, stdin=subprocess.PIPE, **options)
        process.stdin.write(LONG[:1000000])
        process.stdin.flush()
        while any(fcntl.ioctl(process.stdin, termios.FIONREAD, bytes(4))):
            time.sleep(0.01)
        return process


class Convert(Case):
    def test_names(self):
        formats = {f: self.run_vrk3("convert", "--to", f, "-o", "-", "a.vrk3")[1]
                   for f in ("raw", "gpx", "plt", "kml")}
        self.assertEqual(len(set(formats.values())), 4)
        self.assertEqual(formats["raw"], gprmc(3600, 55, 37) + gprmc(3661, 55.01, 37))
        for name in ("a.b.vrk3", "d.d/noext", ".hidden"):
            self.write(name, GOOD)
        for arguments, name, form in (
                ("a.vrk3", "a.gpx", "gpx"), ("--to raw a.vrk3", "a.txt", "raw"),
                ("-t kml -d d.d a.vrk3", "d.d/a.kml", "kml"), ("-o x.PLT a.vrk3", "x.PLT", "plt"),
                ("-o y.any a.vrk3", "y.any", "gpx"), ("-t raw -o z.gpx a.vrk3", "z.gpx", "raw"),
                ("a.b.vrk3", "a.b.gpx", "gpx"), ("d.d/noext", "d.d/noext.gpx", "gpx"),
                (".hidden", ".hidden.gpx", "gpx"), ("-y -o old.gpx a.vrk3", "old.gpx", "gpx"),
                (f"{self.folder}/a.vrk3 --to kml", "a.kml", "kml")):
            with self.subTest(arguments):
                status, output, errors = self.run_vrk3("convert", *arguments.split())
                self.assertEqual((status, output, errors.count("\n")), (0, b"", 1), errors)
                self.assertEqual(self.read(name), formats[form])
        line = "standard input: 2 points, 01:00:00 to 01:01:01 UTC, 0 bytes skipped -> standard output\n"
        self.assertEqual(self.run_vrk3("convert", "-", data=GOOD), (0, formats["gpx"], line))

    def test_messages(self):
        os.symlink("a.vrk3", self.path("link.gpx"))
        os.link(self.path("a.vrk3"), self.path("hard.gpx"))
        shutil.copy(self.path("a.vrk3"), self.path("locked.vrk3"))
        os.chmod(self.path("locked.vrk3"), 0)
        self.write("protected.gpx", b"old")
        os.chmod(self.path("protected.gpx"), 0o444)
        self.write("\udcff.vrk3", GOOD)  # a byte that is no UTF-8
        before = sorted(os.listdir(self.folder))
        own = "it is one of the input archives"
        for arguments, named, reason in (
                ("nix.vrk3", "nix.vrk3", "No such file"), ("d.d", "d.d", "Is a directory"),
                ("locked.vrk3", "locked.vrk3", "Permission denied"),
                ("empty.vrk3", "empty.vrk3", "empty"),
                ("noise.vrk3", "noise.vrk3", "not a VRK3 archive"),
                ("nogps.vrk3", "nogps.vrk3", "no GPS data"),
                ("-t kml nogps.vrk3", "nogps.vrk3", "no GPS data"),
                ("-o old.gpx a.vrk3", "old.gpx", "exists"),
                ("-o d.d -y a.vrk3", "d.d", "Is a directory"),
                ("-d nix a.vrk3", "nix/a.gpx", "No such file"),
                ("-o protected.gpx -y a.vrk3", "protected.gpx", "Permission denied"),
                ("-o /dev/full a.vrk3", "/dev/full", "No space left"),
                ("-o a.vrk3 -y a.vrk3", "a.vrk3", own), ("-o link.gpx -y a.vrk3", "link.gpx", own),
                ("-o hard.gpx -y a.vrk3", "hard.gpx", own),
                ("\udcff.vrk3", "\ufffd.vrk3", "No such file")):
            with self.subTest(arguments):
                status, output, errors = self.run_vrk3("convert", *arguments.split(), before=NOBODY)
                self.assertEqual((status, output), (1, b""))
                self.assertRegex(errors, f"^vrk3: .*{named}: .*{reason}.*\n$")
                self.assertEqual(sorted(os.listdir(self.folder)), before)
        for name in ("old.gpx", "protected.gpx"):
            self.assertEqual(self.read(name), b"old")
        self.assertEqual(self.read("a.vrk3"), GOOD)
        with self.path("a.vrk3").open("ab") as file:
            self.assertIn(own, self.run_vrk3("convert", "-o", "-", "a.vrk3", stdout=file)[2])

    def test_one_bad_does_not_stop_the_others(self):
        self.write("z.vrk3", GOOD)
        self.assertEqual(self.run_vrk3("convert", "-q", "a.vrk3", "nix", "z.vrk3"),
                         (1, b"", "vrk3: nix: No such file or directory\n"))
        self.assertEqual(self.read("a.gpx"), self.read("z.gpx"))
        self.write("d.d/a.vrk3", LONG)
        status, _, errors = self.run_vrk3("convert", "-qyd", ".", "a.vrk3", "d.d/a.vrk3")
        self.assertEqual((status, errors), (1, "vrk3: d.d/a.vrk3: cannot write ./a.gpx: another "
                                               "archive has the same output\n"))

    def test_wrong_use(self):
        for line in ("", "nix", "convert", "convert --nix a", "convert --to pdf a.vrk3", "info",
                     "convert -o a -d b c", "convert -o x a b", "convert -d . -", "plot --json a"):
            with self.subTest(line):
                status, output, errors = self.run_vrk3(*line.split())
                self.assertEqual((status, output), (2, b""))
                self.assertRegex(errors, r"^vrk3: .* --help\)\n$")

    def test_small_disk(self):
        self.write("long.vrk3", LONG)
        script = ('mount -t tmpfs -o size=256k tmpfs d.d && echo old >d.d/long.gpx && echo mounted && '
                  '"$0" convert -y -d d.d long.vrk3; echo $?; ls -A d.d; cat d.d/long.gpx')
        result = subprocess.run(["unshare", "-rm", "sh", "-c", script, VRK3], cwd=self.folder,
                                capture_output=True, text=True)
        if "mounted" not in result.stdout:
            self.skipTest("no right to mount: " + result.stderr)
        reason = "vrk3: long.vrk3: cannot write d.d/long.gpx: No space left on device\n"
        self.assertEqual((result.stdout, result.stderr), ("mounted\n1\nlong.gpx\nold\n", reason))

    def test_ends_in_the_middle(self):
        before = sorted(os.listdir(self.folder))
        message = b"vrk3: standard input: interrupted\n"
        for number in (signal.SIGINT, signal.SIGTERM, signal.SIGKILL):
            for name in ("new.gpx", "old.gpx"):
                with self.half_way("convert", "-y", "-o", name, "-") as process:
                    process.send_signal(number)
                    errors = process.stderr.read()
                self.assertEqual((process.returncode, errors),
                                 (-number, b"" if number == signal.SIGKILL else message))
                self.assertEqual(sorted(os.listdir(self.folder)), before)
                self.assertEqual(self.read("old.gpx"), b"old")

    def test_changes_meanwhile(self):
        for change, reason in ((lambda: shutil.rmtree(self.path("d.d")), "No such file"),
                               (lambda: self.write("d.d/x.gpx", b"theirs"), "exists")):
            with self.subTest(reason):
                os.makedirs(self.path("d.d"), exist_ok=True)
                process = self.half_way("convert", "-o", "d.d/x.gpx", "-")
                change()
                errors = process.communicate()[1].decode()
                self.assertEqual(process.returncode, 1)
                self.assertRegex(errors, f"^vrk3: .*: cannot write d.d/x.gpx: .*{reason}.*\n$")
        self.assertEqual(self.read("d.d/x.gpx"), b"theirs")

    def test_pipes_and_shrinking(self):
        self.write("long.vrk3", LONG)
        with self.start("convert", "-t", "raw", "-o", "-", "long.vrk3") as process:
            process.stdout.read(100)
            process.stdout.close()
            self.assertEqual((process.wait(), process.stderr.read()), (-signal.SIGPIPE, b""))
        with self.start("convert", "-t", "raw", "-o", "-", "long.vrk3") as process:
            process.stdout.read(100)  # now the pipe is full, and the archive not yet read
            os.truncate(self.path("long.vrk3"), 2000000)
            errors = process.communicate()[1]
        self.assertEqual((process.returncode, errors),
                         (1, b"vrk3: long.vrk3: it shrank while being read\n"))

    def test_flat_memory(self):
        def peak(form, count):
            with self.start("convert", "-qt", form, "-o", "/dev/null", "-", stdin=subprocess.PIPE,
                            env=dict(os.environ, ASAN_OPTIONS="quarantine_size_mb=1")) as process:
                for _ in range(count):
                    process.stdin.write(LONG)
                process.stdin.close()
                _, status, usage = os.wait4(process.pid, 0)
            self.assertEqual(status, 0)
            return usage.ru_maxrss

        for form in ("raw", "gpx"):
            self.assertLess(peak(form, 20), peak(form, 1) + 4 * 1024)

    def test_progress(self):
        for quiet in (False, True):
            terminal, end = pty.openpty()
            with self.half_way("convert", "-yo", "x.gpx", "-", *["-q"] * quiet,
                               stderr=end) as process:
                time.sleep(1.1)  # the bar comes after a second
                process.communicate(LONG[1000000:])
            os.write(end, b"end")
            text = b""
            while not text.endswith(b"end"):  # a terminal hands out its text in pieces
                text += os.read(terminal, 10000)
            os.close(end)
            os.close(terminal)
            self.assertRegex(text, b"^end" if quiet else
                             b"MB standard input.*\\r\x1b\\[Kstandard input: 80000 points")


class Info(Case):
    def test_json(self):
        schema = json.loads(pathlib.Path(SOURCE, "docs/vrk3-info.schema.json").read_text("utf-8"))
        jsonschema.Draft7Validator.check_schema(schema)
        points = [(17, 179.99), (0, 0), (17.01, -179.99), (17, 179.995)]
        self.write("180.vrk3", b"noise" + archive(
            b"".join(gprmc(i, *p) for i, p in enumerate(points)) + b"$GPGSV,1*00\r\n$GPRMC,V*11"))
        shutil.copy(SAMPLE, self.path("drive.vrk3"))
        status, output, _ = self.run_vrk3("info", "--json", "180.vrk3", "nix", "nogps.vrk3",
                                          "drive.vrk3")
        self.assertEqual(status, 1)
        found = json.loads(output)
        jsonschema.validate(found, schema)
        self.assertEqual([f["file"] for f in found], ["180.vrk3", "nogps.vrk3", "drive.vrk3"])
        self.assertTrue(all(sum(f["bytes"].values()) == 2 * f["bytes"]["total"] for f in found))
        across, nogps, drive = found
        gps = across["gps"]
        self.assertEqual([gps[k] for k in ("points", "located", "first", "last")],
                         [4, 3, "2011-03-23T00:00:00Z", "2011-03-23T00:00:03Z"])
        for side, value in (("west", 179.99), ("east", -179.99), ("south", 17), ("north", 17.01)):
            self.assertAlmostEqual(gps["box"][side], value)
        radians = math.radians(0.01), math.radians(0.02) * math.cos(math.radians(17.005))
        way = 6371.0088 * (math.hypot(*radians) + math.hypot(radians[0], radians[1] * 0.75))
        self.assertAlmostEqual(gps["kilometres"], way, places=4)
        self.assertEqual((gps["unread"], gps["sentences"]["GPRMC"]["malformed"]), ({"GPGSV": 1}, 1))
        self.assertEqual(across["damage"]["firstStretches"], [{"offset": 0, "length": 5}])
        self.assertEqual((nogps["gps"]["points"], nogps["gps"]["box"]), (0, None))
        self.assertEqual((drive["titles"][0], drive["hdrRecords"], drive["texts"]["5"]),
                         ("Поездка по Москве", 2, "Москва"))
        self.assertEqual([s["id"] for s in drive["streams"]], [1, 2, 8, 9, 16, 253])

    def test_text(self):
        self.write("esc.vrk3", archive(gprmc(1, 1, 1) + gprmc(2, 1.0003, 1), "\x1b[2J\n"))
        status, output, errors = self.run_vrk3("info", "esc.vrk3", "a.vrk3")
        self.assertEqual((status, errors), (0, ""))
        self.assertNotIn(b"\x1b", output)
        for length in ("0.033", "1.112"):
            self.assertIn(f"  Length     {length} km\n", output.decode())
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.run_vrk3("info", "a.vrk3", stdout=full),
                             (1, None, "vrk3: standard output: No space left on device\n"))


class Plot(Case):
    def test_picture(self):
        # As far to the east as to the north, and a lost fix in between.
        self.write("p.vrk3", archive(gprmc(0, 60, 20) + gprmc(1, 0, 0) + gprmc(2, 60, 20.02) +
                                     gprmc(3, 60.01, 20.02), "A < B"))
        self.assertEqual(self.run_vrk3("plot", "p.vrk3", "-o", "p.svg")[0], 0)
        texts = {e.text for e in ET.parse(self.path("p.svg")).iter()}
        self.assertLessEqual({"A < B", "Start 00:00:00", "End 00:00:03", "200 m"}, texts)
        paths = re.findall(r'd="(M[^"]+)"', self.read("p.svg").decode())
        line = [tuple(map(float, p.split())) for p in re.split("[ML]", paths[-3])[1:]]
        self.assertEqual(len(line), 3)
        east, north = line[1][0] - line[0][0], line[1][1] - line[2][1]
        self.assertLess(abs(east / north - 1), 0.001)
        bar = float(re.search(r"h([\d.]+)", paths[-2])[1])
        self.assertAlmostEqual(200 / bar, 1111.95 / north, delta=0.01)
        self.write("zero.vrk3", archive(gprmc(1, 0, 0)))
        self.assertIn("no point has a position", self.run_vrk3("plot", "zero.vrk3")[2])


class Documents(Case):
    def test_every_option_is_told(self):
        manual = pathlib.Path(SOURCE, "cli/vrk3.1").read_text("utf-8").replace("\\-", "-")
        completion = os.path.join(SOURCE, "cli/vrk3.bash-completion")
        for command in ("convert", "info", "plot"):
            output = self.run_vrk3(command, "--help")[1].decode()
            options = re.findall(r"--[a-z]+", output.split("Options:")[1])
            script = ('. "$0"; COMP_WORDS=(vrk3 %s --); COMP_CWORD=2; _vrk3; echo "${COMPREPLY[@]}"'
                      % command)
            offered = subprocess.check_output(["bash", "-c", script, completion], text=True).split()
            self.assertEqual(sorted(set(options)), sorted(offered))
            self.assertTrue(all(option in manual for option in options))
        result = subprocess.run(["man", "--warnings", "-Tutf8", "-Z", "-l", f"{SOURCE}/cli/vrk3.1"],
                                capture_output=True, text=True)
        self.assertEqual((result.returncode, result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
