"""Prints the figures of analytics-bench, given as its JSON output, as a Markdown table.

The figure of a benchmark is the least processor time of its repetitions: whatever else the machine
does only ever adds to it.
"""

import json
import sys

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}


def least_times(report):
    """Maps (work, rules) to {side: nanoseconds}, in the order in which work was registered."""
    works = {}
    for run in sorted(report["benchmarks"], key=lambda run: run["family_index"]):
        if run["run_type"] != "iteration":
            continue
        work, side, *rules = run["run_name"].split("/")
        nanoseconds = run["cpu_time"] * NANOSECONDS[run["time_unit"]]
        sides = works.setdefault((work, *rules), {})
        sides[side] = min(nanoseconds, sides.get(side, nanoseconds))
    return works


def shown(nanoseconds):
    return f"{nanoseconds:,.1f}" if nanoseconds < 100 else f"{nanoseconds:,.0f}"


def row(work, rules, sides):
    """A row; what only analytics-settingsctl does stands in the library's column alone."""
    if set(sides) == {"tool"}:
        return [work, rules, shown(sides["tool"]), "", ""]
    library, by_hand = sides["library"], sides["by hand"]
    return [work, rules, shown(library), shown(by_hand), f"{library / by_hand:.2f}"]


def main(path):
    with open(path, encoding="utf-8") as file:
        works = least_times(json.load(file))
    print("| Work | Rules | Library, ns | By hand, ns | Ratio |")
    print("|---|---:|---:|---:|---:|")
    for (work, *rules), sides in works.items():
        if set(sides) not in ({"library", "by hand"}, {"tool"}):
            sys.exit(f"{work}: measured on one side only")
        print("| " + " | ".join(row(work, rules[0] if rules else "", sides)) + " |")


if __name__ == "__main__":
    main(sys.argv[1])
