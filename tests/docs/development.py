#!/usr/bin/env python3
# SPDX-License-Identifier: MIT
"""Holds the pages that are installed against the installed tree: every link and path of theirs, and
every command of those on the SDK and on its simulated camera, in their order, in one shell for each page
and in a scratch folder. The tree holds what the two packages hold.

usage: development.py BUILD_DIR      installs BUILD_DIR into a scratch folder of its own
       development.py --tree TREE    takes a tree that is there, such as the unpacked packages
"""
import glob
import gzip
import os
import re
import shutil
import subprocess
import sys
import tempfile

sys.dont_write_bytecode = True
from links import dead_links  # pylint: disable=wrong-import-position

SOURCE = os.path.dirname(os.path.dirname(os.path.dirname(os.path.abspath(__file__))))

# Before the commands of a page: what they leave running ends with them.
PROLOGUE = "trap 'jobs -p | xargs -r kill' EXIT\n"


def commands(page):
    """The page's commands as one script. A program that takes commands is waited for: who reads the
    page sees its window."""
    with open(page, encoding="utf-8") as file:
        blocks = re.findall(r"^( *)```sh\n(.*?)^ *```", file.read(), re.M | re.S)
    script = "".join(re.sub(f"^{indent}", "", block, flags=re.M) for indent, block in blocks)
    return re.sub(r"^(TAVREL_SIMULATOR_CONTROL=(\w+) .*&)$",
                  r"\1 until ombrix-simulator --at \2 list || ! kill -0 $!; do sleep 0.1; done",
                  script, flags=re.M)


def paths_of_the_sources(file, text, headers):
    """Words of an installed text that stand for something in the sources and for nothing here."""
    for word in re.findall(r"(?<![\w/:.-])(?:\.?/?[\w-]+)(?:/[\w.*-]+)*", text):
        word = word.rstrip(".")
        if "/" in word and not os.path.isabs(word) and not any(
                os.path.exists(os.path.join(place, word))
                for place in (os.path.dirname(file), headers)) and (
                    word.startswith("build/") or os.path.exists(os.path.join(SOURCE, word))):
            yield f"{file}: {word} is in the sources only"


def missing_paths(file, text, prefix):
    """Places under the prefix that a manual page tells of and that are not there."""
    for word in re.findall(r"\b(?:share|lib|include)/[\w./-]+", text.replace("\\-", "-")):
        if not os.path.exists(os.path.join(prefix, word)):
            yield f"{file}: {word} is not there"


def misleading(prefix):
    """What in the installed documents leads nowhere."""
    headers = os.path.join(prefix, "include", "ombrix-sdk")
    for file in glob.glob(f"{prefix}/share/doc/**/*.*", recursive=True):
        if file.endswith(".md"):
            yield from dead_links(file)
        # The changes tell of the sources, too.
        if not os.path.basename(file).lower().startswith("changelog"):
            with open(file, encoding="utf-8") as text:
                yield from paths_of_the_sources(file, text.read(), headers)
    for file in glob.glob(f"{prefix}/share/man/man1/*"):
        with (gzip.open if file.endswith(".gz") else open)(file, "rt", encoding="utf-8") as text:
            yield from missing_paths(file, text.read(), prefix)


def only(pattern):
    found = glob.glob(pattern, recursive=True)
    if len(found) != 1:
        sys.exit(f"FAIL  {pattern}: {len(found)} of them")
    return found[0]


def followed(page, scratch, environment):
    """Whether the page's commands work, and what they say."""
    script = commands(page)
    result = subprocess.run(["bash", "-euxc", PROLOGUE + script], cwd=scratch, env=environment,
                            stdin=subprocess.DEVNULL, stdout=subprocess.PIPE,
                            stderr=subprocess.STDOUT, text=True, check=False)
    print(result.stdout)
    if result.returncode != 0 or not script:
        print(f"FAIL  {page}: its commands end with {result.returncode}")
    return result.returncode == 0 and script != "", result.stdout


def missing_library_is_named(prefix, documents, scratch):
    """Whether CMake says what is missing where only the development files are installed."""
    package = os.path.dirname(only(f"{prefix}/**/OmbrixSdkConfig.cmake"))
    alone = os.path.join(scratch, "alone")
    shutil.copytree(package, os.path.join(alone, os.path.relpath(package, prefix)))
    result = subprocess.run(["cmake", "-S", os.path.join(documents, "examples", "program"),
                             "-B", os.path.join(scratch, "unbuilt"), "-G", "Ninja",
                             f"-DOmbrixSdk_ROOT={alone}"],
                            stdout=subprocess.PIPE, stderr=subprocess.STDOUT, text=True, check=False)
    named = re.search(r"libombrix\.sdk\.so is not\s+there", result.stdout) is not None
    if result.returncode == 0 or not named:
        print(f"FAIL  a library that is not there is not named:\n{result.stdout}")
    return result.returncode != 0 and named


def tried(tree, scratch):
    """Whether the pages hold against the tree."""
    prefix = os.path.dirname(os.path.dirname(only(f"{tree}/**/bin/ombrix-simulator")))
    wrong = list(misleading(prefix))
    print("\n".join(wrong))
    documents = os.path.join(prefix, "share", "doc", "libombrix-sdk-dev")
    environment = {name: value for name, value in os.environ.items()
                   if not name.startswith("TAVREL_SIMULATOR_")}
    environment["CMAKE_GENERATOR"] = "Ninja"  # make is not installed for the tests
    environment["QT_QPA_PLATFORM"] = "offscreen"
    environment["PATH"] = os.path.join(prefix, "bin") + os.pathsep + environment["PATH"]
    environment["PKG_CONFIG_PATH"] = os.path.join(prefix, "share", "pkgconfig")
    environment["CMAKE_PREFIX_PATH"] = prefix
    camera_works, _ = followed(os.path.join(documents, "simulator.md"), scratch, environment)
    works, output = followed(os.path.join(documents, "sdk-development.md"), scratch, environment)
    # Built by CMake, installed by it, built by pkg-config; slow, in the job, and behind another library.
    said = output.count("camera 20417, gamma 1\ndone\n")
    if said != 6:
        print(f"FAIL  the first program said what it should {said} times")
    # The job as the service has it, and once more when it was broken and mended.
    passed = output.count("100% tests passed")
    if passed != 2:
        print(f"FAIL  the job passed {passed} times")
    named = missing_library_is_named(prefix, documents, scratch)
    return works and camera_works and said == 6 and passed == 2 and named and not wrong


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
