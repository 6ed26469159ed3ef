"""Animations of the film page, each about one thing that layers can do: mattes, compositions in each other, easing
beyond its ends, masks. As Lottie JSON."""

import json
import math

from drop_animation import ellipse, fill, fixed, gradient, group, keyed, stroke, transform

FRAMES = 60
WHOLE = (0, 2 * FRAMES)  # also of what begins earlier
SIDE = 160
BACK = ([0.3, -0.4], [0.35, 1.7])  # goes back before it starts, and too far before it ends


def shapes(place, *items, time=WHOLE, **more):
    return {"ddd": 0, "ty": 4, "sr": 1, "ks": place, "shapes": list(items), "ip": time[0], "op": time[1], "st": 0,
            "bm": 0, **more}


def show(name, place, start=0, size=SIDE, **more):
    """A layer that shows a composition."""
    return {"ddd": 0, "ty": 0, "refId": name, "sr": 1, "ks": place, "w": size, "h": size, "ip": 0, "op": 2 * FRAMES,
            "st": start, "bm": 0, **more}


def about(x, y, anchor=(0, 0), **more):
    return {**transform(fixed([x, y, 0]), **more), "a": fixed([*anchor, 0])}


def rectangle(width, height, x=0, y=0, round_by=0):
    return {"ty": "rc", "d": 1, "s": fixed([width, height]), "p": fixed([x, y]), "r": fixed(round_by)}


def star(points, outer, inner, turn=0):
    return {"ty": "sr", "sy": 1, "d": 1, "pt": fixed(points), "p": fixed([0, 0]), "r": fixed(turn), "or": fixed(outer),
            "ir": fixed(inner), "os": fixed(0), "is": fixed(0)}


def polygon(*corners):
    straight = [[0, 0]] * len(corners)
    return {"v": [list(corner) for corner in corners], "i": straight, "o": straight, "c": True}


def mask(mode, path, opacity=100):
    return {"inv": False, "mode": mode, "pt": path, "o": fixed(opacity)}


def morph(*keys):
    """A path with keyframes (frame, path)."""
    ease = {"o": {"x": 0.4, "y": 0}, "i": {"x": 0.6, "y": 1}}
    frames = [{"t": time, "s": [start], "e": [end], **ease} for (time, start), (_, end) in zip(keys, keys[1:])]
    return {"a": 1, "k": [*frames, {"t": keys[-1][0], "s": [keys[-1][1]]}]}


def houses(wall, window):
    """A street, as the shapes of one layer."""
    for index, (x, height) in enumerate(((16, 74), (48, 104), (82, 62), (112, 92), (144, 70))):
        lit = [rectangle(6, 8, x - 8 + 16 * (i % 2), 174 - height + 18 * (i // 2)) for i in range(2 + index % 3 * 2)]
        yield group(*lit, fill(*window))
        yield group(rectangle(30, height, x, 160 - height / 2), fill(*wall))


def lantern():
    """A beam that shows the street in its light, the dark around it, and the moon by how bright a gradient is."""
    beam = about(0, 0, scale=keyed((0, [80, 80, 100]), (30, [125, 125, 100]), (FRAMES, [80, 80, 100])))
    beam["p"] = keyed((0, [20, 90, 0]), (30, [132, 96, 0]), (FRAMES, [20, 90, 0]))
    spot = group(ellipse(88, 88), fill(1, 1, 1))
    place = about(80, 80, (80, 80))
    moon = about(112, 34, rotation=keyed((0, [0]), (FRAMES, [360])))
    return [
        shapes(moon, group(rectangle(60, 60), gradient([-30, 0], [30, 0], (0, 1, 1, 1), (1, 0.05, 0.05, 0.05))),
               td=1),
        shapes(about(112, 34), group(ellipse(36, 36), fill(0.98, 0.95, 0.8)),
               group(ellipse(44, 44), fill(0.98, 0.85, 0.7)), tt=3),
        shapes(beam, spot, td=1),
        show("lit", place, tt=1),
        shapes(beam, spot, td=1),
        show("dark", place, tt=2),
        shapes(about(80, 80), group(rectangle(160, 160), gradient([0, -80], [0, 80], (0, 0.05, 0.07, 0.2),
                                                                  (1, 0.25, 0.2, 0.4)))),
    ], {
        "lit": [shapes(about(0, 0), *houses((0.85, 0.45, 0.3), (1, 0.92, 0.5))),
                shapes(about(80, 80), group(rectangle(160, 160), fill(0.98, 0.8, 0.55)))],
        "dark": [shapes(about(0, 0), *houses((0.11, 0.11, 0.24), (0.3, 0.3, 0.45)))],
    }


def orbits():
    """A sun, planets that are one composition at three times, and their moons, another one inside it."""
    def turning(start, turns):
        return keyed((0, [start]), (FRAMES, [start + 360 * turns]))

    orbit = ((0, 1, 100, 100, 0), (140, 1, 70, 45, 9), (250, 2, 44, 100, 21))
    planets = [show("planet", about(80, 80, (80, 80), rotation=turning(start, turns), scale=fixed([size, size, 100]),
                                    opacity=fixed(opacity)), start=-shift)
               for start, turns, size, opacity, shift in orbit]
    rings = [group(ellipse(124 * size, 124 * size), stroke((0.75, 0.8, 0.95), 1)) for size in (1, 0.7, 0.44)]
    return [
        *planets,
        shapes(about(80, 80), group(star(12, 20, 14), gradient([0, 0], [20, 0], (0, 1, 0.9, 0.4),
                                                               (1, 0.95, 0.5, 0.1)))),
        shapes(about(80, 80), *rings),
    ], {
        "planet": [
            show("moon", about(142, 80, (30, 30), rotation=turning(0, 3)), size=60),
            show("moon", about(142, 80, (30, 30), rotation=turning(180, -2), scale=fixed([70, 70, 100])), size=60),
            shapes(about(142, 80), group(ellipse(20, 20), gradient([-8, -8], [10, 10], (0, 0.5, 0.8, 1),
                                                                   (1, 0.1, 0.25, 0.6)))),
        ],
        "moon": [shapes(about(30, 14), group(ellipse(7, 7), fill(0.55, 0.5, 0.6))),
                 shapes(about(30, 30), group(ellipse(32, 32), stroke((0.6, 0.65, 0.8), 0.7)))],
    }


def springs():
    """Tiles that jump into place, a needle that overshoots its mark, and bars that do."""
    layers = []
    for index in range(9):
        x, y, start = 28 + index % 3 * 26, 28 + index // 3 * 26, 3 * index
        grow = keyed((start, [0, 0, 100]), (start + 20, [100, 100, 100]), ease=BACK)
        turn = keyed((start, [-90]), (start + 24, [0]), ease=BACK)
        shade = index / 8
        layers.append(shapes(about(x, y, scale=grow, rotation=turn), group(
            rectangle(22, 22, round_by=5), fill(0.95 - 0.6 * shade, 0.35 + 0.25 * shade, 0.35 + 0.5 * shade))))
    needle = keyed((6, [-70]), (34, [50]), ease=BACK)
    layers.append(shapes(about(122, 76, rotation=needle), group(rectangle(5, 46, 0, -20, 2), fill(0.8, 0.2, 0.25))))
    layers.append(shapes(about(122, 76, rotation=fixed(-160)), group(
        ellipse(60, 60),
        {"ty": "tm", "s": fixed(0), "e": keyed((6, [4]), (34, [39]), ease=BACK), "o": fixed(0), "m": 1},
        stroke((0.2, 0.5, 0.75), 6))))
    for index, height in enumerate((30, 46, 22, 52, 38, 26)):
        grow = keyed((4 * index, [100, 4, 100]), (4 * index + 26, [100, 100, 100]), ease=BACK)
        layers.append(shapes(about(24 + 22 * index, 152, scale=grow), group(
            rectangle(15, height, 0, -height / 2, 3),
            gradient([0, -height], [0, 0], (0, 0.3, 0.75, 0.65), (1, 0.1, 0.4, 0.5)))))
    return layers, {}


def shutter():
    """A disk behind blades that open and close: masks that add, cut out, and keep what both have."""
    def blades(radius, turn):
        corners = [turn + i * math.pi / 3 for i in range(6)]
        return polygon(*([round(80 + radius * math.cos(a), 2), round(80 + radius * math.sin(a), 2)] for a in corners))

    opening = morph((0, blades(14, 0)), (30, blades(66, 1)), (FRAMES, blades(14, 0)))
    bar = morph((0, polygon([-30, 60], [0, 60], [70, 170], [40, 170])),
                (FRAMES, polygon([110, 0], [150, 0], [230, 110], [190, 110])))
    petals = [group(star(9, 70, 40, turn), fill(*colour))
              for turn, colour in ((0, (0.98, 0.75, 0.3)), (10, (0.9, 0.3, 0.4)))]
    whole = polygon([0, 0], [160, 0], [160, 160], [0, 160])
    hole = mask("s", morph((0, blades(8, 0)), (30, blades(40, 2)), (FRAMES, blades(8, 0))))
    return [
        shapes(about(80, 80, (80, 80)),
               group(rectangle(160, 160, 80, 80), gradient([0, 0], [160, 160], (0, 1, 1, 1), (1, 0.7, 0.9, 1))),
               hasMask=True, masksProperties=[mask("a", opening), mask("i", bar, 60)]),
        shapes(about(80, 80, (80, 80), rotation=keyed((0, [0]), (FRAMES, [60]))),
               {"ty": "gr", "it": [*petals, {"ty": "tr", **transform(fixed([80, 80]), fixed([100, 100]))}]},
               hasMask=True, masksProperties=[mask("a", opening)]),
        shapes(about(80, 80, (80, 80)), group(rectangle(150, 150, 80, 80, 75), fill(0.2, 0.24, 0.34)),
               hasMask=True, masksProperties=[mask("a", fixed(whole)), hole]),
    ], {}


def encode(name, film):
    layers, compositions = film()
    listed = {"v": "5.5.2", "fr": 30, "ip": 0, "op": FRAMES, "w": SIDE, "h": SIDE, "nm": name, "ddd": 0,
              "assets": [{"id": key, "layers": numbered(value)} for key, value in compositions.items()],
              "layers": numbered(layers)}
    lines = json.dumps(listed, separators=(",", ":")).replace('{"ind"', '\n{"ind"')
    return (lines + "\n").encode()


def numbered(layers):
    return [{"ind": index, **layer} for index, layer in enumerate(layers, 1)]


FILMS = {"lantern": lantern, "orbits": orbits, "springs": springs, "shutter": shutter}
