"""Pictures."""

from __future__ import annotations

import os
import shutil
import threading

from support import BOX, LABEL, LIBRARY_FILE, SOURCES, HostTest, Recorder, item, main
from velnorxmltoimg import Layout, Library, VelnorError

PICTURE_FILE = os.path.join(SOURCES, "examples", "layouts", "images", "acorn.png")


class RenderTest(HostTest):
    def picture(self, layout: Layout, output: str = "out.png") -> bytes:
        layout.render(output)
        with open(output, "rb") as file:
            return file.read()

    def test_the_suffix_of_the_name_tells_the_format(self) -> None:
        layout = self.open_layout(item("rectangle", "box", BOX))
        png = self.picture(layout, "out.png")
        self.assertEqual(png[:8], b"\x89PNG\r\n\x1a\n")
        self.assertEqual(png[16:24], bytes([0, 0, 0, 80, 0, 0, 0, 40]))
        self.assertEqual(self.picture(layout, "out.bmp")[:2], b"BM")

    def test_values_show_in_the_next_picture_and_the_same_values_give_the_same_bytes(self) -> None:
        layout = self.open_layout(item("rectangle", "box", BOX))
        first = self.picture(layout)
        layout.set_object("box.width", "30")
        second = self.picture(layout)
        layout.set_object("box.width", "20")
        self.assertNotEqual(first, second)
        self.assertEqual(self.picture(layout), first)

    def test_nothing_but_the_picture_is_left_behind(self) -> None:
        code = item("barcode", "code", "<text>1</text><type>58</type><width>40</width>")
        os.mkdir("out")
        self.open_layout(code).render("out/größe €😀.png")
        self.assertEqual(os.listdir("out"), ["größe €😀.png"])

    def test_a_picture_from_before_stays_until_there_is_a_new_one(self) -> None:
        layout = self.open_layout(item("rectangle", "box", BOX))
        before = self.picture(layout)
        self.write("page.xml", "<broken>")
        with self.assertRaisesRegex(VelnorError, r"^out\.png: no picture from page\.xml$"):
            layout.render("out.png")
        with open("out.png", "rb") as file:
            self.assertEqual(file.read(), before)
        self.assertEqual(sorted(os.listdir()), ["out.png", "page.xml"])

    def test_a_suffix_without_a_format_is_an_error(self) -> None:
        with self.assertRaises(VelnorError):
            self.open_layout().render("out.unknown")
        self.assertEqual(os.listdir(), ["page.xml"])

    def test_a_folder_that_is_missing_is_an_error(self) -> None:
        with self.assertRaises(FileNotFoundError):
            self.open_layout().render("missing/out.png")

    def test_the_picture_has_the_permissions_of_a_new_file(self) -> None:
        self.open_layout().render("out.png")
        self.assertEqual(os.stat("out.png").st_mode, os.stat("page.xml").st_mode)

    def test_paths_are_those_of_the_folder_in_which_they_were_given(self) -> None:
        os.mkdir("pictures")
        shutil.copy(PICTURE_FILE, "pictures/acorn.png")
        image = item("image", "logo", "<filepath>acorn.png</filepath>")
        layout = self.open_layout(image, images="pictures")
        expected = self.picture(layout)
        os.mkdir("below")
        os.chdir("below")
        self.assertEqual(layout.check(), [])
        self.assertEqual(self.picture(layout), expected)

    def test_threads_may_do_anything_at_any_time_and_never_meet_in_the_library(self) -> None:
        code = item("barcode", "code", "<text>1</text><type>58</type><width>40</width>")
        layout = self.open_layout(code + item("text", "label", LABEL))
        expected = self.picture(layout)
        library = Library(LIBRARY_FILE)
        recorder = Recorder(library.native)
        library.native = recorder
        results: list[tuple[bytes, str | None, bool]] = []

        def work(number: int) -> None:
            for _ in range(5):
                with Layout(library, "page.xml") as own:
                    picture = self.picture(own, f"{number}.png")
                    results.append((picture, own.get_object("code.text"), library.fonts() == []))

        threads = [threading.Thread(target=work, args=[number]) for number in range(4)]
        for thread in threads:
            thread.start()
        for thread in threads:
            thread.join()
        self.assertEqual(results, [(expected, "1", self.library.fonts() == [])] * 20)
        self.assertEqual(recorder.overlaps, [])


if __name__ == "__main__":
    main()
