"""Running a command and seeing what it took."""

import contextlib
import os
import shutil
import signal
import statistics
import subprocess
import time
from dataclasses import dataclass, field
from pathlib import Path
from typing import Callable, Optional


@dataclass
class Sample:
    seconds: float
    cpu: float   # seconds, user and system
    rss: float   # peak, MB


@dataclass
class Job:
    """A command that is measured, and what is asserted of its outcome: a figure that is not what it seems is worse
    than none."""

    site: str
    name: str
    pages: int
    megabytes: float
    command: Callable[[Path], list]          # given a fresh folder, also its HOME
    check: Callable[[Path, str], Optional[str]]  # given that folder and the output: what is wrong, if anything
    prepare: Callable[[Path], None] = lambda folder: None
    statuses: tuple = (0,)
    samples: list = field(default_factory=list)

    def median(self, what):
        return statistics.median(getattr(sample, what) for sample in self.samples)

    @property
    def seconds(self):
        return self.median("seconds")


class Bench:
    """Measures in a folder that is made anew for each run."""

    def __init__(self, folder, timeout):
        self.folder = Path(folder)
        self.timeout = timeout

    @contextlib.contextmanager
    def fresh_folder(self):
        shutil.rmtree(self.folder, ignore_errors=True)
        self.folder.mkdir(parents=True)
        try:
            yield self.folder
        finally:
            shutil.rmtree(self.folder, ignore_errors=True)

    def run(self, job):
        with self.fresh_folder():
            return self.measure(job)

    def measure(self, job):
        job.prepare(self.folder)
        # What the run before has left to be written would else be paid for by this one.
        os.sync()
        figures = self.folder / "figures"
        command = ["/usr/bin/time", "-q", "-f", "%U %S %M", "-o", figures, *job.command(self.folder)]
        started = time.perf_counter()
        status, output = self.finish(command)
        seconds = time.perf_counter() - started
        if status not in job.statuses:
            raise SystemExit(f"error: {job.name} ended with {status}:\n{output[-2000:]}")
        wrong = job.check(self.folder, output)
        if wrong:
            raise SystemExit(f"error: {job.name} on {job.site}: {wrong}")
        user, system, kilobytes = map(float, figures.read_text().split())
        return Sample(seconds, user + system, kilobytes / 1000)

    def finish(self, command):
        log = self.folder / "output"
        with open(log, "wb") as output:
            process = subprocess.Popen(command, stdin=subprocess.DEVNULL, stdout=output, stderr=output,
                                       env=self.environment(), start_new_session=True)
            try:
                process.wait(self.timeout)
            finally:
                if process.poll() is None:
                    os.killpg(process.pid, signal.SIGKILL)
                    process.wait()
        return process.returncode, log.read_text(errors="replace")

    def environment(self):
        """No proxy, and none of the user's own settings."""
        return {"PATH": os.environ["PATH"], "HOME": str(self.folder), "LANG": "C.UTF-8", "TZ": "UTC"}

    def alternate(self, jobs, repetitions):
        """All once, then all once more, and so on: what slows the machine for a while slows all alike."""
        for _ in range(repetitions):
            for job in jobs:
                job.samples.append(self.run(job))
