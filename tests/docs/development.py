#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Runs every command of docs/sdk-development.md, as it is installed, in its order and in one shell, in
a scratch folder and against a tree that holds what the two packages hold.

usage: development.py BUILD_DIR      installs BUILD_DIR into a scratch folder of its own
       development.py --tree TREE    takes a tree that is there, such as the unpacked packages
"""
import glob
import os
import re
import subprocess
import sys
import tempfile


def commands(page):
    with open(page, encoding="utf-8") as file:
        blocks = re.findall(r"^( *)```sh\n(.*?)^ *```", file.read(), re.M | re.S)
    return "".join(re.sub(f"^{indent}", "", block, flags=re.M) for indent, block in blocks)


def dead_links(page):
    """Links of a page to files that are not beside it."""
    with open(page, encoding="utf-8") as file:
        for target in re.findall(r"\]\((?!https?:)([^)#]+)[^)]*\)", file.read()):
            if not os.path.exists(os.path.join(os.path.dirname(page), target)):
                yield f"{page}: {target} is not there"


def only(pattern):
    found = glob.glob(pattern, recursive=True)
    if len(found) != 1:
        sys.exit(f"FAIL  {pattern}: {len(found)} of them")
    return found[0]


def tried(tree, scratch):
    """Whether the page's commands work against the tree."""
    page = only(f"{tree}/**/doc/libombrix-sdk-dev/sdk-development.md")
    described = commands(page)
    pages = glob.glob(os.path.join(os.path.dirname(page), "s*.md"))
    wrong = [link for other in pages for link in dead_links(other)]
    print("\n".join(wrong))
    environment = {name: value for name, value in os.environ.items()
                   if not name.startswith("TAVREL_SIMULATOR_")}
    environment["CMAKE_GENERATOR"] = "Ninja"  # make is not installed for the tests
    programs = os.path.dirname(only(f"{tree}/**/bin/ombrix-simulator"))
    environment["PATH"] = programs + os.pathsep + environment["PATH"]
    environment["PKG_CONFIG_PATH"] = os.path.dirname(only(f"{tree}/**/ombrix-sdk.pc"))
    environment["CMAKE_PREFIX_PATH"] = os.path.dirname(
        os.path.dirname(os.path.dirname(environment["PKG_CONFIG_PATH"] + "/")))
    result = subprocess.run(["bash", "-euxc", described], cwd=scratch, env=environment,
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False)
    print(result.stdout)
    said = result.stdout.count("camera 20417, gamma 1\ndone\n")
    if said < 2:
        print(f"FAIL  the first program said what it should {said} times")
    # The job as the service has it, and once more when it was broken and mended.
    passed = result.stdout.count("100% tests passed")
    if passed != 2:
        print(f"FAIL  the job passed {passed} times")
    return result.returncode == 0 and said >= 2 and passed == 2 and not wrong and described != ""


def main():
    with tempfile.TemporaryDirectory() as folder:
        if sys.argv[1] == "--tree":
            tree = os.path.abspath(sys.argv[2])
        else:
            tree = os.path.join(folder, "installed")
            subprocess.run(["cmake", "--install", sys.argv[1], "--prefix", tree],
                           stdout=subprocess.DEVNULL, check=True)
        scratch = os.path.join(folder, "work")
        os.mkdir(scratch)
        return 0 if tried(tree, scratch) else 1


if __name__ == "__main__":
    sys.exit(main())
