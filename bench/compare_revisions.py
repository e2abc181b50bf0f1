#!/usr/bin/env python3
"""Runs two builds of vond-report in turn on the same workloads and prints their ratios.

A ratio is that of two runs, one right behind the other, so that both see the same machine. Ends with
status 1 when something has become slower, takes more memory or fails.
"""

import argparse
import statistics
import sys
from pathlib import Path

from line_orders import LINE_ORDERS
from measuring import (START_RUNS, Bench, Failed, Table, add_bench_options, duration, machine,
                       megabytes)

# Less than this is the noise of a quiet machine.
MEANT = 1.02
# Fewer runs tell nothing about noise.
LEAST_RUNS = 4
OUTPUTS = ("json", "list", "findings", "html", "junit")


class Comparison:
    """Rows of one table. A workload is measured when it is added, so its files may go then."""

    def __init__(self, bench, other, other_name, table):
        self.bench = bench
        self.other = str(other)
        self.other_name = other_name
        self.table = table
        self.is_worse = False

    def add(self, name, report, runs=None):
        earlier = report._replace(arguments=[self.other, *report.arguments[1:]])
        try:
            ours, theirs = self.bench.all_in_turn(report, earlier, runs=runs)
        except Failed as failed:
            self.add_failure(name, failed, is_ours=failed.command is report)
            return
        self.add_row(name, ours, theirs)

    def add_failure(self, name, failed, is_ours):
        """An earlier revision need not be able to do everything; what is checked out has to."""
        self.is_worse = self.is_worse or is_ours
        whose = "what is checked out" if is_ours else self.other_name
        self.table.row(name, f"{whose}: {failed}", *[""] * 5, "fails" if is_ours else "")

    def add_row(self, name, ours, theirs):
        times = ratios(ours, theirs, "seconds")
        cpu_times = ratios(ours, theirs, "cpu_seconds")
        memory = ratios(ours, theirs, "peak_bytes")
        verdict = ", ".join(word for word, measured in (("slower", cpu_times), ("more memory", memory))
                            if has_grown(measured))
        self.is_worse = self.is_worse or verdict != ""
        self.table.row(name, duration(median_of(ours, "seconds")),
                       duration(median_of(theirs, "seconds")), spread(times), spread(cpu_times),
                       megabytes(median_of(ours, "peak_bytes")), spread(memory), verdict)


def median_of(runs, figure):
    return statistics.median(getattr(run, figure) for run in runs)


def ratios(ours, theirs, figure):
    return sorted(getattr(our, figure) / max(getattr(their, figure), 1e-6)
                  for our, their in zip(ours, theirs))


def has_grown(measured):
    """Whether it is more than noise: in the middle, and in three of four pairs at all."""
    return (len(measured) >= LEAST_RUNS and statistics.median(measured) > MEANT and
            measured[len(measured) // 4] > 1)


def spread(measured):
    return f"{statistics.median(measured):.2f} ({measured[0]:.2f} to {measured[-1]:.2f})"


def compare_wide(bench, comparison):
    findings = bench.make("wide.jsonl", "wide", "--nodes", bench.size(10_000), "--checks", 100)
    comparison.add("wide", bench.report(findings))
    reordered = bench.folder / "reordered.jsonl"
    for name, reorder in LINE_ORDERS.items():
        comparison.add(f"wide, {name}", bench.report(reorder(findings, reordered)))
    reordered.unlink()
    comparison.add("wide, through a pipe", bench.report()._replace(input=findings, write_size=512))
    comparison.add("wide, --since itself", bench.report("--since", findings, findings))
    findings.unlink()


def compare_numbers(bench, comparison):
    findings = bench.make("numbers.jsonl", "numbers", "--nodes", bench.size(10_000), "--checks", 40)
    comparison.add("numbers", bench.report(findings))
    findings.unlink()


def compare_issues(bench, comparison):
    for workload, issues, definitions in (("many", 40_000, 10_000), ("deep", 20_000, 20_000),
                                          ("many", 100_000, 1_000)):
        report = bench.make_issues(workload, bench.size(issues), bench.size(definitions))
        comparison.add(f"{workload}, {issues:,} issues, {definitions:,} definitions", report)
    for output in OUTPUTS:
        comparison.add(f"the same, {output}",
                       report._replace(arguments=[*report.arguments, "--extension", output]))


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    add_bench_options(parser)
    parser.add_argument("--other", type=Path, required=True, help="vond-report of the other revision")
    parser.add_argument("--other-name", required=True, help="what the table calls it")
    options = parser.parse_args()
    bench = Bench(options)
    print(f"Machine: {machine()}.")
    print(f"Medians of {bench.runs} runs in turn, and the least and greatest ratios of two runs.")
    with Table("Workload", "time", f"{options.other_name}", "times as long", "in processor time",
               "peak memory", "times the memory", "worse") as table:
        comparison = Comparison(bench, options.other.resolve(), options.other_name, table)
        for part in (compare_wide, compare_numbers, compare_issues):
            part(bench, comparison)
        comparison.add("example cluster", bench.example_report(), runs=START_RUNS)
    return 1 if comparison.is_worse else 0


if __name__ == "__main__":
    sys.exit(main())
