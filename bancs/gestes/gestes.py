#!/usr/bin/python3
"""The same project line made with the mouse and typed, in the real window, at the pace of the standard operator.

    bancs/gestes/gestes.py PATH/TO/kavel-bureau PATH/TO/kavel [--key SECONDS]

A line of four vertices is drawn on the example street, gets a curve, and its third vertex is dragged. The operator's times are those of
Card, Moran and Newell, The Keystroke-Level Model, CACM 23 (1980), 396: a key 0.28 s (a practised typist 0.20 s), pointing 1.1 s, a
button down or up 0.1 s, a decision 1.35 s before each command and each vertex. The program is waited for as long as it takes. What is typed
are the numbers that the mouse's line has; in the end both drawings must hold the same line. Needs the packages xvfb, xdotool, openbox,
at-spi2-core, gir1.2-atspi-2.0 and dbus (dbus-run-session).
"""
import argparse
import os
import subprocess
import sys
import tempfile
import time

HERE = os.path.dirname(os.path.abspath(__file__))
SURVEY = os.path.join(HERE, "../../exemples/rue-du-moulin.csv")
POINT, BUTTON, DECISION = 1.1, 0.1, 1.35


class Operator:
    """Acts at the standard pace; `waited` is what the program took of the time."""

    def __init__(self, window, key):
        self.window, self.key, self.at = window, key, (0, 0)
        self.begun, self.waited, self.acts = time.monotonic(), 0.0, {"K": 0, "P": 0, "B": 0, "M": 0}

    def spend(self, kind, seconds):
        self.acts[kind] += 1
        time.sleep(seconds)

    def decide(self):
        self.spend("M", DECISION)

    def point(self, place):
        """The cursor goes there on a straight way, as the program sees it while it draws."""
        self.acts["P"] += 1
        begun, start = time.monotonic(), self.at
        while (part := (time.monotonic() - begun) / POINT) < 1:
            xdotool("mousemove", *(round(a + part * (b - a)) for a, b in zip(start, place)))
        xdotool("mousemove", *place)
        self.at = place

    def click(self, place, answered):
        self.point(place)
        for what in ("mousedown", "mouseup"):
            xdotool(what, 1)
            self.spend("B", BUTTON)
        self.wait(answered)

    def type(self, line, answered):
        """A line and Enter."""
        for letter in line:
            xdotool("type", letter)
            self.spend("K", self.key)
        xdotool("key", "Return")
        self.spend("K", self.key)
        self.wait(answered)

    def wait(self, answered):
        begun = time.monotonic()
        until(answered, "an answer, after:\n" + self.window.said()[-400:])
        self.waited += time.monotonic() - begun

    def report(self, name):
        whole = time.monotonic() - self.begun
        acts = " ".join("%d %s" % (n, kind) for kind, n in self.acts.items() if n)
        print("%-6s %6.1f s: the operator %.1f s (%s), the program %.2f s" % (name, whole, whole - self.waited, acts, self.waited))
        return whole


def says(window, words):
    """Whether the history has words once more than now."""
    wanted = window.said().count(words) + 1
    return lambda: window.said().count(words) >= wanted


def drawn(ground, station, altitude):
    """A point of the profile in the drawing: altitudes ten times, over the plane there."""
    start, plane = max(p for p in ground["planes"] if p[0] <= station)
    return station, 10 * (altitude - plane)


def with_mouse(window, key, ground):
    window.look()
    at = lambda station, altitude: window.place(*drawn(ground, station, altitude))
    vertices = [(0, ground["z"](0) - 1.2), (100, 135.2), (240, 130.3), (400, ground["z"](400) - 1.2)]
    me = Operator(window, key)
    me.decide()
    me.click(window.item("Ligne"), lambda: window.item("Dessiner une ligne"))
    me.click(window.item("Dessiner une ligne"), lambda: window.asks("Genre"))
    me.decide()
    me.click(window.word("Assainissement"), says(window, "Premier sommet"))
    for n, vertex in enumerate(vertices):
        me.decide()
        me.click(at(*vertex), says(window, "Sommet %d:" % (n + 1)))
    me.decide()
    me.click(window.word("Fin"), says(window, "Ligne de projet"))
    first = window.line()
    # the curve at the second vertex, which goes through the cursor
    me.decide()
    me.click(at(50, (vertices[0][1] + vertices[1][1]) / 2), window.chosen)
    me.click(at(*vertices[1]), says(window, "Nouvelle place"))
    me.click(window.word("RAccord"), says(window, "(RAccord)"))
    me.decide()
    me.click(at(100, 135.42), says(window, "profondeur de"))
    # the third vertex elsewhere
    me.click(at(*vertices[2]), says(window, "Nouvelle place"))
    me.decide()
    me.click(at(250, 129.6), says(window, "profondeur de"))
    return me.report("mouse"), first, window.line()


def written(number):
    """To the millimetre, as a person writes it."""
    return ("%.3f" % number).rstrip("0").rstrip(".")


def numbers(vertex):
    return "%s;%s" % (written(vertex[0]), written(vertex[1]))


def typed(window, key, first, last):
    me = Operator(window, key)
    me.decide()
    me.type("plv-dessiner", lambda: window.asks("Genre"))
    me.decide()
    me.type("as", says(window, "Premier sommet"))
    for n, vertex in enumerate(first):
        me.decide()
        me.type(numbers(vertex), says(window, "Sommet %d:" % (n + 1)))
        if n == 1:
            me.decide()
            me.type("c" + written(last[1][2]), says(window, "Le raccordement tiendra compte"))
    me.decide()
    me.type("", says(window, "Ligne de projet"))
    me.decide()
    me.type("plv-tirer", lambda: window.asks("Genre"))
    me.type("as", says(window, "à tirer"))
    me.type("3", says(window, "Nouvelle place"))
    me.decide()
    me.type(numbers(last[2]), says(window, "profondeur de"))
    me.type("", lambda: window.asks("Commande"))
    return me.report("typed"), window.line()


def same(a, b):
    return len(a) == len(b) and all(abs(p - q) <= 1e-3 for v, w in zip(a, b) for p, q in zip(v, w))


def ground_of(window):
    points = window.numbers("(plv-points-tn (car (plv-profils)))")

    def altitude(station):
        return next(a[1] + (station - a[0]) / (b[0] - a[0]) * (b[1] - a[1]) for a, b in zip(points, points[1:]) if a[0] <= station <= b[0])

    return {"z": altitude, "planes": [(p[0], p[1]) for p in window.numbers("(plv-plans (car (plv-profils)))")]}


def drawing(kavel, folder, name):
    path = os.path.join(folder, name)
    subprocess.run([kavel, "--quiet", "-e", '(plv-nouveau "%s" "1" \'(0.0 0.0 0.0) 10.0 2.5 nil nil)' % SURVEY, "--save", path], check=True,
                   stdout=subprocess.DEVNULL)
    return path


def compare(arguments, folder):
    window = Window(arguments.desktop, drawing(arguments.kavel, folder, "souris.dxf"))
    ground = ground_of(window)
    clicked, first, last = with_mouse(window, arguments.key, ground)
    window.end()
    window = Window(arguments.desktop, drawing(arguments.kavel, folder, "tapee.dxf"))
    keyed, other = typed(window, arguments.key, first, last)
    window.end()
    print("the line (distance altitude radius):", "  ".join("%.3f %.3f %g" % tuple(v) for v in last))
    if not same(last, other):
        print("typed it is another one:", other)
        return 1
    print("both drawings hold it; typed it takes %.2f times as long" % (keyed / clicked))
    return 0


def on_a_screen(words):
    """The same command again on a screen, a bus and a desktop of its own; its status."""
    reading, writing = os.pipe()
    screen = subprocess.Popen(["Xvfb", "-displayfd", str(writing), "-screen", "0", "1280x900x24", "-nolisten", "tcp", "-noreset"],
                              pass_fds=[writing], stderr=subprocess.DEVNULL)
    os.close(writing)
    try:
        with tempfile.TemporaryDirectory() as folder:
            environment = dict(os.environ, DISPLAY=":" + os.fdopen(reading).readline().strip(), QT_LINUX_ACCESSIBILITY_ALWAYS_ON="1",
                               XDG_CONFIG_HOME=folder, KAVEL_CHEMIN=folder, KAVEL_GESTES=folder, LC_ALL="C.UTF-8")
            return subprocess.run(["dbus-run-session", "--", sys.executable, *words], env=environment, stderr=None).returncode
    finally:
        screen.kill()


def main():
    parser = argparse.ArgumentParser()
    parser.add_argument("desktop", type=os.path.abspath)
    parser.add_argument("kavel", type=os.path.abspath)
    parser.add_argument("--key", type=float, default=0.28)
    arguments = parser.parse_args()
    folder = os.environ.get("KAVEL_GESTES")
    if not folder:
        return on_a_screen(sys.argv)
    helpers = [subprocess.Popen(words) for words in (["/usr/libexec/at-spi-bus-launcher", "--launch-immediately"], ["openbox"])]
    try:
        return compare(arguments, folder)
    finally:
        for helper in helpers:
            helper.terminate()  # the launcher ends its bus
            helper.wait()


if __name__ == "__main__":
    if "KAVEL_GESTES" in os.environ:
        from fenetre import NoAnswer, Window, until, xdotool  # what AT-SPI needs is there only on the screen
    sys.exit(main())
