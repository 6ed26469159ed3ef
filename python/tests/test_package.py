"""The package: pictures, conversions, lifetimes, and arguments from anywhere."""

import copy
import ctypes
import inspect
import os
import re
import runpy
import subprocess
import sys
import tempfile
import unittest
import zipfile
from contextlib import AbstractContextManager
from pathlib import Path as File

import lacquer
import numpy
from lacquer import _c
from lacquer import Bitmap, Canvas, DrawMode, Gradient, LacquerError, Lottie, Path, Rect, Texture
from PIL import Image

ROOT = File(__file__).resolve().parents[2]
ANIMATION = (ROOT / "examples/assets/drop.json").read_text()
BUTTON = ROOT / "examples/assets/button.png"
REFUSALS = (LacquerError, TypeError, ValueError, OverflowError, LookupError, AttributeError, MemoryError, OSError)


UNRAISED = []


def setUpModule():
    sys.unraisablehook = lambda fault: UNRAISED.append(repr(fault.exc_value))


def tearDownModule():
    assert not UNRAISED, UNRAISED[0]  # What went wrong while objects were given back.


def free_handles():
    """How many handles the library has left."""
    taken = []
    while handle := _c.e_NewHandleEntry(None, 0x10, 1):
        taken.append(handle)
    for handle in taken:
        _c.e_DelHandleEntry(None, handle)
    return len(taken)


class PictureTest(unittest.TestCase):
    def test_first_pictures_are_that_of_the_c_program(self):
        readme = re.search(r"```python\n(.*?)```", (ROOT / "python/README.md").read_text(), re.DOTALL).group(1)
        expected = Image.open(ROOT / "docs/manual/pictures/first_picture.png").convert("RGB")
        before = os.getcwd()
        for text in (readme, (ROOT / "docs/manual/code/first_picture.py").read_text()):
            with tempfile.TemporaryDirectory() as folder:
                os.chdir(folder)
                try:
                    exec(compile(text, "first_picture", "exec"), {})
                    self.assertEqual(Image.open("first_picture.png").convert("RGB").tobytes(), expected.tobytes())
                finally:
                    os.chdir(before)

    def test_skin_shows_a_button_in_each_state_at_each_scale(self):
        with tempfile.TemporaryDirectory() as folder:
            runpy.run_path(str(ROOT / "python/examples/skin.py"))["main"](f"{folder}/skin.png")
            with Image.open(f"{folder}/skin.png") as file:
                image = file.convert("RGB")
        for left, scale in (0, 1), (520, 1.5):
            part = image.crop((left, 0, left + round(520 * scale), round(328 * scale)))
            buttons = [(56 + 106 * state, 218, 140 + 106 * state, 224) for state in range(4)]
            pixels = {part.crop([round(side * scale) for side in button]).tobytes() for button in buttons}
            self.assertEqual(len(pixels), 4)
            # The frame's head, a margin, ends where the window's ground begins.
            above, below = (part.getpixel((round(100 * scale), round(y * scale))) for y in (57, 62))
            self.assertLess(max(above), 100)
            self.assertGreater(min(below), 200)

    def test_methods_paint_what_their_functions_paint(self):
        with Canvas(64, 64) as canvas, Canvas(64, 64) as other, Texture.from_image(Image.open(BUTTON)) as button:
            with Canvas(9, 9) as small, Bitmap.from_image(Image.open(BUTTON)) as mask, Path() as path:
                small.fill(0x80123456)
                c, t, m, s = other.handle, button.handle, mask.handle, small.handle
                box, part, edges = (3, 5, 50, 44), (2, 4, 90, 40), (18, 16, 14, 12)
                b, p, e = _c.RECT(*box), _c.RECT(*part), _c.RECT(*edges)
                floats, radii = _c.GeoRect(*box), (ctypes.c_float * 4)(1, 4, 9, 16)
                style, lights = _c.GeoStyle(0x90336699, 0x40010203, 2.5, radii), ctypes.c_float * 4
                dashes, shadow = (ctypes.c_float * 2)(5, 3), lacquer.Shadow((9, 8, 7, 99), (4, -3), 8, 2, 5, 1.5, 2)
                record = _c.ShadowStyle(0x63090807, 4, -3, 8, 2, lights(5, 5, 5, 5), 1.5, 2)
                glyphs, places = canvas.text_glyphs("Ag")
                numbers = (ctypes.c_uint16 * 2)(*glyphs)
                points = (_c.velPointF * 2)(*((x + 5, 30) for x, _ in places))
                path.move_to(9, 30).oval_to(20, 10, 50, 40, rotation=30, large=True, clockwise=False)
                curve = _c.PathCreate()
                _c.PathMoveTo(curve, 9, 30)
                _c.PathOvalCurveTo(curve, 20, 10, 30, 1, 0, 50, 40)
                steps = [
                    (lambda: canvas.fill((10, 20, 30, 40), mode=DrawMode.COPY),
                     lambda: _c.FillSolidRectEx(c, 0x280A141E, _c.RECT(0, 0, 64, 64), 0)),
                    (lambda: canvas.fill_gradient((1, 2, 3), 0x80FFEEDD, box, horizontal=True),
                     lambda: _c.FillGradualRect(c, 0xFF010203, 0x80FFEEDD, b, 2)),
                    (lambda: canvas.draw_nine_grid(button, box, edges, source=part, alpha=200, scale_flags=3, scale=0.5),
                     lambda: _c.DrawTexture9Grid(c, b, t, p, e, 1, 0, 200, 3, 0.5, 0)),
                    (lambda: canvas.draw_tiled(button, box, source=(20, 4, 29, 15), alpha=90, scale=1.5),
                     lambda: _c.DrawTextureTile(c, b, t, _c.RECT(20, 4, 29, 15), 1, 90, 16, 1.5)),
                    (lambda: canvas.draw_top_tiled(button, box, edges, source=part, sampler=0),
                     lambda: _c.DrawTextureTopTile(c, b, t, p, e, 0, 255)),
                    (lambda: canvas.draw_centred(button, box, source=part, alpha=77),
                     lambda: _c.DrawTextureCenter(c, b, t, p, 1, 77)),
                    (lambda: canvas.geo_rectangle(box, border=0x90336699, fill=(1, 2, 3, 64), border_width=2.5,
                                                  radii=(1, 4, 9, 16)),
                     lambda: _c.GeoRoundRectEx(c, floats, style, 1 << 24)),
                    (lambda: canvas.focus_ring(box, 0xFFFF8000, width=3, radius=7, dash=5, gap=2),
                     lambda: _c.GeoRectFocusEx(c, floats, 0xFFFF8000, 3, 7, 5, 2)),
                    (lambda: canvas.draw_shadows(box, shadow), lambda: _c.DrawShadows(c, b, record, 1)),
                    (lambda: canvas.draw_mask(mask, 4, 9, (250, 1, 2), source=part),
                     lambda: _c.DrawModulation(c, 4, 9, m, p, 0xFFFA0102)),
                    (lambda: canvas.blend(small, rect=box, alpha=99),
                     lambda: _c.BlendCanvas(c, b, s, _c.RECT(0, 0, 9, 9), 99)),
                    (lambda: canvas.mix(small, 50, rect=box, source_rect=(1, 2, 8, 9)),
                     lambda: _c.MixCanvas(c, b, s, _c.RECT(1, 2, 8, 9), 50)),
                    (lambda: canvas.set_style(lacquer.Style.STROKE), lambda: _c.SetDrawStyle(c, 0)),
                    (lambda: canvas.set_dash((5, 3), offset=2),
                     lambda: _c.SetDashPattern(c, dashes, 2, 2) and _c.SetDashStyle(c, 5)),
                    (lambda: canvas.draw_path(path), lambda: _c.DrawPath(c, curve)),
                    (lambda: canvas.draw_arc(8, 9, 40, 20, 30, 200, pie=True),
                     lambda: _c.DrawArc(c, 8, 9, 40, 20, 30, 200, 1)),
                    (lambda: canvas.draw_glyphs(glyphs, [(x + 5, 30) for x, _ in places]),
                     lambda: _c.DrawPosTextByGlyphs(c, numbers, 2, points)),
                ]  # fmt: skip
                for number, (method, function) in enumerate(steps):
                    before = canvas.to_image()
                    method(), function()
                    self.assertEqual(canvas.to_image(), other.to_image(), number)
                    self.assertEqual(canvas.to_image() == before, number in (12, 13), number)
                _c.PathDestroy(curve)
                with canvas.moved(5, 7), canvas.clipped((0, 0, 9, 9)):
                    canvas.viewport_origin = (1, 2)
                    canvas.fill(0xFFFFFFFF, mode=DrawMode.COPY)
                self.assertEqual(canvas.clip, (0, 0, 64, 64))
                inside = canvas.to_image().crop((5, 7, 14, 16))
                self.assertEqual(inside.getextrema(), ((255, 255),) * 4)

    def test_images_keep_their_colours_and_premultiply(self):
        image = Image.new("RGBA", (256, 2), (200, 100, 50))
        image.putalpha(Image.linear_gradient("L").rotate(90).resize((256, 2)))
        texture = Texture.from_image(image)
        self.assertEqual(texture.draw_mode, DrawMode.OVER)
        straight, alpha = numpy.array(image).astype(int), numpy.array(image)[..., 3:].astype(int)
        with texture.pixels() as pixels:
            expected = (straight[..., [2, 1, 0]] * alpha + 127) // 255
            self.assertLessEqual(abs(pixels[..., :3] - expected).max(), 1)
            self.assertTrue((pixels[..., 3:] == alpha).all())
        errors = abs(numpy.array(texture.to_image()).astype(int) - straight)[..., :3] * alpha
        self.assertLessEqual(errors.max(), 255)  # As close as premultiplied bytes can be.
        for mode in "RGB", "L", "P", "1":
            opaque = image.convert("RGB").convert(mode)
            texture = Texture.from_image(opaque)
            self.assertEqual(texture.draw_mode, DrawMode.COPY)
            self.assertEqual(texture.to_image().convert("RGB").tobytes(), opaque.convert("RGB").tobytes(), mode)

    def test_files_of_every_format(self):
        image = Image.new("RGBA", (33, 17), (200, 100, 50, 128))
        with tempfile.TemporaryDirectory() as folder:
            for kind, error in ("PNG", 0), ("WEBP", 0), ("JPEG", 2):
                path = File(folder, f"é.{kind}")
                (image.convert("RGB") if error else image).save(path, kind, lossless=True, quality=100)
                self.assertEqual(lacquer.image_info(path)[:3], (lacquer.ImageFormat[kind], 33, 17))
                with lacquer.load_texture(path) as texture, texture.pixels() as pixels:
                    self.assertEqual(texture.draw_mode, DrawMode.COPY if error else DrawMode.OVER)
                    expected = (50, 100, 200, 255) if error else (25, 50, 100, 128)
                    self.assertLessEqual(abs(pixels.astype(int) - expected).max(), error)
                    texture.save(path)
                    with lacquer.load_bitmap(path.read_bytes(), lacquer.LoadFlag.KEEP_DEPTH) as bitmap:
                        self.assertEqual(bitmap.bits_per_pixel, 24 if error else 32)
                        self.assertEqual(bitmap.to_image().convert("RGBA"), texture.to_image())
        self.assertRaisesRegex(LacquerError, "neither PNG nor", lacquer.load_texture, b"no picture")
        self.assertRaises(OSError, lacquer.load_bitmap, "nothing.png")

    def test_pixels_of_every_depth(self):
        for bits, shape, value in (8, (3, 5), 2), (24, (3, 5, 3), (3, 2, 1)), (32, (3, 5, 4), (3, 2, 1, 255)):
            palette = [0, 0, 0xFF010203] if bits == 8 else None
            with Bitmap(5, 3, bits=bits, palette=palette) as bitmap, bitmap.pixels() as pixels:
                self.assertEqual(pixels.shape, shape)
                pixels[:] = value
                self.assertEqual(bitmap.to_image().convert("RGB").getpixel((4, 2)), (1, 2, 3))
        with Canvas(20, 20) as canvas, canvas.pixels((3, 4, 7, 6)) as part:
            part[:] = 255
            self.assertEqual(canvas.texture().region(), [Rect(0, 0, 20, 20)])
            texture = canvas.texture()
            texture.draw_mode = DrawMode.OVER
            self.assertEqual(texture.region(), [Rect(3, 4, 7, 6)])


class WheelTest(unittest.TestCase):
    def test_library_that_is_missing_is_named(self):
        environment = {**os.environ, "LACQUER_LIBRARY": "/nowhere/lacquer"}
        command = [sys.executable, "-c", "import lacquer"]
        imported = subprocess.run(command, env=environment, text=True, capture_output=True)
        self.assertRegex(imported.stderr, "ImportError: .*'/nowhere/lacquer'.*LACQUER_LIBRARY")

    def test_wheel_for_windows_carries_the_libraries(self):
        with tempfile.TemporaryDirectory() as folder:
            File(folder, "licenses").mkdir()
            carried = {"lacquer.dll", "velGraphic.dll", "other.dll", "licenses/other"}
            for name in carried:
                File(folder, name).touch()
            subprocess.run([ROOT / "python/build-wheel", folder, folder], check=True)
            (wheel,) = File(folder).glob("*.whl")
            self.assertEqual(wheel.name, f"lacquer-{lacquer.__version__}-py3-none-win_amd64.whl")
            names = {name.partition("lacquer/libraries/")[2] for name in zipfile.ZipFile(wheel).namelist()}
            self.assertLessEqual(carried, names)


class LifetimeTest(unittest.TestCase):
    def test_arrays_outlive_their_objects(self):
        before = free_handles()
        for close in (
            Canvas.close,
            lambda canvas: canvas.to_texture().close(),
            lambda canvas: canvas.to_bitmap().to_texture().close(),
        ):
            canvas = Canvas(300, 300)
            bitmap = canvas.bitmap()
            with canvas.pixels() as pixels, bitmap.pixels() as alias:
                part = pixels[1:]
                self.assertRaises(LacquerError, canvas.to_texture)
            close(canvas)
            bitmap.close()
            self.assertRaises(ValueError, pixels.fill, 1)
            part[:] = 7
            self.assertEqual(alias[299, 299, 3], 7)
            self.assertLess(free_handles(), before)
            del pixels, part
            self.assertLess(free_handles(), before)  # What shows the alias keeps it, too.
            del alias
            self.assertEqual(free_handles(), before)
        self.assertRaises(LacquerError, lambda: Canvas(4, 4).device_context)
        with Canvas(4, 4).lock() as locked:
            data = locked.data
        self.assertRaises(ValueError, bytes, data)

    def test_handles_come_back(self):
        before = free_handles()
        kept = Canvas(4, 4)
        self.assertEqual(free_handles(), before - 1)
        for _ in range(3):
            bitmap, texture = kept.bitmap(), kept.texture()
            texture.gaussian_blur()
            kept.gaussian_blur()
            Texture.from_image(kept.to_image()).region()
            bitmap.resized(9, 9).transformed(1).to_texture()
            with Canvas(4, 4) as canvas, canvas.pixels():
                pass
        del bitmap, texture, canvas, kept
        self.assertEqual(free_handles(), before)

    def test_objects_cannot_be_copied(self):
        self.assertRaises(TypeError, copy.deepcopy, Path())


def samples():
    """An argument for each annotation."""
    values = {"float": 1.0, "int": 1, "bool": True, "str": "fi", "Colour": (1, 2, 3), "RectLike": (1, 1, 3, 3)}
    values.update(
        Texture=Texture(4, 4),
        Bitmap=Bitmap(4, 4),
        Canvas=Canvas(4, 4),
        Path=Path().add_circle(2, 2, 2),
        Gradient=Gradient.linear(0, 0, 4, 4, [(0, 0), (1, (1, 2, 3))]),
        Lottie=Lottie.from_data(ANIMATION),
        Shadow=lacquer.Shadow((1, 2, 3), blur=2),
        Stops=[(0.5, 1)],
        TextureMode=lacquer.TextureMode(lacquer.Layout.NINE_GRID, (1, 1, 1, 1)),
    )
    values["PIL.Image.Image"] = Image.new("RGB", (4, 4))
    values["numpy.typing.NDArray[numpy.uint8]"] = numpy.zeros((4, 4, 4), numpy.uint8)
    values["Iterable[RectLike]"] = [(0, 0, 2, 2)]
    values["Sequence[int]"] = [3, 4]
    values["Sequence[Tuple[float, float]]"] = values["Sequence[Tuple[int, int]]"] = [(1, 1), (3, 2)]
    values["Tuple[int, int]"] = (1, 2)
    values["Union[str, bytes]"] = ANIMATION
    values["Union[int, Sequence[float]]"] = values["Union[float, Sequence[float]]"] = 1
    values["Union[str, os.PathLike[str]]"] = ROOT / "examples/assets/drop.json"
    return values


SPECIAL = {"select_slice": {"index": 0}, "oval_to": {"x": 3.0}, "transformed": {"turn": 2}}
HOSTILE = [None, -1, 0, 2**31, 2**32 + 4, 10**400, 1e300, float("nan"), "\0x", "", b"", [], (1, 2), [10**30] * 4,
           (2**32, 0, 4, 4), (0, 0, -5, -5), (-(2**31), -(2**31), 2**31 - 1, 2**31 - 1), object(), "x" * 70000]  # fmt: skip


class DescriptionTest(unittest.TestCase):
    def test_public_names_are_described(self):
        for name in lacquer.__all__:
            thing = getattr(lacquer, name)
            members = inspect.getmembers(thing) if inspect.isclass(thing) else []
            for member, value in [("", thing), *((member, value) for member, value in members if member[0] != "_")]:
                if inspect.isclass(value) or inspect.isroutine(value) or isinstance(value, property):
                    self.assertTrue(inspect.getdoc(value), f"{name}.{member} is not described")


class ArgumentTest(unittest.TestCase):
    def makers(self):
        """For each class how objects come about."""
        return {
            Canvas: lambda: Canvas(4, 4, system=True),
            Texture: lambda: self.texture(),
            Bitmap: lambda: Bitmap(4, 4),
            Path: lambda: Path().move_to(1, 1),
            Gradient: lambda: Gradient.linear(0, 0, 4, 4),
            Lottie: lambda: Lottie.from_data(ANIMATION),
        }

    def texture(self):
        texture = Texture(4, 4)
        texture.set_slices([(0, 0, 4, 4)])
        return texture

    def perform(self, function, *arguments, **named):
        result = function(*arguments, **named)
        if isinstance(result, AbstractContextManager) and not isinstance(result, lacquer._object.Owner):
            with result:
                pass

    def calls(self, kind, make):
        """(name, function of an object and arguments, names of the arguments with good values)."""
        values = samples()
        for name, member in inspect.getmembers(kind):
            if name == "__init__" or name.startswith("_") or name in ("handle", "closed", "close", "save"):
                continue
            if isinstance(member, property):
                yield name, (lambda made, name=name: getattr(made, name)), {}
                if member.fset:
                    annotation = list(inspect.signature(member.fset).parameters.values())[1].annotation
                    assign = lambda made, value, name=name: setattr(made, name, value)  # noqa: E731
                    yield f"{name} =", assign, {"value": values[annotation]}
                continue
            good = {}
            for parameter in list(inspect.signature(getattr(kind, name)).parameters.values()):
                annotation = re.sub(r"Optional\[(.*)\]", r"\1", str(parameter.annotation))
                if parameter.name == "self" or parameter.kind == parameter.VAR_POSITIONAL:
                    continue
                annotation = {"Self": kind.__name__}.get(annotation, annotation)
                good[parameter.name] = values[annotation]
            good.update(SPECIAL.get(name, {}))
            yield name, (lambda made, name=name, **given: getattr(made, name)(**given)), good

    def test_calls_work_and_refuse_what_is_wrong(self):
        count = 0
        for kind, make in self.makers().items():
            for name, function, good in self.calls(kind, make):
                with self.subTest(f"{kind.__name__}.{name}"):
                    self.perform(function, make(), **good)
                    for argument in good:
                        for value in HOSTILE:
                            count += 1
                            try:
                                self.perform(function, make(), **{**good, argument: value})
                            except REFUSALS:
                                pass
                    if not inspect.ismethod(getattr(kind, name.rstrip(" ="))):
                        made = make()
                        made.close()
                        self.assertRaises(LacquerError, self.perform, function, made, **good)
        self.assertGreater(count, 3000)
        for size in HOSTILE:
            for kind in Canvas, Texture, Bitmap:
                self.assertRaises(REFUSALS, kind, size, 4)
        self.assertRaises(TypeError, Canvas(4, 4).draw_path, Gradient.radial(1, 1, 1))


if __name__ == "__main__":
    unittest.main()
