#!/usr/bin/python3
"""The page of PLV-PAGE in a browser: what a hand reads is what the program says, keys and pointers do the same, nothing comes from a network.

Usage: page.py KAVEL SOURCE
Profiles of the examples and one of 20,000 points are written as pages; headless Chromium runs them with a script that reads at random
stations (the seed is printed), measures, switches lines and opens tables. Needs the package chromium.
"""
import html
import json
import os
import random
import re
import subprocess
import sys
import tempfile
import time

KAVEL, SOURCE = os.path.abspath(sys.argv[1]), os.path.abspath(sys.argv[2])
LARGEST = 300_000  # bytes of the example's page
SEED = int(sys.argv[3]) if len(sys.argv) > 3 else int(time.time())

HAND = """<script>
const R = { first: performance.now() }, key = (k, o = {}) => $('dessin').dispatchEvent(new KeyboardEvent('keydown', { key: k, bubbles: true, cancelable: true, ...o }))
const point = (t, x, y) => { const r = $('dessin').getBoundingClientRect(); $('dessin').dispatchEvent(new PointerEvent(t, { pointerId: 1, clientX: r.left + x, clientY: r.top + y, bubbles: true })) }
const rows = e => [...e.querySelectorAll('tr')].map(tr => [...tr.children].map(td => td.innerText))
R.read = STATIONS.map(s => { lire(s - P.origine); return rows($('lecture')) })
key('End'); R.end = $('lecture').querySelector('p').innerText
key('Home'); const un = (vue.b - vue.a) / zone().l; key('ArrowRight'); key('ArrowRight', { shiftKey: true }); R.steps = curseur / un
point('pointermove', versX(P.longueur / 3), 50); R.moved = curseur - P.longueur / 3
$('mesurer').click()
point('pointerdown', versX(0), versY(en(terrain(), 0).z) - 5); point('pointerup', 0, 0)
point('pointerdown', versX(P.longueur), versY(en(terrain(), P.longueur).z) - 5); point('pointerup', 0, 0)
R.measure = [...$('lecture').querySelectorAll('p')].pop().innerText
const paths = () => $('dessin').querySelectorAll('path').length, before = paths()
const box = $('lignes').querySelectorAll('input')[0]; box.checked = false; box.onchange(); cadrer(); dessiner(); R.less = before - paths()
R.rowsWithout = rows($('lecture')).length; box.checked = true; box.onchange(); cadrer(); dessiner()
key('+'); R.nearer = (vue.b - vue.a) < P.longueur; key('0'); R.all = vue.b - vue.a
const t0 = performance.now(); for (let i = 0; i < 20; i++) { cadrer(); dessiner() } R.redraw = (performance.now() - t0) / 20
const t1 = performance.now(); for (let i = 0; i < 100; i++) { point('pointermove', 60 + 10 * i, 50); document.body.offsetHeight } R.reading = (performance.now() - t1) / 100
document.querySelectorAll('details').forEach(d => { d.open = true })
setTimeout(() => {
  R.tables = [...document.querySelectorAll('details')].map(d => [d.querySelector('summary').innerText, rows(d)])
  R.focusable = [...document.querySelectorAll('button,select:not([hidden]),input,summary,#dessin')].every(e => e.tabIndex >= 0)
  R.wide = document.documentElement.scrollWidth - innerWidth
  const pre = document.createElement('pre'); pre.id = 'result'; pre.textContent = JSON.stringify(R); document.body.append(pre)
}, 300)
</script>"""


def kavel(folder, forms):
    script = os.path.join(folder, "page.lsp")
    with open(script, "w", encoding="utf-8") as file:
        file.write("\n".join(forms) + "\n")
    done = subprocess.run([KAVEL, "--quiet", "-l", script], cwd=folder, text=True, capture_output=True, timeout=300,
                          env={**os.environ, "KAVEL_CHEMIN": folder, "KAVEL_FRONTAL": os.path.join(SOURCE, "frontal"), "LC_ALL": "C.UTF-8"})
    assert done.returncode == 0, done.stdout + done.stderr
    return done.stdout


def browse(folder, page, stations, width):
    """What the script found on the page."""
    with open(page, encoding="utf-8") as file:
        text = file.read()
    driven = os.path.join(folder, "driven.html")
    with open(driven, "w", encoding="utf-8") as file:
        file.write(text.replace("</body>", HAND.replace("STATIONS", json.dumps(stations)) + "</body>"))
    done = subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--virtual-time-budget=8000", f"--window-size={width},900",
                           f"--user-data-dir={folder}/chromium", "--dump-dom", "file://" + driven], text=True, capture_output=True, timeout=180)
    found = re.search(r'<pre id="result">(.*?)</pre>', done.stdout, re.S)
    assert found, "the page's script failed: " + "\n".join(l for l in done.stderr.splitlines() if "CONSOLE" in l)[:500]
    return json.loads(html.unescape(found.group(1)))


def said(folder, forms, stations):
    """(ground, lines) of each station as the program says them, texts of two decimals."""
    ask = f"""(foreach s '({' '.join(map(str, stations))})
  (setq d (- s (plv-premiere-station p)) z (plv-altitude-tn (plv-points-tn p) d))
  (princ (strcat "\\n#" (plv-reel z 2)))
  (foreach g (plv-genres-du-projet p)
    (setq y (plv-altitude-projet p (plv-elements-situes p g) (plv-plans p) d))
    (princ (if y (strcat "|" g "|" (plv-reel y 2) "|" (plv-reel (- z y) 2)) (strcat "|" g "|-|")))))"""
    output = kavel(folder, forms + [ask])
    return [line[1:].split("|") for line in output.splitlines() if line.startswith("#")]


def near(a, b):
    """The same to the last digit, which a rounding may turn."""
    return a == b or abs(float(a) - float(b)) < 0.0101


def check_readings(found, expected):
    for table, line in zip(found["read"], expected):
        ground, rest = line[0], line[1:]
        assert near(table[1][1], ground), (table, line)
        by_name = {row[0]: row for row in table[2:]}
        for name, z, depth in zip(rest[0::3], rest[1::3], rest[2::3]):
            row = by_name[name]
            assert (row[1] == "-") == (z == "-"), (row, line)
            if z != "-":
                assert near(row[1], z) and near(row[2], depth), (row, line)


def example(folder):
    source = os.path.join(SOURCE, "exemples")
    forms = [f'(setq p (plv-nouveau "{source}/rue-du-moulin.csv" "R <1>" \'(5000.0 300.0 0.0) 10.0 2.5 nil nil))',
             f'(plv-projet-fichier p "Projet" "{source}/rue-du-moulin-projet.csv")', "(plv-projet p \"Voirie\" '((50.0 137.0) (200.0 132.0)))"]
    kavel(folder, forms + ['(plv-page (list p) "rue.html")'])
    page = os.path.join(folder, "rue.html")
    text = open(page, encoding="utf-8").read()
    assert len(text) < LARGEST, len(text)
    assert not re.findall(r"(?:src|href)\s*=|url\((?!#)|https?://(?!www\.w3\.org/2000/svg)", text), "something comes from elsewhere"
    rng = random.Random(SEED)
    stations = [0, 400, 52.8, 53.9, 322.6] + [round(rng.uniform(0, 400), 2) for _ in range(60)]
    found = browse(folder, page, stations, 1200)
    check_readings(found, said(folder, forms, stations))
    assert found["end"] == "Station 400.00" and abs(found["steps"] - 11) < 1e-6 and abs(found["moved"]) < 0.5, found
    assert found["measure"] == "De 0.00 à 400.00: 400.00 m, dénivelée -19.31 m, pente -4.83 %, longueur 400.47 m", found["measure"]
    assert found["less"] == 2 and found["rowsWithout"] == 3 and found["nearer"] and abs(found["all"] - 400) < 1e-9, found
    assert found["focusable"], "something can't be reached by keys"
    tables = dict(found["tables"])
    assert len(tables["Points du terrain (59)"]) == 60 and tables["Points du terrain (59)"][1][:3] == ["Carrefour D12", "0.00", "142.31"], tables
    assert any(name.startswith("Métrés Projet") for name in tables), tables.keys()
    total = tables[next(name for name in tables if name.startswith("Métrés Projet"))][-1]
    assert total[:2] == ["Total", "400.00"], total
    assert browse(folder, page, [0], 500)["wide"] <= 0, "a phone's page is wider than the phone"
    check_print(folder, page)


def check_print(folder, page):
    """A sheet of paper shows all of the profile, and every table."""
    printed = os.path.join(folder, "page.pdf")
    subprocess.run(["chromium", "--headless", "--no-sandbox", "--disable-gpu", "--window-size=1400,900", f"--user-data-dir={folder}/chromium", f"--print-to-pdf={printed}",
                    "file://" + page], capture_output=True, timeout=180, check=True)
    assert "Carrefour D12" in subprocess.run(["pdftotext", printed, "-"], capture_output=True, text=True, check=True).stdout, "tables aren't printed"
    text = subprocess.run(["pdftotext", "-bbox", "-f", "1", "-l", "1", printed, "-"], capture_output=True, text=True, check=True).stdout
    width = float(re.search(r'<page width="([\d.]+)"', text).group(1))
    ends = [float(x) for x in re.findall(r'xMax="([\d.]+)" yMax="[\d.]+">400<', text)]
    assert ends and max(ends) < width - 20, ("the last station on paper", ends, width)


def long_one(folder):
    with open(os.path.join(folder, "long.csv"), "w", encoding="utf-8") as file:
        file.write("distance;altitude;nom\n" + "".join(f"{i * 0.6:.2f};{100 + 5 * ((i * 7919) % 1000) / 1000:.3f};\n" for i in range(20000)))
    started = time.time()
    kavel(folder, ['(setq p (plv-nouveau "long.csv" "1" nil 1.0 2.5 nil \'((0.0 90.0))))', '(plv-page (list p) "long.html")'])
    found = browse(folder, os.path.join(folder, "long.html"), [600, 11999.4], 1200)
    assert found["end"] == "Station 11999.40", found["end"]
    print(f"20,000 points: {os.path.getsize(os.path.join(folder, 'long.html')) // 1000} kB, written in {time.time() - started:.1f} s, "
          f"first drawn after {found['first']:.0f} ms, drawn in {found['redraw']:.1f} ms, a reading by the pointer in {found['reading']:.1f} ms")


print(f"seed {SEED}")
with tempfile.TemporaryDirectory() as work:
    example(work)
    long_one(work)
