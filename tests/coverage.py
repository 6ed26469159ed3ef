#!/usr/bin/env python3
"""Tells which lines of src/ the programs of a coverage build have reached since it was built.

usage: tests/coverage.py BUILD [--list]

BUILD: the folder of the preset native-coverage, after its programs ran. Prints the share of lines reached per folder
and in all; with --list also the lines that were not. Ends with 1 below 95 %.
"""
import collections
import json
import pathlib
import subprocess
import sys

WANTED = 0.95


def reached_lines(build, source):
    """Maps each file of src/ to its lines, and each line to whether it was reached in any object."""
    files = collections.defaultdict(dict)
    for data in build.glob("src/**/*.gcda"):
        listing = subprocess.run(["gcov", "--json-format", "--stdout", data], check=True, capture_output=True).stdout
        for text in listing.splitlines():
            for file in json.loads(text)["files"]:
                path = pathlib.Path(file["file"])
                path = (build / path if not path.is_absolute() else path).resolve()
                if not path.is_relative_to(source / "src"):
                    continue
                lines = files[str(path.relative_to(source))]
                for line in file["lines"]:
                    number = line["line_number"]
                    lines[number] = lines.get(number, False) or line["count"] > 0
    return files


def main(arguments):
    if not arguments or len(arguments) > 2 or arguments[1:] not in ([], ["--list"]):
        sys.exit(__doc__)
    files = reached_lines(pathlib.Path(arguments[0]).resolve(), pathlib.Path(__file__).resolve().parent.parent)
    if not files:
        sys.exit("no program of this build has run")
    folders = collections.defaultdict(lambda: [0, 0])
    for name, lines in files.items():
        for key in (str(pathlib.Path(name).parent), "all"):
            folders[key][0] += sum(lines.values())
            folders[key][1] += len(lines)
    for name, (reached, total) in sorted(folders.items(), key=lambda item: (item[0] == "all", item[0])):
        print(f"{reached / total:7.1%}  {reached:5} of {total:5}  {name}")
    if len(arguments) == 2:
        for name, lines in sorted(files.items()):
            missed = sorted(number for number, reached in lines.items() if not reached)
            if missed:
                print(f"{name}: {', '.join(map(str, missed))}")
    reached, total = folders["all"]
    return 0 if reached >= WANTED * total else 1


sys.exit(main(sys.argv[1:]))
