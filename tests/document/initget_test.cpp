// What (initget) accepts: its bits in every combination before each asking function, abbreviations of keywords, and
// answers that can be read in two ways.
#include "tests/support/bare_host.h"

namespace kaveltest {

class InitGet : public DrawingTest {
 protected:
  // The value of the question after these answers; the last one is always taken.
  std::string ask(const std::string& initget, const std::string& question, const std::string& answers) {
    session.feed("(progn (setq r 'rien) " + initget + " (setq r " + question + "))\n" + answers);
    const std::string value = run("r");
    session.document().makeCurrent();
    return value;
  }
};

// Bits 1, 2 and 4: no Enter, no zero, nothing negative. Answers come in this order until one is let through.
TEST_F(InitGet, BitsInEveryCombination) {
  const struct {
    const char* question;
    const char* zero;
    const char* negative;
    const char* positive;
    bool knowsSign;
  } rows[] = {{"(getint \"?\")", "0", "-3", "7", true},
              {"(getreal \"?\")", "0.0", "-3.0", "7.0", true},
              {"(getdist \"?\")", "0.0", "-3.0", "7.0", true}};
  for (const auto& row : rows)
    for (int bits = 0; bits < 8; ++bits) {
      const std::string initget = "(initget " + std::to_string(bits) + ")";
      SCOPED_TRACE(initget + row.question);
      EXPECT_EQ(ask(initget, row.question, "\n7\n"), bits & 1 ? row.positive : "nil");
      EXPECT_EQ(ask(initget, row.question, "0\n7\n"), bits & 2 ? row.positive : row.zero);
      EXPECT_EQ(ask(initget, row.question, "-3\n7\n"), bits & 4 ? row.positive : row.negative);
      EXPECT_EQ(ask(initget, row.question, "rien de tel\n7\n"), row.positive);
    }
}

// They hold for the next question only, and for it even when it fails.
TEST_F(InitGet, HoldsForOneQuestion) {
  session.feed("(progn (initget 7 \"Oui\") (setq a (getint \"?\")) (setq b (getint \"?\")))\n-1\n5\n-1\n");
  EXPECT_EQ(run("(list a b)"), "(5 -1)");
  session.feed("(progn (initget 1 \"Oui\") (setq a (vl-catch-all-apply 'getkword '(\"?\"))))\n");
  session.feed("(setq b (getint \"?\"))\n\n");
  EXPECT_EQ(run("b"), "nil");
}

TEST_F(InitGet, KeywordsByTheirAbbreviations) {
  const struct {
    const char* keywords;
    const char* answers;
    const char* value;
  } rows[] = {
      {"Oui Non", "oui\n", "\"Oui\""},
      {"Oui Non", "NON\n", "\"Non\""},
      {"Oui Non", "no\n", "\"Non\""},
      {"Oui Non", "noo\nn\n", "\"Non\""},
      {"Oui Non", "ouil\no\n", "\"Oui\""},
      {"LTYPE LAYER", "L\nLT\nLTYPE\n", "\"LTYPE\""},  // all capitals: only the whole
      {"LType LAyer", "l\nla\n", "\"LAyer\""},         // two letters at least
      {"eXit Entre", "x\n", "\"eXit\""},               // the capital inside
      {"eXit Entre", "exi\n", "\"eXit\""},
      {"Un1 Un2", "u2\n", "\"Un2\""},    // figures count as capitals
      {"Axes Axe", "axe\n", "\"Axe\""},  // the one that is meant in full
      {"Axe Axes", "axes\n", "\"Axes\""},
      {"Ligne Lignes", "LIGNES\n", "\"Lignes\""},
      {"Oui Non _Yes No", "y\n", "\"Yes\""},
      {"Oui Non _Yes No", "_yes\n", "\"Yes\""},
      {"Oui Non _Yes No", "_oui\nnon\n", "\"No\""},  // with an underscore only the English words
      {"  Oui   Non  ", "n\n", "\"Non\""},
      {"Oui Non", "\n", "nil"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ask(std::string("(initget \"") + row.keywords + "\")", "(getkword \"?\")", row.answers), row.value)
        << row.keywords << ' ' << row.answers;
}

// A keyword is taken before the answer is read in the question's own way; the rest is what bit 128 lets through.
TEST_F(InitGet, KeywordsBeforeValues) {
  run(kTools);
  run("(line '(0. 0. 0.) '(10. 0. 0.))");
  const struct {
    const char* initget;
    const char* question;
    const char* answers;
    const char* value;
  } rows[] = {
      {"(initget \"Fin\")", "(getint \"?\")", "fin\n", "\"Fin\""},
      {"(initget \"3D 2D\")", "(getint \"?\")", "3\n", "3"},
      {"(initget \"3D 2D\")", "(getint \"?\")", "3d\n", "\"3D\""},
      {"(initget 6 \"Fin\")", "(getreal \"?\")", "-2\nfin\n", "\"Fin\""},
      {"(initget \"Fin\")", "(getdist '(0. 0. 0.) \"?\")", "3,4\n", "5.0"},
      {"(initget \"Fin\")", "(getangle \"?\")", "f\n", "\"Fin\""},
      {"(initget \"Fin\")", "(getcorner '(0. 0. 0.) \"?\")", "fi\n", "\"Fin\""},
      {"(initget \"Fin\")", "(entsel \"?\")", "fin\n", "\"Fin\""},
      {"(initget \"Dernier\")", "(entsel \"?\")", "d\n", "\"Dernier\""},
      {"(initget 128)", "(getint \"?\")", "abc\n", "\"abc\""},
      {"(initget 128)", "(getint \"?\")", "12\n", "12"},
      {"(initget 128)", "(getreal \"?\")", "1,5\n", "\"1,5\""},
      {"(initget 128 \"Fin\")", "(getpoint \"?\")", "f\n", "\"Fin\""},
      {"(initget 128 \"Fin\")", "(getpoint \"?\")", "1,2\n", "(1.0 2.0 0.0)"},
      {"(initget 129)", "(getdist \"?\")", "\nR45\n", "\"R45\""},
      {"(initget 128)", "(getkword \"?\")", "quoi\n", "\"quoi\""},
      {"(initget 134)", "(getint \"?\")", "5\n", "5"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(ask(row.initget, row.question, row.answers), row.value) << row.initget << row.question << row.answers;
}

// Numbers and points at the limits of what is one.
TEST_F(InitGet, NumbersAtTheirLimits) {
  const struct {
    const char* question;
    const char* answers;
    const char* value;
  } rows[] = {
      {"(getint \"?\")", "32767\n", "32767"},
      {"(getint \"?\")", "99999999999\n5\n", "5"},
      {"(getint \"?\")", "+4\n", "4"},
      {"(getreal \"?\")", ".5\n", "0.5"},
      {"(getreal \"?\")", "-.5\n", "-0.5"},
      {"(getreal \"?\")", "nan\n2\n", "2.0"},
      {"(getreal \"?\")", "inf\n2\n", "2.0"},
      {"(getreal \"?\")", "0x10\n2\n", "2.0"},
      {"(getpoint \"?\")", "1,2,3,4\n5,6\n", "(5.0 6.0 0.0)"},
      {"(getpoint \"?\")", "1,\n5,6\n", "(5.0 6.0 0.0)"},
      {"(getpoint \"?\")", ",1\n5,6\n", "(5.0 6.0 0.0)"},
      {"(getpoint \"?\")", "10<<5\n10<0\n", "(10.0 0.0 0.0)"},
      {"(getpoint \"?\")", "inf<0\n10<inf\n5,6\n", "(5.0 6.0 0.0)"},
      {"(getpoint '(1. 1. 0.) \"?\")", "@\n", "(1.0 1.0 0.0)"},
      {"(getpoint '(1. 1. 5.) \"?\")", "@1,1,1\n", "(2.0 2.0 6.0)"},
      {"(getpoint '(1. 1. 0.) \"?\")", "2<90\n", "(0.0 2.0 0.0)"},
      {"(rtos (getangle '(0. 0. 0.) \"?\") 2 6)", "0,-5\n", "\"4.712389\""},
      {"(getdist \"?\")", "(/ 5 2.0)\n", "2.5"},
      {"(getpoint \"?\")", "inf,0\n5,6,7\n", "(5.0 6.0 7.0)"},
      {"(getdist '(0. 0. 0.) \"?\")", "(list 3 4)\n", "5.0"},
      {"(progn (setq n 0) (getdist '(0. 0. 0.) \"?\") n)", "(list (setq n (1+ n)) 4)\n", "1"},
      {"(rtos (getangle \"?\") 2 6)", "(* 2 45)\n", "\"1.570796\""},
      {"(getdist \"?\")", "(/ 5 0)\n3\n", "3.0"},
      {"(getint \"?\")", "\"5\"\n6\n", "6"},
  };
  for (const auto& row : rows) {
    std::string value = ask("", row.question, row.answers);
    if (value.find("e-") != value.npos) value = run("(mapcar '(lambda (x) (atof (rtos x 2 6))) r)");
    EXPECT_EQ(value, row.value) << row.question << row.answers;
  }
}

}  // namespace kaveltest
