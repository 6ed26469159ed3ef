#!/usr/bin/env python3
"""Checks that no declaration of the public headers lacks a part of its description.

    docs/api/check.py FOLDER     works in FOLDER

Of functions: purpose, every parameter (pointers with what null does, handles with what a wrong one does, places and lengths
with their unit), the result with what it is on failure, threads, version. Of everything else: purpose, and version but for
fields and values. Doxygen's and clang's own warnings count, too. Before that, omissions are planted, and each must be found.
"""

import pathlib
import re
import subprocess
import sys
import xml.etree.ElementTree

sys.dont_write_bytecode = True

import make  # noqa: E402

FAILURE = re.compile(r"\b(0|null|none|no|empty|false|ERROR|CLR_INVALID|0xFFFFFFFF|never|nothing|always|wrong|this)\b")
PLACE = re.compile(
    r"[xy]\d?|width|height|left|top|right|bottom|radius[XY]?|centre[XY]|\w+Angle|stride|source(X|Y|Width|Height)|d[xy]"
)
UNIT = re.compile(r"\b(pixels?|rows?|columns?|degrees|bytes|coordinate|counted|must be 0)\b")
HANDLE = re.compile(r"\b(HGBITMAP|HGTEXTURE|HGCANVAS|HDC|HRGN|HGDIOBJ)$")

# By header: what stands there, what is planted in its place, and the complaint that must come of it.
OMISSIONS = {
    "lacquer/lacquer.h": [
        ("/** Writes width and height.\n", "/**\n", "GetBitmapSize: no purpose"),
        (" * @param gap ", " * ", "GeoRectFocusEx: parameter gap is not described"),
        (" * @param bitmap the bitmap; a wrong handle is refused\n", "", "GetBitmapFilter: parameter bitmap is not described"),
        ("the record, which is copied; null is refused", "the record", "SetTextureMode: parameter mode: what does null do?"),
        ("0, and any wrong handle, for none", "if any", "CreateCanvas: parameter template_: what does a wrong handle do?"),
        ("@param dy pixels down", "@param dy down", "CanvasScroll: parameter dy: in which unit?"),
        (" * @return how many there are; 0xFFFFFFFF", " * 0xFFFFFFFF", "GetTextureSliceCount: no result"),
        ("0xAAHHSSLL, alpha as it was; never fails", "0xAAHHSSLL", "ARGBtoAHSL: what is the result on failure?"),
        ("/**< bytes from one row to the next of the whole surface, positive */", "", "stride: no purpose"),
        ("/**< the left edge, pixels */", "/**< the left edge */", "left: in which unit?"),
    ],
    "lacquer/headless_gdi.h": [("/**< all bits 1 */", "", "WHITENESS: no purpose")],
    "lacquer/version.h": [('/** "major.minor.patch". */', "", "LACQUER_VERSION_STRING: no purpose")],
    "velgraphic/velgraphic.h": [(" * @par Threads\n * Any thread", " * Any thread", "velPathCreate: no threads")],
    "velgraphic/owner.hpp": [("@since 0.1.0", "", "Release: no version")],
}


def words(element):
    return " ".join("".join(element.itertext()).split()) if element is not None else ""


class Declaration:
    def __init__(self, element):
        self.element = element
        self.name = words(element.find("name")) or words(element.find("compoundname"))
        self.description = element.find("detaileddescription")
        self.parameters = {}
        for item in self.description.iterfind(".//parameterlist[@kind='param']/parameteritem"):
            for name in item.iterfind("parameternamelist/parametername"):
                self.parameters[words(name)] = words(item.find("parameterdescription"))

    def section(self, kind, title=None):
        for section in self.description.iterfind(f".//simplesect[@kind='{kind}']"):
            if title is None or words(section.find("title")) == title:
                return " ".join(words(paragraph) for paragraph in section.iterfind("para"))
        return ""

    def has_purpose(self):
        return bool(words(self.element.find("briefdescription")))

    def complaints_of_function(self):
        for parameter in self.element.iterfind("param"):
            kind, name = words(parameter.find("type")), words(parameter.find("declname"))
            said = self.parameters.get(name, "")
            if not said:
                if name:
                    yield f"parameter {name} is not described"
            elif "*" in kind and not re.search(r"\bnull\b", said):
                yield f"parameter {name}: what does null do?"
            elif HANDLE.search(kind) and not re.search(r"\b(handle|null)\b", said):
                yield f"parameter {name}: what does a wrong handle do?"
            elif PLACE.fullmatch(name) and not UNIT.search(said):
                yield f"parameter {name}: in which unit?"
        result = words(self.element.find("type")).removeprefix("static ").removeprefix("constexpr ")
        if result not in ("", "void", "explicit", "constexpr"):
            if not self.section("return"):
                yield "no result"
            elif not FAILURE.search(self.section("return")):
                yield "what is the result on failure?"
        if not self.section("par", "Threads"):
            yield "no threads"

    def complaints(self, kind):
        if not self.has_purpose():
            yield "no purpose"
        if kind == "function":
            yield from self.complaints_of_function()
        said = words(self.element.find("briefdescription")) + words(self.description)
        if kind == "variable" and PLACE.fullmatch(self.name) and not UNIT.search(said):
            yield "in which unit?"
        if kind not in ("variable", "enumvalue") and not self.section("since"):
            yield "no version"


def declarations(folder):
    """(kind, element) of each declaration on the pages, those that a class inherits among them."""
    for path in sorted((folder / "xml").glob("*.xml")):
        for compound in xml.etree.ElementTree.parse(path).iterfind("compounddef"):
            if compound.get("prot", "public") != "public":
                continue
            if compound.get("kind") in ("struct", "class", "union"):
                yield compound.get("kind"), compound
            for member in compound.iterfind("sectiondef/memberdef"):
                if member.get("prot") == "public" and member.get("kind") != "friend":
                    yield member.get("kind"), member
                    for value in member.iterfind("enumvalue"):
                        yield "enumvalue", value


def complaints(folder):
    found, known = set(), set()
    for kind, element in declarations(folder):
        declaration = Declaration(element)
        known.add(declaration.name)
        # Special members need no words where there is nothing to say.
        if re.match(r"~|.*=\s*delete", declaration.name + words(element.find("argsstring"))):
            continue
        found |= {f"{declaration.name}: {complaint}" for complaint in declaration.complaints(kind)}
    for exports in make.ROOT / "src/api/lacquer.def", *make.ROOT.glob("*/*.def"):
        for name in re.findall(r"^    (?!_Z)(\w+)$", exports.read_text(), re.MULTILINE):
            if name not in known:
                found.add(f"{name}: exported, but on no page")
    return sorted(found)


def check_planted(texts, version, folder):
    """What was left out and not found."""
    planted, wanted = dict(texts), []
    for path, omissions in OMISSIONS.items():
        for old, new, complaint in omissions:
            if old not in planted[path]:
                return [f"cannot be planted any more: {old}"]
            planted[path] = planted[path].replace(old, new, 1)
            wanted.append(complaint)
    make.make(planted, version, folder, "GENERATE_HTML = NO")
    found = complaints(folder)
    return [f"not found when planted: {complaint}" for complaint in wanted if complaint not in found]


def compiler_warnings(folder):
    """What clang says of the comments, as they are and written out."""
    includes = "".join(f"#include <{path}>\n" for path in ("lacquer/lacquer.h", "lacquer/headless_gdi.h"))
    written_out = [f"-I{folder / 'headers'}"]
    as_they_are = [f"-I{make.ROOT / path}" for path in make.FOLDERS] + written_out  # which has the version
    for standard, text in ("c11", includes), ("c++17", includes + "#include <lacquer/lacquer.hpp>\n"):
        for folders in written_out, as_they_are:
            command = ["clang", "-x", standard[:-2], f"-std={standard}", "-fsyntax-only", "-Wdocumentation", *folders, "-"]
            run = subprocess.run(command, input=text, text=True, capture_output=True)
            yield from (line for line in run.stderr.splitlines() if "warning:" in line or "error:" in line)


def main():
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    folder = pathlib.Path(sys.argv[1]).resolve()
    texts, version = make.headers()
    problems = check_planted(texts, version, folder)
    problems += make.make(texts, version, folder)
    problems += complaints(folder)
    problems += compiler_warnings(folder)
    if problems:
        sys.exit("\n".join(problems))
    omissions = sum(map(len, OMISSIONS.values()))
    print(f"{len(list(declarations(folder)))} declarations are described; all {omissions} planted omissions were found")


if __name__ == "__main__":
    main()
