"""The parts of an installation, as this build makes them, and the tools in it, which start."""

import fnmatch
import os
import pathlib
import tempfile
import unittest

from trees import said

BUILD = os.environ["PACKAGING_BUILD"]

# What each component holds, at least one file for each pattern.
COMPONENTS = {
    "runtime": ["lib*/libanalytics-settings.so*"],
    "host": ["lib*/libanalytics-core.so*", "lib*/libtavrel.so*", "lib*/libtavrel-settings.so*"],
    "development": ["include/*.h", "lib*/analytics-settings*.cmake", "lib*/CameraPlatform.cmake",
                    "lib*/analytics-host*.cmake", "lib*/pkgconfig/analytics-settings.pc"],
    "tools": ["bin/analytics-settingsctl", "bin/hostctl", "share/bash-completion/*",
              "share/fish/*", "share/zsh/*"],
    "documentation": ["share/doc/*", "share/man/*"],
}


class AnInstallation(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="installed-")
        self.addCleanup(directory.cleanup)
        self.prefix = pathlib.Path(directory.name)

    def install(self, place, *options):
        """Installs into a new place and gives the files that are there then."""
        prefix = self.prefix / place
        said("cmake", "--install", BUILD, "--prefix", prefix, *options)
        return {str(path.relative_to(prefix)) for path in prefix.rglob("*") if not path.is_dir()}

    def test_is_made_of_its_components(self):
        files = {name: self.install(name, "--component", name) for name in COMPONENTS}
        self.assertEqual(self.install("complete"), set().union(*files.values()))
        for name, patterns in COMPONENTS.items():
            with self.subTest(component=name):
                matches = [set(fnmatch.filter(files[name], pattern)) for pattern in patterns]
                self.assertEqual(files[name], set().union(*matches))
                self.assertTrue(all(matches), list(zip(patterns, matches)))

    def test_has_tools_that_start(self):
        self.install("complete")
        programs = self.prefix / "complete" / "bin"
        version = said(programs / "analytics-settingsctl", "--version")
        self.assertRegex(version, r"^analytics-settingsctl \d+\.\d+\.\d+$")
        self.assertEqual("", said(programs / "hostctl", "get", TAVREL_SETTINGS="/nonexistent.ini"))


if __name__ == "__main__":
    unittest.main()
