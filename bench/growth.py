"""Measures how the time and memory of vrk3 grow with the input; prints a table and draws it.

Usage: bench/growth SVG
"""
import subprocess
import sys

from measure import WORK, convert, make_input, median_of, print_heading, print_row

# The kind of input, its sizes in MiB, and the formats.
SERIES = [("receiver", [1, 4, 16, 64], ["raw", "gpx", "plt", "kml"]),
          ("others", [100, 1000, 4000], ["raw", "gpx"])]

if len(sys.argv) != 2:
    sys.exit(__doc__)
print_heading("Input", "MiB", "To", "CPU", "CPU per MiB", "Peak memory")
plots = []
for kind, sizes, formats in SERIES:
    for to in formats:
        data = WORK / f"growth-{kind}-{to}"
        with open(data, "w") as points:
            for size in sizes:
                archive = make_input(kind, size)
                cost = median_of(lambda: convert(to, archive, WORK / f"growth.{to}"))
                print_row(kind, str(size), to, f"{cost.cpu:.2f} s", f"{cost.cpu / size * 1e3:.2f} ms",
                          f"{cost.peak / 1024:.0f} MiB")
                points.write(f"{size} {max(cost.cpu, 0.01)} {cost.peak / 1024}\n")
        plots.append((data, f"{kind}, {to}"))

commands = [f"set terminal svg size 900,420 background 'white'; set output '{sys.argv[1]}'",
            "set multiplot layout 1,2; set logscale xy; set key left top; set grid",
            "set xlabel 'input in MiB'"]
for column, label in (2, "CPU in s"), (3, "peak memory in MiB"):
    lines = ", ".join(f"'{data}' using 1:{column} with linespoints title '{title}'"
                      for data, title in plots)
    commands.append(f"set ylabel '{label}'; plot {lines}")
subprocess.run(["gnuplot"], input="\n".join(commands), text=True, check=True)
