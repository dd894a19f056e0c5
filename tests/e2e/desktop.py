"""A virtual desktop on which tests start the real program and use it as a person would.

    class MyTest(desktop.Case):
        def test_something(self):
            with self.start("a.vrk3") as program:       # in self.folder, with self.home as home
                program.press("radio button", "GPS Exchange Format (.gpx)")
                program.press("push button", "OK")
                program.fill_in("Save", self.folder / "b.gpx")
            # Now the program has ended, with exit code 0 and without any output.

    unittest.main()

A Desktop has its own X server (or Wayland compositor), window manager and message bus, so tests can run
in parallel and do not touch the developer's desktop. Widgets are found by role and name over the
accessibility bus. Every step waits for what it needs; there are no delays to tune. A wait that times
out lists the widgets on the screen and leaves a screenshot in the working directory.

The program runs in English unless a test sets another language. If the tests run as root, the program
runs without root's privileges, because root can read every file.

Environment: VRKTRK_PROGRAM, the program to test.
"""
import os
import pathlib
import signal
import subprocess
import tempfile
import time
import unittest

from gi.repository import GLib

PATIENCE = 30  # seconds, for sanitizers and busy machines


def wait_for(what, probe, is_hopeless=lambda: False):
    """Calls probe until it returns a true value, and returns that."""
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end and not is_hopeless():
        try:
            found = probe()
        except GLib.Error:  # The widgets changed during the probe.
            found = None
        if found:
            return found
        time.sleep(0.02)
    raise AssertionError(f"timed out waiting for {what() if callable(what) else what}")


class Desktop:
    """Create one per process, because the accessibility library stays on the first bus it finds."""

    def __init__(self, wayland=False, size="1280x1024"):
        self.wayland = wayland
        self.runtime = tempfile.TemporaryDirectory(prefix="vrktrk-desktop-")
        self.processes = []
        self.log = open(f"{self.runtime.name}/log", "wb")
        try:
            self._start(size)
        except BaseException:
            self.close()
            raise

    def _start(self, size):
        for name in "DISPLAY", "WAYLAND_DISPLAY", "XDG_CURRENT_DESKTOP", "QT_QPA_PLATFORM":
            os.environ.pop(name, None)
        os.environ.update(XDG_RUNTIME_DIR=self.runtime.name, LANG="en_US.UTF-8", LC_ALL="",
                          QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
        os.environ["DBUS_SESSION_BUS_ADDRESS"] = self._serve(
            "dbus-daemon", "--session", "--nofork", "--print-address={ready}")
        if self.wayland:
            # Screenshots need the debug protocol.
            self._serve("weston", "--backend=headless-backend.so", "--use-pixman", "--no-config",
                        "--debug", "--socket=vrktrk", f"--width={size.split('x')[0]}",
                        f"--height={size.split('x')[1]}")
            wait_for("weston", pathlib.Path(self.runtime.name, "vrktrk").exists)
            os.environ.update(WAYLAND_DISPLAY="vrktrk", QT_QPA_PLATFORM="wayland")
        else:
            os.environ["DISPLAY"] = ":" + self._serve(
                "Xvfb", "-displayfd", "{ready}", "-screen", "0", size + "x24", "-nolisten", "tcp")
            up = pathlib.Path(self.runtime.name, "openbox")
            self._serve("openbox", "--sm-disable", "--startup", f"touch {up}")
            wait_for("the window manager", up.exists)
            # The first key changes the keyboard mapping, after which the window manager sets up its keys
            # again. A key in the meantime would be lost.
            subprocess.run(["xdotool", "key", "Shift_L"], check=True)
        # Imported only now, because the library looks for its bus while it is loaded.
        import gi
        gi.require_version("Atspi", "2.0")
        from gi.repository import Atspi
        # By default, a call to a program older than 15 seconds fails after 0.8 seconds.
        Atspi.set_timeout(PATIENCE * 1000, PATIENCE * 1000)
        self.atspi = Atspi

    def _serve(self, *command):
        """Starts a service. If it takes a {ready} descriptor, waits for and returns its answer."""
        read, write = os.pipe()
        self.processes.append(subprocess.Popen(
            [part.replace("{ready}", str(write)) for part in command], pass_fds=[write],
            stdout=self.log, stderr=self.log, start_new_session=True))
        os.close(write)
        with os.fdopen(read) as answer:
            said = answer.readline().strip() if any("{ready}" in part for part in command) else "-"
        if not said:
            raise AssertionError(f"{command[0]} has not started")
        return said

    def close(self):
        for process in reversed(self.processes):
            if process.poll() is None:
                os.killpg(process.pid, signal.SIGTERM)
            process.wait()
        self.log.close()
        self.runtime.cleanup()

    def picture(self, path, widget=None):
        """Writes a picture of the screen or, on X11, of one widget as PNG."""
        if self.wayland:
            with tempfile.TemporaryDirectory() as folder:
                subprocess.run(["weston-screenshooter"], cwd=folder, check=True, stdout=self.log)
                os.replace(next(pathlib.Path(folder).iterdir()), path)
        else:
            box = widget and widget.get_extents(self.atspi.CoordType.SCREEN)
            crop = ["-crop", f"{box.width}x{box.height}+{box.x}+{box.y}", "+repage"] if box else []
            subprocess.run(["import", "-window", "root", *crop, path], check=True)


class Program:
    """The running program. Roles and names are those that a screen reader says."""

    def __init__(self, desktop, arguments, cwd, home, environment):
        self.desktop = desktop
        self.output = tempfile.TemporaryFile()
        powerless = ["setpriv", "--bounding-set=-all", "--inh-caps=-all"]
        self.process = subprocess.Popen(
            (powerless if os.geteuid() == 0 else []) + [os.environ["VRKTRK_PROGRAM"], *arguments],
            cwd=cwd, stdin=subprocess.DEVNULL, stdout=self.output, stderr=subprocess.STDOUT,
            env={**os.environ, "HOME": str(home), **environment})

    def __enter__(self):
        return self

    def __exit__(self, failure, *_):
        try:
            if failure is None:
                self.ends()
        except AssertionError:
            failure = True
            raise
        finally:
            try:
                if failure:
                    self.desktop.picture(f"failed-{self.process.pid}.png")
            finally:
                self.process.kill()
                self.process.wait()
                self.output.close()

    def widgets(self):
        """Yields all widgets of the program as (depth, widget), parents first."""
        root = self.desktop.atspi.get_desktop(0)
        # The cache would be stale, because nothing here listens to changes.
        root.clear_cache()
        applications = (root.get_child_at_index(i) for i in range(root.get_child_count()))
        pending = [(0, application) for application in applications
                   if application and application.get_process_id() == self.process.pid]
        while pending:
            depth, widget = pending.pop()
            yield depth, widget
            # Qt prints a warning if the items of a list of files are requested before it has read them.
            if widget.get_role_name() in ("list", "tree", "table"):
                continue
            children = (widget.get_child_at_index(i) for i in range(widget.get_child_count()))
            pending += reversed([(depth + 1, child) for child in children if child])

    def shows(self, role, name=None, states=("SHOWING", "SENSITIVE")):
        """Returns the first widget with this role, name and states, or None."""
        wanted = [getattr(self.desktop.atspi.StateType, state) for state in states]
        for _, widget in self.widgets():
            if widget.get_role_name() == role and name in (None, widget.get_name()):
                if all(widget.get_state_set().contains(state) for state in wanted):
                    return widget
        return None

    def find(self, role, name=None, **states):
        """Waits for such a widget and returns it."""
        return wait_for(lambda: f"{role} {name!r}, {self._state()}",
                        lambda: self.shows(role, name, **states),
                        lambda: self.process.poll() is not None)

    def press(self, role, name):
        self.find(role, name).do_action(0)

    def keys(self, role, name, *keys):
        """Waits until this window has the focus, then presses keys with xdotool's names (X11)."""
        self.find(role, name, states=["ACTIVE"])
        # The window manager, which has its own keys, may still believe that another window has the focus.
        active = ["xdotool", "getactivewindow", "getwindowname"]
        wait_for(f"{name} to be the active window", lambda: name == subprocess.run(
            active, check=False, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout.decode().strip())
        subprocess.run(["xdotool", "key", "--delay", "30", *keys], check=True)

    def fill_in(self, dialog, path, replace=False):
        """Enters a name in the file dialog with this title ("Open", "Save") and confirms it."""
        self.find("dialog", dialog)
        self.find("text", "File name:").set_text_contents(str(path))
        self.press("push button", dialog)
        if replace:
            self.press("push button", "Yes")

    def proposal(self):
        """Returns the name in the file dialog."""
        return self.find("text", "File name:").get_text(0, -1)

    def ends(self):
        """Waits for the program to end with exit code 0 and without any output."""
        wait_for(lambda: f"the end, {self._state()}", lambda: self.process.poll() is not None)
        self.output.seek(0)
        said = self.output.read().decode(errors="replace")
        if self.process.returncode or said:
            raise AssertionError(f"exit code {self.process.returncode}, output:\n{said[:5000]}")

    def _state(self):
        state = f"exit code {self.process.poll()}, picture in failed-{self.process.pid}.png"
        try:
            for depth, widget in self.widgets():
                state += f"\n{'  ' * depth}{widget.get_role_name()} {widget.get_name()!r}"
        except GLib.Error as error:
            state += f"\n({error})"
        return state


class Case(unittest.TestCase):
    """A test case with one desktop, and a new empty folder and home for each test."""

    wayland = False

    @classmethod
    def setUpClass(cls):
        cls.desktop = Desktop(cls.wayland)
        cls.addClassCleanup(cls.desktop.close)

    def setUp(self):
        folder = tempfile.TemporaryDirectory(prefix="vrktrk-test-")
        self.addCleanup(folder.cleanup)
        self.folder = pathlib.Path(folder.name, "archives")
        self.home = pathlib.Path(folder.name, "home")
        self.folder.mkdir()
        self.home.mkdir()

    def start(self, *arguments, **environment):
        """Starts the program in the test's folder. Use the result in a `with` statement."""
        return Program(self.desktop, arguments, self.folder, self.home, environment)
