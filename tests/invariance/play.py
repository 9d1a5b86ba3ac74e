"""Plays the steps of a run with the real program, in one process or in one for each step, and keeps a drawing of each."""
import os
import subprocess

from drawing import Drawing, rename

LIMIT = 120  # seconds: a command that hangs is a difference too
OTHER = "un autre dessin.dxf"  # opened between the commands of a run that visits another drawing
OTHER_PROFILE = ['(plv-nouveau "autre.csv" "9" \'(30.0 40.0 0.0) 10.0 2.5 150.0 \'((0.0 1.0)))',
                 '(plv-matrices (plv-profil-de-numero "9") "autre.txt" T)']
OTHER_FILES = {"autre.csv": "0;10\n50;12\n90;11\n", "autre.txt": "AILLEURS - 4.0 4 Altitude\nAILLEURS - 4.0 3 Cumul\n"}


class Step:
    """Lines for the command line, files that they read, and what to check of the drawing and the words that come out."""

    def __init__(self, title, lines, checks=(), files=(), draws=True):
        self.title, self.lines, self.checks, self.files = title, list(lines), list(checks), dict(files)
        self.draws = draws  # what draws nothing can't be undone


class Result:
    """What a check looks at: what was said, the drawing, the one of the step before, the one with the step undone."""

    def __init__(self, folder, said, path, before, undone):
        self.folder, self.said, self.path, self.before, self.undone_path = folder, said, path, before, undone
        self.read, self.renamed = None, False

    def file(self, name):
        return os.path.join(self.folder, name)

    @property
    def drawing(self):
        if self.read is None:
            self.read = Drawing(self.path)
        return self.read

    @property
    def undone(self):
        return Drawing(self.undone_path) if self.undone_path else None


class Player:
    def __init__(self, kavel, source, folder, circumstances, settings, locales):
        self.kavel, self.folder, self.circumstances = kavel, os.path.join(folder, circumstances.folder), circumstances
        self.settings = os.path.join(folder, "réglages")
        for path in (self.folder, self.settings):
            os.makedirs(path, exist_ok=True)
        with open(os.path.join(self.settings, "config.ini"), "w", encoding="ascii") as file:
            file.write(settings)
        self.environment = dict(os.environ, LC_ALL=circumstances.locale, LANG=circumstances.locale, KAVEL_CHEMIN=self.settings)
        self.environment["KAVEL_FRONTAL"] = os.path.join(source, "frontal")
        if locales:
            self.environment["LOCPATH"] = locales

    def path(self, name):
        return os.path.join(self.folder, name)

    def write(self, name, lines):
        with open(self.path(name), "w", encoding="utf-8") as file:
            file.write(lines if isinstance(lines, str) else "\n".join(lines) + "\n")

    def run(self, arguments):
        try:
            done = subprocess.run([self.kavel, *arguments], cwd=self.folder, env=self.environment, capture_output=True, timeout=LIMIT)
        except subprocess.TimeoutExpired:
            return None, "no end after two minutes"
        return done.returncode, done.stdout.decode("utf-8", "replace") + done.stderr.decode("utf-8", "replace")

    def audit(self, i):
        """What the program finds wrong with a step's drawing, but for what runs have erased by hand and records still name."""
        findings = self.run([self.drawing_name(i), "--quiet", "--audit"])[1].strip().splitlines()
        return [f for f in findings[:-1] if not f.endswith("n'existe pas")] if "erreurs" in findings[-1] else findings

    # --- names of files

    def drawing_name(self, i, undone=False):
        return f"{self.circumstances.file} {i:02}{' annulé' if undone else ''}.dxf"

    # --- scripts

    def prepare(self, i, step):
        """The scripts and files of a step. Its lines are one step for undoing."""
        marker = f'(progn (princ "\\n=") (princ {i}) (princ "=\\n") (princ))'
        self.write(f"{i:02}.scr", ["UNDO", "DÉbut", marker, *step.lines, "UNDO", "Fin"])
        for name, text in step.files.items():
            self.write(name, text)
        if self.circumstances.visited:
            self.write(f"{i:02} visite.scr", ["OPEN", OTHER, "PLV-CHOISIR", "OPEN", self.drawing_name(i)])

    def save(self, name):
        return ["--release", self.circumstances.release, "--save", name]

    def arguments(self, i, step):
        """What the program is asked to do for a step, once the drawing is open."""
        c = self.circumstances
        actions = ["--script", f"{i:02}.scr"]
        if c.undone and step.draws:
            actions += ["--script", "annuler.scr", *self.save(self.drawing_name(i, True)), "--script", "refaire.scr"]
        actions += self.save(self.drawing_name(i))
        return actions + (["--script", f"{i:02} visite.scr"] if c.visited else [])

    # --- playing

    def processes(self, count):
        """The steps of each process: the drawing is closed between them."""
        c = self.circumstances
        if c.reopened:
            return [[i] for i in range(count)]
        return [[0], list(range(1, count))] if c.foreign else [list(range(count))]

    def play(self, steps):
        """(results, fault): a result for each step that was played."""
        self.write("annuler.scr", ["U"])
        self.write("refaire.scr", ["REDO"])
        for i, step in enumerate(steps):
            self.prepare(i, step)
        if self.circumstances.visited:
            self.make_other()
        results = []
        for numbers in self.processes(len(steps)):
            opened = [self.drawing_name(numbers[0] - 1)] if numbers[0] else []
            fault = self.process(steps, opened, numbers, results)
            if fault:
                return results, fault
            if numbers == [0] and self.circumstances.foreign:
                rename(self.path(self.drawing_name(0)))
                results[0].renamed = True
        return results, None

    def make_other(self):
        for name, text in OTHER_FILES.items():
            self.write(name, text)
        self.run(["--eval", OTHER_PROFILE[0], "--eval", OTHER_PROFILE[1], "--save", OTHER])

    # --- the whole run undone and done again

    ALL_UNDONE, ALL_REDONE = "tout annulé.dxf", "tout refait.dxf"

    def whole(self):
        """Undone and redone at the end of a run in one process."""
        c = self.circumstances
        if not c.undone or c.reopened or c.visited:
            return []
        self.write("tout annuler.scr", ["UNDO", "100000"])
        self.write("tout refaire.scr", ["MREDO", "Tout"])
        return ["--script", "tout annuler.scr", *self.save(self.ALL_UNDONE), "--script", "tout refaire.scr", *self.save(self.ALL_REDONE)]

    def process(self, steps, arguments, numbers, results):
        """Plays some steps in one process; the text of what went wrong, nil for nothing."""
        arguments = arguments + [a for i in numbers for a in self.arguments(i, steps[i])]
        arguments += self.whole() if numbers[-1] == len(steps) - 1 else []
        status, said = self.run(arguments)
        self.write(f"journal {numbers[0]:02}.txt", said)
        for i in numbers:
            words = said.split(f"\n={i}=\n")[-1].split(f"\n={i + 1}=\n")[0]
            path, undone = self.path(self.drawing_name(i)), self.path(self.drawing_name(i, True))
            if not os.path.exists(path):
                return f"step {i} ({steps[i].title}): status {status}\n{said[-1500:]}"
            results.append(Result(self.folder, words, path, results[-1] if results else None, undone if os.path.exists(undone) else None))
        errors = [line for line in said.splitlines() if "rreur" in line]
        return None if status == 0 else f"status {status} of steps {numbers}: {errors}"
