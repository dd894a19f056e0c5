"""What the comparisons share: timing whole programs, and the inputs for it."""
import os
import pathlib
import platform
import statistics
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parent.parent
BUILD = ROOT / "build/bench"
VRK3 = BUILD / "bin/vrk3"
VRKTRK = BUILD / "bin/VrkTrk"
WORK = pathlib.Path(os.environ.get("TMPDIR", "/tmp")) / "vrktrk-bench"


class Cost:
    """What one run of a program took, by the operating system's account."""

    def __init__(self, user=0.0, system=0.0, wall=0.0, peak=0):
        self.cpu = user + system  # seconds
        self.wall = wall  # seconds
        self.peak = peak  # KiB


def run(*command, cwd=None, meanwhile=None):
    """Runs a command with its output thrown away; meanwhile() is called while it runs. Its exit code
    does not count: noise is no archive, and yet has to be walked to find that out."""
    with tempfile.NamedTemporaryFile("r") as report:
        # GNU time starts it, for a child of this process would begin with this process's memory.
        process = subprocess.Popen(
            ["time", "--quiet", "-f", "%U %S %e %M", "-o", report.name, *map(str, command)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL, cwd=cwd)
        if meanwhile:
            meanwhile()
        process.wait()
        user, system, wall, peak = report.read().split()
    return Cost(float(user), float(system), float(wall), int(peak))


def median_of(measure, runs):
    """Medians of the figures of several runs of measure()."""
    costs = [measure() for _ in range(runs)]
    middle = Cost()
    for figure in "cpu", "wall", "peak":
        setattr(middle, figure, statistics.median(getattr(cost, figure) for cost in costs))
    return middle


def pairs(measure_a, measure_b, runs):
    """Medians of both, measured in turn, so that a machine that changes its pace does it to both."""
    measure_a()
    measure_b()
    a, b = [], []

    def both():
        a.append(measure_a())
        b.append(measure_b())
        return a[-1]

    median_of(both, runs)
    return median_of(iter(a).__next__, runs), median_of(iter(b).__next__, runs)


def make_input(kind, mebibytes):
    """The path of an input, made if it is not there yet, and read once, into the page cache."""
    WORK.mkdir(exist_ok=True)
    path = WORK / f"{kind}-{mebibytes}.vrk3"
    if not path.exists():
        subprocess.run([BUILD / "bench/makeinput", kind, str(mebibytes), path], check=True)
    with open(path, "rb") as file:
        while file.read(1 << 24):
            pass
    return path


def machine():
    """The machine in one line."""
    with open("/proc/cpuinfo") as info:
        model = next((line.split(":")[1].strip() for line in info if "model name" in line), "")
    with open("/etc/os-release") as release:
        system = dict(line.rstrip().split("=", 1) for line in release if "=" in line)
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") >> 30
    return (f"{os.cpu_count()} cores of {model or platform.machine()}, {memory} GiB, "
            f"{system['PRETTY_NAME'].strip(chr(34))}, Linux {platform.release()}")
