"""Bitmaps and textures: pixels that are drawn."""

from __future__ import annotations

import ctypes
from typing import TYPE_CHECKING, Iterable, List, NamedTuple, Optional, Sequence, Type, TypeVar

from . import _c, _pictures
from ._enums import DrawMode, Layout, Sampler
from ._object import Handle, LacquerError, call, done, read, whole, wholes
from ._surface import Surface
from ._values import Colour, Rect, RectLike, c_rect, c_rect_or_null, rect_of, word

if TYPE_CHECKING:
    import numpy
    import numpy.typing
    import PIL.Image

Self = TypeVar("Self", bound="Image")
DEPTHS = (8, 24, 32)


class Image(Surface):
    """The common part of `Bitmap` and `Texture`: new pixels, copies, and filters that work in place."""

    def __init__(self, width: int, height: int, *, bits: int = 32, palette: Optional[Sequence[int]] = None) -> None:
        """New pixels, which are not cleared.

        `width`, `height`: 1 to 32767 pixels. `bits`: 8, 24 or 32 per pixel. `palette`: with 8 bits up to 256 words
        0xAARRGGBB, premultiplied; None is a palette of greys that can't be changed.
        """
        self._create("Create*Ex", width, height, bits, palette)

    def _create(self, name: str, width: int, height: int, bits: int, palette: Optional[Sequence[int]]) -> None:
        words = wholes(palette or [], ctypes.c_uint32)
        if bits not in DEPTHS or len(words) > (256 if bits == 8 else 0):
            raise ValueError("pixels have 8, 24 or 32 bits, and palettes at most 256 colours for 8 bits")
        handle = done(self._function(name), width, height, bits, len(words))
        self._handle = Handle(handle, self._function("Delete*"))
        if words:
            ctypes.memmove(self._palette()[0], words, ctypes.sizeof(words))

    @classmethod
    def from_image(cls: Type[Self], image: PIL.Image.Image) -> Self:
        """32-bit pixels from a Pillow image of any mode, premultiplied; drawn by DrawMode.OVER when there is alpha
        below 255, and copied otherwise."""
        made = cls(*image.size)
        picture = _pictures.premultiplied(image)
        with made.lock() as locked:  # 32-bit rows have no gaps.
            locked.data[:] = _pictures.rows_of(picture)
        made.draw_mode = DrawMode.COPY if _pictures.is_opaque(picture) else DrawMode.OVER
        return made

    @classmethod
    def from_array(
        cls: Type[Self], array: numpy.typing.NDArray[numpy.uint8], *, draw_mode: int = DrawMode.OVER
    ) -> Self:
        """32-bit pixels from an array of bytes of the shape (height, width, 4): premultiplied blue, green, red and
        alpha."""
        if array.ndim != 3 or array.shape[2] != 4 or array.dtype != "uint8":
            raise ValueError("the array must have the shape (height, width, 4) and the type uint8")
        made = cls(array.shape[1], array.shape[0])
        with made.pixels() as pixels:
            pixels[:] = array
        made.draw_mode = draw_mode
        return made

    @property
    def bits_per_pixel(self) -> int:
        """Bits of one pixel: 8, 24 or 32."""
        return int(read(self._function("Get*BitsPixel"), ctypes.c_uint8, self).value)

    def copy_from(
        self: Self, source: Self, *, rect: Optional[RectLike] = None, source_rect: Optional[RectLike] = None
    ) -> None:
        """Copies pixels, palette and filter word of a rectangle (None: all) into a rectangle. What does not fit is left
        out; unless depths are equal, only 32 bits per pixel receive pixels."""
        done(self._function("Copy*"), self, c_rect_or_null(rect), source, c_rect_or_null(source_rect))

    def resized(self: Self, width: int, height: int, *, sampler: int = Sampler.BILINEAR) -> Self:
        """A new object of this size, with 32 bits per pixel and the same filter word."""
        return self._made("Resize*", width, height, sampler)

    def transformed(self: Self, turn: int) -> Self:
        """A new object of the same depth, turned or mirrored by a value of Turn."""
        return self._made("Transform*", turn)

    def blur_into(
        self: Self, dest: Self, *, rect: Optional[RectLike] = None, source_rect: Optional[RectLike] = None
    ) -> None:
        """Writes the mean of 3 x 3 pixels to another object. Both need 32 bits per pixel."""
        done(self._function("Blur*Ex"), dest, c_rect_or_null(rect), self, c_rect_or_null(source_rect))

    def gaussian_blur(self) -> None:
        """Blurs more strongly: seven bell-shaped weights in each direction, applied twice. 32 bits per pixel."""
        with self.lock() as locked, type(self)(locked.width, locked.height) as scratch:
            done(self._function("GaussianBlur*"), self, scratch)

    def gray(self) -> None:
        """Makes colours grey; alpha stays."""
        done(self._function("Gray*"), self)

    def premultiply(self) -> None:
        """Multiplies straight colours by alpha. 8 and 32 bits per pixel."""
        done(self._function("Normalize*"), self)

    def invert(self) -> None:
        """Inverts premultiplied colours. 32 bits per pixel."""
        if self.bits_per_pixel != 32:
            raise LacquerError("only 32-bit pixels can be inverted")
        done(self._function("Invert*"), self)

    def alpha_from_colour(self, rect: Optional[RectLike] = None) -> None:
        """Makes alpha the largest of blue, green and red. 32 bits per pixel."""
        done(self._function("Shuffle*Ex"), self, c_rect_or_null(rect), 6)

    def colour_from_alpha(self, rect: Optional[RectLike] = None) -> None:
        """Makes blue, green and red the alpha. 32 bits per pixel."""
        done(self._function("Shuffle*Ex"), self, c_rect_or_null(rect), 1)

    def light(self) -> None:
        """Replaces the pixels by a soft white halo in the shape of their alpha. 32 bits per pixel."""
        done(self._function("Light*"), self)


class Bitmap(Image):
    """Pixels that are drawn as a whole or by a rectangle, and masks."""

    _kind = "Bitmap"

    def __init__(
        self,
        width: int,
        height: int,
        *,
        bits: int = 32,
        palette: Optional[Sequence[int]] = None,
        system: bool = False,
    ) -> None:
        """As for `Image`; `system`: 32-bit pixels in a DIB section, transparent black."""
        if not system:
            self._create("CreateMem*Ex", width, height, bits, palette)
        elif bits != 32 or palette:
            raise ValueError("a DIB section has 32 bits per pixel")
        else:
            self._handle = Handle(done(_c.CreateSystemBitmap, width, height), _c.DeleteBitmap)

    def to_texture(self) -> Texture:
        """Turns the bitmap into a texture with the same pixels; the bitmap is closed."""
        return self._become(Texture, _c.BitmapToTexture)


class TextureMode(NamedTuple):
    """How `Canvas.draw_texture` lays a texture out: a value of Layout, the margins (left, top, right, bottom, source
    pixels) and what follows the scale of a draw (ScaleFlag)."""

    layout: int = Layout.STRETCH
    margins: RectLike = (0, 0, 0, 0)
    scale_flags: int = 0


class Texture(Image):
    """An image with a layout and slices: the pieces of a skin."""

    _kind = "Texture"

    @property
    def mode(self) -> TextureMode:
        """How `Canvas.draw_texture` lays the texture out; stretched at first."""
        record = read(_c.GetTextureMode, _c.TextureMode, self)
        return TextureMode(record.mode, rect_of(record.margins), record.scaleFlags)

    @mode.setter
    def mode(self, mode: TextureMode) -> None:
        layout, margins, flags = mode
        numbers = (whole(number, ctypes.c_uint32) for number in (layout, flags))
        done(_c.SetTextureMode, self, _c.TextureMode(*numbers, c_rect(margins)))

    def set_slices(self, rects: Iterable[RectLike]) -> None:
        """Replaces the slices and makes the last one current; no rectangles leave none."""
        slices = [c_rect(rect) for rect in rects]
        if call(_c.SetTextureSlice, self, len(slices), (_c.RECT * len(slices))(*slices)) != len(slices):
            raise LacquerError("SetTextureSlice was refused")

    def select_slice(self, index: int) -> int:
        """Makes a slice current. Result: the index of the one before, -1 for none."""
        if not 0 <= index < self.slice_count:
            raise IndexError("there is no such slice")
        return int(call(_c.SetTextureCurSlice, self, index))

    @property
    def slice_count(self) -> int:
        """How many slices there are; 0 at first."""
        self._own()
        return int(call(_c.GetTextureSliceCount, self))

    @property
    def current_slice(self) -> Rect:
        """The current slice, or the whole texture when there is none."""
        return rect_of(read(_c.GetTextureCurSlice, _c.RECT, self))

    def colorize(self, hue: float = 0.0, saturation: float = 0.0, lightness: float = 0.0) -> None:
        """Applies the function `colorize` to every pixel, or palette entry; the channels count as straight."""
        done(_c.ColorizeTexture, self, hue, saturation, lightness)

    def replace_colour(self, find: Colour, put: Colour) -> None:
        """Replaces one exact colour, alpha included, by another; both premultiplied."""
        done(_c.TranslateTexture, self, word(find), word(put))

    def light_rect(self, rect: Optional[RectLike] = None) -> None:
        """`light` inside a rectangle."""
        done(_c.LightTextureEx, self, c_rect_or_null(rect))

    def region(self, rect: Optional[RectLike] = None) -> List[Rect]:
        """Where the pixels of a rectangle (None: the whole texture) are not 0, as rectangles from top to bottom,
        relative to its top left corner. All pixels count when the draw mode is DrawMode.COPY."""
        region = done(_c.CreateTextureRgn, self, c_rect_or_null(rect))
        try:
            size = done(_c.GetRegionData, region, 0, None)
            data = ctypes.create_string_buffer(size)
            done(_c.GetRegionData, region, size, data)
        finally:
            _c.DeleteObject(region)
        header = 32  # bytes, before the rectangles
        rects = (_c.RECT * ((size - header) // ctypes.sizeof(_c.RECT))).from_buffer(data, header)
        return [rect_of(rect) for rect in rects]
