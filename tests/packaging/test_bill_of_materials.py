"""The bill of materials names what the loader will look for.

usage: test_bill_of_materials.py BILL PART=FILE...
"""

import json
import pathlib
import re
import subprocess
import sys
import unittest

ROOT = pathlib.Path(__file__).resolve().parents[2]
OURS = re.compile(r"(lib(?:analytics|tavrel)[a-z-]*\.so).*")


def needed(file):
    """Gives the libraries that a file needs; ours without version, the linker itself left out."""
    dynamic = subprocess.run(["readelf", "--dynamic", "--wide", file], check=True,
                             capture_output=True, text=True).stdout
    return {OURS.sub(r"\1", library) for library in re.findall(r"\(NEEDED\).*\[(.*)\]", dynamic)
            if not library.startswith("ld-")}


class TheBillOfMaterials(unittest.TestCase):
    bill = {}
    files = {}

    def setUp(self):
        self.libraries = {
            component["bom-ref"]: {entry["value"] for entry in component["properties"]}
            for component in self.bill["components"]}
        self.libraries["library"] = {"libanalytics-settings.so"}
        self.uses = {part["ref"]: part["dependsOn"] for part in self.bill["dependencies"]}

    def needed(self, part):
        """What a part's files need, but for what they are themselves."""
        return set().union(*map(needed, self.files[part])) - self.libraries.get(part, set())

    def test_names_every_library_that_a_part_needs(self):
        for part in self.files:
            with self.subTest(part):
                named = set().union(*(self.libraries[name] for name in self.uses[part]))
                self.assertLessEqual(self.needed(part), named)

    def test_names_no_dependency_that_a_part_does_not_need(self):
        for part in self.files:
            for name in self.uses[part]:
                with self.subTest(part, name=name):
                    self.assertTrue(not self.libraries[name] or
                                    self.libraries[name] & self.needed(part))

    def test_describes_every_part(self):
        self.assertEqual(self.uses.keys(), self.files.keys())

    def test_has_the_version_of_what_is_built(self):
        version = re.search(r"VERSION (\S+) LANG", (ROOT / "CMakeLists.txt").read_text())[1]
        self.assertEqual(self.bill["metadata"]["component"]["version"], version)

    def test_has_no_time_and_no_serial_number(self):
        self.assertNotIn("timestamp", self.bill["metadata"])
        self.assertNotIn("serialNumber", self.bill)


def main():
    bill, *parts = sys.argv[1:]
    TheBillOfMaterials.bill = json.loads(pathlib.Path(bill).read_text())
    for part, _, file in (argument.partition("=") for argument in parts):
        TheBillOfMaterials.files.setdefault(part, []).append(file)
    unittest.main(argv=sys.argv[:1])


if __name__ == "__main__":
    main()
