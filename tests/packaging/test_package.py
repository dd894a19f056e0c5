"""Checks the packages in build/packages; installs and removes the .deb, so run it with spare_root.sh.

Environment: VRKTRK_BUILD, a build folder.
"""
import os
import pathlib
import shlex
import shutil
import subprocess
import unittest

import desktop

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PACKAGES = SOURCE / "build/packages"
BUILD = pathlib.Path(os.environ["VRKTRK_BUILD"])
SAMPLE = BUILD / "sample/drive.vrk3"
GPX, RAW = "GPS Exchange Format (.gpx)", "Complete GPS data (.txt)"
# Names that shells, menus or the program could misread.
NAMES = ["plain.vrk3", "two  blanks.vrk3", "-x.vrk3", "it's \"quoted\" `id` $HOME \\n.vrk3",
         "Путь в горы é.vrk3", "100%f;&|<>*?.vrk3", "no extension"]


def run(*command, **options):
    done = subprocess.run(command, stdout=subprocess.PIPE, stderr=subprocess.STDOUT, **options)
    if done.returncode:
        raise AssertionError(f"{shlex.join(map(str, command))}: {done.stdout.decode()}")
    return done.stdout


def machine():
    """Returns every file in a place where a package or its triggers could leave one."""
    return set(run("find", "/usr", "/etc", "/opt", "/var/lib", "-printf", "%p %l\n").splitlines())


class PackageTest(desktop.Case):
    @classmethod
    def setUpClass(cls):
        super().setUpClass()
        cls.deb, = PACKAGES.glob("vrktrk_*.deb")
        cls.tarball, = PACKAGES.glob("*.tar.gz")
        cls.track = run(BUILD / "bin/vrk3", "convert", "-q", "-o", "-", SAMPLE)

    def start(self, program, *arguments, **environment):
        os.environ["VRKTRK_PROGRAM"] = str(program)
        return super().start(*arguments, LANG="en_US.UTF-8", **environment)

    def save_gpx(self, program, proposal):
        """Saves GPX in a window. Its texts are English, so the program found its translations."""
        program.find("radio button", RAW)
        program.press("radio button", GPX)
        program.press("push button", "OK")
        self.assertEqual(program.proposal(), proposal)
        output = self.folder / "saved.gpx"
        program.fill_in("Save", output)
        program.ends()
        self.assertEqual(output.read_bytes(), self.track)
        output.unlink()

    def test_checkers_are_satisfied(self):
        root = self.folder / "root"
        run("dpkg-deb", "--extract", self.deb, root)
        share = root / "usr/share"
        for command in (
                ["lintian", "--allow-root", "--pedantic", "--display-info", "--fail-on",
                 "error,warning,info,pedantic", *PACKAGES.glob("*.changes"), *PACKAGES.glob("*.dsc")],
                ["desktop-file-validate", share / "applications/vrktrk.desktop"],
                ["appstreamcli", "validate", "--no-net", *share.glob("metainfo/*")],
                ["xmllint", "--noout", share / "mime/packages/vrktrk.xml"],
                ["bash", "-n", share / "bash-completion/completions/vrk3"]):
            with self.subTest(command[0]):
                run(*command)
        control = run("dpkg-deb", "--field", self.deb, "Depends", "Recommends").decode()
        self.assertRegex(control, r"Depends: .*libqt6widgets6 \(>= 6")
        self.assertRegex(control, r"Recommends: .*qt6-wayland")
        version = run("dpkg-deb", "--field", self.deb, "Version")
        self.assertEqual(run(root / "usr/bin/vrk3", "--version"), b"vrk3 " + version)
        for manual in share.glob("man/man1/*"):
            self.assertIn(b"VrkTrk " + version.strip(), run("man", "-l", manual))

    def test_tarball_runs_from_any_folder(self):
        (place := self.folder / "some where").mkdir()
        run("tar", "-xf", self.tarball, "-C", place)
        root, = place.iterdir()
        shutil.copy(SAMPLE, self.folder / "a.vrk3")
        (self.folder / "link").symlink_to(root / "lib/vrktrk/open-archive")
        for program in root / "bin/VrkTrk", root / "lib/vrktrk/open-archive", self.folder / "link":
            with self.subTest(program), self.start(program, "a.vrk3") as window:
                self.save_gpx(window, "a.gpx")
        self.assertEqual(run(root / "bin/vrk3", "convert", "-q", "-o", "-", SAMPLE), self.track)

    def test_install_and_remove(self):
        self.assertFalse(os.path.exists("/var/lib/dpkg/info/vrktrk.list"),
                         "remove the installed vrktrk first")
        before = machine()
        self.addCleanup(run, "dpkg", "--purge", "vrktrk")
        run("dpkg", "--install", self.deb)
        for test in "convert", "window":
            with self.subTest(test):
                run(SOURCE / "debian/tests" / test, cwd=SOURCE,
                    env={**os.environ, "AUTOPKGTEST_TMP": str(self.folder)})
        self.double_clicks()
        run("dpkg", "--remove", "vrktrk")
        self.assertEqual(machine() ^ before, set())

    def double_clicks(self):
        """Does what a file manager does: finds the type, the program and the command for a full path."""
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
