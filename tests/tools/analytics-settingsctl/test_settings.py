"""The settings as they are shown, and where each comes from."""

import json
import unittest

from support import EXAMPLES, CommandTest

BUILT_IN_PATH = "/usr/local/kestal/analytics/conf/analytics.ini"


class SettingsTest(CommandTest):
    def rows(self, text):
        """First word of each row with the rest of the row."""
        return {line.split()[0]: line.split(maxsplit=1)[-1] for line in text.splitlines() if line}

    def as_json(self, *arguments, status=0):
        done = self.run_command("settings", *arguments, "--json")
        self.assertEqual(done.returncode, status)
        return json.loads(done.stdout)

    def setting(self, shown, name):
        return next(each for each in shown["settings"] if each["name"] == name)


class TheSettings(SettingsTest):
    def test_of_the_example_are_shown_with_their_lines(self):
        shown = self.answer("settings", "analytics.ini", cwd=EXAMPLES)
        self.assert_as_expected("settings", shown)

    def test_fit_into_80_columns(self):
        self.write("a.ini", f"<a><quadOutputFile>{'/long' * 60}</quadOutputFile></a>")
        lines = self.answer("settings", "a.ini").splitlines()
        self.assertLessEqual(max(map(len, lines)), 80)

    def test_that_the_file_lacks_are_empty_if_they_are_texts(self):
        self.write("a.ini", "<a/>")
        rows = self.rows(self.answer("settings", "a.ini"))
        self.assertEqual(rows["tags/rule"].split(), ["-", "missing:", "empty"])
        self.assertEqual(rows["maxResource"].split(), ["100000", "missing:", "default"])
        self.assertIn("/var/run/primary.h264UserData.pipe", rows["userdataPipe"])

    def test_come_from_the_first_of_two_elements(self):
        self.write("a.ini", "<a>\n<maxResource>5</maxResource>\n<maxResource>6</maxResource></a>")
        found = self.setting(self.as_json("a.ini"), "maxResource")
        self.assertEqual(found, {"name": "maxResource", "value": 5, "source": "line 2", "line": 2})

    def test_are_the_defaults_where_a_number_is_blank(self):
        self.write("a.ini", "<a><maxResource> </maxResource></a>")
        found = self.setting(self.as_json("a.ini"), "maxResource")
        self.assertEqual((found["value"], found["source"]), (100000, "line 1: default"))

    def test_of_the_pipes_come_from_the_elements_that_are_not_empty(self):
        self.write("a.ini", "<a>\n<userdataPipe>p</userdataPipe>\n<userdataPipe/>\n"
                            "<userdataPipe>q</userdataPipe></a>")
        found = self.setting(self.as_json("a.ini"), "userdataPipe")
        self.assertEqual((found["value"], found["source"]), (["p", "q"], "line 2, 4"))

    def test_show_control_characters_instead_of_sending_them(self):
        self.write("a.ini", "<a><tags><rule>a&#x9b;31m&#10;b</rule></tags></a>")
        self.assertIn("a\\x9b31m\\nb", self.answer("settings", "a.ini"))

    def test_tell_the_lines_on_which_tags_begin_however_far_down(self):
        self.write("a.ini", "<a>" + "\n" * 70000 + "<maxResource\n>5</maxResource></a>")
        self.assertEqual(self.setting(self.as_json("a.ini"), "maxResource")["line"], 70001)

    def test_from_standard_input_are_those_of_the_same_file(self):
        text = (EXAMPLES / "analytics.ini").read_text()
        self.assertIn("line 26", self.answer("settings", "-", input=text))


class TheSettingsFile(SettingsTest):
    def test_is_the_one_that_the_variable_names(self):
        self.environment["ANALYTICS_INI"] = self.write("a.ini", "<a/>")
        shown = self.as_json()
        self.assertEqual((shown["file"], shown["foundBy"]), ("a.ini", "ANALYTICS_INI"))

    def test_is_expanded_as_a_shell_does(self):
        self.write("a.ini", "<a/>")
        self.environment["ANALYTICS_INI"] = "~/a.ini second"
        shown = self.as_json()
        self.assertEqual(shown["file"], str(self.directory / "a.ini"))
        self.assertEqual(shown["foundBy"], "ANALYTICS_INI, expanded from '~/a.ini second'")

    def test_is_the_raw_text_of_a_variable_that_cannot_be_expanded(self):
        self.environment["ANALYTICS_INI"] = self.write("a(b.ini", "<a/>")
        self.assertEqual(self.as_json()["foundBy"], "ANALYTICS_INI")

    def test_is_the_built_in_one_where_the_variable_is_not_set(self):
        shown = self.as_json(status=1)
        self.assertEqual(shown["file"], BUILT_IN_PATH)
        self.assertIn("not set", shown["foundBy"])

    def test_is_the_built_in_one_where_the_variable_expands_to_nothing(self):
        for nothing in ("", '""'):
            with self.subTest(variable=nothing):
                self.environment["ANALYTICS_INI"] = nothing
                self.assertEqual(self.as_json(status=1)["file"], BUILT_IN_PATH)

    def test_that_cannot_be_used_leaves_the_built_in_values(self):
        self.environment["ANALYTICS_INI"] = self.write("a.ini", "<a>")
        shown = self.as_json(status=1)
        self.assertIn("a.ini:1: is not well-formed XML", shown["problem"])
        found = self.setting(shown, "tags/rule")
        self.assertEqual((found["value"], found["source"]), ("rule", "built-in"))
        self.assertEqual(self.setting(shown, "userdataPipe")["value"], [])

    def test_named_on_the_command_line_must_be_usable(self):
        self.assert_refused(2, "none.ini: cannot be opened: No such file or directory; check its "
                            "path and mode",
                            "settings", "none.ini")


class TheVariables(SettingsTest):
    def variables(self, *each):
        rows = "".join(f'<variable name="{name}" value="{value}"/>' for name, value in each)
        self.write("a.ini", f"<a><variables>{rows}</variables></a>")
        return self.as_json("a.ini")["variables"]

    def test_are_shown_as_written_and_expanded(self):
        found = self.variables(("root", "/r"), ("sub", "${root}/s"))[1]
        self.assertEqual((found["value"], found["expanded"]), ("${root}/s", "/r/s"))

    def test_that_lead_back_to_themselves_are_named(self):
        found = self.variables(("a", "${b}"), ("b", "${a}"))[0]
        self.assertEqual(found["problem"], "never ends: a -> b -> a")
        self.assertNotIn("expanded", found)

    def test_that_are_defined_twice_count_once(self):
        found = self.variables(("a", "1"), ("a", "2"))
        self.assertEqual([each["value"] for each in found], ["1"])


if __name__ == "__main__":
    unittest.main()
