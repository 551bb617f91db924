"""What is installed, where it goes, and that it starts from there."""

import json
import os
import shlex
import tempfile
import unittest

from trees import (COMPILER, HOST_LIBRARIES, LIBRARY, SDK, SOURCE, WITH_HOST, WORK, attempt,
                   configure, configure_library, entries, libraries, prefix, said)


class AnInstalledLibrary(unittest.TestCase):
    def test_finds_the_platform_that_is_installed_with_it(self):
        for tree in WITH_HOST:
            for name in [LIBRARY, *HOST_LIBRARIES]:
                with self.subTest(tree=tree, library=name):
                    self.assertEqual(["$ORIGIN"], entries(libraries(tree) / name, "RUNPATH"))

    def test_looks_nowhere_by_itself_without_that_platform(self):
        self.assertEqual([], entries(libraries("bare") / LIBRARY, "RUNPATH", "RPATH"))

    def test_comes_without_the_platform_unless_that_is_asked_for(self):
        found = [path.name for path in libraries("bare").glob("*.so")]
        self.assertEqual([LIBRARY], found)
        self.assertFalse((prefix("bare") / "include" / "tavrel").exists())

    def test_comes_with_its_licence(self):
        licences = list((prefix("lib") / "share" / "doc").glob("*/LICENSE"))
        self.assertEqual(["MIT License"], [text.read_text().splitlines()[0] for text in licences])

    def test_has_all_its_symbols_bound_before_it_runs(self):
        for name in [LIBRARY, *HOST_LIBRARIES]:
            with self.subTest(library=name):
                self.assertIn("BIND_NOW", said("readelf", "--dynamic", libraries("lib") / name))

    def test_has_its_plain_name_as_soname(self):
        for name in [LIBRARY, *HOST_LIBRARIES]:
            self.assertEqual([name], entries(libraries("lib") / name, "SONAME"))

    def test_has_a_versioned_soname_where_that_is_asked_for(self):
        for name in [LIBRARY, *HOST_LIBRARIES]:
            with self.subTest(library=name):
                link = libraries("versioned") / name
                self.assertEqual([f"{name}.1"], entries(link, "SONAME"))
                self.assertEqual(f"{name}.1", os.readlink(link))
                self.assertEqual(f"{name}.1.0.0", os.readlink(f"{link}.1"))


class ThePkgConfigFile(unittest.TestCase):
    def variable(self, tree, name, *options):
        return said("pkg-config", *options, f"--variable={name}", "analytics-settings",
                    PKG_CONFIG_PATH=str(libraries(tree) / "pkgconfig")).strip()

    def test_names_the_library_folder(self):
        for tree in ("lib", "lib64", "triplet", "absolute"):
            with self.subTest(tree=tree):
                self.assertEqual(str(libraries(tree)), self.variable(tree, "libdir"))

    def test_follows_a_moved_prefix(self):
        moved = f"--define-variable=prefix={prefix('moved')}"
        self.assertEqual(str(libraries("moved")), self.variable("moved", "libdir", moved))
        self.assertEqual(str(prefix("moved") / "include"),
                         self.variable("moved", "includedir", moved))


class TheVersionHeader(unittest.TestCase):
    def test_says_what_the_packages_say(self):
        include = prefix("lib") / "include"
        macros = said(COMPILER, "-E", "-dM", "-x", "c++", include / "analytics" / "Version.h")
        defined = dict(line.split()[1:] for line in macros.splitlines()
                       if "ANALYTICS_SETTINGS_VERSION" in line)
        version = said("pkg-config", "--modversion", "analytics-settings",
                       PKG_CONFIG_PATH=str(libraries("lib") / "pkgconfig")).strip()
        parts = zip(("MAJOR", "MINOR", "PATCH"), version.split("."))
        self.assertEqual({"ANALYTICS_SETTINGS_VERSION": f'"{version}"',
                          **{f"ANALYTICS_SETTINGS_VERSION_{name}": part for name, part in parts}},
                         defined)


class ABuild(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory(prefix="configured-", dir=WORK)
        self.addCleanup(directory.cleanup)
        self.build = directory.name

    def macro(self, configuration, name):
        """What a macro is where the library is compiled; None where it is not defined."""
        with open(f"{self.build}/compile_commands.json", encoding="utf-8") as commands:
            command, = [entry["command"] for entry in json.load(commands)
                        if entry["file"].endswith("document/Document.cpp")
                        and f"/{configuration}/" in entry["command"]]
        words = shlex.split(command)
        words = words[:words.index("-o")] + ["-E", "-dM", "-Werror", words[-1]]
        lines = [line.split() for line in said(*words).splitlines() if line.startswith("#define ")]
        return next((line[2] for line in lines if line[1] == name), None)

    def configure(self, flags):
        configure_library(self.build, f"CMAKE_CXX_FLAGS={flags}", "CMAKE_EXPORT_COMPILE_COMMANDS=ON",
                          "CMAKE_CONFIGURATION_TYPES=Debug;Release;RelWithDebInfo;MinSizeRel",
                          f"ANALYTICS_PLATFORM_ROOT={SDK}", generator="Ninja Multi-Config")

    def test_is_fortified_wherever_it_is_optimised(self):
        self.configure("-U_FORTIFY_SOURCE")
        for configuration in ("Release", "RelWithDebInfo", "MinSizeRel"):
            with self.subTest(configuration=configuration):
                self.assertEqual("2", self.macro(configuration, "_FORTIFY_SOURCE"))
        self.assertIsNone(self.macro("Debug", "_FORTIFY_SOURCE"))

    def test_is_hardened_no_less_than_its_toolchain_wants(self):
        self.configure("-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=3 -fstack-protector-all")
        self.assertEqual("3", self.macro("Release", "_FORTIFY_SOURCE"))
        self.assertIsNotNone(self.macro("MinSizeRel", "__SSP_ALL__"))

    def test_is_fortified_more_than_its_toolchain_wants_if_that_is_little(self):
        self.configure("-U_FORTIFY_SOURCE -D_FORTIFY_SOURCE=1")
        self.assertEqual("2", self.macro("Release", "_FORTIFY_SOURCE"))

    def test_takes_a_sanitizer_from_the_compilers_flags(self):
        configure_library(self.build, "CMAKE_BUILD_TYPE=Debug", f"ANALYTICS_PLATFORM_ROOT={SDK}",
                          compiler="clang++", CXXFLAGS="-O0 -fsanitize=address,undefined")
        said("cmake", "--build", self.build)

    def test_needs_neither_cli11_nor_glib_against_a_camera_sdk(self):
        configure_library(self.build, f"ANALYTICS_PLATFORM_ROOT={SDK}",
                          "CMAKE_DISABLE_FIND_PACKAGE_CLI11=ON",
                          PKG_CONFIG_LIBDIR="/nonexistent")

    def test_makes_the_manual_with_make_as_well(self):
        configure_library(self.build, generator="Unix Makefiles")
        said("cmake", "--build", self.build, "--target", "analytics-manual")

    def refusal(self, *definitions):
        """What CMake says, on one line, of a configuration that it refuses."""
        done = attempt("cmake", "-S", SOURCE, "-B", self.build, "-G", "Ninja",
                       *(f"-D{definition}" for definition in definitions))
        self.assertNotEqual(0, done.returncode)
        return " ".join(done.stdout.split())

    def test_refuses_a_camera_sdk_without_a_platform(self):
        self.assertIn("No platform in /nonexistent: ANALYTICS_PLATFORM_ROOT is wrong",
                      self.refusal("ANALYTICS_PLATFORM_ROOT=/nonexistent"))

    def test_refuses_tests_against_a_camera_sdk(self):
        self.assertIn("The tests need the host platform, so no ANALYTICS_PLATFORM_ROOT",
                      self.refusal(f"ANALYTICS_PLATFORM_ROOT={SDK}", "ANALYTICS_BUILD_TESTS=ON"))

    def test_says_why_it_installs_no_platform_with_the_tools(self):
        tools = ("ANALYTICS_BUILD_TOOLS=ON", "ANALYTICS_BUILD_TESTS=OFF",
                 f"CMAKE_CXX_COMPILER={COMPILER}")
        sentence = "No platform is installed with the tools"
        self.assertNotIn(sentence, configure(SOURCE, self.build, *tools))
        self.assertIn(f"{sentence}: ANALYTICS_INSTALL_HOST is OFF",
                      configure(SOURCE, self.build, *tools, "ANALYTICS_INSTALL_HOST=OFF"))
        self.assertIn(f"{sentence}: theirs is the camera's",
                      configure(SOURCE, self.build, *tools, f"ANALYTICS_PLATFORM_ROOT={SDK}"))

    def test_names_the_fakes_as_the_libraries_that_they_stand_for(self):
        configure(SOURCE, self.build, "ANALYTICS_VERSIONED_SONAME=ON", "ANALYTICS_BUILD_TOOLS=OFF",
                  "CMAKE_BUILD_TYPE=Debug", f"CMAKE_CXX_COMPILER={COMPILER}")
        said("cmake", "--build", self.build, "--target", "fake-core", "fake-tavrel-settings")
        for name in HOST_LIBRARIES:
            with self.subTest(library=name):
                fake = f"{self.build}/tests/support/{name}"
                self.assertEqual([f"{name}.1"], entries(fake, "SONAME"))


if __name__ == "__main__":
    unittest.main()
