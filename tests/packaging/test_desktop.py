"""The scripts for desktops, in German. The window and the desktop's own programs are replaced with scripts
that report how they are called. Environment: that of support.py, and VRKTRK_BUILD, the build folder."""
import os
import struct
import subprocess
import unittest

import support

SPY = b'#!/bin/sh\nprintf "%s|" "${0##*/}" "$@" >&3\n'
NOTE = "notify-send|--app-name=VrkTrk|--icon=vrktrk|--|"
ARCHIVES = {"good": (support.GOOD, ""), "a <b> & c": (b"no archive", "Dies ist kein VRK3-Archiv."),
            "-x": (support.archive(b"$", stream=7), "Dieses Archiv enthält keine GPS-Daten."),
            "it's": (support.archive(b"$"), "Die GPS-Daten in diesem Archiv enthalten keine Position.")}


class DesktopTest(support.Case):
    def setUp(self):
        super().setUp()
        subprocess.check_output(["cmake", "--install", os.environ["VRKTRK_BUILD"], "--prefix", self.folder])
        for name, script in ("lib/vrktrk/VrkTrk", SPY), ("bin/notify-send", SPY), ("bin/xdg-open", SPY), (
                "bin/xdg-mime", SPY), (
                "bin/timeout", b'#!/bin/sh\nshift\n"$@"\n'):  # never times out, however busy the machine is
            self.write(name, script)
            self.path(name).chmod(0o755)
        for name, (content, _) in ARCHIVES.items():
            self.write(f"d ä/{name}.vrk3", content)

    def calls(self, script, name, *arguments):
        """Returns what a script calls, also in the background."""
        command = ["sh", "-c", 'exec "$@" 3>&1 >&2', "sh", self.path(script), self.path(f"d ä/{name}.vrk3")]
        environment = dict(os.environ, LC_ALL="de_DE.UTF-8", TMPDIR=self.folder, XDG_CONFIG_HOME=self.folder,
                           PATH=f"{self.folder}/bin:{os.environ['PATH']}")
        return subprocess.run([*command, *arguments], stdout=subprocess.PIPE, env=environment, text=True).stdout

    def test_launcher_warns_and_opens_the_window(self):
        for name, (_, problem) in ARCHIVES.items():
            window, note = f"VrkTrk|./{name}.vrk3|", f"{NOTE}{name}.vrk3|{problem}|" if problem else ""
            self.assertIn(self.calls("bin/vrktrk", name), (window + note, note + window))
        self.path("bin/timeout").unlink()
        self.write("bin/vrk3", b"#!/bin/sh\nexec sleep 1000\n")  # as with a long archive
        self.assertEqual(self.calls("bin/vrktrk", "good"), "VrkTrk|./good.vrk3|")

    def test_actions_and_thumbnails(self):
        picture = self.calls("lib/vrktrk/show-track", "good").split("|")[1]
        self.assertEqual(self.read(picture), self.vrk3("plot", "-qo-", "d ä/good.vrk3")[1])
        self.assertIn(f"{NOTE}Der Track kann nicht angezeigt werden|"
                      "a &lt;b&gt; &amp; c.vrk3: not a VRK3 archive, or its header is missing|",
                      self.calls("lib/vrktrk/show-track", "a <b> & c"))
        for summary in "Track gespeichert", "Ein Track konnte nicht gespeichert werden":  # the file now exists
            self.assertIn(f"{NOTE}{summary}|good.vrk3: ", self.calls("lib/vrktrk/write-track", "good"))
        self.assertIn(b"<trkpt", self.read("d ä/good.gpx"))
        self.write("bin/xdg-open", b"#!/bin/sh\nexit 3\n")
        for choice in "", "[Default Applications]\napplication/x-vrk3=other.desktop\n":
            last = "[Added Associations]\napplication/x-vrk3=vrktrk.show-track.desktop;\n"
            self.write("mimeapps.list", (choice + last).encode())
            calls = self.calls("lib/vrktrk/show-track", "good")
            self.assertIn(f"{NOTE}Der Track kann nicht angezeigt werden|", calls)
            self.assertEqual("xdg-mime|default|vrktrk.desktop|application/x-vrk3|" in calls, not choice)
        for name in ARCHIVES:
            self.calls("lib/vrktrk/draw-thumbnail", name, self.path(f"{name}.png"), "128")
        self.assertEqual([name for name in self.files() if name.endswith(".png") and "/" not in name], ["good.png"])
        self.assertEqual(max(struct.unpack(">II", self.read("good.png")[16:24])), 128)


unittest.main()
