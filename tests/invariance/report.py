"""What a run found: how many checks of each kind, the differences, and the printed values that lay on a tie of rounding."""
import re
from collections import Counter
from fractions import Fraction as F

NUMBER = re.compile(r"[-+]?\d+(?:\.(\d+))?")
EPS = F(1, 10**7)  # what doubles may lose of a printed altitude or distance, coordinates of seven digits before the point


class Report:
    def __init__(self):
        self.checks, self.ties, self.differences = Counter(), Counter(), []

    def differ(self, kind, what, found, expected):
        self.differences.append(f"{kind}: {what}: found {found}, expected {expected}")

    def same(self, kind, what, found, expected):
        self.checks[kind] += 1
        if found != expected:
            self.differ(kind, what, found, expected)
            return False
        return True

    def near(self, kind, what, found, expected, tolerance):
        self.checks[kind] += 1
        if found is None or abs(F(found) - expected) > tolerance:
            self.differ(kind, what, found, f"{float(expected)!r} within {float(tolerance):.1e}")
            return False
        return True

    def printed(self, kind, what, text, value, decimals=None, slack=EPS, signed=False):
        """A printed value is the nearest with its decimals; on a tie either will do, and is counted. "-0.00" is none."""
        self.checks[kind] += 1
        fault = misprint(text, value, decimals, slack, signed)
        if fault is None:
            self.ties[kind] += 1
        elif fault:
            self.differ(kind, what, repr(text), f"{float(value)!r} ({fault})")
            return False
        return True


def misprint(text, value, decimals, slack, signed):
    """What is wrong with a printed value: "" for nothing, None for a tie that either way of rounding would do."""
    match = NUMBER.fullmatch(text or "")
    if not match:
        return "no number"
    places = len(match.group(1) or "")
    if decimals is not None and places != decimals:
        return f"{decimals} decimals"
    shown = F(text)
    if shown == 0 and text[0] == "-":
        return "a zero with a sign"
    if signed and text[0] not in "+-":
        return "no sign"
    half = F(1, 2 * 10**places)
    off = abs(shown - value)
    if off > half + slack:
        return "another value"
    return None if abs(off - half) <= slack else ""
