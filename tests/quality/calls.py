"""What only src/desktop may do: ask, tell, wait, and let events run."""
import re

from source_tree import code_of, line_of

DESKTOP_ONLY = re.compile(
    r"\b(QMessageBox|QFileDialog|QInputDialog|QColorDialog|QFontDialog|QPrintDialog|QErrorMessage"
    r"|QDesktopServices|QEventLoop|processEvents|sendPostedEvents"
    r"|exec(?=\s*\()|msleep(?=\s*\()|sleep(?=\s*\())")
PROGRAM_LOOP = re.compile(r"\b(?:app|application|QApplication)\s*(?:\.|::|->)\s*exec\s*\(")


def desktop_only(tree):
    for name in tree.below("src", ".h", ".cpp"):
        if name.startswith("src/desktop/"):
            continue
        code = code_of(tree.text(name))
        if name == "src/main/main.cpp":
            code = PROGRAM_LOOP.sub("(", code)
        for match in DESKTOP_ONLY.finditer(code):
            yield (f"{name}:{line_of(code, match.start())}: {match.group(1)} outside src/desktop; "
                   "go through Desktop")
