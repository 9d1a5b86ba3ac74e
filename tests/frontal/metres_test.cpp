// PLV-METRES, PLV-OPTIMAL and PLV-LEGENDE: what they report, draw, write and refuse.
// The ground falls from 50 to 40 m over 100 m, in sections with planes of their own.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

constexpr const char* kGround = "distance;altitude;nom\n1000;50;A\n1040;46;\n1060;44.5;B\n1100;40;C\n";

struct Quantities : FrontEnd {
  Quantities() {
    file("g.csv", kGround);
    profile("P1", "'(0.0 0.0 0.0)");
  }
  void profile(const std::string& number, const std::string& point) {
    eval("(setq p (plv-nouveau \"" + path("g.csv") + "\" \"" + number + "\" " + point + " 10.0 2.5 60.0 nil))");
    transcript();
  }
  void project(const char* kind = "Projet") {
    eval(std::string("(plv-projet p \"") + kind + "\" '((1000.0 49.5) (1060.0 42.5) (1100.0 39.0)))");
    transcript();
  }
  // What a call says.
  std::string said(const std::string& call) {
    transcript();
    eval("(progn " + call + " nil)");
    return transcript();
  }
  std::string measured(const std::string& numbers, const std::string& workbook, bool hatch = false) {
    return said("(setq m (plv-metres " + numbers + " \"Projet\" \"" + workbook + "\" " + (hatch ? "T" : "nil") + "))");
  }
  std::string count(const std::string& type) {
    return eval("(if (setq s (ssget \"X\" '((0 . \"" + type + "\")))) (sslength s) 0)");
  }
};

#define SAYS(text, part) EXPECT_NE((text).find(part), std::string::npos) << (text)

TEST(Quantities, OneCallMeasuresHatchesAndWrites) {
  Quantities session;
  session.project();
  const std::string said = session.measured("nil", session.path("m"), true);
  SAYS(said, "Profil P1, Projet: ");
  SAYS(said, ": juste.");
  SAYS(said, "Classeur: " + session.path("m.xlsx"));
  EXPECT_TRUE(std::filesystem::exists(session.path("m.xlsx")));
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx.tmp")));
  // Depth 0.5 at the start, 2 at 60 m, 1 at the end; at 40 m 46 - 44.8333.
  EXPECT_EQ(session.eval("(equal (apply '+ (mapcar 'cadddr (cdadr m))) (+ (* 40 0.5 (+ 0.5 1.1666666666666667)) (* 20 0.5 3.1666666666666667) (* 40 0.5 3.0)) 1e-9)"), "T");
  EXPECT_EQ(session.eval("(list (cadr (cadadr m)) (caddr (plv-dernier (cadr m))))"), "(0.0 100.0)");
  EXPECT_NE(session.count("HATCH"), "0");
  EXPECT_EQ(session.eval("(cdr (assoc 8 (entget (ssname s 0))))"), "\"PLV-HACHURES\"");
  EXPECT_EQ(session.eval("(apply 'and (mapcar '(lambda (g) (tblsearch \"LAYER\" g)) '(\"PLV-HACHURES\" \"PLV-LEGENDE\")))"), "T");
  // Without hatches nothing stays in the drawing.
  const std::string before = session.count("HATCH");
  session.measured("'(\"P1\")", session.path("m.xlsx"));  // replaces the workbook
  EXPECT_EQ(session.count("HATCH"), before);
  EXPECT_EQ(session.count("LWPOLYLINE"), session.eval("(length (plv-elements-du-projet p \"Projet\"))"));
}

TEST(Quantities, AProjectAboveTheGroundIsNotBuried) {
  Quantities session;
  session.eval("(plv-projet p \"Projet\" '((1000.0 51.0) (1100.0 39.0)))");
  SAYS(session.measured("nil", session.path("m.xlsx")), "non enterre");
  SAYS(session.measured("nil", session.path("m.xlsx")), ": juste.");
}

TEST(Quantities, TheChosenKindCountsWhenThereAreSeveral) {
  Quantities session;
  session.project();
  session.eval("(plv-projet p \"Voirie\" '((1000.0 49.9) (1100.0 39.9)))");
  SAYS(session.measured("nil", session.path("m.xlsx")), "surface");
  EXPECT_EQ(session.eval("(setq v (plv-metres nil \"voirie\" nil nil) w (plv-metres nil \"Projet\" nil nil) n (> (length (cadr w)) (length (cadr v))))"), "T");
}

TEST(Quantities, WhatCannotBeIsSaidBeforehand) {
  Quantities session;
  session.project();
  const struct {
    const char* prepare;
    std::string call, message;
  } rows[] = {
      {"", "(plv-metres '(\"P9\") \"Projet\" nil nil)", "pas de profil numero P9"},
      {"", "(plv-metres nil \"Voirie\" nil nil)", "pas de ligne Voirie sur: P1"},
      {"", "(plv-metres nil \"Eau\" nil nil)", "un genre de projet est attendu"},
      {"", "(plv-metres nil \"Projet\" \"/nulle/part/m.xlsx\" nil)", "dossier introuvable: /nulle/part"},
      {"", "(plv-legende p \"AEp\" nil)", "pas de ligne AEp sur: P1"},
      {"", "(plv-optimal p \"Projet\" '(50.0 45.0) '(20.0 47.0) 0.8 1.6 nil)", "de gauche a droite"},
      {"(setq at (entget (entnext p))) (entmod (subst '(1 . \"P/1\") (assoc 1 at) at))",
       "(plv-metres nil \"Projet\" \"" + session.path("m.xlsx") + "\" nil)", "titre d'une feuille: P/1"},
  };
  for (const auto& row : rows) {
    session.eval(std::string("(progn ") + row.prepare + ")");
    SAYS(session.said(row.call), row.message);
  }
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx")));
}

TEST(Quantities, TwoProfilesWithOneNumberMakeNoWorkbook) {
  Quantities session;
  session.project();
  session.profile("P2", "'(0.0 500.0 0.0)");
  session.project();
  SAYS(session.measured("nil", session.path("deux.xlsx")), "Profil P2");
  session.eval("(setq at (entget (entnext p))) (entmod (subst '(1 . \"P1\") (assoc 1 at) at))");
  SAYS(session.measured("nil", session.path("un.xlsx")), "deux profils ont le numero P1");
  EXPECT_FALSE(std::filesystem::exists(session.path("un.xlsx")));
}

TEST(Quantities, ALineBesideTheGroundIsSaidSo) {
  Quantities session;
  session.eval("(plv-attacher p \"Projet\" (list (plv-ligne \"0\" '(200.0 10.0 0.0) '(300.0 10.0 0.0))))");
  SAYS(session.measured("nil", session.path("m.xlsx"), true), "au droit du terrain");
  EXPECT_FALSE(std::filesystem::exists(session.path("m.xlsx")));
  EXPECT_EQ(session.count("HATCH"), "0");
}

TEST(OptimalLine, StaysInTheBandAndIsAttached) {
  Quantities session;
  const std::string said = session.said("(setq l (plv-optimal p \"Assainissement\" '(0.0 49.0) '(100.0 39.0) 0.8 1.2 nil))");
  SAYS(said, "Toute la ligne est dans les profondeurs demandees.");
  EXPECT_EQ(session.eval("(list (car l) (plv-dernier l))"), "((0.0 49.0) (100.0 39.0))");
  // Vertices once each, attached, and nothing of the search left.
  EXPECT_EQ(session.eval("(= (length l) (length (plv-uniques l)))"), "T");
  EXPECT_EQ(session.eval("(= (length (plv-elements-du-projet p \"Assainissement\")) (length (plv-tables:plans p)))"), "T");
  EXPECT_EQ(session.eval("(setq s (ssget \"X\" '((0 . \"LINE\") (62 . 1))))"), "nil");
}

TEST(OptimalLine, TellsWhereItLeavesTheBand) {
  Quantities session;
  const std::string said = session.said("(plv-optimal p \"Projet\" '(0.0 49.8) '(100.0 39.0) 0.8 1.2 T)");
  SAYS(said, "Hors des profondeurs demandees:");
  // It starts 0.2 m below the ground.
  SAYS(said, "1000.000");
  SAYS(said, "0.200      -0.600");
}

TEST(Legend, StandsBesideTheProfileOnce) {
  Quantities session;
  session.project();
  session.eval("(plv-legende p \"Projet\" nil)");
  session.eval("(setq r (plv-legende p \"Projet\" nil))");
  EXPECT_EQ(session.eval("(sslength (ssget \"X\" '((0 . \"INSERT\") (2 . \"PLV_LEGENDE_1\"))))"), "1");
  EXPECT_EQ(session.eval("(> (cadr (assoc 10 (entget r))) 100.0)"), "T");
  EXPECT_EQ(session.count("HATCH"), "0");  // those of the block are not the drawing's
  session.eval("(setq e (cdr (assoc -2 (tblsearch \"BLOCK\" \"PLV_LEGENDE_1\"))) l nil)");
  session.eval("(while e (if (= (cdr (assoc 0 (entget e))) \"TEXT\") (setq l (cons (cdr (assoc 1 (entget e))) l))) (setq e (entnext e)))");
  EXPECT_EQ(session.eval("(and (member \"PROFIL P1 - PROJET\" l) (member \"0.00 a 1.00\" l) (member \"Total\" l) (member \"100.00\" l) T)"), "T");
}

}  // namespace
