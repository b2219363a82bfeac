#!/usr/bin/python3
"""A session with the window as an assistive technology sees it: by role and name only.

Adds a site, toggles what can be toggled, scans, reads the counts, and finds a link of the sitemap. Run inside a D-Bus
session with a display; arguments are the program,
the example server and the folder that it serves.
"""

import os
import pathlib
import shutil
import subprocess
import sys
import tempfile
import time

import gi
import pyatspi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402  (its version has to be named first)

TIME_LIMIT = 120  # seconds for any one thing to happen; most take a fraction of one
# The library gives up after 0.8 seconds by itself: less than a web view takes to start on a busy machine.
Atspi.set_timeout(TIME_LIMIT * 1000, TIME_LIMIT * 1000)


def wait_for(what, find):
    """The first thing that find() gives; ends the test when nothing comes in time."""
    end = time.monotonic() + TIME_LIMIT
    while time.monotonic() < end:
        try:
            found = find()
            if found:
                return found
        except Exception:  # widgets come and go while they are looked at
            pass
        time.sleep(0.05)
    sys.exit(f"not found in time: {what}")


def descendants(node):
    yield node
    for i in range(node.childCount):
        child = node.getChildAtIndex(i)
        if child is not None:
            yield from descendants(child)


def showing(node):
    return node.getState().contains(pyatspi.STATE_SHOWING)


class Place:
    """The program, or one of its dialogs."""

    def __init__(self, root):
        self.root = root

    def find(self, role, name, anywhere=False):
        def look():
            for node in descendants(self.root):
                if node.getRoleName() == role and node.name == name and (anywhere or showing(node)):
                    return node
            return None

        return wait_for(f'{role} "{name}"', look)

    def press(self, name, role="push button"):
        button = self.find(role, name)
        wait_for(f'"{name}" enabled', lambda: button.getState().contains(pyatspi.STATE_ENABLED))
        button.queryAction().doAction(0)

    def toggle(self, role, name):
        """What can be checked has this one action, whatever it looks like."""
        control = self.find(role, name)
        before = control.getState().contains(pyatspi.STATE_CHECKED)
        action = control.queryAction()
        if action.getName(0) != "Toggle":
            sys.exit(f'"{name}" cannot be toggled')
        action.doAction(0)
        wait_for(f'"{name}" toggled', lambda: control.getState().contains(pyatspi.STATE_CHECKED) != before)

    def type(self, name, text):
        self.find("text", name).queryEditableText().setTextContents(text)

    def select_row(self, table_name, text):
        def look():
            table = self.find("table", table_name).queryTable()
            for row in range(table.nRows):
                if table.getAccessibleAt(row, 0).name == text:
                    return table.addRowSelection(row) or table.isRowSelected(row)
            return None

        wait_for(f'row "{text}" in "{table_name}"', look)

    def dialog(self, name):
        return Place(self.find("dialog", name))


def labelled(place, label_name):
    """What stands beside a label: the name of the control that it is the label for."""
    for relation in place.find("label", label_name).getRelationSet():
        if relation.getRelationType() == pyatspi.RELATION_LABEL_FOR:
            return relation.getTarget(0).name
    return None


def find_application(pid):
    desktop = pyatspi.Registry.getDesktop(0)
    for i in range(desktop.childCount):
        application = desktop.getChildAtIndex(i)
        if application is not None and application.get_process_id() == pid and application.childCount > 0:
            return application
    return None


def read_report(window, pid):
    window.find("menu item", "Scan Report", anywhere=True).queryAction().doAction(0)

    def look():
        application = find_application(pid)
        frames = [application.getChildAtIndex(i) for i in range(application.childCount)]
        return next((frame for frame in frames if frame.name == "Report of Mill"), None)

    report = Place(wait_for("the report", look))
    for tab, table in (("Broken", "Broken pages"), ("Pages", "Pages"), ("Outside Links", "Outside links")):
        def select(title=tab):
            for node in descendants(report.root):
                if node.getRoleName() == "page tab" and node.name.startswith(title):
                    return node.queryAction().doAction(0) or True
            return None

        wait_for(f'tab "{tab}"', select)
        report.find("table", table)
    report.type("Search", "tickets")


def run(program, url):
    started = subprocess.Popen([program])
    try:
        window = Place(wait_for("the program", lambda: find_application(started.pid)))
        window.press("Add a Website")
        sheet = window.dialog("Add New Site")
        sheet.type("Site name", "Mill")
        sheet.type("Site URL", url)
        sheet.press("Add Site")
        window.select_row("Sites", "Mill")
        window.toggle("check box", "Ignore robots.txt")
        record = pathlib.Path.home().glob("**/Mill.qzVSK")
        if "<ignoreRobotFile>YES" not in next(record).read_text():
            sys.exit("the robots switch only looks as if it was on")
        window.toggle("check box", "Ignore robots.txt")
        window.toggle("check box", "Filters")
        window.find("push button", "Add Filter")
        window.toggle("check box", "Upload")
        window.find("push button", "Copy Line")
        window.toggle("check box", "Scan")
        window.press("Delete Site")
        question = Place(window.find("alert", "Veskel"))
        if window.find("push button", "Scan Site").getState().contains(pyatspi.STATE_ENABLED):
            sys.exit("a scan can be started under a sheet")
        question.press("Cancel")
        window.press("Scan Site")
        counts = {
            "Pages found": "34",
            "Pages used": "32",
            "Broken": "2",
        }
        for name, expected in counts.items():
            wait_for(f"{name}: {expected}", lambda n=name, e=expected: labelled(window, n) == e)
        read_report(window, started.pid)
        window.toggle("check box", "Style")
        window.toggle("check box", "Bold page links")
        wait_for("something to save", lambda: window.find("push button", "Save Changes").getState().contains(
            pyatspi.STATE_ENABLED))
        window.toggle("radio button", "Never underline page titles")
        window.press("Save Changes")
        Place(window.find("alert", "Veskel")).press("Save Changes")
        sitemap = next(pathlib.Path.home().glob("**/Mill/sitemap3c.html"))
        for rule in (".vskPageTitle a:hover { text-decoration:none }", ".vskPageLink a {\n\t\tfont-weight: bold"):
            wait_for(rule, lambda text=rule: text in sitemap.read_text())
        window.find("link", "Brackwater Mill Museum")
        print("all counts read, and the sitemap")
    finally:
        started.terminate()
        started.wait(TIME_LIMIT)


def main():
    program, server, site = sys.argv[1:]
    home = tempfile.mkdtemp(prefix="veskel-accessibility-")
    os.environ.update(HOME=home, XDG_STATE_HOME=home + "/state", QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1")
    serving = subprocess.Popen([server, site], stdin=subprocess.PIPE, stdout=subprocess.PIPE, text=True)
    try:
        run(program, serving.stdout.readline().strip())
    finally:
        serving.stdin.close()
        serving.wait(TIME_LIMIT)
        shutil.rmtree(home, ignore_errors=True)


main()
