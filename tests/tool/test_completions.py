"""Shells complete what the tool really has."""

import re
import shutil
import subprocess
import unittest

from support import COMPLETIONS, TOOL, ToolTest
from support.real_options import options_of_commands

COMPLETE = r"""
compopt() { :; }
source "$1"
shift
COMP_WORDS=("$@")
COMP_CWORD=$(($# - 1))
_velnorxmltoimg
printf '%s\n' "${COMPREPLY[@]}"
"""


class Bash(ToolTest):
    def complete(self, *words, program="velnorxmltoimg"):
        done = subprocess.run(["bash", "-c", COMPLETE, "bash", COMPLETIONS / "velnorxmltoimg.bash",
                               program, *words], cwd=self.folder, check=True,
                              stdout=subprocess.PIPE)
        return set(done.stdout.decode().split())

    def test_the_first_word_is_a_command(self):
        self.assertEqual(self.complete(""), {*options_of_commands(self), "--version", "--help"})

    def test_a_dash_gives_the_options_of_the_command(self):
        for command, options in options_of_commands(self).items():
            with self.subTest(command=command):
                self.assertEqual(self.complete(command, "--"), {*options, "--help"})

    def test_what_an_option_takes_is_offered(self):
        self.assertEqual(self.complete("render", "--mono", ""), {"threshold", "ordered", "diffuse"})
        self.assertEqual(self.complete("batch", "--format", ""), {"csv", "jsonl"})
        self.write("layout.xml", "")
        self.assertEqual(self.complete("render", "--fonts", ""), {"fonts"})
        self.assertEqual(self.complete("render", "lay"), {"layout.xml"})

    def test_codes_of_findings_are_offered(self):
        listed = self.succeed("check", "--codes").decode().splitlines()
        completed = self.complete("check", "--ignore", "", program=TOOL)
        self.assertEqual(completed, {line.split()[0] for line in listed})


class Others(ToolTest):
    def assert_knows_all(self, text, option_form):
        for command, options in options_of_commands(self).items():
            self.assertRegex(text, rf"\b{command}\b")
            for option in options:
                self.assertRegex(text, option_form.format(name=re.escape(option[2:])))

    def test_zsh_knows_every_command_and_option(self):
        text = (COMPLETIONS / "_velnorxmltoimg").read_text(encoding="utf-8")
        self.assert_knows_all(text, r"--{name}\b")

    def test_fish_knows_every_command_and_option(self):
        text = (COMPLETIONS / "velnorxmltoimg.fish").read_text(encoding="utf-8")
        self.assert_knows_all(text, r"-l {name}\b")

    def test_each_is_a_program_of_its_shell(self):
        for shell, name in (("bash", "velnorxmltoimg.bash"), ("zsh", "_velnorxmltoimg"),
                            ("fish", "velnorxmltoimg.fish")):
            if shutil.which(shell):
                subprocess.run([shell, "-n", COMPLETIONS / name], check=True)


if __name__ == "__main__":
    unittest.main()
