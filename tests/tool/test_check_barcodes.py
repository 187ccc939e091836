"""check: barcodes that cannot be made, or that scanners may fail to read."""

import unittest

from support import layout, text_item
from support.checks import CheckTest, item

QR, CODE_128, EAN, DATA_MATRIX, AZTEC, PDF417, GS1_128, ITF_14 = 58, 20, 13, 71, 92, 55, 16, 89


def barcode(kind, text, more="<width>150</width><height>100</height>", x=60, y=60, item_id="it"):
    return item("barcode", f"<x>{x}</x><y>{y}</y><type>{kind}</type><text>{text}</text>{more}",
                item_id)


class Symbols(CheckTest):
    def test_a_refusal_is_told_in_the_words_of_zint(self):
        found = self.assert_found("barcode-refused", barcode(EAN, "12A4"), line=5)
        self.assertEqual(found["text"],
                         'refused by zint: Invalid character in data (digits and "+" only)')

    def test_a_warning_that_no_symbol_is_made_for_is_a_refusal(self):
        self.assert_found("barcode-refused", barcode(PDF417, "A", "<option1>99</option1>"),
                          says="refused by zint: ")

    def test_a_symbol_beyond_the_limits_is_told(self):
        box = "<width>9500</width><height>9500</height>"
        self.assert_found("barcode-refused", barcode(QR, "A" * 800, box),
                          says="stays at its smallest: the symbol is beyond the limits of the library")
        self.assert_found("barcode-refused", barcode(QR, "A", box),
                          says="stays at its smallest: refused by zint: Scale out of range")

    def test_data_beside_the_standard_are_told_in_the_words_of_zint(self):
        self.assert_found("barcode-warning",
                          barcode(GS1_128, "[01]12345678901234", "<inputmode>2</inputmode>"
                                  "<width>300</width><height>50</height>"), says="zint warns: ")

    def test_hidden_barcodes_are_tried_too(self):
        self.assert_found("barcode-refused", barcode(EAN, "12A4", "<hidden>1</hidden>"))

    def test_good_symbols_are_passed(self):
        for kind, text in ((QR, "https://example.org"), (CODE_128, "T-4711"), (EAN, "400638133393"),
                           (EAN, "9638507"), (DATA_MATRIX, "A"), (AZTEC, "A"), (PDF417, "A")):
            with self.subTest(kind=kind):
                more = "<width>230</width><height>230</height>"
                canvas = "<width>500</width><height>500</height>"
                self.assert_silent(barcode(kind, text, more), canvas=canvas)
                self.assert_silent(barcode(kind, text, more + "<hrt>1</hrt>"), canvas=canvas)


class Boxes(CheckTest):
    def test_a_symbol_that_is_wider_than_its_box_is_told(self):
        self.assert_found("barcode-larger", barcode(CODE_128, "T-4711-T-4711",
                                                    "<width>50</width><height>50</height>"),
                          says="larger than its width of 50")

    def test_a_symbol_that_follows_its_width_alone_may_be_too_high(self):
        self.assert_found("barcode-larger", barcode(AZTEC, "A", "<width>90</width>"
                                                    "<height>40</height>"),
                          says="larger than its height of 40")

    def test_text_may_stand_below_the_box(self):
        self.assert_silent(barcode(CODE_128, "T-4711", "<width>200</width><height>50</height>"
                                                       "<hrt>1</hrt>"))

    def test_modules_of_one_dot_are_told(self):
        self.assert_found("barcode-module", barcode(QR, "A", "<width>30</width>"))
        self.assert_found("barcode-module", barcode(CODE_128, "A", ""))
        self.assert_silent(barcode(QR, "A", "<width>42</width>"))


class Rotation(CheckTest):
    def test_a_symbol_turned_by_no_quarter_turns_is_told(self):
        self.assert_found("barcode-rotation", barcode(QR, "A", "<width>90</width>"
                                                      "\n<rotation>30</rotation>"),
                          says="turned by 30 degrees", line=7)

    def test_quarter_turns_are_fine(self):
        for angle in (-270, -90, 0, 90, 180, 270, 360):
            with self.subTest(angle=angle):
                self.assert_silent(barcode(CODE_128, "A", f"<width>92</width><height>60</height>"
                                           f"<rotation>{angle}</rotation>", x=200, y=150))


class Covered(CheckTest):
    def test_an_item_on_a_symbol_is_told_by_name(self):
        self.assert_found("barcode-covered", barcode(QR, "A") +
                          text_item("a", more="<x>80</x><y>80</y>"),
                          says='shares dots with text "greeting"')

    def test_text_below_the_bars_must_have_room(self):
        labelled = barcode(CODE_128, "T-4711", "<width>200</width><height>50</height><hrt>1</hrt>")
        self.assert_found("barcode-covered",
                          labelled + text_item("a", more="<x>140</x><y>105</y>"))
        self.assert_silent(labelled + text_item("a", more="<x>140</x><y>135</y>"))

    def test_a_symbol_inside_a_frame_is_not_covered(self):
        self.assert_silent(barcode(QR, "A", "<width>90</width>") +
                           item("rectangle", "<x>20</x><y>20</y><width>200</width>"
                                "<height>200</height><thickness>3</thickness>", "frame"))

    def test_a_turned_symbol_is_looked_at_where_it_lies(self):
        turned = barcode(QR, "A", "<width>90</width><rotation>90</rotation>", x=200, y=60)
        self.assert_found("barcode-covered", turned + text_item("a", more="<x>210</x><y>80</y>"))
        self.assert_silent(turned + text_item("a", more="<x>210</x><y>200</y>"))

    def test_margins_are_counted(self):
        canvas = ("<width>400</width><height>300</height><margin>{0},{0},{0},{0}</margin>")
        for margin in (50, -10):
            with self.subTest(margin=margin):
                self.assert_silent(barcode(QR, "A"), canvas=canvas.format(margin))


class QuietZones(CheckTest):
    def touched(self, kind, text, distance, side, more=""):
        """The codes where a stroke lies so many dots beside a symbol at (60, 60)."""
        size = self.size(kind, text, more)
        place = {"left": (60 - distance - 2, 60, 90), "right": (60 + size[0] + distance, 60, 90),
                 "top": (60, 60 - distance - 2, 0), "bottom": (60, 60 + size[1] + distance, 0)}[side]
        x, y, angle = place
        stroke = item("line", f"<x>{x}</x><y>{y}</y><length>40</length><thickness>2</thickness>"
                              f"<rotation>{angle}</rotation>", "stroke")
        return self.findings(layout(barcode(kind, text, more) + stroke,
                                    "<width>500</width><height>400</height>"))

    def size(self, kind, text, more):
        self.write("size.xml", layout(barcode(kind, text, more),
                                      "<width>500</width><height>400</height>"))
        found = self.json_lines(self.succeed("boxes", "--json", "size.xml"))[0]
        return int(found["items"][0]["box"]["width"]), int(found["items"][0]["box"]["height"])

    def assert_zone(self, kind, text, side, dots, more):
        """Ink is told in the last dot of the zone, and not behind it."""
        inside = self.touched(kind, text, dots - 1, side, more)
        self.assertEqual([finding["code"] for finding in inside], ["quiet-zone"], (side, dots))
        self.assertIn(f'at the {side} there is line "stroke"', inside[0]["text"])
        self.assertEqual(self.touched(kind, text, dots, side, more), [], (side, dots))

    def test_a_qr_code_needs_four_modules_on_all_sides(self):
        for side in ("left", "top", "right", "bottom"):
            self.assert_zone(QR, "A", side, 16, "<width>84</width>")

    def test_a_data_matrix_needs_one_module(self):
        self.assert_zone(DATA_MATRIX, "A", "bottom", 8, "<width>80</width>")

    def test_code_128_needs_ten_modules_beside_its_bars(self):
        for side in ("left", "right"):
            self.assert_zone(CODE_128, "A", side, 20, "<width>92</width><height>60</height>")

    def test_bars_need_none_above_and_below(self):
        for side in ("top", "bottom"):
            with self.subTest(side=side):
                self.assertEqual(self.touched(CODE_128, "A", 0, side,
                                              "<width>92</width><height>60</height>"), [])

    def test_symbols_that_are_drawn_with_their_zone_need_none_around(self):
        for kind, text, width in ((EAN, "400638133393", 226), (EAN, "9638507", 162)):
            for side in ("left", "right"):
                for hrt in (0, 1):
                    with self.subTest(text=text, side=side, hrt=hrt):
                        more = f"<width>{width}</width><height>60</height><hrt>{hrt}</hrt>"
                        self.assertEqual(self.touched(kind, text, 0, side, more), [])
                        found = self.touched(kind, text, -3, side, more)
                        self.assertEqual([finding["code"] for finding in found], ["barcode-covered"])

    def test_aztec_and_itf_14_need_nothing_around_what_is_drawn(self):
        for side in ("left", "right", "top", "bottom"):
            with self.subTest(side=side):
                self.assertEqual(self.touched(AZTEC, "A", 0, side, "<width>60</width>"), [])
                self.assertEqual(self.touched(ITF_14, "1234567890123", 0, side,
                                              "<width>330</width><height>90</height>"), [])

    def test_the_zone_of_a_turned_symbol_is_turned_too(self):
        symbol = barcode(CODE_128, "A", "<width>92</width><height>60</height>"
                                        "<rotation>90</rotation>", x=200, y=100)
        self.assert_found("quiet-zone", symbol + text_item("a", more="<x>210</x><y>70</y>"),
                          says="at the top there is text")
        self.assert_silent(symbol + item("line", "<x>110</x><y>110</y><length>90</length>"
                                         "<thickness>2</thickness>", "stroke"))

    def test_a_symbol_at_the_edge_of_the_picture_is_told(self):
        self.assert_found("quiet-zone-edge", barcode(QR, "A", "<width>84</width>", x=15),
                          says="4 modules (16 dots) must be white around it; at the left")
        self.assert_silent(barcode(QR, "A", "<width>84</width>", x=16))
        found = self.assert_found("quiet-zone-edge", barcode(QR, "A", "<width>84</width>", 320, 220),
                                  canvas="<width>404</width><height>304</height>")
        self.assertIn("at the right and bottom", found["text"])

    def test_margins_are_white_paper(self):
        self.assert_silent(barcode(QR, "A", "<width>84</width>", 0, 0),
                           canvas="<width>400</width><height>300</height><margin>16,16,0,0</margin>")

    def test_a_roll_goes_on_below_its_last_item(self):
        self.assert_silent(barcode(QR, "A", "<width>84</width>"), canvas="<width>400</width>")

    def test_white_parts_of_other_boxes_may_lie_in_the_zone(self):
        self.assert_silent(barcode(QR, "A", "<width>84</width>") +
                           text_item("a", more="<x>10</x><y>10</y><width>300</width>"
                                               "<height>200</height><flags>2</flags>"))


if __name__ == "__main__":
    unittest.main()
