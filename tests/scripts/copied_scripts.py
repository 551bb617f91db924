"""A project that consists of a copy of the scripts."""

import pathlib
import shutil
import subprocess
import tempfile

ROOT = pathlib.Path(__file__).resolve().parents[2]


def copied_scripts(test):
    """Gives the directory of a project of its own, which is removed after the test."""
    directory = tempfile.TemporaryDirectory()
    test.addCleanup(directory.cleanup)
    root = pathlib.Path(directory.name)
    shutil.copytree(ROOT / 'scripts', root / 'scripts')
    shutil.copy(ROOT / '.gitignore', root)
    git = ['git', '-C', root, '-c', 'user.name=Test', '-c', 'user.email=test@example.com']
    subprocess.run([*git, 'init', '-q'], check=True)
    subprocess.run([*git, 'commit', '-q', '--allow-empty', '-m', 'Begin'], check=True)
    return root
