"""check: letters that cannot be read, or that the font does not have."""

import unittest

from support import text_item
from support.checks import CheckTest, item

CANVAS = "<width>400</width><height>300</height><dpi>203</dpi>"


class Sizes(CheckTest):
    def test_a_text_that_shrank_below_6_points_is_told_with_both_sizes(self):
        self.assert_found("text-tiny", text_item("a text that is too long", more="<width>90</width>"),
                          canvas=CANVAS, says="the text shrank from 12 to 3")

    def test_a_text_that_vanished_is_told(self):
        self.assert_found("text-tiny", text_item("a text", more="<width>0</width>"), canvas=CANVAS,
                          says="points to fit its box")

    def test_a_text_that_shrank_and_can_be_read_is_fine(self):
        self.assert_silent(text_item("a text that shrinks", more="<width>230</width>"), canvas=CANVAS)

    def test_a_text_that_is_meant_to_be_small_is_fine(self):
        small = text_item("a").replace("<fontsize>12", "<fontsize>4")
        self.assert_silent(small, canvas=CANVAS)
        self.assert_silent(small.replace("</text>", "</text><width>200</width>"), canvas=CANVAS)

    def test_hidden_texts_may_be_tiny(self):
        self.assert_silent(text_item("a long text", more="<width>9</width><hidden>1</hidden>"),
                           canvas=CANVAS)

    def test_a_text_without_a_size_is_told(self):
        bare = "<text>a</text><fontname>Liberation Sans</fontname>"
        self.assert_found("fontsize-missing", item("text", bare))
        self.assert_found("fontsize-missing", item("text", bare + "<fontsize>0</fontsize>"))
        self.assert_silent(item("text", bare.replace("a<", "<")))

    def test_a_text_beyond_the_limit_is_told(self):
        self.assert_found("text-too-long", text_item("a " * (1024 * 1024) + "a"),
                          says="longer than 2097152")

    def test_a_text_that_cannot_be_shrunk_into_its_box_is_told(self):
        box = "<width>50</width><height>50</height><flags>4096</flags>"
        self.assert_found("text-too-long", text_item("a " * 500000, more=box),
                          says="too long for its box")

    def test_a_long_text_that_fits_is_fine(self):
        box = "<width>400</width><height>300</height><flags>4096</flags>"
        self.assert_silent(text_item("a " * 9000, more=box).replace("<fontsize>12", "<fontsize>1"),
                           canvas=CANVAS)

    def test_a_height_without_a_width_is_told(self):
        self.assert_found("no-effect", text_item("a", more="<height>50</height>"),
                          says="height has no effect without a width")
        self.assert_silent(text_item("a", more="<height>50</height><width>90</width>"))


class Glyphs(CheckTest):
    def test_characters_that_the_font_lacks_are_told_each_once(self):
        found = self.assert_found("glyph-missing", text_item("a中b中文"))
        self.assertEqual(found["text"], '"Liberation Sans" does not have 中 U+4E2D, 文 U+6587')

    def test_each_text_is_told_of_its_own_characters(self):
        found = self.findings(
            '<VelnorRoot><VelnorItems class="canvas"><width>400</width><height>200</height>' +
            text_item("中", "a") + text_item("abc", "b", "<y>40</y>") +
            text_item("文中", "c", "<y>80</y>") + "</VelnorItems></VelnorRoot>")
        self.assertEqual([finding["item"] for finding in found], ["a", "c"])
        self.assertNotIn("文", found[0]["text"])
        self.assertTrue(found[1]["text"].endswith("文 U+6587, 中 U+4E2D"))

    def test_characters_of_the_font_and_white_space_are_fine(self):
        self.assert_silent(text_item("Aé€ß –\n\tÄ&#160;&#8203;"))

    def test_a_font_that_is_not_there_is_told_as_that_alone(self):
        found = self.findings('<VelnorRoot><VelnorItems class="canvas"><width>400</width>'
                              "<height>90</height>" +
                              text_item("中").replace("Liberation Sans", "No Such Font") +
                              "</VelnorItems></VelnorRoot>")
        self.assertEqual([finding["code"] for finding in found], ["font-substituted"])


if __name__ == "__main__":
    unittest.main()
