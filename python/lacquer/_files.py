"""Picture files: PNG, JPEG and WebP through the library lacquer_image, where it is installed."""

from __future__ import annotations

import ctypes
import os
from typing import Any, NamedTuple, Type, TypeVar, Union

from . import _c
from ._enums import ImageFormat
from ._image import Bitmap, Image, Texture
from ._object import Handle, LacquerError, call

Made = TypeVar("Made", bound=Image)
Source = Union[str, "os.PathLike[str]", bytes]


class ImageInfo(NamedTuple):
    """What is known of a picture before it is decoded; the size is that of the loaded object."""

    format: ImageFormat
    width: int
    height: int
    bits_per_pixel: int
    has_alpha: bool
    orientation: int
    is_animated: bool


def _content(source: Source) -> bytes:
    if not hasattr(_c, "LoadTextureFromData"):
        raise LacquerError("the library lacquer_image is not installed")
    if isinstance(source, bytes):
        return source
    with open(source, "rb") as file:
        return file.read()


def _done(function: Any, *arguments: Any) -> Any:
    result = call(function, *arguments)
    if not result:
        raise LacquerError(_c.ImageLastError().decode("ascii"))
    return result


def _load(kind: Type[Made], source: Source, flags: int, max_side: int, max_bytes: int) -> Made:
    data = _content(source)
    options = _c.ImageLoadOptions(flags, max_side, max_bytes)
    handle = _done(getattr(_c, f"Load{kind._kind}FromData"), data, len(data), options)
    return kind._adopt(Handle(handle, getattr(_c, f"Delete{kind._kind}")))


def image_info(source: Source) -> ImageInfo:
    """What is known of a picture, a path or a file's bytes, without decoding it."""
    data, record = _content(source), _c.ImageFileInfo()
    _done(_c.GetImageDataInfo, data, len(data), ctypes.byref(record))
    numbers = [getattr(record, name) for name, _ in record._fields_]
    return ImageInfo(ImageFormat(numbers[0]), *numbers[1:4], bool(numbers[4]), numbers[5], bool(numbers[6]))


def load_texture(source: Source, flags: int = 0, *, max_side: int = 0, max_bytes: int = 0) -> Texture:
    """A texture from a path or a file's bytes: 32-bit pixels, premultiplied, drawn by their alpha when they have some.
    `flags`: of LoadFlag. Refused is a picture with a side of more than `max_side` pixels, or with pixels of more than
    `max_bytes` bytes; 0 stands for 32767 and 256 MiB."""
    return _load(Texture, source, flags, max_side, max_bytes)


def load_bitmap(source: Source, flags: int = 0, *, max_side: int = 0, max_bytes: int = 0) -> Bitmap:
    """`load_texture` for a bitmap."""
    return _load(Bitmap, source, flags, max_side, max_bytes)


def encode_png(surface: Any, flags: int = 0) -> bytes:
    """The pixels of a bitmap, texture or canvas as a PNG file. `flags`: of PngFlag."""
    length = ctypes.c_size_t()
    data = _done(surface._function("Encode*AsPng"), surface, flags, ctypes.byref(length))
    try:
        return ctypes.string_at(data, length.value)
    finally:
        _c.FreeImageData(data)
