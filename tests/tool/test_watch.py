"""watch: a new picture for every change."""

import os
import shutil
import signal
import subprocess
import time
import unittest

from support import FONTS, TOOL, UNREADABLE, USAGE, ToolTest, layout, png_header, text_item

PATIENCE = 20  # seconds, for a busy machine


class Watch(ToolTest):
    def start(self, *arguments):
        self.process = subprocess.Popen([TOOL, "watch", "a.xml", "-o", "a.png", *arguments],
                                        cwd=self.folder, stderr=subprocess.PIPE)
        self.addCleanup(self.stop)
        self.wait_for(lambda: self.picture() is not None)

    def stop(self):
        if self.process.poll() is None:
            self.process.send_signal(signal.SIGINT)
        error = self.process.communicate(timeout=PATIENCE)[1].decode()
        return error

    def picture(self):
        path = self.folder / "a.png"
        return path.read_bytes() if path.exists() else None

    def wait_for(self, condition):
        end = time.monotonic() + PATIENCE
        while not condition():
            self.assertIsNone(self.process.poll(), "watch has ended")
            self.assertLess(time.monotonic(), end, "nothing happened")
            time.sleep(0.02)

    def assert_new_picture_after(self, change):
        before = self.picture()
        change()
        self.wait_for(lambda: self.picture() != before)

    def test_a_document_that_is_written_anew_is_rendered(self):
        self.write("a.xml", layout())
        self.start()
        self.write("a.xml", layout(canvas="<width>77</width><height>9</height>"))
        self.wait_for(lambda: png_header(self.picture())[:2] == (77, 9))

    def test_a_document_that_is_replaced_is_rendered_each_time(self):
        self.write("a.xml", layout())
        self.start()
        for width in (11, 12, 13):
            self.write("new", layout(canvas=f"<width>{width}</width><height>9</height>"))
            os.replace(self.folder / "new", self.folder / "a.xml")
            self.wait_for(lambda: png_header(self.picture())[0] == width)

    def test_a_picture_that_changes_is_shown(self):
        self.write("art/mark.pgm", b"P5\n2 1\n255\n\0\0")
        self.write("a.xml", layout('<VelnorItem class="image" id="i"><filepath>art/mark.pgm'
                                   "</filepath></VelnorItem>"))
        self.start()
        self.assert_new_picture_after(lambda: self.write("art/mark.pgm", b"P5\n4 1\n255\n\0\0\0\0"))

    def test_a_picture_that_comes_later_is_shown(self):
        self.write("a.xml", layout('<VelnorItem class="image" id="i"><filepath>mark.pgm'
                                   "</filepath></VelnorItem>"))
        self.start()
        self.assert_new_picture_after(lambda: self.write("mark.pgm", b"P5\n2 1\n255\n\0\0"))

    def test_a_font_that_comes_later_is_used(self):
        shutil.rmtree(self.folder / "fonts")
        self.write("a.xml", layout(text_item("a")))
        self.start()

        def bring_fonts():
            shutil.copytree(FONTS, self.folder / "coming")
            os.rename(self.folder / "coming", self.folder / "fonts")

        self.assert_new_picture_after(bring_fonts)

    def test_a_parameter_file_that_changes_is_applied(self):
        def params(width):
            self.write("p.xml", f'<VelnorParams><VelnorParam id="ticket"><width>{width}</width>'
                                "</VelnorParam></VelnorParams>")

        params(21)
        self.write("a.xml", layout())
        self.start("--params", "p.xml")
        params(22)
        self.wait_for(lambda: png_header(self.picture())[0] == 22)

    def test_a_broken_document_is_told_and_the_picture_stays_until_it_is_mended(self):
        self.write("a.xml", layout())
        self.start()
        before = self.picture()
        self.write("a.xml", "<VelnorRoot>")
        time.sleep(0.5)
        self.assertEqual(self.picture(), before)
        self.write("a.xml", layout(canvas="<width>5</width><height>6</height>"))
        self.wait_for(lambda: png_header(self.picture())[:2] == (5, 6))
        self.assertRegex(self.stop(), r"'a.xml': line \d+, column")

    def test_nothing_is_rendered_where_nothing_changed(self):
        self.write("a.xml", layout())
        self.start()
        before = os.stat(self.folder / "a.png").st_mtime_ns
        self.write("beside.txt", "of no interest")
        time.sleep(0.5)
        self.assertEqual(os.stat(self.folder / "a.png").st_mtime_ns, before)

    def test_an_interrupt_leaves_the_picture_and_nothing_else(self):
        self.write("a.xml", layout())
        self.start()
        self.assertEqual(self.stop(), "")
        self.assertEqual(self.process.returncode, -signal.SIGINT)
        self.assertEqual(self.files(), ["a.png", "a.xml"])


class Refusals(ToolTest):
    def test_a_missing_document_is_told(self):
        self.assert_refused(UNREADABLE, "watch", "a.xml", "-o", "a.png", says="'a.xml': No such file")

    def test_standard_streams_cannot_be_watched(self):
        self.write("a.xml", layout())
        self.assert_refused(USAGE, "watch", "-", "-o", "a.png", says="standard streams")
        self.assert_refused(USAGE, "watch", "a.xml", "-o", "-", says="standard streams")


if __name__ == "__main__":
    unittest.main()
