"""Programs that are built with the library in each way that its README names, and started."""

import re
import subprocess

from trees import HERE, SOURCE, configure, environment, libraries, prefix, said

PROJECT = HERE / "consumer"
COMPILERS = ("g++", "clang++")
STANDARDS = (11, 14, 17, 20, 23)
WAYS_FROM_SOURCES = ("add_subdirectory", "FetchContent")

# What the README has a user of pkg-config type.
COMMANDS, = [block for block in re.findall(r"^```sh\n(.*?)^```$", (SOURCE / "README.md").read_text(),
                                           re.MULTILINE | re.DOTALL)
             if "pkg-config --cflags" in block]


def answer(program):
    """What a program prints that finds all that it needs by itself."""
    return subprocess.run([str(program)], env=environment(), text=True, check=True,
                          stdout=subprocess.PIPE, stderr=subprocess.DEVNULL).stdout


def by_cmake(build, compiler, *definitions, standards=(14,)):
    """Builds a program for each standard and gives their paths."""
    configure(PROJECT, build, f"CMAKE_CXX_COMPILER={compiler}", "CMAKE_BUILD_TYPE=Debug",
              f"CONSUMER_STANDARDS={';'.join(map(str, standards))}", *definitions)
    said("cmake", "--build", build)
    return [f"{build}/consumer-{standard}" for standard in standards]


def by_find_package(build, compiler, tree, *definitions, **options):
    package = libraries(tree) / "cmake" / "analytics-settings"
    return by_cmake(build, compiler, f"analytics-settings_DIR={package}", *definitions, **options)


def from_sources(build, compiler, way, **options):
    """Both ways of one compiler can share a build, which compiles the library once."""
    return by_cmake(build, compiler, f"CONSUMER_WAY={way}", f"CONSUMER_SOURCES={SOURCE}",
                    "CMAKE_DISABLE_FIND_PACKAGE_CLI11=ON", **options)


def by_pkg_config(directory, compiler, tree, standard=14):
    """Builds a program by the README's commands and gives its path."""
    commands = COMMANDS
    for named, meant in (("/opt/analytics/lib", libraries(tree)), ("g++ ", f"{compiler} "),
                         ("c++14", f"c++{standard}".replace("23", "2b")),
                         ("runtime.cpp", PROJECT / "consumer.cpp"),
                         ("pkg-config ", f"pkg-config --define-variable=prefix={prefix(tree)} ")):
        assert named in commands, f"the README's commands no longer name {named}"
        commands = commands.replace(named, str(meant))
    said("bash", "-euc", f"cd {directory}; {commands}")
    return f"{directory}/runtime"
