#!/usr/bin/env python3
"""The window, driven from outside with keys and clicks, and killed at random moments.

    tues.py KAVEL-BUREAU KAVEL [--kills N] [--seed S]

A journal is kept of the circles that each answered command leaves. After each kill the recovery copy, or the file where nothing was
changed since it was saved, must hold what the last answered command left, or the one that was under way; the next start offers the
copy and shows the same. That holds of drawings whose copy takes no half second, as here: of larger ones it is made after a while. Needs the packages xvfb and xdotool, else the status is 77.
"""
import argparse
import ast
import os
import pathlib
import random
import shutil
import subprocess
import sys
import tempfile
import time

PATIENCE = 30  # seconds for the window to answer
AGAIN = 10  # seconds after which it is asked again
# The circles as ((x y radius) ...), written to a file at once.
DUMP = """(setvar "FILEDIA" 0)
(defun kt-cercles (/ jeu k liste g)
  (setq jeu (ssget "_X" '((0 . "CIRCLE"))) k 0)
  (if jeu (repeat (sslength jeu)
    (setq g (entget (ssname jeu k)) k (1+ k)
          liste (cons (list (fix (car (cdr (assoc 10 g)))) (fix (cadr (cdr (assoc 10 g)))) (fix (cdr (assoc 40 g)))) liste))))
  liste)
(defun kt (n / f) (setq f (open "%s" "w")) (princ (list n (kt-cercles)) f) (close f) (princ))
"""


def read(text):
    """An AutoLISP list as Python's."""
    return ast.literal_eval(text.replace("nil", "[]").replace("(", "[").replace(")", "]").replace(" ", ", "))


class Screen:
    def __init__(self):
        reading, writing = os.pipe()
        self.server = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
                                       pass_fds=[writing], stderr=subprocess.DEVNULL)
        os.close(writing)
        self.name = ":" + os.fdopen(reading).readline().strip()

    def tool(self, *words):
        run = subprocess.run(["xdotool", *map(str, words)], env=dict(os.environ, DISPLAY=self.name), capture_output=True, text=True)
        return run.stdout.split()

    def window(self, name):
        """The window of that name when it can be seen; it then gets the keys."""
        found = self.tool("search", "--onlyvisible", "--name", name)
        if found:
            self.tool("windowfocus", "--sync", found[-1])
        return found[-1] if found else None


class Waited(Exception):
    """Nothing came of waiting: a key that the tool lost, or a machine with too much to do."""


def until(condition, what):
    end = time.monotonic() + PATIENCE
    while time.monotonic() < end:
        if result := condition():
            return result
        time.sleep(0.02)
    raise Waited(what)


class Session:
    """The program from its start to its kill. `state` is what the journal has, `steps` what undo goes back to."""

    def __init__(self, course, drawings, state):
        self.course, self.screen, self.state, self.steps, self.count = course, course.screen, state, [], 0
        self.program = subprocess.Popen([course.desktop, *drawings], env=course.environment, stdout=subprocess.DEVNULL,
                                        stderr=subprocess.DEVNULL)

    def type(self, text):
        for k, line in enumerate(text.split("\n")):
            if k:
                self.screen.tool("key", "Return")
            if line:
                self.screen.tool("type", "--delay", "1", line)

    def answered(self):
        """Waits until all that was typed is answered; what the drawing then has."""
        self.count += 1
        self.ask()
        return until(self.journal, "an answer")

    def ask(self):
        self.type('(kt %d)\n' % self.count)
        self.asked = self.typed = time.monotonic()

    def journal(self):
        if time.monotonic() - self.asked > AGAIN:  # keys that the tool lost in the midst of the line
            self.screen.tool("key", "Escape", "Escape")
            self.ask()
        if time.monotonic() - self.typed > 2:  # the last one
            self.screen.tool("key", "Return")
            self.typed += 2
        try:
            number, circles = read(self.course.journal.read_text())
        except (OSError, SyntaxError, ValueError):
            return None
        return [sorted(map(tuple, circles))] if number == self.count else None

    def shown(self):
        """Whether the drawing is in front; the offer of its copy is accepted."""
        if self.screen.window("^rue[0-9]*.dxf.* - Kavel$"):
            return True
        if self.screen.window("^Kavel$"):
            self.screen.tool("key", "Return")
        return False

    def ready(self):
        until(self.shown, "the drawing")
        self.type('(load "%s")\n' % self.course.functions)
        found = self.answered()[0]
        assert found == self.state, ("shown after the start", found, "expected", self.state)

    def command(self):
        """A random command as (keys, what it leaves)."""
        kind = random.choice(["circle", "circle", "circle", "erase", "undo", "save"])
        if kind == "erase" and self.state:
            return "ERASE (entlast)\n\n", None
        if kind == "undo" and self.steps:
            return "U\n", self.steps[-1]
        if kind == "save":
            return self.course.saving(), self.state
        x, y, r = random.randint(0, 300), random.randint(0, 100), random.randint(1, 9)
        return "CIRCLE %d,%d %d\n" % (x, y, r), sorted(self.state + [(x, y, r)])

    def noise(self):
        """What changes nothing: clicks, the wheel, panels, menus, modes; then Escape."""
        for _ in range(random.randint(0, 3)):
            self.screen.tool("key", random.choice(["alt+f", "F3", "F8", "Up"]), "Escape", "Escape", "Escape")
            self.screen.tool("mousemove", random.randint(300, 900), random.randint(150, 600), "click", random.choice([1, 4, 5]))
            self.screen.tool("key", random.choice(["F3", "Up", "Tab"]), "Escape", "Escape", "Escape", "Escape")

    def carry_out(self):
        keys, after = self.command()
        self.type(keys)
        now = self.answered()[0]
        if after is None:
            assert len(now) == len(self.state) - 1, (keys, now, self.state)
        else:
            assert now == after, (keys, "left", now, "expected", after)
        if keys == "U\n":
            self.steps.pop()
        elif now != self.state:
            self.steps.append(self.state)
        self.state = now

    def kill(self):
        """At a random moment of a further command; what the drawing may have then."""
        keys, after = self.command()
        self.type(keys[: random.randint(0, len(keys))])
        time.sleep(random.choice([0, 0.005, 0.02, 0.1]))
        self.program.kill()
        self.program.wait()
        if after is None:  # of the circles any one may be the last
            return [self.state] + [self.state[:k] + self.state[k + 1:] for k in range(len(self.state))]
        return [self.state, after]


class Course:
    def __init__(self, desktop, kavel, folder):
        self.desktop, self.kavel, self.folder, self.screen = desktop, kavel, folder, Screen()
        self.journal, self.functions, self.drawing = folder / "journal.txt", folder / "kt.lsp", folder / "rue.dxf"
        self.copies, self.saved = folder / "copies", 0
        self.functions.write_text(DUMP % self.journal)
        self.environment = dict(os.environ, DISPLAY=self.screen.name, HOME=str(folder), XDG_CONFIG_HOME=str(folder),
                                XDG_DATA_HOME=str(folder), KAVEL_SAUVEGARDES=str(self.copies), LC_ALL="C.UTF-8")

    def saving(self):
        """Under a new name, which is never asked about."""
        self.saved += 1
        return "SAVEAS\n%s\n" % (self.folder / ("rue%d.dxf" % self.saved))

    def circles(self, path):
        run = subprocess.run([self.kavel, "--no-frontal", "--quiet", path, "-l", self.functions, "-e", "(kt-cercles)"], env=self.environment,
                             capture_output=True, text=True, check=True)
        return sorted(map(tuple, read(run.stdout.strip().splitlines()[-1])))

    def left(self):
        """What a killed program has left: the copies, else the file that was saved last."""
        return sorted(self.copies.glob("*.dxf")) or [max(self.folder.glob("rue*.dxf"), key=os.path.getmtime)]

    def begun(self, state):
        """The program with the drawing in front; one that doesn't come so far is killed and must leave what there was."""
        for _ in range(3):
            session = Session(self, [] if self.left()[0].parent == self.copies else self.left(), state)
            try:
                session.ready()
                return session
            except Waited as what:
                print("waited for", what, flush=True)
                session.program.kill()
                session.program.wait()
                assert self.circles(self.left()[0]) == state, (self.left()[0], "expected", state)
        raise SystemExit("the program doesn't begin")

    def life(self, state):
        session = self.begun(state)
        for _ in range(random.randint(1, 5)):
            session.noise()
            session.carry_out()
        allowed = session.kill()
        left = self.left()
        assert len(left) == 1, left
        found = self.circles(left[0])
        assert found in allowed, (str(left[0]), "holds", found, "expected", allowed)
        return found

    def play(self, kills):
        subprocess.run([self.kavel, "--no-frontal", "--quiet", "-e", "(entmake '((0 . \"POINT\") (10 0 0)))", "-o", self.drawing],
                       env=self.environment, check=True, stdout=subprocess.DEVNULL)
        state = []
        for _ in range(kills):
            state = self.life(state)


def main():
    options = argparse.ArgumentParser()
    options.add_argument("desktop")
    options.add_argument("kavel")
    options.add_argument("--kills", type=int, default=10)
    options.add_argument("--seed", type=int, default=1)
    given = options.parse_args()
    if not all(map(shutil.which, ["Xvfb", "xdotool"])):
        sys.exit(77)
    print("seed", given.seed, flush=True)
    random.seed(given.seed)
    with tempfile.TemporaryDirectory() as folder:
        course = Course(os.path.abspath(given.desktop), os.path.abspath(given.kavel), pathlib.Path(folder))
        try:
            course.play(given.kills)
        finally:
            course.screen.server.kill()
            course.screen.server.wait()


if __name__ == "__main__":
    main()
