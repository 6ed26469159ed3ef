"""Paints a window from the pieces of a skin, with its buttons in every state, at two scales: skin.py [FILE.png]

The pieces are the pictures in examples/assets: sheets whose slices are the states of a control, drawn as nine-grids. Their
margins follow the scale, so that one sheet serves screens of every resolution; shadows, text and rings are drawn anew.
"""

import sys
from pathlib import Path

from lacquer import Canvas, Layout, Rect, ScaleFlag, Shadow, ShadowFlag, TextureMode, load_texture

ASSETS = Path(__file__).resolve().parents[2] / "examples" / "assets"
ALL_MARGINS = ScaleFlag.LEFT | ScaleFlag.TOP | ScaleFlag.RIGHT | ScaleFlag.BOTTOM
NORMAL, HOVER, PRESSED, DISABLED = range(4)
LIGHT, DARK, GREY = 0xFFF4EEDD, 0xFF2A2420, 0xFF6F6866
SIZE = (520, 328)


def piece(name, states=(1, 1), margins=None, layout=Layout.NINE_GRID):
    """A picture of the skin with a slice for each state, in columns and rows."""
    texture = load_texture(ASSETS / f"{name}.png")
    columns, rows = states
    width, height = texture.width // columns, texture.height // rows
    texture.set_slices(
        Rect.sized(x * width, y * height, width, height) for y in range(rows) for x in range(columns)
    )
    if margins:
        texture.mode = TextureMode(layout, margins, ALL_MARGINS)
    return texture


class Page:
    """Draws on a canvas by lengths at 96 DPI, times a scale."""

    def __init__(self, canvas, scale):
        self.canvas, self.scale = canvas, scale

    def px(self, rect):
        return Rect(*(round(side * self.scale) for side in rect))

    def draw(self, texture, rect, state=0):
        texture.select_slice(state)
        self.canvas.draw_texture(texture, self.px(rect), scale=self.scale)

    def shadows(self, rect, *shadows):
        """Shadows of a colour, their way down, their blur, the radius of the corners, and flags."""
        s = self.scale
        self.canvas.draw_shadows(
            self.px(rect),
            *(
                Shadow(colour, offset=(0, round(down * s)), blur=blur * s, radii=radius * s, flags=flags)
                for colour, down, blur, radius, flags in shadows
            ),
        )

    def text(self, text, x, y, colour=DARK):
        self.canvas.set_colour(colour)
        self.canvas.draw_text(text, x * self.scale, round(y * self.scale))

    def label(self, text, rect, colour):
        """Text in the middle of a rectangle, on whole rows."""
        extent = self.canvas.measure_text(text)
        x = (rect.left + rect.right - extent.advance / self.scale) / 2
        self.text(text, x, (rect.top + rect.bottom + (extent.ascent - extent.descent) / self.scale) / 2, colour)

    def focus_ring(self, rect):
        self.canvas.focus_ring(self.px(rect), 0xC0FFFFFF, width=round(self.scale), radius=3 * self.scale)


def paint(canvas, scale=1):
    frame = piece("frame", margins=(10, 36, 10, 10))
    caption = piece("caption", states=(3, 2))
    button = piece("button", states=(1, 4), margins=(18, 18, 18, 18))
    field = piece("field", margins=(6, 8, 6, 6), layout=Layout.HOLLOW_NINE_GRID)
    check = piece("check", states=(3, 1))
    progress = piece("progress", states=(2, 1), margins=(9, 8, 9, 8))

    page = Page(canvas, scale)
    window = Rect.sized(32, 28, 456, 264)
    page.shadows(window, (0x70000000, 8, 24, 8, 0), (0x50000000, 1, 6, 8, 0))
    page.draw(frame, window)
    canvas.set_font("sans-serif", size=14 * scale)
    page.label("Skin", Rect.sized(window.left, window.top + 2, window.width, 30), LIGHT)
    page.draw(caption, Rect.sized(window.right - 66, window.top + 6, 28, 20), 0)
    page.draw(caption, Rect.sized(window.right - 36, window.top + 6, 28, 20), 4)

    name = Rect.sized(60, 76, 400, 32)
    page.draw(field, name)
    page.shadows(name.inset(1), (0x40000000, 2, 5, 0, ShadowFlag.INNER))
    page.text("A field with a text that is shaped", name.left + 10, name.top + 21)

    for row, text in enumerate(("Not chosen", "Chosen")):
        line = Rect.sized(60, 122 + 30 * row, 24, 24)
        page.draw(check, line, row)
        page.text(text, line.right + 8, line.top + 17)

    bar = Rect.sized(240, 138, 220, 18)
    page.draw(progress, bar, 0)
    page.draw(progress, bar._replace(right=bar.left + 140), 1)

    for state, text in enumerate(("Normal", "Hover", "Pressed", "Disabled")):
        rect = Rect.sized(46 + 106 * state, 212, 108, 48)
        page.draw(button, rect, state)
        below = 1 if state == PRESSED else 0
        page.label(text, rect.moved(0, below - 1), GREY if state == DISABLED else LIGHT)
        if state == HOVER:
            page.focus_ring(rect.inset(11))


def main(path="skin.png", scales=(1, 1.5)):
    """All scales side by side in one file."""
    width, height = SIZE
    with Canvas(round(width * sum(scales)), round(height * max(scales))) as canvas:
        canvas.fill_gradient(0xFF6C7A94, 0xFF39415A, canvas.bounds)
        left = 0
        for scale in scales:
            with canvas.moved(left, 0):
                paint(canvas, scale)
            left += round(width * scale)
        canvas.save(path)


if __name__ == "__main__":
    main(*sys.argv[1:])
