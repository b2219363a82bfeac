"""The commands that are measured, and how to tell that they did what they should."""

import json
import os
import re
import subprocess
from pathlib import Path
from urllib.parse import unquote, urlsplit

from measuring import Job

CONNECTIONS = 6


class ScanJobs:
    """Makes the jobs for one veskel-cli."""

    def __init__(self, program, name="veskel-cli scan"):
        self.program = str(program)
        self.name = name

    def prepare(self, folder, url, filters):
        commands = [["add", "bench", url]] + [["filters", "bench", "--add", text] for text in filters]
        for command in commands:
            subprocess.run([self.program, *command], check=True, stdout=subprocess.DEVNULL, timeout=30,
                           env={"PATH": os.environ["PATH"], "HOME": str(folder)})

    def job(self, site, pages, megabytes, url, connections=CONNECTIONS, name=None, filters=(), statuses=(0,)):
        return Job(site, name or self.name, pages, megabytes,
                   command=lambda folder: [self.program, "scan", "bench", "--connections", str(connections)],
                   check=lambda folder, output: wrong_count(used_pages(output), pages),
                   prepare=lambda folder: self.prepare(folder, url, filters), statuses=statuses)

    def visited(self, folder, url, filters):
        """The addresses of the good pages that a scan visits."""
        self.prepare(folder, url, filters)
        done = subprocess.run([self.program, "scan", "bench", "--progress", "json"], stdout=subprocess.PIPE,
                              timeout=300, text=True, env={"PATH": os.environ["PATH"], "HOME": str(folder)})
        events = [json.loads(line) for line in done.stdout.splitlines()]
        broken = {event["url"] for event in events if event["event"] == "broken"}
        return [event["url"] for event in events if event["event"] == "page" and event["url"] not in broken]


def used_pages(output):
    found = re.search(r"^ *Pages used +(\d+)$", output, re.MULTILINE)
    return int(found.group(1)) if found else 0


def wrong_count(count, expected):
    return None if count == expected else f"{count} pages instead of {expected}"


def written_pages(folder):
    return sum(name.endswith(".html") for _, _, names in os.walk(folder) for name in names)


def curl_job(site, pages, megabytes, urls, connections=CONNECTIONS):
    """The bare transfer: each page once, in as many connections, thrown away."""
    def prepare(folder):
        (folder / "urls").write_text("".join(f'url = "{url}"\noutput = "/dev/null"\n' for url in urls))

    return Job(site, "curl --parallel", pages, megabytes,
               command=lambda folder: ["curl", "--silent", "--show-error", "--fail", "--parallel",
                                       "--parallel-max", str(connections), "--write-out", "%{http_code}\\n",
                                       "--config", str(folder / "urls")],
               check=lambda folder, output: wrong_count(output.count("200\n"), pages), prepare=prepare)


def lean_job(program, site, pages, megabytes, url):
    """A crawler that reads titles and links, and writes nothing."""
    return Job(site, "lean crawler", pages, megabytes,
               command=lambda folder: [program, url, str(CONNECTIONS)],
               check=lambda folder, output: wrong_count(int(output.split()[0]), pages))


def copy_job(site, pages, megabytes, url, command):
    """A recursive download that writes the site to disk."""
    return Job(site, " ".join(command[:2]), pages, megabytes,
               command=lambda folder: [*command, "--level=inf", "--no-parent", "--quiet",
                                       f"--directory-prefix={folder}/copy", url],
               check=lambda folder, output: wrong_count(written_pages(folder / "copy"), pages))


def wget2_job(site, pages, megabytes, url):
    return copy_job(site, pages, megabytes, url, ["wget2", "-r", f"--max-threads={CONNECTIONS}"])


def wget_job(site, pages, megabytes, url):
    return copy_job(site, pages, megabytes, url, ["wget", "-r"])


def megabytes_of(urls, root):
    """What the files behind addresses on a plain file server hold."""
    total = 0
    for url in urls:
        path = unquote(urlsplit(url).path).lstrip("/")
        file = Path(root) / path
        total += os.stat(file / "index.html" if file.is_dir() else file).st_size
    return total / 1e6
