"""The first layout of the README, made by following it."""

import re
import unittest

from support import SOURCE, ToolTest
from support.guides import Follower, blocks

README = (SOURCE / "README.md").read_text(encoding="utf-8")
STEPS = README[README.index("## The first layout"):README.index("## Gallery")]
FONTS = "/usr/share/fonts/truetype/liberation"


class FirstLayout(Follower, ToolTest):
    def test_its_commands_give_what_is_shown(self):
        self.install_tool()
        first, *others = blocks(STEPS, "console")
        steps = " && ".join(re.findall(r"^\$ (.*)$", first, re.MULTILINE))
        self.assertEqual(self.shell(steps.replace(FONTS, f"{SOURCE}/docs/pictures/fonts")), ("", 0))
        document, = blocks(STEPS, "xml coat_check.xml")
        self.write("coats/ticket.xml", document)
        self.write("coats/guests.csv", blocks(STEPS, "csv")[0])
        self.assertGreater(len(others), 3)
        for block in others:
            self.run_shown(block, "coats")
        self.assertEqual((self.folder / "coats/ticket.png").read_bytes(),
                         (SOURCE / "docs/pictures/coat_check.png").read_bytes())

    def test_its_cure_leaves_nothing_to_find(self):
        document, = blocks(STEPS, "xml coat_check.xml")
        cure = "".join(re.findall(r"`(<\w+>\d+</\w+>)`", STEPS))
        self.assertIn("<flags>", cure)
        self.write("ticket.xml", document.replace("<text>nobody</text>", f"<text>nobody</text>{cure}"))
        values = ["--tag", "number=19", "--set", "guest.text=Ada, Countess of Lovelace"]
        self.assertEqual(self.succeed("check", "ticket.xml", *values), b"")


if __name__ == "__main__":
    unittest.main()
