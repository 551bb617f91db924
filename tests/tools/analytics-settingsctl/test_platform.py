"""The commands that talk to the camera's settings service, over the host platform."""

import json
import os
import pty
import signal
import subprocess
import unittest

from support import COMMAND, HOSTCTL, CommandTest

MASKS = "Imaging/WindowBlanking"


class PlatformTest(CommandTest):
    def hostctl(self, *arguments):
        subprocess.run([HOSTCTL, *arguments], check=True, env=self.environment)

    def set_masks(self):
        self.hostctl("set", MASKS, "Enabled", "true")
        self.hostctl("set", f"{MASKS}/Region#1", "Name", "Door")

    def break_store(self):
        self.write("camera.ini", "neither a group nor a key\n")


class Watching(PlatformTest):
    def setUp(self):
        super().setUp()
        self.set_masks()

    def start(self, *arguments, **options):
        process = subprocess.Popen([COMMAND, "watch", *arguments], env=self.environment,
                                   stderr=subprocess.PIPE,
                                   **{"stdout": subprocess.PIPE, "text": True, **options})
        self.addCleanup(self.end, process)
        return process

    def end(self, process):
        if process.poll() is None:
            process.kill()
        process.wait()
        for stream in (process.stdout, process.stderr):
            if stream:
                stream.close()

    def assert_ends(self, process, number):
        process.send_signal(number)
        self.assertEqual(process.wait(timeout=20), 0)
        self.assertEqual(process.stderr.read(), "")

    def test_prints_each_record_as_it_arrives(self):
        process = self.start()
        lines = [process.stdout.readline() for _ in range(3)]
        self.assertEqual(lines, ["Watching the privacy masks until Ctrl-C\n",
                                 "Privacy masks: 1\n", "  Y 16  U 128  V 128\n"])
        self.hostctl("set", f"{MASKS}/Region#1", "ColorR", "255")
        self.assertEqual([process.stdout.readline() for _ in range(2)],
                         ["Privacy masks: 1\n", "  Y 82  U 90  V 240\n"])
        self.assert_ends(process, signal.SIGINT)

    def test_prints_lines_of_json(self):
        process = self.start("--json")
        self.assertEqual(json.loads(process.stdout.readline()),
                         {"count": 1, "masks": [{"y": 16, "u": 128, "v": 128}]})
        self.hostctl("set", MASKS, "Enabled", "false")
        self.assertEqual(json.loads(process.stdout.readline()), {"count": 0, "masks": []})
        self.assert_ends(process, signal.SIGINT)

    def test_ends_with_a_polite_kill(self):
        process = self.start()
        process.stdout.readline()
        self.assert_ends(process, signal.SIGTERM)

    def test_has_no_swatches_when_piped(self):
        process = self.start()
        lines = [process.stdout.readline() for _ in range(3)]
        self.assertNotIn("\x1b", "".join(lines))
        self.assert_ends(process, signal.SIGINT)

    def first_mask_on_terminal(self):
        leader, follower = pty.openpty()
        self.addCleanup(os.close, leader)
        process = self.start(stdout=follower)
        os.close(follower)
        written = b""
        while b"V 128" not in written:
            written += os.read(leader, 4096)
        self.assert_ends(process, signal.SIGINT)
        return written.decode()

    def test_has_a_swatch_in_the_masks_colour_on_a_terminal(self):
        self.assertIn("  \x1b[48;2;0;0;0m    \x1b[0m  Y 16", self.first_mask_on_terminal())

    def test_has_no_swatches_with_no_color(self):
        self.environment["NO_COLOR"] = "1"
        self.assertNotIn("\x1b", self.first_mask_on_terminal())

    def test_ends_when_its_output_cannot_be_written(self):
        with open("/dev/full", "w", encoding="ascii") as full:
            process = self.start("--json", stdout=full)
        self.assertEqual(process.wait(timeout=20), 2)
        self.assertIn("standard output cannot be written", process.stderr.read())

    def test_of_a_store_that_cannot_be_read_is_refused(self):
        self.break_store()
        done = self.run_command("watch")
        self.assertEqual(done.returncode, 2)
        self.assertIn("camera.ini:1: ", done.stderr)


class Resources(PlatformTest):
    def setUp(self):
        super().setUp()
        self.hostctl("set", "Resources/CPU", "Capacity", "100")
        self.hostctl("set", "Resources/CPU/Recorder", "Usage", "25")

    def test_that_are_free_are_printed(self):
        self.assertEqual(self.answer("available"), "Free units: 75\n")
        self.assertEqual(json.loads(self.answer("available", "--json")), {"free": 75})

    def test_are_reserved_and_the_silence_of_the_platform_is_told(self):
        self.assertEqual(self.answer("reserve", "30").splitlines(), [
            "Asked for:         30", "Free units before: 75", "Free units after:  45",
            "The platform does not report whether it accepted the claim; compare the free units."])

    def test_that_are_refused_look_the_same_but_for_the_numbers(self):
        self.assertEqual(json.loads(self.answer("reserve", "80", "--json")),
                         {"asked": 80, "freeBefore": 75, "freeAfter": 75, "outcomeReported": False})

    def assert_no_number(self, count, *arguments):
        self.assert_refused(2, f"reserve {count}: a number of units is 0 to 2147483647; reserve 0 "
                            "gives all units back", "reserve", *arguments)

    def test_are_reserved_in_numbers_only(self):
        for count in ("many", "1.5", "1 ", "2147483648", "99999999999"):
            with self.subTest(count=count):
                self.assert_no_number(count, count)

    def test_below_none_are_refused_and_nothing_is_claimed(self):
        self.answer("reserve", "30")
        for arguments in (("-5",), ("--", "-5"), ("-5", "--json")):
            with self.subTest(arguments=arguments):
                self.assert_no_number("-5", *arguments)
        self.assertEqual(self.answer("available"), "Free units: 45\n")

    def test_are_all_given_back_by_none(self):
        self.answer("reserve", "30")
        self.assertIn("Free units after:  75\n", self.answer("reserve", "0"))

    def test_of_a_store_that_cannot_be_read_are_refused(self):
        self.break_store()
        for command in (("available",), ("reserve", "1")):
            done = self.run_command(*command)
            self.assertEqual(done.returncode, 2)
            self.assertIn("camera.ini:1: ", done.stderr)


if __name__ == "__main__":
    unittest.main()
