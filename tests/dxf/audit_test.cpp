// The audit finds each fault under its code, and repairs what it says it can.
// A drawing without faults gives no finding.
#include "atelier/dxf/audit/audit.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;
using atelier::dxf::audit;

namespace {

std::string codes(AcDbDatabase& db, bool fix) {
  std::string list;
  for (const auto& finding : audit(db, fix)) list += std::string(finding.code) + (finding.repaired ? "+ " : " ");
  return list;
}

// A drawing with the tables that must be there, and these blocks, entities and objects.
std::string drawingWith(const std::string& blocks, const std::string& entities, const std::string& objects = "") {
  const auto table = [](const std::string& name, const std::string& handle, const std::string& records) {
    return "0\nTABLE\n2\n" + name + "\n5\n" + handle + "\n330\n0\n100\nAcDbSymbolTable\n70\n0\n" + records +
           "0\nENDTAB\n";
  };
  const auto record = [](const std::string& type, const std::string& handle, const std::string& owner,
                         const std::string& name) {
    return "0\n" + type + "\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbSymbolTableRecord\n2\n" + name +
           "\n70\n0\n";
  };
  const auto block = [](const std::string& handle, const std::string& owner, const std::string& name,
                        const std::string& contents) {
    return "0\nBLOCK\n5\n" + handle + "1\n330\n" + owner + "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockBegin\n2\n" + name +
           "\n" + contents + "0\nENDBLK\n5\n" + handle + "2\n330\n" + owner +
           "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockEnd\n";
  };
  const auto section = [](const std::string& name, const std::string& contents) {
    return "0\nSECTION\n2\n" + name + "\n" + contents + "0\nENDSEC\n";
  };
  const std::string tables =
      table("LTYPE", "1",
            record("LTYPE", "11", "1", "ByBlock") + record("LTYPE", "12", "1", "ByLayer") +
                record("LTYPE", "13", "1", "Continuous")) +
      table("LAYER", "2", record("LAYER", "21", "2", "0")) +
      table("STYLE", "3", record("STYLE", "31", "3", "Standard")) +
      table("APPID", "4", record("APPID", "41", "4", "ACAD")) +
      table("BLOCK_RECORD", "5",
            record("BLOCK_RECORD", "51", "5", "*Model_Space") + record("BLOCK_RECORD", "52", "5", "*Paper_Space") +
                record("BLOCK_RECORD", "53", "5", "B"));
  return section("HEADER", "9\n$ACADVER\n1\nAC1015\n9\n$HANDSEED\n5\nFFFF\n") + section("TABLES", tables) +
         section("BLOCKS", block("A", "51", "*Model_Space", "") + block("B", "52", "*Paper_Space", "") +
                               block("C", "53", "B", blocks)) +
         section("ENTITIES", entities) +
         section("OBJECTS", "0\nDICTIONARY\n5\nD0\n330\n0\n100\nAcDbDictionary\n" + objects) + "0\nEOF\n";
}

std::string line(const std::string& handle, const std::string& more = "", const std::string& layer = "0",
                 const std::string& owner = "51") {
  return "0\nLINE\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbEntity\n8\n" + layer +
         "\n100\nAcDbLine\n10\n0\n20\n0\n30\n0\n11\n1\n21\n1\n31\n0\n" + more;
}

std::string insert(const std::string& handle, const std::string& name, const std::string& owner) {
  return "0\nINSERT\n5\n" + handle + "\n330\n" + owner + "\n100\nAcDbEntity\n8\n0\n100\nAcDbBlockReference\n2\n" +
         name + "\n10\n0\n20\n0\n30\n0\n";
}

std::string shape(const std::string& type, const std::string& section, const std::string& groups,
                  const std::string& common = "") {
  return "0\n" + type + "\n5\nE1\n330\n51\n100\nAcDbEntity\n8\n0\n" + common + "100\n" + section +
         "\n10\n0\n20\n0\n30\n0\n" + groups;
}

std::string xrecord(const std::string& key, const std::string& handle, const std::string& owner) {
  return "3\n" + key + "\n350\n" + handle + "\n0\nXRECORD\n5\n" + handle + "\n330\n" + owner +
         "\n100\nAcDbXrecord\n1\nx\n";
}

std::string withLayer(const std::string& name, const std::string& entities) {
  std::string bytes = drawingWith("", entities);
  const std::string before = "2\n0\n70\n0\n";
  const std::size_t at = bytes.find(before) + before.size();
  return bytes.insert(at, "0\nLAYER\n5\n22\n330\n2\n100\nAcDbSymbolTableRecord\n2\n" + name + "\n70\n0\n");
}

std::string dimension(const std::string& block) {
  return "0\nDIMENSION\n5\nE1\n330\n51\n100\nAcDbEntity\n8\n0\n100\nAcDbDimension\n" + block +
         "10\n10\n20\n5\n30\n0\n11\n5\n21\n5\n31\n0\n70\n1\n100\nAcDbAlignedDimension\n"
         "13\n0\n23\n0\n33\n0\n14\n10\n24\n0\n34\n0\n";
}

TEST(Audit, everyFaultHasItsCode) {
  const struct {
    const char* name;
    std::string bytes;
    const char* found;      // without repairing
    const char* remaining;  // after the repaired drawing was written and read again
  } rows[] = {
      {"nothing", drawingWith("", line("E1")), "", ""},
      {"duplicate handle", drawingWith("", line("E1") + line("E1")), "A01 ", ""},
      {"cycle", drawingWith(insert("E1", "B", "53"), insert("E2", "B", "51")), "A04 ", "A04 "},
      {"layer", drawingWith("", line("E1", "", "ABSENT") + line("E2", "", "ABSENT")), "A05 A05 ", ""},
      {"block", drawingWith("", insert("E1", "ABSENT", "51")), "A06 ", "A06 "},
      {"owner", drawingWith(line("E1", "", "0", "51"), ""), "A07 ", ""},
      {"reactor",
       drawingWith("",
                   "0\nPOINT\n5\nE1\n102\n{ACAD_REACTORS\n330\nEEE\n102\n}"
                   "\n330\n51\n100\nAcDbEntity\n8\n0\n100\nAcDbPoint\n10\n0\n20\n0\n30\n0\n"),
       "A08 ", ""},
      {"dictionary entry", drawingWith("", "", "3\nX\n350\nEEE\n3\nY\n350\nEED\n"), "A08 A08 ", ""},
      {"pointer", drawingWith("", line("E1", "1001\nACAD\n1005\nEEE\n")), "A09 ", "A09 "},
      {"application", drawingWith("", line("E1", "1001\nAPP\n1000\nx\n")), "A10 ", ""},
      {"nesting", drawingWith("", line("E1", "1001\nACAD\n1002\n{\n1000\nx\n")), "A11 ", ""},
      {"code", drawingWith("", line("E1", "1001\nACAD\n1060\n1\n")), "A12 ", "A12 "},
      {"number", drawingWith("", line("E1", "39\ndeux\n")), "A13 ", "A13 "},
      {"number too great", drawingWith("", line("E1", "39\n1e400\n")), "A13 ", "A13 "},
      {"radius", drawingWith("", shape("CIRCLE", "AcDbCircle", "40\n-2.5\n")), "A14 ", "A14 "},
      {"owner of an object", drawingWith("", "", xrecord("X", "E1", "EEE")), "A15 ", ""},
      {"object without a place", drawingWith("", "", "0\nXRECORD\n5\nE1\n330\nEEE\n100\nAcDbXrecord\n1\nx\n"), "A15 ",
       "A15 "},
      {"name", withLayer("A/B:C", line("E1", "", "A/B:C")), "A16 ", ""},
      {"xref's name", withLayer("PLAN|MURS", line("E1", "", "PLAN|MURS")), "", ""},
      {"name twice", withLayer("0", ""), "A16 ", "A16 "},
      {"dimension", drawingWith("", dimension("")), "A17 ", ""},
      {"block of a dimension", drawingWith("", dimension("2\n*D7\n")), "A17 ", ""},
      {"style of a dimension", drawingWith("", dimension("3\nABSENT\n")), "A05 A17 ", "A05 "},
      {"table", "0\nSECTION\n2\nENTITIES\n0\nENDSEC\n0\nEOF\n", "A03 A03 A03 A03 A03 A03 A03 A03 A03 A03 ", ""},
  };
  for (const auto& row : rows) {
    Opened drawing;
    atelier::dxf::readBytes(drawing.db, row.name, row.bytes, nullptr);
    EXPECT_EQ(codes(drawing.db, false), row.found) << row.name;
    EXPECT_EQ(drawing.written(), row.bytes) << row.name;
    audit(drawing.db, true);
    const std::string bytes = drawing.written();
    Opened again;
    atelier::dxf::readBytes(again.db, row.name, bytes, nullptr);
    EXPECT_EQ(codes(again.db, false), row.remaining) << row.name << bytes;
  }
}

TEST(Audit, theSeedIsRaised) {
  std::string bytes = drawingWith("", line("E1"));
  bytes.replace(bytes.find("FFFF"), 4, "20");
  Opened drawing;
  atelier::dxf::readBytes(drawing.db, "d", bytes, nullptr);
  EXPECT_EQ(codes(drawing.db, true), "A02+ ");
  EXPECT_NE(drawing.written().find("$HANDSEED"), std::string::npos);
  EXPECT_EQ(drawing.written().find("$HANDSEED\n5\n20\n"), std::string::npos);
}

TEST(Audit, aNewDrawingHasNoFault) {
  Opened drawing(true);
  EXPECT_EQ(codes(drawing.db, false), "");
}

TEST(Audit, findingsSayWhere) {
  Opened drawing;
  const std::string bytes = drawingWith("", line("E1", "", "ABSENT"));
  atelier::dxf::readBytes(drawing.db, "d", bytes, nullptr);
  const auto findings = audit(drawing.db, true);
  ASSERT_EQ(findings.size(), 1u);
  EXPECT_EQ(atelier::dxf::line(findings[0]), "A05 erreur E1 LINE dans *Model_Space: calque \"ABSENT\" absent (réparé)");
}

// Each limit from both sides: what the reference allows is never a finding.
TEST(Audit, valuesAreHeldAgainstTheirLimits) {
  const struct {
    std::string entity;
    const char* found;  // empty: nothing
  } rows[] = {
      {shape("CIRCLE", "AcDbCircle", "40\n1e-9\n"), ""},
      {shape("CIRCLE", "AcDbCircle", "40\n0\n"), "radius (groupe 40): 0.0, attendu > 0"},
      {shape("ELLIPSE", "AcDbEllipse", "11\n1\n21\n0\n31\n0\n40\n1\n41\n0\n42\n6\n"), ""},
      {shape("ELLIPSE", "AcDbEllipse", "11\n1\n21\n0\n31\n0\n40\n1.5\n41\n0\n42\n6\n"), "ratio (groupe 40): 1.5"},
      {shape("ELLIPSE", "AcDbEllipse", "11\n1\n21\n0\n31\n0\n40\n0\n41\n0\n42\n6\n"), "ratio (groupe 40): 0.0"},
      {shape("POINT", "AcDbPoint", "", "62\n256\n370\n211\n48\n0.1\n60\n1\n"), ""},
      {shape("POINT", "AcDbPoint", "", "62\n258\n"), "color (groupe 62): 258, attendu -255 a 257"},
      {shape("POINT", "AcDbPoint", "", "370\n7\n"), "lineWeight (groupe 370): 7, attendu -3, -2, -1, 0, 5,"},
      {shape("POINT", "AcDbPoint", "", "48\n-1\n"), "linetypeScale (groupe 48): -1.0, attendu > 0"},
      {shape("POINT", "AcDbPoint", "", "60\n2\n"), "invisible (groupe 60): 2, attendu 0 a 1"},
      {shape("TEXT", "AcDbText", "40\n0\n1\nx\n"), "height (groupe 40): 0.0, attendu > 0"},
      {shape("TEXT", "AcDbText", "40\n2\n1\nx\n72\n6\n"), "horizontal (groupe 72): 6, attendu 0 a 5"},
      {shape("INSERT", "AcDbBlockReference", "2\nB\n41\n-1\n70\n-1\n"), "columns (groupe 70): -1, attendu >= 0"}};
  for (const auto& row : rows) {
    const std::string bytes = drawingWith("", row.entity);
    Opened drawing;
    atelier::dxf::readBytes(drawing.db, "d", bytes, nullptr);
    const auto findings = audit(drawing.db, false);
    ASSERT_EQ(findings.size(), *row.found ? 1u : 0u) << row.entity;
    for (const auto& finding : findings) EXPECT_EQ(finding.text.find(row.found), 0u) << finding.text;
  }
}

TEST(Audit, everyGeneratedDrawingIsWalked) {
  for (const fs::path& file : generated()) {
    Opened drawing(file);
    for (const auto& finding : audit(drawing.db, false)) EXPECT_NE(finding.code, "A14") << file << finding.text;
    audit(drawing.db, true);
    EXPECT_EQ(atelier::OpenObjects::count(), 0u) << file;
    Opened again;
    const std::string bytes = drawing.written();
    atelier::dxf::readBytes(again.db, "repaired", bytes, nullptr);
    for (const auto& finding : audit(again.db, true))
      EXPECT_FALSE(finding.repaired) << file << atelier::dxf::line(finding);
  }
}

}  // namespace
