#!/usr/bin/env python3
"""Measures the strength of the tests: changes one small thing in the portable code, builds and runs the native tests,
and looks whether any of them fails. Does so for a random sample of changes and reports the share that was noticed.

Usage: run.py [--count N] [--seed N] [--files REGEX]

Works on a copy of the checkout under build/mutation/, without sanitizers. Changes that do not compile are not counted.
Survivors are written to build/mutation/survivors.txt with file, line and change: each is either a test to be written
or a change that makes no difference."""

import argparse
import os
import pathlib
import random
import re
import shutil
import subprocess
import sys

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent
COPY = ROOT / "build" / "mutation" / "copy"
BUILD = ROOT / "build" / "mutation" / "build"
FOLDERS = ("text", "errors", "config", "crypto", "certs", "editors", "settings", "app", "ui", "platform")
TEST_SECONDS = "60"  # beyond which the tests count as hanging, which is noticed, too

# Each: what is looked for in a line, and what takes its place.
OPERATORS = [
    (r" == ", " != "), (r" != ", " == "), (r" < ", " <= "), (r" <= ", " < "), (r" > ", " >= "), (r" >= ", " > "),
    (r" && ", " || "), (r" \|\| ", " && "), (r"\(!", "("), (r" \+ 1\b", " + 2"), (r" \+ 1\b", ""), (r" - 1\b", ""),
    (r" \+ ", " - "), (r"\+\+", "--"), (r"\btrue\b", "false"), (r"\bfalse\b", "true"), (r"\b0\b", "1"),
    (r"\b([1-9]\d*)\b", lambda m: str(int(m.group(1)) + 1)),
    (r'L"([^"\\]+)"', r'L"\1~"'),
    # Swapped arguments; those of min and max may stand in any order.
    (r"(?<!min)(?<!max)(?<!>)\((\w+), (\w+)\)", r"(\2, \1)"),
    (r"^(\s+)(?!.*\breserve\()[\w.>:-]+\([^;{}]*\);$", r"\1;"),   # dropped call; room can be made later, too
    (r"^(\s+)if \(.*\) (return|continue|break)[^;]*;$", r"\1;"),  # dropped early way out
    (r"\breturn (?!false|nullptr)(\w+);", r"return {};"),
]
NOT_CODE = re.compile(r"^\s*(//|#|using |namespace |\}|static_assert|template|class |struct |public:|private:|"
                      r"(\{[-0-9A-Fx, ]+\},?\s*)+$)")  # the last: tables of code points


def mutations(path):
    """Every change of the file as (line number, the line before, the line after)."""
    for number, line in enumerate(path.read_text(encoding="utf-8").splitlines()):
        if NOT_CODE.match(line):
            continue
        code = line.split("//")[0].rstrip()
        for pattern, replacement in OPERATORS:
            for match in re.finditer(pattern, code):
                new = replacement(match) if callable(replacement) else match.expand(replacement)
                changed = code[: match.start()] + new + code[match.end():]
                if changed != code:
                    yield number, line, changed


def copy_sources():
    if COPY.exists():
        shutil.rmtree(COPY)
    names = subprocess.run(["git", "ls-files", "-z"], cwd=ROOT, capture_output=True, check=True).stdout.decode()
    for name in filter(None, names.split("\0")):
        target = COPY / name
        target.parent.mkdir(parents=True, exist_ok=True)
        shutil.copy(ROOT / name, target)  # as new: a run that was cut short may have left the object of a changed file


def build():
    command = ["cmake", "--build", str(BUILD), "--target", "brisgate_tests"]
    return subprocess.run(command, capture_output=True).returncode == 0


def tests_pass():
    command = ["ctest", "--test-dir", str(BUILD), "--parallel", "2", "--stop-on-failure", "--timeout", TEST_SECONDS]
    few = {**os.environ, "BRISGATE_WALKS": "20", "GTEST_FAIL_FAST": "1"}
    return subprocess.run(command, capture_output=True, env=few).returncode == 0


def verdict(path, number, changed):
    """True: noticed; False: survived; None: does not compile."""
    original = path.read_text(encoding="utf-8")
    lines = original.splitlines()
    lines[number] = changed
    path.write_text("\n".join(lines) + "\n", encoding="utf-8")
    try:
        if not build():
            return None
        return not tests_pass()
    finally:
        path.write_text(original, encoding="utf-8")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--count", type=int, default=300, help="changes to be tried")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--files", default="", help="only files whose path matches")
    options = parser.parse_args()

    copy_sources()
    subprocess.run(["cmake", "-S", str(COPY), "-B", str(BUILD), "-G", "Ninja", "-DCMAKE_BUILD_TYPE=Debug",
                    "-DCMAKE_CXX_FLAGS=-O1 -w -Wno-error", "-DCMAKE_CXX_FLAGS_DEBUG="],
                   check=True, stdout=subprocess.DEVNULL)
    if not build() or not tests_pass():
        sys.exit("the unchanged tests do not pass")
    files = [path for folder in FOLDERS for path in sorted((COPY / folder).glob("*.cpp"))
             if re.search(options.files, str(path.relative_to(COPY)))]
    candidates = [(path, *mutation) for path in files for mutation in mutations(path)]
    random.Random(options.seed).shuffle(candidates)

    noticed = survived = 0
    survivors = (ROOT / "build" / "mutation" / "survivors.txt").open("w", encoding="utf-8")
    for path, number, before, changed in candidates:
        if noticed + survived == options.count:
            break
        result = verdict(path, number, changed)
        if result is None:
            continue
        noticed += result
        survived += not result
        if not result:
            text = f"{path.relative_to(COPY)}:{number + 1}\n  - {before.strip()}\n  + {changed.strip()}\n"
            survivors.write(text)
            survivors.flush()
            print(text, end="", flush=True)
        if (noticed + survived) % 20 == 0:
            print(f"{noticed + survived} tried, {noticed} noticed", flush=True)
    total = noticed + survived
    share = 100 * noticed / max(1, total)
    print(f"{noticed} of {total} changes noticed ({share:.1f} %), out of {len(candidates)} possible")


if __name__ == "__main__":
    main()
