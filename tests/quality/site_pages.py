"""The web site in docs/site: balanced tags, links that lead somewhere, nothing fetched from elsewhere."""
import posixpath
from html.parser import HTMLParser

VOID = {"area", "br", "col", "hr", "img", "input", "link", "meta", "source", "wbr"}
FETCHED = {("link", "href"), ("img", "src"), ("source", "srcset"), ("script", "src"), ("iframe", "src")}
FOLDER = "docs/site"


class Page(HTMLParser):
    def __init__(self, text):
        super().__init__()
        self.open, self.faults, self.links, self.names = [], [], [], set()
        self.title = False
        self.feed(text)
        self.close()
        self.faults += [(line, f"<{tag}> is not closed") for tag, line in self.open]
        if not self.title:
            self.faults.append((1, "the page has no title"))

    def handle_starttag(self, tag, attributes):
        line, given = self.getpos()[0], dict(attributes)
        if tag not in VOID:
            self.open.append((tag, line))
        self.title = self.title or tag == "title"
        if tag == "img" and not given.get("alt"):
            self.faults.append((line, "a picture without words for it (alt)"))
        if "id" in given:
            if given["id"] in self.names:
                self.faults.append((line, f'the name {given["id"]} is there twice'))
            self.names.add(given["id"])
        self.links += [(line, tag, key, given[key]) for key in ("href", "src", "srcset") if given.get(key)]

    def handle_endtag(self, tag):
        if self.open and self.open[-1][0] == tag:
            self.open.pop()
        else:
            self.faults.append((self.getpos()[0], f"</{tag}> closes nothing"))


def site(tree):
    pages = {name: Page(tree.text(name)) for name in tree.below(FOLDER, ".html")}
    for name, page in pages.items():
        for line, fault in page.faults:
            yield f"{name}:{line}: {fault}"
        for line, tag, key, link in page.links:
            target, _, anchor = link.partition("#")
            goal = posixpath.normpath(posixpath.join(posixpath.dirname(name), target)) if target else name
            if ":" in target or target.startswith("/"):
                if (tag, key) in FETCHED:
                    yield f"{name}:{line}: {link} is fetched from elsewhere"
            elif not goal.startswith(FOLDER + "/") or goal not in tree.files():
                yield f"{name}:{line}: {link} leads nowhere"
            elif anchor and goal in pages and anchor not in pages[goal].names:
                yield f"{name}:{line}: {link}: the page has no such place"
    for name in tree.below(FOLDER, ".css"):
        if "url(" in tree.text(name) or "@import" in tree.text(name):
            yield f"{name}:1: a style sheet fetches nothing"
