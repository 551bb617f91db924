"""Every test has a time limit: one that waits for ever ends a run all the same.

usage: time_limits.py CTEST BUILD
"""

import json
import subprocess
import sys


def has_limit(test):
    return any(entry["name"] == "TIMEOUT" for entry in test.get("properties", ()))


def main():
    ctest, build = sys.argv[1:]
    listed = subprocess.run([ctest, "--test-dir", build, "--show-only=json-v1"], check=True,
                            capture_output=True, text=True).stdout
    tests = json.loads(listed)["tests"]
    without = [test["name"] for test in tests if not has_limit(test)]
    if not tests or without:
        sys.exit(f"tests without a time limit, of {len(tests)}: {without}")


if __name__ == "__main__":
    main()
