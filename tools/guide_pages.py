#!/usr/bin/env python3
"""Turns the administrator's guide into pages that any browser shows, without a network.

Usage: tools/guide_pages.py FOLDER

README.md becomes index.html, every other chapter a page of its own name; the pictures and drawings go with them. The order
of the chapters is that of the contents on the first page. Headings have the anchors that the links in the guide name.
"""

import html
import pathlib
import re
import shutil
import subprocess
import sys

GUIDE = pathlib.Path(__file__).resolve().parent.parent / "docs" / "guide"
TITLE = "Administrator's guide"

PAGE = """<!DOCTYPE html>
<html lang="en">
<head>
<meta charset="utf-8">
<meta name="viewport" content="width=device-width, initial-scale=1">
<meta name="color-scheme" content="light dark">
<title>{title}</title>
<link rel="stylesheet" href="guide.css">
</head>
<body>
<nav aria-label="Chapters">
<ol>
{chapters}
</ol>
</nav>
<main>
{text}
<footer>{neighbours}</footer>
</main>
</body>
</html>
"""


def page_name(chapter):
    return "index.html" if chapter == "README.md" else chapter.removesuffix(".md") + ".html"


def chapters():
    """The file and the title of every chapter, in the order of the contents."""
    contents = re.search(r"^## Contents\n(.*?)^## ", (GUIDE / "README.md").read_text("utf-8"), re.DOTALL | re.MULTILINE)
    found = re.findall(r"^\d+\. \[([^\]]+)\]\(([\w-]+\.md)\)", contents.group(1), re.MULTILINE)
    listed = [("README.md", TITLE)] + [(file, title) for title, file in found]
    missing = {path.name for path in GUIDE.glob("*.md")} - {file for file, _ in listed}
    if missing:
        sys.exit(f"not in the contents of the guide: {', '.join(sorted(missing))}")
    return listed


def anchor(heading):
    """As tools/check_guide.py makes it of the same heading."""
    text = html.unescape(re.sub(r"<[^>]+>", "", heading))
    return re.sub(r"[^\w\- ]", "", text.lower()).replace(" ", "-")


def with_anchors(text):
    return re.sub(r"<h([1-6])>(.*?)</h\1>",
                  lambda found: f'<h{found[1]} id="{html.escape(anchor(found[2]))}">{found[2]}</h{found[1]}>', text)


def with_pages(text):
    """Links to chapters become links to their pages."""
    return re.sub(r'href="([\w-]+\.md)(#[^"]*)?"', lambda found: f'href="{page_name(found[1])}{found[2] or ""}"', text)


def with_breaks(text):
    """Paths and keys within a sentence or a table may break after a name and its backslash; names themselves do not."""
    return re.sub(r"(?<!<pre>)<code>([^<]*)</code>", lambda found: re.sub(r"(?<=\w)\\", r"\g<0><wbr>", found[0]), text)


def converted(path):
    command = ["cmark-gfm", "--unsafe", "--extension", "table", "--to", "html", str(path)]
    text = subprocess.run(command, check=True, capture_output=True).stdout.decode("utf-8")
    tables = re.sub(r"<table>(.*?)</table>", r'<div class="table"><table>\1</table></div>', text, flags=re.DOTALL)
    return with_breaks(with_pages(with_anchors(tables)))


def neighbours(listed, place):
    links = []
    if place > 0:
        links.append(f'<a rel="prev" href="{page_name(listed[place - 1][0])}">\u2190 {listed[place - 1][1]}</a>')
    if place + 1 < len(listed):
        links.append(f'<a rel="next" href="{page_name(listed[place + 1][0])}">{listed[place + 1][1]} \u2192</a>')
    return "\n".join(links)


def chapter_links(listed, current):
    return "\n".join(f'<li><a href="{page_name(file)}"{" aria-current=" + chr(34) + "page" + chr(34) if file == current else ""}>'
                     f"{html.escape(title, quote=False)}</a></li>" for file, title in listed)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    listed = chapters()
    for place, (file, title) in enumerate(listed):
        full_title = TITLE if place == 0 else f"{title} \u2013 {TITLE}"
        page = PAGE.format(title=html.escape(full_title, quote=False), chapters=chapter_links(listed, file),
                           text=converted(GUIDE / file), neighbours=neighbours(listed, place))
        (folder / page_name(file)).write_text(page, encoding="utf-8")
    shutil.copy(GUIDE / "guide.css", folder)
    for pictures in ("pictures", "drawings"):
        if (GUIDE / pictures).is_dir():
            shutil.copytree(GUIDE / pictures, folder / pictures, ignore=shutil.ignore_patterns("*.txt"))


main()
