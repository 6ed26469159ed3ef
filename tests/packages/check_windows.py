#!/usr/bin/env python3
"""What has to be true of the Windows package beside that programs link and run: check_windows.py FOLDER, where the zips
were unpacked."""

import json
import re
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).resolve().parent.parent.parent
TOOLS = "x86_64-w64-mingw32-"
WINDOWS = {"kernel32.dll", "gdi32.dll", "user32.dll", "msimg32.dll", "msvcrt.dll", "advapi32.dll"}
failures = []


def expect(truth, text):
    if not truth:
        failures.append(text)


def output(*command):
    return subprocess.run(command, check=True, capture_output=True, text=True).stdout


def rows_of(name, separator):
    lines = (ROOT / "packaging" / name).read_text().splitlines()
    return [[cell.strip() for cell in line.split(separator)] for line in lines if not line.startswith("#")]


def check_library(tree, symbols, package, name, version):
    for file in (f"bin/{name}.dll", f"lib/{name}.lib", f"lib/lib{name}.dll.a", f"lib/{name}.def",
                 f"lib/cmake/{package}/{package}-config.cmake", f"lib/pkgconfig/{package}.pc"):
        expect((tree / file).is_file(), f"{file} is missing")
    dll = tree / "bin" / f"{name}.dll"
    for key in ("FileVersion", "ProductVersion"):
        told, wanted = (re.escape(word.encode("utf-16le")) for word in (key, f"{version}\0"))
        expect(re.search(told + b"(?:\0\0)+" + wanted, dll.read_bytes()), f"{dll.name} does not tell {key} {version}")
    exports = set(re.findall(r"^\t\[ *\d+\] (\S+)$", output(TOOLS + "objdump", "-p", dll), re.M))
    imports = set(re.findall(r" T (?!__imp_)(.+)", output("llvm-nm", tree / "lib" / f"{name}.lib")))
    expect(exports == imports and exports, f"{name}.lib differs from the DLL in {sorted(exports ^ imports)}")
    for file in (tree / "lib/pkgconfig" / f"{package}.pc", tree / f"lib/cmake/{package}/{package}-config-version.cmake"):
        expect(re.search(rf'(Version: |PACKAGE_VERSION "){version}\b', file.read_text()), f"{file.name} is not of {version}")

    # A debugger finds the lines of a function.
    debug = symbols / "bin" / f"{name}.dll.debug"
    address = re.search(r"^(\w+) T (?:CreateCanvas|velCanvasCreate|LoadTextureFromFile)$", output(TOOLS + "nm", debug), re.M)[1]
    line = output(TOOLS + "addr2line", "-e", debug, address)
    expect(re.search(r"_api\.cpp:\d", line), f"{debug.name} has no lines: {line}")


def main(folder):
    version = re.search(r"project\(lacquer VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text())[1]
    tree, symbols, sources = (folder / f"lacquer-{version}-windows-x64{part}" for part in ("", "-symbols", "-sources"))
    for package, name, _ in rows_of("libraries", None):
        check_library(tree, symbols, package, name, version)

    dlls = {file.name for file in (tree / "bin").iterdir()}
    for dll in (tree / "bin").iterdir():
        needed = set(re.findall(r"DLL Name: (.+)", output(TOOLS + "objdump", "-p", dll)))
        missing = {each for each in needed - dlls if each.lower() not in WINDOWS}
        expect(not missing, f"{dll.name} needs {missing}")
        expect("no symbols" in subprocess.run([TOOLS + "nm", dll], capture_output=True, text=True).stderr, f"{dll.name} has symbols")
        expect(".debug_" not in output(TOOLS + "objdump", "-h", dll), f"{dll.name} is not stripped")
    pages = (tree / "doc/api").glob("group*.html")
    expect(any("DrawTexture9Grid" in page.read_text() for page in pages), "the pages of the declarations are missing")
    expect(version in (tree / "include/lacquer/version.h").read_text(), "version.h is of another version")
    expect((ROOT / "CHANGELOG.md").read_text().split("## ")[1].startswith(version), "CHANGELOG.md begins with another version")

    # Everything that was built for the DLLs is listed with its licence; sources are there where a licence asks for them.
    bill = json.loads((tree / "parts.cdx.json").read_text())
    listed = {part["name"]: part["version"] for part in bill["components"]}
    built = dict(line.split() for line in (ROOT / "build/windows-deps/versions").read_text().splitlines())
    expect(bill["metadata"]["component"]["version"] == version, "parts.cdx.json is of another version")
    expect(built.items() <= listed.items(), f"parts.cdx.json has not {built.items() - listed.items()}")
    names = [file.name for file in sources.iterdir()]
    for part, _, _, licence, _ in rows_of("windows-parts", "|"):
        text = tree / "licenses" / f"{part}.txt"
        expect(text.is_file() and text.stat().st_size > 1000, f"the licence of {part} is missing")
        if "LGPL" in licence or "MPL" in licence:
            expect(any(name.startswith(f"{part}_") and ".orig.tar" in name for name in names), f"the sources of {part} are missing")
    expect(f"lacquer-{version}.tar.gz" in names, "the library's own sources are missing")

    for failure in failures:
        print(failure)
    print(f"{tree.name}: {len(dlls)} DLLs, {len(listed)} parts of others")
    return bool(failures)


if __name__ == "__main__":
    sys.exit(main(Path(sys.argv[1])))
