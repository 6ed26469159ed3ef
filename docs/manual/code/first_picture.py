"""The same picture as first_picture.c, with NumPy for the pixels."""
import numpy
from lacquer import Canvas, DrawMode, Texture

with Canvas(160, 96) as canvas, Texture(64, 64) as disc:
    canvas.fill(0xFFF4EEDD)
    with disc.pixels() as pixels:  # bytes blue, green, red, alpha
        y, x = numpy.ogrid[-32:32, -32:32]
        pixels[:] = numpy.where((x * x + y * y < 31 * 31)[..., None], (0x1E, 0x1E, 0x96, 0xC0), 0)
    disc.draw_mode = DrawMode.OVER
    canvas.draw_texture(disc, (48, 16, 112, 80))
    canvas.save("first_picture.png")
