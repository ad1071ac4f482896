"""Runs commands side by side and tells what each costs as a whole process: median wall and processor time, peak memory."""
import argparse
import os
import pathlib
import statistics
import subprocess
import time


class Cost:
    """Medians over the runs of one command."""

    def __init__(self, runs):
        self.wall = statistics.median(run[0] for run in runs)
        self.cpu = statistics.median(run[1] for run in runs)
        self.peak_mb = max(run[2] for run in runs) / 1024


def _run_once(argv, output):
    with open(output, "wb") as sink, open(os.devnull, "rb") as nothing:
        start = time.perf_counter()
        process = subprocess.Popen(argv, stdin=nothing, stdout=sink, stderr=subprocess.PIPE)
        errors = process.stderr.read()
        _, status, usage = os.wait4(process.pid, 0)
        wall = time.perf_counter() - start
        process.returncode = os.waitstatus_to_exitcode(status)
    if process.returncode != 0:
        raise SystemExit(f"{argv} ended with {process.returncode}: {errors.decode()}")
    return wall, usage.ru_utime + usage.ru_stime, usage.ru_maxrss


def side_by_side(commands, runs):
    """Runs (argv, file of its standard output) in turn, one warm-up first. Returns a Cost for each."""
    results = [[] for _ in commands]
    for round_number in range(runs + 1):
        for index, (argv, output) in enumerate(commands):
            cost = _run_once(argv, output)
            if round_number > 0:
                results[index].append(cost)
    return [Cost(each) for each in results]


def heading(other):
    """Heading of a table whose rows `row` makes."""
    return f"{'rows':>9}  {'ours s':>8} {'cpu s':>8} {'MB':>6}   {other + ' s':>10} {'cpu s':>8} {'MB':>6}   {'ours/' + other:>13}"


def row(count, ours, other):
    """One row: our cost, the other program's, and the ratio of the wall times."""
    return (f"{count:>9}  {ours.wall:8.3f} {ours.cpu:8.3f} {ours.peak_mb:6.1f}   {other.wall:10.3f} {other.cpu:8.3f} "
            f"{other.peak_mb:6.1f}   {ours.wall / other.wall:13.2f}")


def options(description, program):
    """The command line of a comparison; its folder exists then."""
    parser = argparse.ArgumentParser(description=description)
    parser.add_argument("--program", default=program)
    parser.add_argument("--folder", default="build/bench", type=pathlib.Path)
    parser.add_argument("--runs", type=int, default=5)
    read = parser.parse_args()
    read.folder.mkdir(parents=True, exist_ok=True)
    return read
