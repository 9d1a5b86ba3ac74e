// Entities that should not be there: erased, locked, of another class, degenerate, out of a broken file. Every function
// that takes curves meets each of them; nothing crashes, and the records stay well formed.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

class Faults : public FrontEnd {
 public:
  Faults() {
    file("g.csv", "0;52\n40;53\n100;51\n200;52\n");
    eval("(setq p (plv-nouveau \"" + path("g.csv") +
         "\" \"1\" '(0.0 0.0 0.0) 10.0 2.5 150.0 '((0.0 45.0) (100.0 44.0))))");
    eval(R"((progn
      (setq nan (- (* 1e300 1e300) (* 1e300 1e300)))
      (setq bonne (entmakex '((0 . "LINE") (10 0.0 60.0 0.0) (11 200.0 70.0 0.0))))
      (defun ligne (x1 y1 x2 y2) (entmakex (list '(0 . "LINE") (list 10 x1 y1 0.0) (list 11 x2 y2 0.0))))
      (defun poly (pts) (entmakex (append (list '(0 . "LWPOLYLINE") '(100 . "AcDbEntity") '(100 . "AcDbPolyline") (cons 90 (length pts)) '(70 . 0))
        (mapcar '(lambda (p) (cons 10 p)) pts))))
      (defun spline (pts) (entmakex (append '((0 . "SPLINE") (100 . "AcDbEntity") (100 . "AcDbSpline") (70 . 8) (71 . 3) (72 . 8) (73 . 4) (74 . 0)
        (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 0.0) (40 . 1.0) (40 . 1.0) (40 . 1.0) (40 . 1.0)) (mapcar '(lambda (p) (cons 10 p)) pts))))
      (defun jeu (e / s) (setq s (ssadd)) (ssadd e s) (ssadd bonne s) s)))");
    transcript();
  }
};

// Each makes one entity.
constexpr const char* kEntities[] = {
    "(ligne 50.0 60.0 50.0 60.0)",
    "(ligne 50.0 60.0 50.0 90.0)",
    "(ligne -80.0 60.0 -20.0 60.0)",
    "(ligne 1e300 1e300 -1e300 1e300)",
    "(ligne 50.0 nan 80.0 60.0)",
    "(poly (list (list nan 60.0) '(80.0 60.0)))",
    "(spline (list '(50.0 60.0 0.0) (list 60.0 nan 0.0) '(70.0 60.0 0.0) '(80.0 60.0 0.0)))",
    "(poly '((50.0 60.0)))",
    "(poly '((50.0 60.0) (50.0 60.0) (50.0 60.0)))",
    "(spline '((50.0 60.0 0.0) (50.0 60.0 0.0) (50.0 60.0 0.0) (50.0 60.0 0.0)))",
    "(entmakex '((0 . \"POINT\") (10 50.0 60.0 0.0)))",
    "(plv-texte \"0\" '(50.0 60.0 0.0) 2.0 \"texte\" 0 0.0)",
    "(progn (setq x (ligne 20.0 60.0 150.0 60.0)) (entdel x) x)",
    "(progn (entmake '((0 . \"LAYER\") (2 . \"FERME\") (70 . 4) (62 . 1) (6 . \"Continuous\")))"
    " (entmakex '((0 . \"LINE\") (8 . \"FERME\") (10 20.0 60.0 0.0) (11 150.0 60.0 0.0))))",
    "p",
};

TEST(BadEntities, AreMetByEveryFunction) {
  for (const char* entity : kEntities) {
    Faults session;
    session.eval(std::string("(setq e ") + entity + ")");
    ASSERT_NE(session.eval("e"), "nil") << entity;
    for (const char* call :
         {"(pl_yat e 50.0)", "(pl_curvelength e 10.0)", "(pl_areacalc e 10.0)", "(pl_glp p (jeu e))",
          "(pl_PointsPrjRef p (jeu e) (jeu e))", "(pl_elem_prj p \"Projet\" (jeu e))",
          "(pl_elem_prj p \"Voirie\" e bonne)", "(pl_elem_ponct p \"AEP\" '(100.0 0.0 0.0) e)", "(pl_CotAttribsAuto e)",
          "(pl_NotifInsertBlock e)", "(pl_elem_prj e \"Projet\" bonne)", "(pl_InfosTn e)", "(plgxd e \"ECHV\")"})
      EXPECT_NO_THROW(session.eval(call)) << entity << call;
    for (const char* call :
         {"(pl_cotauto p \"Projet\" 10.0 0.0)", "(pl_repspc p)", "(pl_listerAltitudes p)", "(pl_modifpente 10.0)",
          "(pl_modifLongueur 10.0)", "(pl_assoc_prj (plv-support p \"Projet\"))"})
      EXPECT_NO_THROW(session.feed(std::string(call) + "\n(list e '(50.0 60.0))\n2\n\n\n")) << entity << call;
    for (const char* call : {"(plv-pc p \"A\" 60.0 44.0)", "(plv-pc p \"M\" 60.0 43.0)", "(plv-pc p \"S\" 60.0 nil)"})
      EXPECT_NO_THROW(session.eval(call)) << entity << call;
    session.transcript();
    // The wrong classes were taken into a record by name; that is what the audit is for.
    session.eval("(plv-audit)");
    const std::string said = session.transcript();
    EXPECT_EQ(said.find("P08"), std::string::npos) << entity << said;
    EXPECT_EQ(said.find("P02"), std::string::npos) << entity << said;
    // The good line is whole: cut at the planes, every altitude as it was drawn.
    EXPECT_EQ(session.eval("(equal (pl_yat bonne 20.0) 61.0 1e-9)"), "T") << entity;
  }
}

TEST(BadRecords, OfAnotherProgramAreFound) {
  const struct {
    const char* record;
    const char* groups;
    const char* code;  // "" for none
  } rows[] = {
      {"ELEMS_STATIQUES_KAVEL", "'((102 . \"{\") (10 5.0 0.0 0.0) (102 . \"{\") (102 . \"}\") (102 . \"}\"))", ""},
      {"ELEMS_STATIQUES_KAVEL",
       "'((102 . \"{\") (10 5.0 0.0 0.0) (102 . \"{\") (102 . \"}\") (102 . \"{\") (102 . \"}\") (102 . \"}\"))", ""},
      {"ELEMS_STATIQUES_KAVEL", "'((102 . \"{\") (10 5.0 0.0 0.0) (102 . \"{\") (102 . \"}\"))", "P08"},
      {"ELEMS_STATIQUES_KAVEL", "'((102 . \"{\") (40 . 5.0) (102 . \"{\") (102 . \"}\") (102 . \"}\"))", "P08"},
      {"ELEMS_STATIQUES_KAVEL", "'((1 . \"{\"))", "P08"},
      {"ELEMS_PROJET_KAVEL", "(list (cons 330 bonne))", ""},
      {"ELEMS_PROJET_KAVEL", "(list (cons 330 p))", "P07"},
      {"ELEMS_PROJET_KAVEL", "'((40 . 1.0))", "P07"},
  };
  for (const auto& row : rows) {
    Faults session;
    session.eval(std::string("(plv-ecrire-enregistrement (plv-support p \"AEp\") \"") + row.record + "\" " +
                 row.groups + ")");
    session.transcript();
    const std::string found = session.eval("(plv-audit)"), said = session.transcript();
    EXPECT_EQ(found, *row.code ? "1" : "0") << row.groups << said;
    EXPECT_NE(said.find(row.code), std::string::npos) << row.groups << said;
    // What the module would read for ever is refused before it is asked to.
    EXPECT_EQ(session.eval("(plv-pc p \"A\" 60.0 44.0)") == "nil", std::string(row.code) == "P08") << row.groups;
  }
}

}  // namespace
