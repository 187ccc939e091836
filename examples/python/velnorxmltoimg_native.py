"""The C functions of libvelnorxmltoimg.so.1 as ctypes sees them."""

from __future__ import annotations

import ctypes
from typing import Any

_INT = ctypes.c_int
_INT_OUT = ctypes.POINTER(ctypes.c_int)
_TEXT = ctypes.c_char_p
_WIDE = ctypes.POINTER(ctypes.c_ushort)
# Handlers and buffers; also lists of the library, which it wants back.
_MEMORY = ctypes.c_void_p

_SETTER = (_INT, [_MEMORY, _TEXT, _TEXT])
_WIDE_SETTER = (_INT, [_MEMORY, _WIDE, _INT, _WIDE, _INT])
_GETTER = (_INT, [_MEMORY, _TEXT, _MEMORY, _INT])
_WIDE_GETTER = (_INT, [_MEMORY, _WIDE, _INT, _WIDE, _INT])

SIGNATURES: dict[str, tuple[Any, list[Any]]] = {
    "xmlToImgInitializeQtNoReturn": (None, []),
    "xmlToImgQtInitialized": (_INT, []),
    "xmlToImgSetPluginPathUnicode": (_INT, [_WIDE, _INT]),
    "xmlToImgSetEmbeddedFontKeepFlag": (_INT, [_INT]),
    "xmlToImgCreateHandler": (_MEMORY, [_TEXT]),
    "xmlToImgCreateHandlerUnicode": (_MEMORY, [_WIDE, _INT]),
    "xmlToImgCreateHandlerWithDirs": (_MEMORY, [_TEXT, _TEXT, _TEXT]),
    "xmlToImgCreateHandlerWithDirsUnicode": (_MEMORY, [_WIDE, _INT, _WIDE, _INT, _WIDE, _INT]),
    "xmlToImgFreeHandler": (_INT, [_MEMORY]),
    "xmlToImgClearAllDictionary": (_INT, [_MEMORY]),
    "xmlToImgSetTagDictionary": _SETTER,
    "xmlToImgSetTagDictionaryUnicode": _WIDE_SETTER,
    "xmlToImgSetObjectTagDictionary": _SETTER,
    "xmlToImgSetObjectTagDictionaryUnicode": _WIDE_SETTER,
    "xmlToImgSetObjectLinkDictionary": _SETTER,
    "xmlToImgSetObjectLinkDictionaryUnicode": _WIDE_SETTER,
    "xmlToImgGetObjectTagDictionary": _GETTER,
    "xmlToImgGetObjectTagDictionaryUnicode": _WIDE_GETTER,
    "xmlToImgGetObjectLinkDictionary": _GETTER,
    "xmlToImgGetObjectLinkDictionaryUnicode": _WIDE_GETTER,
    "xmlToImgSetDictionaryFromParamFile": (_INT, [_MEMORY, _TEXT]),
    "xmlToImgSetDictionaryFromParamFileUnicode": (_INT, [_MEMORY, _WIDE, _INT]),
    "xmlToImgGetDictionaryFromParamFile": (_INT, [_MEMORY, _TEXT, _MEMORY, _INT, _MEMORY, _INT]),
    "xmlToImgGetDictionaryFromParamFileUnicode": (
        _INT,
        [_MEMORY, _WIDE, _INT, _WIDE, _WIDE, _INT],
    ),
    "xmlToImgCreateImage": (_INT, [_MEMORY, _TEXT]),
    "xmlToImgCreateImageUnicode": (_INT, [_MEMORY, _WIDE, _INT]),
    "xmlToImgCheckCorrect": (_INT, [_MEMORY, _MEMORY, _INT]),
    "xmlToImgGetPrinterSettings": (_INT, [_MEMORY, _INT_OUT, _INT_OUT, _INT_OUT]),
    "xmlToImgGetFontProperty": (_INT, [_MEMORY, _TEXT, _INT_OUT, _INT_OUT]),
    "xmlToImgGetFontPropertyUnicode": (_INT, [_MEMORY, _WIDE, _INT, _INT_OUT, _INT_OUT]),
    "xmlToImgAvailableFontList": (_MEMORY, []),
    "xmlToImgFreeFontList": (None, [_MEMORY]),
}


def load(path: str) -> ctypes.CDLL:
    """The library with every function declared. Raises OSError when it cannot be loaded."""
    library = ctypes.CDLL(path)
    for name, (result, parameters) in SIGNATURES.items():
        function = getattr(library, name)
        function.restype = result
        function.argtypes = parameters
    return library
