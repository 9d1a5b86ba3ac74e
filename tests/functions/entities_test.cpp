// entmake, entget, entmod and related functions: groups that are stored are read back.
#include "tests/support/bare_host.h"

namespace kaveltest {

using Entities = DrawingTest;

TEST_F(Entities, AreMadeReadAndChanged) {
  run(kTools);
  check({{"(entlast)", "nil"},
         {"(entmake '((0 . \"LINE\") (8 . \"AXE\") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0)))",
          "((0 . \"LINE\") (8 . \"AXE\") (10 1.0 2.0 0.0) (11 4.0 6.0 0.0))"},
         {"(list (last-g 0) (last-g 8) (last-g 10) (last-g 11))", "(\"LINE\" \"AXE\" (1.0 2.0 0.0) (4.0 6.0 0.0))"},
         {"(cdr (assoc 2 (tblsearch \"LAYER\" \"axe\")))", "\"AXE\""},
         {"(progn (setq e (entget (entlast))) (entmod (subst '(62 . 3) (assoc 62 e) (append e '((62 . 1))))) "
          "(last-g 62))",
          "1"},
         {"(equal (handent (last-g 5)) (entlast))", "T"},
         {"(entmake '((0 . \"LINE\") (10 . \"x\")))", "! bad DXF group: (10 . \"x\")"},
         {"(entmake '((0 . \"INSERT\") (2 . \"ABSENT\") (10 0.0 0.0 0.0)))", "nil"},
         {"(entget 3)", "! bad argument type: lentityp 3"},
         {"(progn (entdel (entlast)) (entlast))", "nil"}});
}

TEST_F(Entities, WalkInDrawingOrderWithFollowers) {
  run(kTools);
  run("(progn (line '(0. 0. 0.) '(1. 0. 0.))"
      " (entmake '((0 . \"POLYLINE\") (70 . 0)))"
      " (entmake '((0 . \"VERTEX\") (10 0.0 0.0 0.0))) (entmake '((0 . \"VERTEX\") (10 5.0 0.0 0.0))) "
      "(entmake '((0 . \"SEQEND\")))"
      " (circle '(0. 0. 0.) 2.0))");
  check({{"(progn (setq e nil l nil) (while (setq e (if e (entnext e) (entnext))) (setq l (cons (g 0 e) l))) "
          "(reverse l))",
          "(\"LINE\" \"POLYLINE\" \"VERTEX\" \"VERTEX\" \"SEQEND\" \"CIRCLE\")"},
         {"(kinds (ssget \"X\"))", "(\"CIRCLE\" \"POLYLINE\" \"LINE\")"}});
}

TEST_F(Entities, KeepXdataByApplication) {
  run(kTools);
  check({{"(regapp \"UN\")", "\"UN\""},
         {"(regapp \"UN\")", "nil"},
         {"(regapp \"DEUX\")", "\"DEUX\""},
         {"(null (entmake '((0 . \"POINT\") (10 0. 0. 0.) (-3 (\"UN\" (1000 . \"a\") (1040 . 2.5) (1010 1. "
          "2. 3.))))))",
          "nil"},
         {"(cdr (assoc -3 (entget (entlast) '(\"UN\"))))", "((\"UN\" (1000 . \"a\") (1040 . 2.5) (1010 1.0 2.0 3.0)))"},
         {"(assoc -3 (entget (entlast)))", "nil"},
         {"(null (entmod (append (entget (entlast)) '((-3 (\"DEUX\" (1071 . 70000)))))))", "nil"},
         {"(mapcar 'car (cdr (assoc -3 (entget (entlast) '(\"*\")))))", "(\"DEUX\" \"UN\")"},
         {"(null (entmod (append (entget (entlast)) '((-3 (\"UN\"))))))", "nil"},
         {"(cdr (assoc -3 (entget (entlast) '(\"*\"))))", "((\"DEUX\" (1071 . 70000)))"},
         {"(entmake '((0 . \"POINT\") (10 0. 0. 0.) (-3 (\"ABSENTE\" (1000 . \"a\")))))", "nil"}});
}

TEST_F(Entities, LiveInDictionaries) {
  check({{"(progn (setq d (entmakex '((0 . \"DICTIONARY\") (100 . \"AcDbDictionary\")))) (type d))", "ENAME"},
         {"(eq d (dictadd (namedobjdict) \"ESSAI\" d))", "T"},
         {"(dictadd (namedobjdict) \"ESSAI\" d)", "nil"},
         {"(progn (dictadd d \"X\" (entmakex '((0 . \"XRECORD\") (100 . \"AcDbXrecord\") (1 . \"été\") (40 . "
          "1.5)))) (cdr (assoc 1 (dictsearch d \"X\"))))",
          "\"été\""},
         {"(dictrename d \"X\" \"Y\")", "\"Y\""},
         {"(dictsearch d \"X\")", "nil"},
         {"(cdr (assoc 40 (dictnext d T)))", "1.5"},
         {"(type (dictremove d \"Y\"))", "ENAME"},
         {"(dictnext d T)", "nil"}});
}

TEST_F(Entities, OfBlocksAreSearchedByTable) {
  check({{"(progn (entmake '((0 . \"BLOCK\") (2 . \"BORNE\") (70 . 0) (10 1. 1. 0.))) (entmake '((0 . "
          "\"POINT\") (10 1. 1. 0.)))"
          " (entmake '((0 . \"ENDBLK\"))))",
          "\"BORNE\""},
         {"(cdr (assoc 10 (tblsearch \"BLOCK\" \"borne\")))", "(1.0 1.0 0.0)"},
         {"(cdr (assoc 0 (entget (cdr (assoc -2 (tblsearch \"BLOCK\" \"BORNE\"))))))", "\"POINT\""},
         {"(tblsearch \"LAYER\" \"absent\")", "nil"},
         {"(cdr (assoc 2 (tblnext \"STYLE\" T)))", "\"Standard\""},
         {"(tblsearch \"NUAGE\" \"x\")", "! bad argument value: NUAGE"}});
}

// Polylines in space from lists without marks, and with some: the vertices keep their places and get their marks.
TEST_F(Entities, MakePolylinesInSpace) {
  run(kTools);
  run("(defun space (marks head / e) (entmake (append '((0 . \"POLYLINE\")) head '((70 . 8))))"
      " (foreach p '((0. 0. 1.) (5. 0. 2.)) (entmake (append '((0 . \"VERTEX\")) marks (list (cons 10 p) '(70 . "
      "32))))) (entmake '((0 . \"SEQEND\")))"
      " (setq e (entnext (entnext (entlast)))) (list (g 10 e) (g 70 e) (vl-remove-if-not '(lambda (p) (= (car p) 100)) "
      "(entget e))))");
  const char* made =
      "((5.0 0.0 2.0) 32 ((100 . \"AcDbEntity\") (100 . \"AcDbVertex\") (100 . \"AcDb3dPolylineVertex\")))";
  check(
      {{"(space nil nil)", made},
       {"(space '((100 . \"AcDbEntity\") (100 . \"AcDbVertex\")) '((100 . \"AcDbEntity\") (100 . \"AcDb3dPolyline\")))",
        made},
       {"(space '((100 . \"AcDbEntity\") (100 . \"AcDbVertex\") (100 . \"AcDb3dPolylineVertex\")) '((100 . "
        "\"AcDbEntity\") (100 . \"AcDb3dPolyline\")))",
        made}});
}

}  // namespace kaveltest
