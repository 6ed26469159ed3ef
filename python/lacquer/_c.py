"""The C interface as it is: all exports, records and constants under the headers' names.

Functions are ctypes functions with their argument and result types; <lacquer/lacquer.h>,
<lacquer/image.h> and <velgraphic/velgraphic.h> say what they do. Handles are integers. Nothing here guards against wrong pointers, objects that were destroyed, or
numbers that are too large (ctypes cuts them off): the classes of the package do.
"""

import ctypes
from typing import Any

from . import _interface
from ._library import WINDOWS, load

_TYPES: Any = {
    "int": ctypes.c_int32,
    "LONG": ctypes.c_int32,
    "DWORD": ctypes.c_uint32,
    "WORD": ctypes.c_uint16,
    "WCHAR": ctypes.c_uint16,
    "BYTE": ctypes.c_uint8,
    "float": ctypes.c_float,
    "size_t": ctypes.c_size_t,
    "uint64_t": ctypes.c_uint64,
    "void": None,
    "void*": ctypes.c_void_p,
    "char*": ctypes.c_char_p,
    # Records of one pointer-sized number, which travel like that number.
    **dict.fromkeys(["HGBITMAP", "HGTEXTURE", "HGCANVAS"], ctypes.c_size_t),
    # Pointers to nothing that a caller could look at.
    **dict.fromkeys(["HDC", "HBITMAP", "HRGN", "HWND"], ctypes.c_void_p),
}

# The functions with C++ linkage: what they are called in the library, and in the DLL.
_DECORATED = {
    "DrawTextureCenter": (
        "_Z17DrawTextureCenter8HGCANVASPK7tagRECT9HGTEXTURES2_jh",
        "?DrawTextureCenter@@YAHUHGCANVAS@@PEBUtagRECT@@UHGTEXTURE@@1KE@Z",
    ),
    "DrawTextureTile": (
        "_Z15DrawTextureTile8HGCANVASPK7tagRECT9HGTEXTURES2_jhjf",
        "?DrawTextureTile@@YAHUHGCANVAS@@PEBUtagRECT@@UHGTEXTURE@@1KEKM@Z",
    ),
    "DrawTextureTopTile": (
        "_Z18DrawTextureTopTile8HGCANVASPK7tagRECT9HGTEXTURES2_S2_jh",
        "?DrawTextureTopTile@@YAHUHGCANVAS@@PEBUtagRECT@@UHGTEXTURE@@11KE@Z",
    ),
    "DrawTexture9Grid": (
        "_Z16DrawTexture9Grid8HGCANVASPK7tagRECT9HGTEXTURES2_S2_jihjfi",
        "?DrawTexture9Grid@@YAHUHGCANVAS@@PEBUtagRECT@@UHGTEXTURE@@11KHEKMH@Z",
    ),
}


def _type(name: str) -> Any:
    if name not in _TYPES:
        _TYPES[name] = ctypes.POINTER(_type(name[:-1]))
    return _TYPES[name]


def _bind(library: ctypes.CDLL, name: str, result: str, arguments: Any) -> Any:
    try:
        function = getattr(library, _DECORATED[name][WINDOWS] if name in _DECORATED else name)
    except AttributeError:
        raise ImportError(f"{library._name} has no function {name}: it is older than this package") from None
    function.__name__ = name
    function.restype = _type(result)
    function.argtypes = [_type(argument) for argument in arguments]
    return function


def __getattr__(name: str) -> Any:  # Tells type checkers that the names below exist.
    raise AttributeError(f"the interface has no {name}")


globals().update(_interface.CONSTANTS)
for _name, _fields in _interface.RECORDS.items():
    _TYPES[_name] = type(_name, (ctypes.Structure,), {})
    _TYPES[_name]._fields_ = [(field, _type(kind) * count if count else _type(kind)) for field, kind, count in _fields]
    globals()[_name] = _TYPES[_name]

_libraries = load()
for _library_name in _libraries:
    for _name, (_result, _arguments) in _interface.FUNCTIONS[_library_name].items():
        globals()[_name] = _bind(_libraries[_library_name], _name, _result, _arguments)

# What is needed of GDI, which the library brings along where the system has none: the rectangles of a region.
_gdi = ctypes.CDLL("gdi32") if WINDOWS else _libraries["lacquer"]
GetRegionData = _bind(_gdi, "GetRegionData", "DWORD", ["HRGN", "DWORD", "void*"])
DeleteObject = _bind(_gdi, "DeleteObject", "int", ["void*"])
