#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Prints lines and branches per folder, and every piece of code that no test reached.

Code that no test can reach stands in the document, in a row of a table that begins with the file and
the code, its lines joined by blanks: | `folder/file.cpp` | `code` | why |. Exit code 1 when a piece
was not reached and has no such row, or when a row has no such piece any more.

usage: report.py COVERAGE_JSON DOCUMENT
"""
import collections
import json
import re
import sys


def content(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def code_lines(entry):
    """The lines of a file that hold code, with those of a template counted once."""
    lines = {}
    for line in entry["lines"]:
        if not line["gcovr/noncode"]:
            lines.setdefault(line["line_number"], []).append(line)
    return sorted(lines.items())


def unreached(entry):
    """Pieces of code that no test reached: number of the first line, and the text."""
    text = content(entry["file"]).split("\n")
    piece = None
    for number, lines in code_lines(entry):
        if any(line["count"] for line in lines):
            if piece:
                yield piece
            piece = None
        elif piece:
            piece = (piece[0], f"{piece[1]} {text[number - 1].strip()}")
        else:
            piece = (number, text[number - 1].strip())
    if piece:
        yield piece


def main():
    files = json.loads(content(sys.argv[1]))["files"]
    explained = set(re.findall(r"^\| `(\w+/[\w./]+)` \| `(.+?)` \|", content(sys.argv[2]), re.M))

    numbers = collections.defaultdict(collections.Counter)
    for entry in files:
        for folder in (entry["file"].split("/")[0], "all"):
            for _, lines in code_lines(entry):
                branches = [branch["count"] > 0 for line in lines for branch in line["branches"]
                            if not branch["throw"]]
                numbers[folder].update(lines=1, reached=any(line["count"] for line in lines),
                                       branches=len(branches), taken=sum(branches))
    print(f"\n{'folder':12}{'lines reached':>16}{'branches taken':>18}")
    for folder, number in sorted(numbers.items(), key=lambda item: (item[0] == "all", item[0])):
        print(f"{folder:12}{number['reached']:>7} of {number['lines']:>5}"
              f"{number['taken']:>9} of {number['branches']:>5}")

    missed = {(entry["file"], text): number for entry in files for number, text in unreached(entry)}
    print("\nNot reached:")
    for (path, text), number in missed.items():
        word = "explained" if (path, text) in explained else "NOT EXPLAINED"
        print(f"{word}: {path}:{number}: {text}")
    for path, text in sorted(explained - set(missed)):
        print(f"REACHED, so its row is wrong: {path}: {text}")
    sys.exit(0 if explained == set(missed) else 1)


if __name__ == "__main__":
    main()
