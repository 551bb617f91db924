"""Builds the library with one mutated file, beside a build that stays as it is.

Only what includes the mutated file is compiled again; all else comes from the build. Tests find
the mutated library first by LD_LIBRARY_PATH.
"""

import os
import re
import shlex
import subprocess

LIBRARY = 'libanalytics-settings.so'


class Build:
    """A finished Ninja build of the library and its tests."""

    def __init__(self, root, directory):
        self.root, self.directory = root, directory
        commands = [self._words(line) for line in
                    self._ninja('-t', 'commands', LIBRARY).splitlines()]
        self.link = next(command for command in commands if self._made(command) == LIBRARY)
        linked = {word for word in self.link if word.endswith('.o')}
        self.compile = {self._made(command): command for command in commands
                        if self._made(command) in linked}
        self.includes = {target: self._dependencies(target) for target in self.compile}

    @staticmethod
    def _words(line):
        """The words of a command, which CMake may write as `: && command && :`."""
        words = shlex.split(line)
        return words[2:-2] if words[0] == ':' else words

    @staticmethod
    def _made(command):
        return command[command.index('-o') + 1] if '-o' in command else None

    def _ninja(self, *arguments):
        return subprocess.run(['ninja', '-C', self.directory, '--quiet', *arguments], check=True,
                              text=True, stdout=subprocess.PIPE).stdout

    def _dependencies(self, target):
        lines = self._ninja('-t', 'deps', target).splitlines()[1:]
        return {os.path.relpath(os.path.join(self.directory, line.strip()), self.root)
                for line in lines if line}

    def make_mutant(self, path, source, workplace):
        """Links the library with `source` as the text of `path`; False if it does not compile."""
        overlay = os.path.join(workplace, 'overlay')
        mutated = os.path.join(overlay, path)
        os.makedirs(os.path.dirname(mutated), exist_ok=True)
        with open(mutated, 'w', encoding='utf-8') as file:
            file.write(source)
        try:
            return self._compile_and_link(path, overlay, workplace)
        finally:
            os.remove(mutated)

    def _compile_and_link(self, path, overlay, workplace):
        link = list(self.link)
        for target, command in self.compile.items():
            if path not in self.includes[target]:
                continue
            made = os.path.join(workplace, target.replace('/', '_'))
            if not self._run(self._redirected(command, path, overlay, made)):
                return False
            link[link.index(target)] = made
        link[link.index('-o') + 1] = os.path.join(workplace, LIBRARY)
        return self._run(link)

    def _redirected(self, command, path, overlay, made):
        """The compile command with the overlay before all other directories of headers."""
        command = list(command)
        command[command.index('-o') + 1] = made
        source = command.index('-c') + 1
        if os.path.relpath(command[source], self.root) == path:
            command[source] = os.path.join(overlay, path)
        for option, values in (('-MF', 1), ('-MT', 1), ('-MD', 0)):
            at = command.index(option)
            del command[at:at + 1 + values]
        own_headers = os.path.join(overlay, 'include')
        return [command[0], '-w', f'-I{overlay}', f'-I{own_headers}', *command[1:]]

    def _run(self, command):
        """Whether the compiler accepts it; raises where the compiler itself was stopped."""
        done = subprocess.run(command, cwd=self.directory, stdout=subprocess.DEVNULL,
                              stderr=subprocess.PIPE, text=True, errors='replace')
        if done.returncode < 0 or re.search(r'signal terminated|No space left', done.stderr):
            raise RuntimeError(f'the compiler was stopped: {done.stderr[-500:]}')
        return done.returncode == 0
