"""batch: going on where an earlier run ended."""

import json
import os
import unittest

from support.batch import BatchTest, csv

ROWS = csv(["w"], *[[number] for number in range(5, 11)])


class Resume(BatchTest):
    def times(self):
        return {path.name: (path.stat().st_mtime_ns, path.stat().st_ino)
                for path in (self.folder / "out").iterdir()}

    def test_only_what_is_missing_is_drawn(self):
        self.batch("a.xml", ROWS)
        whole = self.pictures()
        before = self.times()
        for name in ("2.png", "5.png"):
            os.remove(self.folder / "out" / name)
        self.batch("a.xml", ROWS, "--resume", "--summary", "s.json")
        self.assertEqual(self.pictures(), whole)
        changed = {name for name, time in self.times().items() if before[name] != time}
        self.assertEqual(changed, {"2.png", "5.png"})
        summary = json.loads((self.folder / "s.json").read_text())
        self.assertEqual((summary["done"], summary["skipped"]), (2, 4))

    def test_with_everything_there_nothing_is_drawn(self):
        self.batch("a.xml", ROWS)
        before = self.times()
        self.batch("a.xml", ROWS, "--resume")
        self.assertEqual(self.times(), before)

    def test_without_resume_everything_is_drawn_anew(self):
        self.batch("a.xml", ROWS)
        before = self.times()
        self.batch("a.xml", ROWS)
        self.assertFalse(set(before.values()) & set(self.times().values()))

    def test_rows_that_failed_are_tried_again(self):
        self.fail_rows("a.xml", csv(["w"], [5], ["wide"], [7]))
        self.batch("a.xml", csv(["w"], [5], [6], [7]), "--resume")
        self.assertEqual(sorted(self.pictures()), ["1.png", "2.png", "3.png"])

    def test_a_row_whose_name_an_earlier_row_has_is_told_again(self):
        data = csv(["w", "n"], [5, "a"], [6, "a"], [7, "b"])
        first = self.fail_rows("a.xml", data, output="out/{n}.png")
        pictures = self.pictures()
        self.assertEqual(self.fail_rows("a.xml", data, "--resume", output="out/{n}.png"), first)
        self.assertEqual(self.pictures(), pictures)

    def test_a_dry_run_names_what_is_missing(self):
        self.batch("a.xml", ROWS)
        os.remove(self.folder / "out" / "3.png")
        self.assertEqual(self.batch("a.xml", ROWS, "--resume", "--dry-run"), b"out/3.png\n")

    def test_resuming_and_shards_go_together(self):
        self.batch("a.xml", ROWS)
        whole = self.pictures()
        for name in ("2.png", "3.png"):
            os.remove(self.folder / "out" / name)
        self.batch("a.xml", ROWS, "--resume", "--shard", "1/2")
        self.assertNotIn("2.png", self.pictures())
        self.batch("a.xml", ROWS, "--resume", "--shard", "2/2")
        self.assertEqual(self.pictures(), whole)


if __name__ == "__main__":
    unittest.main()
