#!/usr/bin/env python3
"""Checks that files which documents and comments name are there.

In documents: link targets, and words in backticks that are paths below the root or end like source files. In comments: words that
end like source files. A name without a folder may stand anywhere in the tree. Exit status 1 and one line for each that is missing.
"""
import os
import re
import shutil
import subprocess
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
SOURCE = r"(?:h|cpp|in|lsp|py|md|cmake|svg|png)"
WORD = re.compile(r"(?<![\w./*<>-])((?:[\w-]+/)*[\w.*-]*\w\." + SOURCE + r")(?![\w/*])")
TICKED = re.compile(r"`([^`\s]+)`")
LINK = re.compile(r"\]\(([^)#\s]+)")
COMMENT = {".h": "//", ".cpp": "//", ".py": "#", ".lsp": ";", ".cmake": "#"}
OTHERS = {"std", "hote/..."}


def files():
    """The project's own; of an unpacked archive, or without git, all but what is built."""
    if shutil.which("git") and os.path.exists(os.path.join(ROOT, ".git")):
        listed = subprocess.run(["git", "-C", ROOT, "ls-files", "--cached", "--others", "--exclude-standard"], capture_output=True,
                                text=True, check=True)
        return [name for name in listed.stdout.splitlines() if os.path.exists(os.path.join(ROOT, name))]
    found = []
    for folder, folders, names in os.walk(ROOT):
        folders[:] = [name for name in folders if name not in (".git", "build", "__pycache__")]
        found += [os.path.relpath(os.path.join(folder, name), ROOT) for name in names]
    return sorted(found)


class Tree:
    def __init__(self, names):
        self.names = set(names)
        self.folders = {os.path.dirname(name) for name in names}
        for folder in list(self.folders):
            while folder:
                folder = os.path.dirname(folder)
                self.folders.add(folder)
        self.bare = {os.path.basename(name) for name in names}
        self.tops = {name.split("/")[0] for name in names if "/" in name}

    def has(self, word, beside):
        word = word.rstrip("/")
        if "*" in word:
            pattern = re.compile(re.escape(word).replace(r"\*", "[^/]*"))
            return any(pattern.search(name) for name in self.names)
        for path in (word, os.path.normpath(os.path.join(beside, word))):
            if path in self.names or path in self.folders:
                return True
        return "/" not in word and word in self.bare or any(name.endswith("/" + word) for name in self.names)


def words_of_document(text):
    for number, line in enumerate(text.splitlines(), 1):
        for target in LINK.findall(line):
            if "://" not in target:
                yield number, target, True
        for word in TICKED.findall(line):
            yield number, word, False


def missing(name, tree):
    text = open(os.path.join(ROOT, name), encoding="utf-8", errors="replace").read()
    beside, ending = os.path.dirname(name), os.path.splitext(name)[1]
    if ending == ".md":
        for number, word, link in words_of_document(text):
            is_path = word.split("/")[0] in tree.tops and "/" in word and re.fullmatch(r"[\w./*-]+", word)
            is_source = re.fullmatch(WORD, word) and not word.startswith("-")
            if (link or is_path or is_source) and not word.startswith("build/") and not tree.has(word, beside):
                yield number, word
    elif ending in COMMENT:
        mark = COMMENT[ending]
        for number, line in enumerate(text.splitlines(), 1):
            at = line.find(mark)
            if at < 0 or "#include" in line:
                continue
            for word in WORD.findall(line[at:]):
                if not tree.has(word, beside):
                    yield number, word


def main():
    names = files()
    tree = Tree(names)
    faults = [f"{name}:{number}: {word} isn't there" for name in names for number, word in missing(name, tree)]
    print("\n".join(faults), end="\n" if faults else "")
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
