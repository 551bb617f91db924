"""Builds and starts a program in every way, with every compiler, as every standard, in every tree."""

import pathlib
import tempfile

from consumers import (COMPILERS, STANDARDS, WAYS_FROM_SOURCES, answer, by_find_package,
                       by_pkg_config, from_sources)
from trees import WITH_HOST, WORK


def programs(directory):
    """Gives each program once it is built; the next one may be built in its place."""
    for compiler in COMPILERS:
        for tree in WITH_HOST:
            yield from by_find_package(f"{directory}/{compiler}-{tree}", compiler, tree,
                                       standards=STANDARDS)
            for standard in STANDARDS:
                yield by_pkg_config(directory, compiler, tree, standard)
        for way in WAYS_FROM_SOURCES:
            yield from from_sources(f"{directory}/{compiler}", compiler, way, standards=STANDARDS)


def main():
    with tempfile.TemporaryDirectory(prefix="consumers-", dir=WORK) as directory:
        answers = [answer(program) for program in programs(pathlib.Path(directory))]
    assert set(answers) == {"A rule 0 1.0.0\n"}, set(answers)
    print(f"proved: programs={len(answers)} started={len(answers)}")


if __name__ == "__main__":
    main()
