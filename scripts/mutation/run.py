#!/usr/bin/env python3
"""Changes the library in one place at a time and sees whether the fast tests notice.

run.py BUILD [--only PATH...]: BUILD is a finished build of the library and its tests. Prints each
mutant that no test notices, unless `equivalent.txt` says why none can, and the score.

A test also notices a mutant by needing ten times its time, or more than 4 GiB. What was too slow
beside another mutant is tried again alone; how many then still are is told.

What is known of a mutant is kept in BUILD/mutants.json as long as sources and tests stay as they
are, so that a stopped run goes on where it was.
"""

import argparse
import concurrent.futures
import hashlib
import json
import os
import resource
import subprocess
import sys
import tempfile
import threading
import time

from mutant_library import Build
from mutants import mutants_of

FOLDERS = ('document', 'settings', 'profile', 'platform')
# What a mutant's fate depends on, besides the compiler.
MATTERS = FOLDERS + ('include', 'host', 'tests', 'fuzz', 'examples', 'cmake', 'CMakeLists.txt',
                     'CMakePresets.json', 'scripts/mutation')
TOO_SLOW = ' (too slow)'
# Which tests notice first what is wrong in a folder; the others come after them.
NOTICES_FIRST = {'platform': ('blanking', 'resource', 'platform', 'unexpected')}
ADDRESS_SPACE = 4 << 30


class Tests:
    """The fast test programs, those that never load the library left out."""

    def __init__(self, build):
        listed = subprocess.run(['ctest', '--test-dir', build, '-L', '^fast$',
                                 '--show-only=json-v1'], check=True, stdout=subprocess.PIPE).stdout
        self.programs = [test for test in json.loads(listed)['tests']
                         if 'command' in test and not test['name'].startswith('host-core')
                         and not test['name'].startswith(('host-store', 'host-client', 'hostctl'))]
        self.seconds = {test['name']: self._time_of(test) for test in self.programs}

    def _time_of(self, test):
        started = time.monotonic()
        if self._failure(test, {}, 300):
            sys.exit(f"mutation: {test['name']} fails without any mutant")
        return time.monotonic() - started

    def _failure(self, test, environment, timeout):
        """Name of the test with how it failed, or None."""
        properties = {entry['name']: entry['value'] for entry in test.get('properties', [])}
        settings = dict(pair.split('=', 1) for pair in properties.get('ENVIRONMENT', []))
        with tempfile.TemporaryDirectory() as directory:
            process = subprocess.Popen(
                test['command'], cwd=properties.get('WORKING_DIRECTORY', directory),
                env={**os.environ, **settings, **environment, 'GTEST_FAIL_FAST': '1'},
                stdin=subprocess.DEVNULL, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL,
                start_new_session=True, preexec_fn=limit_memory)
            try:
                return test['name'] if process.wait(timeout) != 0 else None
            except subprocess.TimeoutExpired:
                return test['name'] + TOO_SLOW
            finally:
                kill_group(process)

    def notices(self, folder, library_directory):
        """Name of the first test that fails over the library in that directory, or None."""
        first = NOTICES_FIRST.get(folder, (folder,))
        ordered = sorted(self.programs, key=lambda test: (
            not test['name'].startswith(first), self.seconds[test['name']]))
        for test in ordered:
            # Children of a test that was killed may live on for a moment; the limit is generous.
            failure = self._failure(test, {'LD_LIBRARY_PATH': library_directory},
                                    5 + 10 * self.seconds[test['name']])
            if failure:
                return failure
        return None


def limit_memory():
    resource.setrlimit(resource.RLIMIT_AS, (ADDRESS_SPACE, ADDRESS_SPACE))
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))


def kill_group(process):
    try:
        os.killpg(process.pid, 9)
    except ProcessLookupError:
        pass
    process.wait()


def read(path):
    with open(path, encoding='utf-8') as file:
        return file.read()


def files_of(root, folders):
    """The files of the project in these folders, those not yet added included."""
    listed = subprocess.run(['git', 'ls-files', '-z', '--cached', '--others', '--exclude-standard',
                             '--', *folders], cwd=root, check=True, stdout=subprocess.PIPE).stdout
    paths = (path for path in listed.decode().split('\0') if path)
    return sorted(path for path in paths if os.path.isfile(os.path.join(root, path)))


def fingerprint(root):
    """Names the state of all that a mutant's fate depends on, which what is known of it is not."""
    code = subprocess.run([os.path.join(root, 'scripts/code'), *MATTERS, ':!*/equivalent.txt'],
                          check=True, stdout=subprocess.PIPE).stdout
    return hashlib.sha256(code).hexdigest()


class Results:
    """Fate of each mutant: how a test notices it, `not compiled` or `survives`."""

    def __init__(self, path, state):
        self._path, self._lock = path, threading.Lock()
        kept = json.loads(read(path)) if os.path.exists(path) else {}
        self._fates = kept['fates'] if kept.get('state') == state else {}
        self._state = state

    def get(self, key):
        return self._fates.get(key)

    def put(self, key, fate):
        with self._lock:
            self._fates[key] = fate
            with open(self._path + '.new', 'w', encoding='utf-8') as file:
                json.dump({'state': self._state, 'fates': self._fates}, file, indent=0)
            os.replace(self._path + '.new', self._path)


def equivalents():
    """Mutants that behave as the library does, as (path, change); each has its reason above it."""
    lines = read(os.path.join(os.path.dirname(__file__), 'equivalent.txt')).splitlines()
    return {tuple(line.split(': ', 1)) for line in lines if line and not line.startswith('#')}


def fate_of(build, tests, mutant, source, workplace):
    if not build.make_mutant(mutant.path, mutant.apply(source), workplace):
        return 'not compiled'
    return tests.notices(mutant.path.split('/')[0], workplace) or 'survives'


def judge(build, tests, results, mutants, sources):
    """Finds out the fate of all mutants, one on each processor, then of slow ones alone."""
    local = threading.local()

    def key_of(mutant):
        return f'{mutant.path}: {mutant.start} {mutant.describe(sources[mutant.path])}'

    def try_out(mutant):
        if not hasattr(local, 'workplace'):
            local.workplace = tempfile.mkdtemp(dir=build.directory, prefix='mutant-')
        source = sources[mutant.path]
        results.put(key_of(mutant), fate_of(build, tests, mutant, source, local.workplace))

    new = [mutant for mutant in mutants if results.get(key_of(mutant)) is None]
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        list(pool.map(try_out, new))
    for mutant in new:
        if results.get(key_of(mutant)).endswith(TOO_SLOW):
            try_out(mutant)
    return [(mutant, results.get(key_of(mutant))) for mutant in mutants]


def check_unchanged(build, tests, path, source):
    """Ends the run unless the tests accept a library that was made like a mutant, but is none."""
    with tempfile.TemporaryDirectory(dir=build.directory) as workplace:
        failed = not build.make_mutant(path, source, workplace) or tests.notices('', workplace)
    if failed:
        sys.exit(f'mutation: {failed} fails over the unchanged library')


def report(judged, sources, known):
    """Prints survivors that are not known, what is known in vain, and the score; True if all is
    well."""
    compiled = [(mutant, fate) for mutant, fate in judged if fate != 'not compiled']
    survivors = [mutant for mutant, fate in compiled if fate == 'survives']
    changes = [(mutant.path, mutant.describe(sources[mutant.path])) for mutant in survivors]
    unexplained = [change for change in changes if change not in known]
    for path, change in unexplained:
        print(f'survives: {path}: {change}')
    noticed = known - set(changes)
    for path, change in sorted(noticed):
        print(f'said to be equivalent, but is noticed or gone: {path}: {change}')
    too_slow = sum(fate.endswith(TOO_SLOW) for _, fate in compiled)
    killed = len(compiled) - len(survivors)
    print(f'proved: mutants={len(compiled)} killed={killed} too_slow={too_slow} '
          f'equivalent={len(survivors) - len(unexplained)} unexplained={len(unexplained)} '
          f'not_compiled={len(judged) - len(compiled)} '
          f'score={100 * killed / max(1, len(compiled)):.1f}%')
    return compiled and not unexplained and not noticed


def main():
    parser = argparse.ArgumentParser(description=__doc__.split('\n', maxsplit=1)[0])
    parser.add_argument('build')
    parser.add_argument('--only', nargs='+', metavar='PATH', help='sources to mutate')
    arguments = parser.parse_args()
    root = os.path.abspath(os.path.join(os.path.dirname(__file__), '../..'))
    directory = os.path.abspath(arguments.build)
    paths = arguments.only or [path for path in files_of(root, FOLDERS)
                               if path.endswith(('.cpp', '.h'))]
    sources = {path: read(os.path.join(root, path)) for path in paths}
    mutants = [mutant for path in paths for mutant in mutants_of(path, sources[path])]
    results = Results(os.path.join(directory, 'mutants.json'), fingerprint(root))
    build, tests = Build(root, directory), Tests(directory)
    check_unchanged(build, tests, paths[0], sources[paths[0]])
    judged = judge(build, tests, results, mutants, sources)
    # What spoils all builds, such as a full disk, would have spoilt this one as well.
    check_unchanged(build, tests, paths[0], sources[paths[0]])
    return report(judged, sources, {known for known in equivalents() if known[0] in sources})


if __name__ == '__main__':
    sys.exit(not main())
