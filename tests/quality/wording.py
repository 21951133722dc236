"""Words that don't belong in the tree, work left undone, and sizes that have got out of hand."""
import re

# One letter of each stands in brackets, so that this table is not found by itself.
WORKING_PAPERS = re.compile(
    r"[s]pecification|\b[s]pec\.md|\b[P]art [0-9]{1,2}\.[0-9]|[l]eft to the implementer"
    r"|\b[d]esign\.md|\b[h]ouse\.md|\b[l]ook\.md", re.IGNORECASE)
MACHINES = re.compile(
    r"(?<![\w.~])/(?:work|farm|root)/|/bash_job[s]"
    r"|\b(?:deb|registry|security)\.[a-z]+\.(?:org|com)\b")
UNDONE = re.compile(
    r"\bTOD[O]\b|\bFIXM[E]\b|\bXX[X]\b|not (?:yet )?implemente[d]|GTEST_SKI[P]\(\)\s*;|\bDISABLED[_]"
    r"|EXPECT_TRUE\((?:true|1)[)]|SUCCEE[D]\(\)")
LICENCE = "SPDX-License-Identifier: GPL-3.0-or-later"

LONGEST_FILE = 500
LONGEST_TEST = 600


def findings(tree, names, pattern, what):
    for name in names:
        for number, line in enumerate((tree.text(name) or "").splitlines(), 1):
            match = pattern.search(line)
            if match:
                yield f'{name}:{number}: {what}: "{match.group()}"'


def wording(tree):
    names = [name for name in tree.files() if not name.startswith("LICENSE")]
    yield from findings(tree, names, WORKING_PAPERS, "names a working paper")
    yield from findings(tree, names, MACHINES, "holds only on one machine")


def undone(tree):
    names = [name for folder in ("src", "tests", "tools", "bench") for name in tree.below(folder)]
    yield from findings(tree, names, UNDONE, "looks unfinished or can't fail")


def sizes(tree):
    for name in tree.below("src", ".h", ".cpp") + tree.below("tests", ".h", ".cpp"):
        text = tree.text(name)
        limit = LONGEST_TEST if name.startswith("tests/") else LONGEST_FILE
        lines = len(text.splitlines())
        if lines > limit:
            yield f"{name}:{limit}: {lines} lines; has this file one clear purpose?"
        if LICENCE not in text[:200]:
            yield f"{name}:1: the licence line is missing"
        if name.endswith(".h") and "#pragma once" not in text[:400]:
            yield f"{name}:1: #pragma once is missing"
