"""batch: as many rows as an evening of guests."""

import json
import unittest

from support import ToolTest, layout

ROWS = 10000
STRIP = ('<VelnorItem class="line" id="strip"><length>8</length><thickness>2</thickness>'
         "</VelnorItem>")


class Many(ToolTest):
    def test_ten_thousand_rows_give_ten_thousand_pictures(self):
        self.write("a.xml", layout(STRIP, "<width>16</width><height>4</height>"))
        self.write("rows.csv", "strip.x\n" + "".join(f"{row % 8}\n" for row in range(ROWS)))
        summary = json.loads(self.succeed("batch", "a.xml", "--data", "rows.csv", "-o",
                                          "out/{number:05}.png", "--summary", "-", timeout=110))
        self.assertEqual(summary["done"], ROWS)
        names = sorted(path.name for path in (self.folder / "out").iterdir())
        self.assertEqual((len(names), names[0], names[-1]), (ROWS, "00001.png", "10000.png"))
        pictures = {path.read_bytes() for path in (self.folder / "out").iterdir()}
        self.assertEqual(len(pictures), 8)


if __name__ == "__main__":
    unittest.main()
