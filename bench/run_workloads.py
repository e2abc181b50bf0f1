#!/usr/bin/env python3
"""Runs vond-report and the programs beside it on made-up workloads and prints tables.

What is compared is run in turn, so that both see the same machine; every figure is the median.
Ratios of processor time stand beside those of wall time, because other work on the machine disturbs
them less.
"""

import argparse
import os
import platform
import shutil
import statistics
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

Run = namedtuple("Run", "seconds cpu_seconds peak_bytes")
# A program with its arguments, what it reads from standard input, the exit statuses that are good,
# and how often it is run at most.
Command = namedtuple("Command", "arguments input statuses most_runs", defaults=(None, (0,), 99))

# A report that tells of failures ends with 1.
REPORT_STATUSES = (0, 1)
# Peers that take seconds; their figures differ by less than what they are compared for.
PEER_RUNS = 3
START_RUNS = 20
MB = 1e6


class Bench:
    def __init__(self, options):
        self.programs = options.programs.resolve()
        self.folder = options.folder
        self.runs = 1 if options.quick else options.runs
        self.quick = options.quick

    def program(self, name):
        return str(self.programs / name)

    def size(self, full):
        """What a size becomes in a quick run."""
        return max(full // 100, 20) if self.quick else full

    def make(self, name, *arguments):
        path = self.folder / name
        command = [self.program("make_findings"), "-o", path, *map(str, arguments)]
        subprocess.run(command, check=True)
        return path

    def make_issues(self, workload, issues, definitions):
        """Makes a workload with a definitions file and returns the command that reports on it."""
        stem = f"{workload}-{issues}"
        tree = self.folder / (stem + ".json")
        findings = self.make(stem + ".jsonl", workload, "--issues", issues,
                             "--definition-count", definitions, "--definitions", tree)
        return self.report("--definitions", tree, findings)

    def report(self, *arguments):
        return Command([self.program("vond-report"), *arguments], statuses=REPORT_STATUSES)

    def run(self, command, output=subprocess.DEVNULL):
        result = self.folder / "result"
        with open(command.input or "/dev/null", "rb") as source:
            subprocess.run([self.program("measure"), result, *command.arguments],
                           stdin=source, stdout=output, check=True)
        seconds, cpu_seconds, peak_bytes, status = result.read_text().split()
        if int(status) not in command.statuses:
            sys.exit(f"{' '.join(map(str, command.arguments))}: exit status {status}")
        return Run(float(seconds), float(cpu_seconds), int(peak_bytes))

    def in_turn(self, *commands, runs=None):
        """Returns the medians of every command."""
        rounds = [[] for _ in commands]
        for number in range(1 if self.quick else runs or self.runs):
            for command, measured in zip(commands, rounds):
                if number < command.most_runs:
                    measured.append(self.run(command))
        return [Run(*map(statistics.median, zip(*measured))) for measured in rounds]

    def output_size(self, command):
        path = self.folder / "output"
        with open(path, "wb") as output:
            self.run(command, output)
        return path.stat().st_size


def peer(name, *arguments, source):
    """Returns the command, or None with a word when the program is not installed."""
    if shutil.which(name) is None:
        print(f"{name} is not installed: skipped", file=sys.stderr)
        return None
    return Command([name, *arguments], source, most_runs=PEER_RUNS)


class Table:
    """Markdown with columns that line up, printed at the end of a `with`."""

    def __init__(self, *head):
        self.rows = [head]

    def __enter__(self):
        return self

    def row(self, *cells):
        self.rows.append(cells)

    def __exit__(self, *_):
        widths = [max(map(len, column)) for column in zip(*self.rows)]
        self.rows.insert(1, ["-" * width for width in widths])
        print()
        for row in self.rows:
            cells = (cell.ljust(width) for cell, width in zip(row, widths))
            print("| " + " | ".join(cells) + " |", flush=True)


def duration(seconds):
    return f"{seconds:.2f} s" if seconds >= 1 else f"{seconds * 1e3:.3g} ms"


def megabytes(size):
    return f"{size / MB:.3g} MB"


def add_comparison(table, name, run, other_name, other, target):
    table.row(name, duration(run.seconds), other_name, duration(other.seconds),
              f"{run.seconds / other.seconds:.2f}", f"{run.cpu_seconds / other.cpu_seconds:.2f}",
              f"{other.seconds / run.seconds:.3g}", target)


def bench_since(bench, name, findings):
    """Compares with the night before, whose findings are the same but for a fiftieth."""
    earlier = bench.folder / f"earlier-{name}.jsonl"
    with open(findings, "rb") as lines, open(earlier, "wb") as kept:
        kept.writelines(line for number, line in enumerate(lines) if number % 50 != 0)
    since, alone = bench.in_turn(bench.report("--since", earlier, findings), bench.report(findings))
    with Table("Workload", "with --since", "alone", "times", "in processor time", "peak memory",
               "target") as table:
        table.row(name, duration(since.seconds), duration(alone.seconds),
                  f"{since.seconds / alone.seconds:.2f}",
                  f"{since.cpu_seconds / alone.cpu_seconds:.2f}", megabytes(since.peak_bytes),
                  "at most 2.2 times")
    earlier.unlink()


def bench_wide(bench):
    sizes = ("--nodes", bench.size(10_000), "--checks", 100)
    findings = bench.make("wide.jsonl", "wide", *sizes)
    lines = bench.make("wide.lines", "wide", *sizes, "--node-lines")
    report = bench.report(findings)
    peers = {"parse_only": Command([bench.program("parse_only"), findings]),
             "clubak -b": peer("clubak", "-b", source=lines),
             "dshbak -c": peer("dshbak", "-c", source=lines)}
    targets = {"parse_only": "at most 2.0 times", "clubak -b": "at least 10 times faster"}
    peers = {name: command for name, command in peers.items() if command}
    run, *others = bench.in_turn(report, *peers.values())

    with Table("Workload", "vond-report", "beside it", "its time", "times its time",
               "in processor time", "times faster", "target") as table:
        for name, other in zip(peers, others):
            add_comparison(table, "wide", run, name, other, targets.get(name, ""))
    size = findings.stat().st_size
    with Table("Workload", "input", "peak memory", "share of the input", "target") as table:
        table.row("wide", megabytes(size), megabytes(run.peak_bytes),
                  f"{run.peak_bytes / size:.2f}", "at most 0.33")
    bench_since(bench, "wide", findings)
    findings.unlink()
    lines.unlink()


def bench_numbers(bench):
    findings = bench.make("numbers.jsonl", "numbers", "--nodes", bench.size(10_000), "--checks", 40)
    run, floor = bench.in_turn(bench.report(findings),
                               Command([bench.program("parse_only"), findings]))
    size = findings.stat().st_size
    with Table("Workload", "vond-report", "beside it", "its time", "times its time",
               "in processor time", "times faster", "target") as table:
        add_comparison(table, "numbers", run, "parse_only", floor, "at most 3.0 times")
    with Table("Workload", "input", "peak memory", "share of the input", "target") as table:
        table.row("numbers", megabytes(size), megabytes(run.peak_bytes),
                  f"{run.peak_bytes / size:.2f}", "at most 0.33")
    bench_since(bench, "numbers", findings)
    findings.unlink()


def bench_issues(bench):
    with Table("Workload", "issues", "definitions", "time", "processor time", "report",
               "report a second", "peak memory", "times the first", "target") as table:
        for workload, issues, definitions, target in (
                ("many", 100_000, 1_000, "at least 60 MB/s"),
                ("deep", 20_000, 20_000, "under 1 s")):
            add_doubling(table, bench, workload, bench.size(issues), bench.size(definitions),
                         target)


def add_doubling(table, bench, workload, issues, definitions, target):
    sizes = [(issues, definitions), (2 * issues, 2 * definitions)]
    reports = [bench.make_issues(workload, *size) for size in sizes]
    runs = bench.in_turn(*reports)
    for size, report, run in zip(sizes, reports, runs):
        written = bench.output_size(report)
        table.row(workload, f"{size[0]:,}", f"{size[1]:,}", duration(run.seconds),
                  duration(run.cpu_seconds), megabytes(written),
                  megabytes(written / run.seconds) + "/s", megabytes(run.peak_bytes),
                  f"{run.seconds / runs[0].seconds:.2f}",
                  target if run is runs[0] else "at most 2.2 times")


def bench_outputs(bench):
    """Each output of one run. What is read and collapsed before it is the same for all of them."""
    report = bench.make_issues("many", bench.size(100_000), bench.size(1_000))
    outputs = ("text", "brief", "html", "json", "junit", "list", "metrics")
    commands = [report._replace(arguments=[*report.arguments, "--extension", output])
                for output in outputs]
    with Table("Output of many", "time", "beyond brief, an issue", "written",
               "peak memory") as table:
        runs = dict(zip(outputs, bench.in_turn(*commands)))
        for command, (output, run) in zip(commands, runs.items()):
            alone = (run.cpu_seconds - runs["brief"].cpu_seconds) / bench.size(100_000)
            table.row(output, duration(run.seconds), f"{alone * 1e6:.1f} µs",
                      megabytes(bench.output_size(command)), megabytes(run.peak_bytes))


def bench_folding(bench):
    """Folding as programs, and without what the programs take to start."""
    nodeset = peer("nodeset", "-f", source="")
    if nodeset is None:
        return
    one = bench.make("one", "names", "--count", 1)
    with Table("Names", "fold_names", "nodeset -f", "times faster", "folding alone: ours",
               "nodeset", "times faster", "target") as table:
        for name, count, foldings, options, target in (
                ("one axis", 100_000, 20, (), "at least 40"),
                ("two axes, scattered", 3_000, 1_000, ("--two-axes",), "at least 500")):
            # As many foldings, of whatever size, as take a tenth of a second.
            foldings *= count // bench.size(count)
            count = bench.size(count)
            names = bench.make("names", "names", "--count", count, *options)
            ours = Command([bench.program("fold_names")], names)
            often = Command([bench.program("fold_names"), str(foldings + 1)], names)
            once, repeated, theirs, start = bench.in_turn(
                ours, often, nodeset._replace(input=names), nodeset._replace(input=one))
            our_folding = (repeated.seconds - once.seconds) / foldings
            their_folding = theirs.seconds - start.seconds
            table.row(f"{count:,}, {name}", duration(once.seconds), duration(theirs.seconds),
                      f"{theirs.seconds / once.seconds:.0f}", duration(our_folding),
                      duration(their_folding), f"{their_folding / our_folding:.0f}", target)


def bench_start(bench):
    cluster = Path("examples/cluster")
    report = bench.report("--definitions", cluster / "definitions.json",
                          cluster / "findings.jsonl")
    run, = bench.in_turn(report, runs=START_RUNS)
    with Table("Start to end", "time", "peak memory", "target") as table:
        table.row("example cluster", duration(run.seconds), megabytes(run.peak_bytes),
                  "at most 15 ms")


def machine():
    """Returns what figures depend on: the processor, and what else it has to do."""
    models = [line.split(": ")[1] for line in Path("/proc/cpuinfo").read_text().splitlines()
              if line.startswith("model name")]
    model = models[0] if models else platform.machine()
    return f"{os.cpu_count()} x {model}, load average {os.getloadavg()[0]:.1f} at the start"


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    parser.add_argument("--programs", type=Path, required=True, help="where they are built")
    parser.add_argument("--folder", type=Path, required=True, help="for the workloads")
    parser.add_argument("--runs", type=int, default=5, help="of every program")
    parser.add_argument("--quick", action="store_true", help="small workloads, each once")
    bench = Bench(parser.parse_args())
    print(f"Machine: {machine()}.")
    print(f"Medians of {bench.runs} runs in turn; of peers {min(bench.runs, PEER_RUNS)}.")
    for part in (bench_wide, bench_numbers, bench_issues, bench_outputs, bench_folding, bench_start):
        part(bench)


if __name__ == "__main__":
    main()
