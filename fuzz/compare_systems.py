#!/usr/bin/env python3
"""Runs the same programs on the headless library and on Windows, and reports the first call of each that differs.

compare_systems.py HEADLESS_FUZZER WINDOWS_COMMAND... -- OPTIONS of lacquer_fuzz
"""
import itertools
import os
import subprocess
import sys

SKIPPED = 77

# The kind of an empty clip, and fractions that go through each system's own sine and cosine.
ANSWERS_DIFFER = {"IntersectClipRect", "PathGetBounds", "velPathGetBounds"}


def comparable(line):
    fields = line.split()
    return fields[:4] + fields[5:] if len(fields) == 6 and fields[2] in ANSWERS_DIFFER else fields


def main():
    separator = sys.argv.index("--")
    headless, windows, options = sys.argv[1], sys.argv[2:separator], sys.argv[separator + 1:]
    if not os.path.exists(headless):
        print(f"no {headless} to compare with")
        return SKIPPED
    processes = [
        subprocess.Popen(command + ["--digests"] + options, stdout=subprocess.PIPE, text=True)
        for command in ([headless], windows)
    ]
    different, calls = {}, 0
    for line, other in itertools.zip_longest(*(process.stdout for process in processes), fillvalue="the end"):
        calls += 1
        program = line.split()[0]
        if comparable(line) != comparable(other) and program not in different:
            different[program] = (line.strip(), other.strip())
        if "the end" in (line, other):
            for process in processes:
                process.kill()
            break
    for line, other in different.values():
        print(f"headless: {line}\nWindows:  {other}")
    print(f"{calls} calls, {len(different)} programs differ")
    failed = any([process.wait() != 0 for process in processes])
    return 1 if different or failed or calls < 100 else 0


sys.exit(main())
