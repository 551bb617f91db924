"""Free queries and substitution as the runtime gets them."""

import unittest

from support import CommandTest

SETTINGS = """<a>
  <maxSessions>12 of them</maxSessions>
  <empty/>
  <userdataPipe>one</userdataPipe><userdataPipe/><userdataPipe>two</userdataPipe>
</a>"""


NO_FILE = ("analytics-settingsctl: the runtime has no settings file here, because "
           "none.ini: cannot be opened: No such file or directory; check its path and mode, or "
           "name one with --settings\n")


class AQuery(CommandTest):
    def setUp(self):
        super().setUp()
        self.environment["ANALYTICS_INI"] = self.write("a.ini", SETTINGS)

    def test_prints_the_first_text(self):
        self.assertEqual(self.answer("get", "//userdataPipe"), "one\n")

    def test_prints_all_texts_that_are_not_empty(self):
        self.assertEqual(self.answer("get", "--all", "//userdataPipe"), "one\ntwo\n")

    def test_prints_the_number_that_the_runtime_reads(self):
        self.assertEqual(self.answer("get", "//maxSessions", "--int", "7"), "12\n")

    def test_prints_the_default_where_there_is_no_number(self):
        self.assertEqual(self.answer("get", "//absent", "--int", "-7"), "-7\n")

    def test_without_a_text_is_told_so(self):
        for path in ("//absent", "//empty"):
            with self.subTest(path=path):
                done = self.run_command("get", path)
                self.assertEqual((done.returncode, done.stdout), (1, "\n"))
                self.assertEqual(done.stderr, f"analytics-settingsctl: a.ini: {path} has no text, "
                                              "so the runtime gets none; add one if it needs it\n")

    def test_that_is_no_expression_is_refused(self):
        self.assert_refused(2, "'//[' is not an XPath 1.0 expression; see analytics-settingsctl "
                            "get --help", "get", "//[")

    def test_takes_a_number_or_all_texts_but_not_both(self):
        self.assertEqual(self.run_command("get", "//a", "--all", "--int", "1").returncode, 2)

    def test_asks_the_file_that_it_is_told_to(self):
        self.write("b.ini", "<a><maxSessions>3</maxSessions></a>")
        self.assertEqual(self.answer("get", "//maxSessions", "--settings", "b.ini"), "3\n")

    def test_without_a_settings_file_finds_what_the_runtime_finds(self):
        self.environment["ANALYTICS_INI"] = "none.ini"
        for arguments, found in ((("//maxSessions",), "\n"), (("--all", "//maxSessions"), ""),
                                 (("--int", "7", "//maxSessions"), "7\n")):
            with self.subTest(arguments=arguments):
                done = self.run_command("get", *arguments)
                self.assertEqual((done.returncode, done.stdout), (1, found))
                self.assertEqual(done.stderr, NO_FILE)

    def test_of_a_file_that_is_named_needs_it(self):
        self.assert_refused(2, "no.ini: cannot be opened: No such file or directory; check its "
                            "path and mode", "get", "//a", "--settings", "no.ini")


class Substitution(CommandTest):
    def expand(self, text, **variables):
        rows = "".join(f'<variable name="{name}" value="{value}"/>'
                       for name, value in variables.items())
        self.environment["ANALYTICS_INI"] = self.write(
            "a.ini", f"<a><variables>{rows}</variables></a>")
        return self.run_command("expand", text)

    def test_follows_the_table(self):
        variables = {"dir": "/tmp", "outer": "${dir}/x", "open": "${", "brace": "{dir}",
                     "again": "{again}", "empty": ""}
        for text, expected in {
                "plain": "plain",
                "${dir}/a": "/tmp/a",
                "${dir}${dir}": "/tmp/tmp",
                "${outer}": "/tmp/x",
                "${missing}/a": "/a",
                "${}${dir}": "${}${dir}",
                "${dir}${}${dir}": "/tmp${}${dir}",
                "${dir": "${dir",
                "${a${b}}": "}",
                "${open}dir}": "/tmp",
                "$${brace}": "/tmp",
                "$${empty}{dir}": "/tmp",
                "$$${again}": "{again}",
                '${"}': "",
        }.items():
            with self.subTest(text=text):
                done = self.expand(text, **variables)
                self.assertEqual((done.returncode, done.stdout), (0, expected + "\n"))

    def test_that_never_ends_is_named_with_its_cycle(self):
        variables = {"a": "${b}", "b": "x${c}", "c": "${a}y", "own": "-${own}", "open": "${",
                     "joined": "${open}joined}", "dollar": "$${brace}", "brace": "{dollar}"}
        for text, cycle in {
                "${a}": "a -> b -> c -> a",
                "before ${b} behind": "b -> c -> a -> b",
                "${own}": "own -> own",
                "${joined}": "joined -> joined",
                "${dollar}": "dollar -> dollar",
        }.items():
            with self.subTest(text=text):
                done = self.expand(text, **variables)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertTrue(done.stderr.endswith(f"leads back to itself: {cycle}; "
                                                     "change one of these variables\n"), done)

    def test_that_grows_beyond_measure_is_refused(self):
        variables = {f"v{n}": f"${{v{n + 1}}}${{v{n + 1}}}" for n in range(40)}
        for last in ("x" * 9, ""):
            with self.subTest(last=last):
                done = self.expand("${v0}", **variables, v40=last)
                self.assertEqual((done.returncode, done.stdout), (1, ""))
                self.assertIn("grows beyond", done.stderr)

    def test_of_a_text_without_reference_needs_no_file(self):
        self.assertEqual(self.answer("expand", "plain $ {text}"), "plain $ {text}\n")

    def test_without_a_settings_file_is_that_of_the_runtime(self):
        self.environment["ANALYTICS_INI"] = "none.ini"
        for text, expanded in (("x${a}y", "xy\n"), ("${", "${\n"), ("${}", "${}\n")):
            with self.subTest(text=text):
                done = self.run_command("expand", text)
                self.assertEqual((done.returncode, done.stdout), (1, expanded))
                self.assertEqual(done.stderr, NO_FILE)

    def test_of_a_long_text_without_a_settings_file_is_refused(self):
        self.environment["ANALYTICS_INI"] = "none.ini"
        done = self.run_command("expand", "${a}" * 10001)
        self.assertEqual((done.returncode, done.stdout), (1, ""))
        self.assertIn("none.ini: the text grows beyond", done.stderr)

    def test_by_a_file_that_is_named_needs_it(self):
        self.assert_refused(2, "no.ini: cannot be opened: No such file or directory; check its "
                            "path and mode", "expand", "${a}", "--settings", "no.ini")


if __name__ == "__main__":
    unittest.main()
