"""batch: comma-separated values."""

import unittest

from support import UNREADABLE, USAGE, layout, png_header
from support.batch import BatchTest, csv


class Csv(BatchTest):
    def names(self, data, *more, **run):
        """The values of the column name, as outputs show them."""
        output = self.batch("text.xml", data, "--dry-run", *more, output="out/{name}.png", **run)
        return [line[len("out/"):-len(".png")] for line in output.decode().splitlines()]

    def test_each_row_gives_a_picture(self):
        self.batch("a.xml", csv(["w"], [11], [12], [13]))
        widths = {name: png_header(data)[0] for name, data in self.pictures().items()}
        self.assertEqual(widths, {"1.png": 11, "2.png": 12, "3.png": 13})

    def test_quoted_values_hold_delimiters_quotes_and_line_feeds(self):
        self.assertEqual(self.names('name,w\n"a, b",1\n"say ""no""",2\n'), ["a, b", 'say "no"'])
        self.batch("text.xml", 'name\n"two\nlines"\n')
        self.batch("text.xml", 'name\n"two lines"\n', output="one/{number}.png")
        self.assertNotEqual(self.pictures()["1.png"], self.pictures("one")["1.png"])

    def test_a_line_feed_in_quotes_is_no_row(self):
        errors = self.fail_rows("a.xml", 'w,note\n1,"a\nb\nc"\n2\n3,d\n')
        self.assertEqual(errors, ["velnorxmltoimg: row 2: 'd.csv', line 5: it has 1 instead of 2 "
                                  "values"])
        self.assertEqual(sorted(self.pictures()), ["1.png", "3.png"])

    def test_lines_end_by_line_feeds_with_or_without_carriage_returns(self):
        for data in ("name\na\nb\n", "name\r\na\r\nb\r\n", "name\na\nb", "name\r\na\r\nb"):
            with self.subTest(data=data):
                self.assertEqual(self.names(data), ["a", "b"])

    def test_a_byte_order_mark_is_passed_over(self):
        self.assertEqual(self.names("\ufeffname\na\n"), ["a"])

    def test_spaces_belong_to_values(self):
        self.assertEqual(self.names("name,w\n a ,1\n"), [" a "])

    def test_lines_without_anything_are_passed_over(self):
        self.assertEqual(self.names("\nname\n\na\n\n\nb\n"), ["a", "b"])

    def test_empty_values_are_values(self):
        self.batch("text.xml", csv(["name", "x"], ["", ""]))
        self.assertEqual(list(self.pictures()), ["1.png"])

    def test_another_delimiter_may_be_given(self):
        self.assertEqual(self.names("w;name\n1;a,b\n", "--delimiter", ";"), ["a,b"])
        self.assertEqual(self.names("w\tname\n1\ta,b\n", "--delimiter", "\\t"), ["a,b"])

    def test_a_delimiter_that_is_not_one_character_is_refused(self):
        for delimiter in ("", ";;", '"', "ä"):
            with self.subTest(delimiter=delimiter):
                self.refuse(USAGE, "a.xml", csv(["w"], [1]), "--delimiter", delimiter,
                            says="--delimiter")

    def test_standard_input_is_read_as_the_format_says(self):
        self.succeed("batch", "a.xml", "--data", "-", "--format", "csv", "-o", "out/{number}.png",
                     stdin=b"w\n5\n")
        self.assertEqual(png_header(self.pictures()["1.png"])[0], 5)

    def test_a_file_whose_suffix_tells_nothing_needs_a_format(self):
        self.refuse(USAGE, "a.xml", csv(["w"], [1]), name="d.txt", says="--format")
        self.batch("a.xml", csv(["w"], [1]), "--format", "csv", name="d.txt")

    def test_values_beyond_ascii_arrive(self):
        self.assertEqual(self.names("name\nGrüße 中文 😀\n"), ["Grüße 中文 😀"])

    def test_a_header_alone_is_no_row(self):
        self.batch("a.xml", "w\n")
        self.assertEqual(self.pictures(), {})

    def test_data_without_a_header_is_refused(self):
        self.refuse(UNREADABLE, "a.xml", "", says="names of columns")

    def test_two_columns_of_one_name_are_refused(self):
        self.refuse(UNREADABLE, "a.xml", csv(["w", "x", "w"], [1, 2, 3]), says="two columns 'w'")

    def test_a_header_that_is_not_utf_8_is_refused(self):
        self.refuse(UNREADABLE, "a.xml", b"w,\xff\n1,2\n", says="UTF-8")

    def test_data_that_cannot_be_read_is_told(self):
        for name in ("none.csv", "fonts"):
            self.assert_refused(UNREADABLE, "batch", "a.xml", "--data", name, "--format", "csv", "-o",
                      "out/{number}.png", says=f"cannot read '{name}'")

    def test_a_row_without_end_is_given_up(self):
        errors = self.fail_rows("a.xml", "w\n5\n\"" + ("x" * 127 + "\n") * (136 * 1024))
        self.assertEqual(len(errors), 1)
        self.assertIn("row 2: 'd.csv', line 3: it has more than 16777216 bytes", errors[0])
        self.assertEqual(list(self.pictures()), ["1.png"])

    def test_a_value_of_a_megabyte_arrives(self):
        self.write("b.xml", layout(canvas="<width>%w%</width><height>8</height><!--%text%-->"))
        self.batch("b.xml", csv(["w", "text"], [5, "x" * 1024 * 1024], [6, "y"]), "--jobs", 1)
        self.assertEqual(sorted(self.pictures()), ["1.png", "2.png"])


if __name__ == "__main__":
    unittest.main()
