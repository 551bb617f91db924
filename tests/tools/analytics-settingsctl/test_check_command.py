"""The command `check`: its files, its output and its exit status."""

import json
import os
import pty
import unittest

from support import EXAMPLES, CommandTest

NAMESPACES = ('xmlns:tt="http://www.onvif.org/ver10/schema" '
              'xmlns:ka="urn:kestal-com:schema:onvif:analytics:1"')
CLEAN = f'<p {NAMESPACES}><tt:rule Type="A"/></p>\n'
WITHOUT_TYPE = f'<p {NAMESPACES}>\n<tt:rule/></p>\n'
FINDING = ("profile.xml:2: warning: the rule has no Type, so nothing that asks for a type finds it "
           "[missing-type]\n")


class CheckTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = str(EXAMPLES / "analytics.ini")

    def found(self, *arguments, **options):
        """What `check` prints where it finds something."""
        done = self.run_command("check", *arguments, **options)
        self.assertEqual((done.returncode, done.stderr), (1, ""), done)
        return done.stdout

    def found_names(self, *arguments):
        findings = json.loads(self.found("--json", *arguments))["findings"]
        return [finding["check"] for finding in findings]


class TheOutput(CheckTest):
    def setUp(self):
        super().setUp()
        self.write("profile.xml", WITHOUT_TYPE)

    def test_names_file_line_severity_and_check(self):
        self.assertEqual(self.found("profile.xml"), FINDING)

    def test_can_hold_hints(self):
        self.assertEqual(self.found("--fix-hints", "profile.xml"),
                         FINDING + "    hint: Add the attribute Type.\n")

    def test_can_be_json(self):
        self.assertEqual(json.loads(self.found("--json", "profile.xml")), {"findings": [{
            "file": "profile.xml",
            "line": 2,
            "severity": "warning",
            "message": "the rule has no Type, so nothing that asks for a type finds it",
            "check": "missing-type"}]})

    def test_as_json_can_hold_hints(self):
        finding = json.loads(self.found("--json", "--fix-hints", "profile.xml"))["findings"][0]
        self.assertEqual(finding["hint"], "Add the attribute Type.")

    def test_as_json_of_clean_files_is_an_empty_list(self):
        self.write("profile.xml", CLEAN)
        self.assertEqual(json.loads(self.answer("check", "--json", "profile.xml")),
                         {"findings": []})

    def test_makes_control_characters_of_a_file_visible(self):
        self.write("profile.xml", f'<p {NAMESPACES}><tt:rule Type="a&#10;&quot;&#9;b"/></p>')
        self.assertIn(r"""'a\n"\tb'""", self.found("profile.xml"))

    def test_makes_control_characters_of_a_files_name_visible(self):
        self.write("a\nb\t\x1b[1m.xml", WITHOUT_TYPE)
        self.assertEqual(self.found("a\nb\t\x1b[1m.xml"),
                         FINDING.replace("profile.xml", r"a\nb\t\x1b[1m.xml"))

    def test_of_a_missing_file_makes_control_characters_of_its_name_visible(self):
        done = self.run_command("check", "a\nb")
        self.assertTrue(done.stdout.startswith(r"a\nb:1: error: cannot be opened: "), done.stdout)
        self.assertEqual(done.stdout.count("\n"), 1)

    def test_as_json_has_the_files_real_name(self):
        self.write("a\nb\x1b.xml", WITHOUT_TYPE)
        finding = json.loads(self.found("--json", "a\nb\x1b.xml"))["findings"][0]
        self.assertEqual(finding["file"], "a\nb\x1b.xml")

    def test_as_json_replaces_bytes_of_a_files_name_that_are_not_utf8(self):
        name = os.fsdecode(b"a\xff.xml")
        self.write(name, WITHOUT_TYPE)
        finding = json.loads(self.found("--json", name))["findings"][0]
        self.assertEqual(finding["file"], "a\ufffd.xml")

    def test_shortens_long_texts_between_letters(self):
        self.write("profile.xml", f'<p {NAMESPACES}><tt:rule Type="&quot;{"é" * 500}"/></p>')
        self.assertIn("'\"" + "é" * 29 + "...'", self.found("profile.xml"))

    def test_has_colours_on_a_terminal_only(self):
        self.assertNotIn("\x1b", self.found("profile.xml"))
        master, terminal = pty.openpty()
        self.addCleanup(os.close, master)
        self.run_command("check", "profile.xml", capture_output=False, stdout=terminal)
        os.close(terminal)
        self.assertIn(b"\x1b[", os.read(master, 4096))

    def test_gives_the_line_on_which_a_tag_begins(self):
        self.write("profile.xml", f'<p {NAMESPACES}>\n<tt:rule\n Name="a"\n />\n</p>')
        self.assertTrue(self.found("profile.xml").startswith("profile.xml:2:"))

    def test_gives_lines_beyond_those_that_libxml2_counts(self):
        self.write("profile.xml", f"<p {NAMESPACES}>" + "\n" * 70000 + "<tt:rule/></p>")
        self.assertTrue(self.found("profile.xml").startswith("profile.xml:70001:"))


class AFile(CheckTest):
    def test_is_told_by_its_content(self):
        for name, text, check in (
                ("profile.ini", WITHOUT_TYPE, "missing-type"),
                ("settings.xml", "<a><maxResource>x</maxResource></a>", "number-no-digits"),
                ("empty.xml", "<a/>", "missing-text"),
                ("lost.ini", "<analytics-profile/>", "nothing-found"),
                ("response.ini", '<x:r xmlns:x="urn:x"/>', "nothing-found")):
            with self.subTest(name=name):
                self.assertIn(check, self.found_names(self.write(name, text)))

    def test_is_what_it_is_said_to_be(self):
        self.write("a.xml", "<a/>")
        self.assertIn("missing-text", self.found_names("--as", "settings", "a.xml"))
        self.assertEqual(["nothing-found"], self.found_names("--as", "profile", "a.xml"))

    def test_can_be_standard_input(self):
        self.assertEqual(self.found("-", input=WITHOUT_TYPE),
                         FINDING.replace("profile.xml", "standard input"))

    def test_of_settings_can_be_standard_input(self):
        text = (EXAMPLES / "analytics.ini").read_text().replace("80000", "80 000")
        self.assertIn("the library uses 80 for '80 000'", self.found("-", input=text))

    def test_that_cannot_be_read_is_reported_and_the_others_are_checked(self):
        self.write("profile.xml", WITHOUT_TYPE)
        done = self.run_command("check", "missing.ini", "profile.xml")
        self.assertEqual((done.returncode, done.stderr), (2, ""))
        self.assertEqual(done.stdout, "missing.ini:1: error: cannot be opened: No such file or "
                                      "directory; check its path and mode [unreadable]\n" +
                         FINDING)

    def test_that_cannot_be_read_is_told_elsewhere_if_it_is_no_finding(self):
        self.write("profile.xml", WITHOUT_TYPE)
        done = self.run_command("check", "--without", "unreadable", "no\nfile", "profile.xml", ".")
        self.assertEqual((done.returncode, done.stdout), (2, FINDING))
        self.assertEqual(done.stderr, "analytics-settingsctl: no\\nfile: cannot be opened: No such "
                                      "file or directory; check its path and mode\n"
                                      "analytics-settingsctl: .: is a directory; name a file in "
                                      "it\n")

    def test_as_standard_input_is_checked_once(self):
        done = self.run_command("check", "-", "-", input=WITHOUT_TYPE)
        self.assertEqual((done.returncode, done.stderr), (2, ""))
        self.assertEqual(done.stdout, FINDING.replace("profile.xml", "standard input").replace(
            "\n", "\nstandard input:1: error: is named twice but can be read only once; name it "
            "once [unreadable]\n"))

    def test_that_is_bad_in_itself_is_reported(self):
        deep = "<a>" * 400 + "</a>" * 400
        bomb = ('<!DOCTYPE a [<!ENTITY a "xxxxxxxxxx">' +
                "".join(f'<!ENTITY {b} "{f"&{a};" * 10}">' for a, b in zip("abcdefgh", "bcdefghi")) +
                "]><a>&i;</a>")
        for name, content in {"truncated": "<a><b>", "binary": bytes(range(256)) * 9, "deep": deep,
                              "text": "Hello", "bomb": bomb, "blank": " \n"}.items():
            with self.subTest(name=name):
                self.assertEqual(self.found_names(self.write(name, content)), ["not-well-formed"])

    def test_that_is_no_file_is_reported(self):
        (self.directory / "folder").mkdir()
        done = self.run_command("check", "folder")
        self.assertEqual((done.returncode, done.stderr), (2, ""))
        self.assertIn("folder:1: error: is a directory", done.stdout)

    def test_of_several_is_reported_in_their_order(self):
        self.write("b.ini", "<a")
        self.write("a.xml", WITHOUT_TYPE)
        lines = self.found("b.ini", "a.xml").splitlines()
        self.assertEqual([line.split(":")[0] for line in lines], ["b.ini", "a.xml"])


class TheSettings(CheckTest):
    RENAMED = ("<rule>rule</rule>", "<rule>Rule</rule>")
    PROFILE = f'<p {NAMESPACES}><tt:Rule Type="A"/></p>\n'

    def setUp(self):
        super().setUp()
        self.write("profile.xml", self.PROFILE)
        text = (EXAMPLES / "analytics.ini").read_text()
        self.write("renamed.ini", text.replace(*self.RENAMED))

    def test_of_the_library_are_used_for_profiles(self):
        self.assertIn("did you mean 'rule'?", self.found("profile.xml"))

    def test_that_are_named_are_used_for_profiles(self):
        self.answer("check", "--settings", "renamed.ini", "profile.xml")

    def test_that_are_only_checked_do_not_change_what_profiles_are_checked_by(self):
        self.assertIn("did you mean 'rule'?", self.found("renamed.ini", "profile.xml"))

    def test_that_cannot_be_read_are_refused(self):
        self.assert_refused(2, "no.ini: cannot be opened: No such file or directory; check its "
                            "path and mode", "check", "--settings", "no.ini", "profile.xml")


class TheChecks(CheckTest):
    def test_are_listed(self):
        self.assert_as_expected("check-list", self.answer("check", "--list"))

    def test_are_listed_in_80_columns(self):
        self.assertLessEqual(max(map(len, self.answer("check", "--list").splitlines())), 80)

    def test_are_explained(self):
        self.assert_as_expected("check-explain", self.answer("check", "--explain", "repeated-item"))

    def test_are_switched_off_one_by_one(self):
        self.write("a.xml", f"<p {NAMESPACES}><tt:rule/><ka:rule/></p>")
        self.assertEqual(self.found_names("a.xml"), ["missing-type", "wrong-namespace"])
        self.answer("check", "--without", "missing-type", "--without", "wrong-namespace", "a.xml")

    def test_that_do_not_exist_are_refused(self):
        for option in ("--without", "--explain"):
            with self.subTest(option=option):
                self.assert_refused(2, "there is no check 'missing'; see analytics-settingsctl "
                                    "check --list", "check", option, "missing", "a.xml")

    def test_need_a_file(self):
        self.assert_refused(2, "name a file to check, or - for standard input", "check")

    def test_of_variables_end_however_many_lead_to_each_other(self):
        rows = "".join(f'<variable name="v{n}" value="${{v{n + 1}}}${{v{n + 1}}}"/>\n'
                       for n in range(3000))
        self.write("a.ini", f"<a><variables>{rows}</variables></a>")
        self.assertIn("undefined-reference", self.found_names("a.ini"))

    def test_of_variables_find_no_circle_through_a_name_that_no_query_finds(self):
        self.write("a.ini", """<a><variables><variable name='a"b' value='${a"b}'/></variables></a>""")
        self.assertNotIn("cyclic-reference", self.found_names("a.ini"))

    def test_of_variables_find_each_circle_once(self):
        rows = "".join(f'<variable name="{name}" value="{value}"/>'
                       for name, value in {"a": "${b}", "b": "${a}", "c": "${a}${c}",
                                           "d": "${d}", "e": "fine"}.items())
        self.write("a.ini", f"<a><variables>{rows}</variables></a>")
        self.assertEqual(self.found_names("a.ini").count("cyclic-reference"), 3)


if __name__ == "__main__":
    unittest.main()
