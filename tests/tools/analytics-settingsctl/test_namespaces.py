"""What stands in a namespace and so is not found, and what is found in spite of one."""

import json
import unittest

from support import EXAMPLES, CommandTest

ITEMS = """<p xmlns:tt="http://www.onvif.org/ver10/schema">
<tt:rule Type="A" tt:Name="lost"><tt:Parameters>
  <tt:SimpleItem tt:Name="Active" Value="1"/>
  <tt:SimpleItem Name="Sensitivity" tt:Value="80"/>
  <tt:ElementItem tt:Name="Line"><tt:Line><tt:Point tt:x="1" y="2"/></tt:Line></tt:ElementItem>
</tt:Parameters></tt:rule>
<tt:rule tt:Type="B"/>
</p>"""


class AnAttributeInANamespace(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = str(EXAMPLES / "analytics.ini")
        self.write("profile.xml", ITEMS)
        self.shown = json.loads(self.answer("profile", "profile.xml", "--json"))

    def test_gives_no_name(self):
        rule = self.shown["rules"][0]
        self.assertEqual((rule["name"], rule["active"], self.shown["activeTypes"]), ("", False, []))
        self.assertNotIn("Active", rule["items"])
        self.assertEqual(rule["shapes"][0]["item"], "")

    def test_gives_no_type(self):
        self.assertEqual([rule["type"] for rule in self.shown["rules"]], ["A", ""])

    def test_gives_a_value_as_no_query_looks_for_that(self):
        rule = self.shown["rules"][0]
        self.assertEqual(rule["items"]["Sensitivity"], "80")
        self.assertEqual(rule["shapes"][0]["points"], [[1, 2]])

    def test_is_found_by_check_where_a_query_looks_for_it(self):
        done = self.run_command("check", "--json", "profile.xml")
        found = [(each["check"], each["line"]) for each in json.loads(done.stdout)["findings"]]
        self.assertEqual([line for check, line in found if check == "attribute-in-namespace"],
                         [3, 5, 7])


class AReservedPrefix(CommandTest):
    """Of the settings, for ONVIF's namespace."""

    PROFILE = '<p xmlns:tt="http://www.onvif.org/ver10/schema"><tt:rule Type="A"/></p>'

    def rules(self, prefix):
        text = (EXAMPLES / "analytics.ini").read_text()
        self.write("a.ini", text.replace("<prefix>tt<", f"<prefix>{prefix}<"))
        self.write("profile.xml", self.PROFILE)
        shown = self.answer("profile", "--settings", "a.ini", "--json", "profile.xml")
        return [rule["type"] for rule in json.loads(shown)["rules"]]

    def checks(self):
        done = self.run_command("check", "--json", "a.ini")
        return [each["check"] for each in json.loads(done.stdout)["findings"]]

    def test_xml_finds_nothing_and_is_an_error(self):
        self.assertEqual((self.rules("xml"), self.checks()), ([], ["invalid-name"]))

    def test_xmlns_finds_what_any_other_does(self):
        self.assertEqual((self.rules("xmlns"), self.checks()), (["A"], []))

    def test_xml_is_right_for_its_own_namespace(self):
        text = (EXAMPLES / "analytics.ini").read_text().replace("<prefix>tt<", "<prefix>xml<")
        self.write("a.ini", text.replace("http://www.onvif.org/ver10/schema",
                                         "http://www.w3.org/XML/1998/namespace"))
        self.assertEqual(self.checks(), [])


class AName(CommandTest):
    """A tag of the settings, missing or empty."""

    PROFILE = AReservedPrefix.PROFILE

    def test_is_an_error_without_which_nothing_is_found(self):
        text = (EXAMPLES / "analytics.ini").read_text()
        for without in ("", "<rule/>"):
            with self.subTest(without=without):
                self.write("a.ini", text.replace("<rule>rule</rule>", without))
                self.write("profile.xml", self.PROFILE)
                shown = self.answer("profile", "--settings", "a.ini", "--json", "profile.xml")
                self.assertEqual(json.loads(shown)["rules"], [])
                done = self.run_command("check", "--json", "a.ini")
                self.assertEqual([(each["check"], each["severity"])
                                  for each in json.loads(done.stdout)["findings"]],
                                 [("empty-name", "error")])


if __name__ == "__main__":
    unittest.main()
