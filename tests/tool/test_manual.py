"""The man page says what the tool really has."""

import re
import shutil
import subprocess
import unittest

from support import MANUAL, ToolTest
from support.real_options import options_of_commands


def sections(text, macro):
    """The text of each section by its title."""
    parts = re.split(rf"^\.{macro} (.*)$", text, flags=re.MULTILINE)
    return dict(zip(parts[1::2], parts[2::2]))


def options_in(text):
    """Those that head a paragraph."""
    heads = re.findall(r"^\.TP\n(.*)$", text, re.MULTILINE)
    return {option for head in heads for option in re.findall(r"--[a-z-]+", head.replace("\\-", "-"))}


class Manual(ToolTest):
    def setUp(self):
        super().setUp()
        self.page = MANUAL.read_text(encoding="utf-8")
        self.parts = sections(self.page, "SH")
        self.commands = sections(self.parts["COMMANDS"], "SS")
        self.values = options_in(self.parts["VALUES"])
        self.synopsis = self.parts["SYNOPSIS"].replace("\\-", "-")

    def takes_values(self, command):
        usage = re.search(rf"^\.B velnorxmltoimg {command}\n(.*)$", self.synopsis, re.MULTILINE)
        return usage.group(1) == ".RI [ VALUES ]"

    def test_every_command_has_a_section_and_a_line_of_the_synopsis(self):
        real = options_of_commands(self)
        self.assertEqual(set(self.commands), set(real))
        for command in real:
            self.assertIn(f".B velnorxmltoimg {command}\n", self.synopsis)

    def test_every_option_is_described_and_every_described_option_exists(self):
        for command, real in options_of_commands(self).items():
            with self.subTest(command=command):
                shared = self.values if self.takes_values(command) else set()
                self.assertEqual(options_in(self.commands[command]) | shared, real)

    def test_every_exit_code_is_described(self):
        self.assertEqual(re.findall(r"^\.TP\n\.B (\d)$", self.parts["EXIT STATUS"], re.MULTILINE),
                         list("012345"))

    def test_its_version_is_that_of_the_tool(self):
        version = self.succeed("--version").decode().splitlines()[0]
        self.assertIn(f'"{version}"', self.page.splitlines()[0])

    @unittest.skipUnless(shutil.which("groff"), "no groff")
    def test_it_is_formatted_without_a_warning(self):
        done = subprocess.run(["groff", "-man", "-Kutf8", "-Tutf8", "-ww", "-z", MANUAL],
                              stderr=subprocess.PIPE, check=True)
        self.assertEqual(done.stderr, b"")


if __name__ == "__main__":
    unittest.main()
