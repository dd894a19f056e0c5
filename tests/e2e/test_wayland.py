"""A run through all windows under a Wayland compositor."""
import subprocess
import unittest

import desktop
from test_window import TEXT, archive

BACKGROUND = "#23252e"  # of the frame


class WaylandTest(desktop.Case):
    wayland = True

    def share(self):
        """Returns how much of the screen is covered by the frame's background, from 0 to 1."""
        picture = self.folder / "screen.png"
        self.desktop.picture(picture)
        return float(subprocess.check_output(
            ["convert", picture, "-fill", "black", "+opaque", BACKGROUND, "-fill", "white", "-opaque",
             BACKGROUND, "-format", "%[fx:mean]", "info:"]))

    def test_run(self):
        (self.folder / "a.vrk3").write_bytes(archive())
        small = 480 * 220 / 1280 / 1024
        # Qt does not close the connection of the Wayland library at the end. The leak cannot be suppressed
        # by name, because Qt unloads the library. The tests under X11 find the program's own leaks.
        with self.start("a.vrk3", ASAN_OPTIONS="detect_leaks=0") as program:
            desktop.wait_for("the frame", lambda: small / 2 < self.share() < small)
            program.press("push button", "Maximize")
            desktop.wait_for("the frame maximised", lambda: self.share() > 0.8)
            program.press("push button", "Restore")
            desktop.wait_for("the frame restored", lambda: small / 2 < self.share() < small)
            program.press("push button", "OK")
            program.fill_in("Save", "out.txt")
        self.assertEqual((self.folder / "out.txt").read_bytes(), TEXT)


if __name__ == "__main__":
    unittest.main()
