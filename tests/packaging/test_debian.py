"""What debian/ says as well is what other files say."""

import pathlib
import re
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
DEBIAN = ROOT / "debian"


def packages_of_dependencies():
    lines = (ROOT / "packaging" / "sbom" / "dependencies.txt").read_text().splitlines()
    packages = {line.split("|")[-1].strip() for line in lines if not line.startswith("#")}
    return packages - {""}


class TheDebianPackages(unittest.TestCase):
    def test_have_the_licences_of_the_sources(self):
        licences = (ROOT / ".reuse" / "dep5").read_text()
        self.assertTrue((DEBIAN / "copyright").read_text().startswith(licences))

    def test_are_built_with_all_dependencies(self):
        control = (DEBIAN / "control").read_text()
        build = re.search(r"(?s)^Build-Depends:(.*?)^\S", control, re.MULTILINE)[1]
        self.assertLessEqual(packages_of_dependencies(), set(build.replace(",", " ").split()))

    def test_are_built_with_what_setup_installs(self):
        lists = (ROOT / "scripts").glob("*packages.txt")
        installed = {line for path in lists for line in path.read_text().splitlines()}
        self.assertLessEqual(packages_of_dependencies(), installed)


if __name__ == "__main__":
    unittest.main()
