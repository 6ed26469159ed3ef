"""Builds the wheel, in the source tree of the library: `_interface.py` is made from its headers, its version is the
project's. LACQUER_DLLS may name a folder whose DLLs, and what it has in `licenses`, go into a wheel for 64-bit Windows;
without it the wheel is for any system and uses the library that is installed there."""

import os
import shutil
import sys
import tempfile
from pathlib import Path

from setuptools import setup
from setuptools.command.build_py import build_py
from wheel.bdist_wheel import bdist_wheel

HERE = Path(__file__).resolve().parent
sys.path.insert(0, str(HERE))
import headers  # noqa: E402

ROOT = HERE.parent
DLLS = os.environ.get("LACQUER_DLLS")


class BuildPackage(build_py):
    def run(self):
        super().run()
        package = Path(self.build_lib) / "lacquer"
        (package / "_interface.py").write_text(headers.table_of(ROOT), encoding="utf-8")
        shutil.copy(ROOT / "LICENSE", package)
        if DLLS:
            self.add_dlls(package / "libraries")

    def add_dlls(self, folder):
        names = {file.name for file in Path(DLLS).glob("*.dll")}
        if not {"lacquer.dll", "velGraphic.dll"} <= names:
            raise SystemExit(f"LACQUER_DLLS: {DLLS} has no lacquer.dll and velGraphic.dll")
        folder.mkdir()
        for name in names:
            shutil.copy(Path(DLLS) / name, folder)
        if (Path(DLLS) / "licenses").is_dir():
            shutil.copytree(Path(DLLS) / "licenses", folder / "licenses")


class BuildWheel(bdist_wheel):
    def finalize_options(self):
        super().finalize_options()
        self.root_is_pure = not DLLS

    def get_tag(self):
        return ("py3", "none", "win_amd64" if DLLS else "any")


# What is built lies outside of the source tree, and is new every time.
with tempfile.TemporaryDirectory() as scratch:
    setup(
        version=headers.project_version(ROOT),
        package_data={"lacquer": ["py.typed"]},
        cmdclass={"build_py": BuildPackage, "bdist_wheel": BuildWheel},
        options={"build": {"build_base": scratch}, "egg_info": {"egg_base": scratch}},
    )
