"""vrk3 as users run it: outputs, messages, exit statuses, and what goes wrong on real machines."""
import contextlib
import fcntl
import itertools
import json
import os
import pathlib
import pty
import re
import shutil
import signal
import subprocess
import termios
import time

import jsonschema
from support import (Case, ENVIRONMENT, GOOD, LONG, SOURCE, archive, everything, gprmc, header, index, not_sanitized,
                     unittest)



class Outputs(Case):
    def test_references(self):
        title = "A title of more than sixty characters, which no picture has room for"
        far = archive(gprmc(0, 10, 20) + gprmc(9, 19, 20) + gprmc(40, 19, -179) + gprmc(41, -2, 20), title)
        parked = archive(gprmc(1, 51.5, -0.1) + gprmc(9, 51.500002, -0.1), "")
        for name, data in (("everything", everything()), ("far", far), ("parked", parked),
                           ("nogps", archive(b"x", "100%1 " + "x" * 300, stream=7))):
            self.write(name + ".vrk3", data)
        self.assertTranscript("outputs.txt")
        for name in [n for n in self.files() if not n.endswith(".vrk3")]:
            self.assertReference(name, self.read(name))
        found = json.loads(self.vrk3("info", "--json", "everything.vrk3", "nogps.vrk3")[1])
        schema = json.loads(pathlib.Path(SOURCE, "docs/vrk3-info.schema.json").read_text("utf-8"))
        jsonschema.validate(found, schema)
        self.assertTrue(all(sum(f["bytes"].values()) == 2 * f["bytes"]["total"] for f in found))
        lines = self.vrk3("info", "--jsonl", "everything.vrk3", "nix", "nogps.vrk3")[1].splitlines()
        self.assertEqual([json.loads(line) for line in lines], found)

    def test_names(self):
        self.write("a.vrk3", GOOD)
        formats = {f: self.vrk3("convert", "--to", f, "-o", "-", "a.vrk3")[1]
                   for f in ("raw", "gpx", "plt", "kml")}
        for name in ("a.b.vrk3", "d.d/noext", ".hidden"):
            self.write(name, GOOD)
        for arguments, name, form in (
                ("a.vrk3", "a.gpx", "gpx"), ("--to raw a.vrk3", "a.txt", "raw"), ("-o y a.vrk3", "y", "gpx"),
                ("-t kml -d d.d a.vrk3", "d.d/a.kml", "kml"), ("-o x.PLT a.vrk3", "x.PLT", "plt"),
                ("-o x.LOG a.vrk3", "x.LOG", "raw"), ("-t RAW -o z.gpx a.vrk3", "z.gpx", "raw"),
                ("a.b.vrk3", "a.b.gpx", "gpx"), ("d.d/noext", "d.d/noext.gpx", "gpx"),
                (".hidden", ".hidden.gpx", "gpx"), (f"{self.folder}/a.vrk3 -qt kml", "a.kml", "kml")):
            with self.subTest(arguments):
                status, output, errors = self.vrk3("convert", *arguments.split())
                self.assertEqual((status, output, errors.count("\n")), (0, b"", "-qt" not in arguments))
                self.assertEqual(self.read(name), formats[form])
        line = "standard input: 2 points, 01:00:00 to 01:01:01 UTC, 0 bytes skipped -> standard output\n"
        self.assertEqual(self.vrk3("convert", "-", data=GOOD), (0, formats["gpx"], line))

    def test_messages(self):
        for name, data in (("a.vrk3", GOOD), ("nogps.vrk3", archive(b"x", stream=7)), ("old.gpx", b"old"),
                           ("noise.vrk3", bytes(5000)), ("empty.vrk3", b""), ("protected.gpx", b"old"),
                           ("zero.vrk3", archive(gprmc(1, 0, 0))), ("locked.vrk3", GOOD), ("d/a.vrk3", LONG),
                           ("\udcff.vrk3", GOOD), ("e/a.txt", b""), ("locked/a.vrk3", GOOD)):
            self.write(name, data)
        os.symlink("a.vrk3", self.path("link.gpx"))
        os.link(self.path("a.vrk3"), self.path("hard.svg"))
        before = {name: self.read(name) for name in self.files()}
        powerless = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        with contextlib.ExitStack() as end:
            for name, mode in (("locked.vrk3", 0), ("locked", 0), ("protected.gpx", 0o444)):
                end.callback(os.chmod, self.path(name), 0o755)
                os.chmod(self.path(name), mode)
            self.assertTranscript("messages.txt", before=powerless if os.geteuid() == 0 else [])
        self.assertEqual({name: self.read(name) for name in self.files()}, before)
        version = re.search(r"VrkTrk VERSION ([\d.]+)", pathlib.Path(SOURCE, "CMakeLists.txt").read_text())[1]
        for option in "--version", "-v", "-V":
            self.assertEqual(self.vrk3(option), (0, f"vrk3 {version}\n".encode(), ""))
        with self.path("a.vrk3").open("ab") as file:
            for command in (["convert", "-o", "-"], ["info"]):
                self.assertIn("it is one of the input archives", self.vrk3(*command, "a.vrk3", stdout=file)[2])


class Many(Case):
    def test_tree(self):
        """A tree of archives: those after a slow one wait for it, and a second run changes no output."""
        for name, data in (("t/a.vrk3", LONG), ("t/s/b.VRK3", GOOD), ("t/s/u/c.vrk3", GOOD), ("t/z.vrk3", GOOD),
                           ("t/bad.vrk3", bytes(99)), ("t/s/no.txt", GOOD), ("t/.x.vrk3", GOOD), ("b.vrk3", GOOD),
                           ("t/s/b.vrk3", LONG), ("far/y.vrk3", GOOD), ("out/e.gpx", b"old")):
            self.write(name, data)
        os.symlink("../far", self.path("t/link"))
        os.symlink("/dev/zero", self.path("t/zero.vrk3"))
        os.symlink("b.gpx", self.path("out/z.gpx"))
        self.assertTranscript("many.txt")
        times = {name: self.path(name).stat().st_mtime_ns for name in self.files()}
        self.assertEqual([n for n in times if n.startswith("out")],
                         ["out/a.gpx", "out/b.gpx", "out/e.gpx", "out/s/b.gpx", "out/s/u/c.gpx", "out/z.gpx"])
        self.assertEqual(self.read("out/b.gpx"), self.read("out/s/b.gpx"))
        self.assertTranscript("again.txt")
        self.assertEqual({name: self.path(name).stat().st_mtime_ns for name in self.files()}, times)

    def test_open_files(self):
        """The results that wait for a slow archive do not use up the open files."""
        data = header("", [(i, 2, "", "", "") for i in range(30)]) + index()
        names = [f"{i}.vrk3" for i in range(10)]
        for name in names[1:]:
            self.write(name, data)
        os.mkfifo(self.path(names[0]))
        with self.start("extract", "--stream", "all", "-qj2", *names, before=["prlimit", "--nofile=200"]) as process:
            time.sleep(1)
            self.path(names[0]).write_bytes(data)
            errors = process.communicate()[1]
        self.assertEqual((process.returncode, errors), (0, b""))

    def test_interrupted(self):
        for i in range(30):
            self.write(f"t/{i}.vrk3", LONG)
        with self.start("convert", "-j2", "t") as process:
            process.stderr.readline()
            process.send_signal(signal.SIGINT)
            process.communicate()
        self.assertEqual(process.returncode, -signal.SIGINT)
        outputs = [self.path(n).stat().st_size for n in self.files() if not n.endswith(".vrk3")]
        self.assertLess(len(outputs), 30)
        self.assertEqual(len(set(outputs)), 1)


class Machine(Case):
    def setUp(self):
        super().setUp()
        self.write("old.gpx", b"old")
        self.write("long.vrk3", LONG)

    def half_way(self, *arguments, **options):
        """A process that has read half of an archive from standard input and waits for more."""
        process = self.start(*arguments, stdin=subprocess.PIPE, **options)
        process.stdin.write(LONG[:1000000])
        process.stdin.flush()
        while any(fcntl.ioctl(process.stdin, termios.FIONREAD, bytes(4))):
            time.sleep(0.01)
        return process

    @not_sanitized
    def test_failing_calls(self):
        """A failing system call fails the archive and changes no file; an interrupted one is repeated."""
        if subprocess.run(["strace", "-qqo/dev/null", "true"], check=False).returncode:
            self.skipTest("no right to trace")
        space, io = "No space left on device", "Input/output error"
        for inject, path, output, reason in (
                ("write:error=ENOSPC:when=2", None, "old.gpx", f"cannot write old.gpx: {space}"),
                ("fsync:error=EIO", None, "old.gpx", f"cannot write old.gpx: {io}"),
                ("close:error=ENOSPC", "/dev/null", "/dev/null", f"cannot write /dev/null: {space}"),
                ("read:error=EIO:when=3", "long.vrk3", "old.gpx", io),
                ("write:error=EINTR:when=2", None, "new.gpx", None),
                ("read:error=EINTR:when=3", "long.vrk3", "eintr.gpx", None)):
            with self.subTest(inject):
                before = ["strace", "-qqfo/dev/null", "-einject=" + inject, *(["-P", self.path(path)] if path else [])]
                found = self.vrk3("convert", "-yqo", output, "long.vrk3", before=before)
                self.assertEqual(found, (1, b"", f"vrk3: long.vrk3: {reason}\n") if reason else (0, b"", ""))
        # A long track is in a temporary file, which is read after the end of the archive.
        self.vrk3("plot", "-o", "/dev/null", "long.vrk3", before=["strace", "-qqo", self.path("log"), "-etrace=read"])
        reads = self.read("log").splitlines()
        first = max(n for n, line in enumerate(reads, 2) if line.endswith(b" = 0"))
        for command, n in itertools.product(("plot", "track"), (first, first + 500, (first + len(reads)) // 2 + 1)):
            with self.subTest(command, n=n):
                before = ["strace", "-qqfo/dev/null", f"-einject=read:error=EIO:when={n}+"]
                status, _, errors = self.vrk3(command, "-yo", "x", "long.vrk3", before=before)
                self.assertEqual(status, 1)
                self.assertRegex(errors, f"^vrk3: long.vrk3: the temporary file in .*: {io}\n$")
        self.path("log").unlink()
        self.assertEqual(self.files(), ["eintr.gpx", "long.vrk3", "new.gpx", "old.gpx"])
        # With threads, a descriptor that is closed twice may be that of another file.
        before = ["strace", "-qqfZo", self.path("twice"), "-etrace=close"]
        self.assertEqual(self.vrk3("convert", "-yq", "long.vrk3", before=before), (0, b"", ""))
        self.assertEqual(self.read("twice"), b"")
        self.assertEqual((self.read("old.gpx"), self.read("new.gpx")), (b"old", self.read("eintr.gpx")))
        with open("/dev/full", "wb") as full:
            self.assertEqual(self.vrk3("info", "long.vrk3", stdout=full),
                             (1, None, f"vrk3: standard output: {space}\n"))

    def test_permissions(self):
        os.chmod(self.path("old.gpx"), 0o604)
        for name, mode in ("new.gpx", 0o640), ("old.gpx", 0o604):
            self.vrk3("convert", "-yo", name, "long.vrk3", umask=0o027)
            self.assertEqual(self.path(name).stat().st_mode & 0o777, mode)

    def test_same_inode_on_two_disks(self):
        script = ("mkdir x y && mount -t tmpfs none x && mount -t tmpfs none y && echo >y/old.gpx && "
                  "cp long.vrk3 x && stat -c %i x/long.vrk3 y/old.gpx && "
                  "\"$0\" convert -yo y/old.gpx x/long.vrk3")
        result = subprocess.run(["unshare", "-rm", "sh", "-c", script, os.environ["VRK3"]], check=False,
                                cwd=self.folder, capture_output=True, text=True, env=ENVIRONMENT)
        if len(set(result.stdout.split())) != 1:
            self.skipTest("no right to mount, or other inode numbers: " + result.stderr)
        self.assertEqual((result.returncode, result.stderr[:13]), (0, "x/long.vrk3: "))

    def test_ends_in_the_middle(self):
        before = self.files()
        for number, name in itertools.product((signal.SIGINT, signal.SIGTERM, signal.SIGHUP, signal.SIGKILL),
                                              ("new.gpx", "old.gpx")):
            with self.half_way("convert", "-y", "-o", name, "-") as process:
                process.send_signal(number)
                errors = process.stderr.read()
            message = b"" if number == signal.SIGKILL else b"vrk3: standard input: interrupted\n"
            self.assertEqual((process.returncode, errors), (-number, message))
            self.assertEqual((self.files(), self.read("old.gpx")), (before, b"old"))
        os.mkfifo(self.path("pipe"))
        for arguments in (("-j2", "pipe", "long.vrk3"), ("--header-from", "pipe", "long.vrk3")):
            with self.start("info", *arguments) as process:
                time.sleep(0.3)
                process.send_signal(signal.SIGINT)
                try:
                    process.communicate(timeout=20)
                finally:
                    process.kill()
            self.assertEqual(process.returncode, -signal.SIGINT)
        with self.half_way("info", "-", before=["nohup"]) as process:
            process.send_signal(signal.SIGHUP)
            process.communicate(b"")
        self.assertEqual(process.returncode, 0)

    def test_created_meanwhile(self):
        with self.half_way("convert", "-o", "new.gpx", "-") as process:
            self.write("new.gpx", b"theirs")
            errors = process.communicate()[1].decode()
        self.assertEqual((errors, process.returncode, self.read("new.gpx")), (
            "vrk3: standard input: cannot write new.gpx: File exists\n", 1, b"theirs"))

    def test_pipes_and_shrinking(self):
        shrank = b"vrk3: long.vrk3: it shrank while being read\n"
        for change, expected in ((lambda: process.stdout.close(), (-signal.SIGPIPE, b"")),
                                 (lambda: os.truncate(self.path("long.vrk3"), 2000000), (1, shrank))):
            with self.start("convert", "-t", "raw", "-o", "-", "long.vrk3") as process:
                process.stdout.read(100)  # now the pipe is full, and the archive is not yet read
                change()
                errors = process.stderr.read() if process.stdout.closed else process.communicate()[1]
            self.assertEqual((process.returncode, errors), expected)

    @not_sanitized
    def test_flat_memory(self):
        def peak(form, times):
            with self.start("convert", "-t", form, "-o", "/dev/null", "-", stdin=subprocess.PIPE) as process:
                for _ in range(times):
                    process.stdin.write(LONG)
                process.stdin.close()
                _, status, usage = os.wait4(process.pid, 0)
            self.assertEqual(status, 0)
            return usage.ru_maxrss

        for form in ("raw", "gpx"):
            self.assertLess(peak(form, 20), peak(form, 1) + 4 * 1024)

    def test_progress(self):
        self.write("nogps.vrk3", archive(b"x", stream=7))
        for quiet in (False, True):
            terminal, end = pty.openpty()
            with self.half_way("convert", "-yt", "gpx", "nogps.vrk3", "-", *["-q"] * quiet, stderr=end,
                               stdout=subprocess.DEVNULL) as process:
                time.sleep(1.1)  # the bar appears after a second
                process.communicate(LONG[1000000:])
            os.write(end, b"end")
            text = b""
            while not text.endswith(b"end"):  # a terminal delivers its text in pieces
                text += os.read(terminal, 10000)
            os.close(end)
            os.close(terminal)
            self.assertRegex(text, b"GPS data\r\nend" if quiet else
                             b"MB archive 2 of 2 standard input.*\\r\x1b\\[Kstandard input: 80000 points")


class Documents(Case):
    def complete(self, *words):
        script = '. "$0"; COMP_WORDS=("$@"); COMP_CWORD=$(($# - 1)); _vrk3; echo "${COMPREPLY[@]}"'
        return sorted(subprocess.check_output(["bash", "-c", script, f"{SOURCE}/cli/vrk3.bash-completion", *words],
                                              text=True, cwd=self.folder).split())

    def test_every_option_is_documented(self):
        manual, zsh, fish = (pathlib.Path(SOURCE, "cli", name).read_text("utf-8").replace("\\-", "-") for name in
                             ("vrk3.1", "vrk3.zsh-completion", "vrk3.fish-completion"))
        commands = re.findall(r"^  (\w+) ", self.vrk3("--help")[1].decode(), re.M)
        self.assertEqual(self.complete("vrk3", ""), sorted(["--help", "--version", *commands]))
        for command in commands[:-1]:  # the last is help
            options = re.findall(r"--[a-z-]+", self.vrk3(command, "--help")[1].decode().split("Options:")[1])
            self.assertEqual(self.complete("vrk3", command, "--"), sorted(set(options)))
            for option in options:
                self.assertTrue(option in manual and option in zsh and f"-l {option[2:]} " in fish, option)
        for name in ("a.vrk3", "B.VRK3", "c.txt", "d/e.vrk3"):
            self.write(name, b"")
        for line, offered in (("vrk3 info ", "B.VRK3 a.vrk3 d"), ("vrk3 info -- --", ""), ("vrk3 convert --to = k", "kml"),
                              ("vrk3 convert --to =", "gpx kml plt raw"), ("vrk3 plot --folder = ", "d")):
            self.assertEqual(" ".join(self.complete(*line.split(" "))), offered)
        result = subprocess.run(["man", "--warnings", "-Tutf8", "-Z", "-l", f"{SOURCE}/cli/vrk3.1"],
                                capture_output=True, text=True, check=False)
        self.assertEqual((result.returncode, result.stderr), (0, ""))


if __name__ == "__main__":
    unittest.main()
