"""The same version stands wherever one stands."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]

# What has a version, and each file that says it: the pattern finds it there.
PLACES = {
    'this release': (
        ('CMakeLists.txt', r'^project\(analytics-settings VERSION ([\d.]+) '),
        ('CHANGELOG.md', r'^## (\d+\.\d+\.\d+)$'),  # the newest release, which comes first
        ('debian/changelog', r'^analytics-settings \(([\d.]+)\)'),
    ),
    'the least CMake': (
        ('CMakeLists.txt', r'^cmake_minimum_required\(VERSION ([\d.]+)\)'),
        ('README.md', r'CMake (\d[\d.]*) to'),
        ('debian/control', r'^ cmake \(>= ([\d.]+)\)'),
    ),
    'the least libxml2': (
        ('CMakeLists.txt', r'^find_package\(LibXml2 ([\d.]+) '),
        ('README.md', r'libxml2 (\d[\d.]*) to'),
        ('debian/control', r'^ libxml2-dev \(>= ([\d.]+)\)'),
    ),
}


def version_in(name, pattern):
    found = re.search(pattern, (ROOT / name).read_text(), re.MULTILINE)
    return found[1] if found else f'nothing like {pattern}'


class Versions(unittest.TestCase):
    def test_are_the_same_everywhere(self):
        for what, places in PLACES.items():
            with self.subTest(what=what):
                found = {name: version_in(name, pattern) for name, pattern in places}
                self.assertEqual(len(set(found.values())), 1, found)


if __name__ == '__main__':
    unittest.main()
