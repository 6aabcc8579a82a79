#!/usr/bin/env python3
"""Measures the strength of the tests: changes one small thing in the product, builds it, and looks whether any test
fails, those of the changed folder first. Does so for a random sample of changes and reports the share that was noticed.

Usage: run.py [--windows] [--count N] [--from N] [--seed N] [--files REGEX]

Without --windows the portable code is changed and the native tests are run, without sanitizers. With it the back ends
for Windows are changed and the tests are run on real windows under Wine, those of the released program last.

A sample that takes too long for one run is tried in pieces: --from goes on after so many changes of the same seed and
the same sources.

Works on copies of the checkout under build/mutation/, where what was built stays for the next time. Changes that do not
compile are not counted. Survivors are written to build/mutation/survivors.txt (survivors-windows.txt) with file, line
and change: each is either a test to be written or a change that makes no difference. noticed.txt (noticed-windows.txt)
has a line for each change that was noticed: its place, the seconds it took, the tests that failed first, and the line
as it was changed to."""

import argparse
import pathlib
import random
import re
import signal
import sys
import time

from changes import changes_of
from targets import Native, Windows

ROOT = pathlib.Path(__file__).resolve().parent.parent.parent


def failures(target, change):
    """The tests that notice the change, if any; None: it does not compile."""
    original = change.write_into(target.copy)
    try:
        return target.failures(change.path) if target.builds(change.path) else None
    finally:
        (target.copy / change.path).write_text(original, encoding="utf-8")


class Records:
    """What became of the changes, in files and on the screen."""

    def __init__(self, suffix):
        folder = ROOT / "build" / "mutation"
        self._noticed = (folder / f"noticed{suffix}.txt").open("w", encoding="utf-8")
        self._survivors = (folder / f"survivors{suffix}.txt").open("w", encoding="utf-8")
        self.noticed = self.survived = 0

    def total(self):
        return self.noticed + self.survived

    def add(self, change, failed, seconds):
        if failed:
            self.noticed += 1
            place = f"{change.path}:{change.number + 1}"
            print(place, f"{seconds:.1f} s", ", ".join(failed), change.after.strip(), sep="\t", file=self._noticed,
                  flush=True)
        else:
            self.survived += 1
            print(change, end="", file=self._survivors, flush=True)
            print(change, end="", flush=True)
        if self.total() % 20 == 0:
            print(f"{self.total()} tried, {self.noticed} noticed", flush=True)


def pass_unchanged(target):
    failed = target.all_failures() if target.build("brisgate_tests") else ["(they cannot be built)"]
    if failed:
        print(f"the unchanged tests do not pass: {', '.join(failed)}", file=sys.stderr)
    return not failed


def measure(target, options):
    if not pass_unchanged(target):
        return False
    candidates = [change for path in target.files() if re.search(options.files, str(path))
                  for change in changes_of(target.copy, path)]
    random.Random(options.seed).shuffle(candidates)
    records = Records(target.records)
    started = time.monotonic()
    for change in candidates[options.first:]:
        if records.total() == options.count:
            break
        options.first += 1
        began = time.monotonic()
        failed = failures(target, change)
        if failed is not None:
            records.add(change, failed, time.monotonic() - began)
    minutes = (time.monotonic() - started) / 60
    share = 100 * records.noticed / max(1, records.total())
    print(f"{records.noticed} of {records.total()} changes noticed ({share:.1f} %), out of {len(candidates)} possible,"
          f" in {minutes:.1f} minutes; the next is --from {options.first}")
    return pass_unchanged(target)  # else a change has left something that others were noticed by


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    parser.add_argument("--windows", action="store_true", help="change the back ends for Windows, test under Wine")
    parser.add_argument("--count", type=int, default=300, help="changes to be tried")
    parser.add_argument("--from", dest="first", type=int, default=0, help="as the run before this one has said")
    parser.add_argument("--seed", type=int, default=1)
    parser.add_argument("--files", default="", help="only files whose path matches")
    options = parser.parse_args()
    signal.signal(signal.SIGTERM, lambda *_: sys.exit(1))  # ends what runs for it, too
    target = (Windows if options.windows else Native)(ROOT)
    try:
        passed = measure(target, options)
    finally:
        target.close()
    sys.exit(0 if passed else 1)


if __name__ == "__main__":
    main()
