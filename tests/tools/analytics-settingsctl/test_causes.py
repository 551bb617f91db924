"""One mistake is one finding: what only follows from it is left out."""

import json
import re
import unittest

from support import EXAMPLES, CommandTest

SETTINGS = (EXAMPLES / "analytics.ini").read_text()


class CausesTest(CommandTest):
    def found(self, *arguments):
        """The checks and messages of what is found."""
        done = self.run_command("check", "--json", *arguments)
        self.assertEqual(done.stderr, "")
        return [(each["check"], each["message"]) for each in json.loads(done.stdout)["findings"]]

    def found_names(self, *arguments):
        return [check for check, _ in self.found(*arguments)]

    def found_with(self, *replacements):
        """What is found in the sample profile with changed settings, which are a.ini."""
        text = SETTINGS
        for old, new in replacements:
            self.assertIn(old, text)
            text = text.replace(old, new)
        return self.found("--settings", self.write("a.ini", text), EXAMPLES / "profile.xml")


class ATagThatQueriesFailWith(CausesTest):
    """Of one kind, so that the other kinds are still checked."""

    def test_is_the_only_finding(self):
        for name in ("rule", "engine", "eventSink"):
            with self.subTest(name=name):
                found = self.found_with((f"<{name}>{name}<", f"<{name}>r:x<"))
                self.assertEqual([check for check, _ in found], ["unusable-prefix"])
                self.assertIn(f"<tags><{name}> to 'r:x', which is not a valid XML name", found[0][1])

    def test_names_its_own_queries_only(self):
        message = self.found_with(("<rule>rule<", "<rule>r:x<"))[0][1]
        self.assertTrue(message.startswith("queries for rules fail: "), message)

    def test_is_told_also_where_it_selects_other_elements(self):
        message = self.found_with(("<rule>rule<", "<rule>*<"))[0][1]
        self.assertIn("<tags><rule> to '*'", message)

    def test_does_not_hide_what_is_wrong_with_other_kinds(self):
        profile = (EXAMPLES / "profile.xml").read_text()
        self.write("profile.xml", profile.replace(' Type="ka:MotionEngine"', ""))
        self.write("a.ini", SETTINGS.replace("<rule>rule<", "<rule>r:x<"))
        self.assertEqual(self.found_names("--settings", "a.ini", "profile.xml"),
                         ["unusable-prefix", "missing-type"])

    def test_is_no_word_that_others_are_misspellings_of(self):
        self.write("a.ini", SETTINGS.replace("<rule>rule<", "<rule> rule<"))
        self.assertEqual(self.found_names("--settings", "a.ini", EXAMPLES / "profile.xml"),
                         ["unusable-prefix"])

    def test_is_none_with_white_space_behind_it(self):
        self.assertEqual(self.found_with(("<rule>rule<", "<rule>rule \n<")), [])


class APrefixThatQueriesFailWith(CausesTest):
    def test_of_onvif_is_the_only_finding(self):
        self.assertEqual(self.found_with(("<prefix>tt<", "<prefix>1x<")), [
            ("unusable-prefix", "queries for rules and engines fail: a.ini sets "
             "<namespaces><onvif><prefix> to '1x', which is not a valid XML name")])

    def test_of_the_vendor_is_the_only_finding(self):
        self.assertEqual(self.found_with(("<prefix>ka<", "<prefix>1x<")), [
            ("unusable-prefix", "queries for event sinks fail: a.ini sets "
             "<namespaces><kestal><prefix> to '1x', which is not a valid XML name")])

    def test_may_be_taken_by_the_vendor(self):
        self.assertIn("<onvif><prefix> to 'ka', which is the vendor's prefix too",
                      self.found_with(("<prefix>tt<", "<prefix>ka<"))[0][1])

    def test_may_be_xmls_own(self):
        self.assertIn("<kestal><prefix> to 'xml', which always stands for XML's own namespace",
                      self.found_with(("<prefix>ka<", "<prefix>xml<"))[0][1])


class AnEmptyName(CausesTest):
    """A tag, prefix or namespace that the settings leave empty."""

    def test_is_the_only_finding(self):
        for old, path in (("<rule>rule<", "<tags><rule>"),
                          ("<prefix>tt<", "<namespaces><onvif><prefix>"),
                          ("<prefix>ka<", "<namespaces><kestal><prefix>"),
                          ("<url>urn:kestal-com:schema:onvif:analytics:1<",
                           "<namespaces><kestal><url>"),
                          ("<url>http://www.onvif.org/ver10/schema<", "<namespaces><onvif><url>")):
            with self.subTest(path=path):
                found = self.found_with((old, re.sub(r">.*<", "><", old)))
                self.assertEqual([check for check, _ in found], ["unusable-prefix"])
                self.assertIn(f" leaves {path} empty", found[0][1])

    def test_is_told_with_the_file_that_the_library_finds_itself(self):
        self.environment["ANALYTICS_INI"] = self.write("b.ini", SETTINGS.replace(">rule<", "><"))
        self.assertEqual(self.found(EXAMPLES / "profile.xml"), [
            ("unusable-prefix", "queries for rules fail: b.ini leaves <tags><rule> empty")])

    def test_is_told_together_with_others(self):
        self.write("a.ini", "<analytics><tags><rule/></tags></analytics>")
        found = self.found("--settings", "a.ini", EXAMPLES / "profile.xml")
        self.assertEqual([check for check, _ in found], ["unusable-prefix"])
        self.assertIn("queries for rules, engines and event sinks fail", found[0][1])
        self.assertIn("<tags><rule>, <tags><engine>", found[0][1])


class RenamedTags(CausesTest):
    def test_are_named_where_nothing_is_found(self):
        self.assertEqual(self.found_with(("<rule>rule<", "<rule>Regel<"),
                                         ("<engine>engine<", "<engine>E<"),
                                         ("<eventSink>eventSink<", "<eventSink>Senke<")), [
            ("nothing-found", "the library finds no rule, engine or event sink in this file: the "
             "settings name them 'Regel', 'E' and 'Senke'")])


class ASettingsFileInANamespace(CausesTest):
    NAMESPACED = '<analytics xmlns="urn:x">\n <maxSessions>2</maxSessions>\n</analytics>'

    def test_is_one_finding(self):
        self.assertEqual(self.found_names(self.write("a.ini", self.NAMESPACED)),
                         ["namespaced-element"])

    def test_is_told_by_its_consequences_if_its_check_is_switched_off(self):
        found = self.found_names("--without", "namespaced-element",
                                 self.write("a.ini", self.NAMESPACED))
        self.assertIn("empty-name", found)

    def test_with_settings_in_none_lacks_the_others(self):
        text = '<x:a xmlns:x="urn:x"><maxResource>1</maxResource><x:maxSessions/></x:a>'
        found = self.found_names(self.write("a.ini", text))
        self.assertEqual((found[0], found.count("missing-text")), ("namespaced-element", 4))

    def test_in_part_is_one_finding(self):
        for tags in ('<tags xmlns="urn:x">', '<x:tags xmlns:x="urn:x">'):
            with self.subTest(tags=tags):
                end = tags[:tags.index(" ")].replace("<", "</") + ">"
                text = SETTINGS.replace("<tags>", tags).replace("</tags>", end)
                self.assertEqual(self.found_names(self.write("a.ini", text)),
                                 ["namespaced-element"])


class AMisspeltSetting(CausesTest):
    def misspelt(self, name, misspelling):
        text = re.sub(f"(</?){name}>", rf"\1{misspelling}>", SETTINGS)
        return self.write("a.ini", text)

    def test_is_one_finding(self):
        for name, misspelling in (("mediaSource", "mediasource"), ("engine", "engin"),
                                  ("quadOutputFile", "quadOutputfile"), ("prefix", "prefx")):
            with self.subTest(name=name):
                found = set(self.found(self.misspelt(name, misspelling)))
                self.assertEqual(found, {
                    ("misspelt-element",
                     f"the library does not know <{misspelling}>: did you mean <{name}>?")})

    def test_that_holds_others_is_one_finding(self):
        self.assertEqual(self.found_names(self.misspelt("tags", "tag")), ["misspelt-element"])

    def test_does_not_make_the_variables_in_it_misplaced(self):
        found = self.found_names(self.misspelt("variables", "Variables"))
        self.assertEqual(set(found), {"misspelt-element", "undefined-reference"})

    def test_is_told_as_missing_if_its_check_is_switched_off(self):
        self.assertEqual(self.found_names("--without", "misspelt-element",
                                          self.misspelt("engine", "engin")), ["empty-name"])


if __name__ == "__main__":
    unittest.main()
