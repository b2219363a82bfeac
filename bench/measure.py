"""Measures what bench/run asks for and prints the table."""

import argparse
import signal
import subprocess
import sys
import time
from pathlib import Path

from jobs import ScanJobs, curl_job, lean_job, megabytes_of, wget2_job, wget_job
from measuring import Bench
from servers import nginx, slow_server
from site_maker import Site
from table import Goal, goals_table, machine, results_table

SECTIONS = ["sites", "large", "slow", "docs", "micro"]
COMMAND_TIMEOUT = 300  # seconds
DOCUMENTATION = {
    "postgresql-doc-15": "/usr/share/doc/postgresql-doc-15/html",
    "python3-doc": "/usr/share/doc/python3-doc/html",
}


class Measurements:
    def __init__(self, root, quick=False, lean=False, beside=None):
        self.root = Path(root)
        self.folder = self.root / "build/bench"
        self.quick = quick
        self.lean = self.folder / "lean-crawler" if lean else None
        self.beside = ScanJobs(beside, "the other veskel-cli") if beside else None
        self.repetitions = 3 if quick else 5
        self.bench = Bench(self.folder / "work", COMMAND_TIMEOUT)
        self.scans = ScanJobs(self.root / "build/release/src/cli/veskel-cli")
        self.jobs = []
        self.goals = []

    def made_site(self, pages, links):
        site = Site(self.folder / "sites" / f"{pages}-pages-{links}-links", pages, links)
        say(f"Making the site of {pages:,} pages with {links} links each, unless it is there")
        site.make()
        return site

    def served(self, roots):
        return nginx(self.folder / "nginx", roots)

    def run(self, jobs, repetitions):
        say(f"Measuring {jobs[0].site}: {', '.join(job.name for job in jobs)}; {repetitions} times")
        self.bench.alternate(jobs, repetitions)
        self.jobs += [job for job in jobs if job not in self.jobs]

    def sites(self):
        """Against others, on sites of 40 links a page."""
        sites = [self.made_site(pages, 40) for pages in (1_000, 10_000)]
        with self.served([site.folder for site in sites]) as ports:
            for site, port in zip(sites, ports):
                # A small site takes so little that single runs say little.
                repetitions = self.repetitions * (3 if site.pages == 1_000 else 1)
                scan, bare, wget2, *more = jobs = self.against_others(site, port)
                self.run(jobs, repetitions)
                self.goals.append(Goal(f"scan against wget2 -r, {site.pages:,} pages",
                                       scan.seconds / wget2.seconds, 0.4))
                for job in more:
                    if site.pages == 10_000 and job.name == "lean crawler":
                        self.goals.append(Goal(f"scan against the lean crawler, {site.pages:,} pages",
                                               scan.seconds / job.seconds, 1.0))
                    elif site.pages == 10_000 and self.beside and job.name == self.beside.name:
                        self.goals.append(Goal(f"CPU time against the other veskel-cli, {site.pages:,} pages",
                                               scan.median("cpu") / job.median("cpu"), 0.5))
                if site.pages == 10_000:
                    self.goals.append(Goal(f"scan against the bare transfer, {site.pages:,} pages",
                                           scan.seconds / bare.seconds, 2.5))

    def against_others(self, site, port):
        label, size, base = describe(site), site.bytes() / 1e6, f"http://127.0.0.1:{port}/"
        start = base + "index.html"
        jobs = [self.scans.job(label, site.pages, size, start),
                curl_job(label, site.pages, size, [base + name for name in site.files()]),
                wget2_job(label, site.pages, size, start),
                wget_job(label, site.pages, size, start)]
        if self.lean:
            jobs.append(lean_job(self.lean, label, site.pages, size, start))
        if self.beside:
            jobs.append(self.beside.job(label, site.pages, size, start))
        return jobs

    def large(self):
        """A hundred times the pages, of the same shape."""
        small, large = self.made_site(1_000, 10), self.made_site(100_000, 10)
        with self.served([small.folder, large.folder]) as ports:
            start = f"http://127.0.0.1:{ports[0]}/index.html"
            scan_small = self.scans.job(describe(small), small.pages, small.bytes() / 1e6, start)
            scan_large, *others = self.against_others(large, ports[1])
            for _ in range(3):
                self.run([scan_small], 3)
                self.run([scan_large], 1)
            self.run(others, 1)
        self.goals += [
            Goal("time per page, 100,000 against 1,000 pages",
                 scan_large.seconds / large.pages * small.pages / scan_small.seconds, 1.1),
            Goal("peak memory at 100,000 pages", scan_large.median("rss"), 40, unit="MB"),
        ]

    def slow(self):
        """The wait for answers, and what more connections do about it."""
        site = self.made_site(300, 40)
        with slow_server(site.folder, 50) as port:
            start = f"http://127.0.0.1:{port}/index.html"
            one, six, sixteen = jobs = [
                self.scans.job(f"{describe(site)}, 50 ms", site.pages, site.bytes() / 1e6, start, connections,
                               f"scan --connections {connections}") for connections in (1, 6, 16)]
            # All of it is waiting, which hardly varies.
            self.run(jobs, 2 if self.quick else 3)
        self.goals += [
            Goal("50 ms server, 6 connections against 1", one.seconds / six.seconds, 5, least=True,
                 unit="times faster"),
            Goal("50 ms server, 300 pages over 6 connections", six.seconds, 3.0, unit="s"),
        ]

    def docs(self):
        """Real documentation."""
        names = [name for name, root in DOCUMENTATION.items() if (Path(root) / "index.html").exists()]
        for name in DOCUMENTATION.keys() - names:
            say(f"{name} holds no pages here (was it installed without documentation?) and is left out")
        if not names:
            return
        with self.served([DOCUMENTATION[name] for name in names]) as ports:
            for name, port in zip(names, ports):
                start = f"http://127.0.0.1:{port}/index.html"
                with self.bench.fresh_folder() as folder:
                    urls = self.scans.visited(folder, start, ["#"])
                size = megabytes_of(urls, DOCUMENTATION[name])
                # Status 1: the documentation has links that lead nowhere.
                self.run([self.scans.job(f'{name}, filter "#"', len(urls), size, start, filters=["#"],
                                         statuses=(0, 1)),
                          curl_job(f'{name}, filter "#"', len(urls), size, urls)], self.repetitions)

    def micro(self):
        say("Running the micro-benchmarks")
        program = self.folder / "micro/bench/micro_benchmarks"
        done = subprocess.run([program, f"--benchmark_min_time={0.1 if self.quick else 0.5}",
                               f"--benchmark_out={self.folder / 'micro.json'}"],
                              timeout=COMMAND_TIMEOUT, stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True,
                              check=True, cwd=self.folder)
        return done.stdout


def describe(site):
    return f"{site.pages:,} pages, {site.links} links"


def say(text):
    print(text, file=sys.stderr, flush=True)


def main(arguments):
    parser = argparse.ArgumentParser(description=__doc__)
    parser.add_argument("--quick", action="store_true")
    parser.add_argument("--lean", action="store_true")
    parser.add_argument("--beside", metavar="FILE")
    parser.add_argument("root", metavar="ROOT")
    parser.add_argument("sections", metavar="SECTION", nargs="*")
    chosen_options = parser.parse_args(arguments)
    chosen = chosen_options.sections or [section for section in SECTIONS
                                         if not (chosen_options.quick and section == "large")]
    # So that an end by a signal still ends the servers.
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(143))

    started = time.monotonic()
    measurements = Measurements(chosen_options.root, chosen_options.quick, chosen_options.lean,
                                chosen_options.beside)
    measurements.folder.mkdir(parents=True, exist_ok=True)
    details = report = ""
    for section in SECTIONS:
        if section in chosen:
            details = getattr(measurements, section)() or ""
            report = "\n".join(filter(None, [machine(), results_table(measurements.jobs),
                                             goals_table(measurements.goals), details]))
            # After each section, so that a run that is broken off leaves what it has measured.
            (measurements.folder / "results.md").write_text(report)
    print(report)
    say(f"Took {time.monotonic() - started:.0f} s; also written to {measurements.folder / 'results.md'}")


if __name__ == "__main__":
    main(sys.argv[1:])
