"""batch: what is told in JSON and on a terminal."""

import json
import os
import pty
import select
import subprocess
import unittest

from support import NOT_WRITTEN, TOOL
from support.batch import BatchTest, csv

DATA = csv(["w", "n"], [5, "a"], [6, "b/c"], [7, "a"], ["x", "d"], [9, "e"])


class Summary(BatchTest):
    def summary(self, name="s.json"):
        return json.loads((self.folder / name).read_text())

    def test_rows_are_counted_and_failures_listed(self):
        self.fail_rows("a.xml", DATA, "--summary", "s.json", "--jobs", 1, output="out/{n}.png")
        summary = self.summary()
        self.assertGreaterEqual(summary.pop("seconds"), 0)
        failures = sorted(summary.pop("failures"), key=lambda failure: failure["row"])
        self.assertEqual(summary, {"rows": 5, "done": 2, "skipped": 0, "failed": 3})
        self.assertEqual(failures, [
            {"row": 2, "line": 3, "output": None,
             "reason": "its 'n' has a slash, which no output name can take"},
            {"row": 3, "line": 4, "output": "out/a.png",
             "reason": "'out/a.png' is the output of row 1 already"},
            {"row": 4, "line": 5, "output": "out/d.png",
             "reason": "'a.xml': the canvas has no width"}])

    def test_a_run_without_failures_has_an_empty_list(self):
        self.batch("a.xml", csv(["w"], [5]), "--summary", "s.json")
        self.assertEqual(self.summary()["failures"], [])

    def test_rows_of_other_shards_are_not_counted(self):
        self.batch("a.xml", csv(["w"], [5], [6], [7]), "--summary", "s.json", "--shard", "1/2")
        self.assertEqual(self.summary()["rows"], 2)

    def test_a_dash_writes_it_to_standard_output(self):
        output = self.batch("a.xml", csv(["w"], [5], [6]), "--summary", "-")
        self.assertEqual(json.loads(output)["done"], 2)

    def test_a_batch_that_cannot_begin_writes_no_summary(self):
        self.write("d.csv", csv(["w"], [5]))
        done = self.run_tool("batch", "none.xml", "--data", "d.csv", "-o", "{number}.png",
                             "--summary", "-")
        self.assertEqual((done.returncode, done.stdout), (3, b""))

    def test_texts_of_any_kind_are_json(self):
        self.fail_rows("a.xml", 'w,n\n5,"ä\n""/"\n', "--summary", "s.json", output="out/{n}.png")
        self.fail_rows("text.xml", 'name\n"ä ""&"\n', "--summary", "s.json",
                       output="out/{name}.png")
        self.assertEqual(self.summary()["failures"][0]["output"], 'out/ä "&.png')

    def test_an_old_summary_stays_until_the_new_one_is_complete(self):
        self.write("s.json", "old")
        self.refuse(3, "none.xml", csv(["w"], [5]), "--summary", "s.json")
        self.assertEqual((self.folder / "s.json").read_text(), "old")
        self.assertEqual([name for name in self.files() if "s.json" in name], ["s.json"])

    def test_a_summary_that_cannot_be_written_ends_the_batch_before_it_begins(self):
        self.refuse(NOT_WRITTEN, "a.xml", csv(["w"], [5]), "--summary", "none/s.json",
                    says="'none/s.json'")


class ProgressBar(BatchTest):
    def terminal_output(self, *more):
        """What a batch of some rows writes on a terminal."""
        self.write("d.csv", csv(["name"], *[["guest"]] * 4, ["a&b"]))
        master, terminal = pty.openpty()
        process = subprocess.Popen([TOOL, "batch", "large.xml", "--data", "d.csv", "-o",
                                    "out/{number}.png", "--jobs", "1", *more], cwd=self.folder,
                                   stderr=terminal, stdout=subprocess.DEVNULL)
        os.close(terminal)
        output = b""
        while select.select([master], [], [], 60)[0]:
            try:
                output += os.read(master, 4096)
            except OSError:
                break
        os.close(master)
        self.assertEqual(process.wait(60), 1)
        return output.decode()

    def test_a_terminal_shows_how_far_the_batch_is(self):
        output = self.terminal_output()
        self.assertRegex(output, r"\[#+ *\] \d+ %  \d done, \d+ a second")
        self.assertIn("\r\033[Kvelnorxmltoimg: row 5: ", output)

    def test_quiet_shows_failures_alone(self):
        lines = self.terminal_output("--quiet").splitlines()
        self.assertEqual(len(lines), 1)
        self.assertTrue(lines[0].startswith("velnorxmltoimg: row 5: "))


if __name__ == "__main__":
    unittest.main()
