# SPDX-License-Identifier: MIT
"""Links of the pages."""
import os
import re


def prose(page):
    """The page without its code."""
    with open(page, encoding="utf-8") as file:
        text = re.sub(r"^ *```.*?^ *```$", "", file.read(), flags=re.M | re.S)
    return re.sub(r"`[^`]*`", lambda code: re.sub(r"[][()]", "", code.group()), text)


def anchors(page):
    """What a link may name behind #: the headings, as web pages of the sources have them."""
    for heading in re.findall(r"^#+ (.*)$", prose(page), re.M):
        yield re.sub(r"[^\w -]", "", heading.lower()).strip().replace(" ", "-")


def dead_links(page):
    """The links of a page to files, folders and headings that are not there."""
    for target in re.findall(r"\]\((?!https?:)([^)]+)\)", prose(page)):
        path, _, anchor = target.partition("#")
        place = os.path.join(os.path.dirname(page), path) if path else page
        if not os.path.exists(place) or (anchor and anchor not in anchors(place)):
            yield f"{page}: {target} is not there"
