"""docs/architecture.md: its picture of the floors, drawn from what the sources include, and the files it names."""
import re

from layers import CODE, FLOORS, LEVEL, folder_of
from source_tree import line_of

DOCUMENT = "docs/architecture.md"
BEGIN = "<!-- drawn by tools/floors -->\n```\n"
END = "```\n<!-- end of the drawing -->\n"
NAMED_FILE = re.compile(r"`([\w./-]*\w\.(?:h|cpp|ui|sql|py|txt|html|md|cmake))`")


def uses(tree):
    """For each folder those it includes, without those that one of them includes anyway."""
    direct = {}
    for name in tree.below("src", *CODE):
        targets = (tree.resolve(name, header) for _, header, quoted in tree.includes(name) if quoted)
        direct.setdefault(folder_of(name), set()).update(folder_of(target) for target in targets if target)
    reached = {}

    def below(folder):
        if folder not in reached:
            reached[folder] = set()
            nearest = direct.get(folder, set()) - {folder}
            reached[folder] = nearest.union(*(below(each) for each in nearest))
        return reached[folder]

    return {folder: {each for each in others - {folder}
                     if not any(each in below(other) for other in others - {folder, each})}
            for folder, others in direct.items()}


def drawing(tree):
    """The floors from the top down, and behind each folder the ones it stands on."""
    found = uses(tree)
    width = max(len(folder) for folder in LEVEL)
    lines = []
    for level in sorted({LEVEL[folder] for folder in found}, reverse=True):
        for place, folder in enumerate(each for each in FLOORS[level] if each in found):
            number = "" if place else level
            below = " ".join(sorted(found[folder], key=by_level))
            lines.append(f"{number:>2}  {folder:<{width}}  {below}".rstrip() + "\n")
    return "".join(lines)


def by_level(folder):
    return -LEVEL.get(folder, 0), folder


def redrawn(tree):
    """The document with its picture as it has to be."""
    text = tree.text(DOCUMENT)
    begin = text.index(BEGIN) + len(BEGIN)
    return text[:begin] + drawing(tree) + text[text.index(END, begin):]


def architecture(tree):
    text = tree.text(DOCUMENT) if DOCUMENT in tree.files() else ""
    if BEGIN not in text or END not in text:
        yield f"{DOCUMENT}:1: holds no picture of the floors"
    elif redrawn(tree) != text:
        yield f"{DOCUMENT}:1: the picture of the floors is out of date; run tools/floors"
    for match in NAMED_FILE.finditer(text):
        if not any(f"/{name}".endswith(f"/{match.group(1)}") for name in tree.files()):
            yield f"{DOCUMENT}:{line_of(text, match.start())}: there is no {match.group(1)}"
