"""Programs that use the library start, wherever it is and however they were built."""

import pathlib
import shutil
import tempfile
import unittest

from consumers import (COMPILERS, PROJECT, STANDARDS, WAYS_FROM_SOURCES, answer, by_cmake,
                       by_find_package, by_pkg_config, from_sources)
from trees import COMPILER, SDK, WITH_HOST, WORK, attempt, configure, libraries, prefix

# What find_package is asked for, and whether 1.0.0 answers it.
VERSIONS = {
    "": True,
    "1": True,
    "1.0": True,
    "1.0.0": True,
    "1.0.0 EXACT": True,
    "1...<2": True,
    "0.9": False,
    "1.0.1": False,
    "1.1": False,
    "2": False,
    "1.0.1 EXACT": False,
    "2...<3": False,
}

ASK_FOR_EACH = """
cmake_minimum_required(VERSION 3.25)
project(versions LANGUAGES NONE)
foreach(version IN ITEMS {versions})
  separate_arguments(words UNIX_COMMAND "${{version}}")
  find_package(analytics-settings ${{words}} QUIET)
  message(STATUS "answer to '${{version}}': ${{analytics-settings_FOUND}}")
  unset(analytics-settings_DIR CACHE)
endforeach()
"""


class AConsumer(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="consumer-", dir=WORK)
        self.addCleanup(directory.cleanup)
        self.directory = directory.name

    def assert_starts(self, program):
        self.assertEqual("A rule 0 1.0.0\n", answer(program))

    def test_starts_by_find_package_with_each_compiler_and_standard(self):
        for compiler in COMPILERS:
            programs = by_cmake(f"{self.directory}/{compiler}", compiler,
                                f"CMAKE_PREFIX_PATH={prefix('lib')}", standards=STANDARDS)
            for program in programs:
                with self.subTest(program=program):
                    self.assert_starts(program)

    def test_starts_by_pkg_config_with_each_compiler_and_standard(self):
        for compiler in COMPILERS:
            for standard in STANDARDS:
                with self.subTest(compiler=compiler, standard=standard):
                    self.assert_starts(by_pkg_config(self.directory, compiler, "lib", standard))

    def test_starts_wherever_the_libraries_are(self):
        for tree in WITH_HOST:
            with self.subTest(tree=tree):
                self.assert_starts(*by_find_package(f"{self.directory}/{tree}", COMPILER, tree))
                self.assert_starts(by_pkg_config(self.directory, COMPILER, tree))

    def test_starts_with_the_sources_taken_in(self):
        for way in WAYS_FROM_SOURCES:
            with self.subTest(way=way):
                self.assert_starts(*from_sources(self.directory, COMPILER, way))

    def test_gets_the_versions_that_the_library_can_stand_for(self):
        versions = " ".join(f'"{version}"' for version in VERSIONS)
        project = pathlib.Path(self.directory, "CMakeLists.txt")
        project.write_text(ASK_FOR_EACH.format(versions=versions))
        said = configure(self.directory, f"{self.directory}/build",
                         f"CMAKE_PREFIX_PATH={prefix('lib')}")
        for version, accepted in VERSIONS.items():
            with self.subTest(version=version):
                self.assertIn(f"answer to '{version}': {int(accepted)}\n", said)


class AConsumerForACamera(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="consumer-", dir=WORK)
        self.addCleanup(directory.cleanup)
        self.build = directory.name

    def test_is_told_that_it_must_name_the_platform(self):
        refusal = attempt("cmake", "-S", PROJECT, "-B", self.build,
                          f"-DCMAKE_PREFIX_PATH={prefix('bare')}")
        self.assertEqual(1, refusal.returncode)
        self.assertIn("set ANALYTICS_PLATFORM_ROOT to the camera SDK",
                      " ".join(refusal.stdout.split()))

    def assert_starts(self, *definitions):
        # An RPATH, which holds for all that the program loads, stands for the camera's loader.
        program, = by_cmake(self.build, COMPILER, "CMAKE_EXE_LINKER_FLAGS=-Wl,--disable-new-dtags",
                            *definitions)
        self.assertEqual("A rule 0 1.0.0\n", answer(program))

    def test_starts_where_the_loader_finds_the_platform(self):
        self.assert_starts(f"CMAKE_PREFIX_PATH={prefix('bare')}", f"ANALYTICS_PLATFORM_ROOT={SDK}")

    def test_takes_a_platform_that_is_in_the_prefix_of_the_library(self):
        both = f"{self.build}/both"
        for tree in (prefix("bare"), SDK):
            shutil.copytree(tree, both, dirs_exist_ok=True)
        self.assert_starts(f"CMAKE_PREFIX_PATH={both}")

    def test_names_the_sdk_to_pkg_config(self):
        flags = attempt("pkg-config", f"--define-variable=platform={SDK}", "--cflags", "--libs",
                        "analytics-settings",
                        PKG_CONFIG_PATH=str(libraries("bare") / "pkgconfig")).stdout.split()
        self.assertIn(f"-I{SDK}/include", flags)
        self.assertIn(f"-L{SDK}/lib", flags)


if __name__ == "__main__":
    unittest.main()
