"""Runs programs in turn, measures them and prints tables: what the benchmarks share."""

import contextlib
import os
import platform
import shutil
import statistics
import subprocess
import sys
from collections import namedtuple
from pathlib import Path

Run = namedtuple("Run", "seconds cpu_seconds peak_bytes")
# A program with its arguments, what it reads from standard input, the exit statuses that are good, how
# often it is run at most, and of how many bytes the writes are that bring the input (None: it is a file).
Command = namedtuple("Command", "arguments input statuses most_runs write_size",
                     defaults=(None, (0,), 99, None))

# A report that tells of failures ends with 1.
REPORT_STATUSES = (0, 1)
# Peers that take seconds; their figures differ by less than what they are compared for.
PEER_RUNS = 3
START_RUNS = 20
MB = 1e6


class Failed(Exception):
    """A program that is measured ends with another status than those that are good."""

    def __init__(self, command, status):
        super().__init__(f"{' '.join(map(str, command.arguments))}: exit status {status}")
        self.command = command


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

    def example_report(self):
        cluster = Path("examples/cluster")
        return self.report("--definitions", cluster / "definitions.json", cluster / "findings.jsonl")

    def run(self, command, output=subprocess.DEVNULL):
        result = self.folder / "result"
        with source_of(command) as source:
            subprocess.run([self.program("measure"), result, *command.arguments],
                           stdin=source, stdout=output, check=True)
        seconds, cpu_seconds, peak_bytes, status = result.read_text().split()
        if int(status) not in command.statuses:
            raise Failed(command, status)
        return Run(float(seconds), float(cpu_seconds), int(peak_bytes))

    def all_in_turn(self, *commands, runs=None):
        """Returns the runs of every command."""
        rounds = [[] for _ in commands]
        for number in range(1 if self.quick else runs or self.runs):
            for command, measured in zip(commands, rounds):
                if number < command.most_runs:
                    measured.append(self.run(command))
        return rounds

    def in_turn(self, *commands, runs=None):
        """Returns the medians of every command."""
        return [Run(*map(statistics.median, zip(*measured)))
                for measured in self.all_in_turn(*commands, runs=runs)]

    def output_size(self, command):
        path = self.folder / "output"
        with open(path, "wb") as output:
            self.run(command, output)
        return path.stat().st_size


@contextlib.contextmanager
def source_of(command):
    """What the command reads: a file, or a pipe that is written to in short pieces."""
    if command.write_size is None:
        with open(command.input or "/dev/null", "rb") as source:
            yield source
        return
    writer = ["dd", f"if={command.input}", f"bs={command.write_size}", "status=none"]
    with subprocess.Popen(writer, stdout=subprocess.PIPE) as process:
        yield process.stdout


def add_bench_options(parser):
    parser.add_argument("--programs", type=Path, required=True, help="where they are built")
    parser.add_argument("--folder", type=Path, required=True, help="for the workloads")
    parser.add_argument("--runs", type=int, default=5, help="of every program")
    parser.add_argument("--quick", action="store_true", help="small workloads, each once")


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


def machine():
    """Returns what figures depend on: the processor, and what else it has to do."""
    first_processor = Path("/proc/cpuinfo").read_text().split("\n\n")[0]
    told = {key.strip(): value.strip()
            for key, _, value in (line.partition(":") for line in first_processor.splitlines())}
    model = told.get("model name", platform.machine())
    # A virtual machine may tell no more by name than the maker.
    if "cpu family" in told:
        model += f" (family {told['cpu family']}, model {told.get('model')})"
    return f"{os.cpu_count()} x {model}, load average {os.getloadavg()[0]:.1f} at the start"
