#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the documents against what they tell of: the guide against the window's own form, the first
lines against the camera that is really behind them, licences and dates against their one place, links
against what they lead to.

usage: check_facts.py SOURCE_DIR VERSION RELEASE_DATE
"""
import glob
import os
import re
import sys
import xml.etree.ElementTree

sys.dont_write_bytecode = True
from links import dead_links  # pylint: disable=wrong-import-position

SOURCE, VERSION, RELEASE_DATE = sys.argv[1:]

# Where somebody first reads of the tool: the file, and what its first lines begin behind.
BEGINNINGS = [
    ("README.md", "```\n"),
    ("docs/user-guide.md", "# User guide\n"),
    ("packaging/linux/tavrel.1.in", ".SH DESCRIPTION\n"),
    ("packaging/linux/tavrel.desktop", "Comment="),
    ("packaging/linux/example.halvorn.tavrel.metainfo.xml.in", "<description>\n"),
    ("cmake/TavrelPackageLinux.cmake", "CPACK_COMPONENT_UNSPECIFIED_DESCRIPTION\n"),
    ("packaging/windows/notes.txt.in", "=\n\n"),
]
FIRST = 330  # characters

# The tool's own licence, and the libraries' that are passed on with it.
LICENCES = {
    "README.md": ["MIT", "LGPL 3", "Apache License 2.0"],
    "packaging/linux/copyright": ["Expat", "Lesser General Public License, version 3",
                                  "Apache License 2.0"],
    "packaging/linux/example.halvorn.tavrel.metainfo.xml.in":
        ["<project_license>MIT</project_license>"],
    "packaging/windows/notes.txt.in": ["MIT", "LGPL version 3", "Apache License 2.0"],
}


def content(name):
    with open(os.path.join(SOURCE, name), encoding="utf-8") as file:
        return file.read()


def property_of(widget, name):
    found = widget.find(f"property[@name='{name}']")
    return "" if found is None else "".join(found.itertext()).strip()


def shown_texts():
    """What the window's controls are called: captions, labels, tabs, first and last of a list."""
    form = xml.etree.ElementTree.parse(os.path.join(SOURCE, "ui/mainwindow.ui"))
    for title in form.iterfind(".//attribute[@name='title']"):
        yield "".join(title.itertext()).strip()
    for widget in form.iter("widget"):
        kind = widget.get("class")
        heading = widget.findtext("property[@name='font']/font/bold") == "true"
        if kind in ("QPushButton", "QCheckBox") or (kind == "QLabel" and not heading):
            yield property_of(widget, "text")
        entries = [property_of(item, "text") for item in widget.findall("item")]
        yield from entries[:1] + entries[-1:]


def missing_in_guide():
    named = "\n".join(re.findall(r"\*\*[^*]*\*\*|`[^`]*`|^#.*", content("docs/user-guide.md"), re.M))
    for text in shown_texts():
        # A switch is called without its state, a coordinate without its range; logos have no name.
        name = re.sub(r": (Dea|A)ctivated$|^\[.*\]\s*|:$|^<.*", "", text)
        if name not in named:
            yield text


def pages():
    for pattern in ("*.md", "docs/*.md", "bench/*.md", "packaging/*/*.md"):
        yield from glob.glob(os.path.join(SOURCE, pattern))


# What the simulated camera's memory does not hold: how the page begins to list it, and what stands in
# the table of parameters.
NOT_IN_MEMORY = [("only its maker gives a camera:", "Factory"), ("ends with its power:", "Lost")]


def wrong_lists():
    for beginning, retention in NOT_IN_MEMORY:
        listed = re.findall(r"`(\w+)`", content("docs/simulator.md").split(beginning)[1].split(".")[0])
        held = re.findall(rf"^PARAMETER\((\w+),.* {retention}\)", content("simulator/parameters.def"),
                          re.M)
        if sorted(listed) != sorted(held):
            yield f"docs/simulator.md: what {beginning} is {held}, not {listed}"


def failures():
    for page in pages():
        yield from dead_links(page)
    for name, start in BEGINNINGS:
        begin = content(name).find(start) + len(start)
        first = content(name)[begin:begin + FIRST]
        if begin < len(start) or "simulated" not in first or "library" not in first:
            yield f"{name}: its first lines do not tell that the camera is simulated, and whose " \
                  f"library takes its place"
    yield from wrong_lists()
    for text in missing_in_guide():
        yield f"docs/user-guide.md: nothing of \"{text}\""
    entry = f"## {VERSION} ({RELEASE_DATE})"
    if entry not in content("CHANGELOG.md").splitlines():
        yield f"CHANGELOG.md: no entry \"{entry}\""
    holder = re.search(r"Copyright \(c\) (.*)", content("LICENSE")).group(1)
    if f"Copyright: {holder}\n" not in content("packaging/linux/copyright"):
        yield f"packaging/linux/copyright: not {holder}"
    for name, words in LICENCES.items():
        for word in words:
            if word not in content(name):
                yield f"{name}: nothing of \"{word}\""


found = list(failures())
print("\n".join(found))
sys.exit(1 if found else 0)
