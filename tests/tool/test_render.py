"""render: from a document to a picture."""

import os
import signal
import stat
import subprocess
import time
import unittest

from support import (NOT_WRITTEN, SOURCE, TOOL, UNREADABLE, USAGE, ToolTest,
                     layout, png_header, text_item)


class Render(ToolTest):
    def test_the_picture_is_the_one_that_the_library_makes(self):
        golden = SOURCE / "docs" / "pictures"
        self.succeed("render", golden / "first.xml", "-o", "first.png")
        self.assertEqual((self.folder / "first.png").read_bytes(),
                         (golden / "first.png").read_bytes())

    def test_a_picture_comes_without_a_word(self):
        self.write("a.xml", layout(text_item("a")))
        self.assertEqual(self.succeed("render", "a.xml", "-o", "a.png"), b"")
        self.assertEqual(self.files(), ["a.png", "a.xml"])

    def test_tag_fills_a_placeholder(self):
        self.write("a.xml", layout(canvas="<width>%w%</width><height>7</height>"))
        self.succeed("render", "a.xml", "-o", "a.png", "--tag", "w=31")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[:2], (31, 7))

    def test_set_changes_an_element(self):
        self.write("a.xml", layout())
        self.succeed("render", "a.xml", "-o", "a.png", "--set", "ticket.width=33")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[0], 33)

    def test_the_last_set_of_an_element_counts(self):
        self.write("a.xml", layout())
        self.succeed("render", "a.xml", "-o", "a.png", "--set", "ticket.width=33", "--set",
                     "ticket.width=34")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[0], 34)

    def test_link_changes_the_element_that_bears_it(self):
        self.write("a.xml", layout(canvas='<width link="w">20</width><height>5</height>'))
        self.succeed("render", "a.xml", "-o", "a.png", "--link", "ticket.w=21")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[0], 21)

    def test_params_are_applied_and_the_command_line_wins(self):
        self.write("a.xml", layout())
        self.write("p.xml", '<VelnorParams><VelnorParam id="ticket"><width>40</width>'
                            "<height>50</height></VelnorParam></VelnorParams>")
        self.succeed("render", "a.xml", "-o", "a.png", "--params", "p.xml", "--set",
                     "ticket.height=60")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[:2], (40, 60))

    def test_a_value_may_hold_equals_signs_and_be_empty(self):
        self.write("a.xml", layout(text_item("x")))
        self.succeed("render", "a.xml", "-o", "a.png", "--set", "greeting.text=a=b=c")
        self.succeed("render", "a.xml", "-o", "a.png", "--set", "greeting.text=")

    def test_a_name_beyond_ascii_is_found(self):
        self.write("a.xml", layout(canvas="<width>%größe%</width><height>7</height>"))
        self.succeed("render", "a.xml", "-o", "a.png", "--tag", "größe=32")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[0], 32)

    def test_pictures_of_the_named_folder_are_shown_also_where_its_name_is_bare(self):
        self.write("a.xml", layout('<VelnorItem class="image" id="i"><filepath>deep/mark.png'
                                   "</filepath></VelnorItem>"))
        self.succeed("render", "a.xml", "-o", "blank.png")
        self.write("art/mark.png", (SOURCE / "docs" / "pictures" / "first.png").read_bytes())
        self.succeed("render", "a.xml", "-o", "a.png", "--images", "art")
        self.assertNotEqual((self.folder / "a.png").read_bytes(),
                            (self.folder / "blank.png").read_bytes())

    def test_fonts_of_the_named_folder_are_used(self):
        self.write("sub/a.xml", layout(text_item("a")))
        self.succeed("render", "sub/a.xml", "-o", "without.png")
        self.succeed("render", "sub/a.xml", "-o", "with.png", "--fonts", "fonts")
        self.assertNotEqual((self.folder / "with.png").read_bytes(),
                            (self.folder / "without.png").read_bytes())

    def test_the_suffix_chooses_the_format(self):
        self.write("a.xml", layout())
        self.succeed("render", "a.xml", "-o", "a.bmp")
        self.assertEqual((self.folder / "a.bmp").read_bytes()[:2], b"BM")

    def test_no_suffix_and_an_unknown_one_are_refused(self):
        self.write("a.xml", layout())
        for name in ("a", "a.doc"):
            self.assert_refused(USAGE, "render", "a.xml", "-o", name, says="suffix")
        self.assertEqual(self.files(), ["a.xml"])


class Streams(ToolTest):
    def test_a_dash_reads_the_document_and_writes_a_png(self):
        document = layout(text_item("a"))
        self.write("a.xml", document)
        self.succeed("render", "a.xml", "-o", "a.png")
        output = self.succeed("render", "-", "-o", "-", stdin=document.encode())
        self.assertEqual(output, (self.folder / "a.png").read_bytes())

    def test_files_of_standard_input_lie_in_the_current_folder(self):
        item = '<VelnorItem class="image" id="i"><filepath>mark.png</filepath></VelnorItem>'
        self.write("mark.png", (SOURCE / "docs" / "pictures" / "first.png").read_bytes())
        self.write("a.xml", layout(item))
        self.succeed("render", "a.xml", "-o", "a.png")
        output = self.succeed("render", "-", "-o", "-", stdin=layout(item).encode())
        self.assertEqual(output, (self.folder / "a.png").read_bytes())

    def test_a_device_is_written_to_and_stays(self):
        self.write("a.xml", layout())
        output = self.succeed("render", "a.xml", "-o", "/dev/stdout")
        self.assertEqual(png_header(output)[:2], (200, 100))

    def test_standard_output_that_is_full_is_told(self):
        self.write("a.xml", layout())
        with open("/dev/full", "wb") as full:
            done = subprocess.run([TOOL, "render", "a.xml", "-o", "-"], cwd=self.folder, stdout=full,
                                  stderr=subprocess.PIPE, check=False)
        self.assertEqual(done.returncode, NOT_WRITTEN)
        self.assertIn(b"No space", done.stderr)

    def test_nothing_stays_among_the_temporary_files(self):
        temporary = self.folder / "tmp"
        temporary.mkdir()
        self.succeed("render", "-", "-o", "-", stdin=layout().encode(),
                     environment={"TMPDIR": str(temporary)})
        self.assert_refused(UNREADABLE, "render", "-", "-o", "-", stdin=b"<", environment={"TMPDIR": str(temporary)})
        self.assertEqual(list(temporary.iterdir()), [])


class Refusals(ToolTest):
    def assert_old_picture_stays(self, code, *arguments, says=""):
        self.write("a.png", "an old picture")
        self.assert_refused(code, "render", *arguments, "-o", "a.png", says=says)
        self.assertEqual((self.folder / "a.png").read_bytes(), b"an old picture")
        self.assertEqual([name for name in self.files() if not name.endswith((".xml", "a.png"))], [])

    def test_a_missing_document_is_told(self):
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="'a.xml': No such file")

    def test_a_folder_is_no_document(self):
        self.assert_old_picture_stays(UNREADABLE, "fonts", says="it is a folder")

    def test_broken_xml_is_told_with_line_and_column(self):
        self.write("a.xml", "<VelnorRoot>\n  <VelnorItems>\n  </VelnorRoot>\n")
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="'a.xml': line 3, column ")

    def test_a_value_that_breaks_the_document_is_told(self):
        self.write("a.xml", layout(text_item("%name%")))
        self.assert_old_picture_stays(UNREADABLE, "a.xml", "--tag", "name=a&b", says="line ")

    def test_another_root_is_no_layout(self):
        self.write("a.xml", "<html/>")
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="no layout")

    def test_a_canvas_of_another_class_is_told(self):
        self.write("a.xml", '<VelnorRoot><VelnorItems class="page"/></VelnorRoot>')
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="no canvas")

    def test_a_canvas_without_a_width_is_told(self):
        self.write("a.xml", layout(canvas=""))
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="no width")

    def test_a_canvas_beyond_the_limits_is_told(self):
        self.write("a.xml", layout(canvas="<width>100000</width><height>100000</height>"))
        self.assert_old_picture_stays(UNREADABLE, "a.xml", says="beyond the limits")

    def test_a_missing_parameter_file_is_told(self):
        self.write("a.xml", layout())
        self.assert_old_picture_stays(UNREADABLE, "a.xml", "--params", "p.xml", says="'p.xml'")

    def test_a_file_of_another_kind_is_no_parameter_file(self):
        self.write("a.xml", layout())
        self.assert_old_picture_stays(UNREADABLE, "a.xml", "--params", "a.xml",
                                      says="no parameter file")

    def test_an_unknown_object_is_told(self):
        self.write("a.xml", layout())
        self.assert_old_picture_stays(USAGE, "a.xml", "--set", "nobody.text=a",
                                      says="--set nobody.text: the document has no such object")

    def test_an_unknown_link_is_told(self):
        self.write("a.xml", layout())
        self.assert_old_picture_stays(USAGE, "a.xml", "--link", "ticket.nothing=a",
                                      says="--link ticket.nothing: the document has no such link")

    def test_a_broken_document_is_told_where_a_value_is_set_too(self):
        self.write("a.xml", "<VelnorRoot>")
        self.assert_old_picture_stays(UNREADABLE, "a.xml", "--set", "ticket.width=3", says="line ")

    def test_values_of_the_wrong_form_are_told(self):
        self.write("a.xml", layout())
        for option, value in (("--tag", "name"), ("--tag", "=a"), ("--tag", "a.b=c"),
                              ("--set", "text=a"), ("--set", "a.b.c=d"), ("--set", ".b=c"),
                              ("--link", "a.=c"), ("--set", "a.b"), ("--tag", "中=c")):
            with self.subTest(option=option, value=value):
                self.assert_old_picture_stays(USAGE, "a.xml", option, value, says=option)

    def test_text_that_is_not_utf_8_is_told(self):
        self.write("a.xml", layout(text_item("a")))
        done = subprocess.run([TOOL.encode(), b"render", b"a.xml", b"-o", b"a.png", b"--set",
                               b"greeting.text=\xff"], cwd=self.folder, stderr=subprocess.PIPE,
                              check=False)
        self.assertEqual(done.returncode, USAGE)
        self.assertIn(b"not UTF-8", done.stderr)

    def test_unknown_options_and_missing_ones_are_told(self):
        self.write("a.xml", layout())
        self.assert_refused(USAGE, "render", "a.xml", "-o", "a.png", "--colour", says="--colour")
        self.assert_refused(USAGE, "render", "a.xml", says="--output")
        self.assert_refused(USAGE, "render", "-o", "a.png", says="LAYOUT")
        self.assert_refused(USAGE, "render", "a.xml", "-o", "a.png", "--mono", "grey", says="--mono")
        self.assert_refused(USAGE)
        self.assert_refused(USAGE, "paint")

    def test_folders_that_do_not_exist_are_told(self):
        self.write("a.xml", layout())
        self.assert_refused(USAGE, "render", "a.xml", "-o", "a.png", "--images", "none", says="'none'")
        self.assert_refused(USAGE, "render", "a.xml", "-o", "a.png", "--fonts", "none", says="'none'")

    def test_a_folder_without_room_for_the_picture_is_told(self):
        self.write("a.xml", layout())
        self.assert_refused(NOT_WRITTEN, "render", "a.xml", "-o", "none/a.png", says="no folder 'none'")
        self.assert_refused(NOT_WRITTEN, "render", "a.xml", "-o", "a.xml/a.png", says="a.xml")

    def test_a_folder_of_the_pictures_name_stays(self):
        self.write("a.xml", layout())
        (self.folder / "a.png").mkdir()
        self.assert_refused(NOT_WRITTEN, "render", "a.xml", "-o", "a.png", says="it is a folder")


class Replacing(ToolTest):
    def test_a_new_picture_takes_the_place_of_the_old_one(self):
        self.write("a.xml", layout())
        self.write("a.png", "an old picture")
        self.succeed("render", "a.xml", "-o", "a.png")
        self.assertEqual(png_header((self.folder / "a.png").read_bytes())[0], 200)

    def test_a_link_stays_and_leads_to_the_new_picture(self):
        self.write("a.xml", layout())
        self.write("store/real.png", "old")
        (self.folder / "a.png").symlink_to("store/real.png")
        self.succeed("render", "a.xml", "-o", "a.png")
        self.assertTrue((self.folder / "a.png").is_symlink())
        self.assertEqual(png_header((self.folder / "store/real.png").read_bytes())[0], 200)

    def test_the_picture_has_the_rights_that_the_umask_leaves(self):
        self.write("a.xml", layout())
        subprocess.run(["sh", "-c", 'umask 027; exec "$@"', "sh", TOOL, "render", "a.xml", "-o",
                        "a.png"], cwd=self.folder, check=True)
        self.assertEqual(stat.S_IMODE(os.stat(self.folder / "a.png").st_mode), 0o640)

    def test_a_run_that_is_ended_leaves_the_old_picture_or_the_new_one_and_nothing_else(self):
        self.write("a.xml", layout(text_item("a"), "<width>3000</width><height>6000</height>"))
        for delay in (0.02, 0.05, 0.08, 0.12, 0.2):
            self.write("a.png", "an old picture")
            process = subprocess.Popen([TOOL, "render", "a.xml", "-o", "a.png"], cwd=self.folder)
            time.sleep(delay)
            process.send_signal(signal.SIGTERM)
            process.wait(60)
            self.assertEqual(sorted(path.name for path in self.folder.iterdir()),
                             ["a.png", "a.xml", "fonts"])
            data = (self.folder / "a.png").read_bytes()
            if data != b"an old picture":
                self.assertEqual(png_header(data)[0], 3000)


class Mono(ToolTest):
    def render(self, mode, suffix="png"):
        self.write("a.xml", layout('<VelnorItem class="image" id="i"><filepath>grey.png</filepath>'
                                   "</VelnorItem>", "<width>64</width><height>64</height>"))
        self.write("grey.png", grey_picture())
        self.succeed("render", "a.xml", "-o", f"{mode}.{suffix}", "--mono", mode)
        return (self.folder / f"{mode}.{suffix}").read_bytes()

    def test_every_mode_gives_one_bit_a_dot(self):
        for mode in ("threshold", "ordered", "diffuse"):
            with self.subTest(mode=mode):
                width, height, bits, _ = png_header(self.render(mode))
                self.assertEqual((width, height, bits), (64, 64, 1))

    def test_the_modes_differ_where_the_picture_is_grey(self):
        pictures = {self.render(mode) for mode in ("threshold", "ordered", "diffuse")}
        self.assertEqual(len(pictures), 3)

    def test_white_paper_stays_white_and_black_dots_black(self):
        self.write("a.xml", layout('<VelnorItem class="line" id="l"><length>8</length>'
                                   "<thickness>2</thickness></VelnorItem>",
                                   "<width>8</width><height>4</height>"))
        for mode in ("threshold", "ordered", "diffuse"):
            with self.subTest(mode=mode):
                output = self.succeed("render", "a.xml", "-o", f"{mode}.pbm", "--mono", mode)
                self.assertEqual(output, b"")
                data = (self.folder / f"{mode}.pbm").read_bytes()
                self.assertEqual(data, b"P4\n8 4\n\xff\xff\x00\x00")

    def test_what_is_transparent_becomes_white(self):
        # A canvas that grows beyond a metre ends in transparent rows.
        self.write("a.xml", layout('<VelnorItem class="line" id="l"><y>4000</y><length>8</length>'
                                   "<thickness>2</thickness></VelnorItem>", "<width>8</width>"))
        self.succeed("render", "a.xml", "-o", "a.pbm", "--mono", "threshold")
        data = (self.folder / "a.pbm").read_bytes()
        self.assertEqual(data.split(b"\n", 2)[2].strip(b"\x00"), b"")

    def test_the_resolution_of_the_printer_stays(self):
        self.write("a.xml", layout(canvas="<width>8</width><height>8</height><dpi>203</dpi>"))
        self.succeed("render", "a.xml", "-o", "a.png", "--mono", "threshold")
        data = (self.folder / "a.png").read_bytes()
        place = data.index(b"pHYs") + 4
        self.assertEqual(int.from_bytes(data[place:place + 4], "big"), 7992)


def grey_picture():
    """64 x 64 dots, from black to white, as a PGM file."""
    return b"P5\n64 64\n255\n" + bytes(4 * x for _ in range(64) for x in range(64))


if __name__ == "__main__":
    unittest.main()
