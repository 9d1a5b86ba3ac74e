#!/usr/bin/env python3
"""Checks the allowed arrows between the rooms, that no circle of includes exists, and the locale rule.

An arrow is an #include "house/room/file.h". Exit status 1 and one line for each fault.
"""
import os
import re
import sys

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
HOST = {  # room of atelier/ -> rooms of atelier/ that it may include
    "geometry": set(),
    "fonts": set(),
    "database": {"geometry", "fonts"},
    "dxf": {"database", "geometry"},
    "lisp": {"database"},
    "editor": {"dxf", "lisp", "database", "geometry", "fonts"},
    "exchange": {"editor", "dxf", "lisp", "database"},
    "render": {"editor", "dxf", "lisp", "database", "geometry", "fonts"},
    "console": {"render", "exchange", "editor", "dxf", "lisp", "database", "geometry", "fonts"},
    "desktop": {"render", "exchange", "editor", "dxf", "lisp", "database", "geometry", "fonts"},
}
# Layers of module/ from the ground up; a file may include files of its own layer and of lower ones.
ARGUMENTS = {"argsLisp", "listeRb", "conversionXData"}
LAYERS = {"arguments": 0, "support": 1, "profil": 2, "matrices": 3, "elements": 3, "optimiseur": 3, "metres": 4,
          "menus": 5, "commande": 6}
NUMBERS = re.compile(r"\b(atof|strtod|stod|stof|sscanf|setlocale|std::locale|strtof)\s*\(")
# Qt takes the user's locale when an application starts; this call gives the C library its point back.
POINT = 'setlocale(LC_NUMERIC, "C")'


def layer(path):
    room, name = path.split("/")[1], os.path.splitext(os.path.basename(path))[0]
    if room == "commande" and name in ARGUMENTS:
        return "arguments"
    if room == "support" and name.startswith("menus"):
        return "menus"
    return room


def fault_of(path, included):
    """What is wrong with the arrow, or nothing."""
    house, target = path.split("/")[0], included.split("/")[0]
    if target not in ("hote", "module", "atelier"):
        return None
    if house == "hote" and target != "hote":
        return "hote/ stands on the standard library only"
    if house == "module":
        if target == "atelier":
            return "module/ never includes atelier/"
        if target == "module":
            mine, theirs = layer(path), layer(included)
            if mine != theirs and LAYERS[mine] <= LAYERS[theirs]:
                return f"{mine} may not include {theirs}"
    if house == "atelier":
        if target == "module":
            return "atelier/ never includes module/"
        if target == "atelier":
            mine, theirs = path.split("/")[1], included.split("/")[1]
            if mine != theirs and theirs not in HOST[mine]:
                return f"{mine} may not include {theirs}"
    return None


def circles(edges):
    """One circle of files, or nothing."""
    state, trail = {}, []

    def visit(node):
        state[node] = 1
        trail.append(node)
        for nxt in edges.get(node, ()):
            if state.get(nxt) == 1:
                return trail[trail.index(nxt):] + [nxt]
            if nxt not in state:
                found = visit(nxt)
                if found:
                    return found
        state[node] = 2
        trail.pop()
        return None

    sys.setrecursionlimit(10000)
    for node in list(edges):
        if node not in state:
            found = visit(node)
            if found:
                return found
    return None


def main():
    faults, edges = [], {}
    for house in ("hote", "module", "atelier", "programs"):
        for folder, _, names in os.walk(os.path.join(ROOT, house)):
            for name in names:
                if not name.endswith((".h", ".cpp")):
                    continue
                full = os.path.join(folder, name)
                path = os.path.relpath(full, ROOT)
                for number, line in enumerate(open(full, encoding="utf-8"), 1):
                    match = re.match(r'\s*#include "([^"]+)"', line)
                    if match:
                        edges.setdefault(path, []).append(match.group(1))
                        fault = fault_of(path, match.group(1))
                        if fault:
                            faults.append(f"{path}:{number}: {fault} ({match.group(1)})")
                    code = line.split("//")[0].replace(POINT, "")
                    if house != "programs" and "Interpreter&" not in line and NUMBERS.search(code):
                        faults.append(f"{path}:{number}: depends on the locale: {line.strip()}")
    circle = circles(edges)
    if circle:
        faults.append("circle of includes: " + " -> ".join(circle))
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
