"""batch: a million rows need no more memory than ten."""

import os
import subprocess
import unittest

from support import TOOL
from support.batch import BatchTest, csv

IS_SANITIZED = b"__asan_init" in open(TOOL, "rb").read()
SLACK = 2048  # KiB


@unittest.skipIf(IS_SANITIZED, "a sanitizer keeps what is freed")
class Memory(BatchTest):
    def peak(self, *arguments):
        """The largest resident memory of the batch and its workers, in KiB."""
        process = subprocess.Popen([TOOL, "batch", *map(str, arguments)], cwd=self.folder,
                                   stdout=subprocess.DEVNULL)
        _, status, usage = os.wait4(process.pid, 0)
        process.returncode = os.waitstatus_to_exitcode(status)
        self.assertEqual(process.returncode, 0)
        return usage.ru_maxrss

    def assert_flat(self, few, many, *arguments):
        self.write("few.csv", few)
        self.write("many.csv", many)
        first = self.peak("a.xml", "--data", "few.csv", *arguments)
        second = self.peak("a.xml", "--data", "many.csv", *arguments)
        self.assertLess(abs(second - first), SLACK, (first, second))

    def test_names_of_many_rows_take_no_memory(self):
        rows = [[5, f"a guest with a name of some length {number}"] for number in range(50000)]
        self.assert_flat(csv(["w", "n"], *rows[:10]), csv(["w", "n"], *rows), "-o", "out/{n}.png",
                         "--dry-run")

    def test_pictures_of_many_rows_take_no_memory(self):
        rows = [[5]] * 600
        self.assert_flat(csv(["w"], *rows[:10]), csv(["w"], *rows), "-o", "out/{number}.png",
                         "--jobs", 2)


if __name__ == "__main__":
    unittest.main()
