#!/usr/bin/env python3
"""Checks the rooms of frontal/ against the table in kavel.lsp.

Every file of the rooms stands in the table and nothing is defined twice; a room calls, or reads at loading, only rooms that the
table allows it, and no circle of rooms exists; a name with a colon is private to its file, or to its room when the file's head
lists it ("Shared in the room: name name*"); a function sets its own variables or its file's, and one that is handed over
(lambda) only its own; a local variable is used and doesn't have the name of a host's function; a command begins with its
explanation, which AIDE shows; layers are named as base/plv-dessin declares them; the kinds of rows of the tables
have fillers and rules, and docs/formats.md lists them all. Exit status 1 and one line for each fault.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
FRONTAL = os.path.join(ROOT, "frontal")
TOKEN = re.compile(r'"(?:\\.|[^"\\])*"|[()\']|[^\s()\'";]+')
SHARED = re.compile(r"^;; Shared in the room: (.*)$", re.M)


def read(path):
    with open(path, encoding="utf-8") as file:
        return file.read()


def without_comments(text):
    return re.sub(r'("(?:\\.|[^"\\])*")|;[^\n]*', lambda m: m.group(1) or "", text)


class Word(str):
    """A symbol; other strings are AutoLISP strings, with their quotes."""


class Quoted(list):
    """One form that isn't evaluated where it stands."""


def forms(text):
    """The forms of a program as nested lists."""
    stack, quotes = [[]], [0]

    def put(form):
        for _ in range(quotes[-1]):
            form = Quoted([form])
        quotes[-1] = 0
        stack[-1].append(form)

    for token in TOKEN.findall(without_comments(text)):
        if token == "'":
            quotes[-1] += 1
        elif token == "(":
            stack.append([])
            quotes.append(0)
        elif token == ")":
            quotes.pop()
            put(stack.pop())
        else:
            put(token if token.startswith('"') else Word(token.lower()))
    return stack[0]


def names_in(form, evaluated_only=False):
    if isinstance(form, list) and not (evaluated_only and isinstance(form, Quoted)):
        for part in form:
            yield from names_in(part, evaluated_only)
    elif isinstance(form, Word):
        yield form


def texts_in(form):
    if isinstance(form, list):
        for part in form:
            yield from texts_in(part)
    elif not isinstance(form, Word):
        yield form[1:-1]


def assigned(form):
    """The variables that a form sets when it is loaded."""
    if isinstance(form, list) and form:
        if form[0] == "setq":
            yield from form[1::2]
        if form[0] not in ("defun", "lambda"):
            for part in form[1:]:
                yield from assigned(part)


class Source:
    def __init__(self, room, name):
        self.room, self.name = room, name
        text = read(os.path.join(FRONTAL, room, name + ".lsp"))
        self.forms = forms(text)
        self.shared = [name.lower() for line in SHARED.findall(text) for name in line.split()]
        self.defines = [form[1] for form in self.forms if form[0] == "defun"]
        self.defines += [name for form in self.forms for name in assigned(form)]
        self.names = {name for form in self.forms for name in names_in(form)}
        self.texts = {text for form in self.forms for text in texts_in(form)}
        # What is evaluated while the file loads must be there by then.
        self.early = {name for form in self.forms if form[0] != "defun" for name in names_in(form, evaluated_only=True)}

    def __str__(self):
        return f"frontal/{self.room}/{self.name}.lsp"

    def shares(self, name):
        return any(name == s or (s.endswith("*") and name.startswith(s[:-1])) for s in self.shared)


def table():
    """The rooms of kavel.lsp: (name, rooms that it may call, files)."""
    for form in forms(read(os.path.join(FRONTAL, "kavel.lsp"))):
        if form[:2] == ["setq", "plv-salles"]:
            return [(room[0], room[1], room[2:]) for room in form[2][0]]
    sys.exit("frontal/kavel.lsp: plv-salles is missing")


def check_files(rooms):
    for room, _, files in rooms:
        there = {n[:-4] for n in os.listdir(os.path.join(FRONTAL, room)) if n.endswith(".lsp")}
        yield from (f"frontal/{room}/{name}.lsp isn't in the table" for name in sorted(there - set(files)))
        if not os.path.exists(os.path.join(FRONTAL, room, "README.md")):
            yield f"frontal/{room}/ has no README.md"
    for name in sorted(os.listdir(FRONTAL)):
        if os.path.isdir(os.path.join(FRONTAL, name)) and name not in [room for room, _, _ in rooms]:
            yield f"frontal/{name}/ isn't in the table"


def check_order(rooms):
    """A room may call rooms that stand before it: so no circle is possible."""
    before = set()
    for room, allowed, _ in rooms:
        yield from (f"{room} may call {other}, which doesn't stand before it" for other in allowed if other not in before)
        before.add(room)


def check_calls(rooms, sources):
    allowed = {room: set(may) for room, may, _ in rooms}
    owner, used = {}, {room: set() for room in allowed}
    for source in sources:
        functions = [form[1] for form in source.forms if form[0] == "defun"]
        yield from (f"{source}: {name} is defined twice" for name in sorted(set(functions)) if functions.count(name) > 1)
        for name in source.defines:
            if name in owner and owner[name] is not source:
                yield f"{source}: {name} is defined in {owner[name]} too"
            owner[name] = source
    loaded = set()
    for source in sources:
        for name in sorted(source.names):
            home = owner.get(name)
            if home is None or home is source:
                continue
            if home.room != source.room:
                used[source.room].add(home.room)
                if home.room not in allowed[source.room]:
                    yield f"{source}: {name} of {home}: {source.room} may not call {home.room}"
            if ":" in name and not name.startswith("c:") and (home.room != source.room or not home.shares(name)):
                yield f"{source}: {name} is private to {home}"
        loaded.update(source.defines)
        yield from (f"{source}: {name} is read before {owner[name]} is loaded"
                    for name in sorted(source.early) if name in owner and name not in loaded)
    for room, may in allowed.items():
        yield from (f"{room} may call {other}, but doesn't" for other in sorted(may - used[room]))


def bound(arguments):
    """Parameters and local variables of an argument list."""
    cut = arguments.index("/") if "/" in arguments else len(arguments)
    return arguments[:cut], arguments[cut + 1:]


def stray_settings(form, own):
    """Variables that a form sets although they aren't its own."""
    if not isinstance(form, list) or not form:
        return
    if form[0] == "lambda":
        own = {name for part in bound(form[1]) for name in part}
        form = form[2:]
    elif form[0] == "foreach":
        own = own | {form[1]}
    elif form[0] == "setq":
        yield from (name for name in form[1::2] if name not in own)
    for part in form:
        yield from stray_settings(part, own)


def bindings(form):
    """All variables that a form and its lambdas bind."""
    if isinstance(form, list) and form:
        if form[0] in ("defun", "lambda"):
            yield from (name for part in bound(form[2 if form[0] == "defun" else 1]) for name in part)
        elif form[0] == "foreach":
            yield form[1]
        for part in form:
            yield from bindings(part)


def check_variables(sources):
    functions = set(re.findall(r"^\| `\(([^ )`]+)", read(os.path.join(ROOT, "docs", "autolisp.md")), re.M))
    for source in sources:
        names = {name for form in source.forms for name in bindings(form)}
        yield from (f"{source}: the variable {name} hides the function of that name from all that is called" for name in sorted(names & functions))
        for form in source.forms:
            if form[0] != "defun":
                continue
            parameters, variables = bound(form[2])
            own = {*parameters, *variables, *source.defines}
            yield from (f"{source}: {form[1]} sets {name}, which isn't its own" for name in stray_settings(form[3:], own))
            used = set(names_in(form[3:]))
            yield from (f"{source}: {form[1]} never uses its variable {name}" for name in variables if name not in used)


def check_explanations(sources):
    for source in sources:
        for form in source.forms:
            if form[0] == "defun" and form[1].startswith("c:") and (len(form) < 5 or not str(form[3]).startswith('"')):
                yield f"{source}: {form[1]} has no explanation for AIDE"


def setting(sources, variable):
    """The value of a variable that holds a quoted list."""
    for source in sources:
        for form in source.forms:
            if form[0] == "setq" and variable in form[1::2]:
                return form[form.index(variable) + 1][0]
    sys.exit(f"frontal: {variable} is missing")


def check_layers(sources):
    tables = ("plv-calques", "plv-calques-styles", "plv-calques-reseaux")
    layers = {row[0][1:-1] for table in tables for row in setting(sources, table)}
    commands = {name[2:].upper() for source in sources for name in source.defines if name.startswith("c:")}
    for source in sources:
        for text in sorted(source.texts):
            if re.fullmatch(r"PLV-[A-Z]+", text) and text not in layers and text not in commands:
                yield f"{source}: the layer {text} isn't in plv-calques"


def check_row_kinds(sources):
    defined = {name for source in sources for name in source.defines}
    numbers = []
    for row in setting(sources, "plv-types:table"):
        numbers.append(int(row[0]))
        yield from (f"kind of row {row[0]}: {name} isn't defined" for name in row[2:] if isinstance(name, Word) and name not in ("nil", "t") and name not in defined)
    shown = []
    section = read(os.path.join(ROOT, "docs", "formats.md")).split("## Table definitions")[1].split("\n## ")[0]
    for cell in re.findall(r"\| (\d+(?: to \d+)?) \|", section.replace("|", "||")):
        first, _, last = cell.partition(" to ")
        shown += range(int(first), int(last or first) + 1)
    if sorted(shown) != sorted(numbers):
        yield f"docs/formats.md lists the kinds of rows {sorted(shown)}, the table has {sorted(numbers)}"


def main():
    rooms = table()
    sources = [Source(room, name) for room, _, files in rooms for name in files]
    faults = [*check_files(rooms), *check_order(rooms), *check_calls(rooms, sources), *check_variables(sources), *check_explanations(sources), *check_layers(sources),
              *check_row_kinds(sources)]
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
