"""check: elements, attributes, classes and ids that are not what they should be."""

import unittest

from support import layout, text_item
from support.checks import CheckTest, item

LINE = "<length>20</length><thickness>2</thickness>"


class Elements(CheckTest):
    def test_a_misspelt_element_is_told_with_its_line_and_the_nearest_word(self):
        for written, meant in (("fontnam", "fontname"), ("FontSize", "fontsize"), ("rwo", "row"),
                               ("heigth", "height")):
            with self.subTest(written=written):
                self.assert_found("unknown-element",
                                  text_item("a", more=f"\n<{written}>1</{written}>"), line=6,
                                  says=f"{written} is no element of text; did you mean {meant}?")

    def test_a_word_that_is_near_to_none_is_told_without_a_guess(self):
        found = self.assert_found("unknown-element", text_item("a", more="<colour>1</colour>"))
        self.assertEqual(found["text"], "colour is no element of text")

    def test_an_element_of_another_class_is_told_as_such(self):
        self.assert_found("unknown-element", text_item("a", more="<length>1</length>"),
                          says="length is no element of text, but of line")
        self.assert_found("unknown-element", item("line", LINE + "<hrt>1</hrt>"),
                          says="but of barcode")

    def test_unknown_elements_of_the_canvas_are_told(self):
        found = self.assert_found("unknown-element", "", says="dpii is no element of the canvas",
                                  canvas="<width>9</width><height>9</height>\n<dpii>203</dpii>",
                                  line=5)
        self.assertEqual((found["kind"], found["item"]), ("canvas", "ticket"))

    def test_unknown_elements_of_the_grid_are_told(self):
        grid = ("<width>9</width><height>9</height><RowDefinitions>{}</RowDefinitions>")
        for rows, says in (("<Row><height>1</height></Row>", "Row is no element of RowDefinitions"),
                           ("<RowDefinition><height>1</height><width>1</width></RowDefinition>",
                            "width is no element of RowDefinition"),
                           ("<RowDefinitoin><height>1</height></RowDefinitoin>",
                            "did you mean RowDefinition?")):
            with self.subTest(rows=rows):
                self.assert_found("unknown-element", "", canvas=grid.format(rows), says=says)

    def test_elements_inside_a_value_are_told(self):
        self.assert_found("unknown-element", text_item("a<b>c</b>"),
                          says="b is no element of text; its text alone counts")

    def test_what_lies_beside_the_canvas_is_told(self):
        document = layout().replace("</VelnorRoot>", "<VelnorItems class='canvas'/><note/></VelnorRoot>")
        found = self.findings(document)
        self.assertEqual([finding["code"] for finding in found], ["unknown-element"] * 2)
        self.assertIn("only the first VelnorItems is read", found[0]["text"])
        self.assertIn("note is not read outside the canvas", found[1]["text"])

    def test_an_element_that_stands_twice_is_told(self):
        self.assert_found("repeated-element", text_item("a", more="\n<fontsize>14</fontsize>"),
                          says="fontsize stands twice", line=6)
        self.assert_found("repeated-element", "",
                          canvas="<width>8</width><height>9</height><width>9</width>")

    def test_every_word_of_the_vocabulary_is_known(self):
        place = ("<row>0</row><column>0</column><rowspan>1</rowspan><columnspan>1</columnspan>"
                 "<x>1</x><y>1</y><xr>1</xr><yb>1</yb><margin>9,9,9,9</margin><anchor>5</anchor>"
                 "<vanchor>top</vanchor><hanchor>LEFT</hanchor><hidden>0</hidden>")
        canvas = ("<width>400</width><height>300</height><dpi>203</dpi><x>1</x><y>1</y><xr>1</xr>"
                  "<yb>1</yb><margin>9,9,9,9</margin><antialiasText>2</antialiasText>"
                  "<antialiasShape>0</antialiasShape><presentation>1</presentation>"
                  "<ejectRetract>eject</ejectRetract><ejectRetractTimeout>9</ejectRetractTimeout>"
                  "<RowDefinitions><RowDefinition><height>1*</height></RowDefinition></RowDefinitions>"
                  "<ColumnDefinitions><ColumnDefinition><width>Auto</width></ColumnDefinition>"
                  "</ColumnDefinitions>")
        text = text_item("a", more=place + "<width>90</width><height>50</height><rotation>0</rotation>"
                         "<flags>1</flags><bold>1</bold><italic>0</italic><antialias>0</antialias>")
        self.assert_silent(text + item("line", LINE + place + "<style>0</style>"), canvas=canvas)


class Classes(CheckTest):
    def test_a_misspelt_class_is_told_with_the_nearest_one(self):
        found = self.assert_found("unknown-class", item("txet"), line=5,
                                  says='there is no class "txet": the item is not drawn; '
                                       "did you mean text?")
        self.assertEqual(found["kind"], "txet")

    def test_an_item_without_a_class_is_told(self):
        self.assert_found("unknown-class", "<VelnorItem id='a'/>", says="an item without a class")

    def test_a_canvas_is_no_class_of_an_item(self):
        self.assert_found("unknown-class", item("canvas"))

    def test_an_item_inside_an_item_is_an_item(self):
        inner = item("line", LINE, "inner")
        self.assert_silent(item("line", LINE + inner))
        self.assert_found("unknown-element", item("line", LINE + item("line", LINE + "<xx>1</xx>",
                                                                      "inner")))


class Attributes(CheckTest):
    def test_an_unknown_attribute_is_told_with_the_nearest_one(self):
        self.assert_found("unknown-attribute", text_item("a").replace("id=", "ident="),
                          says="the attribute ident of VelnorItem is not read")
        self.assert_found("unknown-attribute", text_item("a", more='<x linnk="a">1</x>'),
                          says="did you mean link?")

    def test_attributes_that_are_read_and_those_of_xml_are_fine(self):
        document = layout(text_item("a", more='<x link="left">1</x>')).replace(
            "<VelnorRoot>", '<VelnorRoot xmlns="urn:a" xmlns:xsi="urn:b" xml:lang="en" '
                            'xsi:noNamespaceSchemaLocation="layout.xsd">')
        self.assertEqual(self.findings(document), [])


class Ids(CheckTest):
    def test_an_id_that_stands_twice_is_told_with_the_first_line(self):
        self.assert_found("repeated-id", item("line", LINE) + "\n" + item("line", LINE + "<y>9</y>"),
                          line=8, says="line 5")

    def test_the_id_of_the_canvas_counts_too(self):
        self.assert_found("repeated-id", item("line", LINE, "ticket"), says="line 3")

    def test_items_without_ids_and_with_different_ones_are_fine(self):
        self.assert_silent("".join(item("line", LINE, name) for name in ("", "", "a", "A")))

    def test_printer_settings_need_an_id_of_the_canvas(self):
        canvas = "<width>9</width><height>9</height><presentation>1</presentation>"
        document = layout(canvas=canvas)
        self.assertEqual(self.codes(document.replace(' id="ticket"', "")), ["missing-id"])
        self.assertEqual(self.codes(document), [])
        self.assertEqual(self.codes(layout().replace(' id="ticket"', "")), [])


if __name__ == "__main__":
    unittest.main()
