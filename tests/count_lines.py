#!/usr/bin/env python3
"""Counts the lines of C and C++ per folder, without blank lines and comments, and the share of tests and fuzzers."""
import collections
import pathlib
import re
import subprocess

ROOT = pathlib.Path(__file__).resolve().parent.parent


def code_lines(text):
    lines = (line.strip() for line in re.sub(r"/\*.*?\*/", "", text, flags=re.DOTALL).splitlines())
    return sum(1 for line in lines if line and not line.startswith("//"))


counts = collections.Counter()
for name in subprocess.run(["git", "ls-files", "*.h", "*.hpp", "*.cpp", "*.c"], cwd=ROOT, capture_output=True, text=True,
                           check=True).stdout.split():
    folders = name.split("/")
    counts["/".join(folders[:2]) if folders[0] in ("src", "tests") else folders[0]] += code_lines((ROOT / name).read_text())
for folder, lines in sorted(counts.items()):
    print(f"{lines:7} {folder}")
tests = sum(lines for folder, lines in counts.items() if folder.startswith(("tests", "fuzz")))
print(f"{tests:7} tests and fuzzers, {100 * tests / sum(counts.values()):.1f} % of {sum(counts.values())}")
