"""What scripts/prove does again and what not."""

import subprocess
import unittest

from copied_scripts import copied_scripts

OF_EVERYTHING = {'consumers', 'distributions', 'packages', 'descriptions', 'oss-fuzz'}
PAGES = 'README.md', 'docs/reliability.md', 'docs/drawing.svg'


class Prove(unittest.TestCase):
    def setUp(self):
        self.root = copied_scripts(self)
        self.write('document/Text.cpp', 'int Length();  // in bytes\n')
        self.write('tools/main.cpp', 'int main() {}\n')
        for page in PAGES:
            self.write(page, 'old')
        self.write('scripts/proof/soak', '#!/bin/sh\necho proved: a=1; echo >> build/runs\n')

    def write(self, path, text):
        path = self.root / path
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text)

    def prove(self, *arguments):
        return subprocess.run([self.root / 'scripts' / 'prove', *arguments], check=False,
                              capture_output=True, text=True)

    def runs_of_soak(self, *arguments):
        """Proves the part and gives how often it has run so far."""
        self.assertRegex(self.prove(*arguments, 'soak').stdout,
                         r'proof soak pass \d+ s [0-9a-f]{12} a=1\n$')
        return (self.root / 'build' / 'runs').read_text().count('\n')

    def changed_by(self, path, text):
        """Names the parts whose sources change when a file does."""
        before = self.prove('--sources').stdout.splitlines()
        self.write(path, text)
        after = self.prove('--sources').stdout.splitlines()
        return {line.split()[0] for line in after if line not in before}

    def test_does_a_part_once(self):
        self.assertEqual(self.runs_of_soak(), 1)
        self.assertEqual(self.runs_of_soak(), 1)

    def test_does_a_part_again_when_told(self):
        self.runs_of_soak()
        self.assertEqual(self.runs_of_soak('--again'), 2)

    def test_does_a_part_again_after_its_code_has_changed(self):
        self.runs_of_soak()
        self.write('document/Text.cpp', 'long Length();\n')
        self.assertEqual(self.runs_of_soak(), 2)

    def test_does_a_part_again_that_has_failed(self):
        script = (self.root / 'scripts' / 'proof' / 'soak').read_text()
        self.write('scripts/proof/soak', script + '[ -e build/mended ]\n')
        self.assertEqual(self.prove('soak').returncode, 1)
        self.write('build/mended', '')
        self.assertEqual(self.runs_of_soak(), 2)

    def test_fails_when_the_sources_change_meanwhile(self):
        self.write('scripts/proof/soak', '#!/bin/sh\necho "int Size();" > document/Text.cpp\n')
        done = self.prove('soak')
        self.assertEqual(done.returncode, 1)
        self.assertIn('proof soak fail', done.stdout)

    def test_takes_a_comment_for_no_change(self):
        self.assertEqual(self.changed_by('document/Text.cpp', '// New.\nint Length();\n'), set())

    def test_takes_a_reason_not_to_check_for_a_change_of_the_checkers(self):
        self.assertEqual(self.changed_by('document/Text.cpp', 'int Length();  // NOLINT\n'),
                         {'checkers'})

    def test_takes_code_for_a_change_of_all_parts(self):
        self.assertEqual(self.changed_by('document/Text.cpp', 'long Length();\n'),
                         set(self.prove('--list').stdout.split()))

    def test_takes_a_tool_for_a_change_of_the_parts_that_build_all(self):
        self.assertEqual(self.changed_by('tools/main.cpp', 'int main() { return 1; }\n'),
                         {'sanitizers', 'checkers', 'stability', 'targets'} | OF_EVERYTHING)

    def test_takes_a_script_for_a_change_of_those_that_call_it(self):
        self.assertLess({'coverage'}, self.changed_by('scripts/coverage', ''))
        self.assertNotIn('memory', self.changed_by('scripts/coverage-table', ''))

    def test_takes_a_page_for_a_change_of_those_that_read_it(self):
        self.assertEqual([self.changed_by(page, 'new') for page in PAGES],
                         [OF_EVERYTHING, set(), OF_EVERYTHING])


if __name__ == '__main__':
    unittest.main()
