"""Paints a window from the pieces of a skin, with its buttons in every state, and saves it: skin.py [FILE.png]

The pieces are the pictures in examples/assets: sheets whose slices are the states of a control, drawn as nine-grids.
"""

import sys
from pathlib import Path

from lacquer import Canvas, Layout, Rect, Shadow, ShadowFlag, TextureMode, load_texture

ASSETS = Path(__file__).resolve().parents[2] / "examples" / "assets"
NORMAL, HOVER, PRESSED, DISABLED = range(4)
LIGHT, DARK, GREY = 0xFFF4EEDD, 0xFF2A2420, 0xFF8C8884


def piece(name, states=(1, 1), margins=None, layout=Layout.NINE_GRID):
    """A picture of the skin with a slice for each state, in columns and rows."""
    texture = load_texture(ASSETS / f"{name}.png")
    columns, rows = states
    width, height = texture.width // columns, texture.height // rows
    texture.set_slices(
        Rect.sized(x * width, y * height, width, height) for y in range(rows) for x in range(columns)
    )
    if margins:
        texture.mode = TextureMode(layout, margins)
    return texture


def draw(canvas, texture, rect, state=0):
    texture.select_slice(state)
    canvas.draw_texture(texture, rect)


def label(canvas, text, rect, colour):
    """Text in the middle of a rectangle, on whole rows."""
    extent = canvas.measure_text(text)
    canvas.set_colour(colour)
    x = (rect.left + rect.right - extent.advance) / 2
    canvas.draw_text(text, x, round((rect.top + rect.bottom + extent.ascent - extent.descent) / 2))


def paint(canvas):
    frame = piece("frame", margins=(10, 36, 10, 10))
    caption = piece("caption", states=(3, 2))
    button = piece("button", states=(1, 4), margins=(18, 18, 18, 18))
    field = piece("field", margins=(6, 8, 6, 6), layout=Layout.HOLLOW_NINE_GRID)
    check = piece("check", states=(3, 1))
    progress = piece("progress", states=(2, 1), margins=(9, 8, 9, 8))

    canvas.fill_gradient(0xFF6C7A94, 0xFF39415A, canvas.bounds)
    window = Rect.sized(32, 28, 456, 264)
    canvas.draw_shadows(
        window,
        Shadow(0x70000000, offset=(0, 8), blur=24, radii=8),
        Shadow(0x50000000, offset=(0, 1), blur=6, radii=8),
    )
    draw(canvas, frame, window)
    canvas.set_font("sans-serif", size=14)
    label(canvas, "Skin", Rect.sized(window.left, window.top + 2, window.width, 30), LIGHT)
    draw(canvas, caption, Rect.sized(window.right - 66, window.top + 6, 28, 20), 0)
    draw(canvas, caption, Rect.sized(window.right - 36, window.top + 6, 28, 20), 4)

    name = Rect.sized(60, 76, 400, 32)
    draw(canvas, field, name)
    canvas.draw_shadows(name.inset(1), Shadow(0x40000000, offset=(0, 2), blur=5, flags=ShadowFlag.INNER))
    canvas.set_colour(DARK)
    canvas.draw_text("A field with a text that is shaped", name.left + 10, name.top + 21)

    for row, text in enumerate(("Not chosen", "Chosen")):
        line = Rect.sized(60, 122 + 30 * row, 24, 24)
        draw(canvas, check, line, row)
        canvas.draw_text(text, line.right + 8, line.top + 17)

    bar = Rect.sized(240, 138, 220, 18)
    draw(canvas, progress, bar, 0)
    draw(canvas, progress, bar._replace(right=bar.left + 140), 1)

    for state, text in enumerate(("Normal", "Hover", "Pressed", "Disabled")):
        rect = Rect.sized(46 + 106 * state, 212, 108, 48)
        draw(canvas, button, rect, state)
        below = 1 if state == PRESSED else 0
        label(canvas, text, rect.moved(0, below - 1), GREY if state == DISABLED else LIGHT)
        if state == HOVER:
            canvas.focus_ring(rect.inset(11), 0xC0FFFFFF, radius=3)


def main(path="skin.png"):
    with Canvas(520, 328) as canvas:
        paint(canvas)
        canvas.save(path)


if __name__ == "__main__":
    main(*sys.argv[1:])
