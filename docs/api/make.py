#!/usr/bin/env python3
"""Makes the pages of the public headers.

    docs/api/make.py FOLDER     the pages go to FOLDER/html, the same as XML to FOLDER/xml

Doxygen reads copies of the headers in FOLDER/headers, in which every comment is written out (see expand.py). Its warnings
are errors.
"""

import pathlib
import re
import shutil
import subprocess
import sys

sys.dont_write_bytecode = True

import expand  # noqa: E402

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
FOLDERS = ["src/api/include", "velgraphic/include", "image/include"]


def headers():
    """{path as in #include: text} of all public headers."""
    version = re.search(r"^project\(\w+ VERSION ([\d.]+)", (ROOT / "CMakeLists.txt").read_text(), re.MULTILINE)[1]
    texts = {}
    for folder in FOLDERS:
        for path in sorted((ROOT / folder).glob("*/*")):
            text = path.read_text(encoding="utf-8").replace("@PROJECT_VERSION@", version)
            for name, number in zip(("MAJOR", "MINOR", "PATCH"), version.split(".")):
                text = text.replace(f"@PROJECT_VERSION_{name}@", number)
            texts[str(path.relative_to(ROOT / folder)).removesuffix(".in")] = text
    return texts, version


def make(texts, version, folder, more=""):
    """Writes the pages. Result: what is wrong with the comments, as far as Doxygen sees it."""
    shutil.rmtree(folder, ignore_errors=True)
    expansions, problems = expand.expand(texts)
    for path, text in expansions.items():
        target = folder / "headers" / path
        target.parent.mkdir(parents=True, exist_ok=True)
        target.write_text(text, encoding="utf-8")
    settings = (HERE / "Doxyfile").read_text() + f"""
PROJECT_NUMBER    = {version}
OUTPUT_DIRECTORY  = "{folder}"
INPUT             = "{folder / 'headers'}" "{HERE / 'index.md'}"
USE_MDFILE_AS_MAINPAGE = "{HERE / 'index.md'}"
STRIP_FROM_PATH   = "{folder / 'headers'}"
STRIP_FROM_INC_PATH = "{folder / 'headers'}"
RECURSIVE         = YES
{more}
"""
    run = subprocess.run(["doxygen", "-"], input=settings, text=True, capture_output=True)
    problems += [line.replace(f"{folder}/headers/", "") for line in run.stderr.splitlines() if line.strip()]
    return problems if problems or run.returncode == 0 else [f"doxygen gave {run.returncode}"]


if __name__ == "__main__":
    if len(sys.argv) != 2:
        sys.exit(__doc__)
    found = make(*headers(), pathlib.Path(sys.argv[1]).resolve())
    if found:
        sys.exit("\n".join(found))
