"""Canvases: what is drawn on."""

from __future__ import annotations

import ctypes
from contextlib import contextmanager
from typing import Any, Iterator, List, Optional, Sequence, Tuple, TypeVar, Union

from . import _c
from ._enums import Blend, Dash, DrawMode, Layout, Sampler
from ._image import Bitmap, Texture
from ._object import Handle, LacquerError, call, done, read, whole, wholes
from ._surface import Surface
from ._values import (
    Colour,
    FontMetrics,
    Point,
    Rect,
    RectLike,
    Shadow,
    TextExtent,
    c_rect,
    c_rect_or_null,
    four,
    geo_rect,
    rect_of,
    word,
)
from ._vector import Gradient, Lottie, Path

Self = TypeVar("Self", bound="Canvas")


def _utf16(text: str) -> Any:
    """The UTF-16 units of a text."""
    units = text.encode("utf-16-le", "surrogatepass")
    return (ctypes.c_uint16 * (len(units) // 2)).from_buffer_copy(units)


def _points(record: Any, points: Sequence[Tuple[float, float]]) -> Any:
    return (record * len(points))(*(record(x, y) for x, y in points))


class Canvas(Surface):
    """A drawing target of 32-bit pixels, transparent black at first.

    Coordinates are logical pixels: device = logical + viewport origin - window origin. Drawing stays inside the clip.
    Where a function draws a bitmap, a texture or a fill, rectangles are whole pixels; vector shapes may have fractions.
    """

    _kind = "Canvas"
    _system = False

    def __init__(self, width: int, height: int, *, template: Optional[Canvas] = None, system: bool = False) -> None:
        """`width`, `height`: 1 to 32767 pixels. `template`: a canvas whose draw mode is taken over. `system`: a canvas
        in a DIB section, with a device context."""
        create = _c.CreateSystemCanvas if system else _c.CreateCanvas
        handle = done(create, width, height, 0 if template is None else template)
        self._handle = Handle(handle, _c.DeleteCanvas)
        self._system = system

    # ---- Other objects with the same pixels ----

    def bitmap(self) -> Bitmap:
        """A bitmap of the canvas's own pixels, for as long as the canvas is there."""
        return Bitmap._adopt(Handle(done(_c.GetBitmap, self), _c.ReleaseBitmap, self._own()))

    def texture(self) -> Texture:
        """A texture that shows what is drawn on the canvas, and keeps the pixels when the canvas is closed."""
        return Texture._adopt(Handle(done(_c.GetTexture, self), _c.ReleaseTexture))

    def to_bitmap(self) -> Bitmap:
        """Turns the canvas into a bitmap; the canvas is closed. Every alpha becomes 255 unless the canvas's draw mode
        is DrawMode.OVER."""
        return self._become(Bitmap, _c.CanvasToBitmap)

    def to_texture(self) -> Texture:
        """As `to_bitmap`."""
        return self._become(Texture, _c.CanvasToTexture)

    @property
    def device_context(self) -> int:
        """The HDC of a canvas that was made with `system=True`, owned by the canvas."""
        if not self._system:  # The pixels of another would move, away from the arrays that show them.
            raise LacquerError("only a canvas made with system=True has a device context")
        return int(done(_c.GetCanvasHandle, self))

    # ---- Coordinates and clip ----

    @property
    def bounds(self) -> Rect:
        """The whole canvas in logical coordinates."""
        viewport, window = self.viewport_origin, self.window_origin
        return Rect.sized(0, 0, *self.size).moved(window.x - viewport.x, window.y - viewport.y)

    @property
    def viewport_origin(self) -> Point:
        """The place, in device pixels, of the point that is the window origin; (0, 0) at first."""
        out = read(_c.GetViewportOrg, _c.POINT, self)
        return Point(out.x, out.y)

    @viewport_origin.setter
    def viewport_origin(self, point: Tuple[int, int]) -> None:
        x, y = point
        done(_c.SetViewportOrg, self, x, y, None)

    @property
    def window_origin(self) -> Point:
        """The logical point that lies at the viewport origin; (0, 0) at first."""
        out = read(_c.GetWindowOrg, _c.POINT, self)
        return Point(out.x, out.y)

    @window_origin.setter
    def window_origin(self, point: Tuple[int, int]) -> None:
        x, y = point
        done(_c.SetWindowOrg, self, x, y, None)

    @contextmanager
    def moved(self: Self, dx: int, dy: int) -> Iterator[Self]:
        """Lets what is drawn inside the `with` block appear further right and down."""
        before = self.viewport_origin
        self.viewport_origin = Point(before.x + dx, before.y + dy)
        try:
            yield self
        finally:
            self.viewport_origin = before

    @property
    def clip(self) -> Rect:
        """The bounding box of the clip. What is set is cut to the canvas; an empty rectangle lets nothing be drawn."""
        return rect_of(read(_c.GetCanvasClipRect, _c.RECT, self))

    @clip.setter
    def clip(self, rect: RectLike) -> None:
        done(_c.SetCanvasClipRect, self, c_rect(rect))

    @contextmanager
    def clipped(self: Self, rect: RectLike) -> Iterator[Self]:
        """Narrows the clip for a `with` block."""
        before, origin = self.clip, self.bounds
        done(_c.IntersectCanvasClipRect, self, c_rect(rect))
        try:
            yield self
        finally:
            now = self.bounds  # The origin may have moved since.
            self.clip = before.moved(now.left - origin.left, now.top - origin.top)

    @property
    def background_colour(self) -> int:
        """A colour that the canvas remembers and does nothing with."""
        return int(read(_c.GetCanvasBkColor, ctypes.c_uint32, self).value)

    @background_colour.setter
    def background_colour(self, colour: Colour) -> None:
        done(_c.SetCanvasBkColor, self, word(colour), None)

    # ---- Bitmaps and textures ----

    def draw_bitmap(
        self,
        bitmap: Bitmap,
        rect: RectLike,
        *,
        source: Optional[RectLike] = None,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
    ) -> None:
        """Draws a bitmap, or its rectangle `source`, into a rectangle, by the bitmap's draw mode. `alpha`: 0 to 255."""
        done(_c.DrawBitmapRectEx, self, c_rect(rect), bitmap, c_rect_or_null(source), sampler, alpha)

    def draw_texture(
        self,
        texture: Texture,
        rect: RectLike,
        *,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
        scale: float = 1.0,
        half_scale: bool = False,
    ) -> None:
        """Draws a texture's current slice into a rectangle, by the texture's draw mode and laid out as its mode says.
        `scale` acts on what the mode's scale flags name; `half_scale` halves a nine-grid's margins."""
        result = call(_c.DrawTextureEx, self, c_rect(rect), texture, sampler, alpha, scale, half_scale)
        if not result and texture.mode.layout not in (Layout.TILE, Layout.TOP_TILE):  # Those two always give 0.
            raise LacquerError("DrawTextureEx was refused")

    def draw_nine_grid(
        self,
        texture: Texture,
        rect: RectLike,
        margins: RectLike,
        *,
        source: Optional[RectLike] = None,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
        hollow: bool = False,
        scale_flags: int = 0,
        scale: float = 1.0,
        half_scale: bool = False,
    ) -> None:
        """Draws a rectangle of a texture (None: all) so that its corners keep their size. `margins`: left, top, right
        and bottom, source pixels. `scale_flags`: the margins (ScaleFlag) that `scale` resizes. `hollow`: the centre is
        filled with the colour of its middle pixel."""
        done(
            _c.DrawTexture9Grid,
            *(self, c_rect(rect), texture, c_rect_or_null(source), c_rect(margins)),
            *(sampler, hollow, alpha, scale_flags, scale, half_scale),
        )

    def draw_centred(
        self,
        texture: Texture,
        rect: RectLike,
        *,
        source: Optional[RectLike] = None,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
    ) -> None:
        """Scales a rectangle of a texture (None: all) into the middle of a rectangle, its aspect kept."""
        done(_c.DrawTextureCenter, self, c_rect(rect), texture, c_rect_or_null(source), sampler, alpha)

    def draw_tiled(
        self,
        texture: Texture,
        rect: RectLike,
        *,
        source: Optional[RectLike] = None,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
        scale: Optional[float] = None,
    ) -> None:
        """Repeats a rectangle of a texture (None: all) from the top left corner, at its own size or times `scale`."""
        flags, factor = (0, 1.0) if scale is None else (_c.LACQUER_SCALE_CELL, scale)
        read(_c.GetTextureMode, _c.TextureMode, texture)  # The draw itself does not tell whether it was refused.
        call(_c.DrawTextureTile, self, c_rect(rect), texture, c_rect_or_null(source), sampler, alpha, flags, factor)

    def draw_top_tiled(
        self,
        texture: Texture,
        rect: RectLike,
        margins: RectLike,
        *,
        source: Optional[RectLike] = None,
        sampler: int = Sampler.BILINEAR,
        alpha: int = 255,
    ) -> None:
        """Repeats a rectangle of a texture (None: all) from left to right; its rows above the top margin keep their
        height, those of the bottom margin are stretched over the rest."""
        rects = (c_rect(rect), texture, c_rect_or_null(source), c_rect(margins))
        read(_c.GetTextureMode, _c.TextureMode, texture)
        call(_c.DrawTextureTopTile, self, *rects, sampler, alpha)

    # ---- Fills, geometric rectangles, shadows ----

    def fill(
        self,
        colour: Colour,
        rect: Optional[RectLike] = None,
        *,
        mode: int = DrawMode.OVER,
        premultiplied: bool = False,
    ) -> None:
        """Fills a rectangle (None: the whole canvas) inside the clip, by a draw mode."""
        function = _c.FillPreMulColorRectEx if premultiplied else _c.FillSolidRectEx
        where = c_rect(self.bounds if rect is None else rect)
        done(function, self, word(colour), where, whole(mode, ctypes.c_uint8) << 24)

    def fill_gradient(self, start: Colour, end: Colour, rect: RectLike, *, horizontal: bool = False) -> None:
        """Fills with a gradient from top to bottom, or from left to right."""
        done(_c.FillGradualRect, self, word(start), word(end), c_rect(rect), 2 if horizontal else 1)

    def geo_rectangle(
        self,
        rect: RectLike,
        *,
        fill: Colour = 0,
        border: Colour = 0,
        border_width: float = 1.0,
        radii: Union[float, Sequence[float]] = 0.0,
        mode: int = DrawMode.OVER,
    ) -> None:
        """A rectangle with smooth edges and, on request, round corners. Its coordinates may have fractions; the border
        lies inside its edge. Straight colours; alpha 0 leaves a part out. `radii`: pixels, one or four."""
        style = _c.GeoStyle(word(border), word(fill), border_width, four(radii))
        done(_c.GeoRoundRectEx, self, geo_rect(rect), style, whole(mode, ctypes.c_uint8) << 24)

    def focus_ring(
        self,
        rect: RectLike,
        colour: Colour,
        *,
        width: float = 1.0,
        radius: float = 0.0,
        dash: float = 1.0,
        gap: float = 1.0,
    ) -> None:
        """A border of dashes that close, inside the rectangle's edge; all lengths are pixels."""
        done(_c.GeoRectFocusEx, self, geo_rect(rect), word(colour), width, radius, dash, gap)

    def draw_shadows(self, rect: RectLike, *shadows: Shadow) -> None:
        """Draws shadows of a rectangle, the first one on top."""
        records = (_c.ShadowStyle * len(shadows))(*(shadow._record() for shadow in shadows))
        done(_c.DrawShadows, self, c_rect(rect), records, len(shadows))

    # ---- Canvases ----

    def mix(
        self, source: Canvas, value: int, *, rect: Optional[RectLike] = None, source_rect: Optional[RectLike] = None
    ) -> None:
        """Mixes in another canvas's pixels, alpha included: `value` 0 does nothing, 255 replaces. The clip plays no
        part."""
        done(_c.MixCanvas, self, c_rect_or_null(rect), source, c_rect_or_null(source_rect), value)

    def mix_colour(self, colour: Colour, value: int, *, rect: Optional[RectLike] = None) -> None:
        """Takes `value` 255ths of every channel away and adds the colour, whose channels carry their weight already."""
        done(_c.MixCanvasWithColor, self, c_rect_or_null(rect), word(colour), whole(value, ctypes.c_uint8))

    def blend(
        self,
        source: Canvas,
        *,
        rect: Optional[RectLike] = None,
        source_rect: Optional[RectLike] = None,
        alpha: int = 255,
    ) -> None:
        """Draws a rectangle of another canvas (None: all) into a rectangle (None: the whole canvas), inside the clip:
        over what is there when the source's draw mode is DrawMode.OVER, else as an opaque picture."""
        dest_rect = self.bounds if rect is None else rect
        from_rect = source.bounds if source_rect is None else source_rect
        done(_c.BlendCanvas, self, c_rect(dest_rect), source, c_rect(from_rect), alpha)

    def scroll(self, dy: int) -> None:
        """Moves the rows down by `dy` pixels; those that are left behind keep their pixels."""
        done(_c.CanvasScroll, self, 0, dy)

    def draw_mask(self, mask: Bitmap, x: int, y: int, colour: Colour, *, source: Optional[RectLike] = None) -> None:
        """Paints a colour through a 32-bit mask with its top left corner at (x, y). With an opaque colour blue, green
        and red of the mask are coverages; a translucent one, premultiplied, is scaled by the mask's bytes."""
        done(_c.DrawModulation, self, x, y, mask, c_rect_or_null(source), word(colour))

    def gaussian_blur(self, rect: Optional[RectLike] = None) -> None:
        """Blurs a rectangle (None: all): seven bell-shaped weights in each direction, applied twice."""
        with self.lock(rect) as locked, Canvas(locked.width, locked.height) as scratch:
            done(_c.GaussianBlurCanvas, self, c_rect_or_null(rect), scratch, None)

    # ---- Vector state ----

    @contextmanager
    def saved(self: Self) -> Iterator[Self]:
        """Goes back to the present vector state (what the functions of this section set) after a `with` block."""
        done(_c.Save, self)
        try:
            yield self
        finally:
            done(_c.Restore, self)

    def set_style(self, style: int) -> None:
        """How shapes and paths are drawn: a value of Style, at first Style.FILL."""
        done(_c.SetDrawStyle, self, style)

    def set_colour(self, colour: Colour) -> None:
        """The straight colour of shapes, lines and text; opaque black at first."""
        done(_c.SetColor, self, word(colour))

    def set_gradient(self, gradient: Gradient) -> None:
        """The gradient of the gradient styles. It may be closed right afterwards."""
        done(_c.SetGradient, self, gradient)

    def set_smooth(self, smooth: bool) -> None:
        """Anti-aliasing; on at first."""
        done(_c.SetSmooth, self, bool(smooth))

    @property
    def blend_mode(self) -> Blend:
        """How shapes meet what is there."""
        self._own()
        return Blend(call(_c.GetBlendMode, self))

    @blend_mode.setter
    def blend_mode(self, mode: int) -> None:
        done(_c.SetBlendMode, self, mode)

    @property
    def blend_value(self) -> int:
        """The opacity of shapes, lines and text, 0 to 255."""
        return int(call(_c.GetBlendValue, self))

    @blend_value.setter
    def blend_value(self, value: int) -> None:
        done(_c.SetBlendValue, self, value)

    @property
    def stroke_width(self) -> float:
        """Pixels, 0 to 32767; 1 at first."""
        return float(call(_c.GetStrokeWidth, self))

    @stroke_width.setter
    def stroke_width(self, width: float) -> None:
        done(_c.SetStrokeWidth, self, width)

    def set_stroke_cap(self, cap: int) -> None:
        """The ends of open strokes and of dashes: a value of Cap, at first Cap.BUTT."""
        done(_c.SetStrokeCap, self, cap)

    def set_stroke_join(self, join: int) -> None:
        """The corners of strokes: a value of Join, at first Join.MITER."""
        done(_c.SetStrokeJoin, self, join)

    def set_dash(self, dash: Union[int, Sequence[float]], *, offset: float = 0.0) -> None:
        """A value of Dash, or the lengths on and off in turn, in pixels, and how far into them a stroke begins."""
        if isinstance(dash, Sequence):
            done(_c.SetDashPattern, self, (ctypes.c_float * len(dash))(*dash), len(dash), offset)
            dash = Dash.PATTERN
        done(_c.SetDashStyle, self, dash)

    def set_font(self, family: str = "", *, size: Optional[float] = None, style: Optional[int] = None) -> None:
        """A font family, "sans-serif", "serif", "monospace", or "" for the font of the system's user interface; the
        size of the em square, pixels; and bits of FontStyle. None leaves size and style as they are."""
        if "\0" in family:
            raise ValueError("the name of a family has no zeros")
        done(_c.SetFontFaceName, self, _utf16(family + "\0"))
        if size is not None:
            done(_c.SetTextSize, self, size)
        if style is not None:
            done(_c.SetFontStyle, self, style)

    # ---- Vector shapes ----

    def draw_point(self, x: float, y: float) -> None:
        """A dot as wide as the stroke."""
        done(_c.DrawPoint, self, x, y)

    def draw_line(self, x0: float, y0: float, x1: float, y1: float) -> None:
        """A line between two points, stroked in every style."""
        done(_c.DrawLine, self, x0, y0, x1, y1)

    def draw_rectangle(self, x: float, y: float, width: float, height: float) -> None:
        """A rectangle by its top left corner and its size, which is not negative."""
        done(_c.DrawRectangle, self, x, y, width, height)

    def draw_round_rect(
        self, x: float, y: float, width: float, height: float, radius_x: float, radius_y: Optional[float] = None
    ) -> None:
        """A rectangle whose corners are quarters of ellipses; `radius_y` None is `radius_x`."""
        done(_c.DrawRoundRect, self, x, y, width, height, radius_x, radius_x if radius_y is None else radius_y)

    def draw_circle(self, x: float, y: float, radius: float) -> None:
        """A circle around (x, y)."""
        done(_c.DrawCircle, self, x, y, radius)

    def draw_ellipse(self, x: float, y: float, radius_x: float, radius_y: float) -> None:
        """An ellipse around (x, y)."""
        done(_c.DrawEllipse, self, x, y, radius_x, radius_y)

    def draw_arc(
        self, x: float, y: float, width: float, height: float, start: float, sweep: float, *, pie: bool = False
    ) -> None:
        """Part of the ellipse in a rectangle, open or as a pie; degrees, clockwise from the positive x axis."""
        done(_c.DrawArc, self, x, y, width, height, start, sweep, bool(pie))

    def draw_polygon(self, points: Sequence[Tuple[int, int]]) -> None:
        """A closed polygon of at least one point at whole pixels."""
        numbers = [wholes(point, ctypes.c_int32) for point in points]
        done(_c.DrawPolygon, self, len(numbers), _points(_c.POINT, numbers))

    def draw_colour(self, colour: Colour) -> None:
        """Colours everything inside the clip, by the blend mode and value."""
        done(_c.DrawColor, self, word(colour))

    def draw_bezier(
        self, x0: float, y0: float, x1: float, y1: float, x2: float, y2: float, x3: float, y3: float
    ) -> None:
        """The cubic curve from (x0, y0) to (x3, y3)."""
        done(_c.DrawBezier, self, x0, y0, x1, y1, x2, y2, x3, y3)

    def draw_path(self, path: Path) -> None:
        """A path by the style; filled, it encloses what its fill type says."""
        done(_c.DrawPath, self, path)

    def draw_lottie(self, lottie: Lottie, frame: float, x: float, y: float, width: float, height: float) -> None:
        """One frame of an animation, stretched to a rectangle."""
        done(_c.DrawLottie, self, lottie, frame, x, y, width, height)

    # ---- Text ----

    def draw_text(self, text: str, x: float, y: float) -> None:
        """A line of text with the origin of its baseline at (x, y), in the colour or the gradient of the style."""
        units = _utf16(text)
        done(_c.DrawTextRun, self, units, len(units), x, y)

    def measure_text(self, text: str) -> TextExtent:
        """How large `draw_text` would draw a text."""
        units, out = _utf16(text), _c.velTextExtent()
        done(_c.MeasureTextRun, self, units, len(units), out)
        return TextExtent(out.advance, out.ascent, out.descent, out.lineHeight, rect_of(out.ink))

    def text_glyphs(self, text: str) -> Tuple[List[int], List[Point]]:
        """The glyphs of a text in the canvas's own font, and their places from the origin of the text."""
        units = _utf16(text)
        count = call(_c.GetTextGlyphs, self, units, len(units), None, None, 0)
        glyphs, places = (ctypes.c_uint16 * count)(), (_c.velPointF * count)()
        call(_c.GetTextGlyphs, self, units, len(units), glyphs, places, count)
        return list(glyphs), [Point(place.x, place.y) for place in places]

    def draw_glyphs(self, glyphs: Sequence[int], places: Sequence[Tuple[float, float]]) -> None:
        """Glyphs by the font's own numbers, each with the origin of its baseline."""
        if len(glyphs) != len(places):
            raise ValueError("there must be a place for each glyph")
        numbers = wholes(glyphs, ctypes.c_uint16)
        done(_c.DrawPosTextByGlyphs, self, numbers, len(numbers), _points(_c.velPointF, places))

    def font_metrics(self) -> FontMetrics:
        """Measures of the canvas's font at its size."""
        ascent, descent, line_height = ctypes.c_float(), ctypes.c_float(), ctypes.c_float()
        done(_c.GetFontMetrics, self, ascent, descent, line_height)
        return FontMetrics(ascent.value, descent.value, line_height.value)
