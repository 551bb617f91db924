"""The tables of bench/README.md, and the sentences that have figures."""

import math
import os
import platform
import subprocess

from figures import BY_HAND

SIDES = ["library", "libxml++", "pugixml", "limit"]

# What the library is to take at most, as a ratio to the same work by hand; None: nothing is asked.
# The first name is that of the table, the second the program's.
WORKS = [
    ("parse 100 rules", "parse/100", 1.00),
    ("list the active rules of 100", "list the active rules/100", 0.20),
    ("select the rules of a type among 100", "select the rules of a type/100", 0.38),
    ("read an integer item", "read an integer item", 0.08),
    ("set an integer item", "set an integer item", 0.10),
    ("read a polygon of 4 points", "read a polygon of 4 points", 0.28),
    ("read a polygon of 16 points", "read a polygon of 16 points", 0.38),
    ("read a polygon of 256 points", "read a polygon of 256 points", 0.50),
    ("read a calibration", "read a calibration", 0.28),
    ("load the settings, 8 variables", "load the settings", 0.75),
    ("read a named setting", "read a named setting", None),
    ("query the settings file", "query the settings file", None),
    ("substitute 8 references", "substitute 8 references", 0.11),
    ("delete half of 100 rules", "delete half of the rules/100", 0.50),
    ("dump 100 rules", "dump/100", 1.05),
    ("save 100 rules", "save/100", 1.05),
    ("a change of 16 of 32 masks", "a mask change with 16 of 32 regions", 1.05),
]

CHECKS = [100, 1000, 10000]

# What the library does with the very calls that are made by hand: they differ by noise alone.
SAME_CALLS = ["parse/100", "dump/100"]

GROWING = ["parse", "list the active rules", "list the active rules, of as many types",
           "select the rules of a type", "delete half of the rules", "dump"]
MOST_GROWTH = 1.02

# Of the stripped library, in bytes.
SIZES = [("Release", "`-O2`", 124000), ("MinSizeRel", "`MinSizeRel`", 95000)]


def table(header, alignment, rows):
    yield "| " + " | ".join(header) + " |"
    yield "|" + "|".join(alignment) + "|"
    for row in rows:
        yield "| " + " | ".join(row) + " |"


def ratio_text(ratio):
    return "" if ratio is None else f"{ratio:.2f}"


def time_text(nanoseconds):
    for unit, size in (("ms", 1e6), ("µs", 1e3), ("ns", 1)):
        if nanoseconds >= size:
            return f"{nanoseconds / size:.3g} {unit}"
    return f"{nanoseconds:.2f} ns"


def noise(figures):
    return max(abs(figures.ratio(work, "library") - 1) for work in SAME_CALLS)


def met(value, most, tolerance=0.0):
    if most is None:
        return ""
    return "yes" if round(value, 2) <= most * (1 + tolerance) else "**no**"


def time_row(figures, name, work, most):
    ratios = [figures.ratio(work, side) for side in SIDES]
    return [name, time_text(figures.time(work, BY_HAND)), *map(ratio_text, ratios),
            ratio_text(most), met(ratios[0], most, noise(figures))]


def times(figures):
    yield from table(["Work", "By hand", "Library", "libxml++", "pugixml", "Limit", "At most", "Met"],
                     ["---", *["---:"] * 6, "---"],
                     [time_row(figures, *work) for work in WORKS])
    yield ""
    yield (f"The noise is {noise(figures):.1%}: that much the ratio differs from 1 where the library "
           "makes the very calls that are made by hand, in parsing and dumping. A row is met within "
           "it.")


def ahead(figures):
    """Where pugixml stays ahead of the library."""
    names = [name for name, work, _ in WORKS
             if (figures.ratio(work, "pugixml") or math.inf) < figures.ratio(work, "library")]
    yield f"pugixml stays ahead of the library in: {'; '.join(names) or 'nothing'}."


def checks(figures):
    works = [f"check a profile of {rules} rules" for rules in CHECKS]
    yield ("All checks of `analytics-settingsctl check`, both parses included, take " + ", ".join(
        f"{time_text(figures.time(work, 'tool'))} with {rules:,} rules"
        for work, rules in zip(works, CHECKS)) + ".")


def exponent(figures, work, side, smallest):
    """The power of the number of rules that the instructions grow with, up to 10,000 rules."""
    counts = figures.instructions
    growth = counts[f"{work}/10000"][side] / counts[f"{work}/{smallest}"][side]
    return math.log(growth) / math.log(10000 / smallest)


def growth_row(figures, work):
    sides = [side for side in (BY_HAND, "library", "limit")
             if side in figures.instructions[f"{work}/10"]]
    cells = [f"{exponent(figures, work, side, 10):.2f}, {exponent(figures, work, side, 1000):.2f}"
             for side in sides] + [""] * (3 - len(sides))
    most = max(exponent(figures, work, "library", smallest) for smallest in (10, 1000))
    return [work, *cells, f"{MOST_GROWTH:.2f}", met(most, MOST_GROWTH)]


def growth(figures):
    return table(["Work", "By hand", "Library", "Limit", "At most", "Met"],
                 ["---", *["---:"] * 4, "---"], [growth_row(figures, work) for work in GROWING])


def kilobytes(count):
    return f"{count / 1000:.1f} KB"


def memory(figures):
    sides = [BY_HAND, *SIDES]
    heap = [figures.heap_of_a_rule(side) for side in sides]
    sizes = [f"{kilobytes(figures.sizes[build])} with {name} (at most {kilobytes(most)}: "
             f"{met(figures.sizes[build], most)})" for build, name, most in SIZES]
    return table(["", "By hand", "Library", "libxml++", "pugixml", "Limit"], ["---", *["---:"] * 5], [
        ["heap of a profile, for each rule", *map(kilobytes, heap)],
        ["stripped library", "", ", ".join(sizes), kilobytes(figures.sizes["xml++"]),
         kilobytes(figures.sizes["pugixml"]), ""]])


def allocations(figures):
    def cell(work, side):
        count = figures.allocations(work, side)
        return "" if count is None else f"{count:,}"

    sides = [BY_HAND, *SIDES]
    return table(["Work", "By hand", "Library", "libxml++", "pugixml", "Limit"],
                 ["---", *["---:"] * 5],
                 [[name, *(cell(work, side) for side in sides)] for name, work, _ in WORKS])


def dictionary(figures):
    time = 1 - figures.ratio("parse/100", "limit")
    heap = 1 - figures.heap_of_a_rule("limit") / figures.heap_of_a_rule(BY_HAND)
    yield f"It would save {time:.0%} of the time and {heap:.0%} of the heap."


def version(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout.strip()


def machine(_):
    """What was measured on, which is where this runs."""
    packages = {"libxml2": "libxml-2.0", "libxml++": "libxml++-2.6", "pugixml": "pugixml"}
    versions = [f"{name} {version('pkg-config', '--modversion', package)}"
                for name, package in packages.items()]
    yield (f"Measured on {os.cpu_count()} cores of a shared {platform.machine()} virtual machine, "
           f"{platform.freedesktop_os_release()['PRETTY_NAME']}, with "
           f"g++ {version('g++', '-dumpfullversion')} at -O3, {', '.join(versions)}.")


BLOCKS = {"machine": machine, "times": times, "ahead": ahead, "checks": checks, "growth": growth,
          "memory": memory, "allocations": allocations, "dictionary": dictionary}
