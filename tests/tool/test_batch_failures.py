"""batch: rows that fail stop no other."""

import os
import subprocess
import unittest

from support import NOT_WRITTEN, SOME_FAILED, TOOL, USAGE
from support.batch import BatchTest, csv

# The rows 2 to 11 are bad, each in its own way; 1, 12 and 13 are good.
BAD = b"""name,note
first,a
few
many,a,b
\xff,bad UTF-8
C/D,slash
..,fine: three points and a suffix
,empty
first,a name twice
Z&,no XML
"a\x00b",a zero byte
<x>,no XML either
"bad
name",a
good name,a
last,b
"""


class Failures(BatchTest):
    def test_bad_rows_of_each_kind_are_told_with_their_numbers(self):
        errors = self.fail_rows("text.xml", BAD, output="out/{name}.png")
        said = dict(line.split(": 'd.csv', line ", 1) for line in errors)
        self.assertEqual({key[len("velnorxmltoimg: "):]: text for key, text in said.items()}, {
            "row 2": "3: it has 1 instead of 2 values",
            "row 3": "4: it has 3 instead of 2 values",
            "row 4": "5: its 'name' holds bytes that are not UTF-8 text",
            "row 5": "6: its 'name' has a slash, which no output name can take",
            "row 7": "8: the output name 'out/.png' has nothing before its suffix",
            "row 8": "9: 'out/first.png' is the output of row 1 already",
            "row 9": "10: 'text.xml': line 5, column 48: letter is expected",
            "row 10": "11: its 'name' holds bytes that are not UTF-8 text",
            "row 11": "12: 'text.xml': line 5, column 55: tag mismatch",
            "row 12": "13: its 'name' has a control character, which no output name can take"})

    def test_all_good_rows_are_written_whole_and_nothing_else(self):
        self.fail_rows("text.xml", BAD, output="out/{name}.png")
        self.assertEqual(sorted(self.pictures()),
                         ["...png", "first.png", "good name.png", "last.png"])
        self.assert_whole(self.pictures())

    def test_a_quote_that_is_not_closed_ends_the_data(self):
        errors = self.fail_rows("a.xml", 'w\n5\n"6\n7\n8\n')
        self.assertEqual(errors, ["velnorxmltoimg: row 2: 'd.csv', line 3: a quote is not closed; "
                                  "what follows cannot be told apart, so the data ends here"])
        self.assertEqual(list(self.pictures()), ["1.png"])

    def test_a_quote_where_none_can_stand_ends_the_data(self):
        for row in ('6"', '"6"7', 'a"6"'):
            with self.subTest(row=row):
                errors = self.fail_rows("a.xml", f"w\n5\n{row}\n7\n")
                self.assertEqual(len(errors), 1)
                self.assertIn("row 2: 'd.csv', line 3: a quote stands where none can; what follows",
                              errors[0])
                self.assertEqual(list(self.pictures()), ["1.png"])

    def test_every_shard_tells_where_the_data_ends(self):
        for index in (1, 2, 3):
            errors = self.fail_rows("a.xml", 'w\n5\n6\n"7\n', "--shard", f"{index}/3")
            self.assertEqual(len(errors), 1)
            self.assertIn("row 3: ", errors[0])

    def test_an_old_picture_of_a_bad_row_stays(self):
        self.write("out/1.png", "old")
        self.fail_rows("text.xml", csv(["name"], ["a&b"]))
        self.assertEqual(self.pictures(), {"1.png": b"old"})

    def test_an_old_picture_of_a_good_row_is_replaced(self):
        self.write("out/1.png", "old")
        self.batch("a.xml", csv(["w"], [5]))
        self.assert_whole(self.pictures())

    def test_standard_output_that_is_full_ends_a_dry_run(self):
        self.write("d.csv", csv(["w"], *[[1]] * 2000))
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "batch", "a.xml", "--data", "d.csv", "-o", "{number}.png",
                                   "--dry-run"], cwd=self.folder, stdout=full,
                                  stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, NOT_WRITTEN)
        self.assertEqual(done.stderr.count(b"\n"), 1)

    @unittest.skipIf(os.geteuid() == 0, "root may write everywhere")
    def test_a_folder_that_takes_no_files_ends_the_batch(self):
        (self.folder / "out").mkdir(mode=0o500)
        self.refuse(NOT_WRITTEN, "a.xml", csv(["w"], [5]), says="cannot write into 'out'")

    def test_wrong_options_are_refused(self):
        data = csv(["w"], [5])
        for more in (("--jobs", 0), ("--jobs", "x"), ("--timeout", 0), ("--shard", "0/2"),
                     ("--format", "xml"), ("--mono", "grey"), ("--dry-run", "--summary", "-")):
            with self.subTest(more=more):
                self.refuse(USAGE, "a.xml", data, *more, says=more[-2])

    def test_a_dry_run_tells_bad_rows_too_and_writes_nothing(self):
        self.write("d.csv", csv(["w", "n"], [5, "a"], [6, "a/b"], [7, "a"], [8, "c"]))
        done = self.run_tool("batch", "a.xml", "--data", "d.csv", "-o", "out/{n}.png", "--dry-run")
        self.assertEqual((done.returncode, done.stdout), (SOME_FAILED, b"out/a.png\nout/c.png\n"))
        self.assertEqual(done.stderr.count(b"\n"), 2)
        self.assertFalse((self.folder / "out").exists())


if __name__ == "__main__":
    unittest.main()
