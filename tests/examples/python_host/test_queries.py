"""What a layout tells: findings, printer settings, fonts."""

from __future__ import annotations

import gc
import os

from support import BOX, LIBRARY_FILE, SOURCES, HostTest, Recorder, document_of, item, main
from velnorxmltoimg import FontStyles, Layout, Library, PrinterSettings, VelnorError

FONT_FILE = os.path.join(SOURCES, "tests", "fonts", "LiberationSans-Regular.ttf")


class CheckTest(HostTest):
    def test_a_sound_document_has_no_findings(self) -> None:
        self.assertEqual(self.open_layout(item("rectangle", "box", BOX)).check(), [])

    def test_findings_are_listed_one_by_one_in_document_order(self) -> None:
        layout = self.open_layout(
            item("image", "logo", "<filepath>none; there.png</filepath>")
            + item("text", "label", "<text>x</text>")
            + item("barcode", "empty")
            + item("barcode", "code", "<text>0A,,FF</text><type>143</type><inputmode>0</inputmode>")
            + item("rectangle", "box", "<thickness>0</thickness><style>2</style>")
            + item("ellipse", "oval", "<thickness>-3</thickness><style>-1</style>")
            + item("line", "rule", "<thickness>0</thickness><style>9</style><length>0</length>")
        )
        file = os.path.abspath("none; there.png")
        expected = [
            f"Image item id=logo: invalid filepath({file})",
            "Text item id=label: null font",
            "Barcode item id=empty: null barcode",
            "Barcode item id=code: invalid type(143) barcode",
            "Barcode item id=code: invalid hexadecimal value, render as unicode string",
            "Rectangle item id=box: invalid thickness(0)",
            "Rectangle item id=box: invalid style(2)",
            "Ellipse item id=oval: invalid thickness(-3)",
            "Ellipse item id=oval: invalid style(-1)",
            "Line item id=rule: invalid thickness(0)",
            "Line item id=rule: invalid style(9)",
            "Line item id=rule: invalid length(0)",
        ]
        self.assertEqual(layout.check(), expected)

    def test_findings_of_any_length_are_read_whole(self) -> None:
        for count in *range(84, 90), 700:
            layout = self.open_layout(
                "".join(item("text", f"€{number:03}", "<text>x</text>") for number in range(count))
            )
            expected = [f"Text item id=€{number:03}: null font" for number in range(count)]
            self.assertEqual(layout.check(), expected)

    def test_values_are_applied_before_the_check(self) -> None:
        layout = self.open_layout(item("rectangle", "box", BOX))
        layout.set_object("box.style", "7")
        self.assertEqual(layout.check(), ["Rectangle item id=box: invalid style(7)"])

    def test_a_document_without_a_canvas_is_a_finding(self) -> None:
        path = self.write("page.xml", "<VelnorRoot><VelnorItems class='other'/></VelnorRoot>")
        with Layout(self.library, path) as layout:
            self.assertEqual(layout.check(), ["Canvas null pointer"])

    def test_a_document_that_cannot_be_read_is_an_error(self) -> None:
        self.write("broken.xml", "<VelnorRoot>")
        for path in "missing.xml", "broken.xml":
            with Layout(self.library, path) as layout:
                with self.assertRaisesRegex(VelnorError, f"^{path}: no layout document$"):
                    layout.check()


class PrinterSettingsTest(HostTest):
    def test_the_settings_of_the_canvas_are_read(self) -> None:
        layout = self.open_layout(
            "<presentation>3</presentation><ejectRetract> Retract </ejectRetract>"
            "<ejectRetractTimeout>20</ejectRetractTimeout>"
        )
        self.assertEqual(layout.printer_settings(), PrinterSettings(3, "retract", 20))

    def test_values_override_the_document(self) -> None:
        layout = self.open_layout("<presentation>3</presentation>")
        layout.set_object("page.presentation", "0")
        layout.set_object("page.ejectRetract", "EJECT")
        self.assertEqual(layout.printer_settings(), PrinterSettings(0, "eject", None))

    def test_what_is_missing_or_senseless_is_none(self) -> None:
        nothing = PrinterSettings(None, None, None)
        self.assertEqual(self.open_layout().printer_settings(), nothing)
        layout = self.open_layout(
            "<presentation>x</presentation><ejectRetract>ejected</ejectRetract>"
            "<ejectRetractTimeout>20s</ejectRetractTimeout>"
        )
        self.assertEqual(layout.printer_settings(), nothing)
        with Layout(self.library, "missing.xml") as layout:
            self.assertEqual(layout.printer_settings(), nothing)


class FontsTest(HostTest):
    """Each test uses a family of its own, which no machine has installed."""

    def add_font(self, brand: str) -> str:
        """Puts a font file into the folder "fonts"; `brand` has ten letters."""
        with open(FONT_FILE, "rb") as file:
            font = file.read()
        for encoding in "utf-16-be", "latin-1":
            font = font.replace("Liberation".encode(encoding), brand.encode(encoding))
        os.makedirs("fonts", exist_ok=True)
        with open(os.path.join("fonts", f"{brand}.ttf"), "wb") as file:
            file.write(font)
        return f"{brand} Sans"

    def test_the_list_holds_the_fonts_of_open_layouts(self) -> None:
        entry = f"{self.add_font('Abundantly')} Regular"
        self.assertNotIn(entry, self.library.fonts())
        with self.open_layout():
            self.assertEqual(self.library.fonts().count(entry), 1)
        self.assertNotIn(entry, self.library.fonts())

    def test_the_list_of_the_library_is_given_back(self) -> None:
        self.add_font("Adventures")
        with self.open_layout():
            library = Library(LIBRARY_FILE)
            recorder = Recorder(library.native)
            library.native = recorder
            library.fonts()
        (_, _, address), freed = recorder.calls
        self.assertEqual(freed, ("xmlToImgFreeFontList", (address,), None))

    def test_a_layout_that_nobody_closed_gives_its_fonts_back(self) -> None:
        entry = f"{self.add_font('Boundaries')} Regular"
        path = self.write("page.xml", document_of(""))
        layout = Layout(self.library, path)
        self.assertIn(entry, self.library.fonts())
        del layout
        gc.collect()
        self.assertNotIn(entry, self.library.fonts())

    def test_fonts_are_kept_while_they_shall_be(self) -> None:
        entry = f"{self.add_font('Candidates')} Regular"
        self.library.keep_fonts(True)
        self.addCleanup(self.library.keep_fonts, False)
        self.open_layout().close()
        self.assertIn(entry, self.library.fonts())
        self.library.keep_fonts(False)
        self.open_layout().close()
        self.assertNotIn(entry, self.library.fonts())

    def test_the_styles_of_a_family_are_known_while_it_is_registered(self) -> None:
        family = self.add_font("Directions")
        with self.open_layout() as layout:
            self.assertEqual(layout.font_property(family), FontStyles(bold=False, italic=False))
            self.assertIsNone(layout.font_property("No such family"))
        os.remove("fonts/Directions.ttf")
        self.assertIsNone(self.open_layout().font_property(family))

    def test_styles_that_a_font_does_not_have_are_findings(self) -> None:
        family = self.add_font("Excellence")
        style = f"<text>x</text><fontname>{family}</fontname><bold>1</bold><italic>1</italic>"
        self.assertEqual(
            self.open_layout(item("text", "label", style)).check(),
            [
                f"Text item id=label: bold not available({family})",
                f"Text item id=label: italic not available({family})",
            ],
        )

    def test_a_font_that_is_not_there_is_a_finding(self) -> None:
        style = "<text>x</text><fontname>No such family</fontname>"
        (finding,) = self.open_layout(item("text", "label", style)).check()
        start = "Text item id=label: font not available(No such family) using default("
        self.assertTrue(finding.startswith(start) and finding.endswith(")"), finding)

    def test_fonts_may_lie_elsewhere(self) -> None:
        family = self.add_font("Favourites")
        os.rename("fonts", "elsewhere")
        self.assertIsNone(self.open_layout().font_property(family))
        self.assertIsNotNone(self.open_layout(fonts="elsewhere").font_property(family))


if __name__ == "__main__":
    main()
