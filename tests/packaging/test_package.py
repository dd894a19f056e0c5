"""The packages as somebody meets them who has never seen the source. It installs one, and is run
through spare_root.sh. Environment: VRKTRK_BUILD, the build folder, VRKTRK_PACKAGES, theirs."""
import gzip
import os
import pathlib
import shlex
import shutil
import subprocess
import unittest

import desktop

BUILD = pathlib.Path(os.environ["VRKTRK_BUILD"])
SAMPLE = BUILD / "sample/drive.vrk3"
GPX, RAW = "GPS Exchange Format (.gpx)", "Complete GPS data (.txt)"
# What shells, menus and the program itself might take for something else than a name.
NAMES = ["plain.vrk3", "two  blanks.vrk3", "-x.vrk3", "it's \"quoted\" `id` $HOME \\n.vrk3",
         "Путь в горы é.vrk3", "100%f;&|<>*?.vrk3", "no extension"]


def run(*command):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT)
    if done.returncode:
        raise AssertionError(f"{shlex.join(map(str, command))}: {done.stdout.decode()}")
    return done.stdout


def machine():
    """All that lies where a package or its triggers could leave something behind."""
    return set(run("find", "/usr", "/etc", "/opt", "/var/lib", "-printf", "%p %l\n").splitlines())


class PackageTest(desktop.Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        packages = pathlib.Path(os.environ["VRKTRK_PACKAGES"])
        cls.deb, = packages.glob("*.deb")
        cls.tarball, = packages.glob("*.tar.gz")
        cls.track = run(BUILD / "bin/vrk3", "convert", "-q", "-o", "-", SAMPLE)

    def start(self, program, *arguments, **environment):
        os.environ["VRKTRK_PROGRAM"] = str(program)
        return super().start(*arguments, LANG="en_US.UTF-8", **environment)

    def save_gpx(self, program, proposal):
        """From the choice of format to the end; all in English, so the translations were found."""
        program.find("radio button", RAW)
        program.press("radio button", GPX)
        program.press("push button", "OK")
        self.assertEqual(program.proposal(), proposal)
        output = self.folder / "saved.gpx"
        program.fill_in("Save", output)
        program.ends()
        self.assertEqual(output.read_bytes(), self.track)
        output.unlink()

    def converts(self, vrk3):
        run(vrk3, "convert", "-q", "-o", self.folder / "made.gpx", SAMPLE)
        self.assertEqual((self.folder / "made.gpx").read_bytes(), self.track)

    def test_pleases_the_checkers(self):
        root = self.folder / "root"
        run("dpkg-deb", "--extract", self.deb, root)
        share = root / "usr/share"
        for command in (
                ["lintian", "--allow-root", "--fail-on", "error,warning", self.deb],
                ["desktop-file-validate", share / "applications/vrktrk.desktop"],
                ["appstreamcli", "validate", "--no-net", *share.glob("metainfo/*")],
                ["xmllint", "--noout", share / "mime/packages/vrktrk.xml"],
                ["bash", "-n", share / "bash-completion/completions/vrk3"]):
            with self.subTest(command[0]):
                run(*command)
        control = run("dpkg-deb", "--field", self.deb, "Depends", "Recommends").decode()
        self.assertRegex(control, r"Depends: .*libqt6widgets6 \(>= 6")
        self.assertRegex(control, r"Recommends: .*qt6-wayland")
        # All say the one version, whose only place is the top CMakeLists.
        version = run(root / "usr/bin/vrk3", "--version").split()[-1]
        self.assertIn(b"Version: %s-" % version, run("dpkg-deb", "--info", self.deb))
        for name in "man/man1/VrkTrk.1.gz", "doc/vrktrk/changelog.gz":
            self.assertIn(version, gzip.decompress((share / name).read_bytes()))

    def test_tarball_runs_from_anywhere(self):
        (place := self.folder / "some where").mkdir()
        run("tar", "-xf", self.tarball, "-C", place)
        root, = place.iterdir()
        shutil.copy(SAMPLE, self.folder / "a.vrk3")
        (self.folder / "link").symlink_to(root / "lib/vrktrk/open-archive")
        for program in root / "bin/VrkTrk", root / "lib/vrktrk/open-archive", self.folder / "link":
            with self.subTest(program), self.start(program, "a.vrk3") as window:
                self.save_gpx(window, "a.gpx")
        self.converts(root / "bin/vrk3")

    def test_comes_and_goes(self):
        self.assertFalse(os.path.exists("/var/lib/dpkg/info/vrktrk.list"),
                         "an installed vrktrk stands in the way")
        before = machine()
        self.addCleanup(run, "dpkg", "--purge", "vrktrk")
        run("dpkg", "--install", self.deb)

        shutil.copy(SAMPLE, self.folder / "a.vrk3")
        with self.start("/usr/bin/VrkTrk", "a.vrk3") as window:
            self.save_gpx(window, "a.gpx")
        self.converts("/usr/bin/vrk3")
        self.double_clicks()

        run("dpkg", "--remove", "vrktrk")
        self.assertEqual(machine() ^ before, set())

    def double_clicks(self):
        """What a file manager does: type by name, program by type, its command with a whole path."""
        from gi.repository import Gio
        self.assertEqual(Gio.content_type_guess("a.vrk3", b"PK\3\4 bytes ahead")[0],
                         "application/x-vrk3")
        self.assertEqual(Gio.content_type_guess("nameless", b"\xb5\xb5\5\xb5 title")[0],
                         "application/x-vrk3")
        entry = Gio.AppInfo.get_default_for_type("application/x-vrk3", False)
        self.assertEqual(entry.get_id(), "vrktrk.desktop")
        icon = f"48x48/apps/{entry.get_icon().to_string()}.png"
        self.assertTrue(pathlib.Path("/usr/share/icons/hicolor", icon).exists())
        command = shlex.split(entry.get_commandline())
        self.assertEqual(command[1:], ["%f"])
        (folder := self.folder / "-d 'ä\" $(id)").mkdir()
        for name in NAMES:
            shutil.copy(SAMPLE, folder / name)
            with self.subTest(name), self.start(command[0], folder / name) as window:
                self.save_gpx(window, name.replace(".vrk3", ".gpx"))
        with self.subTest("from the menu"), self.start(command[0]) as window:
            window.find("dialog", "Open")
            window.press("push button", "Cancel")


if __name__ == "__main__":
    unittest.main()
