"""What may include what: the floors of the house, circles, foreign headers and widgets."""
import pathlib
import re

from source_tree import line_of

# From the ground up. A folder includes itself and what stands on lower lines, nothing beside it.
FLOORS = [
    ["platform/text"],
    ["platform/store"],
    ["platform/shell", "platform/options", "platform/media", "platform/richtext"],
    ["desktop"],
    ["catalogue"],
    ["songlist"],
    ["lists"],
    ["intake", "pictures", "notes", "player"],
    ["playlists", "categories", "reports"],
    ["editor", "maintenance", "history", "update", "tags"],
    ["main"],
]
LEVEL = {folder: level for level, floor in enumerate(FLOORS) for folder in floor}

CODE = (".h", ".cpp")
QT_HEADER = re.compile(r"Qt?[A-Z]\w*(/Q\w+)?|Qt\w+/\w+")
STANDARD_HEADER = re.compile(r"[a-z0-9_]+")
SYSTEM_HEADER = re.compile(r"sys/\w+\.h|unistd\.h|fcntl\.h")


def folder_of(name):
    """The subsystem that a file of src/ belongs to: src/platform/store/x.h is of platform/store."""
    parts = pathlib.PurePosixPath(name).parts[1:-1]
    return "/".join(parts[:2] if parts[:1] == ("platform",) else parts[:1])


def floors(tree):
    for name in tree.below("src", *CODE):
        folder = folder_of(name)
        if folder not in LEVEL:
            yield f"{name}:1: src/{folder} stands on no floor; give it one in tests/quality/layers.py"
            continue
        for line, header, quoted in tree.includes(name):
            if not quoted or pathlib.PurePosixPath(header).name.startswith(("ui_", "moc_")):
                continue
            target = tree.resolve(name, header)
            if target is None:
                if not header.endswith(".moc"):
                    yield f'{name}:{line}: "{header}" is no file of src/'
                continue
            other = folder_of(target)
            if other != folder and LEVEL.get(other, len(FLOORS)) >= LEVEL[folder]:
                yield f"{name}:{line}: {folder} may not include {other}, which is not below it"


def circles(tree):
    edges = {}
    for name in tree.below("src", *CODE):
        targets = (tree.resolve(name, header) for _, header, quoted in tree.includes(name) if quoted)
        edges[name] = [target for target in targets if target]
    done = set()

    def walk(name, road):
        if name in road:
            yield " > ".join(road[road.index(name):] + [name])
        elif name not in done:
            for target in edges.get(name, ()):
                yield from walk(target, road + [name])
            done.add(name)

    for name in edges:
        for circle in walk(name, []):
            yield f"{circle.split(' ', 1)[0]}:1: headers include each other: {circle}"


def foreign(tree):
    for name in tree.below("src", *CODE):
        if name.startswith("src/platform/"):
            continue
        for line, header, quoted in tree.includes(name):
            known = (QT_HEADER, STANDARD_HEADER, SYSTEM_HEADER)
            if not quoted and not any(kind.fullmatch(header) for kind in known):
                yield f"{name}:{line}: <{header}> belongs below src/platform"


# --- widgets: which library a source is built into decides whether it may draw

LIBRARY = re.compile(r"\b(?:quaverly_library|add_executable|add_library)\s*\(\s*([\w-]+)([^)]*)\)")


def libraries(tree):
    """(CMake file, line, library or program, its sources, what it uses)."""
    for name in tree.below("src", "CMakeLists.txt"):
        text = re.sub(r"#[^\n]*", "", tree.text(name))
        for match in LIBRARY.finditer(text):
            words = match.group(2).split()
            split = words.index("USES") if "USES" in words else len(words)
            folder = pathlib.PurePosixPath(name).parent
            sources = {str(folder / word) for word in words[:split] if word.endswith(CODE)}
            yield name, line_of(text, match.start()), match.group(1), sources, words[split + 1:]


def widgets(tree, widget_headers):
    """Qt Widgets is for screens: files of a library called ..._screens, or of main, which composes them."""
    screens = set()
    for name, line, library, sources, uses in libraries(tree):
        if library.endswith("_screens") or name == "src/main/CMakeLists.txt":
            screens |= sources
            continue
        for used in uses:
            if used == "Qt6::Widgets" or used.endswith("_screens"):
                yield f"{name}:{line}: {library} is logic and may not use {used}"
    for name in tree.below("src", *CODE):
        if name in screens or name[:-len(pathlib.PurePosixPath(name).suffix)] + ".ui" in tree.files():
            continue
        for line, header, quoted in tree.includes(name):
            if not quoted and (header.startswith("QtWidgets") or header in widget_headers):
                yield f"{name}:{line}: <{header}> in a file that is in no library of screens"
