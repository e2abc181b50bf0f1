#!/usr/bin/env python3
"""Runs vond-report and the programs beside it on made-up workloads and prints tables.

What is compared is run in turn, so that both see the same machine; every figure is the median.
Ratios of processor time stand beside those of wall time, because other work on the machine disturbs
them less.
"""

import argparse
from pathlib import Path

from line_orders import LINE_ORDERS
from measuring import (PEER_RUNS, START_RUNS, Bench, Command, Table, add_bench_options, duration, machine,
                       megabytes, peer)


WIDE_TARGET = "at most 1.5 times"
# What a program with a small buffer, or a line at a time, writes into a pipe.
SHORT_WRITE = 512


def comparison_table():
    return Table("Workload", "vond-report", "beside it", "its time", "times its time",
                 "in processor time", "times faster", "target")


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
    targets = {"parse_only": WIDE_TARGET, "clubak -b": "at least 10 times faster"}
    peers = {name: command for name, command in peers.items() if command}
    run, *others = bench.in_turn(report, *peers.values())

    with comparison_table() as table:
        for name, other in zip(peers, others):
            add_comparison(table, "wide", run, name, other, targets.get(name, ""))
    size = findings.stat().st_size
    with Table("Workload", "input", "peak memory", "share of the input", "target") as table:
        table.row("wide", megabytes(size), megabytes(run.peak_bytes),
                  f"{run.peak_bytes / size:.2f}", "at most 0.33")
    bench_since(bench, "wide", findings)
    bench_orders(bench, findings)
    findings.unlink()
    lines.unlink()


def bench_orders(bench, findings):
    """The same findings in other orders of lines and keys, and as a pipe brings them."""
    reordered = bench.folder / "reordered.jsonl"
    with comparison_table() as table:
        for name, reorder in LINE_ORDERS.items():
            reorder(findings, reordered)
            add_floor(table, bench, f"wide, {name}", bench.report(reordered), reordered)
        reordered.unlink()
        add_floor(table, bench, f"wide, in writes of {SHORT_WRITE} bytes",
                  bench.report()._replace(input=findings, write_size=SHORT_WRITE), findings)


def add_floor(table, bench, name, report, findings):
    floor = report._replace(arguments=[bench.program("parse_only"),
                                       "/dev/stdin" if report.input else findings])
    run, other = bench.in_turn(report, floor)
    add_comparison(table, name, run, "parse_only", other, WIDE_TARGET)


def bench_numbers(bench):
    findings = bench.make("numbers.jsonl", "numbers", "--nodes", bench.size(10_000), "--checks", 40)
    run, floor = bench.in_turn(bench.report(findings),
                               Command([bench.program("parse_only"), findings]))
    size = findings.stat().st_size
    with comparison_table() as table:
        add_comparison(table, "numbers", run, "parse_only", floor, "at most 2.5 times")
    with Table("Workload", "input", "peak memory", "share of the input", "target") as table:
        table.row("numbers", megabytes(size), megabytes(run.peak_bytes),
                  f"{run.peak_bytes / size:.2f}", "at most 0.33")
    bench_since(bench, "numbers", findings)
    findings.unlink()


def bench_issues(bench):
    with Table("Workload", "issues", "definitions", "time", "processor time", "report",
               "report a second", "peak memory", "times the first", "target") as table:
        for workload, issues, definitions, target in (
                ("many", 100_000, 1_000, "at least 120 MB/s"),
                ("many", 40_000, 10_000, "at least 120 MB/s"),
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
                  target if run is runs[0] else "at most 2.1 times")


def bench_outputs(bench):
    """Each output of one run. What is read and collapsed before it is the same for all of them."""
    report = bench.make_issues("many", bench.size(100_000), bench.size(1_000))
    outputs = ("text", "brief", "findings", "html", "json", "junit", "list", "metrics")
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
    report = bench.example_report()
    outputs = ("text", "json", "list", "metrics", "html")
    several = report._replace(arguments=[*report.arguments, *(
        argument for output in outputs for argument in ("--extension", f"{output}:{bench.folder}/{output}"))])
    run, run_of_several = bench.in_turn(report, several, runs=START_RUNS)
    with Table("Start to end of the example cluster", "time", "peak memory", "target") as table:
        table.row("text report", duration(run.seconds), megabytes(run.peak_bytes), "at most 4 ms")
        table.row("five outputs", duration(run_of_several.seconds), megabytes(run_of_several.peak_bytes),
                  "at most 8 ms")


def main():
    parser = argparse.ArgumentParser(description=__doc__.splitlines()[0])
    add_bench_options(parser)
    bench = Bench(parser.parse_args())
    print(f"Machine: {machine()}.")
    print(f"Medians of {bench.runs} runs in turn; of peers {min(bench.runs, PEER_RUNS)}.")
    for part in (bench_wide, bench_numbers, bench_issues, bench_outputs, bench_folding, bench_start):
        part(bench)


if __name__ == "__main__":
    main()
