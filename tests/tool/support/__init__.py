"""Runs the tool as a user does, in a folder of its own for each test."""

import json
import os
import pathlib
import shutil
import struct
import subprocess
import tempfile
import unittest

TOOL = os.environ["VELNOR_TOOL"]
SOURCE = pathlib.Path(os.environ["VELNOR_SOURCE"])
FONTS = SOURCE / "tests" / "fonts"
MANUAL = pathlib.Path(os.environ["VELNOR_MANUAL"])
COMPLETIONS = SOURCE / "tools" / "velnorxmltoimg" / "completions"
LAYOUTS = SOURCE / "examples" / "layouts"

DONE, SOME_FAILED, USAGE, UNREADABLE, FINDINGS, NOT_WRITTEN = range(6)


def text_item(text, item_id="greeting", more=""):
    """An item in a font that the folder of the test has."""
    return (f'<VelnorItem class="text" id="{item_id}"><text>{text}</text>'
            f"<fontname>Liberation Sans</fontname><fontsize>12</fontsize>{more}</VelnorItem>")


def layout(items="", canvas="<width>200</width><height>100</height>"):
    """The text of a layout document."""
    return ('<?xml version="1.0" encoding="UTF-8"?>\n<VelnorRoot>\n'
            f'<VelnorItems class="canvas" id="ticket">\n{canvas}\n{items}\n'
            "</VelnorItems>\n</VelnorRoot>\n")


def png_header(data):
    """Width, height, bits a sample and colour type of a PNG file."""
    if data[:8] != b"\x89PNG\r\n\x1a\n":
        raise AssertionError(f"no PNG file: {data[:16]!r}")
    return struct.unpack(">IIBB", data[16:26])


class ToolTest(unittest.TestCase):
    def setUp(self):
        self.folder = pathlib.Path(tempfile.mkdtemp(prefix="velnor-tool-"))
        self.addCleanup(shutil.rmtree, self.folder)
        (self.folder / "fonts").mkdir()
        for font in FONTS.glob("LiberationSans-*.ttf"):
            shutil.copy(font, self.folder / "fonts")

    def write(self, name, text):
        path = self.folder / name
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_bytes(text if isinstance(text, bytes) else text.encode())
        return name

    def run_tool(self, *arguments, stdin=b"", environment=None, timeout=60):
        """The finished process, its streams as bytes."""
        return subprocess.run([TOOL, *map(str, arguments)], input=stdin, cwd=self.folder,
                              stdout=subprocess.PIPE, stderr=subprocess.PIPE, timeout=timeout,
                              env={**os.environ, **(environment or {})}, check=False)

    def succeed(self, *arguments, **more):
        """The output of a run that must do what it was asked, without a word on standard error."""
        done = self.run_tool(*arguments, **more)
        self.assertEqual(done.stderr, b"")
        self.assertEqual(done.returncode, DONE)
        return done.stdout

    def assert_refused(self, code, *arguments, says="", **more):
        """The one line on standard error of a run that must end with the code."""
        done = self.run_tool(*arguments, **more)
        error = done.stderr.decode()
        self.assertEqual(done.returncode, code, error)
        self.assertEqual(error.count("\n"), 1, error)
        self.assertTrue(error.startswith("velnorxmltoimg: "), error)
        self.assertIn(says, error)
        return error

    def json_lines(self, output):
        return [json.loads(line) for line in output.decode().splitlines()]

    def files(self):
        """What the folder holds, but for the fonts."""
        return sorted(str(path.relative_to(self.folder)) for path in self.folder.rglob("*")
                      if path.is_file() and path.parent.name != "fonts")
