// Functions that ask: answers and transcripts.
#include "tests/support/bare_host.h"

namespace kaveltest {

using Prompts = DrawingTest;

TEST_F(Prompts, AnswersBecomeValues) {
  run(kTools);
  run("(line '(0. 0. 0.) '(10. 0. 0.))");
  struct {
    const char* asked;
    const char* answers;
    const char* value;
  } const rows[] = {
      {"(getpoint \"P\")", "1.5,-2\n", "(1.5 -2.0 0.0)"},
      {"(getpoint '(1. 1. 0.) \"P\")", "@2,3\n", "(3.0 4.0 0.0)"},
      {"(getpoint '(1. 1. 0.) \"P\")", "@10<0\n", "(11.0 1.0 0.0)"},
      {"(getpoint \"P\")", "(list 1 2)\n", "(1.0 2.0 0.0)"},
      {"(getpoint \"P\")", "\n", "nil"},
      {"(getdist \"D\")", "2.5\n", "2.5"},
      {"(getdist '(0. 0. 0.) \"D\")", "3,4\n", "5.0"},
      {"(getdist \"D\")", "0,0\n3,4\n", "5.0"},
      {"(rtos (getangle \"A\") 2 4)", "90\n", "\"1.5708\""},
      {"(getint \"N\")", "2.5\nx\n7\n", "7"},
      {"(getreal \"N\")", "1e2\n", "100.0"},
      {"(getreal \"N\")", "1e400\n-1e999\n7\n", "7.0"},
      {"(getpoint \"P\")", "1e400,2\n3,4\n", "(3.0 4.0 0.0)"},
      {"(list (atof \"1e400\") (atof \"-1e400\") (atof \"1e-400\") (read \"1e400\"))", "", "(inf -inf 0.0 inf)"},
      {"(list (distof \"1e400\") (distof \"1e-400\") (distof \"1e308\"))", "", "(nil 0.0 1.0e+308)"},
      {"(getstring \"T\")", "un deux\n", "\"un\""},
      {"(getstring T \"T\")", "un deux\n", "\"un deux\""},
      {"(progn (initget 1 \"Oui Non\") (getkword \"?\"))", "\npeut-être\nn\n", "\"Non\""},
      {"(progn (initget \"Oui Non _Yes No\") (getkword \"?\"))", "o\n", "\"Yes\""},
      {"(progn (initget \"Oui Non _Yes No\") (getkword \"?\"))", "_n\n", "\"No\""},
      {"(progn (initget 6) (getint \"N\"))", "0\n-1\n2\n", "2"},
      {"(progn (initget \"Fin\") (getpoint \"P\"))", "f\n", "\"Fin\""},
      {"(progn (initget 128) (getpoint \"P\"))", "R45\n", "\"R45\""},
      {"(equal (entsel) (list (entlast) '(5.0 0.0 0.0)))", "5,0\n", "T"},
      {"(list (entsel) (getvar \"ERRNO\"))", "5,900\n", "(nil 7)"},
      {"(list (entsel) (getvar \"ERRNO\"))", "\n", "(nil 52)"},
      {"(eq (car (entsel)) (entlast))", "D\n", "T"},
      {"(getfiled \"Titre\" \"essai\" \"txt\" 1)", "\n", "\"essai.txt\""},
      {"(grread)", "4,5\n", "(3 (4.0 5.0 0.0))"},
  };
  for (const auto& row : rows) {
    session.feed(std::string("(setq r ") + row.asked + ")\n" + row.answers);
    EXPECT_EQ(run("r"), row.value) << row.asked << " " << row.answers;
  }
}

TEST_F(Prompts, EndOfTheInputCancels) {
  const std::string seen = session.feed("(getint \"\\nNombre: \")\n");
  EXPECT_NE(seen.find("Function cancelled"), std::string::npos) << seen;
  EXPECT_EQ(session.document().failures(), 1);
  EXPECT_EQ(run("(vl-catch-all-error-message (vl-catch-all-apply 'getpoint '(\"P\")))"), "\"Function cancelled\"");
}

TEST_F(Prompts, Transcript) {
  EXPECT_EQ(session.feed("(progn (setq n (getint \"\\nNombre: \")) (princ n) (princ))\nx\n3\n"),
            "\nCommande: (progn (setq n (getint \"\\nNombre: \")) (princ n) (princ))\n"
            "\nNombre: x\n\nUn entier est attendu.\nNombre: 3\n3");
}

TEST_F(Prompts, WordsBehindACommandAnswerIt) {
  run("(defun c:double (/ n) (setq r (* 2 (getint \"\\nN: \"))) (princ))");
  session.feed("double 21\n");
  EXPECT_EQ(run("r"), "42");
}

TEST_F(Prompts, NestedPickDescendsIntoBlocks) {
  run("(progn (entmake '((0 . \"BLOCK\") (2 . \"B\") (70 . 0) (10 0. 0. 0.)))"
      " (entmake '((0 . \"LINE\") (10 0. 0. 0.) (11 10. 0. 0.))) (entmake '((0 . \"ENDBLK\")))"
      " (entmake '((0 . \"INSERT\") (2 . \"B\") (10 100. 0. 0.) (41 . 2.) (42 . 2.))))");
  session.feed("(setq r (nentsel))\n105,0\n");
  EXPECT_EQ(run("(cdr (assoc 0 (entget (car r))))"), "\"LINE\"");
  EXPECT_EQ(run("(caddr r)"), "((2.0 0.0 0.0) (0.0 2.0 0.0) (0.0 0.0 1.0) (100.0 0.0 0.0))");
  EXPECT_EQ(run("(eq (car (cadddr r)) (entlast))"), "T");
}

}  // namespace kaveltest
