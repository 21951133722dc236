#!/usr/bin/env python3
"""Checks the project's sources against one of its rules.

usage: check.py RULE ROOT [WIDGETS_FOLDER]

Prints each finding as file:line: text and ends with 1 when there is one. WIDGETS_FOLDER is where Qt
keeps the headers of its Widgets library; the rule "widgets" takes it.
"""
import os
import sys

import architecture
import calls
import layers
import screens
import site_pages
import wording
from source_tree import Tree


def widget_headers(folder):
    """Names of the headers that Qt Widgets has and Qt Gui has not."""
    gui = os.path.join(os.path.dirname(folder), "QtGui")
    return set(os.listdir(folder)) - set(os.listdir(gui))


RULES = {
    "architecture": architecture.architecture,
    "floors": layers.floors,
    "circles": layers.circles,
    "foreign": layers.foreign,
    "widgets": lambda tree: layers.widgets(tree, widget_headers(sys.argv[3])),
    "desktop": calls.desktop_only,
    "screens": screens.screens,
    "site": site_pages.site,
    "wording": wording.wording,
    "undone": wording.undone,
    "sizes": wording.sizes,
}


def main():
    if len(sys.argv) < 3 or sys.argv[1] not in RULES:
        print(__doc__, "rules:", *RULES, file=sys.stderr)
        return 2
    tree = Tree(sys.argv[2])
    if not tree.below("src"):
        print(f"{sys.argv[2]} holds no src/", file=sys.stderr)
        return 2
    found = sorted(set(RULES[sys.argv[1]](tree)))
    for each in found:
        print(each)
    return 1 if found else 0


if __name__ == "__main__":
    sys.exit(main())
