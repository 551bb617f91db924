"""Profiles as they are shown."""

import json
import os
import pty
import unittest
import xml.etree.ElementTree as tree

from support import EXAMPLES, ONVIF, CommandTest

HEAD = ('<p xmlns:tt="http://www.onvif.org/ver10/schema" '
        'xmlns:ka="urn:kestal-com:schema:onvif:analytics:1">')


class AProfile(CommandTest):
    def shown(self, content, *arguments):
        self.write("p.xml", HEAD + content + "</p>")
        return self.answer("profile", "p.xml", *arguments)

    def as_json(self, content, *arguments):
        return json.loads(self.shown(content, "--json", *arguments))

    def on_terminal(self, **environment):
        """What the example looks like on a terminal."""
        leader, follower = pty.openpty()
        done = self.run_command("profile", EXAMPLES / "profile.xml", capture_output=False,
                                stdout=follower, env={**self.environment, **environment})
        os.close(follower)
        written = b""
        try:
            while block := os.read(leader, 65536):
                written += block
        except OSError:  # the end of a terminal that nobody holds any more
            pass
        os.close(leader)
        self.assertEqual(done.returncode, 0)
        return written.decode()

    def test_is_shown_as_tables(self):
        self.assert_as_expected("profile", self.answer("profile", "profile.xml", cwd=EXAMPLES))

    def test_is_shown_for_other_programs(self):
        shown = self.answer("profile", "profile.xml", "--json", cwd=EXAMPLES)
        self.assert_as_expected("profile-json", shown)
        self.assertEqual(json.loads(shown)["activeTypes"],
                         ["LineCrossing", "FieldDetector", "TamperDetector"])

    def test_fits_into_80_columns(self):
        points = '<tt:Point x="123456" y="654321"/>' * 50
        lines = self.shown(f'<tt:rule Type="{"T" * 90}" Name="{"long name " * 9}"><tt:Parameters>'
                           f'<tt:ElementItem Name="F"><tt:Polygon>{points}</tt:Polygon>'
                           '</tt:ElementItem></tt:Parameters></tt:rule>').splitlines()
        self.assertLessEqual(max(map(len, lines)), 80)

    def test_lines_up_behind_wide_characters(self):
        lines = self.shown('<tt:rule Type="門" Name="N"/><tt:rule Type="ab" Name="N"/>').splitlines()
        self.assertIn("門    N", lines[-2])
        self.assertIn("ab    N", lines[-1])

    def test_has_no_colours_when_piped(self):
        self.assertNotIn("\x1b", self.answer("profile", EXAMPLES / "profile.xml"))

    def test_has_colours_on_a_terminal(self):
        self.assertIn("\x1b[1mRULE", self.on_terminal())

    def test_has_no_colours_on_a_terminal_without_them(self):
        for environment in ({"NO_COLOR": "1"}, {"TERM": "dumb"}, {"TERM": ""}):
            with self.subTest(**environment):
                self.assertNotIn("\x1b", self.on_terminal(**environment))

    def test_shows_of_two_items_with_one_name_what_the_library_finds(self):
        shown = self.shown('<tt:rule Type="A"><tt:Parameters><tt:SimpleItem Name="n" Value="1"/>'
                           '<tt:SimpleItem Name="n" Value="2"/></tt:Parameters></tt:rule>')
        self.assertEqual([line.split() for line in shown.splitlines() if " n = " in line],
                         [["A", "-", "no", "n", "=", "1"]])
        self.assertEqual(shown.count("\n"), 5)

    def test_shows_only_what_the_library_finds(self):
        shown = self.as_json('<ka:rule Type="A"/><tt:eventSink Type="B"/><rule Type="C"/>')
        self.assertEqual((shown["rules"], shown["eventSinks"]), ([], []))

    def test_shows_an_absent_coordinate_as_the_library_reads_it(self):
        shown = self.as_json('<tt:rule><tt:Parameters><tt:ElementItem Name="L"><tt:Polyline>'
                             '<tt:Point x="7"/><tt:Point y="8z"/></tt:Polyline></tt:ElementItem>'
                             '</tt:Parameters></tt:rule>')
        self.assertEqual(shown["rules"][0]["shapes"],
                         [{"item": "L", "element": "Polyline", "points": [[7, 0], [0, 8]]}])

    def calibration(self, content, *arguments):
        return self.shown('<tt:engine Type="A"><tt:Parameters><tt:ElementItem Name="Calibration">'
                          f"<ka:Calibration>{content}</ka:Calibration></tt:ElementItem>"
                          "</tt:Parameters></tt:engine>", *arguments)

    def test_tells_what_a_calibration_lacks(self):
        lines = self.calibration("").splitlines()[-4:]
        self.assertEqual([line[line.index("Calibration"):] for line in lines], [
            "Calibration: object at near left missing", "Calibration: near width missing",
            "Calibration: far width missing", "Calibration: physical height missing"])

    def test_tells_what_a_calibration_lacks_as_null(self):
        shown = json.loads(self.calibration("", "--json"))["engines"][0]
        self.assertEqual(shown["calibration"], {"objectAtNearLeft": None, "nearWidth": None,
                                                "farWidth": None, "physicalHeight": None})

    def test_tells_which_side_of_an_object_is_missing(self):
        for given, text, numbers in (('left="4" top="0"', "(4,0) (-,-)", [[4, 0], [None, None]]),
                                     ('right="1"', "(-,-) (1,-)", [[None, None], [1, None]]),
                                     ('left="" bottom="x"', "(-,-) (-,0)",
                                      [[None, None], [None, 0]])):
            with self.subTest(given=given):
                piece = f"<ka:ObjectAtNearLeft {given}/>"
                self.assertIn(f"object at near left {text}\n", self.calibration(piece))
                shown = json.loads(self.calibration(piece, "--json"))["engines"][0]
                self.assertEqual(shown["calibration"]["objectAtNearLeft"], numbers)

    def test_takes_no_number_of_a_calibration_for_a_missing_one(self):
        for number in (0, 1, -1, 2147483647, -2147483648, -2147483647):
            with self.subTest(number=number):
                point = f'<tt:Point x="{number}" y="{number}"/>'
                shown = json.loads(self.calibration(
                    f"<ka:NearWidth>{point}{point}</ka:NearWidth>"
                    f"<ka:PhysicalHeight>{number}</ka:PhysicalHeight>", "--json"))["engines"][0]
                self.assertEqual(shown["calibration"]["nearWidth"], [[number, number]] * 2)
                self.assertEqual(shown["calibration"]["physicalHeight"], number)

    def test_takes_a_line_of_one_point_and_a_blank_height_for_missing(self):
        shown = json.loads(self.calibration(
            '<ka:FarWidth><tt:Point x="1" y="2"/></ka:FarWidth><ka:PhysicalHeight> '
            "</ka:PhysicalHeight>", "--json"))["engines"][0]["calibration"]
        self.assertEqual((shown["farWidth"], shown["physicalHeight"]), (None, None))

    def test_uses_the_tags_of_the_settings(self):
        self.environment["ANALYTICS_INI"] = str(ONVIF / "schema.ini")
        shown = self.as_json('<tt:Rule Type="A"/><tt:rule Type="B"/>')
        self.assertEqual([rule["type"] for rule in shown["rules"]], ["A"])

    def test_notes_settings_that_cannot_be_used(self):
        self.environment["ANALYTICS_INI"] = "none.ini"
        done = self.run_command("profile", EXAMPLES / "profile.xml")
        self.assertEqual(done.returncode, 0)
        self.assertIn("note: the built-in settings apply, because none.ini:", done.stderr)

    def test_tells_the_lines_on_which_tags_begin_however_far_down(self):
        shown = self.as_json("\n" * 70000 + '<tt:rule\n Type="A"/>')
        self.assertEqual(shown["rules"][0]["line"], 70001)

    def test_is_read_from_standard_input(self):
        shown = self.answer("profile", "-", input=f'{HEAD}<tt:rule Type="A"/></p>')
        self.assertTrue(shown.startswith("standard input: 0 engines, 1 rule, 0 event sinks\n"))

    def test_of_real_cameras_shows_as_many_elements_as_another_parser_finds(self):
        schema = "{http://www.onvif.org/ver10/schema}"
        for path in sorted(ONVIF.glob("*.xml")):
            with self.subTest(path=path.name):
                root = tree.parse(path).getroot()
                shown = json.loads(self.answer("profile", path, "--json", "--settings",
                                               ONVIF / "schema.ini"))
                self.assertEqual(len(shown["rules"]), len(list(root.iter(f"{schema}Rule"))))
                self.assertEqual([engine["name"] for engine in shown["engines"]],
                                 [module.get("Name", "")
                                  for module in root.iter(f"{schema}AnalyticsModule")])


if __name__ == "__main__":
    unittest.main()
