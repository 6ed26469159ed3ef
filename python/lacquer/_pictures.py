"""Pixels to and from Pillow images, which are straight where 32-bit pixels are premultiplied."""

from __future__ import annotations

from typing import TYPE_CHECKING, Any, List

if TYPE_CHECKING:
    import PIL.Image


def to_image(locked: Any, palette: List[int]) -> PIL.Image.Image:
    from PIL import Image

    size, data = (locked.width, locked.height), bytes(locked.data)
    if locked.bits_per_pixel == 32:
        return Image.frombytes("RGBa", size, data, "raw", "BGRa", locked.stride).convert("RGBA")
    if locked.bits_per_pixel == 24:
        return Image.frombytes("RGB", size, data, "raw", "BGR", locked.stride)
    image = Image.frombytes("P", size, data, "raw", "P", locked.stride)
    image.putpalette(b"".join(word.to_bytes(4, "little") for word in palette), "BGRX")
    return image


def premultiplied(image: PIL.Image.Image) -> PIL.Image.Image:
    """An image with colours multiplied by alpha, from one of any mode."""
    return image if image.mode == "RGBa" else image.convert("RGBA").convert("RGBa")


def is_opaque(image: PIL.Image.Image) -> bool:
    """Whether no pixel of a premultiplied image lets anything through."""
    return bool(image.getchannel("a").getextrema()[0] == 255)


def rows_of(image: PIL.Image.Image) -> bytes:
    """The pixels of a premultiplied image, blue, green, red and alpha, without gaps."""
    return bytes(image.tobytes("raw", "BGRa"))
