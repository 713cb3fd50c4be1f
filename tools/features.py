#!/usr/bin/env python3
# SPDX-License-Identifier: LGPL-2.1-or-later
"""Writes docs/FEATURES.md from tests/features.tsv, the table of what the program does; --check says whether it is up to date.

Lines of the table, cells parted by tabs:
    section   heading
    note      a paragraph below the heading
    feature   what there is | files it lives in | tests that fail when it is wrong: "FILE: NAME, NAME; FILE: NAME" below tests/,
              or "no test" and perhaps why
    defect    file | what is replaced, which stands there once | by what: breaks the feature above (tools/break_features)
A line break inside a cell is written as U+23CE, a line that begins with "#" says nothing.
"""
import collections
import os
import re
import sys

TOP = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
TABLE = "tests/features.tsv"
PAGE = "docs/FEATURES.md"
NO_TEST = "no test"
LINE_BREAK = "\u23ce"
CELLS = {"section": 1, "note": 1, "feature": 3, "defect": 3}
HEAD = """# What Lumotune does, and where

Made by `tools/features.py` from `tests/features.tsv`, which also names for each feature the tests that fail when it is wrong and
a defect that proves it. `tools/check_features` and the native tests check that the files and tests exist and that no control,
menu item, command, file or text of the code is missing; `tools/break_features` puts the defects in. Where there is no test the
page says so. Every parser of foreign bytes has a fuzz target in `tests/fuzz/` besides, and `tools/bench` shows the speed.
"""

Line = collections.namedtuple("Line", "number kind cells")
Feature = collections.namedtuple("Feature", "number name files tests no_test defects")
Defect = collections.namedtuple("Defect", "number path text replacement")


def read(path):
    with open(os.path.join(TOP, path), encoding="utf-8", newline="") as source:
        return source.read()


def lines(text=None):
    for number, line in enumerate((read(TABLE) if text is None else text).split("\n"), 1):
        if line and not line.startswith("#"):
            kind, *cells = line.split("\t")
            yield Line(number, kind, [cell.replace(LINE_BREAK, "\n") for cell in cells])


def shape_problems(text=None):
    """Lines of no known kind or with too many cells, defects of nothing."""
    below = False
    for line in lines(text):
        if len(line.cells) != CELLS.get(line.kind):
            yield f"{TABLE}:{line.number}: {line.kind!r} with {len(line.cells)} cells"
        if line.kind == "defect" and not below:
            yield f"{TABLE}:{line.number}: a defect of no feature"
        below = line.kind == "feature" or (below and line.kind == "defect")


def tests_of(cell):
    """{file below tests/: names}; nothing for "no test"."""
    if cell.startswith(NO_TEST):
        return {}
    parts = (part.strip().partition(":") for part in cell.split(";"))
    return {path: [name.strip() for name in names.split(",")] for path, _, names in parts}


def features(text=None):
    result = []
    for line in lines(text):
        if line.kind == "feature":
            name, files, tests = line.cells
            result.append(Feature(line.number, name, [path.strip() for path in files.split(",")], tests_of(tests),
                                  tests if tests.startswith(NO_TEST) else "", []))
        elif line.kind == "defect":
            result[-1].defects.append(Defect(line.number, *line.cells))
    return result


def page(text=None):
    out = [HEAD]
    for line in lines(text):
        if line.kind == "section":
            out.append(f"\n## {line.cells[0]}\n\n")
        elif line.kind == "note":
            out.append(f"{line.cells[0]}\n\n")
        elif line.kind == "feature":
            name, files, tests = line.cells
            untested = f"; {tests}" if tests.startswith(NO_TEST) else ""
            out.append(f"- {name} ({', '.join(f'`{path.strip()}`' for path in files.split(','))}{untested})\n")
    return "".join(out)


# What the compiler's lexer would see, as far as it matters here: comments are left out, neighbouring literals are one.
TOKEN = re.compile(r'(?P<skip>\s+|//[^\n]*|/\*.*?\*/)|L?R"(?P<mark>\w*)\((?P<raw>.*?)\)(?P=mark)"|'
                   r'L?"(?P<text>(?:\\.|[^"\\])*)"|(?P<other>L?\'(?:\\.|[^\'\\])+\'|\w+|.)', re.DOTALL)


def tokens(source):
    """("text", content) for a literal, ("other", spelling) for the rest."""
    result = []
    for found in TOKEN.finditer(source):
        if found["skip"]:
            continue
        text = found["text"] if found["text"] is not None else found["raw"]
        if text is None:
            result.append(("other", found["other"]))
        elif result and result[-1][0] == "text":
            result[-1] = ("text", result[-1][1] + text)
        else:
            result.append(("text", text))
    return result


def main():
    if wrong := list(shape_problems()):
        print(*wrong, sep="\n")
        return 1
    made = page()
    if sys.argv[1:] == ["--check"]:
        if read(PAGE) != made:
            print(f"{PAGE} is not what {TABLE} makes: run tools/features.py")
            return 1
        return 0
    with open(os.path.join(TOP, PAGE), "w", encoding="utf-8", newline="") as out:
        out.write(made)
    return 0


if __name__ == "__main__":
    sys.exit(main())
