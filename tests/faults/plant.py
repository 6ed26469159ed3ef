#!/usr/bin/env python3
"""Plants faults one by one in a copy of the tree and runs the tests that should catch them.

    tests/faults/plant.py [--tree FOLDER] [--name PATTERN] [LIST...]     LIST: by default every *.faults beside this file

A list has one paragraph for each fault: a head line, the exact lines that are replaced ("- ") and what replaces them ("+ ").
The old lines occur once in the file.

    == name-of-the-fault src/folder/file.cpp : pipeline_test draw_test
    - return a + b;
    + return a - b;

Each result is written to build/faults/results.txt at once; a fault that stands there with the same text is not planted again,
so an interrupted run goes on where it was. Delete the file to begin anew. Exit code: 0 when every fault was caught.
"""
import argparse
import filecmp
import hashlib
import os
import pathlib
import re
import shutil
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
SECONDS_PER_TEST = 120
PROGRAMS = {"fuzz_programs": "lacquer_fuzz"}  # of tests that are not called as their program is


class Fault:
    def __init__(self, head, lines):
        match = re.fullmatch(r"== (\S+) (\S+) : ([\w ]+)", head)
        if not match:
            sys.exit(f"not the head of a fault: {head}")
        self.name, self.file, self.tests = match[1], match[2], match[3].split()
        self.old = "\n".join(line[2:] for line in lines if line.startswith("-"))
        self.new = "\n".join(line[2:] for line in lines if line.startswith("+"))

    def key(self):
        text = "\0".join([self.name, self.file, *self.tests, self.old, self.new])
        return hashlib.sha256(text.encode()).hexdigest()[:12]


def read_faults(paths):
    faults = []
    for path in paths:
        for paragraph in re.split(r"\n\s*\n", pathlib.Path(path).read_text().strip()):
            lines = [line for line in paragraph.splitlines() if not line.startswith("#")]
            if lines:
                faults.append(Fault(lines[0], lines[1:]))
    names = [fault.name for fault in faults]
    if len(set(names)) != len(names):
        sys.exit("two faults have one name")
    return faults


def run(command, folder):
    """True when the command succeeds."""
    return subprocess.run(command, cwd=folder, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL).returncode == 0


def make_copy(tree, copy):
    """Brings the copy up to date; unchanged files keep their times."""
    listed = subprocess.run(["git", "ls-files", "-z"], cwd=tree, capture_output=True, check=True).stdout
    names = {os.fsdecode(name) for name in listed.split(b"\0") if name}
    present = {name for name in names if (tree / name).is_file()}
    for old in list(copy.rglob("*")) if copy.exists() else []:
        name = str(old.relative_to(copy))
        if old.is_file() and not name.startswith("build/") and name not in present:
            old.unlink()
    for name in present:
        source, target = tree / name, copy / name
        if not target.is_file() or not filecmp.cmp(source, target, shallow=False):
            target.parent.mkdir(parents=True, exist_ok=True)
            shutil.copy(source, target)
    if not run(["cmake", "--preset", "native", "-DLACQUER_TESTS=ON", "-DLACQUER_EXAMPLES=ON", "-DLACQUER_FUZZ=ON"], copy):
        sys.exit("the copy cannot be configured")


def build(copy, tests):
    return run(["cmake", "--build", "build/native", "-j", str(os.cpu_count()), "--target",
                *(PROGRAMS.get(test, test) for test in tests)], copy)


def passes(copy, test):
    command = ["ctest", "-R", f"^{test}$", "--no-tests=error", "--timeout", str(SECONDS_PER_TEST)]
    return run(command, copy / "build/native")


def plant(copy, fault):
    """Result: caught, survived, or why the fault proves nothing."""
    path = copy / fault.file
    text = path.read_text() if path.is_file() else ""
    if not fault.old or text.count(fault.old) != 1:
        return "stale"
    path.write_text(text.replace(fault.old, fault.new))
    try:
        if not build(copy, fault.tests):
            return "does-not-build"
        return "survived" if all(passes(copy, test) for test in fault.tests) else "caught"
    finally:
        path.write_text(text)


def main():
    arguments = argparse.ArgumentParser()
    arguments.add_argument("--tree", type=pathlib.Path, default=HERE.parent.parent)
    arguments.add_argument("--name", default="")
    arguments.add_argument("lists", nargs="*", type=pathlib.Path)
    options = arguments.parse_args()
    faults = [fault for fault in read_faults(options.lists or sorted(HERE.glob("*.faults")))
              if re.search(options.name, fault.name)]

    tree = options.tree.resolve()
    results_file = tree / "build/faults/results.txt"
    copy = tree / "build/faults/tree"
    make_copy(tree, copy)
    results = {}
    if results_file.is_file():
        results = dict(line.split()[:2] for line in results_file.read_text().splitlines())

    tests = sorted({test for fault in faults if fault.key() not in results for test in fault.tests})
    if tests and not (build(copy, tests) and all(passes(copy, test) for test in tests)):
        sys.exit("the tests fail without a fault")

    for fault in faults:
        if fault.key() not in results:
            results[fault.key()] = plant(copy, fault)
            with results_file.open("a") as out:
                out.write(f"{fault.key()} {results[fault.key()]} {fault.name}\n")
        print(f"{results[fault.key()]:15} {fault.name}", flush=True)
    outcomes = [results[fault.key()] for fault in faults]
    print(", ".join(f"{outcomes.count(kind)} {kind}" for kind in sorted(set(outcomes))))
    return 0 if set(outcomes) <= {"caught"} else 1


if __name__ == "__main__":
    sys.exit(main())
