"""Reads the public headers and writes the package's table of them: constants, records and functions.

`setup.py` runs it when a wheel is built, so that nothing of the interface is typed out a second time.
"""

import re
from pathlib import Path

HEADERS = {  # Later ones use the records of earlier ones.
    "velGraphic": ["velgraphic/include/velgraphic/win32_types.h", "velgraphic/include/velgraphic/velgraphic.h"],
    "lacquer": ["src/api/include/lacquer/win32_types.h", "src/api/include/lacquer/lacquer.h"],
    "lacquer_image": ["image/include/lacquer/image.h"],
}

FUNCTION = re.compile(r"^(?:LACQUER|VELGRAPHIC|LACQUER_IMAGE)_API\s+([^;()]+?)\(([^;()]*)\);", re.MULTILINE)
RECORD = re.compile(r"typedef struct \w+ \{([^{}]*)\} (\w+);")
OPAQUE = re.compile(r"typedef struct (\w+) \1;")
ENUMERATION = re.compile(r"\benum (?:\w+ )?\{([^{}]*)\};")


def project_version(root):
    """The version that CMakeLists.txt gives the project."""
    return re.search(r"^project\(\w+ VERSION ([\d.]+)", (root / "CMakeLists.txt").read_text(), re.MULTILINE).group(1)


def declarations(path):
    """A header's text without comments and preprocessor lines."""
    text = re.sub(r"/\*.*?\*/", " ", path.read_text(encoding="utf-8"), flags=re.DOTALL)
    return re.sub(r"^#.*(?:\\\n.*)*$|\bLACQUER_HANDLE_OPERATORS\(\w+\)", "", text, flags=re.MULTILINE)


def declared(declaration):
    """(name, type) of a declaration such as `const RECT *dest`: the type without const, its stars at its end."""
    words = re.fullmatch(r"(?:const )?(?:struct )?(?:tag(?=RECT))?(\w+) ?(\**)(\w+)", " ".join(declaration.split()))
    return words.group(3), words.group(1) + words.group(2)


def fields(body):
    """(name, type, count) of each field of a record's body; the count is 0 but for arrays."""
    for line in filter(str.strip, body.split(";")):
        first, *others = line.split(",")
        kind = first.split()[0]
        for field in [first, *(f"{kind} {other}" for other in others)]:
            plain, _, count = field.partition("[")
            yield (*declared(plain), int(count.rstrip("] ") or 0))


def parameters(text):
    return [] if text.strip() == "void" else [declared(parameter)[1] for parameter in text.split(",")]


def table_of(root):
    """The text of the module that the package imports as `_interface`."""
    constants, records, functions = {}, {}, {}
    for library, paths in HEADERS.items():
        functions[library] = {}
        for path in paths:
            text = declarations(root / path)
            for body in ENUMERATION.findall(text):
                for name, value in re.findall(r"(\w+) = (\w+)", body):
                    constants[name] = int(value, 0)
            records.update((name, []) for name in OPAQUE.findall(text))
            records.update((name, list(fields(body))) for body, name in RECORD.findall(text) if "uintptr_t" not in body)
            for result, arguments in FUNCTION.findall(text):
                name, kind = declared(result)
                functions[library][name] = (kind, parameters(arguments))
    lines = ['"""Made from the public headers when the wheel was built."""', "", f'VERSION = "{project_version(root)}"']
    for title, table in ("CONSTANTS", constants), ("RECORDS: dict[str, list[tuple[str, str, int]]]", records):
        lines += ["", f"{title} = {{", *(f"    {name!r}: {value!r}," for name, value in table.items()), "}"]
    lines += ["", "FUNCTIONS = {"]
    for library, table in functions.items():
        lines += [f"    {library!r}: {{", *(f"        {name!r}: {value!r}," for name, value in table.items()), "    },"]
    return "\n".join([*lines, "}", ""])


if __name__ == "__main__":
    print(table_of(Path(__file__).resolve().parent.parent), end="")
