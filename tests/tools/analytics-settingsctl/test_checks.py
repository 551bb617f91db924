"""Each check finds what it is for, and only that.

A folder of checks/ belongs to each check. Its bad.* files give exactly the kept output, which names
the check; its good.* files, in which what is right lies next to what is wrong, are clean. Where
there is a bad.settings.ini or good.settings.ini, the profile beside it is checked with it.
"""

import json
import unittest

from support import EXAMPLES, HERE, ONVIF, CommandTest

CHECKS = HERE / "checks"


def sample_files(pattern):
    return sorted(path for path in CHECKS.glob(f"*/{pattern}")
                  if path.suffix in (".ini", ".xml") and ".settings" not in path.name)


class ACheck(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = str(EXAMPLES / "analytics.ini")

    def check(self, path):
        settings = path.with_name(f"{path.stem}.settings.ini")
        options = ["--settings", settings.name] if settings.exists() else []
        return self.run_command("check", *options, path.name, cwd=path.parent)

    def test_finds_what_is_bad(self):
        for path in sample_files("bad.*"):
            with self.subTest(path=path):
                done = self.check(path)
                expected = path.with_name(f"{path.name}.expected").read_text()
                self.assertEqual((done.stdout, done.stderr), (expected, ""))
                self.assertIn(f"[{path.parent.name}]", expected)

    def test_says_by_its_status_that_it_found_something(self):
        for path in sample_files("bad.*"):
            with self.subTest(path=path):
                status = 2 if path.parent.name == "unreadable" else 1
                self.assertEqual(self.check(path).returncode, status)

    def test_lets_pass_what_is_good(self):
        for path in sample_files("good.*"):
            with self.subTest(path=path):
                done = self.check(path)
                self.assertEqual((done.returncode, done.stdout, done.stderr), (0, "", ""))

    def test_is_silent_when_switched_off(self):
        for path in sample_files("bad.*"):
            with self.subTest(path=path):
                name = path.parent.name
                done = self.run_command("check", "--without", name, path.name, cwd=path.parent)
                self.assertNotIn(f"[{name}]", done.stdout)

    def test_has_a_sample_of_each_kind_and_an_explanation(self):
        checks = json.loads(self.answer("check", "--list", "--json"))["checks"]
        self.assertEqual({check["name"] for check in checks}, {p.name for p in CHECKS.iterdir()})
        for check in checks:
            with self.subTest(check=check["name"]):
                kinds = {path.stem for path in sample_files("*.*")
                         if path.parent.name == check["name"]}
                self.assertEqual(kinds, {"bad", "good"})
                self.assertTrue(check["description"] and check["hint"] and check["example"])


class TheExamples(CommandTest):
    def test_are_clean_with_the_built_in_settings(self):
        self.environment["ANALYTICS_INI"] = "/dev/null/none.ini"
        done = self.run_command("check", EXAMPLES / "analytics.ini", EXAMPLES / "profile.xml")
        self.assertEqual((done.returncode, done.stdout), (0, ""))

    def test_are_clean_with_their_own_settings(self):
        self.assertEqual("", self.answer("check", "--settings", EXAMPLES / "analytics.ini",
                                         EXAMPLES / "analytics.ini", EXAMPLES / "profile.xml"))


class ARealDocument(CommandTest):
    """Responses of ONVIF cameras, with the two vocabularies that fit them."""

    def test_is_checked_as_expected(self):
        for path in sorted(ONVIF.glob("*.xml")):
            for vocabulary in ("schema", "service"):
                with self.subTest(path=path.name, vocabulary=vocabulary):
                    done = self.run_command("check", "--settings", ONVIF / f"{vocabulary}.ini",
                                            path.name, cwd=ONVIF)
                    self.assert_as_expected(f"onvif/{path.stem}.{vocabulary}", done.stdout)
                    self.assertEqual((done.returncode, done.stderr), (bool(done.stdout), ""))

    def test_comes_with_clean_settings(self):
        for vocabulary in ("schema", "service"):
            with self.subTest(vocabulary=vocabulary):
                path = ONVIF / f"{vocabulary}.ini"
                self.assertEqual("", self.answer("check", "--settings", path, path))


if __name__ == "__main__":
    unittest.main()
