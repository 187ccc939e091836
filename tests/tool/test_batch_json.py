"""batch: JSON lines."""

import unittest

from support import USAGE, layout, png_header, text_item
from support.batch import BatchTest


class Json(BatchTest):
    def assert_names(self, data, names):
        output = self.batch("text.xml", data, "--dry-run", output="out/{name}.png", name="d.jsonl")
        self.assertEqual(output.decode(), "".join(f"out/{name}.png\n" for name in names))

    def assert_fault(self, line, says):
        errors = self.fail_rows("a.xml", '{"w":3}\n' + line + '\n{"w":4}\n', name="d.jsonl")
        self.assertEqual(len(errors), 1, errors)
        self.assertTrue(errors[0].startswith("velnorxmltoimg: row 2: 'd.jsonl', line 2: "), errors)
        self.assertIn(says, errors[0])
        self.assertEqual(sorted(self.pictures()), ["1.png", "3.png"])

    def test_each_object_gives_a_picture(self):
        self.batch("a.xml", '{"w":11}\n{"w":"12"}', name="d.jsonl")
        widths = {name: png_header(data)[0] for name, data in self.pictures().items()}
        self.assertEqual(widths, {"1.png": 11, "2.png": 12})

    def test_numbers_are_taken_as_they_are_written(self):
        numbers = ["0", "-0", "7", "-12", "1.50", "1e5", "1E-2", "-0.0", "12345678901234567890",
                   "123456789012345678901234567890", "0.1000000000000000055511151231257827"]
        self.assert_names("".join(f'{{"name":{number}}}\n' for number in numbers), numbers)

    def test_true_and_false_are_words_and_null_is_empty(self):
        self.assert_names('{"name":true}\n{"name":false}\n', ["true", "false"])
        output = self.batch("text.xml", '{"name":null}\n', "--dry-run", output="out/x{name}.png",
                            name="d.jsonl")
        self.assertEqual(output, b"out/x.png\n")

    def test_escapes_and_characters_beyond_ascii_arrive(self):
        self.assert_names('{"name":"Gr\\u00fc\\u00dfe 中文 \\ud83d\\ude00"}\n', ["Grüße 中文 😀"])

    def test_blank_lines_carriage_returns_and_a_byte_order_mark_are_passed_over(self):
        self.assert_names('\ufeff{"name":"a"}\r\n \t\n\n{"name":"b"}\r\n', ["a", "b"])

    def test_nested_values_are_told(self):
        self.assert_fault('{"w":{"a":1}}', "the value of 'w' is no single value")
        self.assert_fault('{"w":[1]}', "the value of 'w' is no single value")

    def test_a_key_given_twice_is_told(self):
        self.assert_fault('{"w":1,"w":2}', "it has the key 'w' twice")

    def test_what_is_no_object_is_told(self):
        for line in ("[1]", '"w"', "3", "true", "null"):
            with self.subTest(line=line):
                self.assert_fault(line, "no JSON object")

    def test_what_is_no_json_is_told(self):
        for line in ('{"w":1', '{"w":1}}', '{"w":1,}', "{w:1}", '{"w":01}', "x", '{"w":"\\ud800"}'):
            with self.subTest(line=line):
                self.assert_fault(line, "no JSON at byte ")

    def test_an_escaped_zero_byte_is_told(self):
        self.assert_fault('{"w":"a\\u0000b"}', "not UTF-8 text")

    def test_bytes_that_are_not_utf_8_are_told(self):
        errors = self.fail_rows("a.xml", b'{"w":1}\n{"w":"\xff"}\n', name="d.jsonl")
        self.assertIn("row 2: 'd.jsonl', line 2: it is not UTF-8 text", errors[0])

    def test_a_line_without_end_is_told_and_the_next_one_drawn(self):
        data = '{"w":1}\n{"w":"' + "x" * (17 * 1024 * 1024) + '"}\n{"w":3}\n'
        errors = self.fail_rows("a.xml", data, name="d.jsonl")
        self.assertIn("row 2: 'd.jsonl', line 2: it has more than", errors[0])
        self.assertEqual(sorted(self.pictures()), ["1.png", "3.png"])

    def test_a_row_may_lack_a_key(self):
        self.write("b.xml", layout(text_item("Hello", more="<x>0</x>")))
        self.batch("b.xml", '{"greeting.text":"You"}\n{}\n', name="d.jsonl")
        self.succeed("render", "b.xml", "-o", "plain.png")
        self.assertEqual(self.pictures()["2.png"], (self.folder / "plain.png").read_bytes())

    def test_a_row_that_lacks_what_its_name_needs_is_told(self):
        errors = self.fail_rows("a.xml", '{"n":"x","w":1}\n{"w":1}\n', output="out/{n}.png",
                                name="d.jsonl")
        self.assertIn("row 2: 'd.jsonl', line 2: it has no value 'n'", errors[0])

    def test_an_object_that_comes_later_is_looked_for_then(self):
        errors = self.fail_rows("a.xml", '{"w":1}\n{"w":1,"nobody.text":"x"}\n', name="d.jsonl")
        self.assertIn("row 2: 'd.jsonl', line 2: column 'nobody.text': the document has no such",
                      errors[0])

    def test_bad_lines_before_the_first_good_one_are_told_too(self):
        errors = self.fail_rows("a.xml", '[\n{"w":5}\n', name="d.jsonl")
        self.assertEqual(len(errors), 1)
        self.assertEqual(list(self.pictures()), ["2.png"])

    def test_no_rows_are_no_failure(self):
        self.batch("a.xml", "", "--tag", "w=3", output="out/{name}.png", name="d.jsonl")

    def test_bad_lines_alone_are_told(self):
        errors = self.fail_rows("a.xml", "[\n]\n", "--tag", "w=3", name="d.jsonl")
        self.assertEqual(len(errors), 2)

    def test_a_name_that_the_first_row_lacks_is_refused(self):
        self.refuse(USAGE, "a.xml", '{"w":1}\n', output="out/{n}.png", name="d.jsonl",
                    says="no column 'n'")


if __name__ == "__main__":
    unittest.main()
