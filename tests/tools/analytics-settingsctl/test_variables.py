"""Variables that refer to many others, or to others in uncommon ways."""

import json
import unittest
from xml.sax.saxutils import quoteattr

from support import EXAMPLES, CommandTest

LIMITS = "grows beyond 1 MiB or 10000 references"


class VariablesTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = "a.ini"

    def define(self, variables):
        """Writes a settings file that has nothing to be found in it but its variables."""
        rows = "".join(f"<variable name={quoteattr(name)} value={quoteattr(value)}/>\n"
                       for name, value in variables.items())
        text = (EXAMPLES / "analytics.ini").read_text()
        head, rest = text.split("<variables>")
        tail = rest.split("</variables>")[1]
        self.write("a.ini", f"{head}<variables>\n{rows}</variables>{tail}")

    def shown(self, variables, **options):
        """What `settings` says of each variable: its expansion, or what is wrong with it."""
        self.define(variables)
        answer = json.loads(self.answer("settings", "a.ini", "--json", **options))
        return {each["name"]: each.get("expanded", each.get("problem"))
                for each in answer["variables"]}

    def found(self, variables, **options):
        """Each finding of `check`: its check, and the first variable that it names."""
        self.define(variables)
        done = self.run_command("check", "--json", "a.ini", **options)
        return [(each["check"], each["message"].split("${")[1].split("}")[0])
                for each in json.loads(done.stdout)["findings"]]


class ManyVariables(VariablesTest):
    """A minute would not be enough if each had to be looked for among all others."""

    PLAIN = {f"v{n:05}": f"value {n}" for n in range(10_000)}
    CHAIN = {f"v{n:05}": f"${{v{n + 1:05}}}" for n in range(9_999)} | {"v09999": "end"}

    def test_are_shown(self):
        self.assertEqual(self.shown(self.PLAIN, timeout=60), self.PLAIN)

    def test_that_refer_to_the_next_one_are_shown(self):
        self.assertEqual(set(self.shown(self.CHAIN, timeout=60).values()), {"end"})

    def test_that_grow_are_shown_as_far_as_there_is_room(self):
        chain = {f"v{n:05}": f"x${{v{n + 1:05}}}" for n in range(9_999)} | {"v09999": "x"}
        shown = self.shown(chain, timeout=60)
        self.assertEqual(shown["v09000"], "x" * 1000)
        self.assertEqual(shown["v00000"], "has 10000 bytes, too many to be shown here")

    def test_that_form_one_circle_are_told_of_it(self):
        circle = self.CHAIN | {"v09999": "${v00000}"}
        shown = self.shown(circle, timeout=60)
        self.assertTrue(shown["v09999"].startswith("never ends: v09999 -> v00000 -> v00001"))
        self.assertTrue(all(each.startswith("never ends: ") for each in shown.values()))

    def test_that_form_one_circle_are_found_once(self):
        circle = self.CHAIN | {"v09999": "${v00000}"}
        self.assertEqual(self.found(circle, timeout=60), [("cyclic-reference", "v00000")])

    def test_are_checked(self):
        self.assertEqual(self.found(self.CHAIN, timeout=60), [])

    def test_can_be_substituted(self):
        self.define(self.CHAIN)
        self.assertEqual(self.answer("expand", "${v00000}", timeout=60), "end\n")

    def test_in_a_long_circle_are_not_all_named(self):
        self.define(self.CHAIN | {"v09999": "${v00001}"})
        done = self.run_command("expand", "${v00001}", timeout=60)
        self.assertEqual(done.returncode, 1)
        self.assertIn("v00001 -> v00002 -> v00003 -> v00004 -> v00005 -> v00006 -> "
                      "(9992 more) -> v09999 -> v00001", done.stderr)


class ADoubledValue(VariablesTest):
    """Forty levels of it would be more than any memory holds."""

    LEVELS = {f"v{n}": f"${{v{n + 1}}}${{v{n + 1}}}" for n in range(40)}

    def test_is_found_where_it_first_is_too_long(self):
        for last in ("x" * 999, ""):
            with self.subTest(last=last):
                found = self.found(self.LEVELS | {"v40": last}, timeout=60)
                first = "v29" if last else "v27"
                self.assertEqual(found, [("variable-too-long", first)])

    def test_is_not_shown(self):
        for last in ("x" * 999, ""):
            with self.subTest(last=last):
                shown = self.shown(self.LEVELS | {"v40": last}, timeout=60)
                self.assertEqual((shown["v0"], shown["v27"]), (LIMITS, LIMITS))
                self.assertEqual(shown["v39"], last * 2)

    def test_spoils_what_refers_to_it(self):
        shown = self.shown(self.LEVELS | {"v40": "", "other": "a${v0}b"}, timeout=60)
        self.assertEqual(shown["other"], LIMITS)


class ACircle(VariablesTest):
    def test_through_a_joined_reference_is_found(self):
        variables = {"p": "$", "x": "${p}{x}"}
        self.assertEqual(self.found(variables), [("cyclic-reference", "x")])
        self.assertEqual(self.shown(variables), {"p": "$", "x": "never ends: x -> x"})

    def test_is_found_next_to_another(self):
        variables = {"a": "${b}", "b": "${a}", "c": "${a}${c}", "d": "${p}{d}", "p": "$"}
        self.assertEqual(self.found(variables), [("cyclic-reference", "a"),
                                                 ("cyclic-reference", "c"),
                                                 ("cyclic-reference", "d")])

    def test_spoils_what_refers_to_it(self):
        self.assertEqual(self.shown({"a": "${b}", "b": "${a}", "c": "-${b}"})["c"],
                         "never ends: b -> a -> b")

    def test_is_none_where_text_is_used_up_on_the_way(self):
        variables = {"p": "$", "x": "{x}", "y": "$${x}", "open": "${", "z": "${open}p}"}
        self.assertEqual([each for each in self.found(variables) if each[0] == "cyclic-reference"],
                         [])
        self.assertEqual(self.shown(variables)["y"], "{x}")


class ADefinition(VariablesTest):
    def rows(self, *rows):
        self.write("a.ini", "<a xmlns:q='urn:q'><variables>" + "\n".join(rows) + "</variables></a>")
        return json.loads(self.answer("settings", "a.ini", "--json"))["variables"]

    def test_with_its_name_in_a_namespace_is_none(self):
        self.assertEqual(self.rows('<variable q:name="n" value="1"/>'), [])
        self.assertEqual(self.answer("expand", "<${n}>"), "<>\n")

    def test_with_its_value_in_a_namespace_is_empty(self):
        self.assertEqual(self.rows('<variable name="n" q:value="1"/>'),
                         [{"name": "n", "value": "", "line": 1, "expanded": ""}])
        self.assertEqual(self.answer("expand", "<${n}>"), "<>\n")

    def test_is_read_past_attributes_in_a_namespace(self):
        self.assertEqual(self.rows('<variable q:name="m" name="n" q:value="1" value="2"/>'),
                         [{"name": "n", "value": "2", "line": 1, "expanded": "2"}])

    def test_without_a_value_gives_way_to_one_with_a_value(self):
        self.assertEqual(self.rows('<variable name="n"/>', '<variable name="n" value="2"/>'),
                         [{"name": "n", "value": "2", "line": 2, "expanded": "2"}])


if __name__ == "__main__":
    unittest.main()
