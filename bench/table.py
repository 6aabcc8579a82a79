#!/usr/bin/env python3
"""Makes the table of docs/performance.md: from the results of the benchmark programs to Markdown and JSON.

Usage: table.py --native FILE... --windows FILE --exe FILE --counter PROGRAM --markdown FILE --json FILE

--native is what Google Benchmark wrote as JSON, --windows the lines of the Windows programs (what, size, unit, ours,
reference, median of the ratios; separated by tabs). Where the time of a line grows faster than it may, which the end of a
cache can bring about, --counter, the native benchmark program, is run under callgrind: then it is the instructions that
count. It also measures anew what comes close to a limit. Ends with 1 when a line misses its target."""

import argparse
import concurrent.futures
import functools
import itertools
import json
import math
import os
import pathlib
import re
import subprocess
import sys
import tempfile

FRAME = 16.0  # milliseconds in which a keystroke or a command has to be answered
# By how much a line may grow beyond n log n from one size to the next, ten times as large: caches end.
GROWTH_SLACK = 2.0
# A line is measured once, and three times more if it came so close to a limit or went beyond it. How it grows is told by
# its instructions where its time does not say so.
CLOSE = 0.8
FILTER = {100_000: FRAME, 1_000_000: 10 * FRAME}  # a keystroke in the picker's filter
COMMAND = {10_000: FRAME, 100_000: 10 * FRAME}
# How many times as long something may take that has nothing to do with the number of rules.
CONSTANT = 2.0

# what, the benchmark, its reference (or none), the greatest ratio (or none), milliseconds allowed at a size
NATIVE = [
    ("open a profile", "OpenAProfile", "ReadEveryRule", None, COMMAND),
    ("search keystroke", "TypeInSearch", "ReadEveryRule", None, COMMAND),
    ("check boxes taken over", "LeaveTheRules", "ReadEveryRule", None, COMMAND),
    ("add a rule, editor included", "AddOne", "ReadEveryRule", None, COMMAND),
    ("edit a rule, editor included", "EditOne", "ReadEveryRule", None, COMMAND),
    ("copy a rule", "CopyTheFirst", "ReadEveryRule", None, COMMAND),
    ("delete half of the rules", "DeleteTheSecondHalf", "ReadEveryRule", None, COMMAND),
    ("make first", "MoveFromTheMiddle<MakeFirst>", "ReadEveryRule", None, COMMAND),
    ("move up", "MoveFromTheMiddle<MoveUp>", "ReadEveryRule", None, COMMAND),
    ("move down", "MoveFromTheMiddle<MoveDown>", "ReadEveryRule", None, COMMAND),
    ("make last", "MoveFromTheMiddle<MakeLast>", "ReadEveryRule", None, COMMAND),
    ("masks to offer", "OfferMasks", "ReadEveryRule", None, COMMAND),
    ("import a file, whole command", "ImportFile", "ReadEveryRule", None, COMMAND),
    ("export a file, whole command", "ExportFile", "ReadEveryRule", None, COMMAND),
    ("open the rule editor", "OpenTheEditor", None, None, COMMAND),
    ("edit the profile", "EditOpenedProfile", "ReadEveryRule", None, COMMAND),
    ("open the last profile", "OpenLastProfile", None, None, {1000: FRAME}),
    ("add a profile", "AddAProfile", None, None, {1000: FRAME}),
    ("edit the last profile", "EditLastProfile", None, None, {1000: FRAME}),
    ("delete a profile", "DeleteAProfile", None, None, {1000: FRAME}),
    ("load from the in-memory registry", "LoadRules", "LoadCallsAlone", None, {}),
    ("load, own share", "LoadOwnShare", None, None, {5000: 24.0}),
    ("save into the in-memory registry", "SaveRules", "SaveCallsAlone", None, {}),
    ("save, own share", "SaveOwnShare", None, None, {5000: 25.0}),
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
    "one bare call of loading": None,
    "one bare call of saving": None,
    "load, were a call to take 6 us": 1.05,
    "save, were a call to take 6 us": 1.05,
    "load, beside reg export": None,
    "save, beside reg import": None,
    "calls of the registry: load, beside reg export": None,
    "calls of the registry: save, beside reg import": None,
    "start to usable window": None,
    "start, beside a like window made bare": 1.15,
    "start: requests of Wine's server": 1.10,
    "start: windows": None,
    "start: calls of the registry": None,
    "start: messages to windows": None,
    "start: pictures decoded": None,
    "start: fonts made and themes looked up": None,
    "start: repaints": None,
    "idle memory": None,
    "click into a list": 1.1,
    "memory of imported rules": 2.2,
    "memory of names": 2.5,
    "names from the local store, painted": None,
}
# what, the milliseconds that ours may take beyond the reference
WINDOWS_BEYOND = {"names from the local store, painted": 1000.0}
# The time of one call beside the system's own tool, which makes other calls: both are counted.
PER_CALL = {f"{what}, per call": (what, f"calls of the registry: {what}")
            for what in ("load, beside reg export", "save, beside reg import")}
EXE_KILOBYTES = 900


# The benchmark, the size, and what Google Benchmark adds.
RUN_NAME = re.compile(r"(.+?)/(\d+)(?:/.*)?$")


def instructions(counter, benchmark, size):
    """How many a round of the benchmark takes."""
    with tempfile.TemporaryDirectory() as folder:
        counted, results = pathlib.Path(folder, "counted"), pathlib.Path(folder, "results")
        subprocess.run(["valgrind", "--tool=callgrind", "--collect-atstart=no", f"--callgrind-out-file={counted}", counter,
                        f"--benchmark_filter=^{re.escape(benchmark)}/{size}(/|$)", "--benchmark_min_time=0",
                        f"--benchmark_out={results}", "--benchmark_out_format=json"],
                       check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        rounds = json.loads(results.read_text(encoding="utf-8"))["benchmarks"][0]["iterations"]
        total = re.search(r"^summary: (\d+)", counted.read_text(encoding="utf-8"), re.MULTILINE)
        return int(total.group(1)) / rounds


@functools.cache
def growth_of_instructions(counter, benchmark, small, large):
    return instructions(counter, benchmark, large) / instructions(counter, benchmark, small)


def growth_of(counter, benchmark, times, before, size):
    """How many times as much the larger size takes, whether that is too much, and what it was told by. Under callgrind
    everything takes fifty times as long, so the line's two smallest sizes, ten times one another as well, stand for all."""
    growth = times[size] / times[before]
    if growth <= growth_limit(before, size):
        return growth, True, "n log n"
    small, large = sorted(times)[:2]
    growth = growth_of_instructions(counter, benchmark, small, large)
    return growth, growth <= growth_limit(small, large), f"n log n, instructions of {large:,}"


def times_of(*paths):
    """The time of each benchmark at each size, in milliseconds: the median where it was repeated."""
    times = {}
    entries = [entry for path in paths for entry in json.loads(pathlib.Path(path).read_text(encoding="utf-8"))["benchmarks"]]
    for entry in entries:
        if entry.get("aggregate_name", "median") != "median" or "real_time" not in entry:
            continue
        name, size = RUN_NAME.match(entry["run_name"]).groups()
        scale = {"ns": 1e-6, "us": 1e-3, "ms": 1.0}[entry["time_unit"]]
        times.setdefault(name, {})[int(size)] = entry["cpu_time"] * scale
    return times


def growth_limit(before, size):
    return GROWTH_SLACK * size * math.log(size) / (before * math.log(before))


def count_ahead(counter, times):
    """Counts what growth_of will want to know, on all processors."""
    wanted = [(ours, *sorted(times[ours])[:2]) for _, ours, *_ in NATIVE if ours != "OpenTheEditor" and any(
        times[ours][large] / times[ours][small] > growth_limit(small, large)
        for small, large in itertools.pairwise(sorted(times[ours])))]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(lambda line: growth_of_instructions(counter, *line), wanted))


def close_to_a_limit(times):
    """The benchmarks of which a single measurement does not say whether they meet their limits."""
    found = set()
    for _, ours, reference, ratio_limit, allowed in NATIVE:
        for size, time in times[ours].items():
            if time > CLOSE * allowed.get(size, math.inf):
                found.add((ours, size))
            if ratio_limit is not None and time / times[reference][size] > CLOSE * ratio_limit:
                found.update({(ours, size), (reference, size)})
    return found


def measure_again(benchmarks, counter, times):
    names = "|".join(f"^{re.escape(name)}/{size}(/|$)" for name, size in sorted(benchmarks))
    with tempfile.TemporaryDirectory() as folder:
        results = pathlib.Path(folder, "results")
        subprocess.run([counter, f"--benchmark_filter={names}", "--benchmark_repetitions=3",
                        "--benchmark_min_time=0.1",
                        "--benchmark_report_aggregates_only=true", f"--benchmark_out={results}",
                        "--benchmark_out_format=json"], check=True, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        for name, sizes in times_of(results).items():
            times[name].update(sizes)


def native_rows(paths, counter):
    times = times_of(*paths)
    again = close_to_a_limit(times)
    if again:
        measure_again(again, counter, times)
    count_ahead(counter, times)
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
            if before is not None and ours == "OpenTheEditor":
                row["growth"] = time / times[ours][before]
                row["targets"].append((f"≤ {CONSTANT:g} for ×10", row["growth"] <= CONSTANT))
            elif before is not None:
                row["growth"], within, by_what = growth_of(counter, ours, times[ours], before, size)
                row["targets"].append((by_what, within))
            before = size
            yield row


def windows_row(what, size, unit, ours, reference, ratio, limit):
    targets = [] if limit is None else [(f"≤ {limit:g} ×", ratio <= limit)]
    if what in WINDOWS_BEYOND:
        beyond = WINDOWS_BEYOND[what]
        targets.append((f"≤ reference + {beyond:g} ms", ours - reference <= beyond))
    return {"what": what, "size": size, "unit": unit, "ours": ours, "reference": reference, "ratio": ratio,
            "targets": targets}


def windows_rows(path):
    rows = []
    for line in pathlib.Path(path).read_text(encoding="utf-8").splitlines():
        what, size, unit, *figures = line.split("\t")
        ours, reference, ratio = (float(figure) if figure else None for figure in figures)
        rows.append(windows_row(what, size, unit, ours, reference, ratio, WINDOWS[what]))
    yield from rows
    for what, (timed, counted) in PER_CALL.items():
        ours_per_theirs = next(row["ratio"] for row in rows if row["what"] == counted)
        for row in rows:
            if row["what"] == timed:
                yield windows_row(what, row["size"], "", None, None, row["ratio"] / ours_per_theirs, 1.0)


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
    parser.add_argument("--native", required=True, nargs="+")
    for option in ("windows", "exe", "counter", "markdown", "json"):
        parser.add_argument(f"--{option}", required=True)
    options = parser.parse_args()
    rows = [*native_rows(options.native, options.counter), *windows_rows(options.windows), exe_row(options.exe)]
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
