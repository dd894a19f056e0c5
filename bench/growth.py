"""Measures how time and memory of vrk3 grow with the input; prints a table and draws it.

Usage: bench/growth SVG
"""
import subprocess
import sys

import measure
from measure import VRK3, WORK, make_input, median_of, run

RUNS = 5
# What is measured: the kind of input, its sizes in MiB, and the formats.
SERIES = [("receiver", [1, 4, 16, 64], ["raw", "gpx", "plt", "kml"]),
          ("others", [100, 1000, 4000], ["raw", "gpx"])]

if len(sys.argv) != 2:
    sys.exit(__doc__)
print(f"Measured on {measure.machine()}: medians of {RUNS} runs.\n")
print("| Input | MiB | To | CPU | CPU a MiB | Peak memory |")
print("| --- | --- | --- | --- | --- | --- |")
plots = []
for kind, sizes, formats in SERIES:
    for to in formats:
        data = WORK / f"growth-{kind}-{to}"
        with open(data, "w") as points:
            for size in sizes:
                archive = make_input(kind, size)
                cost = median_of(lambda: run(VRK3, "convert", "-q", "--overwrite", "--to", to, "-o",
                                             WORK / f"growth.{to}", archive), RUNS)
                print(f"| {kind} | {size} | {to} | {cost.cpu:.2f} s | {cost.cpu / size * 1e3:.2f} ms "
                      f"| {cost.peak / 1024:.0f} MiB |", flush=True)
                points.write(f"{size} {max(cost.cpu, 0.01)} {cost.peak / 1024}\n")
        plots.append((data, f"{kind}, {to}"))

for_gnuplot = [f"set terminal svg size 900,420 background 'white'; set output '{sys.argv[1]}'",
               "set multiplot layout 1,2; set logscale xy; set key left top; set grid",
               "set xlabel 'input in MiB'"]
for column, label in (2, "CPU in s"), (3, "peak memory in MiB"):
    lines = ", ".join(f"'{data}' using 1:{column} with linespoints title '{title}'"
                      for data, title in plots)
    for_gnuplot.append(f"set ylabel '{label}'; plot {lines}")
subprocess.run(["gnuplot"], input="\n".join(for_gnuplot), text=True, check=True)
