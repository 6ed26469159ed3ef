#!/usr/bin/env python3
"""Draws the skin pieces and the animation of the examples. Alpha is straight, as image editors write it.

    draw_assets.py            writes the files beside this script
    draw_assets.py --check    only compares them with what would be written; 1 when one differs
"""

import functools
import math
import pathlib
import sys

import drop_animation
import film_animations
import png_writer

HERE = pathlib.Path(__file__).resolve().parent

# ---- Shapes: signed distances in pixels, negative inside -------------------------------------------------------------


def circle(x, y, cx, cy, radius):
    return math.hypot(x - cx, y - cy) - radius


def round_rect(x, y, left, top, right, bottom, radius):
    dx = abs(x - (left + right) / 2) - (right - left) / 2 + radius
    dy = abs(y - (top + bottom) / 2) - (bottom - top) / 2 + radius
    return math.hypot(max(dx, 0), max(dy, 0)) + min(max(dx, dy), 0) - radius


def segment(x, y, x0, y0, x1, y1, radius):
    length = (x1 - x0) ** 2 + (y1 - y0) ** 2
    t = min(max(((x - x0) * (x1 - x0) + (y - y0) * (y1 - y0)) / length, 0), 1)
    return math.hypot(x - x0 - t * (x1 - x0), y - y0 - t * (y1 - y0)) - radius


def cover(distance):
    """How much of a pixel an edge at this distance leaves covered."""
    return min(max(0.5 - distance, 0.0), 1.0)


def soft(distance, reach):
    """A shadow's strength at this distance from its caster."""
    t = min(max((reach - distance) / (2 * reach), 0.0), 1.0)
    return t * t * (3 - 2 * t)


# ---- Colours ---------------------------------------------------------------------------------------------------------


def rgb(word):
    return ((word >> 16 & 255) / 255, (word >> 8 & 255) / 255, (word & 255) / 255)


def blend(a, b, t):
    return tuple(p + (q - p) * t for p, q in zip(a, b))


def over(top, alpha, below):
    """A straight colour laid over a straight pixel (r, g, b, a)."""
    out = alpha + below[3] * (1 - alpha)
    if out <= 0:
        return (0.0, 0.0, 0.0, 0.0)
    share = alpha / out
    return tuple(below[i] + (top[i] - below[i]) * share for i in range(3)) + (out,)


def byte(value):
    return int(min(max(value, 0.0), 1.0) * 255 + 0.5)


CLEAR = (0.0, 0.0, 0.0, 0.0)
BLACK = (0.0, 0.0, 0.0)
WHITE = (1.0, 1.0, 1.0)


def rows_of(width, height, paint, channels):
    """Samples a painter at the pixel centres."""
    return [bytes(byte(v) for x in range(width) for v in paint(x + 0.5, y + 0.5)[:channels]) for y in range(height)]


def rgba_file(width, height, paint):
    return png_writer.encode(width, height, png_writer.RGBA, rows_of(width, height, paint, 4))


def rgb_file(width, height, paint):
    return png_writer.encode(width, height, png_writer.RGB, rows_of(width, height, paint, 3))


# ---- The pieces ------------------------------------------------------------------------------------------------------


def button(x, y):
    """Four states one below the other, 104 x 44 each: normal, hot, pressed, disabled."""
    state, y = int(y // 44), y % 44
    top, bottom, rim = (
        (rgb(0xF26A5A), rgb(0xA81E24), rgb(0x5E0C14)),
        (rgb(0xFF8B72), rgb(0xC9302F), rgb(0x6E1018)),
        (rgb(0x8E171E), rgb(0xB92B2E), rgb(0x4A0810)),
        (rgb(0xC9C2C0), rgb(0xA39B99), rgb(0x7E7775)),
    )[state]
    edge = round_rect(x, y, 6, 4, 98, 36, 9)
    drop = 0 if state == 2 else 2.5
    pixel = over(BLACK, 0.42 * soft(round_rect(x, y, 6, 4 + drop, 98, 36 + drop, 9), 5) * (state != 3), CLEAR)
    pixel = over(rim, cover(edge), pixel)
    face = blend(top, bottom, (y - 5) / 30)
    pixel = over(face, cover(edge + 1.2), pixel)
    if state != 2:
        gloss = round_rect(x, y, 8.5, 6, 95.5, 20, 7)
        pixel = over(WHITE, (0.42 - 0.022 * (y - 6)) * cover(gloss), pixel)
    else:
        pixel = over(BLACK, 0.30 * soft(-(edge + 1), 3), pixel) if edge < -1 else pixel
    return pixel


def frame(x, y):
    """A window frame, 64 x 64: a title bar of 32 pixels and borders of 6."""
    body = round_rect(x, y, 0, 0, 64, 64, 8)
    pixel = over(rgb(0x23262E), cover(body), CLEAR)
    bar = blend(rgb(0x5B6478), rgb(0x363C4A), min(max((y - 1) / 31, 0), 1))
    pixel = over(bar, cover(body + 1), pixel)
    pixel = over(WHITE, 0.30 * cover(abs(body + 1.5) - 0.5) * (y < 10), pixel)
    client = round_rect(x, y, 6, 32, 58, 58, 2)
    pixel = over(rgb(0x1C1F26), cover(client - 1), pixel)
    return over(rgb(0xF1EEE8), cover(client), pixel)


def shadow(x, y):
    """The shadow of a rectangle, 64 x 64; what casts it lies 20 pixels inside."""
    return over(BLACK, 0.50 * soft(round_rect(x, y, 21, 25, 43, 47, 8), 16), CLEAR)


def popup(x, y):
    """A menu that lies above a window, 32 x 32."""
    body = round_rect(x, y, 0, 0, 32, 32, 5)
    pixel = over(rgb(0x4A4F5C), cover(body), CLEAR)
    return over(blend(rgb(0xFFFFFF), rgb(0xE9EAEE), y / 32), cover(body + 1), pixel)


def field(x, y):
    """A sunken field, 32 x 32, plain in the middle."""
    body = round_rect(x, y, 0, 0, 32, 32, 4)
    pixel = over(rgb(0x8E8B84), cover(body), CLEAR)
    pixel = over(rgb(0xFBFAF7), cover(body + 1), pixel)
    inside = max(0.0, 1 - max(y - 1, 0) / 4) if body < -1 else 0.0
    return over(BLACK, 0.16 * inside * cover(body + 1), pixel)


def caption(x, y):
    """Buttons of a title bar, 28 x 20 each: minimise above close; normal, hot and pressed from left to right."""
    state, x, glyph, y = int(x // 28), x % 28, int(y // 20), y % 20
    body = round_rect(x, y, 1, 1, 27, 19, 4)
    if state == 0:
        pixel = over(WHITE, 0.07 * cover(body), CLEAR)
    else:
        bright, dark = ((rgb(0x8C98B4), rgb(0x626D88)), (rgb(0xF26A5A), rgb(0xB4232A)))[glyph]
        face = blend(bright, dark, y / 20) if state == 1 else blend(dark, bright, 0.25 * y / 20)
        pixel = over(BLACK, 0.5 * cover(body), CLEAR)
        pixel = over(face, cover(body + 1), pixel)
    if glyph == 0:
        sign = segment(x, y, 10, 13, 18, 13, 1.1)
    else:
        sign = min(segment(x, y, 10.5, 6.5, 17.5, 13.5, 1.1), segment(x, y, 10.5, 13.5, 17.5, 6.5, 1.1))
    return over(rgb(0xF4F6FA), (0.75 if state == 0 else 1) * cover(sign), pixel)


def progress(x, y):
    """A progress bar, 24 x 18 each: the track, and what fills it."""
    part, x = int(x // 24), x % 24
    body = round_rect(x, y, 0, 0, 24, 18, 6)
    if part == 0:
        pixel = over(rgb(0x8E8B84), cover(body), CLEAR)
        pixel = over(blend(rgb(0xC4C0B8), rgb(0xE6E3DC), y / 18), cover(body + 1), pixel)
        return pixel
    pixel = over(rgb(0x5E0C14), cover(body), CLEAR)
    pixel = over(blend(rgb(0xE2584C), rgb(0xA81E24), y / 18), cover(body + 1), pixel)
    return over(WHITE, 0.30 * cover(round_rect(x, y, 2, 2, 22, 8, 3)), pixel)


def stripes(x, y):
    """Slanted stripes, 16 x 14; left meets right."""
    phase = (x + y) % 16
    return over(WHITE, 0.22 * (cover(4 - phase) * cover(phase - 12)), CLEAR)


def scroll(x, y):
    """A scroll bar, 14 x 24 each: the track, and the thumb normal, hot and pressed."""
    part, x = int(x // 14), x % 14
    if part == 0:
        body = round_rect(x, y, 1, 0, 13, 24, 5)
        return over(BLACK, 0.13 * cover(body), CLEAR)
    bright, dark = ((0x9AA1B2, 0x737B8E), (0xC4636A, 0xA0343C), (0x9C2A32, 0x7E1A22))[part - 1]
    body = round_rect(x, y, 2, 1, 12, 23, 4.5)
    pixel = over(blend(rgb(dark), BLACK, 0.3), cover(body), CLEAR)
    return over(blend(rgb(bright), rgb(dark), (x - 2) / 10), cover(body + 1), pixel)


def waves(x, y):
    """Water, 48 x 40, to be drawn as a top-tile: left meets right in the waves of the top 24 rows, the rest is a
    gradient."""
    turn = 2 * math.pi / 48
    pixel = CLEAR
    for depth, (crest, height, phase, colour) in enumerate(
        ((7.0, 3.0, 0.0, 0x7FB8D8), (11.5, 3.0, 2.4, 0x4C8CBC), (16.0, 2.5, 4.2, 0x2F659C))
    ):
        edge = crest + height * math.sin(x * turn * (1 + depth % 2) + phase) - y
        pixel = over(blend(rgb(colour), WHITE, 0.6 * cover(abs(edge + 1) - 0.8)), cover(edge), pixel)
    return over(blend(rgb(0x2F659C), rgb(0x0E2748), (y - 22) / 18), cover(22.5 - y) if y < 24 else 1.0, pixel)


def card(x, y):
    """A plate with riveted corners, 72 x 72: the corners are 24 pixels, made for a screen of twice the pixels."""
    body = round_rect(x, y, 0, 0, 72, 72, 10)
    pixel = over(rgb(0x3A0A10), cover(body), CLEAR)
    pixel = over(blend(rgb(0xC2353A), rgb(0x7C1219), y / 72), cover(body + 2), pixel)
    pixel = over(rgb(0xE9C27A), cover(abs(body + 6) - 1), pixel)
    cx, cy = (12 if x < 36 else 60), (12 if y < 36 else 60)
    pixel = over(rgb(0x3A0A10), 0.6 * cover(circle(x, y, cx, cy + 1, 9)), pixel)
    brass = blend(rgb(0xFFF0C0), rgb(0xA8752C), min(math.hypot(x - cx + 3, y - cy + 3) / 11, 1))
    pixel = over(brass, cover(circle(x, y, cx, cy, 8)), pixel)
    return over(rgb(0x6A4718), 0.8 * cover(segment(x, y, cx - 3.5, cy + 3.5, cx + 3.5, cy - 3.5, 0.9)), pixel)


def splash(x, y):
    """A board from which lacquer drips, 264 x 168: every pixel is opaque or clear, so that it can shape a window."""
    drips = ((30, 128), (62, 108), (86, 142), (124, 112), (150, 156), (188, 118), (214, 136), (240, 108))
    body = round_rect(x, y, 8, 12, 256, 92, 30)
    for cx, bottom in drips:
        body = min(body, segment(x, y, cx, 60, cx, bottom, 8) - 0.0006 * max(y - 60, 0) ** 1.9)
    neck = min(abs(x - cx) for cx, _ in drips)
    if 60 < y < 104 and 20 < x < 250:
        body = min(body, (y - 104) + neck * 1.1 + 2)
    if body >= 0:
        return CLEAR
    pixel = over(rgb(0x4E0A12), 1.0, CLEAR)
    face = blend(rgb(0xE8503F), rgb(0x8E141C), min(max((y - 12) / 130, 0), 1))
    pixel = over(face, cover(body + 2), pixel)
    gloss = round_rect(x, y, 18, 17, 246, 46, 15)
    pixel = over(WHITE, (0.34 - 0.008 * (y - 17)) * cover(gloss), pixel)
    shine = min(segment(x, y, cx - 3, min(bottom - 8, 100), cx - 3, bottom - 2, 1.6) for cx, bottom in drips)
    return over(WHITE, 0.5 * cover(shine), pixel)


def check(x, y):
    """Three boxes side by side, 24 x 24 each: off, on, partly on."""
    state, x = int(x // 24), x % 24
    box = round_rect(x, y, 3, 3, 21, 21, 4)
    pixel = over(BLACK, 0.25 * soft(round_rect(x, y, 3, 4, 21, 22, 4), 2.5), CLEAR)
    pixel = over(rgb(0x6A6F7C), cover(box), pixel)
    pixel = over(blend(rgb(0xFFFFFF), rgb(0xDFE1E6), (y - 4) / 16), cover(box + 1.2), pixel)
    if state == 1:
        tick = min(segment(x, y, 7.0, 12.2, 10.6, 16.0, 1.5), segment(x, y, 10.6, 16.0, 17.4, 7.6, 1.5))
        pixel = over(rgb(0xB4232A), cover(tick), pixel)
    if state == 2:
        pixel = over(rgb(0xB4232A), cover(round_rect(x, y, 7, 10.4, 17, 13.6, 1.5)), pixel)
    return pixel


def drop_distance(x, y, cx, cy, radius):
    """A drop: a circle below, drawn out to a tip above it."""
    below = circle(x, y, cx, cy, radius)
    tip = cy - 2.3 * radius
    if y >= cy or y <= tip:
        return below if y >= cy else math.hypot(x - cx, y - tip)
    t = (y - tip) / (cy - tip)
    half = radius * math.sin(t * math.pi / 2) ** 1.6
    return max((abs(x - cx) - half) * 0.86, below) if t > 0.97 else (abs(x - cx) - half) * 0.86


def icon(x, y):
    """A drop of lacquer, 64 x 64, glossy, on a shadow of its own."""
    shadow = math.hypot((x - 32) / 19, (y - 56) / 5)
    pixel = over(BLACK, 0.5 * max(0.0, 1 - shadow) ** 0.7 if shadow < 1 else 0.0, CLEAR)
    edge = drop_distance(x, y, 32, 38, 17)
    pixel = over(rgb(0x4E0A12), cover(edge), pixel)
    depth = math.hypot((x - 27) / 24, (y - 34) / 30)
    face = blend(rgb(0xFF6A4E), rgb(0x9B141E), min(depth, 1) ** 1.3)
    pixel = over(face, cover(edge + 1.3), pixel)
    rim = soft(abs(math.hypot(x - 32, y - 38) - 13), 2) * max(0.0, (x - 32 + y - 38) / 30)
    pixel = over(rgb(0xFFB08A), 0.7 * rim * cover(edge + 2), pixel)
    shine = math.hypot((x - 25.5) * 0.86 + (y - 32) * 0.5, ((y - 32) * 0.86 - (x - 25.5) * 0.5) * 0.42)
    return over(WHITE, 0.85 * cover(shine - 2.6), pixel)


def photo(x, y):
    """An evening by a lake, 192 x 120, opaque."""
    horizon = 74
    ripple = 0.0
    if y > horizon:
        deep = (y - horizon) / (120 - horizon)
        ripple = math.sin(y * 1.9 + 3 * math.sin(x * 0.05)) * (0.5 + 2.5 * deep)
        mirrored = horizon - (y - horizon) * 1.35
        sx, sy = x + ripple * 1.5, max(mirrored + ripple, 0)
    else:
        sx, sy = x, y
    t = sy / horizon
    sky = blend(blend(rgb(0x1D2B5C), rgb(0xC65A6A), min(t * 1.5, 1)), rgb(0xFFD08A), max(t * 2.2 - 1.2, 0))
    sun = math.hypot(sx - 128, (sy - 56))
    sky = blend(sky, rgb(0xFFE9B8), 0.75 * math.exp(-((sun / 24) ** 2)))
    sky = blend(sky, rgb(0xFFF8E0), cover(sun - 8))
    cloud = math.sin(sx * 0.045 + 1.3) + math.sin(sx * 0.021 + sy * 0.30) + math.sin(sy * 0.55 + 2)
    sky = blend(sky, rgb(0xF3A08C), 0.35 * min(max(cloud - 0.9, 0), 1) * (1 - abs(t - 0.45)))
    far = 56 + 7 * math.sin(sx * 0.036 + 0.4) + 3 * math.sin(sx * 0.11)
    near = 66 + 8 * math.sin(sx * 0.022 + 3.6) + 1.6 * math.sin(sx * 0.16 + 1)
    sky = blend(sky, blend(rgb(0x8A5A78), rgb(0x5A4A74), (sy - 50) / 24), cover(far - sy))
    sky = blend(sky, rgb(0x2A2444), cover(near - sy))
    if y > horizon:
        sky = blend(sky, rgb(0x14203F), 0.30 + 0.30 * (y - horizon) / 46)
    return sky


def wood(x, y):
    """Planed wood, 64 x 64; left meets right and top meets bottom."""
    turn = 2 * math.pi / 64
    bend = 3.0 * math.sin(x * turn) + 1.5 * math.sin(2 * x * turn + 1)
    v = (y + bend) * turn
    ring = math.sin(5 * v) + 0.5 * math.sin(11 * v + 2 * math.sin(x * turn)) + 0.3 * math.sin(23 * v + 1)
    colour = blend(rgb(0x8A5A34), rgb(0xC08A55), 0.5 + 0.28 * ring)
    fibre = math.sin(x * turn * 9 + 17 * math.sin(y * turn * 7)) * math.sin(y * turn * 29)
    return blend(colour, rgb(0x5E3A1E), 0.16 * max(fibre, 0))


def knob_file():
    """A turning knob, 64 x 64, 8-bit: 60 shades, each at four strengths of alpha, and 8 words for the pointer."""
    shades, strengths = 60, (64, 128, 192, 255)
    palette = [(0, 0, 0, 0)]
    for alpha in strengths:
        for shade in range(shades):
            metal = blend(rgb(0x1A1D24), rgb(0x8791A6), min(shade / 40, 1))
            colour = blend(metal, rgb(0xF4F8FF), max(shade - 40, 0) / 19)
            palette.append(tuple(byte(c) for c in colour) + (alpha,))
    pointer = len(palette)
    for step in range(8):
        palette.append(tuple(byte(c) for c in blend(rgb(0x3A4150), rgb(0xFF7A50), (step + 1) / 8)) + (255,))

    def index(x, y):
        edge = circle(x, y, 32, 31, 26)
        if edge > 0.5:
            strength = 0.55 * soft(circle(x, y, 32, 34, 25), 5)
            level = int(strength * 4 + 0.5)
            return 0 if level == 0 else 1 + (level - 1) * shades
        angle = math.atan2(y - 31, x - 32)
        ribbed = 0.5 + 0.5 * math.cos(angle * 24)
        light = 0.5 - 0.5 * math.sin(angle + 0.9)
        if edge > -6:
            shade = 8 + 26 * light * (0.55 + 0.45 * ribbed)
        else:
            brushed = 0.5 + 0.5 * math.cos(2 * (angle + 0.8))
            shade = 20 + 32 * brushed ** 2 + 7 * light
            shade -= 14 * soft(-(edge + 6), 1.2)
        mark = segment(x, y, 37.6, 24.4, 44.6, 16.6, 2)
        if mark < 0.5 and edge < -6:
            return pointer + int(cover(mark) * 7.99)
        level = 3 if edge < -0.5 else min(int(cover(edge) * 4), 3)
        return 1 + level * shades + int(min(max(shade, 0), shades - 1))

    rows = [bytes(index(x + 0.5, y + 0.5) for x in range(64)) for y in range(64)]
    return png_writer.encode(64, 64, png_writer.PALETTE, rows, palette=palette)


def ladybird(x, y):
    """A hard-edged sprite, 64 x 64: what is not the ladybird is magenta with alpha 0."""
    key = (1.0, 0.0, 1.0, 0.0)
    pixel = key
    for side in (-1, 1):
        for leg in (-11, 1, 12):
            if segment(x, y, 32 + side * 14, 36 + leg, 32 + side * 27, 36 + leg * 1.5, 1.6) < 0:
                pixel = rgb(0x20181C) + (1.0,)
        if segment(x, y, 32 + side * 4, 12, 32 + side * 10, 4, 1.3) < 0 or circle(x, y, 32 + side * 10, 4, 2.4) < 0:
            pixel = rgb(0x20181C) + (1.0,)
    if circle(x, y, 32, 16, 10.5) < 0:
        pixel = rgb(0x20181C) + (1.0,)
    for side in (-1, 1):
        if circle(x, y, 32 + side * 5, 11.5, 2.2) < 0:
            pixel = rgb(0xFFFFFF) + (1.0,)
    shell = math.hypot((x - 32) / 21, (y - 37) / 22)
    if shell < 1:
        pixel = rgb(0x20181C) + (1.0,)
    if shell < 0.93:
        pixel = rgb(0xD8232A if math.hypot(x - 25, y - 29) > 13 else 0xF0564A) + (1.0,)
        dots = [(32 + side * dx, dy, r) for side in (-1, 1) for dx, dy, r in ((8, 27, 4), (12, 39, 4.6), (6, 50, 3.4))]
        if abs(x - 32) < 1 or any(circle(x, y, *dot) < 0 for dot in dots):
            pixel = rgb(0x20181C) + (1.0,)
    return pixel


def vignette_file():
    """Light falling off towards the corners, 64 x 64, 8-bit grey: made to multiply with."""

    def light(x, y):
        return (1.02 - 0.72 * min(math.hypot(x - 32, y - 32) / 42, 1) ** 1.6,)

    return png_writer.encode(64, 64, png_writer.GREY, rows_of(64, 64, light, 1))


def arc(x, y, cx, cy, radius, start, sweep):
    """The distance to an arc; angles in degrees, clockwise on screen."""
    angle = (math.degrees(math.atan2(y - cy, x - cx)) - start) % 360
    if angle <= sweep:
        return abs(math.hypot(x - cx, y - cy) - radius)
    ends = (math.radians(start), math.radians(start + sweep))
    return min(math.hypot(x - cx - radius * math.cos(a), y - cy - radius * math.sin(a)) for a in ends)


# The letters of a word as strokes: lines (x0, y0, x1, y1) and arcs (cx, cy, radius, start, sweep). The unit is the
# height of a capital, the baseline is at 1.
BOWL = (0.34, 0.66, 0.34, 0, 360)
STROKES = {
    "L": ((0, 0, 0, 1), (0, 1, 0.5, 1)),
    "a": (BOWL, (0.68, 0.32, 0.68, 1)),
    "c": ((0.34, 0.66, 0.34, 48, 264),),
    "q": (BOWL, (0.68, 0.32, 0.68, 1.34)),
    "u": ((0, 0.32, 0, 0.71), (0.29, 0.71, 0.29, 0, 180), (0.58, 0.32, 0.58, 1)),
    "e": ((0.34, 0.66, 0.34, 50, 310), (0, 0.66, 0.68, 0.66)),
    "r": ((0, 0.32, 0, 1), (0.30, 0.62, 0.30, 180, 105)),
}
ADVANCES = {"L": 0.74, "a": 0.96, "c": 0.82, "q": 0.98, "u": 0.88, "e": 0.94, "r": 0.5}
LETTERING_SIZES = (9, 12, 16, 24, 40)  # the heights of capitals, pixels


def lettering_file():
    """A word as coverages for sub-pixel text, at five sizes one below the other: red, green and blue are how much of
    the left, middle and right third of a pixel's surroundings is ink; alpha is the largest of the three."""
    width, rows = 232, []
    for size in LETTERING_SIZES:
        half = max(0.055 * size, 0.5)

        def distance(x, y):
            x, y, best = (x - 3) / size, (y - 2) / size, 9.0
            for letter in "Lacquer":
                if -0.3 < x < 1.1:
                    for stroke in STROKES[letter]:
                        best = min(best, arc(x, y, *stroke) if len(stroke) == 5 else segment(x, y, *stroke, 0))
                x -= ADVANCES[letter]
            return best * size - half

        for y in range(size * 3 // 2 + 2):
            row = bytearray()
            for x in range(width):
                red, green, blue = (byte(cover(distance(x + 0.5 + third / 3, y + 0.5))) for third in (-1, 0, 1))
                row += bytes((red, green, blue, max(red, green, blue)))
            rows.append(bytes(row))
    return png_writer.encode(width, len(rows), png_writer.RGBA, rows)


def font_file():
    """The characters of glyphs.txt, 13 to a row in cells of 6 x 9, one bit per pixel: 0 is clear, 1 is ink."""
    lines = (HERE / "glyphs.txt").read_text().split("\n")
    rows = []
    for band in range(0, len(lines) - 9, 10):
        for line in lines[band + 1 : band + 10]:
            bits = "".join(cell + "." for cell in line.split(" ")).ljust(80, ".")
            rows.append(bytes(int(bits[i : i + 8].replace(".", "0").replace("#", "1"), 2) for i in range(0, 80, 8)))
    palette = [(0, 0, 0, 0), (255, 255, 255, 255)]
    return png_writer.encode(78, len(rows), png_writer.PALETTE, rows, bits=1, palette=palette)


PIECES = {
    "button.png": lambda: rgba_file(104, 176, button),
    "caption.png": lambda: rgba_file(84, 40, caption),
    "card.png": lambda: rgba_file(72, 72, card),
    "check.png": lambda: rgba_file(72, 24, check),
    "drop.json": drop_animation.encode,
    "field.png": lambda: rgba_file(32, 32, field),
    "font.png": font_file,
    "frame.png": lambda: rgba_file(64, 64, frame),
    "icon.png": lambda: rgba_file(64, 64, icon),
    "knob.png": knob_file,
    "ladybird.png": lambda: rgba_file(64, 64, ladybird),
    "lettering.png": lettering_file,
    "photo.png": lambda: rgb_file(192, 120, photo),
    "popup.png": lambda: rgba_file(32, 32, popup),
    "progress.png": lambda: rgba_file(48, 18, progress),
    "scroll.png": lambda: rgba_file(56, 24, scroll),
    "shadow.png": lambda: rgba_file(64, 64, shadow),
    "splash.png": lambda: rgba_file(264, 168, splash),
    "stripes.png": lambda: rgba_file(16, 14, stripes),
    "vignette.png": vignette_file,
    "waves.png": lambda: rgba_file(48, 40, waves),
    "wood.png": lambda: rgb_file(64, 64, wood),
    **{f"{name}.json": functools.partial(film_animations.encode, name, film)
       for name, film in film_animations.FILMS.items()},
}


def main():
    checking = sys.argv[1:] == ["--check"]
    if sys.argv[1:] and not checking:
        sys.exit("usage: draw_assets.py [--check]")
    differing = []
    for name, draw in PIECES.items():
        data = draw()
        path = HERE / name
        if not checking:
            path.write_bytes(data)
            print(f"{name}  {len(data)} bytes")
        elif not path.exists() or path.read_bytes() != data:
            differing.append(name)
    if differing:
        sys.exit("differs from what draw_assets.py draws: " + ", ".join(differing))


if __name__ == "__main__":
    main()
