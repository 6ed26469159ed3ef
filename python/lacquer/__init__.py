"""Lacquer: a 2D software raster library for user interfaces that paint their own windows.

Canvases are drawn on; textures and bitmaps are drawn; paths, gradients and animations are what vector drawing takes.
All of them are given back by `close`, at the end of a `with` block, or with their last reference. A call that the
library refuses raises LacquerError; arguments of wrong types and numbers that are too large raise TypeError, ValueError
or OverflowError. `lacquer._c` has the C interface as it is.
"""

from ._canvas import Canvas
from ._enums import (
    Blend,
    Cap,
    Dash,
    DrawMode,
    FillType,
    FontStyle,
    ImageFormat,
    Join,
    Layout,
    LoadFlag,
    PngFlag,
    Sampler,
    ScaleFlag,
    ShadowFlag,
    Style,
    Turn,
)
from ._files import ImageInfo, encode_png, image_info, load_bitmap, load_texture
from ._image import Bitmap, Texture, TextureMode
from ._interface import VERSION as __version__
from ._object import LacquerError
from ._surface import LockedPixels
from ._values import (
    Colour,
    FontMetrics,
    Point,
    Rect,
    Shadow,
    Size,
    TextExtent,
    ahsl_to_argb,
    argb_to_ahsl,
    colorize,
    colorize_ahsl,
    set_sharp_bicubic,
    sharp_bicubic,
)
from ._vector import Gradient, Lottie, Path

__all__ = [
    "Bitmap",
    "Blend",
    "Canvas",
    "Cap",
    "Colour",
    "Dash",
    "DrawMode",
    "FillType",
    "FontMetrics",
    "FontStyle",
    "Gradient",
    "ImageFormat",
    "ImageInfo",
    "Join",
    "LacquerError",
    "Layout",
    "LoadFlag",
    "LockedPixels",
    "Lottie",
    "Path",
    "PngFlag",
    "Point",
    "Rect",
    "Sampler",
    "ScaleFlag",
    "Shadow",
    "ShadowFlag",
    "Size",
    "Style",
    "TextExtent",
    "Texture",
    "TextureMode",
    "Turn",
    "__version__",
    "ahsl_to_argb",
    "argb_to_ahsl",
    "colorize",
    "colorize_ahsl",
    "encode_png",
    "image_info",
    "load_bitmap",
    "load_texture",
    "set_sharp_bicubic",
    "sharp_bicubic",
]
