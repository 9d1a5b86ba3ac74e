"""Plays the steps of a run with the real program, in one process or in one for each step, and keeps a drawing of each."""
import os
import subprocess

from drawing import Drawing

LIMIT = 120  # seconds: a command that hangs is a difference too


class Step:
    """Lines for the command line, files that they read, and what to check of the drawing and the words that come out."""

    def __init__(self, title, lines, checks=(), files=(), fails=False):
        self.title, self.lines, self.checks, self.files, self.fails = title, list(lines), list(checks), dict(files), fails


class Result:
    """What a check looks at."""

    def __init__(self, folder, said, path, before):
        self.folder, self.said, self.path, self.before = folder, said, path, before
        self.read = None

    def file(self, name):
        return os.path.join(self.folder, name)

    @property
    def drawing(self):
        if self.read is None:
            self.read = Drawing(self.path)
        return self.read


class Player:
    def __init__(self, kavel, source, folder, circumstances, settings, locales):
        self.kavel, self.folder, self.circumstances = kavel, os.path.join(folder, circumstances.folder), circumstances
        self.settings = os.path.join(folder, "réglages")
        for path in (self.folder, self.settings):
            os.makedirs(path, exist_ok=True)
        with open(os.path.join(self.settings, "config.ini"), "w", encoding="ascii") as file:
            file.write(settings)
        self.environment = dict(os.environ, LC_ALL=circumstances.locale, LANG=circumstances.locale, KAVEL_CHEMIN=self.settings)
        self.environment.setdefault("KAVEL_FRONTAL", os.path.join(source, "frontal"))
        if locales:
            self.environment["LOCPATH"] = locales

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, text):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(text)

    def run(self, arguments):
        try:
            done = subprocess.run([self.kavel, *arguments], cwd=self.folder, env=self.environment, capture_output=True, timeout=LIMIT)
        except subprocess.TimeoutExpired:
            return None, "no end after two minutes"
        return done.returncode, done.stdout.decode("utf-8", "replace") + done.stderr.decode("utf-8", "replace")

    def script(self, i, step):
        """A file of the step's lines; in a run that undoes, the step is taken back and done again."""
        lines = [f'(progn (princ "\\n=") (princ {i}) (princ "=\\n") (princ))', *step.lines]
        self.write(f"{i:02}.scr", "\n".join(lines) + "\n")
        for name, text in step.files.items():
            self.write(name, text)

    def drawing_name(self, i):
        return f"{self.circumstances.file} {i:02}.dxf"

    def play(self, steps):
        """(results, fault): a result for each step that was played."""
        for i, step in enumerate(steps):
            self.script(i, step)
        if self.circumstances.reopened and self.circumstances.release != "R12":
            return self.one_by_one(steps)
        return self.at_once(steps, [], 0)

    def one_by_one(self, steps):
        results, before = [], None
        for i, step in enumerate(steps):
            more, fault = self.at_once([step], [self.drawing_name(i - 1)] if i else [], i, before)
            results += more
            if fault:
                return results, fault
            before = results[-1]
        return results, None

    def at_once(self, steps, arguments, first, before=None):
        for i in range(first, first + len(steps)):
            arguments += ["--script", f"{i:02}.scr", "--release", self.circumstances.release, "--save", self.drawing_name(i)]
        status, said = self.run(arguments)
        results = []
        for i, step in enumerate(steps, first):
            words = said.split(f"\n={i}=\n")[-1].split(f"\n={i + 1}=\n")[0]
            path = self.path(self.drawing_name(i))
            if not os.path.exists(path):
                return results, f"step {i} ({step.title}): status {status}\n{said[-1500:]}"
            results.append(Result(self.folder, words, path, results[-1] if results else before))
        fault = None
        if status != (1 if any(s.fails for s in steps) else 0):
            fault = f"status {status}\n{said[-1500:]}"
        return results, fault
