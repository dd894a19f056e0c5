"""Times whole programs and makes inputs for them; shared by compare.py and growth.py."""
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
RUNS = 5


class Cost:
    """The cost of one run of a program, as the operating system reports it."""

    def __init__(self, user=0.0, system=0.0, wall=0.0, peak=0):
        self.cpu = user + system  # seconds
        self.wall = wall  # seconds
        self.peak = peak  # KiB


def run(*command, cwd=None, meanwhile=None):
    """Runs a command without its output and returns its cost. Calls meanwhile() while it runs.

    Ignores the exit code: noise is not an archive, but vrk3 reads all of it to find that out.
    """
    with tempfile.NamedTemporaryFile("r") as report:
        # GNU time starts the command, because a child of this process would begin with its memory.
        process = subprocess.Popen(
            ["time", "--quiet", "-f", "%U %S %e %M", "-o", report.name, *map(str, command)],
            stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, stdin=subprocess.DEVNULL, cwd=cwd)
        if meanwhile:
            meanwhile()
        process.wait()
        user, system, wall, peak = report.read().split()
    return Cost(float(user), float(system), float(wall), int(peak))


def convert(to, archive, output="-"):
    return run(VRK3, "convert", "-q", "--overwrite", "--to", to, "-o", output, archive)


def median(costs):
    middle = Cost()
    for figure in "cpu", "wall", "peak":
        setattr(middle, figure, statistics.median(getattr(cost, figure) for cost in costs))
    return middle


def median_of(measure, runs=RUNS):
    return median([measure() for _ in range(runs)])


def pairs(measure_a, measure_b, runs=RUNS):
    """Returns the medians of both. They run in turn, so a change in the machine's speed affects both."""
    measure_a()
    measure_b()
    costs = [(measure_a(), measure_b()) for _ in range(runs)]
    return [median(side) for side in zip(*costs)]


def make_input(kind, mebibytes):
    """Returns the path of an input. Makes it if it does not exist and reads it into the page cache."""
    WORK.mkdir(exist_ok=True)
    path = WORK / f"{kind}-{mebibytes}.vrk3"
    if not path.exists():
        subprocess.run([BUILD / "bench/makeinput", kind, str(mebibytes), path], check=True)
    with open(path, "rb") as file:
        while file.read(1 << 24):
            pass
    return path


def print_heading(*columns):
    """Prints a line about the machine and the head of a Markdown table."""
    with open("/proc/cpuinfo") as info:
        model = next((line.split(":")[1].strip() for line in info if "model name" in line), "")
    with open("/etc/os-release") as release:
        system = dict(line.rstrip().split("=", 1) for line in release if "=" in line)
    memory = os.sysconf("SC_PAGE_SIZE") * os.sysconf("SC_PHYS_PAGES") >> 30
    print(f"Measured on {os.cpu_count()} cores of {model or platform.machine()}, {memory} GiB, "
          f"{system['PRETTY_NAME'].strip(chr(34))}, Linux {platform.release()}: "
          f"medians of {RUNS} runs or more.\n")
    print_row(*columns)
    print_row(*["---"] * len(columns))


def print_row(*cells):
    print("|", " | ".join(cells), "|", flush=True)
