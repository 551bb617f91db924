"""Edits of profiles, and what becomes of the file when one fails."""

import os
import resource
import shutil
import subprocess
import unittest

from support import COMMAND, EXAMPLES, CommandTest

PROFILE = """<?xml version="1.0"?>
<p xmlns:tt="http://www.onvif.org/ver10/schema">
  <tt:rule Type="A">
    <tt:Parameters>
      <tt:SimpleItem Name="n" Value="1"/>
    </tt:Parameters>
  </tt:rule>
  <tt:rule Type="A"><tt:Parameters><tt:SimpleItem Name="n" Value="1"/></tt:Parameters></tt:rule>
  <tt:rule Type="B"/>
</p>
"""

MAY_MOUNT = subprocess.run(["unshare", "-rm", "mount", "-t", "tmpfs", "none", "/mnt"],
                           check=False, capture_output=True).returncode == 0


class EditTest(CommandTest):
    def setUp(self):
        super().setUp()
        self.write("p.xml", PROFILE)

    def set(self, value, *options):
        return ("set", "p.xml", "--rule", "A", "--item", "n", value, *options)


class SettingAnItem(EditTest):
    def test_changes_the_first_rule_of_the_type_and_says_so(self):
        self.assertEqual(self.answer(*self.set("2")),
                         "p.xml: the first of 2 rules of type 'A': n was '1', is now '2'\n")
        self.assertEqual(self.read("p.xml"), PROFILE.replace('"1"/>', '"2"/>', 1))

    def test_writes_elsewhere_if_told_to(self):
        self.answer(*self.set("2", "-o", "out.xml"))
        self.assertEqual(self.read("p.xml"), PROFILE)
        self.assertIn('Value="2"', self.read("out.xml"))

    def test_takes_any_text(self):
        for value in ("", "-5", "<&\"'>", "é", "a b"):
            with self.subTest(value=value):
                self.answer("set", "p.xml", "--rule", "A", "--item", "n", "--", value)
                self.assertIn(f"n = {value}", self.answer("profile", "p.xml"))

    def test_refuses_texts_that_xml_cannot_hold(self):
        for value in (b"\x01", b"\xff"):
            with self.subTest(value=value):
                done = subprocess.run([COMMAND, *self.set(value)], cwd=self.directory, check=False,
                                      env=self.environment, capture_output=True)
                self.assertEqual(done.stderr, b"analytics-settingsctl: the value is no text that "
                                              b"XML can hold; use UTF-8 without controls\n")
                self.assertEqual((done.returncode, self.read("p.xml")), (2, PROFILE))

    def test_says_what_to_do_about_a_missing_rule(self):
        self.assert_refused(1, "p.xml: has no rule of type 'C'; see its types with "
                            "analytics-settingsctl profile",
                            "set", "p.xml", "--rule", "C", "--item", "n", "2")

    def test_says_what_to_do_about_a_missing_item(self):
        self.assert_refused(1, "p.xml: the first rule of type 'B' has no item 'n'; add "
                            '<tt:SimpleItem Name="n" Value=""/> to its Parameters first',
                            "set", "p.xml", "--rule", "B", "--item", "n", "2")
        self.assertEqual(self.read("p.xml"), PROFILE)

    def test_tells_of_names_that_no_query_can_find(self):
        done = self.run_command("set", "p.xml", "--rule", 'A"', "--item", "n", "2")
        self.assertEqual((done.returncode, "double quote" in done.stderr), (1, True))
        done = self.run_command("set", "p.xml", "--rule", "A", "--item", "n'", "2")
        self.assertEqual((done.returncode, "single quote" in done.stderr), (1, True))

    def test_turns_standard_input_into_standard_output(self):
        done = self.run_command("set", "-", *self.set("2")[2:], input=PROFILE)
        self.assertEqual(done.stdout, PROFILE.replace('"1"/>', '"2"/>', 1))
        self.assertTrue(done.stderr.startswith("standard input: the first of 2 rules"))

    def test_keeps_the_encoding(self):
        text = PROFILE.replace('version="1.0"', 'version="1.0" encoding="UTF-16"')
        (self.directory / "p.xml").write_bytes(text.encode("utf-16"))
        self.answer(*self.set("2"))
        self.assertIn('Value="2"', (self.directory / "p.xml").read_bytes().decode("utf-16"))


class DeletingRules(EditTest):
    def test_deletes_all_of_the_type_and_says_so(self):
        self.assertEqual(self.answer("delete-rules", "p.xml", "A"),
                         "p.xml: deleted 2 rules of type 'A'\n")
        self.assertEqual(self.read("p.xml").count("rule"), 1)

    def test_of_no_type_is_refused(self):
        self.assert_refused(2, "p.xml: the type is empty; name the rules' type",
                            "delete-rules", "p.xml", "")

    def test_that_are_not_there_changes_nothing(self):
        done = self.run_command("delete-rules", "p.xml", "C", "-o", "out.xml")
        self.assertEqual(done.returncode, 1)
        self.assertEqual(os.listdir(self.directory), ["p.xml"])


class ADryRun(EditTest):
    def test_prints_the_difference(self):
        self.copy(EXAMPLES / "profile.xml")
        shown = self.answer("set", "profile.xml", "--rule", "LineCrossing", "--item",
                            "Sensitivity", "90", "--dry-run")
        self.assert_as_expected("set-dry-run", shown)

    def test_tells_of_deleted_rules_as_whole_blocks(self):
        self.copy(EXAMPLES / "profile.xml")
        shown = self.answer("delete-rules", "profile.xml", "FieldDetector", "--dry-run")
        self.assert_as_expected("delete-rules-dry-run", shown)

    def test_tells_of_a_long_rule_as_one_block(self):
        items = "".join(f'\n<tt:SimpleItem Name="{n}" Value=""/>' for n in range(200))
        self.write("p.xml", PROFILE.replace('Type="B"/>', f'Type="B">{items}\n</tt:rule>'))
        shown = self.answer("delete-rules", "p.xml", "B", "--dry-run").splitlines()
        self.assertEqual(len([line for line in shown[2:] if line.startswith("-")]), 202)
        self.assertEqual(len([line for line in shown[2:] if line.startswith("+")]), 1)

    def test_writes_nothing(self):
        self.answer(*self.set("2", "--dry-run", "-o", "out.xml"))
        self.assertEqual(os.listdir(self.directory), ["p.xml"])
        self.assertEqual(self.read("p.xml"), PROFILE)

    def test_of_no_change_prints_nothing(self):
        self.assertEqual(self.answer(*self.set("1", "--dry-run")), "")

    @unittest.skipUnless(shutil.which("patch"), "patch is not installed")
    def test_is_what_patch_makes_the_edit_with(self):
        self.copy(EXAMPLES / "profile.xml")
        for edit in (("set", "profile.xml", "--rule", "TamperDetector", "--item", "Active", "0"),
                     ("delete-rules", "profile.xml", "FieldDetector"),
                     ("delete-rules", "profile.xml", "LineCrossing")):
            with self.subTest(edit=edit):
                difference = self.answer(*edit, "--dry-run")
                self.answer(*edit, "-o", "edited.xml")
                subprocess.run(["patch", "-s", "-o", "patched.xml", "profile.xml"], check=True,
                               cwd=self.directory, input=difference, text=True)
                self.assertEqual(self.read("patched.xml"), self.read("edited.xml"))

    def test_tells_of_a_missing_line_break_at_the_end(self):
        self.write("p.xml", PROFILE.rstrip())
        self.assertIn("-</p>\n\\ No newline at end of file\n+</p>\n",
                      self.answer(*self.set("1", "--dry-run")))


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

    def test_that_is_new_has_the_usual_mode(self):
        self.answer(*self.set("2", "-o", "out.xml"), preexec_fn=lambda: os.umask(0o027))
        self.assertEqual((self.directory / "out.xml").stat().st_mode & 0o7777, 0o640)

    def test_stays_behind_its_symbolic_link(self):
        (self.directory / "link.xml").symlink_to("p.xml")
        self.answer("set", "link.xml", *self.set("2")[2:])
        self.assertTrue((self.directory / "link.xml").is_symlink())
        self.assertIn('Value="2"', self.read("p.xml"))

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
        self.assert_untouched(done, "p.xml: the edited profile could not be made; nothing was "
                                    "changed")

    @unittest.skipUnless(MAY_MOUNT, "no file system can be mounted here")
    def test_on_a_full_disk_leaves_the_file_as_it_was(self):
        command = " ".join(f"'{word}'" for word in (COMMAND, *self.set("x" * 5000)))
        done = subprocess.run(
            ["unshare", "-rm", "sh", "-c", "mkdir disk && mount -t tmpfs -o size=8k none disk && "
             f"cp p.xml disk && cd disk && {{ {command}; echo $?; ls -A; cat p.xml; }}"],
            cwd=self.directory, env=self.environment, check=True, capture_output=True, text=True)
        self.assertEqual(done.stderr, "analytics-settingsctl: p.xml: cannot be written: No space "
                                      "left on device; nothing was changed\n")
        self.assertEqual(done.stdout, "2\np.xml\n" + PROFILE)

    @unittest.skipIf(os.getuid() == 0 and not shutil.which("setpriv"), "root may write anywhere")
    def test_in_a_directory_that_is_read_only_leaves_the_file_as_it_was(self):
        self.directory.chmod(0o555)
        self.addCleanup(self.directory.chmod, 0o755)
        plain = ["setpriv", "--reuid=65534", "--regid=65534", "--clear-groups"]
        done = subprocess.run([*(plain if os.getuid() == 0 else []), COMMAND, *self.set("2")],
                              cwd=self.directory, env=self.environment, check=False, text=True,
                              capture_output=True)
        self.assert_untouched(done, "p.xml: cannot be written: Permission denied; nothing was "
                                    "changed")

    def test_into_a_missing_directory_is_told(self):
        done = self.run_command(*self.set("2", "-o", "none/out.xml"))
        self.assert_untouched(done, "none/out.xml: cannot be written: No such file or directory; "
                                    "nothing was changed")

    def test_into_a_full_device_is_told_and_leaves_the_device(self):
        done = self.run_command(*self.set("2", "-o", "/dev/full"))
        self.assert_untouched(done, "/dev/full: cannot be written: No space left on device")
        self.assertFalse(os.path.isfile("/dev/full"))

    def test_into_a_pipe_that_nobody_reads_is_told(self):
        os.mkfifo(self.directory / "pipe")
        done = self.run_command(*self.set("2", "-o", "pipe"))
        self.assertEqual((done.returncode, done.stdout), (2, ""))
        self.assertIn("pipe: cannot be written", done.stderr)

    def test_into_a_directory_is_told(self):
        done = self.run_command(*self.set("2", "-o", "."))
        self.assert_untouched(done, ".: cannot be written: Is a directory")


if __name__ == "__main__":
    unittest.main()
