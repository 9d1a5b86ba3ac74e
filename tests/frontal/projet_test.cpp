// PLV-PROJET, PLV-PC, the rows of project lines and the macros of the menu: on a profile whose altitudes are known.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

// Level ground at 52 over 200 m from station 1000, a second plane at 120 m, drawn from (500, 300) at ten times.
class Project : public FrontEnd {
 public:
  Project() {
    file("g.csv", "station;altitude;nom\n1000;52;A\n1040;52;\n1050;52;\n1100;52;B\n1120;52;\n1160;52;\n1200;52;C\n");
    eval("(setq p (plv-nouveau \"" + path("g.csv") +
         "\" \"7\" '(500.0 300.0 0.0) 10.0 2.5 150.0 '((0.0 45.0) (120.0 40.0))))");
    eval(R"((progn
      (defun z (genre station) (plv-altitude-projet p (plv-elements-situes p genre) (plv-plans p) (- station 1000.0)))
      (defun mm (valeur) (plv-reel valeur 3))
      (defun textes (motif / s) (if (setq s (ssget "X" (list '(0 . "TEXT") (cons 1 motif)))) (sslength s) 0))
      (defun lu (x y) (list (mm (- x 500.0)) (mm (+ 45.0 (/ (- y 300.0) 10.0)))))))");
    transcript();
  }
  void check(std::initializer_list<std::pair<const char*, const char*>> rows) {
    for (const auto& [expression, printed] : rows) EXPECT_EQ(eval(expression), printed) << expression;
  }
};

TEST(ProjectLine, KeepsStationsToTheMillimetre) {
  Project session;
  session.eval(
      "(setq r (plv-projet p \"voirie\" '((1000.0 50.0) (1080.0 54.0 800.0) (1160.0 50.0 (\"P\" \"L\" 20.0)) (1200.0 "
      "51.0))))");
  session.check({
      {"(mm (z \"Voirie\" 1000.0))", "\"50.000\""},
      {"(mm (z \"Voirie\" 1040.0))", "\"52.000\""},
      // circle of 800 under a summit of +5 % and -5 %: the crown is R (sec a - 1) under the vertex
      {"(mm (z \"Voirie\" 1080.0))", "\"53.001\""},
      // parabola of 20 m: the vertex is L |dp| / 8 under the curve
      {"(mm (z \"Voirie\" 1160.0))", "\"50.188\""},
      {"(mm (z \"Voirie\" 1200.0))", "\"51.000\""},
      // on the new plane, just behind the break, the same altitude as before it
      {"(mm (- (z \"Voirie\" 1120.0) (z \"Voirie\" 1120.001)))", "\"0.000\""},
      {"(mapcar '(lambda (s) (cdr (assoc 0 (entget s)))) r)",
       "(\"LWPOLYLINE\" \"SPLINE\" \"LWPOLYLINE\" \"LWPOLYLINE\" \"SPLINE\" \"LWPOLYLINE\")"},
      {"(mapcar '(lambda (s) (plgxd s \"ELEMDUPROJET\")) r)", "(1 1 1 1 1 1)"},
      // true lengths: an arc of circle is R times its opening
      {"(mm (pl_curvelength (cadr r) 10.0))", "\"79.933\""},
      {"(mapcar '(lambda (tr) (if (numberp (caddr tr)) (plv-reel (* 100.0 (caddr tr)) 2) (mm (plv-rayon-de-piece p "
       "tr)))) (plv-elements-de-pente p \"Voirie\"))",
       "(\"5.00\" \"800.000\" \"-5.00\" \"266.667\" \"2.50\")"},
  });
}

TEST(ProjectLine, CurvesByLengthAndThroughAPoint) {
  Project session;
  const struct {
    const char* request;
    const char* station;
    const char* altitude;
    const char* radius;
  } rows[] = {
      {"(\"C\" \"R\" 400.0)", "1100.0", "\"54.500\"", "\"400.000\""},
      {"(\"P\" \"R\" 400.0)", "1100.0", "\"54.500\"", "\"400.000\""},
      // 2 R sin a is the length between the ends of the arc
      {"(\"C\" \"L\" 39.950094)", "1100.0", "\"54.500\"", "\"400.000\""},
      {"(\"P\" \"L\" 40.0)", "1100.0", "\"54.500\"", "\"400.000\""},
      {"(\"C\" \"P\" 1100.0 54.7)", "1100.0", "\"54.700\"", nullptr},
      {"(\"P\" \"P\" 1095.0 54.6)", "1095.0", "\"54.600\"", nullptr},
  };
  for (const auto& row : rows) {
    session.eval(std::string("(setq r (plv-projet p \"Projet\" '((1000.0 50.0) (1100.0 55.0 ") + row.request +
                 ") (1200.0 50.0))))");
    EXPECT_EQ(session.eval(std::string("(mm (z \"Projet\" ") + row.station + "))"), row.altitude) << row.request;
    if (row.radius) {
      EXPECT_EQ(session.eval("(mm (plv-rayon (cadr r)))"), row.radius) << row.request;
    }
    session.eval("(plv-effacer r)");
  }
}

TEST(ProjectLine, RefusesWhatCannotBe) {
  Project session;
  session.file("faux.csv", "station;altitude\n1000;50\n1100;x\n");
  const struct {
    std::string call;
    const char* message;
  } rows[] = {
      {"(plv-projet p \"Projet\" '((1000.0 50.0)))", "deux points au moins"},
      {"(plv-projet p \"Projet\" '((1000.0 50.0) (1300.0 50.0)))", "300.000 n'est pas dans le profil"},
      {"(plv-projet p \"Projet\" '((1100.0 50.0) (1050.0 50.0)))", "vont en croissant"},
      {"(plv-projet p \"Projet\" '((1000.0 50.0) (1100.0 55.0 3000.0) (1200.0 50.0)))", "se chevauchent"},
      {"(plv-projet p \"Projet\" '((1000.0 50.0) (1100.0 55.0 50.0) (1200.0 60.0)))", "les deux pentes sont les mêmes"},
      {"(plv-projet p \"Projet\" '((1000.0 50.0) (1100.0 55.0 (\"C\" \"P\" 1100.0 56.0)) (1200.0 50.0)))",
       "sommet à la distance 100.000"},
      {"(plv-projet p \"Projet\" '((1000.0 50.0) (1100.0 55.0 (\"P\" \"P\" 1100.0 56.0)) (1200.0 50.0)))",
       "sommet à la distance 100.000"},
      {"(plv-projet p \"Chemin\" '((1000.0 50.0) (1100.0 50.0)))", "pas de support pour le genre Chemin"},
      {"(plv-projet-fichier p \"Projet\" \"" + session.path("faux.csv") + "\")", "ligne 3 illisible"},
      {"(plv-projet-fichier p \"Projet\" \"absent.csv\")", "fichier introuvable"},
      {"(plv-projet-existant p \"Projet\" (ssget \"X\" '((0 . \"TEXT\"))))", "aucune courbe"},
      {"(plv-projet-existant p \"Projet\" nil)", "aucune courbe"},
      {"(plv-transferer p \"Voirie\")", "pas de projet"},
      {"(plv-vers-plan p)", "pas d'axe en plan"},
  };
  const std::string last = session.eval("(entlast)");
  for (const auto& row : rows) {
    EXPECT_EQ(session.eval(row.call), "nil") << row.call;
    const std::string said = session.transcript();
    EXPECT_NE(said.find(row.message), std::string::npos) << row.call << said;
  }
  EXPECT_EQ(session.eval("(entlast)"), last);
}

TEST(ProjectLine, IsAskedFor) {
  Project session;
  const std::string points =
      session.feed("PLV-PROJET\nVoirie\nPO\n1000,50\n1100;55\n1100,55\n1200,50\n\nRayon\n400\nP\n");
  for (const char* prompt :
       {"\nGenre de ligne [Voirie/Assainissement/AEp/Terrassements/Projet/Generique/TN] <Projet>: ",
        "\nTracer par [POints/PEntes/Fichier/Existante] <POints>: ", "Deux nombres séparés par une virgule",
        "\nRaccordement à la station 1100.00 [Rayon/Longueur/Point/Aucun] <Aucun>: ", "1 raccordement."})
    EXPECT_NE(points.find(prompt), std::string::npos) << prompt << points;
  EXPECT_EQ(session.eval("(mm (z \"Voirie\" 1100.0))"), "\"54.500\"");
  session.feed("PLV-PROJET\nA\nPE\n1000,50\n1.5\n100\n-1\n50\n\nA\n");
  EXPECT_EQ(
      session.eval(
          "(list (mm (z \"Assainissement\" 1100.0)) (mm (z \"Assainissement\" 1150.0)) (z \"Assainissement\" 1151.0))"),
      "(\"51.500\" \"51.000\" nil)");
  session.file("p.csv", "PK;Z;R;forme\n1000,0;50,0;;\n1100,0;55,0;L40;P\n1200;50\n");
  session.feed("PLV-PROJET\nAE\nF\n" + session.path("p.csv") + "\n");
  EXPECT_EQ(session.eval("(mm (z \"AEp\" 1100.0))"), "\"54.500\"");
  session.eval("(setq l (entmakex '((0 . \"LINE\") (10 500.0 350.0 0.0) (11 600.0 370.0 0.0))))");
  session.feed("PLV-PROJET\nTN\nE\n!l\n\n");
  EXPECT_EQ(session.eval("(list (plv-du-projet l) (mm (z \"TN\" 1050.0)))"), "(T \"51.000\")");
}

// A plane in the middle of a circle, and away again.
TEST(Planes, AddedAndRemovedLeaveTheGeometry) {
  Project session;
  session.eval(R"((progn
    (plv-projet p "Projet" '((1000.0 50.0) (1080.0 54.0 800.0) (1160.0 50.0 ("P" "L" 20.0)) (1200.0 51.0)))
    (defun photo (/ y l)
      (foreach e (plv-elements p "Projet")
        (foreach d '(0.0 40.0 50.0 62.5 80.0 100.0 119.0 121.0 152.0 160.0 168.0 200.0)
          (if (setq y (pl_yat e (+ 500.0 d))) (setq l (cons (list (cdr (assoc 5 (entget e))) d y) l)))))
      l)
    (defun sol (/ l)
      (foreach plan (mapcar 'cadddr (plv-sections-de-plan p))
        (foreach e (reverse (plv-pc:lignes plan)) (setq l (cons (list (cdr (assoc 10 (entget e))) (cdr (assoc 11 (entget e)))) l))))
      (reverse l))
    (setq avant (photo) sol-avant (sol) sections (mapcar '(lambda (s) (list (car s) (cadr s) (caddr s))) (plv-sections-de-plan p))
          n (sslength (ssget "X")) troncons (mapcar 'cdr (plv-elements-de-pente p "Projet")))))");
  session.eval("(plv-pc p \"A\" 1062.5 48.0)");
  session.check({
      {"(plv-plans p)", "((0.0 45.0) (62.5 48.0) (120.0 40.0))"},
      {"(length (plv-elements-du-projet p \"Projet\"))", "7"},
      {"(mm (z \"Projet\" 1100.0))", "\"52.751\""},
      {"(equal (mapcar 'cadr troncons) (mapcar 'caddr (plv-elements-de-pente p \"Projet\")) 1e-9)", "T"},
      {"(plv-audit)", "0"},
  });
  session.eval("(plv-pc p \"M\" 1070.0 47.0)");
  session.check(
      {{"(plv-plans p)", "((0.0 45.0) (62.5 47.0) (120.0 40.0))"}, {"(mm (z \"Projet\" 1100.0))", "\"52.751\""}});
  session.eval("(plv-pc p \"S\" 1070.0 nil)");
  session.check({
      {"(equal avant (photo) 1e-8)", "T"},
      {"(equal sol-avant (sol) 1e-9)", "T"},
      {"(equal sections (mapcar '(lambda (s) (list (car s) (cadr s) (caddr s))) (plv-sections-de-plan p)) 1e-9)", "T"},
      {"(= n (sslength (ssget \"X\")))", "T"},
      {"(plv-audit)", "0"},
  });
}

TEST(Planes, CarryBlocksAndReferenceLines) {
  Project session;
  session.file("t.txt", "T - 6.0 4 Altitude TN\n");
  session.eval(R"((progn (plv-bloc-vide "B") (setq b (plv-inserer "0" "B" '(600.0 370.0 0.0)))
    (pl_elem_ponct p "Assainissement" '(600.0 370.0 0.0) b)))");
  session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)");
  session.feed("PLV-PC\nA\n1060\n50\n");
  session.check({
      {"(cdr (assoc 10 (entget b)))", "(600.0 320.0 0.0)"},
      // the reference line at 1100 ends on the ground of its new plane
      {"(apply 'min (mapcar '(lambda (e) (if (equal (cadr (assoc 10 (entget e))) 600.0 1e-6) (caddr (assoc 10 (entget "
       "e))) 1e9)) (plv-ajouts-tables p)))",
       "320.0"},
  });
  const struct {
    const char* call;
    const char* message;
  } rows[] = {
      {"(plv-pc p \"A\" 1060.0 10.0)", "un plan commence déjà"},
      {"(plv-pc p \"A\" 1900.0 10.0)", "n'est pas dans le profil"},
      {"(plv-pc p \"S\" 1010.0 nil)", "le premier plan ne peut pas"},
      {"(plv-pc p \"M\" 1010.0 nil)", "l'altitude du plan est attendue"},
  };
  session.transcript();
  for (const auto& row : rows) {
    EXPECT_EQ(session.eval(row.call), "nil") << row.call;
    EXPECT_NE(session.transcript().find(row.message), std::string::npos) << row.call;
  }
}

class Rows : public Project {
 public:
  Rows() {
    eval(R"((progn
      (plv-projet p "Projet" '((1000.0 50.0) (1080.0 54.0 800.0) (1200.0 50.0)))
      (entmake '((0 . "BLOCK") (2 . "R") (70 . 2) (10 0.0 0.0 0.0))) (entmake '((0 . "ENDBLK")))
      (entmake '((0 . "INSERT") (66 . 1) (2 . "R") (10 600.0 370.0 0.0)))
      (foreach a '(("NUM" . "R12") ("DN" . "250") ("NOTE" . "x"))
        (entmake (list '(0 . "ATTRIB") '(10 600.0 371.0 0.0) '(40 . 1.0) (cons 1 (cdr a)) (cons 2 (car a)) '(70 . 0))))
      (entmake '((0 . "SEQEND"))) (setq bloc (entlast))
      (plv-associer-axe p (entmakex '((0 . "LWPOLYLINE") (100 . "AcDbEntity") (100 . "AcDbPolyline") (90 . 4) (70 . 0)
        (10 0.0 0.0) (10 60.0 0.0) (42 . 0.4142135623730951) (10 80.0 20.0) (10 80.0 200.0))))
      (plv-devers p '((1000 -2.5 -2.5) (1100 -2.5 -2.5) (1200 2.0 -2.5)))))");
  }
};

TEST(ProjectRows, HoldTheirFigures) {
  Rows session;
  session.transcript();
  ASSERT_NE(session.eval("(plv-matrices p \"matrices-completes.txt\" T)"), "nil");
  const std::string said = session.transcript();
  EXPECT_EQ(said.find("vides"), std::string::npos) << said;
  const struct {
    const char* text;
    const char* count;
  } rows[] = {
      {"52.00", "8"},  // ground at seven points, and the project's altitude at 1040
      {"53.00", "0"},
      {"-1.22", "1"},  // depth at 1100: the project is above the ground
      {"Rampe 5.00 % sur 46.71 m", "1"},
      {"+0.0500 m/m", "1"},
      {"-3.33 %", "1"},
      {"-33.3 \\U+2030", "1"},
      {"R=800 L=66.60", "4"},
      {"86.69", "1"},    // partial distance of the last element
      {"1046.71", "1"},  // where the circle begins
      {"Alignement L=60.00", "1"},
      {"R=20*", "1"},
      {"-2.50 %", "1"},
      {"R12 250", "1"},
      {"R12", "1"},
      {"250", "1"},
      {"x", "0"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(session.eval(std::string("(textes \"") + row.text + "\")"), row.count) << row.text;
  // drawn again, and each row alone: nothing is left over
  const std::string entities = session.eval("(sslength (ssget \"X\"))");
  session.eval("(plv-matrices p \"matrices-completes.txt\" T)");
  EXPECT_EQ(session.eval("(sslength (ssget \"X\"))"), entities);
  for (const char* table : {"POINTS 6", "PROJET 8", "TRACE 3", "BLOCS 3"}) {
    const std::string text = table;
    const auto blank = text.find(' ');
    for (int row = 1; row <= std::stoi(text.substr(blank)); ++row) {
      session.feed("(PL-CPLM \"" + text.substr(0, blank) + "\" " + std::to_string(row) + ") \n");
      EXPECT_EQ(session.eval("(sslength (ssget \"X\"))"), entities) << table << ", row " << row;
    }
  }
}

TEST(ProjectRows, AreNamedWhenTheyStayEmpty) {
  Project session;
  ASSERT_NE(session.eval("(plv-matrices p \"matrices-completes.txt\" T)"), "nil");
  EXPECT_NE(session.transcript().find("Lignes laissées vides: Altitude projet, Profondeur, Pentes, "),
            std::string::npos);
}

TEST(ProjectRows, TakeABlockPlacedLater) {
  Rows session;
  session.file("t.txt", "T - 2.0 402 {NUM} Regards\nT - 4.0 403 {DN|MAT} Diametre\n");
  session.eval("(plv-effacer (list bloc))");
  session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)");
  EXPECT_EQ(session.eval("(textes \"R12,250\")"), "0");
  session.eval("(progn (entdel bloc) (plv-choix-profil p) (plv-bloc-place p bloc))");
  EXPECT_EQ(session.eval("(textes \"R12,250\")"), "2");
  session.eval("(plv-effacer-tables p)");
  EXPECT_EQ(session.eval("(textes \"R12,250\")"), "0") << "the texts go with their tables";
}

TEST(MenuMacros, RunAsTheMenuNamesThem) {
  Rows session;
  const std::string dimensions =
      session.feed("(CotAutoKavel) \nProjet\nT\n(list (car (plv-elements-du-projet p \"Projet\")) '(510.0 0.0))\n\n");
  EXPECT_NE(dimensions.find("4 cotes."), std::string::npos) << dimensions;
  EXPECT_EQ(session.eval("(list (textes \"+0.00\") (textes \"-2.00\") (textes \"50.00\"))"), "(1 1 1)");
  session.feed("transfererProjet \nVoirie\n");
  session.check({{"(plv-elements p \"Projet\")", "nil"},
                 {"(length (plv-elements-du-projet p \"Voirie\"))", "4"},
                 {"(plv-genres-du-projet p)", "(\"Voirie\")"}});
  const std::string association =
      session.feed("assocprjKavel \nV\nE\n(list (car (plv-elements-du-projet p \"Voirie\")) '(510.0 0.0))\n\n");
  EXPECT_NE(association.find("<element a enlever>"), std::string::npos) << association;
  EXPECT_EQ(session.eval("(length (plv-elements-du-projet p \"Voirie\"))"), "3");
  session.feed("pl_efixKAVEL \nA\n600,370\n(list bloc '(600.0 370.0))\n\nF\n");
  EXPECT_EQ(session.eval(
                "(cdr (assoc 330 (plv-enregistrement (plv-support p \"Assainissement\") \"ELEMS_STATIQUES_KAVEL\")))"),
            session.eval("bloc"));
  // equipment and slopes on the axis in plan: the block at 100 m stands 8.58 m up the last alignment
  session.feed("PlKavelVersPlan \n");
  session.check({{"(textes \"3.33 %\")", "1"},
                 {"(mapcar 'mm (cdr (assoc 10 (entget (cdr (plv-dernier (plv-enregistrement p \"PLV_VERS_PLAN\")))))))",
                  "(\"80.000\" \"28.584\" \"0.000\")"}});
}

}  // namespace
