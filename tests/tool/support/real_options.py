"""The commands and options that the tool really has, as its help tells them."""

import re


def commands_in(help_text):
    listed = re.search(r"\nCommands:\n((?:  .*\n)+)", help_text).group(1)
    return re.findall(r"^  ([a-z]+) ", listed, re.MULTILINE)


def options_in(help_text):
    """Long names, --help left out."""
    return set(re.findall(r"^  (?:-\w,)?(--[a-z-]+)", help_text, re.MULTILINE)) - {"--help"}


def options_of_commands(tool_test):
    """A set of long options for each command."""
    commands = commands_in(tool_test.succeed("--help").decode())
    return {command: options_in(tool_test.succeed(command, "--help").decode())
            for command in commands}
