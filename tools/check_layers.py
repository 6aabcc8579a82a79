#!/usr/bin/env python3
"""Checks who includes whom: a folder may use what stands below it, never what stands above it; only folders named win32 see
headers of the system; and only the back ends, in folders named win32 and memory, know the back ends. Prints each offence and
ends with 1 if there is one."""

import pathlib
import re
import sys

# From the ground up. Folders on one floor may not use each other, except that a folder may always use itself.
FLOORS = [
    ["text"],
    ["platform"],
    ["ui"],
    ["errors"],
    ["config"],
    ["crypto"],
    ["certs", "settings"],
    ["editors"],
    ["app"],
]
# What stands outside the house may use all of it.
OUTSIDE = {"tests", "bench", "fuzz", "demo", "tools"}

level = {folder: number for number, floor in enumerate(FLOORS) for folder in floor}


def offences(path: pathlib.PurePosixPath, text: str):
    own = path.parts[0]
    if own in OUTSIDE:
        return
    backend = {"win32", "memory"} & set(path.parts)
    if "win32" not in backend:
        for header in re.findall(r"#include <([^>]+\.h)>", text):  # those of the language have no ending
            yield f"includes <{header}> outside a win32 folder"
    for included in re.findall(r'#include "([^"]+)"', text):
        if not {"win32", "memory"} & set(pathlib.PurePosixPath(included).parts) <= backend:
            yield f"knows a back end: {included}"
        used = pathlib.PurePosixPath(included).parts[0]
        if used not in level:
            yield f"includes {included}, which is not part of the product"
        elif used != own and level[used] >= level[own]:
            yield f"includes upwards: {included}"


def main() -> int:
    root = pathlib.Path(__file__).resolve().parent.parent
    found = 0
    for folder in sorted(set(level) | OUTSIDE):
        for path in sorted((root / folder).rglob("*")):
            if path.suffix in (".h", ".cpp"):
                relative = pathlib.PurePosixPath(path.relative_to(root).as_posix())
                for offence in offences(relative, path.read_text(encoding="utf-8")):
                    print(f"{relative}: {offence}")
                    found += 1
    return 1 if found else 0


sys.exit(main())
