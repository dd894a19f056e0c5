"""The same windows under a Wayland compositor."""
import subprocess
import unittest

import desktop
from test_window import TEXT, archive


class WaylandTest(desktop.Case):
    wayland = True

    def differs(self, before):
        """In how many pixels the screen differs from the picture `before`."""
        now = self.folder / "now.png"
        self.desktop.picture(now)
        answer = subprocess.run(["compare", "-metric", "AE", before, now, "null:"],
                                capture_output=True, text=True, check=False)
        return float(answer.stderr)

    def test_road(self):
        (self.folder / "a.vrk3").write_bytes(archive())
        empty = self.folder / "empty.png"
        self.desktop.picture(empty)
        # The compositor begins black and fades its desktop in.
        colours = ["identify", "-format", "%k", empty]
        while self.differs(empty) or subprocess.check_output(colours) == b"1":
            (self.folder / "now.png").replace(empty)
        with self.start("a.vrk3") as program:
            program.find("push button", "OK")
            desktop.wait_for("the frame on the screen", lambda: self.differs(empty) > 480 * 220 * .9)
            program.press("push button", "Maximize")
            program.press("push button", "Restore")
            program.press("push button", "OK")
            program.fill_in("Save", "out.txt")
        self.assertEqual((self.folder / "out.txt").read_bytes(), TEXT)


if __name__ == "__main__":
    unittest.main()
