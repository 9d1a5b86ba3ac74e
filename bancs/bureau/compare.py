#!/usr/bin/env python3
"""Time to the first picture, redraw after a step of the wheel, and memory, of Kavel's desktop and LibreCAD, side by side.

    bancs/bureau/compare.py PATH/TO/kavel-bureau DRAWING.dxf [runs]

Each program opens the drawing in a window of a virtual screen (packages xvfb, openbox, xdotool, x11-apps, librecad). A
picture is complete at the first of at least SETTLED seconds of equal pictures, with the drawing in the window: its name stands in a
title, and more than LEAST of the middle of the screen has left the colour of the ground. Times are in seconds from the start of the program, or from the
wheel's step to the last change. Memory is the resident set in MB when the picture stands.
"""
import os
import re
import subprocess
import sys
import tempfile
import time

SCREEN, SIZE = ":93", (1280, 900)
SETTLED, LEAST, PATIENCE = 1.5, 0.02, 600
LIBRECAD_SETTINGS = "[Startup]\nFirstLoad=0\n[Defaults]\nUnit=Meter\n[Appearance]\nLanguage=en\nLanguageCmd=en\n"


def middle():
    """Pixels that belong to the drawing in both windows, as bytes; the cursor stands elsewhere."""
    data = subprocess.run(["xwd", "-root", "-silent", "-display", SCREEN], capture_output=True, check=True).stdout
    header = int.from_bytes(data[0:4], "big")
    colours = int.from_bytes(data[76:80], "big")
    pixels = memoryview(data)[header + colours * 12:]
    row = SIZE[0] * 4
    return b"".join(bytes(pixels[y * row + 330 * 4: y * row + 640 * 4]) for y in range(230, 560, 3))


def drawn(picture):
    ground = max(set(picture[i:i + 4] for i in range(0, len(picture), 4000)), key=lambda c: picture.count(c))
    cells = [picture[i:i + 4] for i in range(0, len(picture), 4)]
    return sum(c != ground for c in cells) / len(cells)


def settled(start, begun=None):
    """Seconds from start to the last change of the picture."""
    last, changed = begun, None
    while time.monotonic() - start < PATIENCE:
        now = middle()
        moment = time.monotonic()
        if now != last:
            last, changed = now, moment
        elif changed and moment - changed > SETTLED and drawn(now) > LEAST:
            return changed - start
        time.sleep(0.02)
    raise SystemExit("no picture in %d s" % PATIENCE)


def resident(pid):
    return int(re.search(r"VmRSS:\s*(\d+)", open(f"/proc/{pid}/status").read()).group(1)) / 1024


def mouse(*words):
    subprocess.run(["xdotool", *words], env=dict(os.environ, DISPLAY=SCREEN), check=True)


def wheel():
    time.sleep(1)
    before, start = middle(), time.monotonic()
    mouse("click", "4")
    return settled(start, before)


def titled(drawing, program):
    name, start = os.path.basename(drawing).replace(".", "[.]"), time.monotonic()
    while subprocess.run(["xdotool", "search", "--name", name], env=dict(os.environ, DISPLAY=SCREEN), capture_output=True).returncode:
        if program.poll() is not None or time.monotonic() - start > PATIENCE:
            raise SystemExit("no window of %s" % drawing)
        time.sleep(0.02)


def measure(command, environment):
    start = time.monotonic()
    program = subprocess.Popen(command, env=environment, stdout=subprocess.DEVNULL, stderr=subprocess.DEVNULL)
    try:
        titled(command[-1], program)
        first = settled(start)
        memory = resident(program.pid)
        return first, sorted(wheel() for _ in range(3))[1], memory
    finally:
        program.kill()
        program.wait()


def main():
    if len(sys.argv) < 3:
        raise SystemExit(__doc__)
    desktop, drawing, runs = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2]), int(sys.argv[3]) if len(sys.argv) > 3 else 3
    with tempfile.TemporaryDirectory() as home:
        os.makedirs(home + "/LibreCAD")
        open(home + "/LibreCAD/LibreCAD.conf", "w").write(LIBRECAD_SETTINGS)
        environment = dict(os.environ, DISPLAY=SCREEN, XDG_CONFIG_HOME=home, HOME=home, KAVEL_SAUVEGARDES=home + "/s", LC_ALL="C.UTF-8",
                           KAVEL_FRONTAL=os.path.join(os.path.dirname(os.path.abspath(__file__)), "../../frontal"))
        # Without -noreset the server starts anew when its last client has gone, and cuts off one that is just coming.
        server = subprocess.Popen(["Xvfb", SCREEN, "-screen", "0", "%dx%dx24" % SIZE, "-noreset"], stderr=subprocess.DEVNULL)
        time.sleep(1)
        mouse("mousemove", "690", "400")
        manager = subprocess.Popen(["openbox"], env=environment, stderr=subprocess.DEVNULL)
        try:
            results = {}
            for name, command in (("kavel-bureau", [desktop, drawing]), ("librecad", ["librecad", drawing])):
                results[name] = [min(column) for column in zip(*(measure(command, environment) for _ in range(runs)))]
                print("%-14s first picture %.2f s, redraw %.2f s, %.0f MB" % (name, *results[name]))
            ours, theirs = results["kavel-bureau"], results["librecad"]
            print("LibreCAD's to ours: first picture %.1f, redraw %.1f, memory %.1f" % tuple(t / o for t, o in zip(theirs, ours)))
        finally:
            manager.kill()
            server.kill()


if __name__ == "__main__":
    main()
