"""tour.py PROGRAM ARCHIVE FOLDER: uses the window as a person would, on a virtual desktop.

Opens ARCHIVE, chooses GPX, saves the track in FOLDER and writes a picture of each window there.
"""
import os
import pathlib
import sys
import tempfile

sys.path.insert(0, str(pathlib.Path(__file__).parent.parent / "tests/e2e"))
import desktop  # noqa: E402, needs the path above


def tour(screen, archive, folder, home):
    track = folder / (archive.stem + ".gpx")
    track.unlink(missing_ok=True)
    with desktop.Program(screen, [f"./{archive.name}"], archive.parent, home, {}) as program:
        program.keys("filler", "VrkTrk", "Down")
        screen.picture(folder / "window.png", program.find("filler", "VrkTrk"))
        program.press("push button", "OK")
        screen.picture(folder / "save.png", program.find("dialog", "Save"))
        program.fill_in("Save", track)
    print(f"Track: {track}, {track.stat().st_size} bytes")
    print(f"Pictures: {folder / 'window.png'}, {folder / 'save.png'}")


def main():
    os.environ["VRKTRK_PROGRAM"], archive, folder = (os.path.abspath(name) for name in sys.argv[1:])
    pathlib.Path(folder).mkdir(parents=True, exist_ok=True)
    os.chdir(folder)
    screen = desktop.Desktop()
    try:
        with tempfile.TemporaryDirectory() as home:
            tour(screen, pathlib.Path(archive), pathlib.Path(folder), home)
    finally:
        screen.close()


main()
