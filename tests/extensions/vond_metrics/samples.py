"""Reads metrics in text form as strictly as the strictest of their readers."""

import re

# A line feed in a label is always escaped, so a series is a line.
SAMPLE = re.compile(r'([a-z_]+)(?:\{((?:[a-z]+="(?:[^"\\]|\\[\\"n])*",?)+)\})? (\S+)')
LABEL = re.compile(r'([a-z]+)="((?:[^"\\]|\\[\\"n])*)"')
UNESCAPED = {r"\\": "\\", r"\"": '"', r"\n": "\n"}


def read(text):
    """Returns a list of ((name, labels), value), with labels as a sorted tuple of pairs. Raises
    ValueError for a line that is none of this form's."""
    samples = []
    for line in text.split("\n"):
        if not line or line.startswith("#"):
            continue
        match = SAMPLE.fullmatch(line)
        if not match:
            raise ValueError(f"no series: {line[:200]}")
        labels = tuple(sorted((key, re.sub(r"\\.", lambda found: UNESCAPED[found[0]], value))
                              for key, value in LABEL.findall(match[2] or "")))
        samples.append(((match[1], labels), float(match[3])))
    return samples


def twice(samples):
    """Returns the series that stand more than once."""
    seen, again = set(), []
    for series, _ in samples:
        if series in seen:
            again.append(series)
        seen.add(series)
    return again
