#!/usr/bin/python3
"""Checks what a report tells of broken pages against the pages themselves.

veskel-cli report NAME --format json | bench/check_report.py

An independent check: the pages in the report's documents are asked for again and read with another reader of HTML
(python3-html5lib) and another library for addresses. Each broken address has to be broken, the pages that link there
have to be those that the report names, and each link's name has to stand there. For sites on loopback whose links are
read as browsers do ("--links browser"). Prints what differs and ends with 1, or the counts.
"""

import json
import sys
import urllib.error
import urllib.request
from urllib.parse import quote, urldefrag, urljoin, urlsplit, urlunsplit

import html5lib

TIMEOUT = 20  # seconds
NAME_BYTES = 200  # of a name, in a report
PAGES_KEPT = 100  # that link to one address, likewise
BLANKS = " \t\r\n\f"
LINKS = {"a": "href", "area": "href", "frame": "src", "iframe": "src"}


def fetch(url):
    """The page as a tree; None when it is broken."""
    try:
        with urllib.request.urlopen(quote(url, safe="/%:@!$&'()*+,;=-._~?#[]"), timeout=TIMEOUT) as answer:
            told = answer.headers.get_content_charset()
            options = {"transport_encoding": told} if told else {}
            return html5lib.parse(answer.read(), namespaceHTMLElements=False, **options)
    except (urllib.error.URLError, OSError, ValueError):
        return None


def clean(url):
    """Without fragment, and spelled in one way."""
    parts = urlsplit(urldefrag(url)[0])
    path = quote(parts.path or "/", safe="/%:@!$&'()*+,;=-._~")
    query = quote(parts.query, safe="/%:@!$&'()*+,;=-._~?")
    return urlunsplit((parts.scheme, parts.netloc.lower(), path, query, ""))


def text_of(element):
    return "".join(element.itertext())


def names_of(element):
    """All that the link may be called: its text, or what attributes and images give in its place."""
    names = {text_of(element)}
    for each in element.iter():
        names.update(each.get(attribute) for attribute in ("alt", "title", "name", "aria-label", "id"))
    return {" ".join(name.split()) for name in names if name}


def links(url, tree):
    base = next((urljoin(url, each.get("href").strip()) for each in tree.iter("base") if each.get("href")), url)
    for element in tree.iter():
        href = element.get(LINKS[element.tag]) if element.tag in LINKS else None
        if href is None:
            continue
        try:
            yield clean(urljoin(base, href.strip(BLANKS).replace("\n", "").replace("\t", ""))), names_of(element)
        except ValueError:
            continue


def find_links(report):
    """By broken address: the pages that link there, each with the names of its first link."""
    found = {clean(page["url"]): {} for page in report["broken"]}
    for page in report["pages"]:
        if page["standing"] != "listed":
            continue
        tree = fetch(page["url"])
        if tree is None:
            print("listed, but broken:", page["url"])
            continue
        for target, names in links(page["url"], tree):
            if target in found:
                found[target].setdefault(clean(page["url"]), names)
    return found


def is_name(name, names):
    name = " ".join(name.split())
    return name in names or len(name.encode()) >= NAME_BYTES - 3 and any(each.startswith(name) for each in names)


def compare(broken, found):
    """What differs for one broken page."""
    told = {clean(link["url"]): link["link"] for link in broken["linkingPages"]}
    if fetch(broken["url"]) is not None:
        yield "answers"
    if broken["linkedFrom"] != len(found):
        yield f"linked from {broken['linkedFrom']}, found {len(found)}"
    for page in told.keys() - found.keys():
        yield f"{page} does not link there"
    if len(found) <= PAGES_KEPT:
        for page in found.keys() - told.keys():
            yield f"{page} links there"
    for page in told.keys() & found.keys():
        if not is_name(told[page], found[page]):
            yield f"{page}: \"{told[page]}\" is none of {sorted(found[page])}"


def main():
    report = json.load(sys.stdin)
    found = find_links(report)
    differences = [f"{page['url']}: {what}" for page in report["broken"]
                   for what in compare(page, found[clean(page["url"])])]
    print("\n".join(differences))
    names = sum(len(page["linkingPages"]) for page in report["broken"])
    print(f"{len(report['pages'])} pages, {len(report['broken'])} broken, {names} links to them, "
          f"{len(differences)} differences")
    return 1 if differences else 0


sys.exit(main())
