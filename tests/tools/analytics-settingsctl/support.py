"""What the tests of the built command share: running it, and files for it to read."""

import os
import pathlib
import shutil
import subprocess
import tempfile
import unittest

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parents[2]
EXAMPLES = SOURCE / "examples"
ONVIF = SOURCE / "tests" / "data" / "onvif"
COMMAND = os.environ["SETTINGSCTL"]
HOSTCTL = os.environ["HOSTCTL"]


class CommandTest(unittest.TestCase):
    """Has a directory of its own, in which the command runs, and no settings but its own."""

    maxDiff = None

    def setUp(self):
        self.directory = pathlib.Path(tempfile.mkdtemp(prefix="settingsctl-"))
        self.addCleanup(shutil.rmtree, self.directory)
        self.environment = {
            "PATH": os.environ["PATH"],
            "HOME": str(self.directory),
            "TERM": "xterm-256color",
            "TAVREL_SETTINGS": str(self.directory / "camera.ini"),
        }
        for name in os.environ:
            if name.startswith(("ASAN_", "LSAN_", "TSAN_", "UBSAN_", "LLVM_PROFILE")):
                self.environment[name] = os.environ[name]

    def write(self, name, content):
        """Writes a file into the test's directory and gives its name."""
        data = content.encode() if isinstance(content, str) else content
        (self.directory / name).write_bytes(data)
        return name

    def copy(self, path):
        """Copies a file into the test's directory and gives its name."""
        shutil.copy(path, self.directory / path.name)
        return path.name

    def read(self, name):
        return (self.directory / name).read_text()

    def run_command(self, *arguments, **options):
        """Runs the command; what it writes is text, unless text=False is given."""
        options = {"text": True, "capture_output": True, "timeout": 60, "cwd": self.directory,
                   "env": self.environment, "stdin": subprocess.DEVNULL, **options}
        if "input" in options:
            del options["stdin"]
        return subprocess.run([COMMAND, *map(str, arguments)], check=False, **options)

    def answer(self, *arguments, **options):
        """What the command prints when it succeeds, with nothing on standard error."""
        done = self.run_command(*arguments, **options)
        self.assertEqual((done.returncode, done.stderr), (0, ""), done)
        return done.stdout

    def assert_refused(self, status, message, *arguments, **options):
        """The command prints one sentence and nothing else."""
        done = self.run_command(*arguments, **options)
        sentence = f"analytics-settingsctl: {message}\n"
        self.assertEqual((done.returncode, done.stdout, done.stderr), (status, "", sentence))

    def assert_as_expected(self, name, text):
        """The text is that of the readable file NAME.expected."""
        self.assertEqual((HERE / f"{name}.expected").read_text(), text)
