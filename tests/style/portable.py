#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Refuses what g++ takes in a release build, and MSVC or a debug build does not. Every rule first proves
itself on lines of its own: those that it must refuse and those that it must let pass.

usage: portable.py SOURCE_DIR
"""
import os
import re
import sys
from dataclasses import dataclass
from typing import Callable

FOLDERS = ["app", "ui", "sdk", "link", "params", "bpr", "ctl", "simulator", "tour", "tests", "bench"]

ALGORITHM = (r"std::(?:ranges::)?(?:(?:find|search|adjacent_find|lower_bound|upper_bound|partition_point"
             r"|min_element|max_element|is_sorted_until|unique|remove|partition|rotate|copy|transform"
             r"|next|prev|c?r?begin|c?r?end)(?:_if(?:_not)?|_first_of|_end|_n|_backward)?)\(")
MEMBER = r"[\w.>\[\]()-]+(?:\.|->)c?r?(?:begin|end)\(\)"

# Functions that MSVC's <cmath> declares outside of std, whatever was included.
MATH = "nan|j0|j1|jn|y0|y1|yn|gamma|hypot|round|trunc|log2|exp2|remainder"


def matches(pattern):
    """Where the pattern stands in a text."""
    compiled = re.compile(pattern, re.S)
    return lambda text: [found.start() for found in compiled.finditer(text)]


def member_functions_taken_apart(text):
    """Where a pointer to a member function is measured or copied as bytes."""
    names = set(re.findall(r"(?:::\s*\*\s*(?:const\s+)?)(\w+)\s*\)?\s*(?=[(),;=])", text))
    for name in names:
        for found in re.finditer(rf"sizeof\s*\(?\s*{name}\b|\b(?:memcpy|bit_cast\s*<[^;]*>)\s*\([^;]*\b{name}\b",
                                 text):
            yield found.start()


def attributes_for_everybody(text):
    """Where a compiler's own attribute stands outside of a question for the system or compiler."""
    asked = 0
    place = 0
    for line in text.splitlines(keepends=True):
        directive = re.match(r"\s*#\s*(ifdef|ifndef|if|endif)\b(.*)", line)
        if directive and directive[1] == "endif":
            asked = max(0, asked - 1)
        elif directive and (asked or re.search(r"_MSC_VER|_WIN32|__GNUC__", directive[2])):
            asked += 1
        if not asked:
            for found in re.finditer(r"__attribute__|__builtin_\w+|__PRETTY_FUNCTION__", line):
                yield place + found.start()
        place += len(line)


@dataclass(frozen=True)
class Rule:
    says: str
    places: Callable
    refused: list
    taken: list
    # Files that are never built with that compiler.
    not_in: str = r"(?!)"


# A file with this beside it, and whatever starts programs of Linux, is not built on Windows.
LINUX_ONLY = r"tour/|bench/|tests/fuzz/"

RULES = [
    Rule("an iterator is \"auto\": that of an array is a class there, and no pointer",
         matches(rf"\bauto\s*(?:const\s*)?\*\s*(?:const\s+)?\w+\s*=\s*(?:{ALGORITHM}|{MEMBER})"),
         ["const auto* const found = std::find(rates.begin(), rates.end(), 9);",
          "const auto* const row =\n    std::find_if(std::begin(rows), std::end(rows), isIt);",
          "auto* place = std::ranges::lower_bound(rates, 9);",
          "const auto* first = rates.begin();",
          "auto const* last = table->rows.cend();"],
         ["const auto found = std::find(rates.begin(), rates.end(), 9);",
          "const auto* const bytes = static_cast<const char*>(buffer);",
          "const auto* const data = rates.data();",
          "const auto* const pane = window.findChild<QPlainTextEdit*>(name);"]),
    Rule("SIGNAL and SLOT call a function in a debug build, and are no constant expressions",
         matches(r"\bconstexpr\b[^;]*\b(?:SIGNAL|SLOT)\("),
         ["inline constexpr const char* moved = SIGNAL(sliderMoved(int));",
          "static constexpr const char* all[] = {\n    SIGNAL(clicked(bool)),\n};"],
         ["const char* const clicked = SIGNAL(clicked(bool));",
          "constexpr int width = 3;\nconst char* const slots[] = {SLOT(read())};"]),
    Rule("the constant has the name of a function of <cmath>, which is there outside of std, too",
         matches(rf"(?<![^\n])(?:(?:static|inline|constexpr|const)\s+)+[\w:<>]+\s+(?:{MATH})\s*[={{]"),
         ["constexpr double nan = std::numeric_limits<double>::quiet_NaN();",
          "static const float gamma{7};", "inline constexpr std::uint32_t y1 = 3;"],
         ["constexpr double noNumber = std::numeric_limits<double>::quiet_NaN();",
          "constexpr double gammaValue = 3;", "    const std::uint32_t gamma = camera->getGamma();",
          "return std::nan(\"\");"]),
    Rule("a pointer to a member function has another size and content there",
         member_functions_taken_apart,
         ["int slot(void (Interface::*operation)()) { long w[2]; static_assert(sizeof(operation) == 16); }",
          "template<typename S> int slotOf(S Interface::*operation)\n{ std::memcpy(words, &operation, 16); }"],
         ["int call(void (Interface::*operation)()) { return (object.*operation)(); }",
          "int f(int operation) { return sizeof(operation); }"]),
    Rule("attributes of g++ are a syntax error there: ask for the compiler, or use [[...]]",
         attributes_for_everybody,
         ["__attribute__((noinline)) void f();", "#ifdef SOMETHING\n__attribute__((used)) int i;\n#endif",
          "#ifdef _WIN32\n#endif\nbool b = __builtin_expect(c, 1);"],
         ["[[noreturn]] void f();",
          "#if defined(_WIN32)\n#    define API __declspec(dllexport)\n#else\n"
          "#    define API __attribute__((visibility(\"default\")))\n#endif\n"],
         not_in=LINUX_ONLY),
]


def without_comments(text):
    """The same with blanks for comments, so that places stay."""
    return re.sub(r"//[^\n]*|/\*.*?\*/", lambda found: re.sub(r"[^\n]", " ", found[0]), text, flags=re.S)


def built_on_windows(path):
    """Not so what a file for Windows takes the place of."""
    stem = path.rsplit(".", 1)[0]
    return not (os.path.exists(stem + "_windows.cpp") or stem.endswith("_linux"))


def main():
    source = sys.argv[1]
    wrong = []
    for rule in RULES:
        wrong += [f"does not refuse: {line}" for line in rule.refused if not list(rule.places(line))]
        wrong += [f"refuses: {line}" for line in rule.taken if list(rule.places(line))]
    files = 0
    for folder in FOLDERS:
        for place, _, names in os.walk(os.path.join(source, folder)):
            for name in names:
                path = os.path.join(place, name)
                if not name.endswith((".cpp", ".h")) or not built_on_windows(path):
                    continue
                files += 1
                with open(path, encoding="utf-8") as file:
                    text = without_comments(file.read())
                relative = os.path.relpath(path, source)
                for rule in RULES:
                    if not re.match(rule.not_in, relative):
                        wrong += [f"{relative}:{text.count(chr(10), 0, at) + 1}: {rule.says}"
                                  for at in rule.places(text)]
    print("\n".join(wrong) if wrong else f"{files} files: nothing that MSVC or a debug build refuses.")
    return 1 if wrong or not files else 0


if __name__ == "__main__":
    sys.exit(main())
