#!/usr/bin/env python3
"""Follows the recipes of docs/developing.md in a copy of the tree, build/recipe/tree: adds a combine rule with two rows,
a faster form of it, a row and an export; builds the copy and runs the tests that go over all rows and exports.

usage: tests/recipe/apply_recipe.py

The recipes' texts are beside this script. One consists of

    section TITLE    the section of docs/developing.md that it follows, which names each of its files
    files COUNT      how many files it takes, at most
    == PATH [with REGEX]
                     a file; with a pattern in its path, the one in which some line matches REGEX
    before REGEX, after REGEX, replace REGEX
                     the place: the one line of the file that matches
    | TEXT           a line to put there

Ends with 1 when a recipe no longer fits the tree or its section, when the copy does not build, when a test fails, and
when the tests pass although the new rule and its model differ.
"""
import fnmatch
import os
import pathlib
import re
import subprocess
import sys

HERE = pathlib.Path(__file__).resolve().parent
ROOT = HERE.parent.parent
TREE = ROOT / "build" / "recipe" / "tree"
BUILD = TREE / "build" / "native"
RECIPES = ["combine_rule", "faster_rule", "kernel_row", "export"]
PROGRAMS = ["pipeline_test", "api_test", "lacquer_fuzz"]
TESTS = "^(pipeline_test|api_test|export_table|fuzz_exports)$"


class Unfit(Exception):
    """What a recipe says can't be done."""


def git_files():
    listed = subprocess.run(["git", "ls-files", "-z", "--cached", "--others", "--exclude-standard"], cwd=ROOT,
                            check=True, capture_output=True).stdout.decode()
    return [name for name in listed.split("\0") if name and (ROOT / name).is_file()]


def section_of(title):
    """The text below a heading of the developers' page, up to the next one."""
    page = (ROOT / "docs" / "developing.md").read_text(encoding="utf-8")
    found = re.search(rf"^## {re.escape(title)}\n(.*?)(?=^## |\Z)", page, re.M | re.S)
    if not found:
        raise Unfit(f"docs/developing.md has no section '{title}'")
    return found.group(1)


class Tree:
    """The files of the copy as they will be."""

    def __init__(self):
        self.files = {name: (ROOT / name).read_bytes() for name in git_files()}

    def find(self, pattern, regex):
        names = [name for name in self.files if fnmatch.fnmatchcase(name, pattern)]
        if regex:
            names = [name for name in names if re.search(regex, self.files[name].decode(), re.M)]
        if len(names) != 1:
            raise Unfit(f"{pattern}: {len(names)} such files")
        return names[0]

    def put(self, name, place, regex, lines):
        old = self.files[name].decode().split("\n")
        at = [i for i, line in enumerate(old) if re.search(regex, line)]
        if len(at) != 1:
            raise Unfit(f"{name}: {len(at)} lines match {regex}")
        first, end = {"before": (at[0], at[0]), "after": (at[0] + 1, at[0] + 1), "replace": (at[0], at[0] + 1)}[place]
        self.files[name] = "\n".join(old[:first] + lines + old[end:]).encode()

    def write(self):
        """Writes what differs, so that a second run builds little."""
        TREE.mkdir(parents=True, exist_ok=True)
        for name, content in self.files.items():
            path = TREE / name
            if not path.is_file() or path.read_bytes() != content:
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_bytes(content)
            path.chmod((ROOT / name).stat().st_mode)
        for path in TREE.rglob("*"):
            if path.is_file() and BUILD not in path.parents and str(path.relative_to(TREE)) not in self.files:
                path.unlink()


def apply(tree, recipe):
    name = section = most = place = None
    touched, lines = [], []

    def finish():
        if place:
            tree.put(name, *place, lines)
        lines.clear()

    for line in (HERE / f"{recipe}.txt").read_text(encoding="utf-8").splitlines():
        word, _, rest = line.partition(" ")
        if word == "|":
            lines.append(rest)
            continue
        finish()
        place = None
        if word == "section":
            section = section_of(rest)
        elif word == "files":
            most = int(rest)
        elif word == "==":
            pattern, _, regex = rest.partition(" with ")
            name = tree.find(pattern, regex)
            touched.append(name)
            if not any(fnmatch.fnmatchcase(name, mention) for mention in re.findall("`([^`]+)`", section)):
                raise Unfit(f"{recipe}: its section of docs/developing.md does not name {name}")
        elif word in ("before", "after", "replace"):
            place = word, rest
        elif word:
            raise Unfit(f"{recipe}.txt: {line}")
    finish()
    if len(touched) > most:
        raise Unfit(f"{recipe} takes {len(touched)} files, {most} at most are promised")
    print(f"{recipe}: {', '.join(touched)}")


def run(*command, check=True, **options):
    environment = dict(os.environ, CCACHE_BASEDIR=str(TREE), CCACHE_NOHASHDIR="1")
    result = subprocess.run(command, cwd=TREE, env=environment, **options)
    if check and result.returncode != 0:
        raise Unfit(f"{' '.join(command)} ended with {result.returncode}")
    return result


def build(*targets):
    run("cmake", "--build", str(BUILD), "-j", str(os.cpu_count()), "--target", *targets, stdout=subprocess.DEVNULL)


def main():
    tree = Tree()
    for recipe in RECIPES:
        apply(tree, recipe)
    tree.write()
    run("cmake", "--preset", "native", "-DLACQUER_TESTS=ON", "-DLACQUER_EXAMPLES=OFF", "-DLACQUER_FUZZ=ON",
        "--log-level=WARNING", stdout=subprocess.DEVNULL)
    build(*PROGRAMS)
    run("ctest", "--test-dir", str(BUILD), "--output-on-failure", "-R", TESTS)

    # The tests must have seen what is new.
    listed = run(str(BUILD / "tests/api/api_test"), "--gtest_list_tests", capture_output=True, text=True).stdout
    if "GetCanvasBitsPixel" not in listed:
        raise Unfit("api_test does not call the new export")
    model = tree.find("tests/pipeline/*.cpp", r"uint32_t ModelCombine\(")
    tree.put(model, "replace", "case CombineKind::Lighten:", ["        case CombineKind::Lighten: return d;"])
    tree.write()
    build("pipeline_test")
    if run(str(BUILD / "tests/pipeline/pipeline_test"), "--gtest_brief=1", "--gtest_fail_fast", check=False,
           stdout=subprocess.DEVNULL).returncode == 0:
        raise Unfit("pipeline_test does not check the new rule")
    print("the recipes hold")


if len(sys.argv) > 1:
    sys.exit(__doc__)
try:
    main()
except Unfit as fault:
    sys.exit(f"apply_recipe: {fault}")
