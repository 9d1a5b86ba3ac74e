"""The programs of the comparison, in Python. Usage: programs.py [NAME ARGUMENT ...]."""
import functools
import sys


def fib(n):
    return n if n < 2 else fib(n - 1) + fib(n - 2)


def tak(x, y, z):
    return z if y >= x else tak(tak(x - 1, y, z), tak(y - 1, z, x), tak(z - 1, x, y))


def additions(n):
    i = s = 0
    while i < n:
        s += i
        i += 1
    return s


def build(n):
    made, i = [], 0
    while i < n:
        made.append(i * 7919 % 1000003)
        i += 1
    return made


def mapped(n):
    return len(list(map(lambda x: x + 1, build(n))))


def sorted_(n):
    return sorted(build(n), key=functools.cmp_to_key(lambda a, b: a - b))[0]


def characters(n):
    s, i = "", 0
    while i < n:
        s = s + "x"
        i += 1
    return len(s)


if len(sys.argv) > 1:
    name, *arguments = sys.argv[1:]
    {"sorted": sorted_}.get(name, globals().get(name))(*map(int, arguments))
