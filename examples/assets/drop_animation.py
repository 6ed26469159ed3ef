"""The animation of a drop that falls into a pool, inside a ring that closes as time passes, as Lottie JSON."""

import json

FRAMES = 60
SPLASH = 22  # the frame in which the drop meets the pool
MIDDLE, SURFACE = 80, 112
LINEAR = ([0.5, 0.5], [0.5, 0.5])
FALL = ([0.5, 0], [0.8, 0.6])
SETTLE = ([0.2, 0.6], [0.4, 1])


def fixed(value):
    return {"a": 0, "k": value}


def keyed(*keys, ease=LINEAR):
    """A property with keyframes (frame, values); `ease`: the control points of the way from each to the next."""
    (ox, oy), (ix, iy) = ease
    frames = []
    for (time, start), (_, end) in zip(keys, keys[1:]):
        frames.append({"t": time, "s": start, "e": end, "o": {"x": [ox], "y": [oy]}, "i": {"x": [ix], "y": [iy]}})
    frames.append({"t": keys[-1][0], "s": keys[-1][1]})
    return {"a": 1, "k": frames}


def transform(position=fixed([0, 0, 0]), scale=fixed([100, 100, 100]), rotation=fixed(0), opacity=fixed(100)):
    return {"o": opacity, "r": rotation, "p": position, "a": fixed([0, 0, 0]), "s": scale}


def group(*items):
    return {"ty": "gr", "it": [*items, {"ty": "tr", **transform(fixed([0, 0]), fixed([100, 100])), "a": fixed([0, 0])}]}


def ellipse(width, height):
    return {"ty": "el", "d": 1, "s": fixed([width, height]), "p": fixed([0, 0])}


def fill(red, green, blue):
    return {"ty": "fl", "c": fixed([red, green, blue, 1]), "o": fixed(100), "r": 1}


def gradient(start, end, *stops):
    return {"ty": "gf", "o": fixed(100), "r": 1, "t": 1, "s": fixed(start), "e": fixed(end),
            "g": {"p": len(stops), "k": fixed([number for stop in stops for number in stop])}}


def stroke(colour, width):
    return {"ty": "st", "c": fixed([*colour, 1]), "o": fixed(100), "w": fixed(width), "lc": 2, "lj": 2}


DROP = {"ty": "sh", "ks": fixed({
    "v": [[0, -26], [17, 8], [0, 24], [-17, 8]],
    "i": [[0, 0], [0, -12], [9, 0], [0, 9]],
    "o": [[2, 8], [0, 9], [-9, 0], [0, -12]],
    "c": True})}
SHINE = {"ty": "sh", "ks": fixed({
    "v": [[-10, 8], [-3, 17]], "i": [[0, 0], [-4, -1]], "o": [[0, 5], [0, 0]], "c": False})}


def layers():
    whole = (0, FRAMES)
    yield whole, transform(fixed([MIDDLE, 80, 0]), rotation=fixed(-90)), [group(
        ellipse(148, 148), {"ty": "tm", "s": fixed(0), "e": keyed((0, [0]), (FRAMES, [100])), "o": fixed(0), "m": 1},
        stroke((0.96, 0.66, 0.2), 7))]
    yield whole, transform(fixed([MIDDLE, 80, 0]), opacity=fixed(25)), [group(
        ellipse(148, 148), stroke((0.3, 0.34, 0.42), 7))]
    yield (0, SPLASH + 4), transform(
        keyed((0, [MIDDLE, -30, 0]), (SPLASH, [MIDDLE, SURFACE - 14, 0]), (SPLASH + 4, [MIDDLE, SURFACE, 0]), ease=FALL),
        keyed((0, [92, 108, 100]), (SPLASH - 2, [86, 116, 100]), (SPLASH + 4, [150, 12, 100]))), [
        group(SHINE, stroke((1, 0.82, 0.8), 3)),
        group(DROP, gradient([-12, -20], [12, 24], (0, 0.98, 0.46, 0.42), (1, 0.66, 0.06, 0.13)))]
    for reach, height, size, end in ((-46, 46, 8, 44), (-24, 66, 6, 48), (4, 54, 9, 46), (30, 62, 7, 48), (50, 38, 6, 42)):
        peak = (SPLASH + end) // 2
        yield (SPLASH, end), transform(
            keyed((SPLASH, [MIDDLE, SURFACE - 4, 0]), (peak, [MIDDLE + reach * 0.6, SURFACE - height, 0]),
                  (end, [MIDDLE + reach, SURFACE, 0]), ease=SETTLE)), [
            group(ellipse(size, size), fill(0.85, 0.17, 0.2))]
    for start in (SPLASH, SPLASH + 6, SPLASH + 13):
        yield (start, FRAMES), transform(
            fixed([MIDDLE, SURFACE + 4, 0]), keyed((start, [12, 12, 100]), (start + 24, [100, 100, 100]), ease=SETTLE),
            opacity=keyed((start, [90]), (start + 24, [0]))), [
            group(ellipse(96, 26), stroke((1, 0.74, 0.7), 2.5))]
    yield whole, transform(
        fixed([MIDDLE, SURFACE + 4, 0]),
        keyed((0, [100, 100, 100]), (SPLASH, [100, 100, 100]), (SPLASH + 5, [108, 122, 100]),
              (SPLASH + 14, [100, 100, 100]), ease=SETTLE)), [
        group(ellipse(108, 32), gradient([0, -16], [0, 16], (0, 0.9, 0.28, 0.3), (1, 0.55, 0.04, 0.1)))]


def encode():
    listed = [{"ddd": 0, "ind": index, "ty": 4, "sr": 1, "ks": place, "ao": 0, "shapes": shapes,
               "ip": first, "op": last, "st": 0, "bm": 0}
              for index, ((first, last), place, shapes) in enumerate(layers(), 1)]
    film = {"v": "5.5.2", "fr": 30, "ip": 0, "op": FRAMES, "w": 160, "h": 160, "nm": "drop", "ddd": 0, "assets": [],
            "layers": listed}
    lines = json.dumps(film, separators=(",", ":")).replace('{"ddd":0,"ind"', '\n{"ddd":0,"ind"')
    return (lines + "\n").encode()
