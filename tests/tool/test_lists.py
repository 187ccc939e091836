"""fonts, params and settings: what there is."""

import os
import shutil
import unittest

from support import FONTS, UNREADABLE, USAGE, ToolTest, layout


class Fonts(ToolTest):
    def test_families_come_with_their_styles(self):
        lines = self.succeed("fonts", "--fonts", "fonts").decode().splitlines()
        self.assertIn("Liberation Sans\tBold, Italic, Regular",
                      [self.sorted_styles(line) for line in lines])

    def sorted_styles(self, line):
        family, styles = line.split("\t")
        return family + "\t" + ", ".join(sorted(styles.split(", ")))

    def test_fonts_beside_a_document_are_counted_in(self):
        self.write("a.xml", layout())
        self.assertIn(b"Liberation Sans\t", self.succeed("fonts", "a.xml"))
        self.assertNotIn(b"Liberation Sans\t", self.succeed("fonts"))

    def test_for_tells_who_has_all_characters_of_a_text_and_who_lacks_which(self):
        shutil.copy(FONTS / "DejaVuSans.ttf", self.folder / "fonts")
        lines = self.succeed("fonts", "--fonts", "fonts", "--for", "a €\u2680\n").decode().splitlines()
        self.assertIn("DejaVu Sans\tall", lines)
        self.assertIn("Liberation Sans\tlacks \u2680 U+2680", lines)

    def test_json_gives_one_object_a_family(self):
        fonts = self.json_lines(self.succeed("fonts", "--fonts", "fonts", "--for", "a\u4e2d",
                                             "--json"))
        liberation = next(font for font in fonts if font["family"] == "Liberation Sans")
        self.assertEqual(sorted(liberation["styles"]), ["Bold", "Italic", "Regular"])
        self.assertEqual(liberation["missing"], ["\u4e2d"])

    def test_a_missing_document_or_folder_is_told(self):
        self.assert_refused(UNREADABLE, "fonts", "a.xml", says="'a.xml'")
        self.assert_refused(USAGE, "fonts", "--fonts", "none", says="'none' is no folder")


class Params(ToolTest):
    PARAMS = ('<VelnorParams><VelnorParam id="seat"><number>12 B</number></VelnorParam>'
              '<VelnorParam id="guest"><text>Alex &amp; Kim\n\\ both</text><empty/></VelnorParam>'
              "</VelnorParams>")

    def test_one_value_a_line(self):
        self.write("p.xml", self.PARAMS)
        self.assertEqual(self.succeed("params", "p.xml").decode(),
                         "seat.number\t12 B\nguest.text\tAlex & Kim\\n\\\\ both\nguest.empty\t\n")

    def test_json_gives_one_object_a_value(self):
        self.write("p.xml", self.PARAMS)
        self.assertEqual(self.json_lines(self.succeed("params", "p.xml", "--json"))[1],
                         {"name": "guest.text", "value": "Alex & Kim\n\\ both"})

    def test_a_long_list_is_not_cut(self):
        value = "v" * 100000
        self.write("p.xml", f'<VelnorParams><VelnorParam id="a"><b>{value}</b><c>{value}</c>'
                            "</VelnorParam></VelnorParams>")
        self.assertEqual(self.succeed("params", "p.xml").decode(),
                         f"a.b\t{value}\na.c\t{value}\n")

    def test_what_is_no_parameter_file_is_told(self):
        self.write("a.xml", layout())
        self.assert_refused(UNREADABLE, "params", "a.xml", says="'a.xml' is no parameter file")
        self.assert_refused(UNREADABLE, "params", "p.xml", says="No such file")
        self.assert_refused(USAGE, "params", says="FILE")

    def test_a_pipe_is_no_parameter_file_and_is_not_waited_for(self):
        os.mkfifo(self.folder / "pipe")
        self.assert_refused(UNREADABLE, "params", "pipe", says="no regular file")


class Settings(ToolTest):
    def test_what_the_document_says_is_shown(self):
        self.write("a.xml", layout(canvas="<width>9</width><presentation>2</presentation>"
                                   "<ejectRetract> Retract </ejectRetract>"
                                   "<ejectRetractTimeout>20</ejectRetractTimeout>"))
        self.assertEqual(self.succeed("settings", "a.xml").decode(),
                         "presentation\t2\nejectRetract\tretract\nejectRetractTimeout\t20\n")

    def test_what_it_does_not_say_is_a_dash(self):
        self.write("a.xml", layout(canvas="<width>9</width><ejectRetract>keep</ejectRetract>"))
        self.assertEqual(self.succeed("settings", "a.xml").decode(),
                         "presentation\t-\nejectRetract\t-\nejectRetractTimeout\t-\n")

    def test_values_are_applied(self):
        self.write("a.xml", layout(canvas="<width>9</width><presentation>1</presentation>"))
        self.assertIn(b"presentation\t5\n",
                      self.succeed("settings", "a.xml", "--set", "ticket.presentation=5"))

    def test_a_faulty_document_is_told(self):
        self.write("a.xml", "<VelnorRoot>")
        self.assert_refused(UNREADABLE, "settings", "a.xml", says="line ")


if __name__ == "__main__":
    unittest.main()
