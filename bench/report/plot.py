"""The plot of bench/README.md: ratios to the work by hand, as SVG."""

import math
from html import escape

from tables import SIDES, WORKS

LEFT, TOP, ROW, WIDTH, MARGIN = 280, 64, 24, 520, 24
SMALLEST, LARGEST = 0.01, 4
TICKS = [0.01, 0.03, 0.1, 0.3, 1, 3]

# The colours serve on white and on black; shapes tell the sides apart where colours do not.
STYLE = """
  text { font: 13px sans-serif; fill: #1f2328 }
  .tick { font-size: 12px; text-anchor: middle }
  .work { text-anchor: end }
  .grid { stroke: #8b949e; stroke-opacity: .35 }
  .hand { stroke: #8b949e; stroke-width: 2 }
  .bar, .library { fill: #3987e5 }
  .bar { fill-opacity: .3 }
  .libxml { fill: #d95926 }
  .pugixml { fill: #199e70 }
  .limit { fill: none; stroke: #8b949e; stroke-width: 2 }
  @media (prefers-color-scheme: dark) { text { fill: #e6edf3 } }
"""

# Paths around (0, 0), with their classes.
MARKS = {
    "library": ("library", "M-6 0A6 6 0 1 0 6 0A6 6 0 1 0 -6 0Z"),
    "libxml++": ("libxml", "M0 -6L6 5L-6 5Z"),
    "pugixml": ("pugixml", "M-5 -5H5V5H-5Z"),
    "limit": ("limit", "M0 -6L6 0L0 6L-6 0Z"),
}


def across(ratio):
    share = math.log(ratio / SMALLEST) / math.log(LARGEST / SMALLEST)
    return LEFT + WIDTH * min(max(share, 0), 1)


def mark(side, x, y):
    name, path = MARKS[side]
    return f'<path class="{name}" d="{path}" transform="translate({x:.1f} {y})"/>'


def legend():
    x = LEFT
    for side in SIDES:
        yield mark(side, x, 20)
        yield f'<text x="{x + 12}" y="24">{side}</text>'
        x += 100


def axis(bottom):
    for tick in TICKS:
        x = across(tick)
        kind, name = ("hand", "by hand = 1") if tick == 1 else ("grid", str(tick))
        yield f'<path class="{kind}" d="M{x:.1f} {TOP - 8}V{bottom}"/>'
        yield f'<text class="tick" x="{x:.1f}" y="{TOP - 14}">{name}</text>'


def row(figures, y, name, work):
    yield f'<text class="work" x="{LEFT - 16}" y="{y + 4}">{escape(name)}</text>'
    ends = sorted([across(figures.ratio(work, "library")), across(1)])
    yield f'<path class="bar" d="M{ends[0]:.1f} {y - 5}H{ends[1]:.1f}V{y + 5}H{ends[0]:.1f}Z"/>'
    for side in reversed(SIDES):
        ratio = figures.ratio(work, side)
        if ratio is not None:
            yield mark(side, across(ratio), y)


def plot(figures):
    works = [(name, work) for name, work, _ in WORKS]
    bottom = TOP + ROW * len(works)
    lines = [f'<svg xmlns="http://www.w3.org/2000/svg" role="img" '
             f'viewBox="0 0 {LEFT + WIDTH + MARGIN} {bottom + 8}">',
             "<title>Time of each kind of work, as a ratio to the same work by hand</title>",
             f"<style>{STYLE}</style>", *legend(), *axis(bottom)]
    for index, (name, work) in enumerate(works):
        lines += row(figures, TOP + ROW * index + ROW // 2, name, work)
    return "\n".join([*lines, "</svg>"]) + "\n"
