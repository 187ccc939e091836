"""Guides that are followed: what they show is what happens."""

import os
import re
import subprocess

from . import TOOL


def blocks(text, language):
    """The blocks of code of a language, in their order."""
    return re.findall(rf"^```{language}\n(.*?)^```$", text, re.MULTILINE | re.DOTALL)


class Follower:
    """Beside ToolTest: runs commands in the folder of the test, with the tool on the path."""

    def install_tool(self):
        (self.folder / "bin").mkdir()
        (self.folder / "bin" / "velnorxmltoimg").symlink_to(TOOL)

    def shell(self, command, folder="", **variables):
        """What a command writes on both streams, and its exit code."""
        environment = {**os.environ, **variables,
                       "PATH": f"{self.folder}/bin:{os.environ['PATH']}"}
        done = subprocess.run(["bash", "-c", command], cwd=self.folder / folder, env=environment,
                              stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                              stderr=subprocess.STDOUT, check=False)
        return done.stdout.decode(), done.returncode

    def run_shown(self, block, folder="", likewise=lambda text: text):
        """Each command of a block prints what stands below it."""
        for step in re.split(r"^\$ ", block, flags=re.MULTILINE)[1:]:
            command, shown = step.split("\n", 1)
            with self.subTest(command=command):
                self.assertEqual(likewise(self.shell(command, folder)[0]), likewise(shown))
