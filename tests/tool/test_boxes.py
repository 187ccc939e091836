"""boxes: where the items landed."""

import json
import unittest

from support import LAYOUTS, UNREADABLE, ToolTest, layout, text_item

LINE = ('<VelnorItem class="line" id="{id}"><length>{length}</length><thickness>2</thickness>'
        "{more}</VelnorItem>")


def line(item_id="rule", length=50, more=""):
    return LINE.format(id=item_id, length=length, more=more)


class Boxes(ToolTest):
    def boxes(self, document, *arguments):
        self.write("a.xml", document)
        return json.loads(self.succeed("boxes", "a.xml", "--json", *arguments))

    def item(self, document, *arguments):
        return self.boxes(document, *arguments)["items"][0]

    def test_an_item_lands_where_its_cell_and_its_anchor_put_it(self):
        canvas = ("<width>200</width><height>100</height><RowDefinitions><RowDefinition><height>30"
                  "</height></RowDefinition><RowDefinition><height>1*</height></RowDefinition>"
                  "</RowDefinitions>")
        item = self.item(layout(line(more="<row>1</row><hanchor>right</hanchor><xr>5</xr><y>3</y>"),
                                canvas))
        self.assertEqual(item["box"], {"x": 145.0, "y": 33.0, "width": 50.0, "height": 2.0})
        self.assertEqual((item["id"], item["class"], item["row"], item["column"], item["drawn"]),
                         ("rule", "line", 1, 0, True))

    def test_boxes_are_in_dots_of_the_canvas_without_its_margins(self):
        boxes = self.boxes(layout(line(), "<width>60</width><height>20</height>"
                                  "<margin>1,2,3,4</margin>"))
        self.assertEqual(boxes["items"][0]["box"]["x"], 0)
        self.assertEqual(boxes["canvas"], {
            "width": 60, "height": 20, "grows": False, "dpi": 96,
            "margins": {"left": 1, "top": 2, "right": 3, "bottom": 4},
            "picture": {"width": 64, "height": 26}})

    def test_a_canvas_that_grows_tells_the_height_that_it_has_become(self):
        canvas = self.boxes(layout(line(more="<y>10</y>"),
                                   "<width>60</width><dpi>203</dpi>"))["canvas"]
        self.assertTrue(canvas["grows"])
        self.assertEqual(canvas["height"], 12 + 16)

    def test_a_turned_item_has_the_upright_box_around_it(self):
        box = self.item(layout(line(more="<rotation>90</rotation><x>9</x>")))["box"]
        self.assertEqual((box["width"], box["height"]), (2.0, 50.0))

    def test_a_text_tells_its_size_on_paper(self):
        item = self.item(layout(text_item("a"), "<width>400</width><height>200</height>"
                                "<dpi>192</dpi>"))
        self.assertEqual((item["fontsize"], item["drawnFontsize"]), (12, 12.0))

    def test_a_text_that_shrank_tells_the_size_that_it_has_become(self):
        item = self.item(layout(text_item("a long text", more="<width>40</width><height>20</height>"
                                          "<flags>0</flags>")))
        self.assertEqual(item["fontsize"], 12)
        self.assertLess(item["drawnFontsize"], 12)
        self.assertGreater(item["drawnFontsize"], 2)

    def test_what_is_not_drawn_has_no_box(self):
        items = self.boxes(layout(
            line("hidden", more="<hidden>1</hidden>") +
            '<VelnorItem class="image" id="missing"><filepath>none.png</filepath></VelnorItem>'
            '<VelnorItem class="barcode" id="refused"><type>13</type><text>letters</text>'
            "</VelnorItem>"))["items"]
        self.assertEqual([item["id"] for item in items], ["hidden", "missing", "refused"])
        for item in items:
            self.assertFalse(item["drawn"])
            self.assertNotIn("box", item)

    def test_values_are_applied(self):
        item = self.item(layout(line()), "--set", "rule.x=7")
        self.assertEqual(item["box"]["x"], 7)

    def test_a_person_gets_a_table(self):
        self.write("a.xml", layout(line() + text_item("a")))
        lines = self.succeed("boxes", "a.xml").decode().splitlines()
        self.assertEqual(lines[0].split(), ["item", "class", "x", "y", "width", "height", "text"])
        self.assertEqual(lines[1].split(), ["rule", "line", "0", "0", "50", "2"])
        self.assertEqual(lines[2].split()[-2:], ["12", "pt"])

    def test_a_faulty_document_is_told(self):
        self.write("a.xml", "<VelnorRoot/>")
        self.assert_refused(UNREADABLE, "boxes", "a.xml", "--json", says="no layout")

    def test_every_item_of_the_examples_lands(self):
        for path in sorted(LAYOUTS.glob("*.xml")):
            with self.subTest(layout=path.name):
                boxes = json.loads(self.succeed("boxes", path, "--json"))
                self.assertGreater(len(boxes["items"]), 3)


if __name__ == "__main__":
    unittest.main()
