"""Edits of profiles."""

import os
import shutil
import subprocess
import unittest

from edits import PROFILE, EditTest
from support import COMMAND, EXAMPLES


class SettingAnItem(EditTest):
    def test_changes_the_first_rule_of_the_type_and_says_so(self):
        self.assertEqual(self.answer(*self.set("2")),
                         "p.xml: the first of 2 rules of type 'A': n was '1', is now '2'\n")
        self.assertEqual(self.read("p.xml"), PROFILE.replace('"1"/>', '"2"/>', 1))

    def test_writes_elsewhere_if_told_to(self):
        self.answer(*self.set("2", "-o", "out.xml"))
        self.assertEqual(self.read("p.xml"), PROFILE)
        self.assertIn('Value="2"', self.read("out.xml"))

    def test_takes_any_text(self):
        for value in ("", "-5", "<&\"'>", "é", "a b"):
            with self.subTest(value=value):
                self.answer("set", "p.xml", "--rule", "A", "--item", "n", "--", value)
                self.assertIn(f"n = {value}", self.answer("profile", "p.xml"))

    def test_refuses_texts_that_xml_cannot_hold(self):
        for value, problem in (
                (b"\x01", "starts U+0001, which no XML file can hold; leave that character out"),
                ("\uffff".encode(), "starts U+FFFF, which no XML file can hold; leave that "
                                    "character out"),
                (b"\xff", ", 0xFF, is no UTF-8; write the value in UTF-8")):
            with self.subTest(value=value):
                done = subprocess.run([COMMAND, *self.set(b"a" + value)], cwd=self.directory,
                                      check=False, env=self.environment, capture_output=True)
                blank = "" if problem.startswith(",") else " "
                self.assertEqual(done.stderr.decode(), "analytics-settingsctl: p.xml: byte 2 of "
                                                       f"the value{blank}{problem}\n")
                self.assertEqual((done.returncode, self.read("p.xml")), (2, PROFILE))

    def test_says_what_to_do_about_a_missing_rule(self):
        self.assert_refused(1, "p.xml: has no rule of type 'C'; see its types with "
                            "analytics-settingsctl profile",
                            "set", "p.xml", "--rule", "C", "--item", "n", "2")

    def test_says_what_to_do_about_a_missing_item(self):
        self.assert_refused(1, "p.xml: the first rule of type 'B' has no item 'n'; add "
                            '<tt:SimpleItem Name="n" Value=""/> to its Parameters first',
                            "set", "p.xml", "--rule", "B", "--item", "n", "2")
        self.assertEqual(self.read("p.xml"), PROFILE)

    def test_tells_of_names_that_no_query_can_find(self):
        done = self.run_command("set", "p.xml", "--rule", 'A"', "--item", "n", "2")
        self.assertEqual((done.returncode, "double quote" in done.stderr), (1, True))
        done = self.run_command("set", "p.xml", "--rule", "A", "--item", "n'", "2")
        self.assertEqual((done.returncode, "single quote" in done.stderr), (1, True))

    def test_turns_standard_input_into_standard_output(self):
        done = self.run_command("set", "-", *self.set("2")[2:], input=PROFILE)
        self.assertEqual(done.stdout, PROFILE.replace('"1"/>', '"2"/>', 1))
        self.assertTrue(done.stderr.startswith("standard input: the first of 2 rules"))

    def test_keeps_the_encoding(self):
        text = PROFILE.replace('version="1.0"', 'version="1.0" encoding="UTF-16"')
        (self.directory / "p.xml").write_bytes(text.encode("utf-16"))
        self.answer(*self.set("2"))
        self.assertIn('Value="2"', (self.directory / "p.xml").read_bytes().decode("utf-16"))


class LineBreaks(EditTest):
    """XML is read with LF for every line break."""

    def write_bytes(self, text, encoding="utf-8"):
        (self.directory / "p.xml").write_bytes(text.encode(encoding))

    def read_bytes(self, name="p.xml"):
        return (self.directory / name).read_bytes()

    def test_of_cr_lf_throughout_are_kept(self):
        self.write_bytes(PROFILE.replace("\n", "\r\n"))
        self.assertTrue(self.answer(*self.set("2")).endswith("n was '1', is now '2'\n"))
        self.assertEqual(self.read_bytes(),
                         PROFILE.replace('"1"/>', '"2"/>', 1).replace("\n", "\r\n").encode())

    def test_of_cr_lf_throughout_are_kept_where_rules_are_deleted(self):
        self.write_bytes(PROFILE.replace("\n", "\r\n"))
        self.answer("delete-rules", "p.xml", "B")
        written = self.read_bytes()
        self.assertEqual(written.count(b"\n"), written.count(b"\r\n"))
        self.assertEqual(written.count(b"\r"), written.count(b"\r\n"))

    def test_that_are_mixed_become_lf_and_that_is_told(self):
        self.write_bytes(PROFILE.replace("\n", "\r\n", 2))
        self.assertTrue(self.answer(*self.set("2")).endswith("; its line breaks became LF\n"))
        self.assertEqual(self.read_bytes(), PROFILE.replace('"1"/>', '"2"/>', 1).encode())

    def test_of_several_bytes_become_lf_and_that_is_told(self):
        text = PROFILE.replace('version="1.0"', 'version="1.0" encoding="UTF-16"')
        self.write_bytes(text.replace("\n", "\r\n"), "utf-16")
        self.assertTrue(self.answer(*self.set("2")).endswith("; its line breaks became LF\n"))
        self.assertEqual(self.read_bytes().decode("utf-16"), text.replace('"1"/>', '"2"/>', 1))

    def test_in_a_dry_run_are_those_that_would_be_written(self):
        self.write_bytes(PROFILE.replace("\n", "\r\n"))
        shown = self.run_command(*self.set("2", "--dry-run"), text=False).stdout
        changed = [line for line in shown.split(b"\n")[2:] if line[:1] in (b"-", b"+")]
        self.assertEqual(changed, [b'-      <tt:SimpleItem Name="n" Value="1"/>\r',
                                   b'+      <tt:SimpleItem Name="n" Value="2"/>\r'])

    @unittest.skipUnless(shutil.which("patch"), "patch is not installed")
    def test_in_a_dry_run_are_what_patch_makes(self):
        for breaks in (1, 100):
            with self.subTest(breaks=breaks):
                self.write_bytes(PROFILE.replace("\n", "\r\n", breaks))
                difference = self.run_command(*self.set("2", "--dry-run"), text=False).stdout
                self.answer(*self.set("2", "-o", "edited.xml"))
                subprocess.run(["patch", "-s", "--binary", "-o", "patched.xml", "p.xml"],
                               check=True, cwd=self.directory, input=difference)
                self.assertEqual(self.read_bytes("patched.xml"), self.read_bytes("edited.xml"))


class DeletingRules(EditTest):
    def test_deletes_all_of_the_type_and_says_so(self):
        self.assertEqual(self.answer("delete-rules", "p.xml", "A"),
                         "p.xml: deleted 2 rules of type 'A'\n")
        self.assertEqual(self.read("p.xml").count("rule"), 1)

    def test_of_no_type_is_refused(self):
        self.assert_refused(2, "p.xml: the type is empty; name the rules' type",
                            "delete-rules", "p.xml", "")

    def test_that_are_not_there_changes_nothing(self):
        done = self.run_command("delete-rules", "p.xml", "C", "-o", "out.xml")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(os.listdir(self.directory), ["p.xml"])


class ADryRun(EditTest):
    def test_prints_the_difference(self):
        self.copy(EXAMPLES / "profile.xml")
        shown = self.answer("set", "profile.xml", "--rule", "LineCrossing", "--item",
                            "Sensitivity", "90", "--dry-run")
        self.assert_as_expected("set-dry-run", shown)

    def test_tells_of_deleted_rules_as_whole_blocks(self):
        self.copy(EXAMPLES / "profile.xml")
        shown = self.answer("delete-rules", "profile.xml", "FieldDetector", "--dry-run")
        self.assert_as_expected("delete-rules-dry-run", shown)

    def test_tells_of_a_long_rule_as_one_block(self):
        items = "".join(f'\n<tt:SimpleItem Name="{n}" Value=""/>' for n in range(200))
        self.write("p.xml", PROFILE.replace('Type="B"/>', f'Type="B">{items}\n</tt:rule>'))
        shown = self.answer("delete-rules", "p.xml", "B", "--dry-run").splitlines()
        self.assertEqual(len([line for line in shown[2:] if line.startswith("-")]), 202)
        self.assertEqual(len([line for line in shown[2:] if line.startswith("+")]), 1)

    def test_writes_nothing(self):
        self.answer(*self.set("2", "--dry-run", "-o", "out.xml"))
        self.assertEqual(os.listdir(self.directory), ["p.xml"])
        self.assertEqual(self.read("p.xml"), PROFILE)

    def test_of_no_change_prints_nothing(self):
        self.assertEqual(self.answer(*self.set("1", "--dry-run")), "")

    @unittest.skipUnless(shutil.which("patch"), "patch is not installed")
    def test_is_what_patch_makes_the_edit_with(self):
        self.copy(EXAMPLES / "profile.xml")
        for edit in (("set", "profile.xml", "--rule", "TamperDetector", "--item", "Active", "0"),
                     ("delete-rules", "profile.xml", "FieldDetector"),
                     ("delete-rules", "profile.xml", "LineCrossing")):
            with self.subTest(edit=edit):
                difference = self.answer(*edit, "--dry-run")
                self.answer(*edit, "-o", "edited.xml")
                subprocess.run(["patch", "-s", "-o", "patched.xml", "profile.xml"], check=True,
                               cwd=self.directory, input=difference, text=True)
                self.assertEqual(self.read("patched.xml"), self.read("edited.xml"))

    def test_of_a_name_with_a_blank_says_where_it_ends(self):
        self.write("a b.xml", self.read("p.xml"))
        diff = self.answer("set", "a b.xml", *self.set("2")[2:], "--dry-run")
        self.assertEqual(diff.splitlines()[:2], ["--- a b.xml\t", "+++ a b.xml\t"])

    def test_tells_of_a_missing_line_break_at_the_end(self):
        self.write("p.xml", PROFILE.rstrip())
        self.assertIn("-</p>\n\\ No newline at end of file\n+</p>\n",
                      self.answer(*self.set("1", "--dry-run")))


if __name__ == "__main__":
    unittest.main()
