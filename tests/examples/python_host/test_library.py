"""The library as the module sees it, and what is refused."""

from __future__ import annotations

import ctypes
import os
import re
import threading
import unittest

import velnorxmltoimg_native
from support import LIBRARY_FILE, SOURCES, HostTest, Recorder, main
from velnorxmltoimg import Library

HEADER = os.path.join(SOURCES, "include", "velnorxmltoimg.h")


class DeclarationsTest(unittest.TestCase):
    KINDS = {
        "void": None,
        "int": ctypes.c_int,
        "int*": ctypes.POINTER(ctypes.c_int),
        "char*": ctypes.c_void_p,
        "void*": ctypes.c_void_p,
        "const char*": ctypes.c_char_p,
        "unsigned short*": ctypes.POINTER(ctypes.c_ushort),
        "const unsigned short*": ctypes.POINTER(ctypes.c_ushort),
    }

    def test_each_function_of_the_header_is_declared_as_it_stands_there(self) -> None:
        with open(HEADER, encoding="utf-8") as file:
            text = re.sub(r"/\*.*?\*/", "", file.read(), flags=re.DOTALL)
        declared = {}
        for result, name, parameters in re.findall(
            r"VELNORXMLTOIMG_API\s+(\w[\w ]*\*?)\s+(xmlToImg\w+)\(([^)]*)\);", text
        ):
            kinds = [re.sub(r"\s*\b\w+$", "", one.strip()) for one in parameters.split(",")]
            kinds = [] if parameters == "void" else kinds
            declared[name] = (self.KINDS[result], [self.KINDS[kind] for kind in kinds])
        self.assertEqual(len(declared), 32)
        self.assertEqual(velnorxmltoimg_native.SIGNATURES, declared)


class LifetimeTest(HostTest):
    def test_a_closed_layout_refuses_everything_but_being_closed(self) -> None:
        with self.label() as layout:
            pass
        layout.close()
        for call in (
            layout.clear,
            lambda: layout.set_tag("name", "value"),
            lambda: layout.set_object("label.text", "value"),
            lambda: layout.set_link("label.caption", "value"),
            lambda: layout.get_object("label.text"),
            lambda: layout.get_link("label.caption"),
            lambda: layout.apply_parameters("values.xml"),
            lambda: layout.list_parameters("values.xml"),
            layout.check,
            layout.printer_settings,
            lambda: layout.font_property("Liberation Sans"),
            lambda: layout.render("out.png"),
        ):
            with self.assertRaisesRegex(ValueError, "^the layout is closed$"):
                call()
        self.assertEqual(os.listdir(), ["page.xml"])

    def test_each_function_refuses_a_null_handler(self) -> None:
        refusing = 0
        for name, (_, parameters) in velnorxmltoimg_native.SIGNATURES.items():
            if parameters[:1] == [ctypes.c_void_p] and name != "xmlToImgFreeFontList":
                rest = [0 if kind is ctypes.c_int else None for kind in parameters[1:]]
                self.assertEqual(self.library.call(name, None, *rest), -1, name)
                refusing += 1
        self.assertEqual(refusing, 22)

    def test_a_second_library_shares_the_first_one_s_application(self) -> None:
        before = threading.active_count()
        self.assertEqual(Library(LIBRARY_FILE).fonts(), self.library.fonts())
        self.assertEqual(threading.active_count(), before)

    def test_a_library_that_is_not_there_cannot_be_loaded(self) -> None:
        with self.assertRaises(OSError):
            Library("missing.so")

    def test_a_plug_in_folder_is_handed_over_as_terminated_utf_16(self) -> None:
        library = Library(LIBRARY_FILE)
        recorder = Recorder(library.native)
        library.native = recorder
        library.add_plugin_folder("größe €😀")
        ((name, (path, length), result),) = recorder.calls
        self.assertEqual((name, length, result), ("xmlToImgSetPluginPathUnicode", -1, 0))
        units = (os.path.abspath("größe €😀") + "\0").encode("utf-16")[2:]
        self.assertEqual(bytes(path), units)


if __name__ == "__main__":
    main()
