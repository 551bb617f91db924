"""Reads what scripts/bench has measured and counted."""

import json
import pathlib
import re
import statistics

NANOSECONDS = {"ns": 1, "us": 1e3, "ms": 1e6, "s": 1e9}
BY_HAND = "by hand"


def benchmarks(path):
    """Maps "work", "work/size" to {side: what was measured}, in the order of measuring."""
    works = {}
    for run in json.loads(path.read_text())["benchmarks"]:
        work, side, *size = run["run_name"].split("/")
        works.setdefault("/".join([work, *size]), {})[side] = run
    return works


def nanoseconds(run):
    return run["cpu_time"] * NANOSECONDS[run["time_unit"]]


def instructions(directory):
    """Maps "work/size" to {side: instructions of one call}."""
    works = {}
    for path in directory.glob("callgrind.*"):
        name, _, total = re.search(r"Client Request: (.*)\n(.*\n)*totals: (\d+)",
                                   path.read_text()).groups()
        work, side, size = name.split("/")
        works.setdefault(f"{work}/{size}", {})[side] = int(total)
    return works


class Figures:
    """All figures; ratios are those to the work by hand, the medians of the runs."""

    def __init__(self, directory):
        directory = pathlib.Path(directory)
        self.runs = [benchmarks(path) for path in sorted(directory.glob("run-*.json"))]
        self.memory = benchmarks(directory / "memory.json")
        self.instructions = instructions(directory)
        self.sizes = {path.stem: path.stat().st_size for path in directory.glob("*.so")}

    def time(self, work, side):
        return statistics.median(nanoseconds(run[work][side]) for run in self.runs)

    def ratio(self, work, side):
        """None where a side does not do the work."""
        if side not in self.runs[0][work] or BY_HAND not in self.runs[0][work]:
            return None
        return statistics.median(nanoseconds(run[work][side]) / nanoseconds(run[work][BY_HAND])
                                 for run in self.runs)

    def allocations(self, work, side):
        run = self.memory[work].get(side)
        return None if run is None else int(run["allocations"])

    def heap_of_a_rule(self, side):
        """Bytes that a rule adds to what a profile holds."""
        small, large = (self.memory[f"list the active rules/{rules}"][side]["heap"]
                        for rules in (1000, 10000))
        return (large - small) / 9000
