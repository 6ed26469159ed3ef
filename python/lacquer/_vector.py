"""What is drawn by `Canvas`: paths, gradients and animations."""

from __future__ import annotations

import os
from typing import Any, Iterable, Tuple, Union

from . import _c
from ._enums import FillType
from ._object import Handle, Owner, done, read
from ._values import Colour, Rect, Size, rect_of, word


class Path(Owner):
    """Figures of lines and curves, in logical pixels; angles are degrees, clockwise from the positive x axis.

    The functions give the path itself, so that calls can be chained.
    """

    def __init__(self, *, fill_type: int = FillType.WINDING) -> None:
        """An empty path. `fill_type`: a value of FillType."""
        self._handle = Handle(done(_c.PathCreate), _c.PathDestroy)
        self.set_fill_type(fill_type)

    def clear(self) -> Path:
        """Empties the path; the fill type stays."""
        done(_c.PathBegin, self)
        return self

    def close_figure(self) -> Path:
        """Draws a line back to where the figure began."""
        done(_c.PathClose, self)
        return self

    def set_fill_type(self, fill_type: int) -> Path:
        """Which points the path encloses: a value of FillType."""
        done(_c.PathSetFillType, self, fill_type)
        return self

    def move_to(self, x: float, y: float) -> Path:
        """Begins a figure at a point."""
        done(_c.PathMoveTo, self, x, y)
        return self

    def line_to(self, x: float, y: float) -> Path:
        """A line from the present point to (x, y)."""
        done(_c.PathLineTo, self, x, y)
        return self

    def arc_to(
        self, x: float, y: float, width: float, height: float, start: float, sweep: float, *, new_figure: bool = False
    ) -> Path:
        """Part of the ellipse in a rectangle, with a line to where it begins unless it is a new figure."""
        done(_c.PathArcTo, self, x, y, width, height, start, sweep, new_figure)
        return self

    def oval_to(
        self,
        radius_x: float,
        radius_y: float,
        x: float,
        y: float,
        *,
        rotation: float = 0.0,
        large: bool = False,
        clockwise: bool = True,
    ) -> Path:
        """The elliptical arc of SVG path data to (x, y)."""
        done(_c.PathOvalCurveTo, self, radius_x, radius_y, rotation, large, clockwise, x, y)
        return self

    def bezier_to(self, x1: float, y1: float, x2: float, y2: float, x3: float, y3: float) -> Path:
        """A cubic curve with two control points to (x3, y3)."""
        done(_c.PathBezierCurveTo, self, x1, y1, x2, y2, x3, y3)
        return self

    def quadratic_to(self, x1: float, y1: float, x2: float, y2: float) -> Path:
        """A quadratic curve with one control point to (x2, y2)."""
        done(_c.PathQuadraticCurveTo, self, x1, y1, x2, y2)
        return self

    def add_arc(self, x: float, y: float, width: float, height: float, start: float, sweep: float) -> Path:
        """An open arc as a figure of its own."""
        done(_c.PathAddArc, self, x, y, width, height, start, sweep)
        return self

    def add_rectangle(self, x: float, y: float, width: float, height: float) -> Path:
        """A rectangle as a figure of its own."""
        done(_c.PathAddRectangle, self, x, y, width, height)
        return self

    def add_circle(self, x: float, y: float, radius: float) -> Path:
        """A circle around (x, y) as a figure of its own."""
        done(_c.PathAddCircle, self, x, y, radius)
        return self

    def add_ellipse(self, x: float, y: float, radius_x: float, radius_y: float) -> Path:
        """An ellipse around (x, y) as a figure of its own."""
        done(_c.PathAddEllipse, self, x, y, radius_x, radius_y)
        return self

    @property
    def bounds(self) -> Rect:
        """The smallest rectangle around all lines and curves; all 0 for an empty path."""
        return rect_of(read(_c.PathGetBounds, _c.velRectF, self))


Stops = Iterable[Tuple[float, Colour]]


class Gradient(Owner):
    """Straight colours along a line or outwards from a point, in logical pixels: (offset 0 to 1, colour) each."""

    @classmethod
    def linear(cls, x0: float, y0: float, x1: float, y1: float, stops: Stops = ()) -> Gradient:
        """From (x0, y0), offset 0, to (x1, y1), offset 1."""
        return cls._adopt(Handle(done(_c.GradientCreateLinear, x0, y0, x1, y1), _c.GradientDestroy))._with(stops)

    @classmethod
    def radial(cls, x: float, y: float, radius: float, stops: Stops = ()) -> Gradient:
        """From (x, y), offset 0, to a circle, offset 1; the radius is positive."""
        return cls._adopt(Handle(done(_c.GradientCreateRadial, x, y, radius), _c.GradientDestroy))._with(stops)

    def _with(self, stops: Stops) -> Gradient:
        for offset, colour in stops:
            self.add_stop(offset, colour)
        return self

    def add_stop(self, offset: float, colour: Colour) -> Gradient:
        """Two stops at one place, in the order in which they came, are a sharp edge."""
        done(_c.GradientAddColorStop, self, offset, word(colour))
        return self


class Lottie(Owner):
    """An animation. A library that was built without animations refuses all of them."""

    @classmethod
    def from_data(cls, json: Union[str, bytes]) -> Lottie:
        """An animation from the text of a Lottie file."""
        data = json.encode() if isinstance(json, str) else bytes(memoryview(json))
        return cls._adopt(Handle(done(_c.velLottieCreateFromData, data, len(data)), _c.velLottieDestroy))

    @classmethod
    def from_file(cls, path: Union[str, os.PathLike[str]]) -> Lottie:
        """An animation from a Lottie file."""
        with open(path, "rb") as file:
            return cls.from_data(file.read())

    def _info(self) -> Any:
        return read(_c.velLottieGetInfo, _c.velLottieInfo, self)

    @property
    def size(self) -> Size:
        """The animation's own size, pixels."""
        info = self._info()
        return Size(info.width, info.height)

    @property
    def frame_count(self) -> float:
        """How many frames there are, at least 1."""
        return float(self._info().frameCount)

    @property
    def frame_rate(self) -> float:
        """Frames per second."""
        return float(self._info().frameRate)
