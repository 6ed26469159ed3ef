"""Finds the shared libraries and opens them."""

import ctypes
import os
import sys
from pathlib import Path
from typing import Dict

from . import _interface

WINDOWS = sys.platform == "win32"
_VARIABLES = {"lacquer": "LACQUER_LIBRARY", "velGraphic": "VELGRAPHIC_LIBRARY", "lacquer_image": "LACQUER_IMAGE_LIBRARY"}


def _file_name(name: str) -> str:
    return f"{name}.dll" if WINDOWS else f"lib{name}.so.{_interface.VERSION.split('.')[0]}"


def _carried(name: str) -> Path:
    return Path(__file__).parent / "libraries" / _file_name(name)


def _place(name: str) -> str:
    """Where to look: what the variable says, else the package itself, else wherever the system has its libraries."""
    given = os.environ.get(_VARIABLES[name])
    return given or (str(_carried(name)) if _carried(name).exists() else _file_name(name))


def _open(name: str) -> ctypes.CDLL:
    place = _place(name)
    try:
        return ctypes.CDLL(place)
    except OSError as error:
        raise ImportError(
            f"The package lacquer needs the shared library {_file_name(name)}, which could not be loaded from "
            f"{place!r} ({error}). Install it, or set the variable {_VARIABLES[name]} to the path of its file."
        ) from error


def load() -> Dict[str, ctypes.CDLL]:
    """The libraries by their names; that for picture files may be missing. Which one is opened first decides which
    companion they share: one that is named expressly wins, and otherwise it is the one that the raster library brings
    along."""
    names = ["lacquer", "velGraphic"]
    if os.environ.get(_VARIABLES["velGraphic"]) or _carried("velGraphic").exists():
        names.reverse()
    libraries = {name: _open(name) for name in names}
    try:
        libraries["lacquer_image"] = _open("lacquer_image")
    except ImportError:
        if os.environ.get(_VARIABLES["lacquer_image"]):
            raise
    return libraries
