// Drawings from the converter: the repairs of its output, and the program's messages when it is missing.
// A script replaces the converter, so that no foreign package is needed.
#include <gtest/gtest.h>

#include <filesystem>

#include "atelier/exchange/dwg.h"
#include "tests/console/program.h"

namespace {

using atelier::exchange::mended;
using kaveltest::Program;

const std::string kLayer = "0\nLAYER\n5\n1A2B\n100\nAcDbSymbolTableRecord\n2\nTopo\n70\n0\n";

TEST(Mending, IntegersOfSixteenBits) {
  const struct {
    const char* code;
    const char* found;
    const char* mended;
  } rows[] = {
      {"70", "65535", "-1"},   {"62", "65529", "-7"},    {"1070", "32768", "-32768"}, {"1070", "32767", "32767"},
      {"370", "65533", "-3"},  {"90", "65535", "65535"}, {"1071", "65535", "65535"},  {"40", "65535", "65535"},
      {"1", "65535", "65535"}, {"70", "x", "x"}};
  for (const auto& row : rows)
    EXPECT_EQ(mended(std::string(row.code) + "\n" + row.found + "\n"), std::string(row.code) + "\n" + row.mended + "\n")
        << row.code << " " << row.found;
}

TEST(Mending, LayersOfExtendedData) {
  const struct {
    const char* found;
    const char* mended;
  } rows[] = {{"2B1A", "Topo"}, {"2B1A000000000000", "Topo"},
              {"B2A1", "Topo"}, {"1A2B", "Topo"},
              {"topo", "topo"}, {"FFFF", "FFFF"},
              {"", ""}};
  for (const auto& row : rows)
    EXPECT_EQ(mended(kLayer + "0\nLINE\n1003\n" + row.found + "\n"), kLayer + "0\nLINE\n1003\n" + row.mended + "\n")
        << row.found;
}

TEST(Mending, LongTextsOfRecords) {
  const std::string a(255, 'a'), b(250, 'b');
  EXPECT_EQ(mended("0\nXRECORD\n3\n" + a + "\n3\n" + b + "\n300\nfin\n3\ncourt\n1\nx\n"),
            "0\nXRECORD\n300\n" + a + b + "fin\n3\ncourt\n1\nx\n");
  EXPECT_EQ(mended("0\nXRECORD\n3\n" + a + "\n40\n1.0\n"), "0\nXRECORD\n3\n" + a + "\n40\n1.0\n");
  // a paragraph's own way of long texts
  EXPECT_EQ(mended("0\nMTEXT\n3\n" + a + "\n1\nfin\n"), "0\nMTEXT\n3\n" + a + "\n1\nfin\n");
}

TEST(Mending, EscapesAndWhatIsNoGroup) {
  EXPECT_EQ(mended("1\n\\\\U+00E9t\\\\U+00E9 \\\"x\\\"\r\n"), "1\n\\U+00E9t\\U+00E9 \"x\"\n");
  EXPECT_EQ(mended(""), "");
  // A paragraph over several lines, of which one looks like a code.
  EXPECT_EQ(mended("0\nMTEXT\n1\nun\ndeux\n\n7\nS\n0\nLINE\n8\n0\n"),
            "0\nMTEXT\n1\nun\\Pdeux\\P\n7\nS\n0\nLINE\n8\n0\n");
  EXPECT_EQ(mended("0\nMTEXT\n1\nun\n2500 euros\n5000\n7\nS\n0\nLINE\n8\n0\n"),
            "0\nMTEXT\n1\nun\\P2500 euros\\P5000\n7\nS\n0\nLINE\n8\n0\n");
}

// A folder with a converter of our own making; node is a script that copies what it is given.
class Dwg : public Program {
 public:
  void converter(const std::string& node) {
    write("dwg/convertir.mjs", "");
    std::filesystem::create_directories(folder() / "dwg" / "node_modules");
    std::filesystem::create_directories(folder() / "dwg");
    std::filesystem::create_directories(folder() / "bin");
    write("dwg/convertir.mjs", "");
    write("bin/node", "#!/bin/sh\n" + node);
    std::filesystem::permissions(folder() / "bin" / "node", std::filesystem::perms::owner_all);
    prefix =
        "env KAVEL_DWG='" + (folder() / "dwg").string() + "' PATH='" + (folder() / "bin").string() + ":/usr/bin:/bin'";
  }
};

TEST(Dwg, OpensThroughTheConverterAndSavesAsDxf) {
  Dwg program;
  program.converter("cp \"$3\" \"$4\"\n");
  program.write(
      "a.DWG",
      "0\nSECTION\n2\nENTITIES\n0\nLINE\n8\n0\n62\n65535\n10\n1.0\n20\n2.0\n11\n3.0\n21\n4.0\n0\nENDSEC\n0\nEOF\n");
  program.run("a.DWG -e '(cdr (assoc 62 (entget (entlast))))' -o b.dxf");
  EXPECT_EQ(program.status, 0) << program.output;
  EXPECT_NE(program.output.find("il s'enregistre en DXF"), std::string::npos) << program.output;
  EXPECT_NE(program.output.find("\n-1\n"), std::string::npos) << program.output;
  EXPECT_NE(program.read("b.dxf").find("LINE"), std::string::npos);
  EXPECT_EQ(program.run("a.DWG -o a.DWG").status, 3);
  EXPECT_NE(program.output.find("s'enregistrent en .dxf"), std::string::npos) << program.output;
}

// What the converter spoils costs that much; the messages name the user's file, not the converter's.
TEST(Dwg, FaultsOfTheConverterCostWhatTheyTouch) {
  Dwg program;
  program.converter("test \"$1\" = --liftoff-only && cp \"$3\" \"$4\"\n");
  const std::string line = "0\nLINE\n8\n0\n10\n1.0\n20\n2.0\n11\n3.0\n21\n4.0\n";
  const auto drawing = [](const std::string& before, const std::string& entities) {
    return before + "0\nSECTION\n2\nENTITIES\n" + entities + "0\nENDSEC\n0\nEOF\n";
  };
  program.write("texte.dwg",
                drawing("", "0\nMTEXT\n8\n0\n10\n0\n20\n0\n40\n2\n1\nun\ntexte\ncoupé\n7\nStandard\n" + line));
  EXPECT_EQ(program.run("texte.dwg -e '(list (cdr (assoc 0 (entget (entlast)))) (sslength (ssget \"X\")))'").status, 0);
  EXPECT_NE(program.output.find("(\"LINE\" 2)"), std::string::npos) << program.output;
  program.write("rien.dwg", "rien du tout\n");
  EXPECT_EQ(program.run("rien.dwg -e 1").status, 3);
  EXPECT_NE(program.output.find("rien.dwg: le dessin converti est illisible"), std::string::npos) << program.output;
  EXPECT_EQ(program.output.find("kavel-dwg-"), std::string::npos) << program.output;
  program.write("vide.dwg",
                drawing("0\nSECTION\n2\nCLASSES\n0\nCLASS\n1\nMETIER_TROTTOIR\n2\nMetierTrottoir\n281\n1\n0\n"
                        "CLASS\n1\nMETIER_STYLE\n2\nMetierStyle\n281\n0\n0\nENDSEC\n",
                        ""));
  EXPECT_EQ(program.run("vide.dwg -e 1").status, 0);
  EXPECT_NE(program.output.find("application métier (METIER_TROTTOIR)"), std::string::npos) << program.output;
}

TEST(Dwg, SaysWhatIsMissingOrFailed) {
  Dwg program;
  program.write("a.dwg", "AC1032");
  program.prefix = "env HOME=/nonexistent XDG_DATA_HOME=/nonexistent KAVEL_DWG=/nonexistent";
  EXPECT_EQ(program.run("a.dwg -e 1").status, 3);
  EXPECT_NE(program.output.find("kavel: a.dwg: pour ouvrir les dessins DWG, installez le convertisseur"),
            std::string::npos)
      << program.output;
  EXPECT_EQ(program.run("absent.dwg -e 1").status, 3);
  EXPECT_NE(program.output.find("absent.dwg: fichier introuvable"), std::string::npos) << program.output;
  program.converter("echo 'version inconnue'; exit 1\n");
  EXPECT_EQ(program.run("a.dwg -e 1").status, 3);
  EXPECT_NE(program.output.find("le convertisseur DWG a échoué: version inconnue"), std::string::npos)
      << program.output;
  program.converter("exit 0\n");
  EXPECT_EQ(program.run("a.dwg -e 1").status, 3) << program.output;
}

}  // namespace
