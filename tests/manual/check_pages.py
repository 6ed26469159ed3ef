#!/usr/bin/env python3
"""Checks the manual's pages and the README: check_pages.py [--write]

Every block of C, C++, Python or CMake is word for word a file of docs/manual/code, or a region of one, that the line
before it names: <!-- code: hover_button.cpp --> or <!-- code: drawing.cpp clip -->. A region stands between the lines
[clip] and [/clip] in comments. Links and their anchors lead somewhere; every file of code, region, picture and chapter is
shown. --write puts the present code into the pages.
"""
import pathlib
import re
import sys
import textwrap

MANUAL = pathlib.Path(__file__).resolve().parents[2] / "docs" / "manual"
CODE = MANUAL / "code"
MARK = re.compile(r"^\s*(?://|/\*|#) \[(/?)(\w+)\](?: \*/)?\n", re.MULTILINE)
BLOCK = re.compile(r"(?:<!-- code: (\S+)(?: (\w+))? -->\n)?^```(\w*)\n(.*?)^```$", re.MULTILINE | re.DOTALL)
LANGUAGES = ("c", "cpp", "python", "cmake")


def excerpts():
    """The code that pages may show, by file and region; the region None is the whole file."""
    result = {}
    for path in sorted(CODE.iterdir()):
        if path.suffix not in (".c", ".cpp", ".py") and path.name != "CMakeLists.txt":
            continue
        text = path.read_text()
        names = [name for slash, name in MARK.findall(text) if not slash]
        if not names:
            result[path.name, None] = text
        for name in names:
            inside = re.search(rf"^[^\n]*\[{name}\][^\n]*\n(.*?)^[^\n]*\[/{name}\]", text, re.MULTILINE | re.DOTALL)
            result[path.name, name] = textwrap.dedent(MARK.sub("", inside[1]))
    return result


def without_code(text):
    return re.sub(r"`[^`\n]*`", "", BLOCK.sub("", text))


def anchors(path):
    """What headings are called in links, as the usual hosts do it."""
    result = set()
    for title in re.findall(r"^#+ (.*)$", BLOCK.sub("", path.read_text()), re.MULTILINE):
        name = re.sub(r"[^\w\- ]", "", title.lower()).replace(" ", "-")
        result.add(name if name not in result else f"{name}-1")
    return result


def main():
    code, shown, linked, faults = excerpts(), set(), set(), []
    chapters, index = sorted(MANUAL.glob("[0-9]*.md")), MANUAL / "README.md"
    for page in [MANUAL.parents[1] / "README.md", index, *chapters]:
        text = page.read_text()

        def put(block):
            key, language = (block[1], block[2]), block[3]
            if key in code:
                shown.add(key)
                if block[4] != code[key]:
                    faults.append(f"{page.name}: the block is not {key[0]} {key[1] or ''}")
                opening = block[0][: block[0].index("```")]
                return f"{opening}```{language}\n{code[key]}```"
            if language in LANGUAGES or block[1]:
                faults.append(f"{page.name}: no code for the block {key}: {block[4][:40]!r}")
            return block[0]

        new = BLOCK.sub(put, text)
        if "--write" in sys.argv and new != text:
            page.write_text(new)
        if re.search(r"^    .*;(\s*//.*)?$", without_code(text), re.MULTILINE):
            faults.append(f"{page.name}: an indented block of code, which nothing tests")
        for target in re.findall(r"\]\(([^)\s]+)\)", without_code(text)):
            name, _, anchor = target.partition("#")
            if re.match(r"\w+:", target):
                continue
            path = (page.parent / name).resolve() if name else page
            linked.add((page, path))
            if not path.exists():
                faults.append(f"{page.name}: {target} is not there")
            elif anchor and anchor not in anchors(path):
                faults.append(f"{page.name}: {target} is no heading")
    faults += [f"{name} {region or ''} is shown on no page" for name, region in code.keys() - shown]
    everywhere = {path for _, path in linked}
    faults += [f"{path.name} is on no page" for path in MANUAL.glob("pictures/**/*.png") if path not in everywhere]
    faults += [f"{path.name} is not in the index" for path in chapters if (index, path) not in linked]
    print(*faults, sep="\n", end="\n" if faults else "")
    return bool(faults)


sys.exit(main())
