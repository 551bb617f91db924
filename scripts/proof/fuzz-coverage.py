#!/usr/bin/env python3
"""Prints what share of each folder a fuzzing target reached, from llvm-cov's summary.

usage: llvm-cov export -summary-only ... | fuzz-coverage.py TARGET
"""

import json
import pathlib
import sys

FOLDERS = ("document", "settings", "profile", "platform")
KINDS = ("lines", "regions", "branches")
# What each target is for; what else it comes by is not told.
FOLDERS_OF = {
    "document": ("document",),
    "node-edits": ("document",),
    "settings": ("settings",),
    "substitution": ("settings",),
    "profile": ("profile",),
    "regions": ("platform",),
    "all": FOLDERS,
}


def shares(summaries):
    """Gives what is covered of each kind, in percent, over all files of a folder."""
    for kind in KINDS:
        count = sum(summary[kind]["count"] for summary in summaries)
        covered = sum(summary[kind]["covered"] for summary in summaries)
        yield f"{100 * covered / count:.1f}" if count else "-"


def main():
    target = sys.argv[1]
    root = pathlib.Path(__file__).resolve().parents[2]
    files = json.load(sys.stdin)["data"][0]["files"]
    by_folder = {folder: [] for folder in FOLDERS}
    for file in files:
        path = pathlib.Path(file["filename"])
        folder = path.relative_to(root).parts[0] if path.is_relative_to(root) else ""
        if folder in by_folder:
            by_folder[folder].append(file["summary"])
    for folder in FOLDERS:
        told = "/".join(shares(by_folder[folder]))
        if folder in FOLDERS_OF[target]:
            print(f"{target}: {folder} {told} % of {'/'.join(KINDS)}")
            print(f"proved: {target}-{folder}={told}%")


if __name__ == "__main__":
    main()
