"""What a series does: a profile with its things, and edits as AutoLISP forms. Each edit is what a user, a program or another program
could do; those of a list are drawn with equal chances."""
import os

ROWS = ["T - 6.0 4 Altitude", "T - 2.0 0 Numero", "T - 5.0 3 Cumulees", "T - 2.5 2 Partielles", "T - 16 8 Obs", "T - 6.0 5 {Projet} Projet",
        "T - 6.0 6 {Voirie} Profondeur", "U - 3.0 12 {Projet} Pentes", "U - 3.0 14 {Voirie} Pentes", "U - 2.5 16 {Projet} Partielles",
        "U - 5.0 17 {Voirie} Cumulees", "U - 3.0 7 Plan", "U - 3.0 9 Devers", "U - 2.0 10 Reperes", "U - 6.0 11 {COTE} Cote"]


class Serie:
    def __init__(self, rng, folder):
        self.rng, self.folder, self.words = rng, folder, []
        self.length, self.points = 0.0, []

    def name(self, file):
        return os.path.join(self.folder, file).replace("\\", "/")

    def write(self, file, lines):
        with open(self.name(file), "w", encoding="utf-8") as out:
            out.write("\n".join(lines) + "\n")

    # --- the beginning

    def ground(self):
        rng, z, d = self.rng, 50.0, 0.0
        self.points = []
        for i in range(rng.randint(4, 14)):
            self.points.append((round(d, 2), round(z, 5), rng.choice(["", "", f"P{i}"])))
            d += rng.choice([4.0, 7.25, 12.5, 20.0])
            z += rng.uniform(-1.5, 1.2)
        self.length = self.points[-1][0]
        self.write("g.csv", ["distance;altitude;nom"] + [f"{100 + d};{z};{n}" for d, z, n in self.points])

    def line(self, low=0.5, high=3.0):
        """Vertices (station altitude [radius]) below the ground."""
        inner = sorted(self.rng.sample(range(2, 9), self.rng.randint(0, 2)))
        vertices = []
        for part in [0, *inner, 10]:
            d = round(self.length * part / 10, 2) if part < 10 else self.length
            z = min(self.points, key=lambda p: abs(p[0] - d))[1]
            radius = self.rng.choice(["", "", " 60.0"]) if 0 < part < 10 else ""
            vertices.append(f"({100 + d} {z - self.rng.uniform(low, high):.6f}{radius})")
        return "'(" + " ".join(vertices) + ")"

    def definition(self):
        rows = self.rng.sample(ROWS, self.rng.randint(3, len(ROWS)))
        rows.sort(key=lambda row: row[0])
        self.write("t.txt", rows)

    def beginning(self):
        rng = self.rng
        self.ground()
        self.definition()
        self.tout = rng.choice(["T", "nil"])
        middle = self.length / 2
        planes = rng.choice(["'((0.0 30.0))", f"'((0.0 30.0) ({middle:.3f} 25.0))"])
        forms = [f'(setq p (plv-nouveau "{self.name("g.csv")}" "7" \'(1000.0 500.0 0.0) 10.0 2.5 nil {planes}))',
                 f'(plv-projet p "Projet" {self.line()})', f'(plv-projet p "Voirie" {self.line(-1.0, 1.0)})',
                 f'(entmake \'((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 3) (70 . 0) (10 0.0 -900.0) (10 {middle} -880.0)'
                 f' (10 {self.length + 20} -900.0)))', '(plv-associer-axe p (entlast))',
                 f"(plv-devers p '((100.0 -2.0 -2.0) ({100 + middle} -2.5 2.5)))",
                 '(entmake \'((0 . "BLOCK") (2 . "REGARD") (70 . 2) (10 0.0 0.0 0.0)))', '(entmake \'((0 . "ENDBLK")))', self.functions(),
                 f'(regard {middle / 2:.2f} "R1")', f'(regard {middle:.2f} "R2")', "(setq essai:regards (plv-blocs p))"]
        for making in ('(plv-matrices p essai:chemin essai:tout)', '(coter "Projet")', '(coter "Voirie")', '(plv-metres nil "Projet" nil T)',
                       '(plv-metres nil "Voirie" nil T)', '(plv-legende p "Projet" nil)', "(plv-vers-plan p)"):
            if rng.random() < 0.75:
                forms.append(making)
        return forms

    def functions(self):
        return f'''(setq essai:chemin "{self.name("t.txt")}" essai:tout {self.tout})
(defun regard (d cote)
  (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "REGARD") (list 10 (+ (car (plv-origine p)) d) (+ (cadr (plv-origine p)) 60.0) 0.0)))
  (entmake (list '(0 . "ATTRIB") (list 10 (+ (car (plv-origine p)) d) 600.0 0.0) '(40 . 1.0) (cons 1 cote) '(2 . "COTE") '(70 . 0)))
  (entmake '((0 . "SEQEND"))))
(defun coter (g) (if (plv-elements-du-projet p g) (plv-coter p g (* 0.5 pi) "Toutes" (plv-elements-du-projet p g))))
(defun bouger (e code dx dy / g q)
  (if e (progn (setq g (entget e) q (assoc code g)) (entmod (subst (list code (+ dx (cadr q)) (+ dy (caddr q))) q g)))))
(defun nieme (n liste) (if liste (nth (rem n (length liste)) liste)))
(defun terrain (n dz / i)
  (setq i -1)
  (plv-ecrire-terrain p
    (mapcar '(lambda (q) (setq i (1+ i)) (list (car q) (+ (cadr q) (if (= i n) dz 0.0)))) (plv-points-tn p))))'''

    def again(self):
        return [self.functions(), '(setq p (plv-profil-de-numero "7"))']

    # --- edits

    def edits(self, number):
        forms = []
        for _ in range(number):
            edit = self.rng.choice([e for e in dir(self) if e.startswith("edit_")])
            made = getattr(self, edit)()
            self.words.append(edit[5:])
            if self.rng.random() < 0.15:
                self.words[-1] += " undone"
                made = ['(command "_.UNDO" "_Begin")', *made, '(command "_.UNDO" "_End")', '(command "_.U")']
            forms += made
        return forms

    def kind(self):
        return self.rng.choice(["Projet", "Voirie"])

    def element(self):
        return f'(nieme {self.rng.randrange(9)} (plv-elements p "{self.kind()}"))'

    def edit_move_element(self):
        return [f'(if (setq e {self.element()}) (command "_.MOVE" e "" \'(0.0 0.0) \'(0.0 {self.rng.uniform(-5, 5):.3f})))']

    def edit_vertex(self):
        return [f"(if (and (setq e {self.element()}) (= (plv-type e) \"LWPOLYLINE\")) (bouger e 10 0.0 {self.rng.uniform(-6, 6):.3f}))"]

    # A value of the line's table, a drag and a click of the mouse: the line is drawn again in the curves that it has.
    def edit_cell(self):
        field, text = self.rng.choice([("Altitude", f"{self.rng.uniform(46, 50):.3f}"), ("Profondeur", f"{self.rng.uniform(0, 2):.2f}"),
                                       ("Entree", f"{self.rng.uniform(-9, 9):.2f}"), ("Rayon", str(self.rng.choice([0, 40, 80])))])
        return [f'(plv-sommets-corriger p "{self.kind()}" \'(({self.rng.randint(1, 4)} "{field}" "{text}")))']

    def edit_drag(self):
        hold = self.rng.choice(["1", "2", "3", "1-2", "2-3", "C2"])
        return [f'(dialoguer \'(lambda () (plv-tirer p "{self.kind()}")) (list "{hold}" (plv-vers-dessin (plv-cadre p) '
                f'{self.rng.uniform(0, self.length):.2f} {self.rng.uniform(46, 50):.3f}) "" ""))']

    def edit_inserted(self):
        return [f'(plv-ligne-editer p "{self.kind()}" \'(lambda (suites sol) (plv-ligne-inserer suites {self.rng.uniform(0, self.length):.2f} nil)))']

    def edit_taken_away(self):
        return [f'(plv-ligne-editer p "{self.kind()}" \'(lambda (suites sol) (plv-ligne-supprimer suites 2)))']

    def edit_erase_element(self):
        return [f'(if (setq e {self.element()}) (command "_.ERASE" e ""))']

    def edit_other_line(self):
        return [f'(plv-projet p "AEp" {self.line()})']

    def edit_line_of_the_kind(self):
        return [f'(plv-projet p "{self.kind()}" {self.line()})']

    def edit_replace_line(self):
        kind = self.kind()
        return [f'(plv-effacer-courbes p (plv-elements p "{kind}"))', f'(plv-projet p "{kind}" {self.line()})']

    def edit_plane(self):
        station = 100 + round(self.rng.uniform(1, self.length - 1), 2)
        return [self.rng.choice([f'(plv-pc p "A" {station} {self.rng.randint(15, 32)}.0)', f'(plv-pc p "M" {station} {self.rng.randint(15, 32)}.0)',
                                 f'(if (cdr (plv-plans p)) (plv-pc p "S" (+ 100.0 (plv-plan-debut (cadr (plv-plans p)))) nil))'])]

    def edit_block(self):
        d = self.rng.uniform(0, self.length)
        return [self.rng.choice([f'(regard {d:.2f} "R{self.rng.randrange(99)}")', '(if (setq e (nieme 1 (plv-blocs p))) (entdel e))',
                                 f'(if (setq e (nieme 0 (plv-blocs p))) (command "_.MOVE" e "" \'(0.0 0.0) \'({self.rng.uniform(0, 3):.2f} 0.0)))',
                                 '(if (setq e (nieme 0 (plv-blocs p))) (progn (setq a (entget (entnext e))) (entmod (subst \'(1 . "neuf") (assoc 1 a) a))))'])]

    def edit_ground(self):
        return [f"(terrain {self.rng.randrange(len(self.points))} {self.rng.uniform(-1, 1):.2f})", "(plv-retracer-terrain p)"]

    # A piece of the ground dragged, and what the front-end does after a command, in the same step: neighbours and record follow.
    def edit_ground_piece(self):
        along, up = self.rng.choice([0.0, 0.0, 0.7]), self.rng.uniform(-6, 6)
        return ["(setq e (nieme %d (apply 'append (mapcar 'plv-lignes-du-plan (plv-entites-plans p)))))" % self.rng.randrange(9),
                '(command "_.UNDO" "_Begin")',
                f"(if e (progn (command \"_.MOVE\" e \"\" '(0.0 0.0) '({along:.2f} {up:.3f})) (plv-apres-commande (list e))))",
                '(command "_.UNDO" "_End")']

    # A newer survey: some points at other altitudes, one more, a name.
    def edit_newer_survey(self):
        points = [(d, z + self.rng.choice([0.0, 0.0, 0.25, -0.4]), n) for d, z, n in self.points]
        points.insert(1, (self.points[0][0] + 1.11, points[0][1] + 0.3, "Neuf"))
        self.write("neuf.csv", ["distance;altitude;nom"] + [f"{100 + d};{z};{n}" for d, z, n in points])
        return [f'(plv-remplacer-leve p "{self.name("neuf.csv")}")']

    # Classes of a form, quantities with them.
    def edit_classes(self):
        first = self.rng.choice(["0.75", "1.00", "1.25"])
        return [f'(plv-regler-classes \'(("{first}" "0.60" "0.00" "1") ("2.00" "0.80" "0.00" "2") ("5.00" "1.00" "0.00" "3")))']

    # Where a curve begins or ends, in the line's table.
    def edit_tangent_point(self):
        field = self.rng.choice(["Debut", "Fin", "Extremum"])
        return [f'(plv-sommets-corriger p "{self.kind()}" \'((2 "{field}" "{100 + self.rng.uniform(0, self.length):.2f}")))']

    def edit_survey(self):
        d, z, _ = self.rng.choice(self.points)
        between = 100 + d + 1.37
        return [self.rng.choice([f'(plv-leve p "C" {100 + d} {z + self.rng.uniform(-1, 1):.4f} nil)', f'(plv-leve p "N" {100 + d} nil "Neuf")',
                                 f'(plv-leve p "I" {between} {z + self.rng.uniform(-1, 1):.4f} "Seuil")', f'(plv-leve p "S" {100 + d} nil nil)'])]

    def edit_names(self):
        return ["(setq i 0)", f"(plv-ecrire-noms p (mapcar '(lambda (q) (setq i (1+ i)) (list (car q) (cadr q) (if (= i {self.rng.randint(1, 5)}) \"Nom\" \"\"))) (plv-points-tn p)))"]

    def edit_definition(self):
        self.definition()
        return []

    def edit_station(self):
        return [f'(plsxd p "DCUMDEB" {self.rng.choice([0.0, 100.0, 1000.0])})']

    def edit_axis(self):
        return [f"(bouger (plv-axe-plan p) 10 0.0 {self.rng.uniform(-20, 20):.2f})"]

    def edit_cross_falls(self):
        return [f"(plv-devers p '((100.0 -2.0 {self.rng.uniform(-3, 3):.1f}) ({100 + self.length / 2} -2.5 2.5)))"]

    def edit_dimensions(self):
        return [f'(coter "{self.kind()}")']

    def edit_update(self):
        return ["(plv-actualiser (list p))"]

    def edit_quantities(self):
        kind = self.kind()
        return [f'(if (plv-elements p "{kind}") (plv-metres nil "{kind}" nil T))']

    def edit_tables(self):
        return ["(if (plv-tables p) (plv-matrices p essai:chemin essai:tout))"]

    def edit_row(self):
        return ['(plv-choix-profil p)', '(if (plv-tables p) (PL-CPLM (plv-matrice-nom (car (plv-tables p))) 1))']

    def edit_move_all(self):
        return [f'(command "_.MOVE" "_All" "" \'(0.0 0.0) \'({self.rng.uniform(-500, 500):.2f} {self.rng.uniform(-500, 500):.2f}))']

    def edit_nothing(self):
        return [f'(if (setq e {self.element()}) (entmod (append (entget e) \'((62 . 5)))))', "(command \"_.LINE\" '(0.0 0.0) '(5.0 5.0) \"\")"]

    # --- another program

    def by_another_program(self, drawing):
        try:
            import ezdxf
        except ImportError:
            return
        document = ezdxf.readfile(drawing)
        lines = [e for e in document.modelspace() if e.dxftype() == "LWPOLYLINE" and e.dxf.layer.startswith("PLV-PROJET")]
        if lines:
            line = self.rng.choice(lines)
            with line.points("xyb") as points:
                points[0] = (points[0][0], points[0][1] + self.rng.uniform(-3, 3), points[0][2])
        document.saveas(drawing)
        self.words.append("another program")
