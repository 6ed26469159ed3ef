"""What bitmaps, textures and canvases have in common: a size, a filter word, and pixels that can be looked at."""

from __future__ import annotations

import ctypes
from contextlib import contextmanager
from typing import TYPE_CHECKING, Any, Iterator, List, Optional, Type, TypeVar, Union

from . import _c, _pictures
from ._enums import DrawMode
from ._object import Handle, LacquerError, Owner, done, read, whole
from ._values import Colour, RectLike, Size, c_rect_or_null, word

if TYPE_CHECKING:
    import os

    import numpy
    import numpy.typing
    import PIL.Image

Other = TypeVar("Other", bound="Surface")


class LockedPixels:
    """The pixels of a locked rectangle, where they are.

    Rows run top-down, `stride` bytes apart. 32-bit pixels are the bytes blue, green, red, alpha, the colours
    premultiplied by alpha; 24-bit ones blue, green, red; 8-bit ones index the palette.
    """

    def __init__(self, view: Any, handle: Handle) -> None:
        self.width: int = view.width
        self.height: int = view.height
        self.stride: int = view.stride
        self.bits_per_pixel: int = view.bitsPerPixel
        size = (self.height - 1) * self.stride + self.width * self.bytes_per_pixel
        block: Any = (ctypes.c_uint8 * size).from_address(view.bits)
        block.handle = handle  # Whatever shows the bytes keeps the pixels.
        self.data = memoryview(block).cast("B")
        """All bytes from the first pixel to the last."""

    @property
    def bytes_per_pixel(self) -> int:
        """Bytes of one pixel: 1, 3 or 4."""
        return self.bits_per_pixel // 8

    def array(self) -> numpy.typing.NDArray[numpy.uint8]:
        """The pixels as a numpy array, (height, width, bytes per pixel) or, with 8 bits, (height, width); no copy."""
        import numpy

        depth = self.bytes_per_pixel
        shape, strides = (self.height, self.width, depth), (self.stride, depth, 1)
        used = 2 if depth == 1 else 3
        return numpy.ndarray(shape[:used], numpy.uint8, self.data, strides=strides[:used])


class Surface(Owner):
    """The common part of `Bitmap`, `Texture` and `Canvas`."""

    _kind: str

    def _function(self, name: str) -> Any:
        """The function of this kind of object: `Get*Size` is GetBitmapSize for bitmaps."""
        return getattr(_c, name.replace("*", self._kind))

    def _made(self: Other, name: str, *arguments: Any) -> Other:
        """A new object of the same kind."""
        return self._adopt(Handle(done(self._function(name), self, *arguments), self._function("Delete*")))

    def _become(self, other: Type[Other], function: Any) -> Other:
        """The object of another kind that this one turns into; this one is closed."""
        handle = self._own()
        if handle.locks:
            raise LacquerError("pixels are locked")
        handle.value, handle.release = done(function, self), getattr(_c, f"Delete{other._kind}")
        self.close()
        return other._adopt(handle)

    def __repr__(self) -> str:
        if self.closed:
            return super().__repr__()
        return f"<{type(self).__name__} {self.width} x {self.height}>"

    @property
    def size(self) -> Size:
        """Width and height, pixels; of a texture with slices the current slice's."""
        out = read(self._function("Get*Size"), _c.SIZE, self)
        return Size(out.cx, out.cy)

    @property
    def width(self) -> int:
        """Pixels; of a texture with slices the current slice's."""
        return self.size.width

    @property
    def height(self) -> int:
        """Pixels; of a texture with slices the current slice's."""
        return self.size.height

    @property
    def _filter(self) -> int:
        return int(read(self._function("Get*Filter"), ctypes.c_uint32, self).value)

    @property
    def draw_mode(self) -> int:
        """How the object is drawn as a source: a value of DrawMode. A canvas that is drawn is copied or blended."""
        mode = self._filter >> 24
        return DrawMode(mode) if mode in set(DrawMode) else mode

    @draw_mode.setter
    def draw_mode(self, mode: int) -> None:
        word_ = whole(mode, ctypes.c_uint8) << 24 | self._filter & 0xFFFFFF
        done(self._function("Set*Filter"), self, word_)

    @property
    def key_colour(self) -> int:
        """The colour 0xRRGGBB that DrawMode.COLOR_KEY leaves out."""
        return self._filter & 0xFFFFFF

    @key_colour.setter
    def key_colour(self, colour: Colour) -> None:
        done(self._function("Set*Filter"), self, self._filter & 0xFF000000 | word(colour) & 0xFFFFFF)

    def _palette(self) -> Any:
        """A pointer to the palette's words, and their number."""
        view = _c.SurfaceView()
        done(self._function("Lock*BitsEx"), self, view, None)
        done(self._function("Unlock*Bits"), self)
        return view.palette, view.paletteCount

    @property
    def palette(self) -> List[int]:
        """The colours 0xAARRGGBB, premultiplied, that 8-bit pixels index; empty with more bits per pixel."""
        words, count = self._palette()
        return list(words[:count]) if count else []

    @contextmanager
    def lock(self, rect: Optional[RectLike] = None) -> Iterator[LockedPixels]:
        """The pixels of a rectangle that is not empty and lies inside (None: all), for the time of a `with` block.

        `data` can't be used after the block, unless something else, such as a numpy array, was made from it.
        """
        handle = self._own()
        view = _c.SurfaceView()
        done(self._function("Lock*Bits"), self, view, c_rect_or_null(rect))
        handle.locks += 1
        pixels = LockedPixels(view, handle)
        try:
            yield pixels
        finally:
            handle.locks -= 1
            self._function("Unlock*Bits")(handle.value)
            try:
                pixels.data.release()
            except BufferError:
                pass

    @contextmanager
    def pixels(self, rect: Optional[RectLike] = None) -> Iterator[numpy.typing.NDArray[numpy.uint8]]:
        """`lock` as a numpy array of bytes that shows the pixels themselves: shape (height, width, 4), premultiplied
        blue, green, red and alpha; (height, width, 3) with 24 and (height, width) with 8 bits per pixel.

        Use the array inside the `with` block only. Afterwards it can't be written to; it then still shows the pixels,
        and keeps their memory, but what it shows is not promised.
        """
        with self.lock(rect) as locked:
            array = locked.array()
            try:
                yield array
            finally:
                array.flags.writeable = False

    def to_image(self) -> PIL.Image.Image:
        """A Pillow image of the pixels: RGBA (straight) from 32 bits, RGB from 24, P with its palette from 8."""
        with self.lock() as locked:
            return _pictures.to_image(locked, self.palette)

    def save(self, path: Union[str, os.PathLike[str]]) -> None:
        """Writes the pixels to a PNG file, by the library lacquer_image or, where it is missing, by Pillow."""
        if hasattr(_c, "EncodeCanvasAsPng"):
            from ._files import encode_png

            data = encode_png(self)
            with open(path, "wb") as file:
                file.write(data)
        else:
            self.to_image().save(path, "PNG")
