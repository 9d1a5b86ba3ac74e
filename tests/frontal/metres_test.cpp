// PLV-METRES and PLV-LEGENDE: what they report, draw, write and refuse.
#include "tests/frontal/quantities.h"

namespace {

using kaveltest::Quantities;

std::string contents(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

TEST(Quantities, OneCallMeasuresHatchesAndWrites) {
  Quantities session;
  session.project();
  const std::string said = session.measured("nil", session.path("m"), true);
  SAYS(said, "Profil P1, Projet: ");
  SAYS(said, ": juste.");
  SAYS(said, "Classeur: " + session.path("m.xlsx"));
  EXPECT_TRUE(std::filesystem::exists(session.path("m.xlsx")));
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx.nouveau.xlsx")));
  // Depth 0.5 at the start, 2 at 60 m, 1 at the end; at 40 m 46 - 44.8333.
  EXPECT_EQ(session.eval("(equal (apply '+ (mapcar 'cadddr (cdadr m))) (+ (* 40 0.5 (+ 0.5 1.1666666666666667)) (* 20 "
                         "0.5 3.1666666666666667) (* 40 0.5 3.0)) 1e-9)"),
            "T");
  EXPECT_EQ(session.eval("(list (cadr (cadadr m)) (caddr (plv-dernier (cadr m))))"), "(0.0 100.0)");
  EXPECT_NE(session.count("HATCH"), "0");
  EXPECT_EQ(session.eval("(cdr (assoc 8 (entget (ssname s 0))))"), "\"PLV-HACHURES\"");
  // Hatching again replaces the hatches.
  const std::string once = session.count("HATCH");
  session.measured("nil", "", true);
  EXPECT_EQ(session.count("HATCH"), once);
  // Without hatches nothing stays in the drawing, their groups neither.
  const std::string groups =
      "(length (vl-remove-if-not '(lambda (g) (and (= (car g) 350) (entget (cdr g)))) (dictsearch (namedobjdict) "
      "\"ACAD_GROUP\")))";
  const std::string before = session.count("HATCH") + session.eval(groups), drawn = session.count("LWPOLYLINE");
  session.measured("'(\"P1\" \"P1\")", session.path("m.xlsx"));  // replaces the workbook
  EXPECT_EQ(session.count("HATCH") + session.eval(groups), before);
  EXPECT_EQ(session.count("LWPOLYLINE"), drawn);
}

// Lines that try the sweep, with the classes that come out; every report must pass its own control.
TEST(Quantities, UnusualLinesAreMeasuredRight) {
  const char* const wall = "distance;altitude\n0;50\n40;50\n40;47\n70;47\n100;47\n";
  const struct {
    const char *what, *ground, *prepare, *classes;
  } rows[] = {
      {"above the ground, then below", kaveltest::kGround,
       "(plv-projet p \"Projet\" '((1000.0 51.0) (1060.0 44.5) (1100.0 39.5)))", "(0 0 1)"},
      {"along the limit of a class", kaveltest::kGround,
       "(plv-projet p \"Projet\" '((1000.0 49.0) (1040.0 45.0) (1060.0 43.5) (1100.0 39.0)))", "(1 1)"},
      {"on the ground", kaveltest::kGround,
       "(plv-projet p \"Projet\" '((1000.0 50.0) (1040.0 46.0) (1060.0 44.5) (1100.0 40.0)))", "(0 0)"},
      {"through a wall of the ground", wall, "(plv-projet p \"Projet\" '((0.0 45.2) (100.0 45.2)))", "(6 5 4 3)"},
      {"a wall that comes out above the line", wall, "(plv-projet p \"Projet\" '((0.0 48.8) (100.0 46.8)))",
       "(2 3 2 1 0 1)"},
      {"a drop of the line within a class", wall,
       R"((plv-attacher p "Projet" (list (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 0) (10 45.0 6.0) (10 60.0 6.0) (10 60.0 5.0) (10 90.0 5.0))))))",
       "(1)"},
      {"a line drawn from right to left", wall,
       "(plv-attacher p \"Projet\" (list (plv-ligne \"0\" '(90.0 5.0 0.0) '(50.0 5.0 0.0))))", "(1)"},
      {"beside a line that was erased", wall,
       "(progn (plv-projet p \"Projet\" '((0.0 46.0) (30.0 46.0))) (plv-effacer (plv-elements-du-projet p \"Projet\")) "
       "(plv-projet p \"Projet\" '((50.0 46.5) (100.0 46.5))))",
       "(1)"},
      {"a static element that was erased", wall,
       "(progn (plv-projet p \"Projet\" '((50.0 46.5) (100.0 46.5))) (pl_elem_ponct p \"Projet\" '(60.0 0.0) (setq e "
       "(plv-ligne \"0\" '(60.0 0.0 0.0) '(60.0 5.0 0.0)))) (entdel e))",
       "(1)"},
  };
  for (const auto& row : rows) {
    Quantities session(row.ground);
    session.eval(row.prepare);
    const std::string said = session.measured("nil", "");
    EXPECT_NE(said.find(": juste."), std::string::npos) << row.what << said;
    EXPECT_EQ(session.classes(), row.classes) << row.what << said;
  }
}

TEST(Quantities, TheChosenKindCountsWhenThereAreSeveral) {
  Quantities session;
  session.project();
  session.project("Voirie", "((1000.0 49.9) (1100.0 39.9))");
  EXPECT_EQ(session.eval("(setq v (plv-metres nil \"voirie\" nil nil) w (plv-metres nil \"Projet\" nil nil) n (> "
                         "(length (cadr w)) (length (cadr v))))"),
            "T");
}

TEST(Quantities, LinesThatOverlapAreSaidSo) {
  Quantities session;
  session.project();
  EXPECT_EQ(session.measured("nil", "").find("se recouvrent"), std::string::npos);
  session.project("Projet", "((1020.0 46.0) (1050.0 43.0))");
  SAYS(session.measured("nil", ""), "des lignes de projet se recouvrent");
}

TEST(Quantities, WhatCannotBeIsSaidBeforehand) {
  Quantities session;
  session.project();
  std::filesystem::create_directory(session.path("d.xlsx"));
  const struct {
    const char* prepare;
    std::string call, message;
  } rows[] = {
      {"", "(plv-metres '(\"P9\") \"Projet\" nil nil)", "pas de profil numéro P9"},
      {"", "(plv-metres nil \"Voirie\" nil nil)", "pas de ligne Voirie sur: P1"},
      {"", "(plv-metres nil \"TN\" nil nil)", "un genre de projet est attendu"},
      {"", "(plv-metres nil \"Eau\" nil nil)", "un genre de projet est attendu"},
      {"", "(plv-metres nil \"Projet\" \"/nulle/part/m.xlsx\" nil)", "dossier introuvable: /nulle/part"},
      {"", "(plv-metres nil \"Projet\" \"" + session.path("d") + "\" nil)", "un dossier a ce nom"},
      {"", "(plv-metres nil \"Projet\" \"/proc/m.xlsx\" nil)", "le classeur n'a pas pu être écrit: /proc/m.xlsx"},
      {"", "(plv-legende p \"AEp\" nil)", "pas de ligne AEp sur: P1"},
      {"(setq at (entget (entnext p))) (entmod (subst '(1 . \"P/1\") (assoc 1 at) at))",
       "(plv-metres nil \"Projet\" \"" + session.path("m.xlsx") + "\" nil)", "titre d'une feuille: P/1"},
  };
  for (const auto& row : rows) {
    session.eval(std::string("(progn ") + row.prepare + ")");
    SAYS(session.said(row.call), row.message);
  }
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx")));
  EXPECT_EQ(session.count("HATCH"), "0");
}

TEST(Quantities, AWorkbookThatCannotBeReplacedStays) {
  Quantities session;
  session.project();
  session.file("m.xlsx", "the former one");
  std::filesystem::create_directories(session.path("m.xlsx.nouveau.xlsx.tmp/in the way"));
  SAYS(session.measured("nil", session.path("m.xlsx")), "le classeur n'a pas pu être écrit");
  EXPECT_EQ(contents(session.path("m.xlsx")), "the former one");
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx.nouveau.xlsx")));
}

TEST(Quantities, TwoProfilesWithOneNumberMakeNoWorkbook) {
  Quantities session;
  session.project();
  session.profile("P2", "'(0.0 500.0 0.0)");
  session.project();
  SAYS(session.measured("nil", session.path("deux.xlsx")), "Profil P2");
  session.eval("(setq at (entget (entnext p))) (entmod (subst '(1 . \"p1\") (assoc 1 at) at))");
  SAYS(session.measured("nil", session.path("un.xlsx")), "deux profils ont le numéro P1");
  EXPECT_FALSE(std::filesystem::exists(session.path("un.xlsx")));
}

TEST(Quantities, ALineBesideTheGroundIsSaidSo) {
  Quantities session;
  session.eval("(plv-attacher p \"Projet\" (list (plv-ligne \"0\" '(200.0 10.0 0.0) '(300.0 10.0 0.0))))");
  SAYS(session.measured("nil", session.path("m.xlsx"), true), "au droit du terrain");
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx")));
  EXPECT_EQ(session.count("HATCH"), "0");
}

// An upright piece of an attached terrain makes the module miss a crossing once it has met another one.
TEST(Quantities, TheControlFindsWhatTheSweepMissed) {
  Quantities session("distance;altitude\n0;50\n100;50\n");
  session.eval(R"((progn (setq x (plv-plan-en (plv-plans p) 0.0))
    (defun y (z) (* 10.0 (- z (cadr x))))
    (plv-attacher p "TN" (list (entmakex (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") '(90 . 4) '(70 . 0)
      (list 10 0.0 (y 50.0)) (list 10 40.0 (y 51.0)) (list 10 40.0 (y 48.2)) (list 10 100.0 (y 48.2))))))))");
  session.project("Projet", "((0.0 48.0) (100.0 48.0))");
  SAYS(session.measured("nil", ""), "FAUX");
}

TEST(Legend, StandsBesideTheProfileOnce) {
  Quantities session;
  session.project("Projet", "((1000.0 50.5) (1060.0 42.5) (1100.0 33.0))");
  session.eval("(plv-legende p \"Projet\" nil)");
  session.eval("(setq r (plv-legende p \"Projet\" nil))");
  EXPECT_EQ(session.eval("(sslength (ssget \"X\" '((0 . \"INSERT\") (2 . \"PLV_LEGENDE_1\"))))"), "1");
  EXPECT_EQ(session.eval("(> (cadr (assoc 10 (entget r))) 100.0)"), "T");
  EXPECT_EQ(session.count("HATCH"), "0");  // those of the block are not the drawing's
  session.eval("(setq e (cdr (assoc -2 (tblsearch \"BLOCK\" \"PLV_LEGENDE_1\"))) l nil c nil)");
  session.eval(
      "(while e (setq g (entget e)) (if (= (cdr (assoc 0 g)) \"TEXT\") (setq l (cons (cdr (assoc 1 g)) l)))"
      " (if (= (cdr (assoc 0 g)) \"HATCH\") (setq c (cons (cdr (assoc 62 g)) c))) (setq e (entnext e)))");
  EXPECT_EQ(session.eval("(and (member \"PROFIL P1 - PROJET\" l) (member \"non enterre\" l) (member \"0.00 a 1.00\" l) "
                         "(member \"au dela de 5.00\" l)"
                         " (member \"Total\" l) (member \"100.00\" l) T)"),
            "T");
  // Colours of the classes, white for what is in none.
  EXPECT_EQ(session.eval("(reverse c)"), "(7 1 2 3 4 5 6 7)");
  EXPECT_EQ(session.eval("(cdr (assoc 10 (entget (plv-legende p \"Projet\" '(10.0 20.0 0.0)))))"), "(10.0 20.0 0.0)");
}

}  // namespace
