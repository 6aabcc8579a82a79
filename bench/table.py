#!/usr/bin/env python3
"""Makes the table of docs/performance.md: from the results of the benchmark programs to Markdown and JSON.

Usage: table.py --native FILE --windows FILE --exe FILE --markdown FILE --json FILE

--native is what Google Benchmark wrote as JSON, --windows the lines of the Windows programs (what, size, unit, ours,
reference, median of the ratios; separated by tabs). Ends with 1 when a line misses its target."""

import argparse
import json
import math
import pathlib
import re
import sys

FRAME = 16.0  # milliseconds in which a keystroke or a command has to be answered
# By how much a line may grow beyond n log n from one size to the next, ten times as large: caches end.
GROWTH_SLACK = 2.0
FILTER = {100_000: FRAME, 1_000_000: 10 * FRAME}  # a keystroke in the picker's filter

# what, the benchmark, its reference (or none), the greatest ratio (or none), milliseconds allowed at a size
NATIVE = [
    ("open a profile", "OpenAProfile", "ReadEveryRule", None, {10_000: FRAME}),
    ("search keystroke", "TypeInSearch", "ReadEveryRule", None, {10_000: FRAME}),
    ("check boxes taken over", "LeaveTheRules", "ReadEveryRule", None, {10_000: FRAME}),
    ("add a rule, editor included", "AddOne", "ReadEveryRule", None, {10_000: FRAME}),
    ("edit a rule, editor included", "EditOne", "ReadEveryRule", None, {10_000: FRAME}),
    ("copy a rule", "CopyTheFirst", "ReadEveryRule", None, {10_000: FRAME}),
    ("delete half of the rules", "DeleteTheSecondHalf", "ReadEveryRule", None, {10_000: FRAME}),
    ("make first", "MoveFromTheMiddle<MakeFirst>", "ReadEveryRule", None, {10_000: FRAME}),
    ("move up", "MoveFromTheMiddle<MoveUp>", "ReadEveryRule", None, {10_000: FRAME}),
    ("move down", "MoveFromTheMiddle<MoveDown>", "ReadEveryRule", None, {10_000: FRAME}),
    ("make last", "MoveFromTheMiddle<MakeLast>", "ReadEveryRule", None, {10_000: FRAME}),
    ("masks to offer", "OfferMasks", "ReadEveryRule", None, {10_000: FRAME}),
    ("import a file, whole command", "ImportFile", "ReadEveryRule", None, {10_000: FRAME}),
    ("export a file, whole command", "ExportFile", "ReadEveryRule", None, {10_000: FRAME}),
    ("load, own share", "LoadRules", "LoadCallsAlone", None, {}),
    ("save, own share", "SaveRules", "SaveCallsAlone", None, {}),
    ("exchange text, import", "ImportText", "ReadFile", None, {}),
    ("exchange text, export", "ExportText", "WriteFile", None, {}),
    ("names added to the picker", "AddCandidates", "AddToUnorderedSet", 2.0, {}),
    ("filter keystroke, nobody found", "FilterKeystroke/rare", None, None, FILTER),
    ("filter keystroke, one letter", "FilterKeystroke/one_letter", None, None, FILTER),
    ("filter keystroke, often begun", "FilterKeystroke/frequent_beginning", None, None, FILTER),
    ("filter keystroke, everybody found", "FilterKeystroke/everywhere", None, None, FILTER),
    ("sort by name", "SortByField/common_name", "SortReadyKeys/common_name", 1.3, {}),
    ("sort by organization", "SortByField/organization", "SortReadyKeys/organization", 1.3, {}),
    ("narrow what LDAP found", "Narrow", None, None, {}),
    ("choose every candidate", "ChooseAll", None, None, {}),
    ("exclude half of the chosen", "ExcludeHalf", None, None, {}),
    ("remove half of the chosen", "RemoveHalf", None, None, {}),
]

# what, the greatest ratio
WINDOWS = {
    "load, beside the same calls bare": 1.10,
    "save, beside the same calls bare": 1.10,
    "record of a save, beside the save": 0.05,
    "load, beside reg export": 1.0,
    "save, beside reg import": 1.0,
    "start to usable window": 1.25,
    "start, beside a like window made bare": 1.25,
    "idle memory": None,
    "memory of imported rules": 3.0,
    "memory of names": 2.5,
    "names from the local store, painted": None,
}
# what, the milliseconds that ours may take beyond the reference
WINDOWS_BEYOND = {"names from the local store, painted": 1000.0}
EXE_KILOBYTES = 900


# The benchmark, the size, and what Google Benchmark adds.
RUN_NAME = re.compile(r"(.+?)/(\d+)(?:/.*)?$")


def native_rows(path):
    times = {}
    for entry in json.loads(pathlib.Path(path).read_text(encoding="utf-8"))["benchmarks"]:
        if entry.get("aggregate_name", "median") != "median" or "real_time" not in entry:
            continue
        name, size = RUN_NAME.match(entry["run_name"]).groups()
        scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0}[entry["time_unit"]]
        times.setdefault(name, {})[int(size)] = entry["cpu_time"] * scale
    for what, ours, reference, ratio_limit, allowed in NATIVE:
        before = None
        for size, time in sorted(times[ours].items()):
            other = times[reference].get(size) if reference else None
            row = {"what": what, "size": f"{size:,}", "unit": "ms", "ours": time, "reference": other,
                   "ratio": time / other if other else None, "targets": []}
            if size in allowed:
                row["targets"].append((f"≤ {allowed[size]:g} ms", time <= allowed[size]))
            if ratio_limit is not None:
                row["targets"].append((f"≤ {ratio_limit:g} ×", row["ratio"] <= ratio_limit))
            if before is not None:
                row["growth"] = time / before[1]
                limit = GROWTH_SLACK * size * math.log(size) / (before[0] * math.log(before[0]))
                row["targets"].append(("n log n", row["growth"] <= limit))
            before = (size, time)
            yield row


def windows_rows(path):
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        what, size, unit, ours, reference, ratio = line.split("\t")
        limit = WINDOWS[what]
        targets = [] if limit is None else [(f"≤ {limit:g} ×", float(ratio) <= limit)]
        if what in WINDOWS_BEYOND:
            beyond = WINDOWS_BEYOND[what]
            targets.append((f"≤ reference + {beyond:g} ms", float(ours) - float(reference) <= beyond))
        yield {"what": what, "size": size, "unit": unit, "ours": float(ours), "reference": float(reference),
               "ratio": float(ratio), "targets": targets}


def exe_row(path):
    kilobytes = pathlib.Path(path).stat().st_size / 1024
    return {"what": "size of the program", "size": "", "unit": "KB", "ours": kilobytes, "reference": None, "ratio": None,
            "targets": [(f"≤ {EXE_KILOBYTES} KB", kilobytes <= EXE_KILOBYTES)]}


def number(value, unit=""):
    return "" if value is None else f"{value:,.3g} {unit}".strip() if value < 1000 else f"{value:,.0f} {unit}".strip()


def markdown(rows):
    yield "| what | size | ours | reference | ratio | growth for ×10 | target | met |"
    yield "|---|---:|---:|---:|---:|---:|---|---|"
    for row in rows:
        met = "" if not row["targets"] else "yes" if all(ok for _, ok in row["targets"]) else "**no**"
        yield (f"| {row['what']} | {row['size']} | {number(row['ours'], row['unit'])} | "
               f"{number(row['reference'], row['unit'])} | {number(row['ratio'])} | {number(row.get('growth'))} | "
               f"{', '.join(text for text, _ in row['targets'])} | {met} |")


def main():
    parser = argparse.ArgumentParser(description=__doc__, formatter_class=argparse.RawDescriptionHelpFormatter)
    for option in ("native", "windows", "exe", "markdown", "json"):
        parser.add_argument(f"--{option}", required=True)
    options = parser.parse_args()
    rows = [*native_rows(options.native), *windows_rows(options.windows), exe_row(options.exe)]
    text = "\n".join(markdown(rows)) + "\n"
    pathlib.Path(options.markdown).write_text(text, encoding="utf-8")
    pathlib.Path(options.json).write_text(json.dumps(rows, indent=1), encoding="utf-8")
    print(text)
    missed = [row for row in rows if not all(ok for _, ok in row["targets"])]
    for row in missed:
        print(f"missed: {row['what']} {row['size']}", file=sys.stderr)
    return 1 if missed else 0


if __name__ == "__main__":
    sys.exit(main())
