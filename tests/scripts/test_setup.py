"""What scripts/setup says where it cannot install anything, and when it leaves everything alone."""

import pathlib
import shutil
import subprocess
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / 'scripts'


def packages(name):
    lines = (SCRIPTS / name).read_text().splitlines()
    return [line.partition('|')[0] for line in lines if not line.startswith('#')]


class WithoutApt(unittest.TestCase):
    def setUp(self):
        directory = tempfile.TemporaryDirectory()
        self.addCleanup(directory.cleanup)
        self.commands = pathlib.Path(directory.name)
        for command in ('bash', 'dirname', 'grep'):
            (self.commands / command).symlink_to(shutil.which(command))

    def run_setup(self, *options):
        return subprocess.run([self.commands / 'bash', SCRIPTS / 'setup', *options], check=False,
                              capture_output=True, text=True, env={'PATH': str(self.commands)})

    def assert_names(self, expected, *options):
        done = self.run_setup(*options)
        sentence, named = done.stderr.rstrip('\n').rsplit(': ', 1)
        self.assertEqual((done.returncode, sentence.count('\n')), (1, 0), done.stderr)
        self.assertEqual(named.split(' '), expected)

    def test_names_all_packages_in_one_sentence(self):
        self.assert_names(packages('demo-packages.txt') + packages('packages.txt'))

    def test_names_the_few_packages_of_the_demo(self):
        self.assert_names(packages('demo-packages.txt'), '--demo')

    def test_says_nothing_when_nothing_is_to_be_installed(self):
        done = self.run_setup('--demo', '--no-setup')
        self.assertEqual((done.returncode, done.stdout, done.stderr), (0, '', ''))

    def test_refuses_an_unknown_option(self):
        done = self.run_setup('--no-set-up')
        self.assertEqual((done.returncode, done.stderr),
                         (2, 'setup: unknown option --no-set-up\n'))


if __name__ == '__main__':
    unittest.main()
