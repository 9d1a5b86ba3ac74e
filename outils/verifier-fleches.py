#!/usr/bin/env python3
"""Holds the code against the plan of the house (outils/maison.py), and the locale rule.

An arrow is an #include "house/room/file.h". Faults: an arrow that the plan doesn't have, one that it has and nobody uses, a circle
of rooms or of files, a folder of too many files, a room without a README. Exit status 1 and one line for each.
"""
import os
import re
import sys

import maison

ROOT = os.path.dirname(os.path.dirname(os.path.abspath(__file__)))
NUMBERS = re.compile(r"\b(atof|strtod|stod|stof|sscanf|setlocale|std::locale|strtof)\s*\(")
# Qt takes the user's locale when an application starts; this call gives the C library its point back.
POINT = 'setlocale(LC_NUMERIC, "C")'


def sources(house):
    for folder, _, names in os.walk(os.path.join(ROOT, house)):
        for name in sorted(names):
            if name.endswith((".h", ".cpp")):
                yield os.path.relpath(os.path.join(folder, name), ROOT)


def fault_of(path, included, used):
    """What is wrong with the arrow, or nothing; notes which arrow of the plan it uses."""
    house, room = maison.room_of(path)
    target_house = included.split("/")[0]
    if target_house != maison.STREET and target_house not in maison.HOUSES:
        return None
    if house == maison.STREET:
        return None if target_house == house else "the street stands on the standard library only"
    if target_house == maison.STREET or maison.may_visit(house, maison.room_of(included)):
        return None
    if target_house != house:
        return f"{house}/ never includes {target_house}/"
    target = maison.room_of(included)[1]
    if target == room:
        return None
    for name in maison.allowed(house, room):
        if maison.covers(house, name, target):
            used.add((house, room, name))
            return None
    return f"{room} may not include {target}"


def arrows():
    faults, files, used = [], {}, set()
    for house in (maison.STREET, *maison.HOUSES):
        for path in sources(house):
            if house != maison.STREET and maison.room_of(path)[1] not in maison.HOUSES[house]:
                faults.append(f"{path}: its room isn't in the plan")
            for number, line in enumerate(open(os.path.join(ROOT, path), encoding="utf-8"), 1):
                match = re.match(r'\s*#include "([^"]+)"', line)
                if match:
                    files.setdefault(path, []).append(match.group(1))
                    fault = fault_of(path, match.group(1), used)
                    if fault:
                        faults.append(f"{path}:{number}: {fault} ({match.group(1)})")
                code = line.split("//")[0].replace(POINT, "")
                if house != "programs" and "Interpreter&" not in line and NUMBERS.search(code):
                    faults.append(f"{path}:{number}: depends on the locale: {line.strip()}")
    found = maison.circle(files)
    if found:
        faults.append("circle of files: " + " -> ".join(found))
    return faults, used


def plan(used):
    faults = []
    for house, rooms in maison.HOUSES.items():
        edges = {room: [other for name in maison.allowed(house, room) for other in maison.rooms_meant(house, name)]
                 for room in rooms}
        found = maison.circle(edges)
        if found:
            faults.append(f"circle of rooms in {house}/: " + " -> ".join(found))
        for room in rooms:
            for name in maison.allowed(house, room):
                if not maison.rooms_meant(house, name):
                    faults.append(f"the plan of {house}/{room} names {name}, which is no room")
                elif (house, room, name) not in used:
                    faults.append(f"the plan allows {house}/{room} to include {name}, and it doesn't")
    return faults


def folders():
    faults = []
    for house in (maison.STREET, *maison.HOUSES):
        for folder, _, names in os.walk(os.path.join(ROOT, house)):
            path = os.path.relpath(folder, ROOT)
            count = sum(name.endswith((".h", ".cpp")) for name in names)
            if count > maison.MOST_FILES:
                faults.append(f"{path}: {count} files in one folder, more than {maison.MOST_FILES}")
            if count and "README.md" not in names:
                faults.append(f"{path}: a room without README.md")
    return faults


def main():
    sys.setrecursionlimit(10000)
    faults, used = arrows()
    faults += plan(used) + folders()
    for fault in faults:
        print(fault)
    return 1 if faults else 0


if __name__ == "__main__":
    sys.exit(main())
