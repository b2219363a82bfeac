#!/usr/bin/env python3
"""Writes the manual page of a program from what its --help says.

    make_man_page.py PROGRAM SECTIONS --date 2026-11-22 --version 2.0.0 > PROGRAM.1

The help of the program's commands is asked for, too. SECTIONS is a file with what a help has no room for: blocks that
begin with a line "[NAME OF SECTION]" and hold roff, with the two special ones [NAME] (a line of text, needed) and
[SEE ALSO]. The sections come in the usual order.
"""

import argparse
import os
import re
import subprocess

ORDER = ["NAME", "SYNOPSIS", "DESCRIPTION", "OPTIONS", "COMMANDS", "EXIT STATUS", "ENVIRONMENT", "FILES", "NOTES",
         "EXAMPLES", "SEE ALSO"]


def roff(text):
    text = text.replace("\\", "\\e").replace("-", "\\-")
    # A line must not begin with what roff takes for a request.
    return re.sub(r"^([.'])", r"\\&\1", text, flags=re.MULTILINE)


def quoted(text):
    return '"' + roff(text).replace('"', '\\(dq') + '"'


class Help:
    """A help text taken apart: usage, paragraphs before and after the lists, and the lists by their headings."""

    def __init__(self, text):
        self.usage = ""
        self.description = []
        self.notes = []
        self.lists = {}
        heading = None
        paragraph = []
        for line in text.splitlines() + [""]:
            if line.startswith("Usage: "):
                self.usage = line[len("Usage: "):]
            elif re.fullmatch(r"[A-Z][A-Za-z ]+:", line):
                heading = line[:-1]
                self.lists[heading] = []
            elif line.startswith(" ") and heading:
                self.lists[heading].append(line)
            elif line:
                paragraph.append(line)
                heading = None
                continue
            if paragraph:
                (self.notes if self.lists else self.description).append(" ".join(paragraph))
                paragraph = []

    def entries(self, heading):
        """Pairs of a name and what is said of it."""
        found = []
        for line in self.lists.get(heading, []):
            if not line.startswith("   "):
                name, _, said = line.strip().partition("  ")
                found.append([name.split(" Excludes:")[0].replace(",--", ", --"), said.strip()])
            else:
                found[-1][1] = (found[-1][1] + " " + line.strip()).strip()
        return found

    def examples(self):
        lines = self.lists.get("Example", []) + self.lists.get("Examples", [])
        return [line.strip() for line in lines]


def help_of(arguments):
    environment = {"HOME": "/nonexistent", "PATH": os.environ["PATH"], "LC_ALL": "C.UTF-8"}
    done = subprocess.run(arguments + ["--help"], env=environment, capture_output=True, text=True, check=True, timeout=60)
    return Help(done.stdout)


def definitions(entries):
    return "".join(f".TP\n.B {quoted(name)}\n{roff(said)}\n" for name, said in entries)


def examples(lines):
    return ".nf\n" + "".join(roff(line) + "\n" for line in lines) + ".fi\n" if lines else ""


def command_section(program, command):
    told = help_of([program, command])
    text = f".SS {quoted(told.usage.split(' ', 1)[1].replace('[OPTIONS] ', '').replace(' [OPTIONS]', ''))}\n"
    text += roff(" ".join(told.description)).rstrip(".") + ".\n"
    # Every command has --help; saying so each time would hide the others.
    options = [entry for entry in told.entries("Options") if not entry[0].startswith("-h,")]
    arguments = [[name.replace(" REQUIRED", ""), said] for name, said in told.entries("Positionals")]
    text += definitions(arguments + options)
    text += "".join(f".PP\n{roff(note)}\n" for note in told.notes)
    if told.examples():
        text += ".PP\n" + examples(told.examples())
    return text


def read_sections(path):
    sections = {}
    with open(path, encoding="utf-8") as file:
        for line in file:
            heading = re.fullmatch(r"\[([A-Z ]+)\]\n", line)
            if heading:
                name = heading.group(1)
                sections[name] = ""
            elif line.strip():
                sections[name] += line
    return sections


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("program")
    parser.add_argument("sections")
    parser.add_argument("--date", required=True)
    parser.add_argument("--version", required=True)
    given = parser.parse_args()
    name = os.path.basename(given.program)
    told = help_of([given.program])
    sections = read_sections(given.sections)

    purpose = sections["NAME"].strip()
    sections["NAME"] = f"{roff(name)} \\- {roff(purpose)}\n"
    synopsis = told.usage.split(" ", 1)[1]
    sections["SYNOPSIS"] = f".B {roff(name)}\n{roff(synopsis.replace('SUBCOMMAND', 'COMMAND [ARGUMENTS]'))}\n"
    sections["DESCRIPTION"] = roff("\n".join(told.description)) + "\n" + "".join(
        f".PP\n{roff(note)}\n" for note in told.notes) + sections.get("DESCRIPTION", "")
    sections["OPTIONS"] = definitions(told.entries("Options")) + sections.get("OPTIONS", "")
    commands = [command for command, _ in told.entries("Subcommands")]
    if commands:
        sections["COMMANDS"] = "".join(command_section(given.program, command) for command in commands)
    sections["EXIT STATUS"] = definitions(told.entries("Exit codes"))
    if told.examples():
        sections["EXAMPLES"] = examples(told.examples())

    print(f'.TH {quoted(name.upper())} 1 {quoted(given.date)} {quoted("Veskel " + given.version)} "User Commands"')
    for heading in ORDER:
        if heading in sections:
            print(f'.SH {quoted(heading)}\n{sections[heading]}', end="")


main()
