// LandXML through its doors: landxml-lire, PLV-NOUVEAU, PLV-PROJET and PLV-EXPORT, on small files.
#include <gtest/gtest.h>

#include <cmath>

#include "tests/frontal/front_end.h"

namespace {

using kaveltest::FrontEnd;

std::string landXml(const std::string& profile, const std::string& unit = "<Metric linearUnit=\"meter\"/>") {
  return "<?xml version=\"1.0\"?>\n<LandXML version=\"1.2\"><Units>" + unit +
         "</Units><Alignments>\n<Alignment name=\"Rue A\" staStart=\"100\"><Profile>\n" + profile +
         "\n</Profile></Alignment></Alignments></LandXML>\n";
}

const std::string kGround =
    "<ProfSurf name=\"TN\" state=\"existing\"><PntList2D>100 50 160 51 200 50</PntList2D></ProfSurf>";

std::string line(const std::string& vertices) { return "<ProfAlign name=\"Axe\">\n" + vertices + "</ProfAlign>"; }

std::string project(const std::string& vertices) { return kGround + line(vertices); }

class Exchange : public FrontEnd {
 public:
  std::string read(const std::string& text, const std::string& expression) {
    file("a.xml", text);
    return eval("(progn (setq lu (landxml-lire \"" + path("a.xml") + "\") axe (car (plv-cle 'axes lu))) " + expression +
                ")");
  }
  std::string create(const std::string& text) {
    file("a.xml", text);
    return eval("(setq p (plv-nouveau \"" + path("a.xml") + "\" nil nil nil nil nil nil))");
  }
};

const char* const kVertices = "(plv-cle 'sommets (car (plv-cle 'projets axe)))";

TEST(LandXml, ReadsEveryFormOfVertex) {
  const struct {
    const char* vertices;
    const char* printed;
  } rows[] = {
      {"<PVI>100 50</PVI><PVI>200 52</PVI>", "((100.0 50.0) (200.0 52.0))"},
      {"<PVI>100 50</PVI><ParaCurve length='20'>150 51</ParaCurve><PVI>200 50</PVI>",
       "((100.0 50.0) (150.0 51.0 \"P\" 20.0) (200.0 50.0))"},
      {"<PVI>100 50</PVI><UnsymParaCurve lengthIn='10' lengthOut='30'>150 51</UnsymParaCurve><PVI>200 50</PVI>",
       "((100.0 50.0) (150.0 51.0 \"U\" 10.0 30.0) (200.0 50.0))"},
      // the sign of a radius says nothing
      {"<PVI>100 50</PVI><CircCurve length='20' radius='-500'>150 51</CircCurve><PVI>200 50</PVI>",
       "((100.0 50.0) (150.0 51.0 \"C\" 500.0 20.0) (200.0 50.0))"},
      // the same station twice, a curve without length, a curve in a straight grade
      {"<PVI>100 50</PVI><ParaCurve length='0'>150 51</ParaCurve><PVI>200 50</PVI><PVI>200 50</PVI>",
       "((100.0 50.0) (150.0 51.0) (200.0 50.0))"},
      {"<PVI>100 50</PVI><ParaCurve length='20'>150 51</ParaCurve><PVI>200 52</PVI>",
       "((100.0 50.0) (150.0 51.0) (200.0 52.0))"},
      // other programs' elements and prefixes are passed over
      {"<Feature/><x:PVI xmlns:x='u'>100 50</x:PVI><PVI>200 52<Feature/></PVI>", "((100.0 50.0) (200.0 52.0))"},
  };
  Exchange session;
  for (const auto& row : rows)
    EXPECT_EQ(session.read(landXml(project(row.vertices)), kVertices), row.printed) << row.vertices;
}

TEST(LandXml, ACircleWithoutRadiusTakesItFromItsArc) {
  Exchange session;
  const std::string vertices = "<PVI>100 50</PVI><CircCurve length='20'>150 55</CircCurve><PVI>200 50</PVI>";
  // an arc of 20 m over twice atan 0.1
  EXPECT_EQ(session.read(landXml(project(vertices)),
                         "(rtos (nth 3 (cadr (plv-cle 'sommets (car (plv-cle 'projets axe))))) 2 6)"),
            "\"100.332449\"");
}

TEST(LandXml, ConvertsUnits) {
  const struct {
    const char* unit;
    const char* station;
    const char* level;
  } rows[] = {{"<Metric linearUnit='meter'/>", "160.0", "51.0"},
              {"<Metric linearUnit='kilometer' elevationUnit='meter'/>", "160000.0", "51.0"},
              {"<Imperial linearUnit='foot'/>", "48.768", "15.5448"},
              {"<Imperial linearUnit='USSurveyFoot'/>", "48.7680975362", "15.5448310897"}};
  Exchange session;
  const std::string point = "(cadr (car (plv-cle 'troncons (car (plv-cle 'terrains axe)))))";
  for (const auto& row : rows)
    EXPECT_EQ(
        session.read(landXml(kGround, row.unit), "(list (equal (car " + point + ") " + row.station +
                                                     " 1e-9) (equal (cadr " + point + ") " + row.level + " 1e-9))"),
        "(T T)")
        << row.unit;
}

TEST(LandXml, ErrorsNameAlignmentElementAndStation) {
  const struct {
    std::string text;
    const char* message;
  } rows[] = {
      {landXml("<ProfSurf name='TN'><PntList2D>100 50 160 x51</PntList2D></ProfSurf>"),
       "a.xml:4: axe \"Rue A\", terrain \"TN\": PntList2D, station 160.000: nombre illisible \"x51\""},
      {landXml("<ProfSurf name='TN'><PntList2D>100 50 160</PntList2D></ProfSurf>"),
       "a.xml:4: axe \"Rue A\", terrain \"TN\": PntList2D, station 160.000: nombre impair de valeurs"},
      {landXml(line("<PVI>100 50</PVI>\n<ParaCurve length='80'>150 51</ParaCurve>\n<ParaCurve length='40'>170 "
                    "50</ParaCurve>\n<PVI>200 52</PVI>")),
       "a.xml:7: axe \"Rue A\", ligne de projet \"Axe\": ParaCurve, station 170.000: les raccordements se chevauchent "
       "de 40.000 m"},
      {landXml(line("<PVI>100 50</PVI>\n<CircCurve radius='9000'>110 51</CircCurve>\n<PVI>200 52</PVI>")),
       "a.xml:6: axe \"Rue A\", ligne de projet \"Axe\": CircCurve, station 110.000: les raccordements se chevauchent"},
      {landXml(line("<PVI>100 50</PVI><PVI>90 51</PVI>")), "PVI, station 90.000: la station ne va pas en croissant"},
      {landXml(line("<ParaCurve length='10'>100 50</ParaCurve><PVI>190 51</PVI>")),
       "ParaCurve, station 100.000: raccordement au premier"},
      {landXml(line("<PVI>100 50 3 4</PVI><PVI>190 51</PVI>")), "PVI: une station et une altitude attendues"},
      {landXml(line("<PVI>100 50</PVI><ParaCurve length='-3'>150 50</ParaCurve><PVI>190 51</PVI>")),
       "ParaCurve, station 150.000: length negatif"},
      {landXml(line("<PVI>100 50</PVI><ParaCurve length='3m'>150 50</ParaCurve><PVI>190 51</PVI>")),
       "ParaCurve, station 150.000: length: nombre illisible \"3m\""},
      {landXml(line("<PVI>100 nan</PVI><PVI>190 51</PVI>")), "nombre illisible \"nan\""},
      {landXml(line("<PVI>100 1e300</PVI><PVI>190 51</PVI>")), "PVI, station 100.000: valeur hors limites: 1e300"},
      {landXml(line("<PVI>100 50</PVI>")), "deux sommets au moins"},
      {landXml(kGround, "<Imperial linearUnit='cubit'/>"), "unité de longueur inconnue: \"cubit\""},
      {"<LandXML><Alignments></LandXML>", "a.xml:1: XML mal formé"},
      {"<autre/>", "élément LandXML attendu, trouvé autre"},
      {"<LandXML/>", "aucun axe"},
      {"", "XML mal formé"},
  };
  Exchange session;
  for (const auto& row : rows) {
    EXPECT_EQ(session.create(row.text), "nil") << row.message;
    EXPECT_NE(session.transcript().find(row.message), std::string::npos) << row.message;
    EXPECT_EQ(session.eval("(plv-profils)"), "nil") << row.message;
  }
}

// A fault costs the ground or the line where it stands: it is told, and the rest of the file is taken.
TEST(LandXml, WhatIsGoodIsTakenWhateverElseTheFileHolds) {
  const std::string good = "<ProfAlign name=\"Voirie\"><PVI>100 51</PVI><PVI>200 52</PVI></ProfAlign>";
  const struct {
    std::string other;
    const char *told, *lines;
  } rows[] = {
      {"<ProfAlign name='Axe'><PVI>100 50</PVI><ParaCurve length='80'>150 51</ParaCurve><ParaCurve length='40'>170 "
       "50</ParaCurve><PVI>200 "
       "52</PVI></ProfAlign>",
       "station 170.000: les raccordements se chevauchent de 40.000 m", "((\"Axe\" T 4) (\"Voirie\" nil 2))"},
      {"<ProfAlign name='Axe'><PVI>100 50</PVI><PVI>90 51</PVI></ProfAlign>", "la station ne va pas en croissant",
       "((\"Voirie\" nil 2))"},
      {"<ProfAlign name='Axe'/>", "ligne de projet \"Axe\": aucun sommet", "((\"Voirie\" nil 2))"},
      {"<ProfSurf name='Roc'><PntList2D>100 49 200</PntList2D></ProfSurf>",
       "terrain \"Roc\": PntList2D, station 200.000: nombre impair de valeurs", "((\"Voirie\" nil 2))"},
      {"<ProfSurf name='Roc'><PntList2D/></ProfSurf>", "terrain \"Roc\": aucun point", "((\"Voirie\" nil 2))"},
  };
  for (const auto& row : rows) {
    Exchange session;
    EXPECT_NE(session.create(landXml(row.other + kGround + good)), "nil") << row.told;
    const std::string told = session.transcript();
    EXPECT_NE(told.find("Laissé: "), std::string::npos) << told;
    EXPECT_NE(told.find(row.told), std::string::npos) << told;
    EXPECT_EQ(session.eval("(list (length (plv-points-tn p)) (length (plv-elements-du-projet p \"Voirie\")) (length "
                           "(plv-elements-du-projet p "
                           "\"Projet\")))"),
              "(3 1 0)")
        << told;
    EXPECT_EQ(session.read(landXml(row.other + kGround + good),
                           "(mapcar '(lambda (l) (list (plv-cle 'nom l) (plv-cle 'nu l) (length (plv-cle 'sommets "
                           "l)))) (plv-cle 'projets axe))"),
              row.lines);
  }
}

TEST(LandXml, AFileWithoutAlignmentsSaysWhatItHas) {
  Exchange session;
  EXPECT_EQ(session.create("<LandXML><Units/><Surfaces/><CgPoints/></LandXML>"), "nil");
  EXPECT_NE(
      session.transcript().find(
          "aucun axe (élément Alignment); le fichier contient Surfaces, CgPoints: PLV-TERRAIN prend ses surfaces"),
      std::string::npos);
}

TEST(LandXml, CurvesThatTouchMayOverlapByTheRoundingOfNumbers) {
  Exchange session;
  const std::string vertices =
      "<PVI>100 50</PVI><ParaCurve length='40.002'>140 51</ParaCurve><ParaCurve length='40'>180 50</ParaCurve><PVI>200 "
      "52</PVI>";
  EXPECT_NE(session.create(landXml(project(vertices))), "nil");
  EXPECT_EQ(session.eval("(length (plv-elements-du-projet p \"Projet\"))"), "4") << session.transcript();
}

TEST(LandXml, AGapInTheGroundIsCrossedStraightAndSaid) {
  Exchange session;
  EXPECT_NE(
      session.create(landXml(
          "<ProfSurf name='TN'><PntList2D>100 50 120 51</PntList2D><PntList2D>140 53 200 50</PntList2D></ProfSurf>")),
      "nil");
  EXPECT_NE(session.transcript().find("Terrain absent entre les stations 120.00 et 140.00"), std::string::npos);
  // A change of plane in the gap adds a ground point there, which doesn't leave.
  session.eval("(progn (plv-pc p \"A\" 130.0 45.0) (plv-export-landxml (list p) \"" + session.path("b.xml") + "\"))");
  EXPECT_EQ(session.eval("(plv-cle 'troncons (car (plv-cle 'terrains (car (plv-cle 'axes (landxml-lire \"" +
                         session.path("b.xml") + "\"))))))"),
            "(((100.0 50.0) (120.0 51.0)) ((140.0 53.0) (200.0 50.0)))")
      << session.transcript();
}

TEST(LandXml, AProjectLineIsCutAtTheEndsOfTheProfile) {
  Exchange session;
  // the end of the ground, 200, lies inside the second curve
  session.create(
      landXml(project("<PVI>80 49</PVI><ParaCurve length='40'>150 52.5</ParaCurve><CircCurve radius='500' "
                      "length='0'>205 49</CircCurve><PVI>260 52</PVI>")));
  session.eval("(defun z (d) (plv-reel (plv-altitude-projet p (plv-elements-situes p \"Projet\") (plv-plans p) d) 4))");
  EXPECT_EQ(session.eval("(mapcar 'z '(0.0 20.0 50.0))"), "(\"50.0000\" \"51.0000\" \"51.9318\")")
      << session.transcript();
  // The vertex at 205: grades -7/110 and 3/55; the circle's altitude at 200, worked out from its centre.
  const double p1 = -3.5 / 55, p2 = 3.0 / 55, opening = std::atan(p2) - std::atan(p1),
               tangent = 500 * std::tan(opening / 2);
  const double start = 205 - tangent * std::cos(std::atan(p1)), level = 49 - p1 * (205 - start);
  const double x0 = start - 500 * std::sin(std::atan(p1)), y0 = level + 500 * std::cos(std::atan(p1));
  const double expected = y0 - std::sqrt(500.0 * 500 - (200 - x0) * (200 - x0));
  EXPECT_NEAR(std::stod(session.eval("(z 100.0)").substr(1)), expected, 1e-4);
}

TEST(LandXml, AnAlignmentWithoutGroundFollowsItsProject) {
  Exchange session;
  EXPECT_NE(session.create(landXml("<ProfAlign name='Voirie'><PVI>100 50</PVI><ParaCurve length='40'>150 "
                                   "52</ParaCurve><PVI>200 50</PVI></ProfAlign>")),
            "nil");
  EXPECT_NE(session.transcript().find("suit la ligne de projet"), std::string::npos);
  EXPECT_EQ(session.eval("(list (cadr (pl_InfosTn p)) (plv-genres-du-projet p))"), "(100.0 (\"Voirie\"))");
}

TEST(LandXml, SaysWhatIsLeftOutOrDoesNotFit) {
  Exchange session;
  const std::string text =
      "<LandXML><Alignments><Alignment name=\"A\">\n<StaEquation staBack=\"10\" staAhead=\"20\"/>"
      "<Profile><ProfAlign name=\"P\"><PVI>0 50</PVI><CircCurve length=\"30\" radius=\"500\">50 55</CircCurve><PVI>100 "
      "50</PVI></ProfAlign>"
      "</Profile></Alignment></Alignments></LandXML>";
  const std::string warnings = session.read(text, "(plv-cle 'avertissements lu)");
  EXPECT_NE(warnings.find("l'équation de station de la ligne 2"), std::string::npos) << warnings;
  EXPECT_NE(warnings.find("station 50.000: l'arc de 30.000 m ne va pas avec le rayon; le rayon de 500.000 m"),
            std::string::npos)
      << warnings;
}

TEST(LandXml, WritingRefusesWhatIsNoList) {
  Exchange session;
  const std::string path = "(landxml-ecrire \"" + session.path("c.xml") + "\" \"p\" ";
  for (const char* axes :
       {"12)", "'(((nom . 5))))", "'(((projets ((sommets (1.0)))))))", "'(((projets ((sommets (1.0 2.0 \"P\")))))))",
        "'(((projets ((sommets (1.0 2.0 \"X\" 3.0)))))))", "'(((terrains ((troncons ((1.0 \"a\"))))))))"}) {
    EXPECT_THROW(session.eval(path + axes), std::runtime_error) << axes;
    EXPECT_FALSE(std::filesystem::exists(session.path("c.xml"))) << axes;
  }
  EXPECT_EQ(session.eval(path + "nil)"), "T");
}

TEST(LandXml, TheCommandLetsChoose) {
  Exchange session;
  session.file("deux.xml",
               "<LandXML><Alignments><Alignment name=\"Rue A\"><Profile>" + kGround +
                   "</Profile></Alignment><Alignment name=\"Vide\"/>"
                   "<Alignment name=\"Rue B\"><Profile><ProfSurf name=\"projete\" state=\"proposed\"><PntList2D>0 1 9 "
                   "2</PntList2D></ProfSurf>"
                   "<ProfSurf name=\"TN\" state=\"existing\"><PntList2D>0 20 80 21</PntList2D></ProfSurf><ProfAlign "
                   "name=\"P1\"><PVI>0 20</PVI><PVI>80 22</PVI></ProfAlign>"
                   "<ProfAlign name=\"P2\"><PVI>0 20</PVI><PVI>80 "
                   "22</PVI></ProfAlign></Profile></Alignment></Alignments></LandXML>");
  const std::string said =
      session.feed("PLV-NOUVEAU\n" + session.path("deux.xml") + "\n2\n1\n\n0,0\n10\n2.5\n150\nA\nVoirie\nLaisser\n");
  EXPECT_NE(said.find("  2  Rue B (terrains: 2, lignes de projet: 2)"), std::string::npos) << said;
  EXPECT_EQ(session.eval("(list (plv-numero-profil (car (plv-profils))) (cadr (pl_InfosTn (car (plv-profils)))) "
                         "(plv-genres-du-projet (car (plv-profils))))"),
            "(\"Rue B\" 80.0 (\"Voirie\"))")
      << said;
}

}  // namespace
