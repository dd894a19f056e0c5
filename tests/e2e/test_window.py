"""Runs through all windows as a person would use them, with every way to end."""
import struct
import subprocess
import unittest

import desktop

# No chain may change this: all kinds of line ends, zero bytes, both magics and invalid UTF-8.
TEXT = b"$GPGGA,1*00\r\n\n\r\0\0\xb5\xb5\x05\xb5\x05\xb5\xb5\xb5\xff\xfe" + bytes(range(256)) * 300


def archive(text=TEXT):
    """Returns an archive with this receiver text in blocks of 1,000 bytes."""
    title, streams = b"A day out\0", b"\xfd\x04A\0B\0C\0"
    header = b"\xb5\xb5\x05\xb5" + struct.pack("<HH", 8 + len(title + streams), 0) + title + streams
    index = b"\x05\xb5\xb5\xb5" + bytes(9)
    blocks = (text[i:i + 1000] for i in range(0, len(text), 1000))
    return header + index + b"".join(struct.pack("<HBB", len(b), 0xC0, 0xFD) + b for b in blocks)


class WindowTest(desktop.Case):
    def setUp(self):
        super().setUp()
        (self.folder / "a.vrk3").write_bytes(archive())

    def names(self):
        return sorted(path.name for path in self.folder.iterdir())

    def to_save_dialog(self, program):
        program.press("push button", "OK")
        program.find("dialog", "Save")

    def test_asks_for_an_input(self):
        (self.folder / "-x").touch()
        for arguments in [], [str(self.folder / "a.vrk3")], ["missing.vrk3", "", "-x"]:
            with self.subTest(arguments):
                with self.start(*arguments) as program:
                    program.find("combo box", "VRK3 files (*.vrk3)")
                    program.fill_in("Open", "a.vrk3")
                    self.to_save_dialog(program)
                    program.fill_in("Save", "out.txt")
                self.assertEqual((self.folder / "out.txt").read_bytes(), TEXT)
                (self.folder / "out.txt").unlink()

    def test_takes_the_first_input(self):
        (self.folder / "d.ot").mkdir()
        (self.folder / "d.ot/б.архив").write_bytes(archive(b"the first"))
        with self.start("--help", "missing", "d.ot/б.архив", "a.vrk3") as program:
            self.to_save_dialog(program)
            program.press("push button", "Save")
        self.assertEqual((self.folder / "d.ot/б.txt").read_bytes(), b"the first")

    def test_keyboard_alone(self):
        with self.start() as program:
            program.keys("dialog", "Open", *"a period v r k 3 Return".split())
            program.keys("filler", "VrkTrk", "Down", "Return")
            program.keys("dialog", "Save", "Return")
        self.assertEqual((self.folder / "a.gpx").read_bytes()[:5], b"<?xml")

    def test_cancel_in_mid_run_keeps_what_came_through(self):
        # So long that the run cannot end before the cancel, with text at the end that must not appear.
        with open(self.folder / "long.vrk3", "wb") as file:
            file.write(archive())
            file.seek(64 << 30)
            file.write(archive(b"the end"))
        for way, cancel in {
                "button": lambda program: program.press("push button", "Cancel"),
                "close": lambda program: program.keys("dialog", "Extracting GPS data", "alt+F4"),
                }.items():
            with self.subTest(way):
                with self.start("long.vrk3") as program:
                    self.to_save_dialog(program)
                    program.fill_in("Save", f"{way}.txt")
                    bar = program.find("progress bar")
                    desktop.wait_for("the bar to move", lambda: bar.get_current_value() > 0)
                    self.assertLess(bar.get_current_value(), 50)
                    cancel(program)
                self.assertEqual((self.folder / f"{way}.txt").read_bytes(), TEXT)

    def test_inputs_that_cannot_be_read(self):
        (self.folder / "folder.vrk3").mkdir()
        for name in "secret.vrk3", "gone.vrk3":
            (self.folder / name).write_bytes(archive())
        (self.folder / "secret.vrk3").chmod(0)
        for name in "folder.vrk3", "secret.vrk3", "gone.vrk3":
            with self.subTest(name), self.start(name) as program:
                program.find("push button", "OK")
                if name == "gone.vrk3":
                    (self.folder / name).unlink()
                program.press("push button", "OK")
        self.assertEqual(self.names(), ["a.vrk3", "folder.vrk3", "secret.vrk3"])

    def test_outputs_that_cannot_be_written(self):
        (closed := self.folder / "closed").mkdir(mode=0o500)
        (kept := self.folder / "kept.txt").write_bytes(b"keep me")
        kept.chmod(0o400)
        for path in closed / "out.txt", kept, "/dev/full":
            with self.subTest(path), self.start("a.vrk3") as program:
                self.to_save_dialog(program)
                program.fill_in("Save", path, replace=path != closed / "out.txt")
        self.assertEqual((list(closed.iterdir()), kept.read_bytes()), ([], b"keep me"))

    def test_input_as_output_is_asked_again(self):
        (self.folder / "soft.txt").symlink_to("a.vrk3")
        (self.folder / "hard.txt").hardlink_to(self.folder / "a.vrk3")
        for name in "a.vrk3", "soft.txt", "hard.txt", "b.vrk3":
            with self.subTest(name):
                with self.start("a.vrk3") as program:
                    self.to_save_dialog(program)
                    if name == "b.vrk3":  # The input has a new name, and its old one is another file.
                        (self.folder / "a.vrk3").rename(self.folder / name)
                        (self.folder / "a.vrk3").write_bytes(archive())
                    program.fill_in("Save", name, replace=True)
                    # The second dialog starts with the proposal again.
                    desktop.wait_for("the dialog again", lambda: program.proposal() == "a.txt")
                    self.assertEqual((self.folder / name).read_bytes(), archive())
                    program.press("push button", "Save")
                self.assertEqual((self.folder / "a.txt").read_bytes(), TEXT)
                self.assertEqual((self.folder / "a.vrk3").read_bytes(), archive())
                (self.folder / "a.txt").unlink()

    def test_cancelled_save_dialog_leaves_the_input_alone(self):
        (self.folder / "a.vrk3").rename(self.folder / "track")
        with self.start("track") as program:
            self.to_save_dialog(program)
            self.assertEqual(program.proposal(), "track")
            program.press("push button", "Cancel")
        self.assertEqual((self.folder / "track").read_bytes(), archive())

    def test_odd_contents_replace_an_older_output(self):
        rows = {"empty": (b"", b""), "garbage": (bytes(range(0xb5)) * 1000, b""),
                "cut": (archive(b"whole" * 200 + b"half")[:-1], b"whole" * 200),
                "multiple": (archive(b"x") + bytes(0x20000 - len(archive(b"x"))), b"x")}
        for name, (content, _) in rows.items():
            (self.folder / f"{name}.vrk3").write_bytes(content)
        # This system file is shorter than the size it reports.
        (self.folder / "online.vrk3").symlink_to("/sys/devices/system/cpu/online")
        for name, (_, expected) in {**rows, "online": (b"", b"")}.items():
            (self.folder / f"{name}.txt").write_bytes(b"older and longer" * 100)
            with self.subTest(name):
                with self.start(f"{name}.vrk3") as program:
                    self.to_save_dialog(program)
                    program.fill_in("Save", f"{name}.txt", replace=True)
                self.assertEqual((self.folder / f"{name}.txt").read_bytes(), expected)

    def test_frame_moves_resizes_and_closes(self):
        search = ["xdotool", "search", "--onlyvisible", "--name", "^VrkTrk$"]
        with self.start("a.vrk3") as program:
            def frame():
                box = program.find("filler", "VrkTrk").get_extents(0)
                return box.x, box.y, box.width, box.height

            def comes_to(*box):
                desktop.wait_for(lambda: f"{box}, not {frame()}", lambda: frame() == box)

            def drag(x, y, *box):
                """Moves the mouse until the frame is there. The first steps may only start the drag."""
                def step():
                    # During a drag, the window manager does not report the position to the program.
                    shown = subprocess.check_output([*search, "getwindowgeometry", "--shell"]).decode()
                    now = [int(line.split("=")[1]) for line in shown.split("\n")[1:5]]
                    left, top, width, height = (wanted - have for wanted, have in zip(box, now))
                    way = str(left or width), str(top or height)
                    subprocess.run(["xdotool", "mousemove_relative", "--", *way, "sleep", "0.1"], check=True)
                    return way == ("0", "0")

                subprocess.run(["xdotool", "mousemove", str(x), str(y), "mousedown", "1"], check=True)
                desktop.wait_for(lambda: f"{box}, not {frame()}", step)
                subprocess.run(["xdotool", "mouseup", "1"], check=True)
                comes_to(*box)

            program.find("filler", "VrkTrk", states=["ACTIVE"])  # Now it is on the screen.
            comes_to(100, 100, 480, 220)
            drag(150, 115, 170, 140, 480, 220)
            drag(170 + 480 - 2, 140 + 220 - 2, 170, 140, 510, 240)
            drag(172, 200, 140, 140, 540, 240)
            subprocess.run(["xdotool", "mousemove", "250", "155", "click", "--repeat", "2",
                            "--delay", "60", "1"], check=True)
            program.find("push button", "Restore")
            comes_to(0, 0, 1280, 1024)
            program.press("push button", "Restore")
            comes_to(140, 140, 540, 240)
            program.press("push button", "Minimize")
            desktop.wait_for("no frame", lambda: subprocess.run(search, check=False).returncode)
            subprocess.run([*search[:2], *search[3:], "windowactivate"], check=True)
            program.keys("filler", "VrkTrk", "alt+F4")
        self.assertEqual(self.names(), ["a.vrk3"])


if __name__ == "__main__":
    unittest.main()
