"""What every command has in common."""

import os
import re
import subprocess
import unittest

from support import DONE, NOT_WRITTEN, TOOL, USAGE, ToolTest, layout

COMMANDS = ("render", "batch", "check", "watch", "boxes", "fonts", "params", "settings")


class Help(ToolTest):
    def test_version_names_the_tool_qt_and_zint(self):
        lines = self.succeed("--version").decode().splitlines()
        self.assertEqual([re.sub(r"\d+(\.\d+)+", "N", line) for line in lines],
                         ["velnorxmltoimg N", "Qt N", "zint N"])

    def test_help_lists_every_command(self):
        text = self.succeed("--help").decode()
        for command in COMMANDS:
            self.assertRegex(text, rf"\n  {command} +\S")

    def test_every_command_has_help_with_an_example(self):
        for command in COMMANDS:
            with self.subTest(command=command):
                text = self.succeed(command, "--help").decode()
                self.assertRegex(text, rf"Examples?:\n(.*\n)*  .*velnorxmltoimg {command} ")

    def test_help_has_no_line_that_a_terminal_of_100_columns_must_wrap(self):
        for arguments in ([], *([command] for command in COMMANDS)):
            for line in self.succeed(*arguments, "--help").decode().splitlines():
                self.assertLessEqual(len(line), 100, line)

    def test_no_command_and_an_unknown_one_are_told(self):
        self.assert_refused(USAGE, says="command")
        self.assert_refused(USAGE, "paint", says="paint")


class ControlCharacters(ToolTest):
    STEERING = "a\x1b[2J\x07\x7f\x9b1mb\n"
    ESCAPED = r"a\x1b[2J\x07\x7f\x9b1mb\n"

    def test_a_message_does_nothing_to_the_terminal(self):
        self.write("a.xml", layout())
        for arguments in (("render", self.STEERING + ".xml", "-o", "a.png"),
                          ("render", "a.xml", "-o", self.STEERING + "/a.png"),
                          ("render", "a.xml", "-o", "a.png", "--set", self.STEERING + ".text=x"),
                          ("params", self.STEERING)):
            with self.subTest(arguments=arguments):
                done = self.run_tool(*arguments)
                self.assertNotEqual(done.returncode, DONE)
                self.assertIn(self.ESCAPED, done.stderr.decode())
                self.assertEqual(done.stderr.count(b"\n"), 1)

    def test_a_finding_does_nothing_to_the_terminal(self):
        name = self.write("a\x1b[2J.xml", layout('<VelnorItem class="image" id="i"/>'))
        self.assertTrue(self.succeed("check", name).startswith(rb"a\x1b[2J.xml:"))


class Surroundings(ToolTest):
    def test_no_display_no_home_and_no_runtime_folder_are_needed(self):
        self.write("a.xml", layout())
        environment = {name: os.environ[name] for name in ("FONTCONFIG_FILE", "ASAN_OPTIONS",
                                                           "LSAN_OPTIONS") if name in os.environ}
        done = subprocess.run([TOOL, "render", "a.xml", "-o", "a.png"], cwd=self.folder,
                              env={**environment, "TMPDIR": str(self.folder)},
                              stderr=subprocess.PIPE, check=False)
        self.assertEqual((done.returncode, done.stderr), (DONE, b""))
        self.assertEqual(self.files(), ["a.png", "a.xml"])

    def test_the_users_language_changes_nothing(self):
        self.write("a.xml", layout())
        plain = self.succeed("boxes", "a.xml")
        self.assertEqual(self.succeed("boxes", "a.xml", environment={"LC_ALL": "de_DE.UTF-8"}),
                         plain)

    def test_output_that_cannot_be_written_is_told(self):
        self.write("a.xml", layout())
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "boxes", "a.xml"], cwd=self.folder, stdout=full,
                                  stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, NOT_WRITTEN)
        self.assertIn(b"standard output", done.stderr)


if __name__ == "__main__":
    unittest.main()
