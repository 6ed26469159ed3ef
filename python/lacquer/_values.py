"""Rectangles, colours and the other values that the drawing functions take."""

from __future__ import annotations

import ctypes
import operator
from typing import Any, Iterable, NamedTuple, Optional, Sequence, Tuple, Union

from . import _c
from ._object import call, whole

Colour = Union[int, Sequence[int]]
"""A colour: a number 0xAARRGGBB, or (red, green, blue) or (red, green, blue, alpha), each 0 to 255. Straight (not
multiplied by alpha) unless a function says otherwise."""


class Point(NamedTuple):
    """A place, in pixels."""

    x: float
    y: float


class Size(NamedTuple):
    """A width and a height, in pixels."""

    width: int
    height: int


class Rect(NamedTuple):
    """A rectangle, in pixels; right and bottom are exclusive. Any four numbers in this order will do where a function
    takes one."""

    left: float
    top: float
    right: float
    bottom: float

    @classmethod
    def sized(cls, x: float, y: float, width: float, height: float) -> Rect:
        """The rectangle of a size with its top left corner at (x, y)."""
        return cls(x, y, x + width, y + height)

    @property
    def width(self) -> float:
        """How far right is from left, pixels; negative for an inverted rectangle."""
        return self.right - self.left

    @property
    def height(self) -> float:
        """How far bottom is from top, pixels; negative for an inverted rectangle."""
        return self.bottom - self.top

    def moved(self, dx: float, dy: float) -> Rect:
        """The rectangle of the same size, so many pixels further right and down."""
        return Rect(self.left + dx, self.top + dy, self.right + dx, self.bottom + dy)

    def inset(self, by: float) -> Rect:
        """The rectangle that is smaller by so many pixels on each side; larger when the number is negative."""
        return Rect(self.left + by, self.top + by, self.right - by, self.bottom - by)


RectLike = Union[Rect, Sequence[float]]


def c_rect(value: RectLike) -> Any:
    """A RECT of four whole numbers."""
    left, top, right, bottom = value
    return _c.RECT(*(whole(edge, ctypes.c_int32) for edge in (left, top, right, bottom)))


def c_rect_or_null(value: Optional[RectLike]) -> Any:
    return None if value is None else c_rect(value)


def geo_rect(value: RectLike) -> Any:
    left, top, right, bottom = value
    return _c.GeoRect(left, top, right, bottom)


def rect_of(record: Any) -> Rect:
    """The Rect of a RECT or velRectF."""
    return Rect(record.left, record.top, record.right, record.bottom)


def word(colour: Colour) -> int:
    """The number 0xAARRGGBB of a colour."""
    if isinstance(colour, Sequence):
        red, green, blue, alpha = (whole(channel, ctypes.c_uint8) for channel in (*colour, 255)[: max(len(colour), 4)])
        return alpha << 24 | red << 16 | green << 8 | blue
    return whole(operator.index(colour), ctypes.c_uint32)


def four(radii: Union[float, Sequence[float]]) -> Any:
    """The four radii of a record from one, or from four: top left, top right, bottom right, bottom left corner."""
    values = tuple(radii) if isinstance(radii, Iterable) else (radii,) * 4
    if len(values) != 4:
        raise ValueError("there are four corners")
    return (ctypes.c_float * 4)(*values)


class Shadow(NamedTuple):
    """One shadow of a rectangle: see `Canvas.draw_shadows`.

    `colour`: straight. `offset`: pixels to the right and down. `blur`: pixels, 0 to 1024, twice the standard deviation
    as in CSS. `spread`: pixels by which the shadow grows before it is blurred. `radii`: pixels, of the rectangle's
    corners, one for all or one for each. `lightness`: factor on the colour's lightness. `flags`: of ShadowFlag.
    """

    colour: Colour
    offset: Tuple[int, int] = (0, 0)
    blur: float = 0.0
    spread: float = 0.0
    radii: Union[float, Sequence[float]] = 0.0
    lightness: float = 1.0
    flags: int = 0

    def _record(self) -> Any:
        x, y = (whole(offset, ctypes.c_int32) for offset in self.offset)
        flags = whole(self.flags, ctypes.c_uint32)
        return _c.ShadowStyle(word(self.colour), x, y, self.blur, self.spread, four(self.radii), self.lightness, flags)


class TextExtent(NamedTuple):
    """How large a line of text is, in pixels.

    `advance`: how far from its origin the next one would begin. `ascent`, `descent`: how far the fonts used reach above
    the baseline and below it, both positive. `line_height`: the distance of two baselines. `ink`: around the pixels
    that would be touched, from the origin on the baseline.
    """

    advance: float
    ascent: float
    descent: float
    line_height: float
    ink: Rect


class FontMetrics(NamedTuple):
    """How far a font reaches above and below the baseline, and the distance of two baselines, in pixels."""

    ascent: float
    descent: float
    line_height: float


def argb_to_ahsl(colour: Colour) -> int:
    """A straight colour as 0xAAHHSSLL: hue (0 to 255 for the whole circle), saturation and lightness."""
    return int(call(_c.ARGBtoAHSL, word(colour)))


def ahsl_to_argb(colour: int) -> int:
    """The colour 0xAARRGGBB of 0xAAHHSSLL."""
    return int(call(_c.AHSLtoARGB, colour))


def colorize(colour: Colour, hue: float = 0.0, saturation: float = 0.0, lightness: float = 0.0) -> int:
    """A straight colour with its hue shifted (1 is half the circle) and its saturation and lightness moved by a part,
    -1 to 1, of the way to the least or the greatest value."""
    return int(call(_c.ARGBColorize, word(colour), hue, saturation, lightness))


def colorize_ahsl(colour: int, hue: float = 0.0, saturation: float = 0.0, lightness: float = 0.0) -> int:
    """`colorize` from and to 0xAAHHSSLL."""
    return int(call(_c.AHSLColorize, colour, hue, saturation, lightness))


def sharp_bicubic() -> bool:
    """Whether the bicubic sampler uses its sharp weights (cubic convolution) instead of the soft ones (B-spline)."""
    return bool(call(_c.GetStretchKernelMode) != 1)


def set_sharp_bicubic(sharp: bool) -> None:
    """Chooses the weights of the bicubic sampler, for the whole process. Soft at first. No draw may run meanwhile."""
    call(_c.SetStretchKernelMode, 0 if sharp else 1)
