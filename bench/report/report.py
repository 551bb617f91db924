"""Prints the tables of bench/README.md from what scripts/bench has left in a directory.

usage: report.py DIRECTORY [--write]

With --write the tables go into bench/README.md, and the plot into a file beside it.
"""

import pathlib
import re
import sys

from figures import Figures
from plot import plot
from tables import BLOCKS

BENCH = pathlib.Path(__file__).resolve().parents[1]


def written(text, figures):
    """Replaces each block between "<!-- figures: NAME -->" and "<!-- end -->"."""
    for name, lines in BLOCKS.items():
        pattern = re.compile(rf"(<!-- figures: {name} -->\n).*?(<!-- end -->)", re.DOTALL)
        if len(pattern.findall(text)) != 1:
            sys.exit(f"report: bench/README.md needs one block of the figures of {name}")
        block = "".join(line + "\n" for line in lines(figures))
        text = pattern.sub(lambda found, block=block: found[1] + block + found[2], text)
    return text


def main(directory, *options):
    figures = Figures(directory)
    if not options:
        print("\n\n".join("\n".join(lines(figures)) for lines in BLOCKS.values()))
        return
    readme = BENCH / "README.md"
    readme.write_text(written(readme.read_text(), figures))
    (BENCH / "ratios.svg").write_text(plot(figures))


if __name__ == "__main__":
    main(*sys.argv[1:])
