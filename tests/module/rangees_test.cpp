// Rows that are written by whole series: distances, slopes, block attributes.
// Partial distances drop coincident abscissas by pairs.
#include <unistd.h>

#include <filesystem>
#include <fstream>

#include "module/matrices/gestionMatrices.h"
#include "tests/module/aide.h"

using kaveltest::Row;

namespace {

struct Distances : kaveltest::ProfilDessine {
  // The ticks and the texts of a call in the tall row, in short: "|0.00 |10.00 10.00@5.00".
  std::string resume(const std::string& call) {
    session.eval(R"((defun court (en / e) (setq e (entget en))
      (if (= (g 0 e) "LINE") (strcat "|" (n (cadr (assoc 10 e)))) (strcat (g 1 e) "@" (n (cadr (assoc 11 e)))))))");
    drawnTall("(setq r " + call + ")");
    return session.eval("(if r (mapcar 'court (depuis repere)) \"nil\")");
  }
};

TEST_F(Distances, CumulatedDistancesStandOnTheTopEdge) {
  EXPECT_EQ(drawnTall("(pl_CotDcumH 1 1000 234.5)"), "(\"PK 1+234.50 @235.20,-4.00 h1.00 r90 2/0\")");
  EXPECT_EQ(resume("(pl_CotDcumH 0 0.5 '(0 10.5 25 30))"),
            "(\"0.50@0.70\" \"11.00@11.20\" \"25.50@25.70\" \"30.50@30.70\")");
  EXPECT_EQ(resume("(pl_CotDcumH 0 0 '(4 \"a\" 5))"), "(\"4.00@4.70\")");
}

TEST_F(Distances, CumulatedDistancesRefuseOtherForms) {
  for (const char* appel : {"(pl_CotDcumH 0 0)", "(pl_CotDcumH 1.0 0 5)", "(pl_CotDcumH 0 \"a\" 5)",
                            "(pl_CotDcumH 0 0 \"a\")", "(pl_CotDcumH 0 0 '(1.0 2.0))"})
    EXPECT_EQ(resume(appel), "\"nil\"") << appel;
}

TEST_F(Distances, PartialDistances) {
  const Row rows[] = {
      {"(pl_CotDParH 0 10)", "(\"|0.00\" \"|10.00\" \"10.00@5.00\")"},
      {"(pl_CotDParH '(0.0 10.0))", "(\"|0.00\" \"|10.00\" \"10.00@5.00\")"},
      {"(pl_CotDParH '(25.0 0.0 10.0))", "(\"|0.00\" \"|10.00\" \"|25.00\" \"10.00@5.00\" \"15.00@17.50\")"},
      {"(pl_CotDParH '(0 10 10 25))", "(\"|0.00\" \"|25.00\" \"25.00@12.50\")"},
      {"(pl_CotDParH '(10.0 10.0))", "(\"|10.00\")"},
      {"(pl_CotDParH '(5))", "(\"|5.00\")"},
      {"(pl_CotDParH '(1 5 5 5 9))", "(\"|1.00\" \"|5.00\" \"|9.00\" \"4.00@3.00\" \"4.00@7.00\")"},
      {"(pl_CotDParH '(1 5 5 5))", "(\"|1.00\" \"|5.00\" \"4.00@3.00\")"},
      {"(pl_CotDParH 5)", "\"nil\""},
      {"(pl_CotDParH \"a\" 5)", "\"nil\""},
      {"(pl_CotDParH '(\"a\" 5))", "\"nil\""},
      {"(pl_CotDParH)", "\"nil\""},
  };
  for (const Row& row : rows) EXPECT_EQ(resume(row.lisp), row.value) << row.lisp;
}

TEST_F(Distances, APartialDistanceStandsInTheMiddleOfTheRow) {
  EXPECT_EQ(drawnTall("(pl_CotDParH 0 10)"),
            "(\"LINE 0.00,-43.50 0.00,-3.50\" \"LINE 10.00,-43.50 10.00,-3.50\" "
            "\"10.00 @5.00,-23.50 h1.00 r0 4/2\")");
}

struct Pentes : kaveltest::ProfilDessine {};

TEST_F(Pentes, DiagonalsAreHeldInTheRowAndOnTheGround) {
  const Row rows[] = {
      {"(pl_ligneMatrice 10 0 20 1)", "(\"LINE 10.00,-3.50 20.00,-1.50\")"},
      {"(pl_ligneMatrice 20 1 10 0)", "(\"LINE 10.00,-3.50 20.00,-1.50\")"},
      {"(pl_ligneMatrice -5 1.5 999 -0.5)", "(\"LINE 0.00,-1.50 150.00,-3.50\")"},
      {"(pl_ligneMatrice 10 0 20 1 \"5 %\")", "(\"LINE 10.00,-3.50 20.00,-1.50\" \"5 % @14.96,-2.30 h1.00 r11 1/0\")"},
      {"(pl_ligneMatrice 10 0 20)", "nil"},
      {"(pl_ligneMatrice 10 0 20 \"1\")", "nil"},
  };
  for (const Row& row : rows) {
    EXPECT_EQ(drawn("(setq r " + std::string(row.lisp) + ")"), row.value) << row.lisp;
    EXPECT_EQ(session.eval("r"), "nil");
  }
}

TEST_F(Pentes, WithoutGroundEverythingFallsOnTheStart) {
  session.eval("(entmod (append (entget prf) '((-3 (\"KELMONT_PLV2\")))))");
  EXPECT_EQ(drawn("(pl_ligneMatrice 10 0 20 1)"), "(\"LINE 0.00,-3.50 0.00,-1.50\")");
}

TEST_F(Pentes, LabelsAreWrittenAlongTheDiagonal) {
  session.eval("(marque)");
  EXPECT_TRUE(plv::collectionMatrices().matriceActive()->coterPente(10, 90, 90.04, -0.05));
  EXPECT_EQ(session.eval("(vu)"),
            "(\"Dh=90.00 Di=90.04 P=5.00 % @54.99,-2.00 h1.00 r1 1/0\" "
            "\"LINE 10.00,-3.50 10.00,-1.50\" \"LINE 100.00,-3.50 100.00,-1.50\")");
  session.eval("(progn (marque) (pl_SelectLigne 9))");
  EXPECT_FALSE(plv::collectionMatrices().matriceActive()->coterPente(10, 90, 90.04, 0.05));
  EXPECT_EQ(session.eval("(vu)"), "nil");
}

// Rows 402 and 403 read from a file, and blocks with the attributes DN, MAT (2 to the right), NOTE and dn.
struct Attributs : kaveltest::ProfilDessine {
  Attributs() {
    const auto chemin = std::filesystem::temp_directory_path() / ("attributs_" + std::to_string(::getpid()) + ".txt");
    std::ofstream(chemin) << "M - 4 402 {DN|MAT} Reseau\nM - 10 403 {DN MAT|NOTE} Vertical\nM - 2 0 {DN} Autre\n";
    session.eval("(pl_LireMatriceKavel \"" + chemin.string() + "\")");
    std::filesystem::remove(chemin);
    session.eval(R"((progn (pl_DessinerMatrices prf '(0.0 0.0) 1.0 5.0)
      (defun attribut (x tag v) (entmake (list '(0 . "ATTRIB") (list 10 x 50.0 0.0) '(40 . 2.5) (cons 1 v) (cons 2 tag) '(70 . 0))))
      (defun regard (x)
        (entmake (list '(0 . "INSERT") '(66 . 1) '(2 . "PROFIL") (list 10 x 50.0 0.0)))
        (attribut x "DN" "100") (attribut (+ x 2) "MAT" "PVC") (attribut x "NOTE" "n") (attribut x "dn" "non")
        (entmake '((0 . "SEQEND")))
        (entlast))
      (setq b (regard 120.0) loin (regard 90.0))))");
  }
};

TEST_F(Attributs, ABlockThatIsPlacedFillsTheRowsThatWantIt) {
  session.eval("(pl_SelectLigne 0 2)");
  EXPECT_EQ(drawn("(setq r (pl_NotifInsertBlock b))"),
            "(\"100 @20.00,-2.00 h1.00 r0 4/2\" \"PVC @27.00,-2.00 h1.00 r0 4/2\" \"100 @20.00,-4.80 h1.00 "
            "r90 2/0\" "
            "\"PVC @27.00,-4.80 h1.00 r90 2/0\" \"n @20.00,-4.80 h1.00 r90 2/0\")");
  kaveltest::check(session, {{"(equal (mapcar 'cdr r) (depuis repere))", "T"}, {"(pl_textlignemat)", "\"Autre\""}});
}

TEST_F(Attributs, WhatStandsLeftOfTheMatrixIsPassedOver) {
  EXPECT_EQ(drawn("(setq r (pl_NotifInsertBlock loin))"), "nil");
  EXPECT_EQ(session.eval("r"), "nil");
}

TEST_F(Attributs, OneRowTakesAnEntityOrASelection) {
  session.eval("(progn (pl_SelectLigne 0 0) (setq ss (ssadd b)) (ssadd pc1 ss) (setq seul (ssadd pc1)))");
  const Row rows[] = {{"(pl_CotAttribsAuto b)", "T"},     {"(pl_CotAttribsAuto ss)", "T"},
                      {"(pl_CotAttribsAuto loin)", "T"},  {"(pl_CotAttribsAuto seul)", "nil"},
                      {"(pl_CotAttribsAuto pc1)", "nil"}, {"(pl_CotAttribsAuto 1)", "nil"}};
  for (const Row& row : rows) EXPECT_EQ(session.eval(row.lisp), row.value) << row.lisp;
  EXPECT_EQ(drawn("(pl_CotAttribsAuto ss)"), "(\"100 @20.00,-2.00 h1.00 r0 4/2\" \"PVC @27.00,-2.00 h1.00 r0 4/2\")");
  EXPECT_EQ(session.eval("(progn (pl_SelectLigne 0 2) (pl_CotAttribsAuto b))"), "nil");
}

TEST_F(Attributs, WhatTheyWriteJoinsNoGroup) {
  session.eval(R"((progn (defun membres ()
    (apply '+ (mapcar '(lambda (x) (if (= (car x) 350)
      (length (vl-remove-if-not '(lambda (y) (= (car y) 340)) (entget (cdr x)))) 0)) (dictsearch (namedobjdict) "ACAD_GROUP"))))
    (pl_SelectLigne 0 0) (setq avant (membres))))");
  EXPECT_EQ(session.eval("(progn (pl_CotAttribsAuto b) (- (membres) avant))"), "0");
  EXPECT_EQ(session.eval("(progn (pl_TexteVertical 1 \"a\") (- (membres) avant))"), "1");
}

}  // namespace
