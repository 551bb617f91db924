"""Files that are not what they should be: a clear refusal, whatever the command."""

import os
import subprocess
import unittest

from support import COMMAND, EXAMPLES, CommandTest

COMMANDS = {
    "settings": ("settings",),
    "get": ("get", "//a", "--settings"),
    "expand": ("expand", "${a}", "--settings"),
    "profile": ("profile",),
    "profile --settings": ("profile", str(EXAMPLES / "profile.xml"), "--settings"),
    "set": ("set", "--rule", "A", "--item", "n", "--dry-run"),
    "delete-rules": ("delete-rules", "--dry-run"),
}
BEHIND = {"set": ("1",), "delete-rules": ("A",)}

BOMB = ('<!DOCTYPE a [<!ENTITY e0 "xxxxxxxxxx">' +
        "".join(f'<!ENTITY e{n} "{f"&e{n - 1};" * 10}">' for n in range(1, 12)) +
        "]><a><maxResource>&e11;</maxResource></a>")
REPEATED = (f'<!DOCTYPE a [<!ENTITY e "{"x" * 1_000_000}">]>'
            f'<a><maxResource>{"&e;" * 2000}</maxResource></a>')

CIRCLE = '<!DOCTYPE a [<!ENTITY a "&b;"><!ENTITY b "&a;">]><a>&a;</a>'


class EveryCommand(CommandTest):
    """Each test goes through all commands that read files."""

    def assert_refuses(self, path, message, **options):
        for name, arguments in COMMANDS.items():
            with self.subTest(command=name):
                done = self.run_command(*arguments, path, *BEHIND.get(name, ()), **options)
                self.assertEqual((done.returncode, done.stdout), (2, ""))
                self.assertEqual(done.stderr.count("\n"), 1, done.stderr)
                self.assertTrue(done.stderr.startswith("analytics-settingsctl: "))
                self.assertIn(message, done.stderr)

    def test_refuses_a_missing_file(self):
        self.assert_refuses("none", "none: cannot be opened: No such file or directory; check its "
                                    "path and mode\n")

    def test_refuses_an_empty_file(self):
        self.write("f", "")
        self.assert_refuses("f", "f: is empty; name another, or write something into it\n")

    def test_refuses_a_directory(self):
        self.assert_refuses(".", ".: is a directory; name a file in it")

    def test_refuses_a_huge_file(self):
        with open(self.directory / "f", "wb") as huge:
            huge.truncate(100_000_000)
        self.assert_refuses("f", "f: is larger than 64 MiB, which no settings file or profile is; "
                                 "name another\n")

    def test_refuses_a_device_without_end(self):
        self.assert_refuses("/dev/zero", "/dev/zero: is larger than 64 MiB")

    def test_does_not_wait_for_a_pipe_without_writer(self):
        os.mkfifo(self.directory / "f")
        self.assert_refuses("f", "f: is a pipe that nobody has written to; start its writer first",
                            timeout=20)

    def test_refuses_a_truncated_file(self):
        text = (EXAMPLES / "analytics.ini").read_text()
        self.write("f", text[:len(text) // 2])
        self.assert_refuses("f", "f:13: is not well-formed XML: ")

    def test_refuses_a_binary_file(self):
        self.write("f", bytes(range(256)) * 40)
        self.assert_refuses("f", "f:1: is not well-formed XML: ")

    def test_refuses_deep_nesting(self):
        self.write("f", "<a>" * 100_000 + "</a>" * 100_000)
        self.assert_refuses("f", "f:1: cannot be used: elements lie more than 256 deep in each "
                                 "other; nest them less deeply\n")

    def test_refuses_what_is_longer_than_the_library_reads(self):
        long = "x" * 10_000_001
        for content in (f"<b>{long}</b>", f"<b>{long[1:]}&amp;{long[1:]}</b>",
                        f"<b>{'y' * 99}{long}</b>".replace("xxx", "x\n\n"), f'<b a="{long}"/>',
                        f"<!--{long}-->", f"<![CDATA[{long}]]>", f"<?b {long}?>"):
            self.write("f", f"<a>{content}</a>")
            with self.subTest(content=content[:20]):
                self.assert_refused_for_length("profile", "f")

    def test_does_not_take_what_is_unfinished_for_too_long(self):
        for content in ('<a b="c', "<a><!-- b", "<a><![CDATA[b", "<a><?b c", "<a><!-- b\0 -->"):
            self.write("f", content)
            with self.subTest(content=content):
                self.assertIn("f:1: is not well-formed XML: ",
                              self.run_command("profile", "f").stderr)

    def test_refuses_settings_that_are_longer_than_the_library_reads(self):
        self.write("f", f"<a><maxResource>5</maxResource>{' ' * 10_000_001}</a>")
        for arguments in (("settings", "f"), ("profile", EXAMPLES / "profile.xml", "--settings",
                                              "f")):
            with self.subTest(arguments=arguments):
                self.assert_refused_for_length(*arguments)

    def assert_refused_for_length(self, *arguments):
        done = self.run_command(*arguments)
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertRegex(done.stderr, r"\Aanalytics-settingsctl: f:\d+: cannot be used: a text, an "
                                      r"attribute, a comment or a section is longer than 10 MB; "
                                      r"shorten it\n\Z")

    def test_takes_what_is_as_long_as_the_library_reads(self):
        self.write("f", f"<a>{'x' * 10_000_000}</a>")
        self.answer("profile", "f")

    def test_refuses_names_that_are_longer_than_the_library_reads(self):
        self.write("f", f"<a><{'x' * 50_001}/></a>")
        self.assert_refuses("f", "f:1: cannot be used: a name is longer than 50000 bytes; shorten "
                                 "it\n")

    def test_never_names_the_options_of_a_parser(self):
        for content in ("<a>" * 1000, f'<a b="{"x" * 10_000_001}"/>'):
            self.write("f", content)
            self.assertNotIn("XML_", self.run_command("check", "f").stdout)

    def test_says_what_is_not_well_formed_and_not_what_is_unusual_before_it(self):
        self.write("f", "<a>\n<x:b/>\n<c></d></a>")
        self.assert_refuses("f", "f:3: is not well-formed XML: Opening and ending tag mismatch: c "
                                 "line 3 and d; correct it\n")

    def test_refuses_entities_that_multiply(self):
        for bomb in (BOMB, REPEATED, CIRCLE):
            self.write("f", bomb)
            self.assert_refuses("f", "f:1: cannot be used: entities lead back to themselves or "
                                     "multiply beyond measure; write out what they stand for\n",
                                timeout=20)

    def test_refuses_empty_standard_input(self):
        self.assert_refuses("-", "standard input: is empty; name another, or write something into "
                                 "it\n")

    def test_refuses_closed_standard_input(self):
        self.assert_refuses("-", "standard input: cannot be opened: Bad file descriptor; redirect "
                                 "a file to it\n",
                            stdin=None, preexec_fn=lambda: os.close(0))


class AFile(CommandTest):
    def test_without_permission_is_refused(self):
        self.write("f", "<a/>")
        (self.directory / "f").chmod(0)
        self.directory.chmod(0o755)
        plain = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        if os.getuid() != 0:
            plain = []
        done = subprocess.run([*plain, COMMAND, "settings", "f"], cwd=self.directory, check=False,
                              env=self.environment, capture_output=True, text=True)
        self.assertEqual(done.returncode, 2)
        self.assertEqual(done.stderr,
                         "analytics-settingsctl: f: cannot be opened: Permission denied; check its "
                         "path and mode\n")

    @unittest.skipUnless("CHANGING_FILE" in os.environ, "not with a sanitizer")
    def test_that_changes_while_it_is_read_is_refused(self):
        self.write("f", "<a/>\n")
        self.environment["LD_PRELOAD"] = os.environ["CHANGING_FILE"]
        self.assert_refused(2, "f: changed while it was read; try again", "settings", "f")

    def test_from_a_pipe_is_read_to_its_end(self):
        script = f'exec "{COMMAND}" profile <(cat "{EXAMPLES / "profile.xml"}")'
        done = subprocess.run(["bash", "-c", script], cwd=self.directory, check=False,
                              env=self.environment, capture_output=True, text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("2 engines, 4 rules, 2 event sinks", done.stdout)

    def test_named_twice_as_standard_input_is_refused(self):
        message = "standard input: is named twice but can be read only once; name it once"
        arguments = ("profile", "-", "--settings", "-")
        with open(EXAMPLES / "profile.xml", encoding="utf-8") as profile:
            self.assert_refused(2, message, *arguments, stdin=profile)
        self.assert_refused(2, message, *arguments, input="<a/>")

    def test_of_which_a_part_was_read_before_is_read_from_there(self):
        self.write("f", f"a line before\n{(EXAMPLES / 'profile.xml').read_text()}")
        done = subprocess.run(["sh", "-c", f'(read line; "{COMMAND}" profile -) <f'], check=False,
                              cwd=self.directory, env=self.environment, capture_output=True,
                              text=True)
        self.assertEqual((done.returncode, done.stderr), (0, ""))
        self.assertIn("standard input: 2 engines, 4 rules, 2 event sinks", done.stdout)

    def test_shows_its_name_on_one_line_in_messages(self):
        self.write("a\nb\x1b.xml", "<a>")
        done = self.run_command("profile", "a\nb\x1b.xml")
        self.assertTrue(done.stderr.startswith("analytics-settingsctl: a\\nb\\x1b.xml:1: "))
        self.assertEqual(done.stderr.count("\n"), 1)

    def test_shows_its_name_on_one_line_in_notes(self):
        self.environment["ANALYTICS_INI"] = "'a\nb.ini'"
        done = self.run_command("profile", EXAMPLES / "profile.xml")
        self.assertTrue(done.stderr.startswith(
            "analytics-settingsctl: note: the built-in settings apply, because a\\nb.ini: "))

    def test_outside_the_document_is_never_read(self):
        self.write("secret", "top secret")
        self.write("f", '<!DOCTYPE a [<!ENTITY e SYSTEM "secret">]>'
                        "<a><quadOutputFile>&e;</quadOutputFile></a>")
        done = self.run_command("settings", "f")
        self.assertNotIn("top secret", done.stdout + done.stderr)


class TheOutput(CommandTest):
    def test_that_cannot_be_written_is_told(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            done = self.run_command("settings", EXAMPLES / "analytics.ini", capture_output=False,
                                    stdout=full, stderr=subprocess.PIPE)
        self.assertEqual((done.returncode, done.stderr),
                         (2, "analytics-settingsctl: standard output cannot be written; redirect "
                             "it elsewhere\n"))

    def test_holds_the_librarys_own_messages_only_if_asked_for(self):
        arguments = ("settings", EXAMPLES / "analytics.ini")
        self.answer(*arguments)
        self.environment["ANALYTICS_TRACE"] = "1"
        self.assertIn("LoadSettings", self.run_command(*arguments).stderr)


if __name__ == "__main__":
    unittest.main()
