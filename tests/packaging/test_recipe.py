"""What the recipe for embedded builds says is so in this tree."""

import hashlib
import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
RECIPE, = (ROOT / "packaging" / "yocto").glob("analytics-settings_*.bb")
BUILD = "".join(path.read_text() for path in
                (ROOT / "CMakeLists.txt", *(ROOT / "cmake").glob("*.cmake")))


class TheRecipe(unittest.TestCase):
    def setUp(self):
        self.recipe = RECIPE.read_text()

    def test_has_the_version_of_the_library(self):
        version = re.search(r"VERSION (\S+) LANG", BUILD)[1]
        self.assertEqual(RECIPE.stem, f"analytics-settings_{version}")

    def test_gives_options_that_there_are(self):
        options = set(re.findall(r"-D(ANALYTICS_\w+)=", self.recipe))
        declared = set(re.findall(r"(?:option|set)\((ANALYTICS_\w+)\s", BUILD))
        self.assertGreater(len(options), 4)
        self.assertLessEqual(options, declared)

    def test_knows_the_licence(self):
        licence = hashlib.md5((ROOT / "LICENSE").read_bytes()).hexdigest()
        self.assertIn(f"file://LICENSE;md5={licence}", self.recipe)


if __name__ == "__main__":
    unittest.main()
