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
        self.assert_refuses("none", "none: cannot be opened: No such file or directory")

    def test_refuses_an_empty_file(self):
        self.write("f", "")
        self.assert_refuses("f", "f: is empty")

    def test_refuses_a_directory(self):
        self.assert_refuses(".", ".: is a directory; name a file in it")

    def test_refuses_a_huge_file(self):
        with open(self.directory / "f", "wb") as huge:
            huge.truncate(100_000_000)
        self.assert_refuses("f", "f: is larger than 64 MiB")

    def test_refuses_a_device_without_end(self):
        self.assert_refuses("/dev/zero", "/dev/zero: is larger than 64 MiB")

    def test_does_not_wait_for_a_pipe_without_writer(self):
        os.mkfifo(self.directory / "f")
        self.assert_refuses("f", "f: is empty", timeout=20)

    def test_refuses_a_truncated_file(self):
        text = (EXAMPLES / "analytics.ini").read_text()
        self.write("f", text[:len(text) // 2])
        self.assert_refuses("f", "f:13: is not well-formed XML: ")

    def test_refuses_a_binary_file(self):
        self.write("f", bytes(range(256)) * 40)
        self.assert_refuses("f", "f:1: is not well-formed XML: ")

    def test_refuses_deep_nesting(self):
        self.write("f", "<a>" * 100_000 + "</a>" * 100_000)
        self.assert_refuses("f", "f:1: is not well-formed XML: Excessive depth")

    def test_refuses_entities_that_multiply(self):
        for bomb in (BOMB, REPEATED):
            self.write("f", bomb)
            self.assert_refuses("f", "f:1: is not well-formed XML: ", timeout=20)

    def test_refuses_empty_standard_input(self):
        self.assert_refuses("-", "standard input: is empty")

    def test_refuses_closed_standard_input(self):
        self.assert_refuses("-", "standard input: cannot be opened: Bad file descriptor",
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
                         "analytics-settingsctl: f: cannot be opened: Permission denied\n")

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
                         (2, "analytics-settingsctl: standard output cannot be written\n"))

    def test_holds_the_librarys_own_messages_only_if_asked_for(self):
        arguments = ("settings", EXAMPLES / "analytics.ini")
        self.answer(*arguments)
        self.environment["ANALYTICS_TRACE"] = "1"
        self.assertIn("LoadSettings", self.run_command(*arguments).stderr)


if __name__ == "__main__":
    unittest.main()
