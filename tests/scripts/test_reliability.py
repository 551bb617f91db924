"""How scripts/reliability fills the tables of docs/reliability.md."""

import shutil
import subprocess
import unittest

from copied_scripts import ROOT, copied_scripts


def run(root, *arguments):
    return subprocess.run([root / 'scripts' / 'reliability', *arguments], check=False,
                          capture_output=True, text=True)


class Reliability(unittest.TestCase):
    def setUp(self):
        self.root = copied_scripts(self)
        (self.root / 'docs').mkdir()
        shutil.copy(ROOT / 'docs' / 'reliability.md', self.root / 'docs')
        self.results = self.root / 'build' / 'proof'
        self.results.mkdir(parents=True)
        for line in self.sources():
            self.prove(*line.split())

    def sources(self):
        return subprocess.run([self.root / 'scripts' / 'prove', '--sources'], check=True,
                              capture_output=True, text=True).stdout.splitlines()

    def prove(self, part, sources=None, outcome='pass', figures='cases=1234 bytes_lost=0'):
        (self.results / f'{part}.result').write_text(
            f'proof {part} {outcome} 5 s abc {figures}\n')
        if sources:
            (self.results / f'{part}.sources').write_text(sources + '\n')

    def written(self, *arguments):
        done = run(self.root, *arguments)
        self.assertEqual(done.returncode, 0, done.stderr)
        return (self.root / 'docs' / 'reliability.md').read_text()

    def assert_refused(self, why, *arguments):
        done = run(self.root, *arguments)
        self.assertNotEqual(done.returncode, 0)
        self.assertIn(why, done.stderr)

    def test_this_trees_tables_have_the_form(self):
        done = run(ROOT, '--check')
        self.assertEqual(done.returncode, 0, done.stderr)

    def test_writes_the_figures_of_a_part(self):
        self.assertRegex(self.written(), r'\| `memory` \| .* \| 1,234 cases, 0 bytes lost \|\n')

    def test_writes_shares_and_names_what_is_no_number(self):
        self.prove('coverage', figures='lines=749/749 score=98.2% asan=57_programs')
        self.assertIn('| 749 of 749 lines, score 98.2 %, asan 57 programs |', self.written())

    def test_writes_a_table_of_the_fuzzing_targets(self):
        self.prove('fuzz', figures='a=10000@20/s a-document=1.0/2.0/3.0% all-document=4/5/6%')
        written = self.written()
        self.assertIn('| `a` | 10,000 | 20 | `document/` 1.0, 2.0, 3.0 % |', written)
        self.assertIn('| `all` |  |  | `document/` 4, 5, 6 % |', written)

    def test_has_the_form_that_it_checks(self):
        self.written()
        self.written('--check')

    def test_names_no_commit(self):
        self.assertNotIn('abc', self.written())

    def test_refuses_results_of_other_sources(self):
        self.prove('soak', sources='other')
        (self.results / 'abi.sources').unlink()
        self.assert_refused('of other sources: soak abi\n')

    def test_accepts_what_does_not_depend_on_a_change(self):
        (self.root / 'docs' / 'news.svg').write_text('<svg/>')
        self.assert_refused('of other sources: consumers distributions packages descriptions oss-fuzz\n')

    def test_refuses_a_part_that_failed(self):
        self.prove('soak', outcome='fail')
        self.assert_refused('soak has failed')

    def test_refuses_a_missing_part_unless_told(self):
        (self.results / 'soak.result').unlink()
        self.assert_refused('no result of soak')
        self.assertRegex(self.written('--allow-missing'), r'`soak` .* not run on these sources')

    def test_notices_a_row_of_another_wording(self):
        document = self.root / 'docs' / 'reliability.md'
        document.write_text(self.written().replace('A million documents', 'Many documents'))
        self.assert_refused('another form', '--check')


if __name__ == '__main__':
    unittest.main()
