"""The constants of the headers as enumerations; what they mean is said there."""

from enum import IntEnum, IntFlag

from . import _c


class DrawMode(IntEnum):
    """How a source s meets the destination d: LACQUER_DRAW_..."""

    COPY = _c.LACQUER_DRAW_COPY  # d = s
    OVER = _c.LACQUER_DRAW_OVER  # blended by the source's alpha
    COLOR_KEY = _c.LACQUER_DRAW_COLOR_KEY  # copied but for the key colour
    MODULATE = _c.LACQUER_DRAW_MODULATE  # multiplied
    OR = _c.LACQUER_DRAW_OR  # of fills
    GREY_TINT = _c.LACQUER_DRAW_GREY_TINT  # of fills
    BEHIND = _c.LACQUER_DRAW_BEHIND  # under what is there


class Sampler(IntEnum):
    """Where pixels come from when sizes differ: LACQUER_..., the kernel mode of a draw."""

    NEAREST = _c.LACQUER_NEAREST
    BILINEAR = _c.LACQUER_BILINEAR
    BICUBIC = _c.LACQUER_BICUBIC
    AREA = _c.LACQUER_AREA


class Layout(IntEnum):
    """How a texture fills a rectangle: LACQUER_LAYOUT_..."""

    STRETCH = _c.LACQUER_LAYOUT_STRETCH
    NINE_GRID = _c.LACQUER_LAYOUT_NINE_GRID
    TILE = _c.LACQUER_LAYOUT_TILE
    CENTER = _c.LACQUER_LAYOUT_CENTER
    HOLLOW_NINE_GRID = _c.LACQUER_LAYOUT_HOLLOW_NINE_GRID
    TOP_TILE = _c.LACQUER_LAYOUT_TOP_TILE


class ScaleFlag(IntFlag):
    """What follows the scale argument of a draw: LACQUER_SCALE_..."""

    LEFT = _c.LACQUER_SCALE_LEFT
    TOP = _c.LACQUER_SCALE_TOP
    RIGHT = _c.LACQUER_SCALE_RIGHT
    BOTTOM = _c.LACQUER_SCALE_BOTTOM
    CELL = _c.LACQUER_SCALE_CELL


class ShadowFlag(IntFlag):
    """Where a shadow falls; without a flag around the rectangle: LACQUER_SHADOW_..."""

    INNER = _c.LACQUER_SHADOW_INNER
    FILLED = _c.LACQUER_SHADOW_FILLED


class Turn(IntEnum):
    """How `transformed` turns or mirrors: LACQUER_..."""

    ROTATE_90 = _c.LACQUER_ROTATE_90  # clockwise
    ROTATE_180 = _c.LACQUER_ROTATE_180
    ROTATE_270 = _c.LACQUER_ROTATE_270
    FLIP_VERTICAL = _c.LACQUER_FLIP_VERTICAL
    FLIP_HORIZONTAL = _c.LACQUER_FLIP_HORIZONTAL
    TRANSPOSE = _c.LACQUER_TRANSPOSE
    TRANSVERSE = _c.LACQUER_TRANSVERSE


class Style(IntEnum):
    """How shapes and paths are drawn: VEL_STYLE_..."""

    STROKE = _c.VEL_STYLE_STROKE
    FILL = _c.VEL_STYLE_FILL
    GRADIENT_FILL = _c.VEL_STYLE_GRADIENT_FILL
    GRADIENT_STROKE = _c.VEL_STYLE_GRADIENT_STROKE


class Blend(IntEnum):
    """How shapes meet what is there: VEL_BLEND_..."""

    SOURCE_OVER = _c.VEL_BLEND_SOURCE_OVER
    SOURCE = _c.VEL_BLEND_SOURCE
    CLEAR = _c.VEL_BLEND_CLEAR
    DESTINATION_OVER = _c.VEL_BLEND_DESTINATION_OVER
    SOURCE_IN = _c.VEL_BLEND_SOURCE_IN
    DESTINATION_IN = _c.VEL_BLEND_DESTINATION_IN
    SOURCE_OUT = _c.VEL_BLEND_SOURCE_OUT
    DESTINATION_OUT = _c.VEL_BLEND_DESTINATION_OUT
    SOURCE_ATOP = _c.VEL_BLEND_SOURCE_ATOP
    DESTINATION_ATOP = _c.VEL_BLEND_DESTINATION_ATOP
    XOR = _c.VEL_BLEND_XOR
    PLUS = _c.VEL_BLEND_PLUS
    MULTIPLY = _c.VEL_BLEND_MULTIPLY
    SCREEN = _c.VEL_BLEND_SCREEN
    OVERLAY = _c.VEL_BLEND_OVERLAY
    DARKEN = _c.VEL_BLEND_DARKEN
    LIGHTEN = _c.VEL_BLEND_LIGHTEN
    COLOR_DODGE = _c.VEL_BLEND_COLOR_DODGE
    COLOR_BURN = _c.VEL_BLEND_COLOR_BURN
    HARD_LIGHT = _c.VEL_BLEND_HARD_LIGHT
    SOFT_LIGHT = _c.VEL_BLEND_SOFT_LIGHT
    DIFFERENCE = _c.VEL_BLEND_DIFFERENCE
    EXCLUSION = _c.VEL_BLEND_EXCLUSION


class Cap(IntEnum):
    """The ends of open strokes and of dashes: VEL_CAP_..."""

    BUTT = _c.VEL_CAP_BUTT
    ROUND = _c.VEL_CAP_ROUND
    SQUARE = _c.VEL_CAP_SQUARE


class Join(IntEnum):
    """The corners of strokes: VEL_JOIN_..."""

    MITER = _c.VEL_JOIN_MITER
    ROUND = _c.VEL_JOIN_ROUND
    BEVEL = _c.VEL_JOIN_BEVEL


class Dash(IntEnum):
    """How strokes are dashed, in multiples of the stroke width: VEL_DASH_..."""

    SOLID = _c.VEL_DASH_SOLID
    DASH = _c.VEL_DASH_DASH
    DOT = _c.VEL_DASH_DOT
    DASH_DOT = _c.VEL_DASH_DASH_DOT
    DASH_DOT_DOT = _c.VEL_DASH_DASH_DOT_DOT
    PATTERN = _c.VEL_DASH_PATTERN  # the lengths that were given last, in pixels


class FillType(IntEnum):
    """Which points a path encloses: VEL_FILL_..."""

    WINDING = _c.VEL_FILL_WINDING
    EVEN_ODD = _c.VEL_FILL_EVEN_ODD


class FontStyle(IntFlag):
    """Bits of a font style: VEL_FONT_..."""

    BOLD = _c.VEL_FONT_BOLD
    ITALIC = _c.VEL_FONT_ITALIC
    UNDERLINE = _c.VEL_FONT_UNDERLINE
    STRIKE_OUT = _c.VEL_FONT_STRIKE_OUT


class ImageFormat(IntEnum):
    """What a picture file is: LACQUER_IMAGE_..."""

    PNG = _c.LACQUER_IMAGE_PNG
    JPEG = _c.LACQUER_IMAGE_JPEG
    WEBP = _c.LACQUER_IMAGE_WEBP


class LoadFlag(IntFlag):
    """How pictures are loaded: LACQUER_IMAGE_..."""

    STRAIGHT = _c.LACQUER_IMAGE_STRAIGHT  # colours not multiplied by alpha, for a colour key
    KEEP_DEPTH = _c.LACQUER_IMAGE_KEEP_DEPTH  # 8, 24 or 32 bits per pixel
    KEEP_ORIENTATION = _c.LACQUER_IMAGE_KEEP_ORIENTATION  # not turned upright


class PngFlag(IntFlag):
    """How PNG is written: LACQUER_PNG_..."""

    OPAQUE = _c.LACQUER_PNG_OPAQUE  # without alpha


class ImageStatus(IntEnum):
    """What became of a call of the C interface to picture files: LACQUER_IMAGE_..."""

    DONE = _c.LACQUER_IMAGE_DONE
    BAD_ARGUMENT = _c.LACQUER_IMAGE_BAD_ARGUMENT
    BAD_FILE = _c.LACQUER_IMAGE_BAD_FILE
    BAD_FORMAT = _c.LACQUER_IMAGE_BAD_FORMAT
    UNSUPPORTED = _c.LACQUER_IMAGE_UNSUPPORTED
    DAMAGED = _c.LACQUER_IMAGE_DAMAGED
    TOO_LARGE = _c.LACQUER_IMAGE_TOO_LARGE
    NO_MEMORY = _c.LACQUER_IMAGE_NO_MEMORY
