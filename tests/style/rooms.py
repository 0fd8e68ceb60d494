#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Every private member function of the window stands in its class under the folder whose sources
implement it, so that the class is a map of the folders.

usage: rooms.py SOURCE_DIR
"""
import os
import re
import sys


def declared(header):
    """Folder by member, as the comments "// folder/" in the class have it."""
    folder = None
    for line in header.splitlines():
        comment = re.fullmatch(r"    // (\w+)/", line)
        member = re.match(r"    (?:\[\[nodiscard\]\] )?[\w:]+[*&]? (\w+)\(.*\)(?: const)?;", line) \
            or re.match(r"    [\w:]+[*&]? (\w+)\(", line)
        if comment:
            folder = comment[1]
        elif folder and member:
            yield member[1], folder


def implemented(source):
    """Folder by member, as the sources have it."""
    for folder in sorted(os.listdir(source)):
        path = os.path.join(source, folder)
        if not os.path.isdir(path) or not re.fullmatch(r"\w+", folder):
            continue
        for name in os.listdir(path):
            if name.endswith(".cpp"):
                with open(os.path.join(path, name), encoding="utf-8") as file:
                    for found in re.finditer(r"^[\w:<>*& ]+ MainWindow::(\w+)\(", file.read(), re.M):
                        yield found[1], folder


def main():
    source = sys.argv[1]
    with open(os.path.join(source, "app", "mainwindow.h"), encoding="utf-8") as file:
        private = file.read().split("\nprivate:\n")[1]
    homes = dict(implemented(source))
    members = list(declared(private))
    wrong = [f"app/mainwindow.h: {member} stands under {folder}/ and is implemented in {homes[member]}/"
             for member, folder in members if homes.get(member, folder) != folder]
    wrong += [f"app/mainwindow.h: no folder stands above {member}"
              for member in set(homes) - {name for name, _ in members}
              if re.search(rf"\b{member}\(", private)]
    print("\n".join(wrong) if wrong else f"{len(members)} members stand under their folders.")
    return 1 if wrong or not members else 0


if __name__ == "__main__":
    sys.exit(main())
