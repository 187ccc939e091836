"""batch: several runs that share the rows."""

import unittest

from support import USAGE
from support.batch import BatchTest, csv

ROWS = csv(["name", "w"], *[[f"guest {number}", number % 3 + 5] for number in range(1, 12)])


class Shards(BatchTest):
    def shard(self, index, count, *more, folder, **run):
        return self.batch("text.xml", ROWS, "--shard", f"{index}/{count}", *more,
                          output=folder + "/{number:02} {name}.png", **run)

    def test_shards_together_make_the_pictures_of_one_run_byte_for_byte(self):
        self.batch("text.xml", ROWS, output="whole/{number:02} {name}.png")
        self.assertEqual(len(self.pictures("whole")), 11)
        for count in (1, 3, 7):
            for index in range(1, count + 1):
                self.shard(index, count, "--jobs", 1, folder=f"of{count}")
            self.assertEqual(self.pictures(f"of{count}"), self.pictures("whole"))

    def test_a_shard_takes_each_nth_row_with_its_number_in_the_whole_data(self):
        output = self.shard(2, 4, "--dry-run", folder="o").decode()
        self.assertEqual(output.splitlines(), [f"o/{number:02} guest {number}.png"
                                               for number in (2, 6, 10)])

    def test_shards_have_no_row_in_common(self):
        names = [name for index in range(1, 8)
                 for name in self.shard(index, 7, "--dry-run", folder="o").decode().splitlines()]
        self.assertEqual(len(names), 11)
        self.assertEqual(len(set(names)), 11)

    def test_more_shards_than_rows_leave_some_without_work(self):
        self.assertEqual(self.shard(12, 12, "--dry-run", folder="o"), b"")

    def test_bad_rows_are_told_by_their_shard_alone(self):
        data = csv(["w", "n"], [5, "a"], [5, "b/c"], [5, "d"], [5, "e/f"])
        for index in (1, 3):
            self.batch("a.xml", data, "--shard", f"{index}/4", output="out/{n}.png")
        for index in (2, 4):
            errors = self.fail_rows("a.xml", data, "--shard", f"{index}/4", output="out/{n}.png")
            self.assertEqual(len(errors), 1)
            self.assertIn(f"row {index}: ", errors[0])

    def test_one_name_of_rows_in_different_shards_is_told(self):
        data = csv(["w", "n"], [5, "a"], [6, "a"])
        self.batch("a.xml", data, "--shard", "1/2", output="out/{n}.png")
        errors = self.fail_rows("a.xml", data, "--shard", "2/2", output="out/{n}.png")
        self.assertIn("row 2: 'd.csv', line 3: 'out/a.png' is the output of row 1 already",
                      errors[0])

    def test_shards_of_json_lines_are_the_same_rows(self):
        data = "".join(f'{{"w":{number}}}\n' for number in range(5, 12))
        output = self.batch("a.xml", data, "--dry-run", "--shard", "3/3", output="{w}.png",
                            name="d.jsonl")
        self.assertEqual(output, b"7.png\n10.png\n")

    def test_what_is_no_shard_is_refused(self):
        for shard in ("0/3", "4/3", "1", "/", "1/", "/1", "1/0", "-1/3", "1/3x", "a/b", "1.5/3",
                      "1/99999999999999999999"):
            with self.subTest(shard=shard):
                self.refuse(USAGE, "a.xml", csv(["w"], [1]), "--shard", shard, says="--shard")


if __name__ == "__main__":
    unittest.main()
