"""scripts/links finds the links that are dead and no others."""

import pathlib
import subprocess
import tempfile
import unittest

LINKS = pathlib.Path(__file__).resolve().parents[2] / "scripts" / "links"

# What a page holds, and the link in it that is dead, if one is, with the reason.
MARKDOWN = (
    ("[a](b.md) [b](sub/) ![c](sub/c.svg)", None),
    ("[a](absent.md)", "absent.md names no file"),
    ("[a](B.md)", "B.md names no file"),
    ("![a](sub/absent.svg)", "sub/absent.svg names no file"),
    ("[a][1]\n\n[1]: absent.md", "absent.md names no file"),
    ("|a|\n|-|\n|[b](absent.md)|", "absent.md names no file"),
    ("<a href='absent.md'>a</a>", "absent.md names no file"),
    ("`[a](absent.md)`\n\n    [a](absent.md)", None),
    ("[a](sub%20a.md) [b](https://example.org/absent.md) [c](mailto:a@example.org)", None),
    ("[a](../outside.md)", "../outside.md leads out of the pages"),
    ("[a](#two-words) [b](b.md#see-a_b)\n# Two words", None),
    ("[a](#absent)\n# Two words", "#absent names no anchor"),
    ("[a](b.md#two-words)\n# Two words", "b.md#two-words names no anchor"),
    ("[a](#again) [b](#again-1)\n# Again\n# Again", None),
    ("[a](#again-2)\n# Again\n# Again", "#again-2 names no anchor"),
    ("[a](#c-and-more)\n## `C++`, [and](b.md) *more*!", None),
    ("[a](#own)\n<a id='own'></a>", None),
    ("[a](sub/c.svg#part)", "sub/c.svg#part names no anchor"),
)

HTML = (
    ("<a href='b.md'>a</a><img src='sub/c.svg'><script src='menu.js'></script>", None),
    ("<a href='#b'>a</a><p id='b'>b</p><a name='c'></a><a href='#c'>a</a>", None),
    ("<a href='#b'>a</a>", "#b names no anchor"),
    ("<link href='absent.css'>", "absent.css names no file"),
    ("<img src='absent.png'>", "absent.png names no file"),
)

SCRIPTS = (
    ("""var a = ["a", 'page.html', "page.html#there"], b = 'page.html';""", None),
    ("""var a = "absent.html";""", "absent.html names no file"),
    ("""var a = "page.html#absent";""", "page.html#absent names no anchor"),
)


class Links(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.pages = pathlib.Path(directory.name) / "pages"
        for name in ("sub/c.svg", "menu.js", "sub a.md", "../outside.md"):
            self.write(name, "")
        self.write("b.md", "# See `a_b`")
        self.write("page.html", "<p id='there'></p>")

    def write(self, name, text):
        path = self.pages / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def dead(self, *directories):
        """The dead links that are reported, a line each."""
        done = subprocess.run([LINKS, *(directories or [self.pages])], check=False, text=True,
                              capture_output=True)
        self.assertEqual(done.returncode, 1 if done.stderr else 0)
        return [line.removeprefix("links: ") for line in done.stderr.splitlines()]

    def check(self, kind, table):
        """Each row is a page of its own; all are read at once."""
        for number, (text, _) in enumerate(table):
            self.write(f"{number}.{kind}", text)
        reported = self.dead()
        for number, (text, fault) in enumerate(table):
            with self.subTest(text=text):
                of_row = [line for line in reported if line.startswith(f"{number}.")]
                self.assertEqual(of_row, [f"{number}.{kind}: {fault}"] if fault else [])

    def test_of_markdown(self):
        self.check("md", MARKDOWN)

    def test_of_html(self):
        self.check("html", HTML)

    def test_of_scripts(self):
        self.check("js", SCRIPTS)

    def test_are_not_read_where_pages_are_hidden_or_built(self):
        self.write(".hidden/a.md", "[a](absent.md)")
        self.write("tree/a.md", "[a](absent.md)")
        self.write("tree/CMakeCache.txt", "")
        self.assertEqual(self.dead(), [])

    def test_are_read_in_all_directories_that_are_named(self):
        self.write("sub/a.md", "[a](../b.md)")
        self.write("a.md", "[a](absent.md)")
        self.assertEqual(self.dead(self.pages, self.pages / "sub"), [
            "a.md: absent.md names no file", "a.md: ../b.md leads out of the pages"])


if __name__ == "__main__":
    unittest.main()
