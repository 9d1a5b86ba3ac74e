// PLV-OPTIMAL: the line that it proposes and attaches, the stretches that leave the band, its questions.
#include "tests/frontal/quantities.h"

namespace {

using kaveltest::Quantities;

constexpr const char* kInside = "Toute la ligne est dans les profondeurs demandées.";

TEST(OptimalLine, StaysInTheBandAndIsAttached) {
  Quantities session;
  const std::string said =
      session.said("(setq l (plv-optimal p \"Assainissement\" '(0.0 49.0) '(100.0 39.0) 0.8 1.2 nil))");
  SAYS(said, kInside);
  EXPECT_EQ(session.eval("(list (car l) (plv-dernier l))"), "((0.0 49.0) (100.0 39.0))");
  // Vertices once each, attached, and nothing of the search left.
  EXPECT_EQ(session.eval("(= (length l) (length (plv-uniques l)))"), "T");
  EXPECT_EQ(session.eval("(= (length (plv-elements-du-projet p \"Assainissement\")) (length (plv-plans p)))"), "T");
  EXPECT_EQ(session.eval("(setq s (ssget \"X\" '((0 . \"LINE\") (62 . 1))))"), "nil");
  // The greater depth may come first.
  EXPECT_EQ(session.eval("(equal l (plv-optimal p \"Assainissement\" '(0.0 49.0) '(100.0 39.0) 1.2 0.8 nil) 1e-9)"),
            "T");
}

TEST(OptimalLine, TellsWhereItLeavesTheBand) {
  Quantities session;
  const std::string said =
      session.said("(setq k (sslength (ssget \"X\"))) (plv-optimal p \"Projet\" '(0.0 49.8) '(100.0 39.0) 0.8 1.2 T)");
  SAYS(said, "Hors des profondeurs demandées:");
  // It starts 0.2 m below the ground.
  SAYS(said, "1000.000");
  SAYS(said, "0.200      -0.600");
  // The segments that were tried stay: at abscissa and altitude, not in the graphic.
  EXPECT_EQ(session.eval("(> (length (vl-remove-if-not '(lambda (g) (equal (caddr g) 49.8 1e-6)) (mapcar '(lambda (e) "
                         "(assoc 10 (entget e)))"
                         " (vl-remove-if 'listp (mapcar 'cadr (ssnamex (ssget \"X\" '((0 . \"LINE\"))))))))) 1)"),
            "T");
}

// From change of plane to change of plane, and between ground points: the ground beside the ends has no say.
TEST(OptimalLine, MayCoverAPartOfTheProfile) {
  Quantities session;
  ASSERT_EQ(session.eval("(cdr (setq d (mapcar 'car (plv-plans p))))").front(), '(');
  for (const char* ends : {"0.0 (cadr d)", "(cadr d) 100.0", "13.5 71.25", "45.0 55.0"}) {
    const std::string said =
        session.said(std::string("(setq b (list ") + ends +
                     ") q (mapcar '(lambda (x) (list x (- (plv-altitude-ligne (plv-points-tn p) x) 1.0))) b)"
                     " n (length (plv-profils)) l (plv-optimal p \"Projet\" (car q) (cadr q) 0.8 1.2 nil))");
    SAYS(said, kInside);
    EXPECT_EQ(session.eval("(and (equal (list (car l) (plv-dernier l)) q) (= n (length (plv-profils))))"), "T") << ends;
  }
}

TEST(OptimalLine, DropsBelowAWall) {
  Quantities session("distance;altitude\n0;50\n40;49\n40;45\n100;44\n", "150.0");
  SAYS(session.said("(setq l (plv-optimal p \"Assainissement\" '(0.0 48.5) '(100.0 42.5) 1.0 2.0 nil))"), kInside);
  EXPECT_EQ(session.eval("(list (length l) (length (plv-elements-du-projet p \"Assainissement\")))"), "(4 2)");
  SAYS(session.said("(plv-metres nil \"Assainissement\" nil nil)"), ": juste.");
}

TEST(OptimalLine, WhatCannotBeIsRefused) {
  Quantities session;
  const struct {
    const char *call, *message;
  } rows[] = {
      {"(plv-optimal p \"Projet\" '(50.0 45.0) '(20.0 47.0) 0.8 1.6 nil)", "de gauche à droite"},
      {"(plv-optimal p \"Projet\" '(50.0 45.0) '(150.0 30.0) 0.8 1.6 nil)", "dans le profil"},
      {"(plv-optimal p \"Projet\" '(50.0 45.0) '(50.0000001 45.0) 0.8 1.6 nil)", "de gauche à droite"},
      {"(plv-optimal p \"TN\" '(0.0 49.0) '(100.0 39.0) 0.8 1.6 nil)", "un genre de projet est attendu"},
      {"(progn (entmod (list (assoc -1 (entget p)) '(-3 (\"KELMONT_PLV2\")))) (plv-optimal p \"Projet\" '(0.0 49.0) "
       "'(100.0 39.0) 0.8 1.6 nil))",
       "pas de terrain naturel"},
  };
  for (const auto& row : rows) SAYS(session.said(row.call), row.message);
  EXPECT_EQ(session.eval("(plv-elements-du-projet p \"Projet\")"), "nil");
}

TEST(OptimalLine, AsksUntilItUnderstands) {
  Quantities session;
  const std::string first = session.feed("PLV-OPTIMAL\nA\nabc\n900,1\n1000,1\n\n0.8\n1.2\nNon\n");
  SAYS(first, "Deux nombres séparés par une virgule sont attendus");
  SAYS(first, "Les stations du profil vont de 1000.00 à 1100.00.");
  SAYS(first, kInside);
  const std::string before = session.eval("(setq avant (plv-elements-du-projet p \"Assainissement\"))");
  // A cancel at any question leaves the line that is there.
  const std::string answers = "PLV-OPTIMAL\nA\nRemplacer\nP\n0,120\n\n0.8\n1.4\n";
  for (std::size_t end = answers.find('\n'); end != std::string::npos; end = answers.find('\n', end + 1)) {
    session.feed(answers.substr(0, end + 1));
    ASSERT_EQ(session.eval("(plv-elements-du-projet p \"Assainissement\")"), before) << answers.substr(0, end + 1);
  }
  session.feed(answers + "Non\n");
  EXPECT_EQ(session.eval("(vl-some 'entget avant)"), "nil");
  // The picked start: 12 m above the plane.
  EXPECT_EQ(session.eval("(equal (plv-altitude-projet p (mapcar '(lambda (e) (list 0.0 100.0 e)) "
                         "(plv-elements-du-projet p \"Assainissement\")) (plv-plans p) 0.0) 0.0)"),
            "nil");
  EXPECT_EQ(session.eval("(equal (cadr (car (plv-sommets-dessines (plv-repere p) (car (plv-elements-du-projet p "
                         "\"Assainissement\"))))) (+ 12.0 (cadar (plv-plans p))) 1e-9)"),
            "T");
}

}  // namespace
