// The host's commands, from AutoLISP and from the command line.
#include <cstdlib>
#include <filesystem>

#include "tests/support/bare_host.h"

namespace kaveltest {

class Commands : public DrawingTest {
 protected:
  void SetUp() override { run(kTools); }
};

TEST_F(Commands, Draw) {
  check({{"(progn (command \"_.LINE\" '(0 0) \"3,4\" \"\") (list (last-g 0) (last-g 11)))", "(\"LINE\" (3.0 4.0 0.0))"},
         {"(progn (command \"LIGNE\" '(0 0) '(1 0) '(1 1) \"C\") (list (count) (last-g 11)))", "(4 (0.0 0.0 0.0))"},
         {"(progn (command \"_CIRCLE\" '(5 5) 2.5) (last-g 40))", "2.5"},
         {"(progn (command \"_CIRCLE\" '(5 5) \"_D\" 2.5) (last-g 40))", "1.25"},
         {"(progn (command \"_CIRCLE\" \"_3P\" '(1 0) '(0 1) '(-1 0)) (list (last-g 10) (last-g 40)))",
          "((0.0 0.0 0.0) 1.0)"},
         {"(progn (command \"_ARC\" '(1 0) '(0 1) '(-1 0)) (list (last-g 0) (last-g 40) (last-g 50) (rtos "
          "(last-g 51) 2 4)))",
          "(\"ARC\" 1.0 0.0 \"3.1416\")"},
         {"(progn (command \"_ARC\" \"_C\" '(0 0) '(2 0) \"_A\" 90) (list (last-g 40) (rtos (last-g 51) 2 4)))",
          "(2.0 \"1.5708\")"},
         {"(progn (command \"_PLINE\" '(0 0) '(10 0) \"_A\" '(10 10) \"_L\" '(0 10) \"_C\") (list (last-g 90) "
          "(last-g 70)))",
          "(4 1)"},
         {"(mapcar '(lambda (p) (rtos (cdr p) 2 3)) (vl-remove-if-not '(lambda (p) (= 42 (car p))) (entget "
          "(entlast))))",
          "(\"0.000\" \"1.000\" \"0.000\" \"0.000\")"},
         {"(progn (command \"_TEXT\" '(1 2) 3.5 90 \"Un deux\") (list (last-g 1) (last-g 40) (rtos (last-g 50) "
          "2 4)))",
          "(\"Un deux\" 3.5 \"1.5708\")"},
         {"(progn (command \"_TEXT\" \"_J\" \"_MC\" '(1 2) 3.5 0 \"x\") (list (last-g 72) (last-g 73) (last-g "
          "11)))",
          "(1 2 (1.0 2.0 0.0))"},
         {"(progn (command \"_MTEXT\" '(0 0) \"_H\" 2 '(30 -10) \"a\" \"b\" \"\") (list (last-g 1) (last-g 40) "
          "(last-g 41)))",
          "(\"a\\\\Pb\" 2.0 30.0)"}});
}

// Arcs between the same ends: each sequence of answers gives the same half or quarter circle.
TEST_F(Commands, DrawArcsInManyWays) {
  run("(defun bulge (/ r) (foreach p (entget (entlast)) (if (= (car p) 42) (setq r (cons (rtos (cdr p) 2 3) r)))) (car "
      "(reverse r)))");
  run("(defun arc-g () (mapcar '(lambda (c) (rtos (last-g c) 2 3)) '(40 50 51)))");
  check({{"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_S\" '(5 -5) '(10 0) \"\") (bulge))", "\"1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_CE\" '(5 0) '(10 0) \"\") (bulge))", "\"1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_A\" 180 '(10 0) \"\") (bulge))", "\"1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_D\" '(0 -1) '(10 0) \"\") (bulge))", "\"1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_R\" 5 '(10 0) \"\") (bulge))", "\"1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) \"_A\" \"_R\" 10 '(10 10) \"\") (bulge))", "\"0.414\""},
         {"(progn (command \"_PLINE\" '(0 0) '(1 0) \"_L\" 4 \"_H\" 1 2 '(9 9) \"\") (list (last-g 90) (cdr (assoc 41 "
          "(reverse (entget (entlast)))))))",
          "(4 0.0)"},
         {"(vl-remove-if-not '(lambda (p) (member (car p) '(10 41))) (entget (entlast)))",
          "((10 0.0 0.0) (41 . 0.0) (10 1.0 0.0) (41 . 0.0) (10 5.0 0.0) (41 . 4.0) (10 9.0 9.0) (41 . 0.0))"},
         {"(progn (command \"_ARC\" '(0 0) \"_E\" '(10 0) \"_A\" 180) (arc-g))", "(\"5.000\" \"3.142\" \"0.000\")"},
         {"(progn (command \"_ARC\" '(0 0) \"_E\" '(10 0) \"_D\" 270) (arc-g))", "(\"5.000\" \"3.142\" \"0.000\")"},
         {"(progn (command \"_ARC\" '(0 0) \"_E\" '(10 10) \"_R\" 10) (arc-g))", "(\"10.000\" \"4.712\" \"0.000\")"},
         {"(progn (command \"_ARC\" '(0 0) \"_E\" '(10 10) \"_R\" -10) (arc-g))", "(\"10.000\" \"3.142\" \"1.571\")"},
         {"(progn (command \"_ARC\" '(0 0) \"_E\" '(10 0) '(5 0)) (arc-g))", "(\"5.000\" \"3.142\" \"0.000\")"},
         {"(vl-cmdf \"_ARC\" '(0 0) \"_E\" '(10 0) \"_R\" 2)", "nil"}});
}

// Answers that old programs leave out or add.
TEST_F(Commands, TakeHabitsOfPrograms) {
  check({{"(progn (command \"_.LINE\" \"_non\" '(0 0) \"_end\" '(3 0) \"\") (list (count) (last-g 11)))",
          "(1 (3.0 0.0 0.0))"},
         {"(progn (command \"_.COPY\" \"_L\" \"\" '(0 0) '(0 5)) (getvar \"CMDACTIVE\"))", "0"},
         {"(progn (command \"_.LINE\" '(0 0)) (setq r (list (getvar \"CMDACTIVE\") (getvar \"CMDNAMES\"))) (command "
          "'(8 0)) (command \"_.CIRCLE\" '(0 0) 2)"
          " (list r (count) (getvar \"CMDACTIVE\") (last-g 0)))",
          "((1 \"LINE\") 4 0 \"CIRCLE\")"},
         {"(progn (command \"_.PLINE\" '(0 0) '(1 0) '(1 1) \"\") (command \"_.EXPLODE\" (entlast)) (list (count) "
          "(getvar \"CMDACTIVE\")))",
          "(6 0)"},
         {"(progn (command \"LTSCALE\" 2.5) (command \"_.OSMODE\" 35) (list (getvar \"LTSCALE\") (getvar \"OSMODE\")))",
          "(2.5 35)"},
         {"(progn (command \"_.SELECT\" \"_ALL\" \"\") (sslength (ssget \"_P\")))", "6"},
         {"(progn (command \"_.UNDO\" \"_Group\" \"_.ERASE\" \"_ALL\" \"\" \"_.CIRCLE\" '(0 0) 1 \"_.UNDO\" \"_E\" "
          "\"_.U\") (count))",
          "6"}});
}

TEST_F(Commands, ChangeProperties) {
  run("(progn (command \"_.-LAYER\" \"_N\" \"AXE\" \"\") (setq e (line '(0. 0. 0.) '(1. 0. 0.))))");
  check({{"(progn (command \"_.CHPROP\" e \"\" \"_LA\" \"AXE\" \"_C\" \"_\" \"\") (g 8 e))", "\"AXE\""},
         {"(progn (command \"_.CHANGE\" e \"\" \"_P\" \"_C\" 3 \"_S\" 2.0 \"_LW\" 0.5 \"\") (list (g 62 e) (g 48 e) (g "
          "370 e)))",
          "(3 2.0 50)"},
         {"(vl-cmdf \"_.CHPROP\" e \"\" \"_LA\" \"ABSENT\" \"\")", "nil"},
         {"(g 8 e)", "\"AXE\""},
         {"(progn (command \"_.COLOR\" 5) (command \"_.POINT\" '(0 0)) (last-g 62))", "5"},
         {"(progn (command \"_.-LAYER\" \"_P\" \"_N\" \"AXE\" \"\") (g 290 (tblobjname \"LAYER\" \"AXE\")))", "0"},
         {"(progn (command \"_.3DPOLY\" '(0 0 1) '(1 0 2) '(1 1 3) \"_C\") (list (last-g 0) (last-g 70) (g 10 (entnext "
          "(entnext (entlast))))))",
          "(\"POLYLINE\" 9 (1.0 0.0 2.0))"}});
}

TEST_F(Commands, TakeTheirAnswersOverManyCalls) {
  check({{"(progn (command \"_.PLINE\") (foreach p '((0 0) (5 0) (5 5)) (command p)) (command \"\") (list "
          "(last-g 0) (last-g 90)))",
          "(\"LWPOLYLINE\" 3)"},
         {"(progn (command \"_.LINE\" '(0 0) '(9 9)) (command) (last-g 11))", "(9.0 9.0 0.0)"},
         {"(progn (mapcar 'command (list \"_.LINE\" '(0 0) '(7 7) \"\")) (last-g 11))", "(7.0 7.0 0.0)"},
         {"(progn (command \"_.LINE\" '(0 0) '(1 1) \"\" \"_.CIRCLE\" '(0 0) 4) (last-g 40))", "4.0"},
         {"(progn (setq s (ssadd (entlast))) (command \"_.MOVE\" s) (command \"\" '(0 0)) (command '(5 0)) "
          "(last-g 10))",
          "(5.0 0.0 0.0)"},
         {"(vl-cmdf \"_.LINE\" '(0 0) '(1 1) \"\")", "T"},
         {"(vl-cmdf \"_.NUAGE\")", "nil"},
         {"(vl-cmdf \"_.LINE\" nil)", "nil"},
         {"(command \"_.PLOT\" 1)", "nil"}});
  EXPECT_EQ(session.document().failures(), 2);
}

TEST_F(Commands, PauseAsksTheUser) {
  session.feed("(command \"_.CIRCLE\" pause pause)\n3,4\n2\n");
  EXPECT_EQ(run("(list (last-g 10) (last-g 40))"), "((3.0 4.0 0.0) 2.0)");
  // The user gives the answers that a program has left out.
  session.feed("(command \"_.CIRCLE\" '(1 1))\n8\n");
  EXPECT_EQ(run("(last-g 40)"), "8.0");
}

TEST_F(Commands, Change) {
  check({{"(progn (line '(0. 0. 0.) '(10. 0. 0.)) (setq e (entlast)) (command \"_.MOVE\" e \"\" '(0 0) '(1 2)) "
          "(g 10 e))",
          "(1.0 2.0 0.0)"},
         {"(progn (command \"_.COPY\" e \"\" '(0 0) '(0 5) \"\") (list (count) (last-g 10)))", "(2 (1.0 7.0 0.0))"},
         {"(progn (command \"_.ROTATE\" e \"\" '(1 2) 90) (mapcar '(lambda (v) (rtos v 2 3)) (g 11 e)))",
          "(\"1.000\" \"12.000\" \"0.000\")"},
         {"(progn (command \"_.SCALE\" e \"\" '(1 2) 0.5) (mapcar '(lambda (v) (rtos v 2 3)) (g 11 e)))",
          "(\"1.000\" \"7.000\" \"0.000\")"},
         {"(progn (command \"_.MIRROR\" e \"\" '(0 0) '(0 1) \"_Y\") (rtos (car (g 10 e)) 2 3))", "\"-1.000\""},
         {"(progn (command \"_PLINE\" '(0 0) '(10 0) \"_A\" '(10 10) \"\" \"_.EXPLODE\" \"_L\" \"\") (list "
          "(count) (last-g 0) (last-g 10) (last-g 40)))",
          "(4 \"ARC\" (10.0 5.0 0.0) 5.0)"},
         {"(progn (command \"_.ERASE\" (entlast) \"_L\" \"\" \"_.ERASE\" \"_L\" \"\") (count))", "2"},
         {"(progn (command \"_.ERASE\" \"_ALL\" \"\") (count))", "0"},
         {"(progn (command \"_.U\") (count))", "2"},
         {"(progn (command \"_.REDO\") (count))", "0"},
         {"(progn (command \"_.UNDO\" \"_BE\") (line '(0. 0. 0.) '(1. 0. 0.)) (command \"_.CIRCLE\" '(0 0) 1 "
          "\"_.UNDO\" \"_E\") (count))",
          "2"},
         {"(progn (command \"_.UNDO\" 1) (count))", "0"}});
}

TEST_F(Commands, LeaveLockedLayersAlone) {
  check({{"(progn (line '(0. 0. 0.) '(1. 0. 0.)) (command \"_.-LAYER\" \"_LO\" \"0\" \"\" \"_.ERASE\" \"_L\" "
          "\"\") (count))",
          "1"},
         {"(progn (command \"_.-LAYER\" \"_U\" \"0\" \"\" \"_.ERASE\" \"_L\" \"\") (count))", "0"}});
}

TEST_F(Commands, SetLayersAndStyles) {
  check(
      {{"(progn (command \"_.-LAYER\" \"_M\" \"AXE RTE\" \"_C\" \"3\" \"\" \"\") (getvar \"CLAYER\"))", "\"AXE RTE\""},
       {"(cdr (assoc 62 (tblsearch \"LAYER\" \"AXE RTE\")))", "3"},
       {"(progn (command \"-CALQUE\" \"N\" \"A1,A2,B\" \"I\" \"A*\" \"CH\" \"0\" \"\") (getvar \"CLAYER\"))", "\"0\""},
       {"(mapcar '(lambda (n) (minusp (cdr (assoc 62 (tblsearch \"LAYER\" n))))) '(\"A1\" \"A2\" \"B\"))", "(T T nil)"},
       {"(progn (command \"_.-LAYER\" \"_F\" \"B\" \"\") (cdr (assoc 70 (tblsearch \"LAYER\" \"B\"))))", "1"},
       {"(progn (command \"_.-STYLE\" \"ROMAIN\" \"romans.shx\" 2.0 0.8 0 \"_N\" \"_N\" \"_N\") (getvar "
        "\"TEXTSTYLE\"))",
        "\"ROMAIN\""},
       {"(mapcar '(lambda (c) (cdr (assoc c (tblsearch \"STYLE\" \"ROMAIN\")))) '(3 40 41))",
        "(\"romans.shx\" 2.0 0.8)"},
       {"(progn (command \"_.TEXT\" '(0 0) 0 \"x\") (list (last-g 7) (last-g 40)))", "(\"ROMAIN\" 2.0)"},
       {"(progn (command \"_.-RENAME\" \"_S\" \"ROMAIN\" \"R2\") (list (last-g 7) (getvar \"TEXTSTYLE\")))",
        "(\"R2\" \"R2\")"},
       {"(progn (command \"_.-PURGE\" \"_LA\" \"*\" \"_N\") (mapcar '(lambda (n) (null (tblsearch \"LAYER\" "
        "n))) '(\"A1\" \"B\" \"0\")))",
        "(T T nil)"}});
}

TEST_F(Commands, InsertBlocksWithAttributes) {
  run("(progn (entmake '((0 . \"BLOCK\") (2 . \"REGARD\") (70 . 2) (10 0. 0. 0.))) (entmake '((0 . "
      "\"CIRCLE\") (10 0. 0. 0.) (40 . 1.)))"
      " (entmake '((0 . \"ATTDEF\") (10 2. 0. 0.) (40 . 2.5) (1 . \"?\") (2 . \"NUM\") (3 . \"Numero\") (70 "
      ". 0))) (entmake '((0 . \"ENDBLK\"))))");
  check(
      {{"(progn (command \"_.-INSERT\" \"regard\" '(10 20) 2 2 0 \"R 12\") (list (last-g 2) (last-g 10) "
        "(last-g 41)))",
        "(\"REGARD\" (10.0 20.0 0.0) 2.0)"},
       {"(progn (setq a (entnext (entlast))) (list (g 0 a) (g 1 a) (g 2 a) (g 10 a) (g 40 a)))",
        "(\"ATTRIB\" \"R 12\" \"NUM\" (14.0 20.0 0.0) 5.0)"},
       {"(progn (setvar \"ATTREQ\" 0) (command \"_.-INSERT\" \"REGARD\" \"_S\" 1 \"_R\" 90 '(0 0)) (rtos "
        "(last-g 50) 2 4))",
        "\"1.5708\""},
       {"(g 1 (entnext (entlast)))", "\"?\""},
       {"(progn (command \"_.EXPLODE\" (entlast) \"\") (vl-remove \"INSERT\" (kinds (ssget \"X\"))))", "(\"CIRCLE\")"},
       {"(vl-cmdf \"_.-INSERT\" \"absent\" '(0 0) 1 1 0)", "nil"}});
}

// Arrays of inserts, with their own subclass mark: drawn completely, and never exploded.
TEST_F(Commands, LeaveArraysOfInsertsWhole) {
  run("(progn (entmake '((0 . \"BLOCK\") (2 . \"Q\") (70 . 0) (10 0. 0. 0.))) (entmake '((0 . \"LINE\") (10 0. 0. 0.) "
      "(11 1. 0. 0.))) (entmake '((0 . \"ENDBLK\"))))");
  check({{"(progn (entmake '((0 . \"INSERT\") (100 . \"AcDbEntity\") (100 . \"AcDbMInsertBlock\") (2 . \"Q\") (10 0. "
          "0. 0.) (70 . 30000) (71 . 20000) (44 . 5.) (45 . 2.))) (getvar \"EXTMAX\"))",
          "(149996.0 39998.0 0.0)"},
         {"(progn (command \"_.EXPLODE\" (entlast)) (list (count) (last-g 0) (last-g 70)))", "(1 \"INSERT\" 30000)"},
         {"(sslength (ssget \"_C\" '(99000. 19000.) '(99010. 19010.)))", "1"},
         {"(progn (command \"_.MOVE\" (entlast) \"\" '(0 0) '(1 1)) (last-g 10))", "(1.0 1.0 0.0)"}});
}

TEST_F(Commands, MakeBlocks) {
  check({{"(progn (setq s (ssadd (line '(10. 10. 0.) '(12. 10. 0.)))) (ssadd (circle '(11. 10. 0.) 1.) s) (command "
          "\"_.-BLOCK\" \"VANNE\" '(10 10) s \"\") (count))",
          "0"},
         {"(progn (command \"_.-INSERT\" \"VANNE\" '(5 5) \"\" \"\" \"\") (command \"_.EXPLODE\" (entlast)) (list "
          "(count) (last-g 10) (last-g 40)))",
          "(2 (6.0 5.0 0.0) 1.0)"},
         {"(progn (command \"_.-INSERT\" \"VANNE\" '(0 0) 1 1 0 \"_.-INSERT\" \"*VANNE\" '(0 0) 2 0) (list (count) "
          "(last-g 0) (last-g 40)))",
          "(5 \"CIRCLE\" 2.0)"},
         // a block that would contain itself
         {"(vl-cmdf \"_.-BLOCK\" \"VANNE\" \"_Y\" '(0 0) (ssget \"X\" '((0 . \"INSERT\"))) \"\")", "nil"},
         {"(progn (command \"_.-BLOCK\" \"VANNE\" \"_Y\" '(0 0) (circle '(0. 0. 0.) 9.) \"\") (g 40 (cdr (assoc -2 "
          "(tblsearch \"BLOCK\" \"VANNE\")))))",
          "9.0"},
         {"(progn (command \"_.U\") (g 0 (cdr (assoc -2 (tblsearch \"BLOCK\" \"VANNE\")))))", "\"LINE\""}});
}

TEST_F(Commands, KeepQuietWithoutEcho) {
  session.transcript();
  run("(command \"_.LINE\" '(0 0) '(1 1) \"\")");
  EXPECT_NE(session.transcript().find("Point suivant"), std::string::npos);
  run("(progn (setvar \"CMDECHO\" 0) (command \"_.LINE\" '(0 0) '(1 1) \"\"))");
  EXPECT_EQ(session.transcript(), "");
}

TEST_F(Commands, ComeFromTheCommandLine) {
  const std::string seen = session.feed("LIGNE 0,0 5,0\n5,5\n\nZOOM E\nNUAGE\n");
  EXPECT_EQ(run("(count)"), "2");
  EXPECT_EQ(run("(rtos (getvar \"VIEWSIZE\") 2 2)"), "\"5.10\"");
  EXPECT_NE(seen.find("Commande inconnue \"NUAGE\"."), std::string::npos);
  EXPECT_EQ(session.document().failures(), 1);
  session.feed("QUIT\nO\nLIGNE 0,0 1,1\n\n");
  EXPECT_EQ(run("(count)"), "2");
}

TEST_F(Commands, SaveAndRunScripts) {
  const std::filesystem::path folder = std::filesystem::path(testing::TempDir()) / "kavel_commandes";
  std::filesystem::create_directories(folder);
  const std::string file = (folder / "un deux.dxf").string(), script = (folder / "trait.scr").string();
  std::filesystem::remove(file);
  run("(progn (line '(0. 0. 0.) '(1. 0. 0.)) (command \"_.SAVEAS\" \"" + file + "\"))");
  EXPECT_EQ(run("(list (getvar \"DWGNAME\") (getvar \"DBMOD\"))"), "(\"un deux.dxf\" 0)");
  run("(progn (line '(0. 0. 0.) '(2. 0. 0.)) (command \"_.QSAVE\"))");
  Session again(false, file);
  again.eval(kTools);
  EXPECT_EQ(again.eval("(count)"), "2");
  // A new drawing, saved and opened again, shows all its contents.
  EXPECT_EQ(
      again.eval("(list (mapcar '(lambda (x) (rtos x 2 2)) (getvar \"VIEWCTR\")) (rtos (getvar \"VIEWSIZE\") 2 2))"),
      "((\"1.00\" \"0.00\" \"0.00\") \"1.64\")");
  run("(progn (setq f (open \"" + script + "\" \"w\")) (write-line \"LIGNE 0,0 7,0\\n\" f) (close f))");
  session.document().makeCurrent();
  session.feed("SCRIPT\n" + script + "\n");
  EXPECT_EQ(run("(last-g 11)"), "(7.0 0.0 0.0)");
}

}  // namespace kaveltest
