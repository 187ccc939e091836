"""What the tests of the Python host share.

Each file of tests is run as: test_....py LIBRARY SOURCES C_HOST [TEST]...
"""

from __future__ import annotations

import ctypes
import os
import sys
import tempfile
import threading
import time
import unittest
from collections.abc import Callable
from typing import Any

from velnorxmltoimg import Layout, Library

LIBRARY_FILE, SOURCES, C_HOST = sys.argv[1:4]

BOX = "<width>20</width><height>10</height><thickness>1</thickness>"
LABEL = '<text link="caption">old</text><fontname>Liberation Sans</fontname><fontsize>9</fontsize>'


def item(kind: str, name: str, content: str = "") -> str:
    return f'<VelnorItem class="{kind}" id="{name}">{content}</VelnorItem>'


def document_of(content: str) -> str:
    return (
        '<VelnorRoot><VelnorItems class="canvas" id="page">'
        f"<width>80</width><height>40</height>{content}</VelnorItems></VelnorRoot>"
    )


class HostTest(unittest.TestCase):
    """A folder of its own, in which the test runs, and the library."""

    library: Library

    @classmethod
    def setUpClass(cls) -> None:
        cls.library = Library(LIBRARY_FILE)

    def setUp(self) -> None:
        before = os.getcwd()
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.addCleanup(os.chdir, before)
        os.chdir(folder.name)

    def write(self, name: str, text: str) -> str:
        with open(name, "w", encoding="utf-8") as file:
            file.write(text)
        return name

    def open_layout(self, content: str = "", **folders: str) -> Layout:
        layout = Layout(self.library, self.write("page.xml", document_of(content)), **folders)
        self.addCleanup(layout.close)
        return layout

    def label(self) -> Layout:
        return self.open_layout(item("text", "label", LABEL))


class Recorder:
    """Stands in for the C functions: calls them, and notes the calls and those that overlap."""

    def __init__(self, native: ctypes.CDLL):
        self.native = native
        self.calls: list[tuple[str, Any, Any]] = []
        self.overlaps: list[str] = []
        self.inside = threading.Lock()

    def __getattr__(self, name: str) -> Callable[..., Any]:
        return lambda *arguments: self.record(name, arguments)

    def record(self, name: str, arguments: tuple[Any, ...]) -> Any:
        alone = self.inside.acquire(blocking=False)
        if not alone:
            self.overlaps.append(name)
        time.sleep(0.001)  # lets other threads run
        result = getattr(self.native, name)(*arguments)
        self.calls.append((name, arguments, result))
        if alone:
            self.inside.release()
        return result


def main() -> None:
    unittest.main(argv=sys.argv[:1] + sys.argv[4:])
