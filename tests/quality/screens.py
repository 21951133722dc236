"""What every screen description (.ui) has to offer: names, captions, an order to tab in, layouts."""
import re
import xml.etree.ElementTree as ET

FOCUSABLE = {
    "QPushButton", "QToolButton", "QCommandLinkButton", "QCheckBox", "QRadioButton", "QLineEdit", "QComboBox",
    "QFontComboBox", "QTextEdit", "QPlainTextEdit", "QTextBrowser", "QSpinBox", "QDoubleSpinBox", "QDateEdit",
    "QTimeEdit", "QDateTimeEdit", "QSlider", "QDial", "QListWidget", "QListView", "QTableView", "QTableWidget",
    "QTreeView", "QTreeWidget", "QKeySequenceEdit", "QCalendarWidget", "QTabWidget",
}
# These only hold others or draw, and have nothing to say to a screen reader.
SILENT = {"QWidget", "QFrame", "Line", "QStackedWidget", "QSplitter", "QScrollArea", "QMenuBar", "QStatusBar",
          "QToolBar"}
# These arrange what is in them without a layout.
OWN_LAYOUT = {"QMainWindow", "QTabWidget", "QStackedWidget", "QSplitter", "QScrollArea", "QToolBox",
              "QDockWidget", "QMenuBar", "QMenu", "QToolBar", "QStatusBar"}
TAKES_MNEMONIC = {"QPushButton", "QToolButton", "QCommandLinkButton", "QCheckBox", "QRadioButton"}
DESIGNER_NAME = re.compile(
    r"(pushButton|toolButton|label|lineEdit|comboBox|checkBox|radioButton|textEdit|plainTextEdit|listWidget"
    r"|listView|tableView|tableWidget|treeView|spinBox|groupBox|frame|widget|tabWidget|slider|progressBar)"
    r"(_\d+)?")
MNEMONIC = re.compile(r"&(.)")


def prop(widget, name):
    """The text of a property, enums and sets without their class, or None."""
    node = widget.find(f"property[@name='{name}']")
    if node is None or not len(node):
        return None
    return (node[0].text or "").strip()


def mnemonic(caption):
    match = MNEMONIC.search((caption or "").replace("&&", ""))
    return match.group(1).lower() if match else None


class Screen:
    def __init__(self, name, text):
        self.name = name
        self.lines = text.splitlines()
        root = ET.fromstring(text)
        self.top = root.find("widget")
        self.base = {custom.findtext("class"): custom.findtext("extends")
                     for custom in root.iter("customwidget")}
        self.widgets = list(self.top.iter("widget"))
        self.tab_stops = [stop.text for stop in root.iter("tabstop")]

    def kind(self, widget):
        return self.base.get(widget.get("class"), widget.get("class"))

    def at(self, name):
        needle = f'name="{name}"'
        line = next((number for number, text in enumerate(self.lines, 1) if needle in text), 1)
        return f"{self.name}:{line}"

    def focusable(self, widget):
        policy = prop(widget, "focusPolicy")
        if policy is not None:
            return not policy.endswith(("NoFocus", "ClickFocus"))
        if self.kind(widget) == "QLabel":
            return "Keyboard" in (prop(widget, "textInteractionFlags") or "")
        return self.kind(widget) in FOCUSABLE

    def reading_order(self, node=None):
        """The controls that take the focus, as the eye meets them: by rows, then by columns."""
        node = self.top if node is None else node
        for child in self.children(node):
            if child.tag == "widget" and self.focusable(child):
                yield child.get("name")
            yield from self.reading_order(child)

    @staticmethod
    def children(node):
        def cell(item):
            return int(item.get("row", 0)), int(item.get("column", 0))
        if node.tag == "layout":
            items = [item for item in node if item.tag == "item"]
            return [child for item in sorted(items, key=cell) for child in item]
        return [child for child in node if child.tag in ("widget", "layout")]


def names(screen):
    seen = set()
    for widget in screen.widgets:
        name = widget.get("name") or ""
        if not name or DESIGNER_NAME.fullmatch(name):
            yield f'{screen.at(name)}: a {widget.get("class")} needs a name of its own, not "{name}"'
        elif name in seen:
            yield f"{screen.at(name)}: {name} is there twice"
        seen.add(name)


def captions(screen):
    buddies = {prop(widget, "buddy") for widget in screen.widgets}
    for widget in screen.widgets:
        said = any(prop(widget, each)
                   for each in ("accessibleName", "accessibleDescription", "text", "title", "windowTitle"))
        is_text = widget.get("class") == "QLabel" and not (widget.get("name") or "").startswith("img")
        if is_text and prop(widget, "accessibleName"):
            yield (f'{screen.at(widget.get("name"))}: {widget.get("name")} has an accessibleName, '
                   "which hides its text from screen readers")
        # An empty QWidget is drawn by the program and has to say what it is; one with children holds them.
        holds_only = screen.kind(widget) in SILENT and not screen.focusable(widget)
        if not said and widget.get("name") not in buddies and not holds_only:
            yield (f'{screen.at(widget.get("name"))}: {widget.get("name")} has no accessibleName, '
                   "no caption and no label")
    for action in screen.top.iter("action"):
        if not prop(action, "text") and prop(action, "separator") != "true":
            yield f'{screen.at(action.get("name"))}: {action.get("name")} has no text'


def tab_order(screen):
    # One control needs no order.
    expected = list(screen.reading_order())
    if len(expected) < 2 and not screen.tab_stops:
        return
    for name in expected:
        if name not in screen.tab_stops:
            yield f"{screen.at(name)}: {name} takes the focus but is no tab stop"
    listed = [name for name in screen.tab_stops if name in expected]
    wanted = [name for name in expected if name in listed]
    for name, place in zip(listed, wanted):
        if name != place:
            yield f"{screen.at(name)}: the tab key comes to {name} where the eye comes to {place}"
            break


def layouts(screen):
    for widget in screen.widgets:
        name = widget.get("name")
        if widget is not screen.top and widget.find("property[@name='geometry']") is not None:
            yield f"{screen.at(name)}: {name} has a fixed place instead of a layout"
        if (widget.find("widget") is not None and widget.find("layout") is None
                and screen.kind(widget) not in OWN_LAYOUT):
            yield f"{screen.at(name)}: {name} holds controls without a layout"
        smallest, largest = (widget.find(f"property[@name='{each}Size']/size") for each in ("minimum", "maximum"))
        if smallest is not None and largest is not None:
            if [side.text for side in smallest] == [side.text for side in largest]:
                yield f"{screen.at(name)}: {name} has a fixed size"


# Captions that people know: the key goes from one of the two entries to the other.
KNOWN_PAIRS = {("EditMenu", "s")}


def mnemonics(screen):
    taken = {}

    def take(group, letter, name):
        if letter is None or (group, letter) in KNOWN_PAIRS:
            return
        if (group, letter) in taken:
            yield f"{screen.at(name)}: Alt+{letter.upper()} is both {taken[group, letter]} and {name}"
        taken.setdefault((group, letter), name)

    actions = {action.get("name"): action for action in screen.top.iter("action")}
    menus = {widget.get("name"): widget for widget in screen.widgets if widget.get("class") == "QMenu"}
    bar = {entry.get("name") for widget in screen.widgets if widget.get("class") == "QMenuBar"
           for entry in widget.findall("addaction")}
    for widget in screen.widgets:
        kind, name = screen.kind(widget), widget.get("name")
        if kind in TAKES_MNEMONIC or (kind == "QLabel" and prop(widget, "buddy")):
            yield from take("", mnemonic(prop(widget, "text")), name)
        elif kind == "QGroupBox" or name in bar:
            yield from take("", mnemonic(prop(widget, "title")), name)
        page = widget.find("attribute[@name='title']/string")
        if page is not None:
            yield from take("", mnemonic(page.text), name)
    for menu, widget in menus.items():
        for entry in widget.findall("addaction"):
            known = entry.get("name")
            if known in actions:
                yield from take(menu, mnemonic(prop(actions[known], "text")), known)
            elif known in menus:
                yield from take(menu, mnemonic(prop(menus[known], "title")), known)


def screens(tree):
    for name in tree.below("src", ".ui"):
        try:
            screen = Screen(name, tree.text(name))
        except ET.ParseError as error:
            yield f"{name}:{error.position[0]}: {error}"
            continue
        for rule in (names, captions, tab_order, layouts, mnemonics):
            yield from rule(screen)
