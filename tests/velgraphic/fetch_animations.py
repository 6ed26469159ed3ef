#!/usr/bin/env python3
"""Fetches packages that contain Lottie animations, by npm, and collects the animations: one file for each content.

    fetch_animations.py FOLDER    packages go to FOLDER/packages, where they stay, animations to FOLDER/files

Prints how many there are. Nothing of it belongs to this project, so it stays out of the tree.
"""
import gzip
import hashlib
import io
import json
import pathlib
import subprocess
import sys
import tarfile
import zipfile

PACKAGES = """
    @coinbase/cds-lottie-files @lordicon/element @lordicon/react @lottiefiles/dotlottie-react @lottiefiles/dotlottie-web
    @lottiefiles/lottie-interactivity @lottiefiles/lottie-js @lottiefiles/lottie-player @lottiefiles/react-lottie-player
    lottie-api lottie-ios lottie-ios@1.5.2 lottie-ios@2.5.3 lottie-ios@3.5.0 lottie-react-native@1.1.1 lottie-web
    lottie-web@5.7.0 lottie-web@5.12.2 @meteocons/lottie react-useanimations react-useanimations@2.10.0 vue-lottie vue3-useanimations
""".split()
LARGEST = 32 << 20
FEWEST = 500  # animations that say something together


def fetch(package, folder):
    """The package's archive, or None."""
    place = folder / package.replace("/", "+")
    if not place.exists():
        place.mkdir(parents=True)
        subprocess.run(["npm", "pack", package, "--silent"], cwd=place, stdout=subprocess.DEVNULL, check=False)
    return next(place.glob("*.tgz"), None)


def texts(name, content):
    """The pieces of a file that may be JSON."""
    if name.endswith(".json"):
        yield content
    elif name.endswith(".tgs"):
        yield gzip.decompress(content)
    elif name.endswith(".lottie"):
        with zipfile.ZipFile(io.BytesIO(content)) as archive:
            yield from (archive.read(inner) for inner in archive.namelist() if inner.endswith(".json"))
    elif name.endswith((".js", ".mjs", ".cjs", ".ts")):
        source = content.decode(errors="replace")
        for beginning in ('{"v":"', '{"nm":"', '{"fr":', '{"layers":', '{"assets":'):
            at = source.find(beginning)
            while at >= 0:
                end = at + 1
                try:
                    end = json.JSONDecoder().raw_decode(source, at)[1]
                    yield source[at:end].encode()
                except ValueError:
                    pass
                at = source.find(beginning, end)


def is_animation(text):
    try:
        value = json.loads(text)
    except (ValueError, RecursionError):
        return False
    return isinstance(value, dict) and isinstance(value.get("layers"), list) and {"w", "h"} <= value.keys()


def main():
    folder = pathlib.Path(sys.argv[1])
    files = folder / "files"
    files.mkdir(parents=True, exist_ok=True)
    for package in PACKAGES:
        archive = fetch(package, folder / "packages")
        if not archive:
            print(f"{package} cannot be fetched", file=sys.stderr)
            continue
        with tarfile.open(archive) as members:
            for member in members:
                if not member.isfile() or member.size > LARGEST:
                    continue
                try:
                    found = [text for text in texts(member.name, members.extractfile(member).read()) if is_animation(text)]
                except (OSError, zipfile.BadZipFile):
                    continue
                for text in found:
                    (files / (hashlib.sha256(text).hexdigest()[:16] + ".json")).write_bytes(text)
    count = len(list(files.iterdir()))
    print(f"{count} different animations")
    if count < FEWEST:
        sys.exit(f"fewer than {FEWEST}: nothing is proven by so few")


if __name__ == "__main__":
    main()
