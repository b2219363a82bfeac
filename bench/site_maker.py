"""Websites of any size, the same on every machine: plain HTML pages in folders, linked by relative addresses.

Links never begin with "/": a scan takes such a link to the host's standard port, where nothing is served here.
"""

import hashlib
import os
import random
import shutil
from pathlib import Path

PAGE_BYTES = 7_000
PAGES_IN_FOLDER = 250
FOLDERS_IN_SECTION = 20
SEED = 20

WORDS = """mill wheel stone river flour grain miller sack hoist water sluice gear shaft bread oven crust loaf
market village bridge meadow barn harvest season autumn winter spring summer repair timber oak iron smith rope
ladder window visitor museum archive drawing letter ledger account tax toll owner tenant family daughter
apprentice journey road wagon horse morning evening weather storm flood drought record measure weight bushel
opening hours ticket school group guide tour story photograph exhibition workshop recipe rye wheat barley
oats""".split()


class Site:
    """A site of `pages` pages with `links` links each, below `folder`. Page 0 is the start."""

    def __init__(self, folder, pages, links):
        self.folder = Path(folder)
        self.pages = pages
        self.links = links

    def path(self, page):
        """Where a page lies: of pieces (section, topic, file), the first two empty for the start page."""
        if page == 0:
            return "", "", "index.html"
        topic = page // PAGES_IN_FOLDER
        return f"part-{topic // FOLDERS_IN_SECTION:02}", f"topic-{topic:03}", f"page-{page:06}.html"

    def files(self):
        return ["/".join(filter(None, self.path(page))) for page in range(self.pages)]

    def bytes(self):
        return sum(os.stat(self.folder / name).st_size for name in self.files())

    def make(self):
        """Writes the site unless it is there already, whole and by this version of the maker."""
        version = hashlib.sha256(Path(__file__).read_bytes() + f"{self.pages} {self.links}".encode()).hexdigest()
        mark = self.folder.with_name(self.folder.name + ".made")
        if mark.exists() and mark.read_text() == version:
            return
        shutil.rmtree(self.folder, ignore_errors=True)
        writer = PageWriter(self)
        for page in range(self.pages):
            section, topic, name = self.path(page)
            folder = self.folder / section / topic
            if page == 0 or page % PAGES_IN_FOLDER in (0, 1):
                folder.mkdir(parents=True, exist_ok=True)
            with open(f"{folder}/{name}", "w", encoding="utf-8") as file:
                file.write(writer.markup(page))
        mark.write_text(version)


class PageWriter:
    """Makes the pages' markup. Text comes from a stock of paragraphs: making each anew would take minutes."""

    def __init__(self, site):
        self.site = site
        self.random = random.Random(f"{SEED} {site.pages} {site.links}")
        self.names = [self.words(2, 5) for _ in range(500)]
        self.paragraphs = [self.paragraph() for _ in range(400)]
        self.cells = [f"<td>{self.words(1, 2)}</td><td>{self.random.randrange(1000)}</td>" for _ in range(200)]

    def words(self, least, most):
        return " ".join(self.random.choices(WORDS, k=self.random.randint(least, most)))

    def paragraph(self):
        pieces = [f"{self.words(8, 14)}, <em>{self.words(1, 2)}</em> &amp; {self.words(6, 12)}." for _ in range(2)]
        return f'<p class="text">{" ".join(pieces).capitalize()}</p>\n'

    def targets(self, page):
        """Half of the links are the branches of a tree, so that every page can be reached; the rest lead
        anywhere."""
        branches = self.site.links // 2
        first = page * branches + 1
        tree = list(range(first, min(first + branches, self.site.pages)))
        return tree + [self.random.randrange(self.site.pages) for _ in range(self.site.links - len(tree))]

    def address(self, origin, target):
        section, topic, _ = self.site.path(origin)
        to_section, to_topic, to_name = self.site.path(target)
        if (section, topic) == (to_section, to_topic):
            return to_name
        if section == to_section:
            return f"../{to_topic}/{to_name}"
        way_up = "../../" if section else ""
        return way_up + (f"{to_section}/{to_topic}/{to_name}" if to_section else to_name)

    def markup(self, page):
        title = f"{self.random.choice(self.names)} {page}"
        anchors = [f'<a href="{self.address(page, target)}">{self.random.choice(self.names)}</a>'
                   for target in self.targets(page)]
        navigation = anchors[:len(anchors) // 2]
        rows = "\n".join(f"<tr>{cell}</tr>" for cell in self.random.choices(self.cells, k=8))
        pieces = [
            '<!DOCTYPE html>\n<html lang="en">\n<head>\n<meta charset="utf-8">\n'
            f"<title>{title}</title>\n</head>\n<body>\n<div id=\"page\">\n<h1>{title}</h1>\n"
            '<ul class="navigation">\n' + "".join(f"<li>{anchor}</li>\n" for anchor in navigation) + "</ul>\n",
            "".join(f"<p>{anchor}</p>\n" for anchor in anchors[len(navigation):]),
            f'<table class="figures">\n{rows}\n</table>\n',
        ]
        length = sum(map(len, pieces))
        while length < PAGE_BYTES:
            pieces.append(self.random.choice(self.paragraphs))
            length += len(pieces[-1])
        pieces.append("</div>\n</body>\n</html>\n")
        return "".join(pieces)
