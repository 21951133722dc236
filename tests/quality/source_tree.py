"""The project's files as the checks see them."""
import pathlib
import re
import subprocess

INCLUDE = re.compile(r'^[ \t]*#[ \t]*include[ \t]*([<"])([^>"]+)[>"]', re.MULTILINE)
NO_CODE = re.compile(
    r'R"([^(\s"]*)\(.*?\)\1"'
    r'|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Za-z_])(?:u8?|U|L)?'(?:\\.|[^'\\\n])*'"
    r"|//[^\n]*|/\*.*?\*/",
    re.DOTALL)


def line_of(text, position):
    return text.count("\n", 0, position) + 1


def code_of(text):
    """C++ with comments and literals blanked, line for line."""
    return NO_CODE.sub(lambda match: " " + "\n" * match.group().count("\n"), text)


class Tree:
    def __init__(self, root):
        self.root = pathlib.Path(root).resolve()
        self._files = None

    def files(self):
        """Every file under version control or about to be, as paths below the root."""
        if self._files is None:
            names = self._listed_by_git() or self._found_on_disk()
            self._files = sorted(name for name in names if (self.root / name).is_file())
        return self._files

    def below(self, folder, *endings):
        return [name for name in self.files()
                if name.startswith(folder + "/") and name.endswith(endings or ("",))]

    def text(self, name):
        """The file's text, or None for what is no text."""
        try:
            return (self.root / name).read_text(encoding="utf-8")
        except UnicodeDecodeError:
            return None

    def includes(self, name):
        """(line, header, in quotes) for each include of a source."""
        text = self.text(name) or ""
        return [(line_of(text, match.start()), match.group(2), match.group(1) == '"')
                for match in INCLUDE.finditer(text)]

    def resolve(self, name, header):
        """The file of src/ that `name` means by `header` in quotes, or None."""
        for base in (pathlib.PurePosixPath(name).parent, pathlib.PurePosixPath("src")):
            candidate = str(base / header)
            if (self.root / candidate).is_file():
                return candidate
        return None

    def _listed_by_git(self):
        if not (self.root / ".git").exists():
            return []
        listing = subprocess.run(
            ["git", "-c", f"safe.directory={self.root}", "ls-files", "-z", "--cached", "--others",
             "--exclude-standard"],
            cwd=self.root, capture_output=True, text=True, check=True).stdout
        return [name for name in listing.split("\0") if name]

    def _found_on_disk(self):
        return [str(path.relative_to(self.root)) for path in self.root.rglob("*")
                if not {"build", ".git", "__pycache__"} & set(path.relative_to(self.root).parts)]
