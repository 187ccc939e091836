"""Python programs that use the module run and end as they should."""

from __future__ import annotations

import filecmp
import os
import subprocess
import sys
import tempfile
import unittest

from support import C_HOST, LIBRARY_FILE, SOURCES, main

PROGRAM = os.path.join(SOURCES, "examples", "python", "render.py")
LAYOUTS = os.path.join(SOURCES, "examples", "layouts")
ROUNDS = 20

LAYOUT = (
    '<VelnorRoot><VelnorItems class="canvas" id="page"><width>80</width><height>40</height>'
    '<VelnorItem class="line" id="rule"><thickness>1</thickness><length link="span">%length%'
    "</length></VelnorItem></VelnorItems></VelnorRoot>"
)


class ProgramTest(unittest.TestCase):
    def setUp(self) -> None:
        folder = tempfile.TemporaryDirectory()
        self.addCleanup(folder.cleanup)
        self.folder = folder.name
        self.write("page.xml", LAYOUT)

    def path(self, name: str) -> str:
        return os.path.join(self.folder, name)

    def write(self, name: str, text: str) -> None:
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def run_python(self, *arguments: str) -> subprocess.CompletedProcess[str]:
        return subprocess.run(
            [sys.executable, *arguments],
            cwd=self.folder,
            capture_output=True,
            encoding="utf-8",
            timeout=100,
            check=False,
        )

    def check_end(
        self, run: subprocess.CompletedProcess[str], status: int, error: str = ""
    ) -> None:
        self.assertEqual((run.returncode, run.stderr, run.stdout), (status, error, ""))


class RenderTest(ProgramTest):
    def check_render(self, *arguments: str, status: int = 0, error: str = "") -> None:
        self.check_end(
            self.run_python(PROGRAM, "--library", LIBRARY_FILE, *arguments), status, error
        )

    def test_a_file_of_values_gives_the_picture_of_the_c_host(self) -> None:
        layout = os.path.join(LAYOUTS, "bank_slip.xml")
        settings = [f"--values={LAYOUTS}/bank_slip.values", "copy.hidden=0", "copy_frame.hidden=0"]
        subprocess.run([C_HOST, layout, self.path("expected.png"), *settings], check=True)
        self.check_render(layout, "out.png", *settings)
        self.assertTrue(filecmp.cmp(self.path("expected.png"), self.path("out.png"), shallow=False))

    def test_settings_are_applied_in_their_order(self) -> None:
        self.write("lines.values", "# a comment\n\nlength=0\nrule.style=5\n")
        line = "render.py: Line item id=rule: invalid"
        self.check_render(
            *("page.xml", "out.png", "length=4", "--values=lines.values"),
            error=f"{line} style(5)\n",
        )
        self.check_render(
            *("page.xml", "out.png", "--values=lines.values", "length=4", "rule.style=0"),
            error=f"{line} length(0)\n",
        )
        self.check_render("page.xml", "out.png", "length=0", "@rule.span=5")

    def test_what_cannot_be_rendered_gives_1(self) -> None:
        self.check_render(
            *("missing.xml", "out.png"),
            status=1,
            error="render.py: missing.xml: no layout document\n",
        )
        self.check_render(
            *("page.xml", "out.unknown", "length=4"),
            status=1,
            error="render.py: out.unknown: no picture from page.xml\n",
        )
        self.check_render(
            *("page.xml", "out.png", "@rule.other=4"),
            status=1,
            error="render.py: rule.other: page.xml has no such link\n",
        )
        self.assertEqual(os.listdir(self.folder), ["page.xml"])

    def test_wrong_arguments_give_2(self) -> None:
        for setting in "name", "=value", "@=value":
            self.check_render(
                *("page.xml", "out.png", setting),
                status=2,
                error=f"render.py: '{setting}' is not of the form name=value\n",
            )
        self.assertEqual(self.run_python(PROGRAM, "page.xml").returncode, 2)


class EndTest(ProgramTest):
    """Qt's event loop runs on a thread of its own when the interpreter ends."""

    START = f"""
import os, sys, threading
from velnorxmltoimg import Layout, Library
library = Library({LIBRARY_FILE!r})
layout = Layout(library, "page.xml")
layout.set_tag("length", "4")
"""

    DRAWING_THREADS = """
drawn = threading.Semaphore(0)
def draw(number):
    with Layout(library, "page.xml") as own:
        while True:
            own.render(f"{number}.png")
            drawn.release()
for number in range(3):
    threading.Thread(target=draw, args=[number], daemon=True).start()
for _ in range(6):
    drawn.acquire()
"""

    def check_program(self, program: str, status: int = 0, error: str = "") -> None:
        for _ in range(ROUNDS):
            self.check_end(self.run_python("-c", self.START + program), status, error)

    def test_a_program_may_end_while_qt_runs(self) -> None:
        self.check_program("layout.render('out.png'); layout.close()")

    def test_a_program_may_end_with_open_layouts(self) -> None:
        self.check_program("layout.render('out.png'); layout.itself = layout")

    def test_a_program_may_end_with_a_status_of_its_own(self) -> None:
        self.check_program("sys.exit(3)", status=3)

    def test_a_program_may_end_while_daemon_threads_draw(self) -> None:
        self.check_program(self.DRAWING_THREADS)
        self.assertEqual(sorted(os.listdir(self.folder)), ["0.png", "1.png", "2.png", "page.xml"])

    def test_a_program_may_use_a_layout_at_its_end(self) -> None:
        self.check_program("import atexit; atexit.register(layout.render, 'out.png')")
        self.assertEqual(sorted(os.listdir(self.folder)), ["out.png", "page.xml"])

    def test_a_child_that_was_forked_may_end(self) -> None:
        program = """
child = os.fork()
if child != 0:
    sys.exit(os.waitstatus_to_exitcode(os.waitpid(child, 0)[1]))
"""
        self.check_program(self.DRAWING_THREADS + program)


if __name__ == "__main__":
    main()
