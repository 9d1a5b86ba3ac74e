"""The program's window on a virtual screen, read by what it tells assistive programs (AT-SPI) and moved by its keys and mouse (xdotool).

Nothing waits for a fixed time: whoever acts says what the program's answer is, and that is looked for until it is there."""
import os
import re
import subprocess
import time

import gi

gi.require_version("Atspi", "2.0")
from gi.repository import Atspi  # noqa: E402

PATIENCE = 60  # seconds for an answer
PAUSE = 0.005  # between two looks


class NoAnswer(Exception):
    pass


def until(answer, what, patience=PATIENCE):
    """What a function gives as soon as that is true."""
    end = time.monotonic() + patience
    while time.monotonic() < end:
        try:
            if found := answer():
                return found
        except gi.repository.GLib.GError:  # what was looked at went away meanwhile
            pass
        time.sleep(PAUSE)
    raise NoAnswer(what)


def xdotool(*words):
    subprocess.run(["xdotool", *map(str, words)], check=True, stdout=subprocess.DEVNULL)


def inside(thing, role, name, depth=12):
    """The things of a role within another one whose names begin like this."""
    if thing is None or depth == 0:
        return
    if thing.get_role_name() == role and (thing.get_name() or "").startswith(name):
        yield thing
    for k in range(thing.get_child_count()):
        yield from inside(thing.get_child_at_index(k), role, name, depth - 1)


def seen(thing):
    return thing.get_state_set().contains(Atspi.StateType.SHOWING)


def middle(thing):
    box = thing.get_extents(Atspi.CoordType.SCREEN)
    return box.x + box.width // 2, box.y + box.height // 2


class Window:
    """kavel-bureau with a drawing, from its start to its end."""

    def __init__(self, program, drawing):
        # a home of its own: another window leaves copies that would be offered
        environment = dict(os.environ, HOME=drawing + ".home", KAVEL_CHEMIN=drawing + ".home", XDG_CONFIG_HOME=drawing + ".home")
        os.mkdir(drawing + ".home")
        self.process = subprocess.Popen([program, drawing], env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
        self.frame = until(lambda: self.find("frame", os.path.basename(drawing)), "the window")
        self.history = until(lambda: next(inside(self.frame, "text", "Historique"), None), "the history")
        self.commands = until(lambda: next(inside(self.frame, "frame", "Commandes"), None), "the panel of commands")
        until(lambda: self.view().width > 100 and self.asks("Commande"), "the view")

    def find(self, role, name):
        desktop = Atspi.get_desktop(0)
        for k in range(desktop.get_child_count()):
            if found := next(inside(desktop.get_child_at_index(k), role, name), None):
                return found
        return None

    def end(self):
        self.process.kill()
        self.process.wait()
        until(lambda: Atspi.get_desktop(0).get_child_count() == 0, "the end of the program")

    # --- what is said

    def said(self):
        return Atspi.Text.get_text(self.history, 0, -1)

    def prompt(self):
        """The label of the question that waits for an answer."""
        return next((label for label in inside(self.commands, "label", "") if seen(label) and label.get_name()), None)

    def asks(self, words):
        return words in self.prompt().get_name()

    def chosen(self):
        """Whether the panel of properties tells of an object."""
        return next(inside(next(inside(self.frame, "table", "Propriétés")), "table cell", ""), None)

    # --- where things are

    def item(self, name):
        """The middle of a menu, or of an entry of one that is open."""
        return middle(until(lambda: next((m for m in inside(self.frame, "menu item", name) if seen(m)), None), "the menu " + name))

    def word(self, word):
        """The middle of a word of the question, which may be clicked; letters are taken for equally wide."""
        label = until(lambda: self.prompt() if self.asks(word) else None, "the word " + word)
        box, text = label.get_extents(Atspi.CoordType.SCREEN), label.get_name()
        return round(box.x + box.width * (text.index(word) + len(word) / 2) / len(text)), box.y + box.height // 2

    def view(self):
        return next(inside(self.frame, "layered pane", "")).get_extents(Atspi.CoordType.SCREEN)

    def place(self, x, y):
        """The pixel of a point of the drawing, which the view shows as it did when it was asked last."""
        scale = self.box.height / self.size
        return (round(self.box.x + self.box.width / 2 + scale * (x - self.centre[0])),
                round(self.box.y + self.box.height / 2 - scale * (y - self.centre[1])))

    def look(self):
        """Learns where the view is."""
        self.box = self.view()
        self.centre, self.size = self.numbers("(list (getvar \"VIEWCTR\") (list (getvar \"VIEWSIZE\")))")
        self.size = self.size[0]

    # --- beside the work that is measured

    def numbers(self, expression):
        """Lists of numbers that an expression gives, asked by the command line; once more where keys were lost."""
        for _ in range(4):
            before = len(self.said())
            xdotool("type", "--delay", 1, "(progn (princ \"{{\") (foreach l %s (foreach n l (princ (rtos n 2 8)) (princ \" \")) (princ \"|\")) (princ \"}}\") (princ))"
                    % expression)
            xdotool("key", "Return")
            try:
                return until(lambda: self.given(before), expression, PATIENCE / 4)
            except NoAnswer:
                xdotool("key", "Escape", "Escape")
        raise NoAnswer(expression)

    def given(self, before):
        found = re.search(r"\{\{([-0-9. |]*)\}\}", self.said()[before:])
        return found and [[float(n) for n in part.split()] for part in found.group(1).split("|")[:-1]]

    def line(self):
        """The vertices of the line of sewers as [distance, altitude, radius or 0]."""
        return self.numbers("(mapcar '(lambda (s) (list (car s) (cadr s) (if (caddr s) (caddr (caddr s)) 0.0)))"
                            " (apply 'append (plv-lire-ligne (car (plv-profils)) \"Assainissement\")))")
