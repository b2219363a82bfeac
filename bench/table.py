"""Showing what was measured, as Markdown that also reads well in a terminal."""

import datetime
import os
import platform
from dataclasses import dataclass
from pathlib import Path


@dataclass
class Goal:
    what: str
    value: float
    bound: float
    least: bool = False  # the bound is the least that is wanted, not the most
    unit: str = ""

    def row(self):
        met = self.value >= self.bound if self.least else self.value <= self.bound
        missed_by = abs(self.value / self.bound - 1) * 100
        return [self.what, f"{'at least' if self.least else 'at most'} {self.bound:g} {self.unit}".rstrip(),
                f"{self.value:.2f}", "met" if met else f"missed by {missed_by:.0f} %"]


def table(headings, rows, numbers_from):
    """Columns from `numbers_from` on are set to the right."""
    lines = [headings, *rows]
    widths = [max(len(line[column]) for line in lines) for column in range(len(headings))]

    def set_line(cells):
        set_cells = [cell.ljust(width) if column < numbers_from else cell.rjust(width)
                     for column, (cell, width) in enumerate(zip(cells, widths))]
        return "| " + " | ".join(set_cells) + " |"

    rules = ["-" * width if column < numbers_from else "-" * (width - 1) + ":" for column, width in enumerate(widths)]
    return "\n".join([set_line(headings), set_line(rules), *map(set_line, rows)]) + "\n"


def results_table(jobs):
    if not jobs:
        return ""
    first = {}  # of each site: the scan that the others are compared with
    rows = []
    for job in jobs:
        scan = first.setdefault(job.site, job)
        spread = max(sample.seconds for sample in job.samples) / min(sample.seconds for sample in job.samples)
        rows.append([job.site, job.name, f"{job.pages:,}", f"{job.megabytes:.1f}", str(len(job.samples)),
                     f"{job.seconds:.3f}", f"{spread:.2f}", f"{job.pages / job.seconds:,.0f}",
                     f"{job.megabytes / job.seconds:.1f}", f"{job.median('cpu'):.2f}", f"{job.median('rss'):.0f}",
                     f"{scan.seconds / job.seconds:.2f}"])
    return table(["site", "command", "pages", "MB", "runs", "seconds", "spread", "pages/s", "MB/s", "CPU s",
                  "peak MB", "ratio"], rows, 2) + """
seconds, CPU seconds (of the command, not of the server) and peak memory: medians. spread: slowest run by fastest.
ratio: the seconds of the site's first row by those of this one; below 1, the first row is faster.
"""


def goals_table(goals):
    if not goals:
        return ""
    return table(["goal", "wanted", "is", ""], [goal.row() for goal in goals], 4)


def machine():
    information = Path("/proc/cpuinfo").read_text().splitlines()
    model = next((line.split(":")[1].strip() for line in information if line.startswith("model name")), "unknown CPU")
    load = os.getloadavg()[0]
    return (f"{datetime.date.today()}, {model}, {len(os.sched_getaffinity(0))} CPUs, Linux {platform.release()}, "
            f"load {load:.1f} at the end\n")
