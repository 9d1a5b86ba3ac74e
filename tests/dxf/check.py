#!/usr/bin/env python3
"""Reads drawings with an independent library and audits them. Usage: check.py FILE...

Prints each error and each repair that would be made, and the number of entities; exit status 1 when there was one.
"""
import sys

import ezdxf

faults = 0
for path in sys.argv[1:]:
    doc = ezdxf.readfile(path)
    auditor = doc.audit()
    for entry in list(auditor.errors) + list(auditor.fixes):
        print(path, entry.code, entry.message)
        faults += 1
    print(path, doc.dxfversion, len(doc.modelspace()))
sys.exit(1 if faults else 0)
