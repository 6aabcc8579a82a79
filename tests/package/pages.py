#!/usr/bin/env python3
"""Walks through the pages of the packed guide: every link, anchor and picture is there, and nothing comes from elsewhere.

Usage: tests/package/pages.py FOLDER
"""

import html.parser
import pathlib
import sys
import urllib.parse

NEEDS_END = {"a", "body", "code", "div", "footer", "h1", "h2", "h3", "html", "li", "main", "nav", "ol", "p", "pre", "table",
             "td", "th", "tr", "ul"}
LOADED = {("img", "src"), ("link", "href"), ("script", "src"), ("iframe", "src")}


class Page(html.parser.HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.ids, self.links, self.loaded, self.open, self.wrong, self.tables = [], [], [], [], [], 0
        self.has_words = False
        self.feed(text)
        self.wrong += [f"<{tag}> is not closed" for tag in self.open]

    def handle_starttag(self, tag, attrs):
        values = dict(attrs)
        if "id" in values:
            self.ids.append(values["id"])
        for (name, attribute) in LOADED:
            if tag == name and attribute in values:
                self.loaded.append(values[attribute])
        if tag == "a":
            self.links.append(values.get("href", ""))
        if tag == "img" and not values.get("alt"):
            self.wrong.append(f"{values.get('src')} has no text for those who do not see it")
        if tag in NEEDS_END:
            self.open.append(tag)
        self.tables += tag == "table"

    def handle_endtag(self, tag):
        if tag in NEEDS_END:
            if not self.open or self.open.pop() != tag:
                self.wrong.append(f"</{tag}> closes something else")

    def handle_data(self, data):
        self.has_words = self.has_words or len(data.split()) > 10


def complaints(folder):
    pages = {path.name: Page(path.read_text("utf-8")) for path in sorted(folder.glob("*.html"))}
    if "index.html" not in pages:
        yield "there is no index.html"
    used = set()
    for name, page in pages.items():
        yield from (f"{name}: {text}" for text in page.wrong)
        if not page.has_words:
            yield f"{name}: no text"
        if len(set(page.ids)) != len(page.ids):
            yield f"{name}: two headings with one anchor"
        for target in page.loaded + page.links:
            address = urllib.parse.urlsplit(target)
            if address.scheme or address.netloc:
                if target in page.loaded:
                    yield f"{name}: loads {target}"
                continue
            file = urllib.parse.unquote(address.path) or name
            used.add(file)
            if not (folder / file).is_file():
                yield f"{name}: {target} does not exist"
            elif address.fragment and urllib.parse.unquote(address.fragment) not in pages[file].ids:
                yield f"{name}: {target}: no such heading"
    files = {path.relative_to(folder).as_posix() for path in folder.rglob("*") if path.is_file()}
    yield from (f"{file} is reached from nowhere" for file in sorted(files - used))
    yield from (f"{path.name}: a chapter without a page" for path in sorted(pathlib.Path("docs/guide").glob("*.md"))
                if path.name != "README.md" and path.stem + ".html" not in pages)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    found = list(complaints(pathlib.Path(sys.argv[1])))
    for text in found:
        print(f"FAILED: {text}", file=sys.stderr)
    sys.exit(1 if found else 0)


main()
