"""What becomes of a file that is written, and of one where that fails."""

import os
import resource
import shutil
import subprocess
import unittest

from edits import PROFILE, EditTest
from support import COMMAND

MAY_MOUNT = subprocess.run(["unshare", "-rm", "mount", "-t", "tmpfs", "none", "/mnt"],
                           check=False, capture_output=True).returncode == 0


class AWrittenFile(EditTest):
    def test_keeps_its_mode(self):
        (self.directory / "p.xml").chmod(0o640)
        self.answer(*self.set("2"))
        self.assertEqual((self.directory / "p.xml").stat().st_mode & 0o7777, 0o640)

    @unittest.skipUnless(os.geteuid() == 0, "only root may give a file away")
    def test_keeps_its_owner(self):
        os.chown(self.directory / "p.xml", 1234, 5678)
        self.answer(*self.set("2"))
        state = (self.directory / "p.xml").stat()
        self.assertEqual((state.st_uid, state.st_gid), (1234, 5678))

    def test_loses_the_bit_that_has_it_run_as_its_owner(self):
        (self.directory / "p.xml").chmod(0o4755)
        self.answer(*self.set("2"))
        self.assertEqual((self.directory / "p.xml").stat().st_mode & 0o7777, 0o755)

    def test_that_is_new_has_the_usual_mode(self):
        self.answer(*self.set("2", "-o", "out.xml"), preexec_fn=lambda: os.umask(0o027))
        self.assertEqual((self.directory / "out.xml").stat().st_mode & 0o7777, 0o640)

    def test_stays_behind_its_symbolic_link(self):
        (self.directory / "link.xml").symlink_to("p.xml")
        self.answer("set", "link.xml", *self.set("2")[2:])
        self.assertTrue((self.directory / "link.xml").is_symlink())
        self.assertIn('Value="2"', self.read("p.xml"))

    def test_is_the_one_that_a_symbolic_link_leads_to_though_it_does_not_exist_yet(self):
        (self.directory / "deep").mkdir()
        (self.directory / "deep" / "next.xml").symlink_to("../new.xml")
        (self.directory / "link.xml").symlink_to("deep/next.xml")
        for edit in (self.set("2"), ("delete-rules", "p.xml", "B")):
            with self.subTest(edit=edit[0]):
                self.answer(*edit, "-o", "link.xml")
                self.assertTrue((self.directory / "link.xml").is_symlink())
                self.assertTrue((self.directory / "deep" / "next.xml").is_symlink())
                self.assertIn("<tt:rule", self.read("new.xml"))
                (self.directory / "new.xml").unlink()

    def test_is_the_one_that_an_absolute_link_leads_to_though_it_does_not_exist_yet(self):
        (self.directory / "link.xml").symlink_to(self.directory / "new.xml")
        self.answer(*self.set("2", "-o", "link.xml"))
        self.assertTrue((self.directory / "link.xml").is_symlink())
        self.assertIn('Value="2"', self.read("new.xml"))

    def test_leaves_its_other_hard_links_as_they_were(self):
        os.link(self.directory / "p.xml", self.directory / "other.xml")
        self.answer(*self.set("2"))
        self.assertIn('Value="2"', self.read("p.xml"))
        self.assertEqual(self.read("other.xml"), PROFILE)

    def test_leaves_nothing_beside_it(self):
        self.answer(*self.set("2"))
        self.assertEqual(os.listdir(self.directory), ["p.xml"])


class AFailedWrite(EditTest):
    def assert_untouched(self, done, message):
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertEqual(done.stderr, f"analytics-settingsctl: {message}\n")
        self.assertEqual(os.listdir(self.directory), ["p.xml"])
        self.assertEqual(self.read("p.xml"), PROFILE)

    def test_beyond_the_limit_of_file_sizes_leaves_the_file_as_it_was(self):
        limit = len(PROFILE) + 100
        done = self.run_command(
            *self.set("x" * 200),
            preexec_fn=lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (limit, limit)))
        self.assert_untouched(done, "p.xml: the edited profile could not be made, and nothing "
                                    "was changed; free some memory, or raise the limit on the "
                                    "size of files")

    @unittest.skipUnless(MAY_MOUNT, "no file system can be mounted here")
    def test_on_a_full_disk_leaves_the_file_as_it_was(self):
        command = " ".join(f"'{word}'" for word in (COMMAND, *self.set("x" * 5000)))
        done = subprocess.run(
            ["unshare", "-rm", "sh", "-c", "mkdir disk && mount -t tmpfs -o size=8k none disk && "
             f"cp p.xml disk && cd disk && {{ {command}; echo $?; ls -A; cat p.xml; }}"],
            cwd=self.directory, env=self.environment, check=True, capture_output=True, text=True)
        self.assertEqual(done.stderr, "analytics-settingsctl: p.xml: cannot be written, and "
                                      "nothing was changed: No space left on device; free some "
                                      "space\n")
        self.assertEqual(done.stdout, "2\np.xml\n" + PROFILE)

    @unittest.skipIf(os.getuid() == 0 and not shutil.which("setpriv"), "root may write anywhere")
    def test_in_a_directory_that_is_read_only_leaves_the_file_as_it_was(self):
        self.directory.chmod(0o555)
        self.addCleanup(self.directory.chmod, 0o755)
        plain = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        done = subprocess.run([*(plain if os.getuid() == 0 else []), COMMAND, *self.set("2")],
                              cwd=self.directory, env=self.environment, check=False, text=True,
                              capture_output=True)
        self.assert_untouched(done, "p.xml: cannot be written, and nothing was changed: "
                                    "Permission denied; allow it, or write elsewhere with -o")

    @unittest.skipUnless(os.geteuid() == 0, "only root may act as another")
    def test_of_somebody_elses_file_leaves_it_as_it_was(self):
        self.directory.chmod(0o777)
        (self.directory / "p.xml").chmod(0o666)
        self.assert_untouched(self.run_command(*self.set("2"), user=1234),
                              "p.xml: cannot be written, and nothing was changed: its owner or "
                              "group would change; write it as its owner, or elsewhere with -o")
        self.assertEqual((self.directory / "p.xml").stat().st_uid, 0)

    def test_of_a_file_that_nobody_may_write_leaves_it_as_it_was(self):
        (self.directory / "p.xml").chmod(0o444)
        self.assert_untouched(self.run_command(*self.set("2")),
                              "p.xml: cannot be written, and nothing was changed: Permission "
                              "denied; allow it, or write elsewhere with -o")

    @unittest.skipUnless(os.geteuid() == 0, "only root may act as another")
    def test_of_ones_own_file_that_is_read_only_leaves_it_as_it_was(self):
        for path in (self.directory, self.directory / "p.xml"):
            os.chown(path, 1234, 1234)
        (self.directory / "p.xml").chmod(0o444)
        self.assert_untouched(self.run_command(*self.set("2"), user=1234),
                              "p.xml: cannot be written, and nothing was changed: Permission "
                              "denied; allow it, or write elsewhere with -o")

    def test_into_a_missing_directory_is_told(self):
        done = self.run_command(*self.set("2", "-o", "none/out.xml"))
        self.assert_untouched(done, "none/out.xml: cannot be written, and nothing was changed: No "
                                    "such file or directory; make its directory first")

    def test_through_links_that_lead_to_each_other_is_told(self):
        (self.directory / "a.xml").symlink_to("b.xml")
        (self.directory / "b.xml").symlink_to("a.xml")
        self.assert_refused(2, "a.xml: cannot be written, and nothing was changed: Too many levels "
                            "of symbolic links; remove the symbolic links that lead to each other",
                            *self.set("2", "-o", "a.xml"))
        self.assertTrue((self.directory / "a.xml").is_symlink())

    def test_through_a_link_into_a_missing_directory_is_told(self):
        (self.directory / "link.xml").symlink_to("none/out.xml")
        done = self.run_command(*self.set("2", "-o", "link.xml"))
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("link.xml: cannot be written, and nothing was changed: No such", done.stderr)
        self.assertTrue((self.directory / "link.xml").is_symlink())

    def test_into_a_full_device_is_told_and_leaves_the_device(self):
        done = self.run_command(*self.set("2", "-o", "/dev/full"))
        self.assert_untouched(done, "/dev/full: cannot be written: No space left on device; free "
                                    "some space")
        self.assertFalse(os.path.isfile("/dev/full"))

    def test_into_a_pipe_that_nobody_reads_is_told(self):
        os.mkfifo(self.directory / "pipe")
        done = self.run_command(*self.set("2", "-o", "pipe"))
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("pipe: cannot be written: No such device or address; start the reader of "
                      "this pipe first\n", done.stderr)

    def test_into_a_directory_is_told(self):
        done = self.run_command(*self.set("2", "-o", "."))
        self.assert_untouched(done, ".: cannot be written: Is a directory; name a file in it")


if __name__ == "__main__":
    unittest.main()
