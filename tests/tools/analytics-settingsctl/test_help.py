"""What teaches the command: its help, the manual pages and the completion of command lines."""

import re
import shlex
import shutil
import subprocess
import unittest

from support import COMMAND, EXAMPLES, SOURCE, CommandTest

COMPLETION = SOURCE / "tools" / "analytics-settingsctl" / "completion"


class HelpTest(CommandTest):
    def section(self, title, *arguments):
        """A section of a help; versions of CLI11 differ in the case of its title."""
        after = re.split(rf"(?im)^{title}:\s*\n", self.answer(*arguments, "--help"))[1]
        return after.split("\n\n")[0]

    def commands(self):
        """Names of all commands, as the help lists them."""
        return [line.split()[0] for line in self.section("Subcommands").splitlines()]

    def options(self, command):
        """The options of a command, short and long, as its help lists them."""
        listed = re.findall(r"^ +(-\w)?,? *(--[\w-]+)?", self.section("Options", command),
                            re.MULTILINE)
        return {option for options in listed for option in options if option}

    def each_option(self):
        for command in self.commands():
            for option in self.options(command):
                yield command, option

    def checks(self):
        return re.findall(r"^[a-z]\S+", self.answer("check", "--list"), re.MULTILINE)


class Help(HelpTest):
    def test_lists_all_commands(self):
        self.assertEqual(sorted(self.commands()), [
            "available", "check", "delete-rules", "draw", "expand", "get", "profile", "reserve",
            "set", "settings", "watch"])

    def test_of_each_command_has_examples_of_it(self):
        for command in self.commands():
            with self.subTest(command=command):
                examples = self.answer(command, "--help").split("Examples:\n")[1]
                self.assertIn(f"analytics-settingsctl {command} ", examples.replace("\n", " "))

    def test_fits_into_100_columns(self):
        for command in ("", *self.commands()):
            with self.subTest(command=command):
                shown = self.answer(*filter(None, [command]), "--help")
                self.assertLessEqual(max(map(len, shown.splitlines())), 100)

    def test_examples_run(self):
        self.copy(EXAMPLES / "analytics.ini")
        shutil.copy(EXAMPLES / "profile.xml", self.directory / "gate.xml")
        self.environment["ANALYTICS_INI"] = "analytics.ini"
        for command in ("settings", "get", "expand", "profile", "set", "delete-rules"):
            for line in re.findall(r"^  (analytics-settingsctl .*?)(?:   .*)?$",
                                   self.answer(command, "--help"), re.MULTILINE):
                with self.subTest(line=line):
                    self.run_example(line)

    def run_example(self, line):
        """Runs an example but for what reads its output; one item is not in the sample."""
        line = line.split(" | ")[0].replace("analytics-settingsctl", shlex.quote(COMMAND), 1)
        original = (EXAMPLES / "profile.xml").read_text()
        self.write("gate.xml", original.replace("Direction", "Offset"))
        done = subprocess.run(["bash", "-c", line], cwd=self.directory, env=self.environment,
                              check=False, capture_output=True, text=True)
        self.assertEqual(done.returncode, 0, done.stderr)


class Arguments(CommandTest):
    def test_ask_for_the_version(self):
        version = re.search(r"VERSION (\S+) LANG", (SOURCE / "CMakeLists.txt").read_text())[1]
        self.assertEqual(self.answer("--version"), f"analytics-settingsctl {version}\n")

    def test_without_a_command_are_refused(self):
        self.assert_refused(2, "A subcommand is required; see analytics-settingsctl --help")

    def test_with_an_unknown_command_are_refused(self):
        self.assert_refused(2, "there is no command 'prfile'; did you mean 'profile'?", "prfile")
        self.assert_refused(2, "there is no command 'x'; see analytics-settingsctl --help", "x")

    def test_with_an_unknown_option_name_the_help_to_read(self):
        done = self.run_command("profile", "p.xml", "--colour")
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("--colour; see analytics-settingsctl profile --help\n", done.stderr)

    def test_that_are_missing_are_named(self):
        done = self.run_command("set", "p.xml", "--rule", "A", "1")
        self.assertEqual(done.returncode, 2)
        self.assertIn("--item is required", done.stderr)


class TheManualPage(HelpTest):
    def setUp(self):
        super().setUp()
        self.page = (SOURCE / "docs" / "man" / "analytics-settingsctl.1.md").read_text()

    def test_has_every_command(self):
        for command in self.commands():
            self.assertRegex(self.page, rf"(?m)^\*\*{command}\*\*")

    def test_has_every_option(self):
        for command, option in self.each_option():
            self.assertIn(f"**{option}**", self.page, f"{option} of {command}")

    def test_has_every_check_and_no_other(self):
        listed = self.page.split("# CHECKS\n")[1].split("\n# ")[0]
        self.assertEqual(re.findall(r"(?m)^\*\*(\S+)\*\*", listed), self.checks())

    def test_of_the_settings_has_every_setting(self):
        page = (SOURCE / "docs" / "man" / "analytics.ini.5.md").read_text()
        self.write("a.ini", "<a/>")
        for row in self.answer("settings", "a.ini").splitlines()[4:]:
            for name in row.split()[0].split("/") if row[0] != " " else ():
                self.assertIn(f"**{name}**", page)


class Completion(HelpTest):
    def setUp(self):
        super().setUp()
        (self.directory / "bin").mkdir()
        (self.directory / "bin" / "analytics-settingsctl").symlink_to(COMMAND)
        self.environment["PATH"] += f":{self.directory}/bin"

    def run_shell(self, *arguments):
        done = subprocess.run(arguments, check=True, capture_output=True, text=True,
                              cwd=self.directory, env=self.environment)
        self.assertEqual(done.stderr, "")
        return done.stdout

    def complete(self, *words):
        """What bash offers for the last word."""
        script = (f'source "{COMPLETION}/analytics-settingsctl.bash"; COMP_WORDS=("$@"); '
                  'COMP_CWORD=$(($# - 1)); _analytics_settingsctl; printf "%s\\n" "${COMPREPLY[@]}"')
        return self.run_shell("bash", "-c", script, "-", "analytics-settingsctl", *words).split()

    def test_offers_every_command(self):
        self.assertEqual({*self.complete(""), *self.complete("-")},
                         {*self.commands(), "--help", "--version"})

    def test_offers_every_option_and_no_other(self):
        for command in self.commands():
            with self.subTest(command=command):
                self.assertEqual(set(self.complete(command, "-")), self.options(command) - {"-h"})

    def test_offers_every_check(self):
        self.assertEqual(self.complete("check", "--without", ""), self.checks())

    def test_offers_files(self):
        self.write("gate.xml", "")
        self.assertEqual(self.complete("profile", "ga"), ["gate.xml"])

    def test_for_zsh_has_every_command_and_option(self):
        script = (COMPLETION / "_analytics-settingsctl").read_text()
        for command in self.commands():
            self.assertIn(f"'{command}:", script)
        for command, option in self.each_option():
            offered = re.search(rf"(?m)^    [a-z|-]*\b{command}\b[a-z|-]*\) ((?:.*\\\n)*.*)",
                                script)[1]
            self.assertTrue(self.is_offered(option, offered, script), f"{option} of {command}")

    def is_offered(self, option, offered, script):
        """Whether an option stands in a command's line or in a list that the line names."""
        while lists := re.findall(r"\$(\w+)", offered):
            offered = re.sub(r"\$\w+", "", offered)
            for name in lists:
                offered += re.search(rf"(?m)^  local -a {name}=(.*(?:\n    .*)*)", script)[1]
        return option == "-h" or re.search(rf"{re.escape(option)}[\[',}}]", offered) is not None

    @unittest.skipUnless(shutil.which("zsh"), "zsh is not installed")
    def test_for_zsh_is_a_script_that_it_can_read(self):
        subprocess.run(["zsh", "-n", COMPLETION / "_analytics-settingsctl"], check=True)


@unittest.skipUnless(shutil.which("fish"), "fish is not installed")
class CompletionForFish(Completion):
    def complete(self, *words):
        """What fish offers for the last word."""
        script = f"source {COMPLETION}/analytics-settingsctl.fish; complete -C \"$argv\""
        line = "analytics-settingsctl", *words
        offered = self.run_shell("fish", "--no-config", "-c", script, *line)
        return [described.split("\t")[0] for described in offered.splitlines()]

    def test_offers_files_only_where_they_are_meant(self):
        self.write("gate.xml", "")
        self.assertEqual(self.complete("draw", "--output", "ga"), ["gate.xml"])
        self.assertEqual(self.complete("watch", "ga"), [])


if __name__ == "__main__":
    unittest.main()
