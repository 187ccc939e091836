"""batch: the names of the pictures."""

import unittest

from support import NOT_WRITTEN, USAGE
from support.batch import BatchTest, csv


class Names(BatchTest):
    def named(self, template, header, *rows):
        output = self.batch("text.xml", csv(header, *rows), "--dry-run", output=template)
        return output.decode().splitlines()

    def fault(self, template, header, *row):
        """What is said of the one row."""
        errors = self.fail_rows("text.xml", csv(header, row), output=template)
        self.assertEqual(len(errors), 1, errors)
        self.assertTrue(errors[0].startswith("velnorxmltoimg: row 1: 'd.csv', line 2: "), errors)
        self.assertFalse((self.folder.parent / "escaped").exists())
        return errors[0]

    def test_columns_and_numbers_fill_the_name(self):
        self.assertEqual(self.named("out/{a}-{number}-{b}.png", ["a", "b"], ["x", "y"], ["z", ""]),
                         ["out/x-1-y.png", "out/z-2-.png"])

    def test_numbers_are_padded_with_zeros(self):
        self.assertEqual(self.named("{number:03}.png", ["w"], *[[1]] * 2), ["001.png", "002.png"])
        self.assertEqual(self.named("{number:02}.png", ["w"], *[[1]] * 100)[98:],
                         ["99.png", "100.png"])

    def test_a_column_called_number_takes_its_place(self):
        self.assertEqual(self.named("{number}.png", ["number"], ["a"]), ["a.png"])
        self.assertEqual(self.named("{number:04}.png", ["number"], ["7"]), ["0007.png"])

    def test_doubled_braces_are_braces(self):
        self.assertEqual(self.named("{{{a}}}.png", ["a"], ["x"]), ["{x}.png"])

    def test_templates_that_are_none_are_refused(self):
        for template in ("out/{.png", "out/}.png", "out/{}.png", "out/{a", "{number:6}.png",
                         "{number:0x}.png", "{number:0}.png", "{number:0999}.png", "-", ""):
            with self.subTest(template=template):
                self.refuse(USAGE, "a.xml", csv(["w"], [1]), output=template, says="--output")

    def test_an_unknown_column_is_refused_before_any_work(self):
        self.refuse(USAGE, "a.xml", csv(["w"], [1]), output="out/{nobody}.png",
                    says="no column 'nobody'")
        self.assertFalse((self.folder / "out").exists() and self.hidden())

    def test_a_suffix_that_names_no_format_is_refused(self):
        for template in ("out/{number}.doc", "out/{number}", "out/{number}."):
            with self.subTest(template=template):
                data = csv(["w"], [1])
                if template.endswith("}"):
                    self.assertIn("suffix", self.fail_rows("a.xml", data, output=template)[0])
                else:
                    self.refuse(USAGE, "a.xml", data, output=template, says="suffix")

    def test_a_control_character_in_a_value_is_refused(self):
        for value in ('"x\ny"', "\x1b]0;x\x07", "\x7f", "\x9b2J"):
            with self.subTest(value=value):
                error = self.fault("out/{a}.png", ["a"], value)
                self.assertIn("'a' has a control character", error)

    def test_a_value_may_be_the_suffix(self):
        self.batch("a.xml", csv(["w", "kind"], [5, "png"], [5, "bmp"]), output="out/{number}.{kind}")
        self.assertEqual(self.pictures()["2.bmp"][:2], b"BM")

    def test_a_slash_in_a_value_is_told(self):
        self.assertIn("'a' has a slash", self.fault("out/{a}.png", ["a"], "x/y"))
        self.assertIn("'a' has a slash", self.fault("out/{a}.png", ["a"], "/etc/x"))
        self.assertIn("'a' has a slash", self.fault("out/{a}/x.png", ["a"], "../../escaped"))

    def test_names_that_leave_the_output_folder_are_told(self):
        self.assertIn("leaves the output folder", self.fault("out/{a}/x.png", ["a"], ".."))
        self.assertIn("leaves the output folder", self.fault("out/{a}/../x.png", ["a"], "x"))
        self.assertIn("leaves the output folder", self.fault("out/.{a}", ["a"], "."))

    def test_the_folder_before_the_first_value_may_lie_anywhere(self):
        self.assertEqual(self.named("../{a}.png", ["a"], ["x"]), ["../x.png"])

    def test_empty_names_are_told(self):
        self.assertIn("nothing before its suffix", self.fault("out/{a}.png", ["a", "b"], "", "x"))
        self.assertIn("an empty part", self.fault("out/{a}/x.png", ["a", "b"], "", "x"))
        self.assertIn("an empty part", self.fault("out/{a}/x.png", ["a"], "."))

    def test_a_leading_dash_and_odd_characters_are_fine(self):
        names = ["-a", "a b", "..x", "a'b", "*", "$HOME", "ü"]
        self.batch("a.xml", csv(["w", "name"], *[[3, name] for name in names]),
                   output="out/x{name}.png")
        self.batch("a.xml", csv(["w", "name"], [3, "-a"]), output="{name}.png")
        self.assertEqual(sorted(self.pictures()), sorted(f"x{name}.png" for name in names))
        self.assertTrue((self.folder / "-a.png").exists())

    def test_a_name_that_is_too_long_for_the_disk_is_told(self):
        self.assertIn("too long", self.fault("out/{a}.png", ["a", "w"], "x" * 300, "3"))

    def test_folders_arise_where_the_template_has_them(self):
        self.batch("a.xml", csv(["w", "day"], [3, "mon"], [4, "tue"], [5, "tue"]),
                   output="out/{day}/{number}.png")
        self.assertEqual(sorted(self.pictures()), ["mon/1.png", "tue/2.png", "tue/3.png"])

    def test_the_output_folder_is_made(self):
        self.batch("a.xml", csv(["w"], [3]), output="out/deep/{number}.png")
        self.assertEqual(list(self.pictures()), ["deep/1.png"])

    def test_a_folder_that_cannot_be_made_ends_the_batch(self):
        self.refuse(NOT_WRITTEN, "a.xml", csv(["w"], [3]), output="a.xml/out/{number}.png",
                    says="cannot make the folder")

    def test_a_folder_in_the_place_of_a_picture_is_told_and_stays(self):
        (self.folder / "out" / "1.png").mkdir(parents=True)
        errors = self.fail_rows("a.xml", csv(["w"], [3], [4]))
        self.assertIn("row 1: 'd.csv', line 2: cannot write 'out/1.png': Is a directory", errors[0])
        self.assertEqual(list(self.pictures()), ["2.png"])

    def test_a_link_in_the_place_of_a_picture_is_replaced_and_not_followed(self):
        self.write("old.png", "old")
        (self.folder / "out").mkdir()
        (self.folder / "out" / "1.png").symlink_to("../old.png")
        self.batch("a.xml", csv(["w"], [3]))
        self.assertEqual((self.folder / "old.png").read_bytes(), b"old")
        self.assert_whole(self.pictures())

    def test_two_rows_of_one_name_are_told_and_the_first_one_is_drawn(self):
        rows = [[3, "a"], [4, "b"], [5, "a"], [6, "a"]]
        for jobs in (1, 2):
            errors = self.fail_rows("a.xml", csv(["w", "n"], *rows), "--jobs", jobs,
                                    output="out/{n}.png")
            self.assertEqual([line.split(": ", 1)[1] for line in errors],
                             [f"row {row}: 'd.csv', line {row + 1}: 'out/a.png' is the output of "
                              "row 1 already" for row in (3, 4)])
            self.assertEqual(self.pictures()["a.png"][16:20], (3).to_bytes(4, "big"))

    def test_many_names_are_told_apart(self):
        rows = [[f"guest {number}"] for number in range(20000)]
        errors = self.fail_rows("text.xml", csv(["n"], *rows, *rows[::5000]), "--dry-run",
                                output="out/{n}.png")
        self.assertEqual([int(line.split()[-2]) for line in errors], [1, 5001, 10001, 15001])


if __name__ == "__main__":
    unittest.main()
