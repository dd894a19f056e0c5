"""Shared by the tests of vrk3: small archives, and ways to run the program."""
import functools
import operator
import os
import pathlib
import re
import shutil
import signal
import struct
import subprocess
import tempfile
import unittest

VRK3, SOURCE = os.environ["VRK3"], os.environ["VRK3_SOURCE"]
REFERENCE = pathlib.Path(__file__).parent / "reference"
# A shell makes its background jobs ignore Ctrl-C, and the programs started here would do the same.
signal.signal(signal.SIGINT, signal.default_int_handler)
# A time zone that differs from UTC in hours and minutes.
ENVIRONMENT = dict(os.environ, TZ="TST-5:45", LC_ALL="C.UTF-8")
# Sanitizers make system calls of their own and keep released memory.
SANITIZED = b"__asan_init" in pathlib.Path(VRK3).read_bytes()
not_sanitized = unittest.skipIf(SANITIZED, "built with sanitizers")


def sentence(body, error=0):
    checksum = functools.reduce(operator.xor, body.encode()) ^ error
    return b"$%s*%02X\r\n" % (body.encode(), checksum)


def _angle(value, width):
    return "%0*d%07.4f" % (width, int(abs(value)), abs(value) % 1 * 60)


def _place(second, lat, lon, status=""):
    return "%02d%02d%02d,%s%s,%s,%s,%s" % (second // 3600 % 24, second // 60 % 60, second % 60, status,
                                          _angle(lat, 2), "NS"[lat < 0], _angle(lon, 3), "EW"[lon < 0])


def gprmc(second, lat, lon, date="230311"):
    return sentence("GPRMC,%s,10.0,84.4,%s,,,A" % (_place(second, lat, lon, "A,"), date))


def gpgga(second, lat, lon, alt=151.7):
    return sentence("GPGGA,%s,1,07,0.9,%.1f,M,46.9,M,," % (_place(second, lat, lon), alt))


def header(title, streams, texts=b""):
    """An HDR record. Streams are tuples of id, type and three texts."""
    table = title.encode() + b"\0" + b"".join(
        bytes(s[:2]) + "\0".join([*s[2:], ""]).encode() for s in streams)
    return b"\xb5\xb5\x05\xb5" + struct.pack("<HH", 8 + len(table), len(texts)) + table + texts


def index(extra=b""):
    return b"\x05\xb5\xb5\xb5" + bytes(8) + bytes((len(extra),)) + extra


def block(stream, payload, kind=3, extension=b""):
    """A block: 0 continues a logical block, 1 ends one, 2 opens one, 3 is a whole one."""
    return struct.pack("<HBB", len(payload), kind << 6, stream) + extension + payload


def gps(text):
    return b"".join(block(0xFD, text[i:i + 60000]) for i in range(0, len(text), 60000))


def archive(text, title="Title", stream=0xFD):
    return header(title, [(stream, 4, "", "", "")]) + index() + gps(text).replace(b"\xfd", bytes((stream,)))


def everything():
    """An archive with everything that archives can contain. All its counts differ from each other."""
    streams = [(1, 1, "cam0", "Камера", "mjpeg"), (2, 2, "mic0", "", "pcm"), (8, 8, "", "", ""),
               (9, 0, "", "none", ""), (16, 16, "adc", "Volt", "mV"), (0xFD, 4, "com1", "GPS", "nmea")]
    first = header("A < B & \x1b[2J\u202e\U000e0041", streams, b"\1one\0\5\xd0\x9c\0\0\xff\1uno\0")
    second = header("Second", [(2, 4, "mic1", "", ""), *streams[2:]], "\3three\0".encode())

    # Eastwards across the antimeridian, northwards across the equator, across midnight; then a pause.
    fixes = [(86380 + i, -0.0123 + 0.002 * i, 179.9812 + 0.003 * i - 360 * (i > 6)) for i in range(12)]
    text = b""
    for i, (second_of_day, lat, lon) in enumerate(fixes):
        at = second_of_day + 3 * i + 300 * (i > 9)
        date = "230311" if at < 86400 else "240311"
        text += gprmc(at, lat, lon, date) + (gpgga(at, lat, lon, 20.5 - 9 * i) if i % 3 else b"")
    text += b"".join(gprmc(120 + i, *place, "240311") for i, place in enumerate(
        ((0, 0), (91.5, 3), (-91.5, 4), (5, 180.5), (6, -180.5))))
    for times, body in enumerate(("GPGGA,120000,1,N", "GPRMC,120000,A", "PGRME,4.2,M,5.1,M,6.6,M"), 2):
        text += sentence(body) * times  # too few fields, except for the last
        text += sentence(body + ",,,,,,,,,", error=1) * (times + 5)  # a wrong checksum
        text += (b"$" + body[:5].encode() + b",V*") * (times + 10)  # a character out of place
    text += sentence("GPGSV,3,1") * 20 + sentence("GPGSA,A") * 21 + b"$TOOLONGNAME,\r\n$,$" * 11

    cut = len(text) // 2
    sound = (block(1, b"picture 1, ", 2, b"\1\2\3\4") + block(2, b"sound") + block(0xFD, text[:cut], 2) +
             block(1, b"picture 2, ", 0) + block(0xFD, b"", 1) + block(1, b"end", 1) + block(8, b"") +
             block(16, b"13800 mV"))
    damaged = b"".join(b"\x07\x07\x07\x07" + bytes(i) + index(b"!") for i in range(1, 19))
    lost = block(2, b"nothing to join", 0) + block(8, b"abandoned", 2) + index(b"extra")
    end = block(16, b"unfinished", 2) + block(16, b" at all", 0) + block(2, b"cut off")[:-3]
    return (b"noise" + first + index() + sound + damaged + lost + second + index() +
            block(2, b"more sound") + gps(text[cut:]) + end)


GOOD = archive(gprmc(3600, 55, 37) + gprmc(3661, 55.01, 37))
LONG = archive(b"".join(gprmc(i, 48 + i / 1e5, 11) for i in range(20000)) * 4)


class Case(unittest.TestCase):
    """A test case with its own folder, in which vrk3 runs."""
    maxDiff = None

    def setUp(self):
        self.folder = tempfile.mkdtemp()
        self.addCleanup(shutil.rmtree, self.folder)
        os.chmod(self.folder, 0o777)

    def path(self, name):
        return pathlib.Path(self.folder, name)

    def write(self, name, data):
        self.path(name).parent.mkdir(exist_ok=True)
        self.path(name).write_bytes(data)

    def read(self, name):
        return self.path(name).read_bytes()

    def files(self):
        return sorted(os.path.relpath(os.path.join(folder, name), self.folder)
                      for folder, _, names in os.walk(self.folder) for name in names)

    def start(self, *arguments, before=(), **options):
        return subprocess.Popen([*before, VRK3, *arguments], cwd=self.folder,
                                **{"stdin": subprocess.DEVNULL, "stdout": subprocess.PIPE, "env": ENVIRONMENT,
                                   "stderr": subprocess.PIPE, **options})

    def vrk3(self, *arguments, data=b"", **options):
        """Returns the exit status, the output and the messages."""
        with self.start(*arguments, stdin=subprocess.PIPE, **options) as process:
            output, errors = process.communicate(data)
        return process.returncode, output, errors.decode(errors="replace")

    def assertReference(self, name, found):
        """Compares with a file of tests/cli/reference; VRK3_REWRITE=1 writes it instead."""
        if "VRK3_REWRITE" in os.environ:
            (REFERENCE / name).write_bytes(found)
        self.assertEqual((REFERENCE / name).read_bytes().decode(errors="backslashreplace").split("\n"),
                         found.decode(errors="backslashreplace").split("\n"), name)

    def assertTranscript(self, name, **options):
        """Runs the commands in a reference file and compares what they print and return."""
        found = b""
        for line in re.findall(rb"^\$ vrk3(.*)", (REFERENCE / name).read_bytes(), re.M):
            status, output, errors = self.vrk3(*line.decode("unicode_escape").split(), **options)
            found += b"$ vrk3%s\n%s%s[%d]\n" % (line, output, errors.encode(), status)
        self.assertReference(name, found)
