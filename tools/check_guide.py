#!/usr/bin/env python3
"""Checks the administrator's guide: it names every text of two words or more that the program shows, every operation
code, and every value that the records keep in the registry; its links and pictures exist, no picture is unused, no text
is taken for a tag, and the drawings are those of their texts."""

import pathlib
import re
import subprocess
import sys

root = pathlib.Path(__file__).resolve().parent.parent
guide = root / "docs" / "guide"

# Seen by nobody in this form, or nothing that has to be explained.
UNSHOWN = {
    "Opened profile", "Number of CS profiles", "TSP server",  # for screen readers
    "CS profile's num: %d", "New group.%s", "ZEMA AC QLD Service - configuration%s Version", "Resign to CS profile: %s",
    "Open profile", "Cryptocontext uninitialization",  # a hidden button, a silent report
    "Talveron LLC", "Client QLD", "All files (*.*)", "(* represents any symbol)",
}
FOLDERS = ["app", "certs", "config", "crypto", "editors", "errors", "settings"]


def literals(text: str):
    for literal in re.findall(r'L"((?:[^"\\]|\\.)*)"', text):
        yield from re.split(r"\\r\\n|\\n", literal)


def shown_texts():
    for folder in FOLDERS:
        for path in sorted((root / folder).rglob("*")):
            if path.suffix not in (".h", ".cpp"):
                continue
            for line in literals(path.read_text(encoding="utf-8")):
                text = line.replace('\\"', '"').replace("\\\\", "\\").strip(" :")
                if re.search(r"[A-Za-z]{2,}[.,]? +\(?[A-Za-z]{2,}", text) and text not in UNSHOWN:
                    yield path.relative_to(root), text


def kept_values():
    source = (root / "config" / "Records.h").read_text(encoding="utf-8")
    return re.findall(r'visit\.\w+\(L"([^"]+)"', source)


def operations():
    """Code and name of each. There are some: a table that has another form must not go unchecked."""
    source = (root / "config" / "Operations.cpp").read_text(encoding="utf-8")
    found = re.findall(r'\.code = L"(\w+)",\s*\.displayName = L"([^"]+)"', source)
    assert found and len(found) == source.count(".code = "), "config/Operations.cpp cannot be read"
    return found


def undrawn_operations():
    rows = "\n".join(path.read_text(encoding="utf-8") for path in sorted(guide.glob("drawings/*.txt")))
    drawn = {name for cell in re.findall(r"-> ([^(\n]+?) *(?:\(|->|$)", rows, re.MULTILINE) for name in cell.split(" + ")}
    for _, name in operations():
        if name not in drawn:
            yield f"in no drawing: the operation {name}"


def anchors(text: str):
    for heading in re.findall(r"^#+ (.+)$", text, re.MULTILINE):
        yield re.sub(r"[^\w\- ]", "", heading.lower()).replace(" ", "-")


def bad_links(pages: dict):
    for name, text in pages.items():
        for target in re.findall(r"\]\(([^)]+)\)", text):
            file, _, anchor = target.partition("#")
            if not (guide / (file or name)).exists():
                yield f"{name}: {target} does not exist"
            elif anchor and anchor not in anchors(pages[file or name]):
                yield f"{name}: {target}: no such heading"


def unused_pictures(whole: str):
    for picture in sorted([*guide.glob("pictures/*.png"), *guide.glob("drawings/*.svg")]):
        name = picture.relative_to(guide).as_posix()
        if name not in whole:
            yield f"{name} is not used"


def swallowed_texts(pages: dict):
    """What a browser takes for a tag and does not show: outside of code spans, all but line breaks."""
    for name, text in pages.items():
        for tag in re.findall(r"<[^>]*>", re.sub(r"`[^`]*`", "", text)):
            if tag != "<br>":
                yield f"{name}: {tag} has to stand in a code span"


def stale_drawings():
    drawn = subprocess.run([sys.executable, guide / "draw", "--check"], capture_output=True, text=True)
    yield from drawn.stdout.splitlines() + drawn.stderr.splitlines()


def main() -> int:
    pages = {path.name: path.read_text(encoding="utf-8") for path in sorted(guide.glob("*.md"))}
    whole = re.sub(r"\s+", " ", "\n".join(pages.values()))
    found = sorted({f"{path}: not in the guide: {text}" for path, text in shown_texts() if text not in whole})
    found += [f"not in the guide: the value {name}" for name in kept_values() if f"`{name}" not in whole]
    found += [f"not in the guide: the operation {code}" for code, _ in operations() if f"| {code} |" not in whole]
    found += list(bad_links(pages)) + list(unused_pictures(whole)) + list(stale_drawings())
    found += list(undrawn_operations()) + list(swallowed_texts(pages))
    print(*found, sep="\n", end="\n" if found else "")
    return 1 if found else 0


sys.exit(main())
