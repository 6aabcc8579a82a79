#!/usr/bin/env python3
"""Collects the complete texts of the licences of what the program contains of others.

Usage: tools/collect_licenses.py FOLDER

They come from where Debian's packages of the compiler keep them, so that they are those of the compiler that is used:
whole licences, and of the copyright file of MinGW-w64 the parts about what is linked. What is not found there ends this.
"""

import pathlib
import re
import sys

GCC = pathlib.Path("/usr/share/doc/gcc-mingw-w64-base/copyright")
MINGW = pathlib.Path("/usr/share/doc/mingw-w64-x86-64-dev/copyright")
GPL = pathlib.Path("/usr/share/common-licenses/GPL-3")


def between(path, first, last):
    """The lines from one that is first to one that ends with last."""
    found = re.search(rf"^{re.escape(first)}$.*?{re.escape(last)}$", path.read_text("utf-8"), re.DOTALL | re.MULTILINE)
    if not found:
        sys.exit(f"{path}: there is nothing from '{first}' to '{last}'")
    return found.group() + "\n"


def stanza(beginning):
    """One paragraph of the copyright file, in the form that people read: no dots for empty lines, no indent."""
    for paragraph in re.split(r"\n\n+", MINGW.read_text("utf-8")):
        if re.match(rf"{beginning}(\s|$)", paragraph):
            return "\n".join("" if line == " ." else re.sub(r"^ ", "", line) for line in paragraph.split("\n")) + "\n"
    sys.exit(f"{MINGW}: there is no '{beginning}'")


def texts():
    yield "gpl-3.0.txt", GPL.read_text("utf-8")
    yield "gcc-exception-3.1.txt", between(GCC, "GCC RUNTIME LIBRARY EXCEPTION", "requirements of the license of GCC.")
    runtime = [stanza(r"Files: \*"), stanza("Files: mingw-w64-crt/crt/\\*"), stanza("License: public-domain")]
    yield "mingw-w64.txt", "\n".join(runtime)
    threads = [stanza(rf"Files: mingw-w64-libraries/winpthreads/{part}")
               for part in (r"\*", r"include/pthread\.h", r"src/clock\.c")]
    yield "winpthreads.txt", "\n".join([*threads, stanza("License: expat"), stanza("License: public-domain")])


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1])
    folder.mkdir(parents=True, exist_ok=True)
    for name, text in texts():
        (folder / name).write_text(text, encoding="utf-8")


main()
