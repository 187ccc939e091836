"""What the tests of batches share: data files, runs and their processes."""

import os
import pathlib
import signal
import subprocess
import time

from support import SOME_FAILED, TOOL, ToolTest, layout, text_item

SMALL = "<width>%w%</width><height>8</height>"
LARGE = "<width>2000</width><height>2500</height>"
PNG_END = b"IEND\xaeB`\x82"


def csv(*rows):
    """The text of a data file; its first row names the columns."""
    return "".join(",".join(map(str, row)) + "\n" for row in rows)


class BatchTest(ToolTest):
    def setUp(self):
        super().setUp()
        self.write("a.xml", layout(canvas=SMALL))
        self.write("text.xml", layout(text_item("%name%"), "<width>90</width><height>24</height>"))
        self.write("large.xml", layout(text_item("%name%"), LARGE))

    def batch(self, document, data, *more, output="out/{number}.png", name="d.csv", **run):
        """A run that must do every row, without a word on standard error."""
        self.write(name, data)
        return self.succeed("batch", document, "--data", name, "-o", output, *more, **run)

    def fail_rows(self, document, data, *more, output="out/{number}.png", name="d.csv", **run):
        """The lines on standard error of a run in which some rows must fail."""
        self.write(name, data)
        done = self.run_tool("batch", document, "--data", name, "-o", output, *more, **run)
        error = done.stderr.decode()
        self.assertEqual(done.returncode, SOME_FAILED, error)
        return error.splitlines()

    def refuse(self, code, document, data, *more, output="out/{number}.png", name="d.csv", says=""):
        """A run that must end before its first row."""
        self.write(name, data)
        error = self.assert_refused(code, "batch", document, "--data", name, "-o", output, *more, says=says)
        self.assertEqual(self.pictures(), {})
        return error

    def pictures(self, folder="out"):
        """The bytes of each file below the folder, hidden ones included, by its name there."""
        root = self.folder / folder
        return {str(path.relative_to(root)): path.read_bytes() for path in root.rglob("*")
                if path.is_file()}

    def assert_whole(self, pictures):
        for name, data in pictures.items():
            self.assertTrue(data.endswith(PNG_END), name)

    def hidden(self, folder="out"):
        return [path.name for path in (self.folder / folder).iterdir() if path.name[0] == "."]

    def start(self, *arguments):
        """A batch that goes on while the test looks on."""
        process = subprocess.Popen([TOOL, "batch", *map(str, arguments)], cwd=self.folder,
                                   stdout=subprocess.DEVNULL, stderr=subprocess.PIPE)
        self.addCleanup(end, process)
        return process


def end(process):
    if process.poll() is None:
        process.kill()
    process.wait()
    process.stderr.close()


def wait_for(condition, seconds=20):
    """The first true result of the condition."""
    deadline = time.monotonic() + seconds
    while not (result := condition()):
        if time.monotonic() > deadline:
            raise AssertionError("waited in vain")
        time.sleep(0.005)
    return result


def workers_of(process):
    children = pathlib.Path(f"/proc/{process.pid}/task/{process.pid}/children")
    return [int(child) for child in children.read_text().split()]


def is_running(pid):
    try:
        state = pathlib.Path(f"/proc/{pid}/stat").read_text().rsplit(")", 1)[1].split()[0]
    except FileNotFoundError:
        return False
    return state != "Z"


def stop(pid):
    os.kill(pid, signal.SIGSTOP)


def kill(pid):
    os.kill(pid, signal.SIGKILL)
