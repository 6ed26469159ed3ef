"""The table of the C interface against the headers, as a compiler reads them, and the lists of exports."""

import ctypes
import re
import subprocess
import unittest
from pathlib import Path

from lacquer import _c, _enums, _interface

ROOT = Path(__file__).resolve().parents[2]
PROOF = """
#include <lacquer/image.h>
#include <type_traits>
template <class T> struct Plain { using Type = T; };
template <class T> struct Plain<const T> : Plain<T> {};
template <class T> struct Plain<T *> { using Type = typename Plain<T>::Type *; };
template <class R, class... A> struct Plain<R(A...)> {
    using Type = typename Plain<R>::Type(typename Plain<A>::Type...);
};
template <> struct Plain<char16_t> { using Type = uint16_t; };
template <> struct Plain<HGBITMAP> { using Type = uintptr_t; };
template <> struct Plain<HGTEXTURE> { using Type = uintptr_t; };
template <> struct Plain<HGCANVAS> { using Type = uintptr_t; };
template <> struct Plain<HDC> { using Type = void *; };
template <> struct Plain<HBITMAP> { using Type = void *; };
template <> struct Plain<HRGN> { using Type = void *; };
template <> struct Plain<HWND> { using Type = void *; };
"""
NAMES = {
    None: "void",
    ctypes.c_int32: "int32_t",
    ctypes.c_uint32: "uint32_t",
    ctypes.c_uint16: "uint16_t",
    ctypes.c_uint64: "uint64_t",
    ctypes.c_uint8: "uint8_t",
    ctypes.c_float: "float",
    ctypes.c_size_t: "size_t",
    ctypes.c_void_p: "void *",
    ctypes.c_char_p: "char *",
}


def c_name(kind):
    if kind in NAMES:
        return NAMES[kind]
    return c_name(kind._type_) + " *" if issubclass(kind, ctypes._Pointer) else kind.__name__


def claims():
    """What the package believes of the interface, as C++."""
    for name, value in _interface.CONSTANTS.items():
        yield f"{name} == {value}"
    for name, fields in _interface.RECORDS.items():
        record = getattr(_c, name)
        if fields:
            yield f"sizeof({name}) == {ctypes.sizeof(record)}"
        for field, _, _ in fields:
            place = getattr(record, field)
            yield f"offsetof({name}, {field}) == {place.offset} && sizeof({name}::{field}) == {place.size}"
    for name in exports():
        function = getattr(_c, name)
        arguments = ", ".join(map(c_name, function.argtypes))
        yield f"std::is_same_v<Plain<decltype({name})>::Type, {c_name(function.restype)}({arguments})>"


def exports():
    """The names in the lists of exports, the layouts' without their decoration."""
    for path in "src/api/lacquer.def", "velgraphic/velgraphic.def", "image/lacquer_image.def":
        for name in re.findall(r"^    (?:_Z\d\d)?(\w+)$", (ROOT / path).read_text(), re.MULTILINE):
            yield re.sub(r"8HGCANVAS.*", "", name)


class InterfaceTest(unittest.TestCase):
    def test_headers_declare_what_the_package_calls(self):
        self.assertEqual(set(exports()), {name for table in _interface.FUNCTIONS.values() for name in table})
        source = PROOF + "".join(f"static_assert({claim});\n" for claim in claims())
        folders = [f"-I{ROOT / folder}/include" for folder in ("src/api", "velgraphic", "image")]
        command = ["c++", "-std=c++20", "-fsyntax-only", *folders, "-x", "c++", "-"]
        compiled = subprocess.run(command, input=source, text=True, capture_output=True)
        self.assertEqual(compiled.returncode, 0, compiled.stderr)

    def test_every_constant_is_in_an_enumeration(self):
        members = [member for kind in vars(_enums).values() if hasattr(kind, "__members__") for member in kind]
        self.assertEqual(sorted(members), sorted(_interface.CONSTANTS.values()))


if __name__ == "__main__":
    unittest.main()
