#!/usr/bin/python3
"""Prints every page of a site on loopback that somebody with a browser reaches, one address a line.

bench/reachable.py http://127.0.0.1:8000/docs/index.html | sort > reachable

An independent check of what a scan with "--links browser" finds: another reader of HTML (python3-html5lib), another
library for addresses, and rules of its own. Compare with the addresses in the site's sitemap.xml.
"""

import sys
import urllib.error
import urllib.request
from collections import deque
from urllib.parse import quote, urldefrag, urljoin, urlsplit, urlunsplit

import html5lib

TIMEOUT = 20  # seconds
PAGE_TYPES = ("text/html", "application/xhtml+xml")
LINKS = {"a": "href", "area": "href", "frame": "src", "iframe": "src"}


def fetch(url):
    """The address that answered, and its page as a tree; None for what is no page."""
    try:
        with urllib.request.urlopen(url, timeout=TIMEOUT) as answer:
            if answer.headers.get_content_type() not in PAGE_TYPES:
                return None
            told = answer.headers.get_content_charset()
            options = {"transport_encoding": told} if told else {}
            return clean(answer.geturl()), html5lib.parse(answer.read(), namespaceHTMLElements=False, **options)
    except (urllib.error.URLError, OSError, ValueError):
        return None


def clean(url):
    """Without fragment and dot segments, and percent-encoded."""
    parts = urlsplit(urldefrag(url)[0])
    path = quote(parts.path or "/", safe="/%:@!$&'()*+,;=-._~")
    kept = []
    for segment in path.split("/"):
        name = segment.replace("%2E", ".").replace("%2e", ".")
        if name == ".." and len(kept) > 1:
            kept.pop()
        elif name not in (".", ".."):
            kept.append(segment)
    if path.endswith(("/.", "/..")):
        kept.append("")
    query = quote(parts.query, safe="/%:@!$&'()*+,;=-._~?")
    return urlunsplit((parts.scheme, parts.netloc.lower(), "/".join(kept) or "/", query, ""))


def links(url, tree):
    base = next((urljoin(url, each.get("href").strip()) for each in tree.iter("base") if each.get("href")), url)
    for element in tree.iter():
        href = element.get(LINKS[element.tag]) if element.tag in LINKS else None
        if href is None:
            continue
        try:
            yield clean(urljoin(base, href.strip(" \t\r\n\f").replace("\n", "").replace("\t", "")))
        except ValueError:
            continue


def reachable(start):
    start = clean(start)
    folder = start[:start.rindex("/") + 1]
    queue, known = deque([start]), {start}
    while queue:
        url = queue.popleft()
        page = fetch(url)
        if page is None or not page[0].startswith(folder):
            continue
        end, tree = page
        # A redirect leads to a page that has its own turn.
        found = links(url, tree) if end == url else [end]
        if end == url:
            yield url
        for link in found:
            if link.startswith(folder) and link not in known:
                known.add(link)
                queue.append(link)


for address in reachable(sys.argv[1]):
    print(address)
