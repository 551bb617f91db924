"""The manual pages: what their readers' programs make of them, and what they say of the sources."""

import os
import pathlib
import re
import shutil
import subprocess
import tempfile
import unittest

SOURCE = pathlib.Path(__file__).resolve().parents[2]
PAGES = sorted((SOURCE / "docs" / "man").glob("*.md"))
LIBRARY = ("document", "settings", "profile", "platform")

LINTERS = (
    ("groff", "-ww", "-z", "-t", "-man", "-Tutf8"),
    ("mandoc", "-Tlint", "-Werror"),
    ("lexgrog",),
)


def text_of(page):
    return (SOURCE / "docs" / "man" / f"{page}.md").read_text()


def section(page, title):
    return text_of(page).split(f"\n# {title}\n")[1].split("\n# ")[0]


def see_also(page):
    """The pages that a page names at its end, such as analytics.ini.5."""
    return {".".join(named)
            for named in re.findall(r"\*\*(\S+)\*\*\((\d)\)", section(page, "SEE ALSO"))}


class ThePages(unittest.TestCase):
    def lint(self, command, page):
        done = subprocess.run([*command, page], check=False, text=True, capture_output=True)
        named = f'{page}: "{pathlib.Path(page).stem} - ' if command == ("lexgrog",) else ""
        self.assertEqual((done.returncode, done.stderr), (0, ""), done.stdout)
        self.assertRegex(done.stdout, f"^{re.escape(named)}.+\n$" if named else "^$")

    @unittest.skipUnless(shutil.which("go-md2man"), "go-md2man is not installed")
    def test_are_faultless_for_all_that_read_them(self):
        with tempfile.TemporaryDirectory() as directory:
            for source in PAGES:
                made = os.path.join(directory, source.stem)
                subprocess.run(["go-md2man", "-in", source, "-out", made], check=True)
                for linter in LINTERS:
                    with self.subTest(page=source.stem, linter=linter[0]):
                        self.lint(linter, made)

    def test_have_a_date(self):
        for source in PAGES:
            with self.subTest(page=source.stem):
                self.assertRegex(source.read_text(),
                                 r'\A\S+ \d "\d{4}-\d\d-\d\d" "analytics-settings" ')

    def test_are_named_at_the_end_of_those_that_they_name(self):
        for page in (source.stem for source in PAGES):
            for other in see_also(page):
                with self.subTest(page=page, other=other):
                    self.assertIn(page, see_also(other))

    def test_name_only_pages_that_there_are(self):
        pages = {source.stem for source in PAGES}
        for source in PAGES:
            with self.subTest(page=source.stem):
                named = re.findall(r"\*\*(\S+)\*\*\((\d)\)", source.read_text())
                self.assertLessEqual({".".join(name) for name in named}, pages)


class TheLibrarysPage(unittest.TestCase):
    """Has every text that the library prints, with words in capitals for what varies."""

    def printing(self):
        """The statements of the library that print."""
        for source in sorted(path for room in LIBRARY for path in (SOURCE / room).iterdir()):
            code = re.sub(r"(?m)//.*|^#.*", "", source.read_text())
            yield from re.findall(r"\b(?:\w*printf|f?put[cs]|putchar|f?write|perror|v?syslog|"
                                  r"c(?:out|err|log)|Trace)\b[^;]*;", code)

    def formats(self):
        for statement in self.printing():
            yield re.search(r'^(?:printf|Trace\(\))\((?:0, )?"(.*)\\n"', statement)

    def test_has_a_text_for_each_format(self):
        shown = re.findall(r"(?m)^    (.*)", section("libanalytics-settings.3", "DIAGNOSTICS"))
        formats = [found and found[1] for found in self.formats()]
        self.assertNotIn(None, formats, "a statement prints in a way that this test does not know")
        for known in formats:
            self.assertTrue([text for text in shown if self.is_of(known, text)], known)
        for text in shown:
            self.assertTrue([known for known in formats if self.is_of(known, text)], text)

    def is_of(self, known, text):
        return re.fullmatch(re.escape(known).replace("%s", r"\w+"), text) is not None

    def test_has_every_header(self):
        shown = set(re.findall(r"<(analytics/\w+\.h)>", section("libanalytics-settings.3", "SYNOPSIS")))
        headers = {f"analytics/{path.name.removesuffix('.in')}"
                   for path in (SOURCE / "include" / "analytics").iterdir()}
        self.assertEqual(shown, headers - {"analytics/Export.h"})

    def test_has_every_variable_of_the_environment(self):
        shown = re.findall(r"(?m)^\*\*(\w+)\*\*$", section("libanalytics-settings.3", "ENVIRONMENT"))
        for room in (*LIBRARY, "host"):
            for source in (SOURCE / room).rglob("*.cpp"):
                for name in re.findall(r'\bgetenv\("(\w+)"\)', source.read_text()):
                    self.assertIn(name, shown, source)


class ThePageOfHostctl(unittest.TestCase):
    def test_has_every_command(self):
        shown = re.findall(r"(?m)^\*\*(\w+)\*\*", section("hostctl.1", "COMMANDS"))
        listed = subprocess.run([os.environ["HOSTCTL"], "--help"], check=True, capture_output=True,
                                text=True).stdout
        commands = re.split(r"(?im)^subcommands:\s*\n", listed)[1].split("\n\n")[0]
        self.assertEqual(sorted(shown), sorted(line.split()[0] for line in commands.splitlines()))


if __name__ == "__main__":
    unittest.main()
