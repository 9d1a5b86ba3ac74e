// Ground files: separators, headers, columns, decimal commas, order and repetitions; a line at fault names itself.
#include <gtest/gtest.h>

#include <fstream>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

struct Row {
  const char* text;
  const char* expression;  // of r, what plv-lire-terrain gave
  const char* printed;
};

TEST(GroundFile, FormsThatAreRead) {
  const Row rows[] = {
      {"0,10.5\n10,11\n", "(plv-cle 'points r)", "((0.0 10.5 \"\") (10.0 11.0 \"\"))"},
      {"distance;altitude;observation\n0;10;Regard\n5,5;10,25;\n", "(plv-cle 'points r)",
       "((0.0 10.0 \"Regard\") (5.5 10.25 \"\"))"},
      {"0\t1.5\n2\t1.75\n", "(mapcar 'cadr (plv-cle 'points r))", "(1.5 1.75)"},
      {"  0   1,5\r\n  2   1,75\r\n", "(mapcar 'cadr (plv-cle 'points r))", "(1.5 1.75)"},
      {"x,y,z\n0,0,5\n3,4,6\n3,16,7\n", "(mapcar 'car (plv-cle 'points r))", "(0.0 5.0 17.0)"},
      {"0 0 5 A\n3 4 6 B\n", "(plv-cle 'points r)", "((0.0 5.0 \"A\") (5.0 6.0 \"B\"))"},
      {"A;0;0;5\nB;3;4;6\n", "(plv-cle 'points r)", "((0.0 5.0 \"A\") (5.0 6.0 \"B\"))"},
      {"altitude;pk\n7;100\n8;120\n", "(list (plv-cle 'origine r) (mapcar 'car (plv-cle 'points r)))",
       "(100.0 (0.0 20.0))"},
      {"# survey\n\n0,1\n20,3\n10,2\n", "(mapcar 'cadr (plv-cle 'points r))", "(1.0 2.0 3.0)"},
      {"0,1\n10,2\n10,2\n", "(length (plv-cle 'points r))", "2"},
      {"0,1\n10,2\n10,3\n20,3\n", "(length (plv-cle 'points r))", "4"},
  };
  for (const Row& row : rows) {
    FrontEnd session;
    session.file("g.csv", row.text);
    session.eval("(setq r (plv-lire-terrain \"" + session.path("g.csv") + "\"))");
    EXPECT_EQ(session.eval(row.expression), row.printed) << row.text;
  }
}

TEST(GroundFile, FaultsAreNamedAndNothingIsMade) {
  const Row rows[] = {
      {"0,1\n10,deux\n20,3\n", "", "ligne 2 illisible: \"10,deux\""},
      {"0;1\n10\n", "", "ligne 2 illisible: \"10\""},
      {"", "", "deux points au moins"},
      {"distance;altitude\n", "", "deux points au moins"},
      {"5,1\n5,2\n", "", "la même distance"},
  };
  for (const Row& row : rows) {
    FrontEnd session;
    session.file("g.csv", row.text);
    session.transcript();
    EXPECT_EQ(session.eval("(plv-nouveau \"" + session.path("g.csv") + "\" nil nil nil nil nil nil)"), "nil")
        << row.text;
    EXPECT_NE(session.transcript().find(row.printed), std::string::npos) << row.text;
    EXPECT_EQ(session.eval("(entlast)"), "nil") << "something was drawn";
  }
  FrontEnd session;
  EXPECT_EQ(session.eval("(plv-nouveau \"/no/such/file.csv\" nil nil nil nil nil nil)"), "nil");
  EXPECT_NE(session.transcript().find("fichier introuvable: /no/such/file.csv"), std::string::npos);
}

}  // namespace
