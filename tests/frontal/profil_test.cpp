// PLV-NOUVEAU and PLV-MATRICES: what they store, what the module reads back, what they draw.
#include <gtest/gtest.h>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

// A ground with a drop that asks for a second plane at the given height limit.
constexpr const char* kGround = "distance;altitude;nom\n100;50;A\n110;51;\n120;49.5;B\n130;37.5;\n150;36;C\n";

class Profile : public FrontEnd {
 public:
  explicit Profile(const char* ground = kGround) {
    file("g.csv", ground);
    eval("(setq p (plv-nouveau \"" + path("g.csv") + "\" \"12\" '(1000.0 500.0 0.0) 10.0 2.5 150.0 nil))");
    transcript();
  }
};

TEST(NewProfile, IsStoredAsTheModuleReadsIt) {
  Profile session;
  const struct {
    const char* expression;
    const char* printed;
  } rows[] = {
      {"(pl_InfosTn p)", "(5.0 50.0 0.0)"},
      {"(pl_PointTn p 3)", "(30.0 37.5 0.0)"},
      {"(plgxd p \"ECHV\")", "10.0"},
      {"(plgxd p \"DCUMDEB\")", "100.0"},
      {"(plgxd p \"ID\")", "1"},
      {"(plv-numero-profil p)", "\"12\""},
      // two planes, chained, that cover the length
      {"(mapcar 'car (plv-plans p))", "(0.0 30.0)"},
      {"(plgxd (plgxd (plgxd p \"PRPC\") \"NEXT-PC\") \"DISTANCE\")", "20.0"},
      {"(plgxd (plgxd (plgxd p \"PRPC\") \"NEXT-PC\") \"NEXT-PC\")", "nil"},
      // the first section has three ground lines, the last of which ends the chain
      {"(plgxd (plgxd (plgxd (plgxd (plgxd p \"PRPC\") \"PRLI\") \"NEXTLI\") \"NEXTLI\") \"NEXTLI\")", "nil"},
      {"(length (vl-remove nil (mapcar '(lambda (k) (plgxd p k)) (plv-cles-genres))))", "7"},
      {"(plv-noms-tn p)", "(\"A\" \"\" \"B\" \"\" \"C\")"},
  };
  for (const auto& row : rows) EXPECT_EQ(session.eval(row.expression), row.printed) << row.expression;
}

TEST(NewProfile, DrawsTheGroundInEachSection) {
  Profile session;
  // The one line of the second section: from (30, 37.5) to (50, 36) over its own plane.
  session.eval("(setq pc (plgxd (plgxd p \"PRPC\") \"NEXT-PC\") l (entget (plgxd pc \"PRLI\")))");
  EXPECT_EQ(
      session.eval("(equal (cdr (assoc 10 l)) (list 1030.0 (+ 500.0 (* 10.0 (- 37.5 (plgxd pc \"PC\")))) 0.0) 1e-9)"),
      "T");
  EXPECT_EQ(
      session.eval("(equal (cdr (assoc 11 l)) (list 1050.0 (+ 500.0 (* 10.0 (- 36.0 (plgxd pc \"PC\")))) 0.0) 1e-9)"),
      "T");
}

TEST(NewProfile, IsPickedByTheWordsOfItsTitle) {
  Profile session;
  for (const char* label : {"TITRE", "NUMPL"}) {
    session.eval(std::string("(setq a (plv-attribut-profil p \"") + label + "\") c (cdr (assoc 10 a)))");
    EXPECT_EQ(session.eval("(eq p (ssname (ssget (mapcar '+ c '(1.0 1.0 0.0))) 0))"), "T") << label;
  }
  // The number stands behind the words.
  EXPECT_EQ(session.eval("(< (cadr (assoc 10 (plv-attribut-profil p \"TITRE\"))) (car c))"), "T");
}

TEST(NewProfile, RefusesWhatCannotBe) {
  Profile session;
  const std::string ground = session.path("g.csv");
  const struct {
    std::string call;
    const char* message;
  } rows[] = {
      {"(plv-nouveau \"" + ground + "\" \"12\" nil nil nil nil nil)", "déjà un profil numéro 12"},
      {"(plv-nouveau \"" + ground + "\" \"2\" nil -1.0 nil nil nil)", "nombres positifs"},
      {"(plv-nouveau \"" + ground + "\" \"2\" nil nil nil nil '((5.0 10.0)))", "commence à la distance 0"},
      {"(plv-nouveau \"" + ground + "\" \"2\" nil nil nil nil '((0.0 10.0) (60.0 9.0)))",
       "une distance dans le profil"},
  };
  const std::string last = session.eval("(entlast)");
  for (const auto& row : rows) {
    EXPECT_EQ(session.eval(row.call), "nil") << row.call;
    EXPECT_NE(session.transcript().find(row.message), std::string::npos) << row.call;
  }
  EXPECT_EQ(session.eval("(entlast)"), last);
}

TEST(NewProfile, AsksForWhatItNeeds) {
  FrontEnd session;
  session.file("g.csv", kGround);
  const std::string shown =
      session.feed("PLV-NOUVEAU\n" + session.path("g.csv") + "\n7\n10,20\n\n\n\nS\n25\n20\n12\n\n");
  for (const char* prompt :
       {"\nFichier du terrain naturel: ", "\nNuméro du profil <1>: ", "\nPoint d'insertion <0,0>: ",
        "\nÉchelle verticale <10.00>: ", "\nHauteur de texte <2.50>: ", "\nHauteur dessinée maximale <150.00>: ",
        "\nPlans de comparaison [Automatiques/Saisis] <Automatiques>: ", "\nAltitude du plan à partir de 0.00: "})
    EXPECT_NE(shown.find(prompt), std::string::npos) << prompt << "\n" << shown;
  EXPECT_EQ(session.eval("(plv-plans (plv-profil-de-numero \"7\"))"), "((0.0 25.0) (20.0 12.0))");
}

TEST(Tables, AreFilledAndReplaced) {
  Profile session;
  session.file("t.txt",
               "T - 2.0 0 Numero\nT - 6.0 4 Altitude TN\nT - 2.5 2 Partielles\nT - 5.0 3 Cumulees\nT - 2 10 Reperes\nT "
               "- 16 8 Obs\n");
  const std::string draw = "(plv-matrices p \"" + session.path("t.txt") + "\" T)";
  ASSERT_NE(session.eval(draw), "nil");
  const auto count = [&](const char* text) {
    return session.eval(std::string("(if (setq s (ssget \"X\" '((0 . \"TEXT\") (1 . \"") + text +
                        "\")))) (sslength s) 0)");
  };
  EXPECT_EQ(count("49.50"), "1");
  EXPECT_EQ(count("150.00"), "1") << "a cumulated distance starts from the first station";
  EXPECT_EQ(count("PK 0+100.00"), "1") << "station of the first named point";
  EXPECT_EQ(count("B"), "1");
  const std::string entities = session.eval("(sslength (ssget \"X\"))");
  ASSERT_NE(session.eval(draw), "nil");
  EXPECT_EQ(session.eval("(sslength (ssget \"X\"))"), entities) << "the old table is still there";
  // rules reach the end of the profile
  session.eval(
      "(setq r (plv-references-tables p) r (vl-remove-if-not '(lambda (g) (= (car g) 330))"
      " (member '(100 . \"AcDbXrecord\") (dictsearch (plv-dictionnaire (car r)) \"INFO_MATRICE\"))) r (entget (cdr "
      "(cadr r))))");
  EXPECT_EQ(session.eval("(list (cdr (assoc 0 r)) (distance (cdr (assoc 10 r)) (cdr (assoc 11 r))))"),
            "(\"LINE\" 52.5)")
      << "the rules end one text height behind the profile";
}

TEST(Tables, WeedWhatStandsTooClose) {
  std::string ground = "d,z\n";
  for (int i = 0; i <= 100; ++i) ground += std::to_string(i) + "," + std::to_string(10 + i % 3) + "\n";
  Profile session(ground.c_str());
  session.file("t.txt", "T - 6.0 4 Altitude TN\n");
  ASSERT_NE(session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" nil)"), "nil");
  // 1.3 text heights are 3.25 m: every fourth point, and both ends
  const std::string said = session.transcript();
  EXPECT_NE(said.find("26 points cotés, 75 laissés"), std::string::npos) << said;
  ASSERT_NE(session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)"), "nil");
  EXPECT_NE(session.transcript().find("101 points cotés."), std::string::npos);
}

TEST(Tables, SurviveSavingAndReopening) {
  Profile session;
  session.file("t.txt", "T - 6.0 4 Altitude TN\nT - 6.0 1 Numero\n");
  ASSERT_NE(session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)"), "nil");
  session.document().save(session.path("a.dxf"));
  atelier::OpenDrawing again({}, session.path("a.dxf"));
  std::string printed;
  again.addSupport(KAVEL_SOURCE "/frontal");
  ASSERT_TRUE(again.evaluate("(load \"kavel.lsp\")"));
  ASSERT_TRUE(again.evaluate(
      "(progn (pl_ChoixProfil (setq p (plv-profil-de-numero \"12\"))) (list (pl_SelectMatrice 0) (pl_SelectLigne 0 1)"
      " (pl_textlignemat) (pl_nblignesmat) (pl_TexteVertical 12.5 \"essai\") (cdr (assoc 1 (entget (entlast))))))",
      &printed));
  EXPECT_EQ(printed, "(T T \"Numero\" 2 T \"essai\")");
}

TEST(Audit, NamesWhatIsBrokenInTheRecords) {
  const struct {
    const char* damage;
    const char* code;  // "" for none
  } rows[] = {
      {"nil", ""},
      {"(entdel (plgxd p \"HTN\"))", "P02"},
      {"(entdel (plgxd (plgxd p \"PRPC\") \"PRLI\"))", "P02"},
      {"(plsxd (plgxd (plgxd p \"PRPC\") \"NEXT-PC\") \"NEXT-PC\" (plgxd p \"PRPC\"))", "P03"},
      {"(plsxd (plgxd (plgxd p \"PRPC\") \"PRLI\") \"NEXTLI\" (plgxd (plgxd p \"PRPC\") \"PRLI\"))", "P03"},
      {"(plsxd p \"PRPC\" 5)", "P02"},
      {"(entdel (car (plv-references-tables p)))", "P06"},
      {"(entmod (append (vl-remove-if '(lambda (g) (= (car g) -3)) (entget p)) '((-3 (\"KELMONT_PLV2\")))))", "P05"},
  };
  for (const auto& row : rows) {
    Profile session;
    session.file("t.txt", "T - 6.0 4 Altitude TN\n");
    session.eval("(plv-matrices p \"" + session.path("t.txt") + "\" T)");
    session.eval(row.damage);
    session.transcript();
    const std::string found = session.eval("(plv-audit)"), said = session.transcript();
    EXPECT_EQ(found == "0", std::string(row.code).empty()) << row.damage << said;
    EXPECT_NE(said.find(row.code), std::string::npos) << row.damage << said;
  }
}

}  // namespace
