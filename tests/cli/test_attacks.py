"""What malicious archives and hostile environments cannot do."""
import json
import os
import re
import subprocess
import xml.etree.ElementTree as ET

from support import Case, ENVIRONMENT, GOOD, LONG, SANITIZED, VRK3, archive, block, gprmc, header, sentence, unittest

UNSAFE = re.compile("[\0-\t\v-\x1f\x7f-\x9f\u2028-\u202e\u2066-\u2069\U000e0000-\U000e007f]")


class Attacks(Case):
    def run_measured(self, *arguments):
        with self.start(*arguments, stderr=subprocess.DEVNULL) as process:
            output = process.stdout.read()
            _, process.returncode, usage = os.wait4(process.pid, 0)
        self.assertEqual(process.returncode, 0)
        return output.decode(), 0 if SANITIZED else usage.ru_maxrss

    def test_archives(self):
        """The outputs of info and plot are safe to show, well-formed and short, and take little memory."""
        fixes = gprmc(3600, 55, 37) + gprmc(3661, 55.01, 37)
        table = [(i % 256, i // 256, "", "", "") for i in range(65536)]
        for name, data in (
                ("good", GOOD),
                ("controls", archive(fixes, "\x9b31m\x7f\u202e\u2067\u2028\U000e0041\x9d0;\x9c \x1b[2J")),
                ("pictographs", archive(fixes, "x" * 58 + "\U0001f697" * 40)),
                ("markup", archive(fixes, "]]><a %s/>" % " ".join(f'a{i}=""' for i in range(6000)))),
                ("titles", (b"\xb5\xb5\x05\xb5\1\1\1\1" + b"\x9b" * 506) * 254 + b"\0" + GOOD),
                ("timeless", archive(sentence("GPRMC,,A,5530.0,N,03730.0,E,1.0,2.0,,,,A") * 4)),
                ("tables", b"".join(header("", table[i:i + 8192]) for i in range(0, 65536, 8192)) + GOOD),
                ("long", GOOD + b"".join(header("t%d" % i, [(i % 256, 1 + i // 256, "a" * 20000, "\x9b" * 15000, "")])
                                         for i in range(300)) + GOOD)):
            self.write(name + ".vrk3", data)
            for arguments, limit in (("info",), 300000), (("info", "--json"), 3000000), (("plot", "-o", "-"), 6000):
                with self.subTest(name=name, arguments=arguments):
                    output, memory = self.run_measured(*arguments, name + ".vrk3")
                    self.assertLessEqual(memory, self.run_measured(*arguments, "good.vrk3")[1] + 12 * 1024)
                    self.assertLess(len(output), limit)
                    self.assertIsNone(UNSAFE.search(output))
                    if arguments[0] == "plot":
                        self.assertNotIn("Start <", ET.tostring(ET.fromstring(output), "unicode"))
                    elif arguments[1:]:
                        self.assertEqual(json.loads(output)[0]["omitted"]["streams"] > 0, name in ("tables", "long"))

    def test_environments(self):
        """If the program lacks something or would overwrite a file, it prints one line and leaves no file."""
        for name, data in (("a.vrk3", LONG), ("b.vrk3", GOOD), ("\ufeffb.vrk3", LONG), ("\ufffd/c.vrk3", GOOD),
                           ("endless.vrk3", archive(b"") + block(0xFD, b"", 2) + block(0xFD, bytes(60000), 0) * 999)):
            self.write(name, data)
        os.symlink("new.gpx", self.path("dangling"))
        before, b = self.files(), "b.vrk3: 2 points, 01:00:00 to 01:01:01 UTC, 0 bytes skipped -> "
        for script, expected in (
                ("info - <&-", "vrk3: standard input: Bad file descriptor\n1\n"),
                ("convert -o- b.vrk3 2>&1 >&-", "vrk3: b.vrk3: cannot write standard output: Bad file descriptor\n1\n"),
                ("-f 8; convert a.vrk3 b.vrk3", f"vrk3: a.vrk3: cannot write a.gpx: File too large\n{b}b.gpx\n1\n"),
                ("-f 8; track a.vrk3", "vrk3: a.vrk3: the temporary file in /tmp: File too large\n1\n"),
                ("-n 5; info b.vrk3", "vrk3: Too many open files\n1\n"),
                ("-v 80000; convert endless.vrk3", "vrk3: endless.vrk3: out of memory\n1\n"),
                ("-v 60000; convert -qj9 endless.vrk3 b.vrk3", "vrk3: endless.vrk3: out of memory\n1\n"),
                ("convert -o $'\\xff' a", "vrk3: convert: '\ufffd' is not valid UTF-8; see vrk3 convert --help\n2\n"),
                ("info $'\\xff'", "vrk3: \ufffd: its name is not valid UTF-8\n1\n"),
                ("info \ufeffb.vrk3", "vrk3: \ufffdb.vrk3: its name is not valid UTF-8\n1\n"),
                ("info -- -qmljsdebugger=x", "vrk3: -qmljsdebugger=x: No such file or directory\n1\n"),
                ("convert -yq b.vrk3 - <a.vrk3 2>&1 >b.gpx",
                 "vrk3: b.vrk3: cannot write b.gpx: another archive has the same output\n1\n"),
                ("convert -o dangling b.vrk3",
                 "vrk3: b.vrk3: cannot write dangling: it already exists (use --overwrite to replace it)\n1\n"),
                ("convert -yo dangling b.vrk3", f"{b}dangling\n0\n")):
            limit, _, command = script.rpartition("; ")
            with self.subTest(script):
                if SANITIZED and limit[:2] in ("-n", "-v"):
                    continue  # The sanitizers need files and memory of their own.
                script = f"ulimit {limit or '-c 0'}; \"$0\" {command}; echo $?; rm -f b.gpx new.gpx"
                result = subprocess.run(["bash", "-c", script, VRK3], cwd=self.folder, check=False, timeout=60,
                                        env=dict(ENVIRONMENT, TMPDIR="/tmp"), stdin=subprocess.DEVNULL,
                                        stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
                self.assertEqual((result.stdout.decode(), self.files()), (expected, before))


if __name__ == "__main__":
    unittest.main()
