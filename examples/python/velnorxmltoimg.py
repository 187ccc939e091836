"""Renders layout documents with libvelnorxmltoimg.so.1, by way of ctypes.

    library = Library()
    with Layout(library, "receipt.xml") as layout:
        layout.set_tag("town", "Sampleton")
        layout.render("receipt.png")

Every call takes one lock of the module: ctypes lets other threads run meanwhile, and the library
has no locks of its own. So any thread may use anything here, and one picture is drawn at a time;
to draw several at once, use processes. A child made by os.fork must not use what its parent opened,
since the thread that Qt runs on stays behind: let multiprocessing "spawn".
"""

from __future__ import annotations

import atexit
import ctypes
import os
import re
import shutil
import sys
import tempfile
import threading
import time
import weakref
from typing import Any, NamedTuple, Union

import velnorxmltoimg_native

DEFAULT_LIBRARY = "libvelnorxmltoimg.so.1"

Path = Union[str, "os.PathLike[str]"]

# Reentrant: the garbage collector may close a layout while its thread is inside another call.
_LOCK = threading.RLock()

_UTF_16 = "utf-16-le" if sys.byteorder == "little" else "utf-16-be"
_RECORD_SEPARATOR = "\x1e"
_UNTOUCHED = b"\x01"
# Findings are joined by "; ", which may also stand inside one, in the name of a file.
_BETWEEN_FINDINGS = re.compile(
    r"; (?=(?:Image|Text|Barcode|Rectangle|Ellipse|Line) item id=|invalid item id=|\Z)"
)


class VelnorError(Exception):
    """The library could not do what was asked of it."""


class PrinterSettings(NamedTuple):
    """What a layout tells the printer; None where it says nothing, or nothing sensible."""

    presentation: int | None
    movement: str | None  # "eject" or "retract"
    timeout: int | None


class FontStyles(NamedTuple):
    """The styles that a font family has besides its regular one."""

    bold: bool
    italic: bool


def _stop_calls() -> None:
    """The program must not end while one of its daemon threads is inside the library."""
    _LOCK.acquire()


def _renew_lock() -> None:
    """A child of os.fork ends without waiting for threads that it does not have."""
    global _LOCK
    _LOCK = threading.RLock()


atexit.register(_stop_calls)
os.register_at_fork(after_in_child=_renew_lock)


def _bytes_of(text: str, encoding: str) -> bytes:
    if "\0" in text:
        raise ValueError(f"a zero character in {text!r}")
    return text.encode(encoding)


def _name(name: str) -> bytes:
    return _bytes_of(name, "latin-1")


def _value(value: str) -> bytes:
    return _bytes_of(value, "utf-8")


def _path(path: Path) -> bytes:
    # Absolute, so that the folder that the program works in may change, and so that a folder has
    # the separator that the library looks for.
    return _bytes_of(os.path.abspath(path), "utf-8")


def _wide(text: bytes) -> Any:
    """UTF-8 as UTF-16 with a terminating zero."""
    units = (text.decode("utf-8") + "\0").encode(_UTF_16)
    return (ctypes.c_ushort * (len(units) // 2)).from_buffer_copy(units)


def _text_of_wide(buffer: Any) -> str:
    return bytes(buffer).decode(_UTF_16, "replace").split("\0", 1)[0]


class Library:
    """The shared library, with Qt running on a thread of its own until the program ends."""

    def __init__(self, path: Path = DEFAULT_LIBRARY, timeout: float = 30.0):
        """Loads the library, by default from where the system has it, and starts Qt.

        Raises OSError when it cannot be loaded and VelnorError when Qt is not up in time.
        """
        self.native = velnorxmltoimg_native.load(os.fspath(path))
        with _LOCK:
            self._start(timeout)

    def _start(self, timeout: float) -> None:
        if self.native.xmlToImgQtInitialized() == 1:
            return
        # A daemon: the call stays in Qt's event loop, and the program must end all the same.
        start = self.native.xmlToImgInitializeQtNoReturn
        threading.Thread(target=start, name="velnorxmltoimg", daemon=True).start()
        deadline = time.monotonic() + timeout
        while self.native.xmlToImgQtInitialized() != 1:
            if time.monotonic() >= deadline:
                raise VelnorError("the Qt application did not start")
            time.sleep(0.001)

    def call(self, function: str, *arguments: Any) -> Any:
        """Calls one of the C functions as it is, under the lock."""
        with _LOCK:
            return getattr(self.native, function)(*arguments)

    def keep_fonts(self, keep: bool) -> None:
        """Decides whether the fonts of layouts stay registered when a layout is closed.

        Without it, closing one layout takes the fonts of all open layouts away.
        """
        self.call("xmlToImgSetEmbeddedFontKeepFlag", int(keep))

    def add_plugin_folder(self, folder: Path) -> None:
        """Adds a folder to those in which Qt looks for plug-ins, such as image formats."""
        self.call("xmlToImgSetPluginPathUnicode", _wide(_path(folder)), -1)

    def fonts(self) -> list[str]:
        """The fonts that can be used now, those of open layouts included: family, blank, style."""
        with _LOCK:
            address = self.native.xmlToImgAvailableFontList()
            if address is None:
                return []
            try:
                return ctypes.string_at(address).decode("latin-1").split(";")
            finally:
                self.native.xmlToImgFreeFontList(address)


class Layout:
    """One layout document and the values that fill it; a context manager.

    The document is read anew by each method that needs it; its pictures and fonts may lie elsewhere
    than beside it. After close, every method raises ValueError. Names of tags and objects are
    limited to Latin-1.
    """

    def __init__(
        self,
        library: Library,
        document: Path,
        images: Path | None = None,
        fonts: Path | None = None,
    ):
        paths = [None if path is None else _path(path) for path in (document, images, fonts)]
        self._handler = library.call("xmlToImgCreateHandlerWithDirs", *paths)
        if self._handler is None:
            raise MemoryError
        self._library = library
        self._document = os.fspath(document)
        # Also frees a layout that nobody closed, unless the program ends.
        self._free = weakref.finalize(self, library.call, "xmlToImgFreeHandler", self._handler)
        self._free.atexit = False

    def __enter__(self) -> Layout:
        return self

    def __exit__(self, *_: object) -> None:
        self.close()

    def close(self) -> None:
        """Frees the handler; further calls of close do nothing."""
        with _LOCK:
            self._free()

    def _call(self, function: str, *arguments: Any) -> int:
        with _LOCK:
            if not self._free.alive:
                raise ValueError("the layout is closed")
            return int(self._library.call(function, self._handler, *arguments))

    def clear(self) -> None:
        """Forgets every value that was set."""
        self._call("xmlToImgClearAllDictionary")

    def set_tag(self, name: str, value: str) -> None:
        """Replaces %name% in the source of the document by raw XML text; the first value counts.

        Values from outside belong into set_object, or through xml.sax.saxutils.escape.
        """
        self._call("xmlToImgSetTagDictionary", _name(name), _value(value))

    def set_object(self, name: str, value: str) -> None:
        """Sets the text of "object.property"; the last value counts. An unknown object is ignored.

        A name without a point is that of a tag.
        """
        if self._call("xmlToImgSetObjectTagDictionary", _name(name), _value(value)) != 0:
            raise VelnorError(f"{name}: more than one point")

    def set_link(self, name: str, value: str) -> None:
        """Sets the text of the element that "object.link" leads to; otherwise as set_object."""
        if self._call("xmlToImgSetObjectLinkDictionary", _name(name), _value(value)) != 0:
            raise VelnorError(f"{name}: {self._document} has no such link")

    def get_object(self, name: str) -> str | None:
        """The text that "object.property" has now; None when the document has no such property."""
        return self._read("xmlToImgGetObjectTagDictionary", name)

    def get_link(self, name: str) -> str | None:
        """The text that "object.link" leads to; None when the document has no such link."""
        return self._read("xmlToImgGetObjectLinkDictionary", name)

    def _read(self, function: str, name: str) -> str | None:
        size = 1024
        while True:
            buffer = ctypes.create_string_buffer(size)
            if self._call(function, _name(name), buffer, size) != 0:
                return None
            if len(buffer.value) < size - 1:
                return buffer.value.decode("utf-8")
            size *= 2  # the value may have been cut

    def apply_parameters(self, path: Path) -> None:
        """Sets every value of a parameter file, as set_link or else as set_object does."""
        if self._call("xmlToImgSetDictionaryFromParamFile", _path(path)) != 0:
            raise VelnorError(f"{os.fspath(path)}: no parameter file")

    def list_parameters(self, path: Path) -> list[tuple[str, str]]:
        """The names and values of a parameter file, in its order; nothing is set."""
        size = 1024
        while True:
            keys, values = (ctypes.c_ushort * size)(), (ctypes.c_ushort * size)()
            arguments = _wide(_path(path)), -1, keys, values, size
            if self._call("xmlToImgGetDictionaryFromParamFileUnicode", *arguments) != 0:
                raise VelnorError(f"{os.fspath(path)}: no parameter file")
            lists = [_text_of_wide(keys), _text_of_wide(values)]
            # A list is cut by its units, or by twice as many bytes in UTF-8.
            if all(len(text.encode("utf-8")) < size - 1 for text in lists):
                names, texts = (text.split(_RECORD_SEPARATOR) for text in lists)
                return list(zip(names, texts)) if lists[0] else []
            size *= 2

    def check(self) -> list[str]:
        """What keeps items from being drawn as asked, in document order; empty when all is well.

        Raises VelnorError when the document cannot be read as a layout document.
        """
        size = 4096
        while True:
            buffer = ctypes.create_string_buffer(_UNTOUCHED, size)
            if self._call("xmlToImgCheckCorrect", buffer, size) == 0:
                return []
            if buffer.value in (_UNTOUCHED, b""):
                raise VelnorError(f"{self._document}: no layout document")
            if len(buffer.value) < size - 1:
                findings = _BETWEEN_FINDINGS.split(buffer.value.decode("utf-8"))
                return [finding for finding in findings if finding]
            size *= 2

    def printer_settings(self) -> PrinterSettings:
        """What the layout tells the printer."""
        presentation, movement, timeout = (ctypes.c_int(-1) for _ in range(3))
        outputs = [ctypes.byref(number) for number in (presentation, movement, timeout)]
        self._call("xmlToImgGetPrinterSettings", *outputs)
        return PrinterSettings(
            None if presentation.value == -1 else presentation.value,
            {0: "eject", 1: "retract"}.get(movement.value),
            None if timeout.value == -1 else timeout.value,
        )

    def font_property(self, family: str) -> FontStyles | None:
        """The styles of a font family; None when it cannot be used."""
        bold, italic = ctypes.c_int(), ctypes.c_int()
        outputs = ctypes.byref(bold), ctypes.byref(italic)
        if self._call("xmlToImgGetFontProperty", _value(family), *outputs) != 0:
            return None
        return FontStyles(bold.value == 1, italic.value == 1)

    def render(self, output: Path) -> None:
        """Draws the picture, in the format that the suffix of its name tells.

        The file appears under its name only when it is complete, and replaces one of that name. On
        VelnorError there is no new picture, and one from before is still there.
        """
        folder, name = os.path.split(os.path.abspath(output))
        with _LOCK:
            scratch = tempfile.mkdtemp(prefix=".velnor-", dir=folder)
            try:
                picture = os.path.join(scratch, name)
                self._call("xmlToImgCreateImage", _path(picture))
                # The result of the call does not tell whether a picture was written.
                if not os.path.exists(picture):
                    raise VelnorError(f"{os.fspath(output)}: no picture from {self._document}")
                os.replace(picture, os.path.join(folder, name))
            finally:
                shutil.rmtree(scratch)
