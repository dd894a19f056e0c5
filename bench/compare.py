"""Measures the programs side by side with well-known ones and prints a table.

Usage: bench/compare [ROW...]    without ROW, all rows
"""
import contextlib
import os
import pathlib
import subprocess
import sys
import tempfile
import time

from measure import (RUNS, VRK3, VRKTRK, WORK, Cost, convert, make_input, median_of, pairs, print_heading,
                     print_row, run)
from Xlib import X, display

GPSBABEL_FORMAT = {"gpx": "gpx", "plt": "ozi", "kml": "kml"}


def row(name, what, against, figure, a, b, ratio, goal):
    print_row(f"`{name}`", what, against, figure, f"{a:.3f} s", f"{b:.3f} s", ratio, goal)


def walk(name, what, kind, goal="at most 1.5"):
    """Reads a gibibyte for its raw text, compared with cat."""
    archive = make_input(kind, 1024)
    a, b = pairs(lambda: convert("raw", archive), lambda: run("cat", archive))
    row(name, what, "`cat`", "CPU", a.cpu, b.cpu, f"{a.cpu / b.cpu:.1f} times", goal)


def blocks(name, what, kind):
    """Measures the cost of one block in an archive of many small ones."""
    archive = make_input(kind, 1024)
    cost = median_of(lambda: convert("raw", archive))
    count = archive.stat().st_size / 40
    print_row(f"`{name}`", what, "-", "CPU", f"{cost.cpu:.3f} s", "-",
              f"{cost.cpu / count * 1e9:.0f} ns per block", "15 ns")


def speed(name, what, kind, to="raw", goal="20 MiB/s"):
    """Measures an input that is slow for its size."""
    archive = make_input(kind, 64)
    cost = median_of(lambda: convert(to, archive))
    rate = archive.stat().st_size / cost.cpu / 2**20
    print_row(f"`{name}`", what, "-", "CPU", f"{cost.cpu:.3f} s", "-", f"{rate:.0f} MiB/s", goal)


def track(name, what, to):
    """Converts receiver text to a track. gpsbabel reads the plain text; vrk3 reads an archive with it.

    The outputs are in memory, because this does not compare disks.
    """
    text, archive = make_input("text", 64), make_input("receiver", 64)
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        a, b = pairs(lambda: convert(to, archive, f"{folder}/vrk3.{to}"),
                     lambda: run("gpsbabel", "-i", "nmea", "-f", text, "-o", GPSBABEL_FORMAT[to],
                                 "-F", f"{folder}/gpsbabel.{to}"), runs=3)
    row(name, what, "`gpsbabel`", "CPU", a.cpu, b.cpu, f"{b.cpu / a.cpu:.0f} times faster",
        "60" if to == "gpx" else "-")


def fixes(name, what):
    """Writes the track of any receiver; gpsbabel reads the plain text, vrk3 an archive with it."""
    text, archive = make_input("text", 64), make_input("receiver", 64)
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        a, b = pairs(lambda: run(VRK3, "track", "-qy", "-o", f"{folder}/vrk3.gpx", archive),
                     lambda: run("gpsbabel", "-i", "nmea", "-f", text, "-o", "gpx",
                                 "-F", f"{folder}/gpsbabel.gpx"))
    row(name, what, "`gpsbabel`", "CPU", a.cpu, b.cpu, f"{b.cpu / a.cpu:.1f} times faster", "4")


def fixes_memory(name, what, to):
    """Compares the peak memory for a large archive with that for a small one."""
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        large, small = (run(VRK3, "track", "-qy", "-o", f"{folder}/track.{to}",
                            make_input("receiver", size)).peak for size in (256, 16))
    print_row(f"`{name}`", what, "16 MiB", "peak memory", f"{large / 1024:.1f} MiB",
              f"{small / 1024:.1f} MiB", f"{large / small:.2f} times", "at most 1.1")


def many(name, what):
    """Converts a thousand archives on two processors and on one. The outputs are in memory."""
    archive = make_input("receiver", 1)
    with tempfile.TemporaryDirectory(dir="/dev/shm") as folder:
        archives = pathlib.Path(folder, "archives")
        archives.mkdir()
        for i in range(1000):
            (archives / f"{i}.vrk3").symlink_to(archive)
        a, b = pairs(*(lambda jobs=jobs: run(VRK3, "convert", "-qyj", jobs, "-d", folder, archives)
                       for jobs in (2, 1)), runs=3)
    row(name, what, "one", "wall", a.wall, b.wall, f"{b.wall / a.wall:.2f} times faster", "1.7")


@contextlib.contextmanager
def virtual_screen(manager):
    """Runs an X server, with a window manager if asked, and sets DISPLAY to it."""
    read, write = os.pipe()
    quiet = {"stdout": subprocess.DEVNULL, "stderr": subprocess.DEVNULL}
    server = subprocess.Popen(["Xvfb", "-displayfd", str(write), "-screen", "0", "1280x1024x24"],
                              pass_fds=[write], **quiet)
    os.environ["DISPLAY"] = ":" + os.read(read, 16).decode().strip()
    processes = [server]
    # A separate home, so that the window opens where it does on its first start.
    os.environ["HOME"] = str(WORK / "home")
    pathlib.Path(os.environ["HOME"]).mkdir(parents=True, exist_ok=True)
    try:
        if manager:
            up = WORK / "openbox"
            up.unlink(missing_ok=True)
            processes.append(subprocess.Popen(["openbox", "--startup", f"touch {up}"], **quiet))
            # A window that opens while the window manager starts may never appear.
            while not up.exists():
                time.sleep(0.05)
        yield
    finally:
        for process in reversed(processes):
            process.kill()
            process.wait()


def press(title, *keys):
    """Waits for the window with this title and presses keys in it; the last one must close it."""
    def find():
        return subprocess.run(["xdotool", "search", "--onlyvisible", "--name", title], check=False,
                              capture_output=True, text=True).stdout.split("\n")[0]

    while not find():
        time.sleep(0.05)
    # A new window can miss a key, so the last one is repeated.
    while found := find():
        subprocess.run(["xdotool", "windowactivate", found, "key", *keys], check=False,
                       stderr=subprocess.DEVNULL)
        keys = keys[-1:]
        time.sleep(0.3)


def through_window(to, archive):
    """Converts an archive as a user does: the format, OK, and Return in the Save dialog."""
    proposal = archive.with_suffix({"gpx": ".gpx", "raw": ".txt"}[to])
    proposal.unlink(missing_ok=True)

    def user():
        press("^VrkTrk$", *(["Down"] if to == "gpx" else []), "Return")
        press("^Save$", "Return")

    cost = run(VRKTRK, archive.name, cwd=archive.parent, meanwhile=user)
    if not proposal.exists():
        raise RuntimeError(f"the window did not write {proposal}")
    return cost


def window(name, what, kind, mebibytes, to):
    """Compares the window with vrk3, each without the cost of converting an empty archive."""
    archive, nothing = make_input(kind, mebibytes), WORK / "nothing.vrk3"
    nothing.touch()
    output = WORK / f"vrk3.{to}"
    with virtual_screen(manager=True):
        a, b = pairs(lambda: through_window(to, archive), lambda: convert(to, archive, output))
        a0, b0 = pairs(lambda: through_window(to, nothing), lambda: convert(to, nothing, output))
    a, b = a.cpu - a0.cpu, b.cpu - b0.cpu
    row(name, what, "`vrk3`", "CPU", a, b, f"{a / b:.2f} times", "at most 1.3")


def first_paint(*command):
    """Measures the time from the start of a program until an empty screen changes."""
    screen = display.Display()

    def look():
        # One strip crosses the place where our window opens, the other the middle, where dialogs open.
        root = screen.screen().root
        return [root.get_image(0, y, 1280, 8, X.ZPixmap, 0xFFFFFFFF).data for y in (200, 512)]

    before = look()
    begin = time.monotonic()
    process = subprocess.Popen(command, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                               cwd=WORK)
    while look() == before:
        pass
    cost = Cost(wall=time.monotonic() - begin)
    process.kill()
    process.wait()
    while look() != before:
        pass
    return cost


def start(name, what):
    """Compares the start of the window with that of a small dialog."""
    archive = make_input("others", 1)
    with virtual_screen(manager=False):
        a, b = pairs(lambda: first_paint(VRKTRK, archive.name),
                     lambda: first_paint("zenity", "--info", "--text", "A text"), 2 * RUNS)
    row(name, what, "`zenity --info`", "wall", a.wall, b.wall, f"{a.wall / b.wall:.2f} times", "-")


# The name of each row, its function and the arguments after the name.
ROWS = {
    "walk-others": (walk, "1 GiB, most of it other streams", "others"),
    "walk-noise": (walk, "1 GiB of noise", "noise"),
    "walk-noise-after-header": (walk, "1 GiB of noise after a header", "noise-after-header"),
    "walk-b5": (walk, "1 GiB of 0xB5", "b5"),
    "walk-05": (walk, "1 GiB of 0x05", "05"),
    "walk-magics": (walk, "1 GiB of HDR magics without a zero byte", "magics"),
    "walk-blocks40": (walk, "1 GiB of 40-byte blocks", "blocks40", "-"),
    "blocks40": (blocks, "1 GiB of 40-byte blocks", "blocks40"),
    "nested": (speed, "64 MiB of headers that run into each other", "nested"),
    "tiny-records": (speed, "64 MiB of the smallest HDR and IDX records", "tiny"),
    "titles": (speed, "64 MiB of titles that extend past their records, to GPX", "titles", "gpx", "2 MiB/s"),
    "track-gpx": (track, "64 MiB of receiver text to GPX", "gpx"),
    "track-plt": (track, "64 MiB of receiver text to PLT", "plt"),
    "track-kml": (track, "64 MiB of receiver text to KML", "kml"),
    "fixes-gpx": (fixes, "`vrk3 track`, 64 MiB of receiver text to GPX"),
    "fixes-gpx-memory": (fixes_memory, "`vrk3 track`, 256 MiB of receiver text to GPX", "gpx"),
    "fixes-csv-memory": (fixes_memory, "`vrk3 track`, 256 MiB of receiver text to CSV", "csv"),
    "many": (many, "1,000 archives of 1 MiB to GPX, two at once"),
    "window-gpx": (window, "the window, 64 MiB of receiver text to GPX", "receiver", 64, "gpx"),
    "window-raw": (window, "the window, 1 GiB, most of it other streams", "others", 1024, "raw"),
    "start": (start, "from the start of the window to its first paint"),
}

chosen = sys.argv[1:] or list(ROWS)
if unknown := set(chosen) - set(ROWS):
    sys.exit(f"{__doc__}\nUnknown: {' '.join(unknown)}\nRows: {' '.join(ROWS)}")
print_heading("Row", "What", "Compared with", "Figure", "VrkTrk", "The other", "Ratio", "Goal")
for chosen_row in chosen:
    function, *arguments = ROWS[chosen_row]
    function(chosen_row, *arguments)
