"""The library as it is installed, in all the places that its tests look at.

The test installed-trees runs this file, which builds the library with the host platform once and
installs it from there again and again; the other tests find what it made.
"""

import os
import pathlib
import shutil
import subprocess

HERE = pathlib.Path(__file__).resolve().parent
SOURCE = HERE.parents[1]
WORK = pathlib.Path(os.environ["PACKAGING_WORK"])
COMPILER = os.environ["PACKAGING_COMPILER"]
BUILD = WORK / "build"
SDK = WORK / "sdk"

# Where each tree has its libraries: in a folder of its prefix, or elsewhere.
FOLDERS = {
    "lib": "lib",
    "lib64": "lib64",
    "triplet": "lib/x86_64-linux-gnu",
    "absolute": str(WORK / "trees" / "elsewhere" / "lib"),
    "versioned": "lib",
    "passing": "lib",
    "moved": "lib",
    "bare": "lib",
}
WITH_HOST = [tree for tree in FOLDERS if tree not in ("bare", "passing")]
HOST_LIBRARIES = ["libanalytics-core.so", "libtavrel.so", "libtavrel-settings.so"]
LIBRARY = "libanalytics-settings.so"


def prefix(tree):
    return WORK / "trees" / tree


def libraries(tree):
    return prefix(tree) / FOLDERS[tree]


def environment(**variables):
    """What programs are started with: nothing that helps them to find a library."""
    kept = {name: value for name, value in os.environ.items() if name != "LD_LIBRARY_PATH"}
    return {**kept, "ANALYTICS_INI": "/nonexistent/analytics.ini", "ANALYTICS_TRACE": "0",
            "TAVREL_SETTINGS": str(WORK / "camera.ini"), **variables}


def attempt(*command, **variables):
    """Runs a command; what it says is one text."""
    return subprocess.run([str(word) for word in command], env=environment(**variables),
                          text=True, stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                          stderr=subprocess.STDOUT, check=False)


def said(*command, **variables):
    """What a command says that succeeds."""
    done = attempt(*command, **variables)
    if done.returncode:
        raise AssertionError(f"{done.args} ends with {done.returncode}:\n{done.stdout}")
    return done.stdout


def configure(source, build, *definitions, generator="Ninja", **variables):
    """Configures a project and gives what CMake says."""
    options = [f"-D{definition}" for definition in definitions]
    return said("cmake", "-S", source, "-B", build, "-G", generator, *options, **variables)


def configure_library(build, *definitions, compiler=COMPILER, **options):
    """Configures the library without what is for its developers."""
    parts = [f"ANALYTICS_BUILD_{part}=OFF" for part in ("TESTS", "EXAMPLES", "TOOLS")]
    return configure(SOURCE, build, f"CMAKE_CXX_COMPILER={compiler}", *parts, *definitions,
                     **options)


def dynamic(path):
    """The entries of a library's or program's dynamic section, as pairs of tag and value."""
    for line in said("readelf", "--dynamic", "--wide", path).splitlines():
        words = line.split()
        if line.endswith("]"):
            yield words[1].strip("()"), words[-1].strip("[]")


def entries(path, *tags):
    return [value for tag, value in dynamic(path) if tag in tags]


def install(tree, *definitions):
    host = "OFF" if tree == "bare" else "ON"
    configure_library(BUILD, "CMAKE_BUILD_TYPE=Release", f"CMAKE_INSTALL_PREFIX={prefix(tree)}",
                      f"CMAKE_INSTALL_LIBDIR={FOLDERS[tree]}", f"ANALYTICS_INSTALL_HOST={host}",
                      "CMAKE_DISABLE_FIND_PACKAGE_CLI11=ON", *definitions)
    said("cmake", "--build", BUILD, "--target", "install")


def make_sdk():
    """A camera SDK: the platform's headers and libraries."""
    shutil.copytree(SOURCE / "host" / "include", SDK / "include")
    (SDK / "lib").mkdir()
    for name in HOST_LIBRARIES:
        shutil.copy(libraries("lib") / name, SDK / "lib")


def main():
    shutil.rmtree(WORK, ignore_errors=True)
    for tree in ("lib", "lib64", "triplet", "absolute", "bare"):
        install(tree)
    install("versioned", "ANALYTICS_VERSIONED_SONAME=ON")
    install("passing", "ANALYTICS_VERSIONED_SONAME=OFF")
    prefix("passing").rename(prefix("moved"))
    make_sdk()


if __name__ == "__main__":
    main()
