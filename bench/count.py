#!/usr/bin/env python3
"""Counts what programs ask of the system: unlike times, counts are the same in each run. Prints lines for bench/table.py.
To be run where Wine finds its prefix and a display.

Usage: count.py start PROGRAM REFERENCE BACKGROUND
       count.py registry PROGRAM RULES

start: from the first call of a program to the moment when it waits for its user, the requests of Wine's server, calls of
the registry, windows, messages, pictures, fonts and themes, and repaints. BACKGROUND is a program that is started before
and stays, so that what Wine does once for all programs is not counted.

registry: the calls of the registry that PROGRAM, which is brisgate_load_save.exe, makes to load and to save so many
rules, beside those of the system's own tool for the same tree."""

import os
import pathlib
import re
import subprocess
import sys
import tempfile
import time

QUIET = 1.5     # seconds without a new line: the program waits
PATIENCE = 120  # seconds until it has to

REQUEST = re.compile(r"^(\w{4}): (\w+)\((?!\) =)", re.MULTILINE)
# The program's own module is loaded at its preferred address; the system's are elsewhere.
OWN = r"ret=14[0-9a-f]{7}$"

# what, the calls, whether only the program's own are meant and not those that they bring about in the system
CALLS = [
    ("calls of the registry", r"advapi32\.Reg\w+", True),
    ("messages to windows", r"user32\.Send(DlgItem)?MessageW", True),
    ("pictures decoded", r"user32\.LoadImageW", True),
    ("fonts made and themes looked up", r"(gdi32\.CreateFont\w*|uxtheme\.OpenThemeData\w*)", False),
    ("repaints", r"user32\.BeginPaint", False),
]


def wait_until_quiet(log, longer_than):
    """Returns the log's length once something was added to it and nothing more is."""
    end = time.monotonic() + PATIENCE
    size, since = log.stat().st_size, time.monotonic()
    while time.monotonic() < end:
        time.sleep(0.1)
        if log.stat().st_size != size:
            size, since = log.stat().st_size, time.monotonic()
        elif size > longer_than and time.monotonic() - since > QUIET:
            return size
    raise RuntimeError("a program does not come to rest")


def end_all():
    subprocess.run(["wineserver", "-k"], check=False)
    subprocess.run(["wineserver", "-w"], check=False)


def start(program, log, **environment):
    return subprocess.Popen(["wine", program], stderr=log, stdout=subprocess.DEVNULL,
                            env={**os.environ, **environment})


def requests(program, background, folder):
    """How often the program's thread asks the server, by the name of the request."""
    end_all()
    path = folder / "server"
    with path.open("w") as log:
        server = subprocess.Popen(["wineserver", "-f", "-d1"], stderr=log)
        time.sleep(0.5)
        others = start(background, subprocess.DEVNULL)
        before = wait_until_quiet(path, 0)
        counted = start(program, subprocess.DEVNULL)
        wait_until_quiet(path, before)
        end_all()
        for process in (server, others, counted):
            process.wait()
    threads = {}
    for thread, name in REQUEST.findall(path.read_bytes()[before:].decode(errors="replace")):
        names = threads.setdefault(thread, {})
        names[name] = names.get(name, 0) + 1
    return max(threads.values(), key=lambda names: sum(names.values()))


def calls(program, background, folder):
    """The lines of the program's thread in a trace of all calls."""
    end_all()
    others = start(background, subprocess.DEVNULL)
    path = folder / "calls"
    with path.open("w") as log:
        counted = start(program, log, WINEDEBUG="+relay")
        wait_until_quiet(path, 0)
        end_all()
        for process in (others, counted):
            process.wait()
    text = path.read_bytes().decode(errors="replace")
    opener = re.search(r"^(\w{4}):Call user32\.DialogBoxIndirectParamW\(.*" + OWN, text, re.MULTILINE)
    return "\n".join(re.findall(rf"^{opener.group(1)}:Call .*$", text, re.MULTILINE))


def registry_calls(*command):
    """How many calls of the registry a program makes until it ends."""
    traced = subprocess.run(["wine", *command], env={**os.environ, "WINEDEBUG": "+relay"}, stdout=subprocess.DEVNULL,
                            stderr=subprocess.PIPE, check=True)
    return len(re.findall(rb"^\w{4}:Call advapi32\.Reg\w+\(.*ret=14[0-9a-f]{7}\r?$", traced.stderr, re.MULTILINE))


def count_registry(program, rules):
    tree, file = r"HKLM\SOFTWARE\TALVERON\morcelservice", "brisgate_count.reg"
    clear = ["wine", "reg", "delete", tree, "/f"]
    subprocess.run(clear, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL, check=False)
    subprocess.run(["wine", program, "save", rules], check=True)
    loading = registry_calls(program, "load")
    exporting = registry_calls("reg", "export", tree, file, "/y")
    subprocess.run(clear, stdout=subprocess.DEVNULL, check=True)
    saving = registry_calls(program, "save", rules)
    subprocess.run(clear, stdout=subprocess.DEVNULL, check=True)
    importing = registry_calls("reg", "import", file)
    pathlib.Path(file).unlink()
    for what, ours, others in (("load, beside reg export", loading, exporting),
                               ("save, beside reg import", saving, importing)):
        print(f"calls of the registry: {what}", f"{rules} rules", "", ours, others, f"{ours / others:.4g}", sep="\t",
              flush=True)


def counts(program, background):
    with tempfile.TemporaryDirectory() as folder:
        asked = requests(program, background, pathlib.Path(folder))
        lines = calls(program, background, pathlib.Path(folder))
    found = {"requests of Wine's server": sum(asked.values()), "windows": asked["create_window"]}
    for what, pattern, own in CALLS:
        found[what] = len(re.findall(rf":Call {pattern}\(.*{OWN if own else ''}", lines, re.MULTILINE))
    return found


def count_start(program, reference, background):
    ours, others = counts(program, background), counts(reference, background)
    for what, count in ours.items():
        print(f"start: {what}", "demo", "", count, others[what], f"{count / others[what]:.4g}", sep="\t", flush=True)


def main():
    {"start": count_start, "registry": count_registry}[sys.argv[1]](*sys.argv[2:])


if __name__ == "__main__":
    main()
