// Files that aren't drawings or are damaged: refused with the place of the first fault, or recovered.
// No contents of a file may end the program.
#include <random>

#include "atelier/dxf/versions/export.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

std::string messageOf(const std::string& bytes) {
  Opened drawing;
  try {
    atelier::dxf::readBytes(drawing.db, "d.dxf", bytes, nullptr);
  } catch (const atelier::Error& error) {
    return error.what();
  }
  return "";
}

// Reads as recovering; gives the messages, and the repaired file.
std::vector<std::string> recovered(const std::string& bytes, std::string& repaired) {
  Opened drawing;
  std::vector<std::string> messages;
  try {
    atelier::dxf::readBytes(drawing.db, "d.dxf", bytes, nullptr, &messages);
    repaired = drawing.written();
  } catch (const atelier::Error& error) {
    messages.push_back(error.what());
    repaired.clear();
  }
  return messages;
}

const std::string kLine = "0\nLINE\n5\nA1\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n11\n3.0\n21\n4.0\n31\n0.0\n";
const std::string kOpen = "0\nSECTION\n2\nENTITIES\n", kClose = "0\nENDSEC\n0\nEOF\n";

TEST(Damage, theFirstFaultIsNamedWithItsLine) {
  const struct {
    std::string bytes;
    const char* message;
  } rows[] = {
      {"", "ce n'est pas un dessin DXF"},
      {"bonjour\nmonde\n", "d.dxf:1: ce n'est pas un dessin DXF"},
      {"0\nLINE\n", "d.dxf:1: ce n'est pas un dessin DXF"},
      {std::string("%PDF-1.4\n\x00\x01\xff", 12), "ce n'est pas un dessin DXF"},
      {kOpen + kLine, "d.dxf:23: fichier coupé"},
      {kOpen + kLine + "0\nEOF\n", "d.dxf:23: \"0 ENDSEC\" de la section ENTITIES manque"},
      {kOpen + kLine + "0\nENDSEC\n", "fichier coupé: \"0 EOF\" manque"},
      {kOpen + "dix\n1.0\n" + kClose, "d.dxf:5: code de groupe attendu, trouvé \"dix\""},
      {kOpen + "10\n1.0\n" + kClose, "d.dxf:5: groupe 0 attendu"},
      {kOpen + kLine + "10\n", "manque"},
      {"0\nSECTION\n0\nENDSEC\n0\nEOF\n", "d.dxf:3: nom de section"},
      {"0\nSECTION\n2\nTABLES\n0\nLAYER\n2\nX\n0\nENDSEC\n0\nEOF\n", "d.dxf:5: définition LAYER hors d'une table"},
      {"0\nSECTION\n2\nBLOCKS\n" + kLine + kClose, "d.dxf:5: entité LINE hors d'un bloc"},
  };
  for (const auto& row : rows)
    EXPECT_NE(messageOf(row.bytes).find(row.message), std::string::npos) << row.message << "\n" << messageOf(row.bytes);
  EXPECT_EQ(messageOf(kOpen + kLine + kClose), "");
}

TEST(Damage, everyTruncationIsRefusedOrReadAndRecovered) {
  for (const char* name : {"R2000.dxf", "R2018_binary.dxf", "R12_crlf.dxf"})
    for (const fs::path& file : generated()) {
      if (file.filename() != name) continue;
      const std::string bytes = bytesOf(file);
      for (std::size_t length = 0; length + 8 < bytes.size(); length += 1 + length / 97) {
        EXPECT_NE(messageOf(bytes.substr(0, length)), "") << name << " " << length;
        std::string repaired;
        EXPECT_FALSE(recovered(bytes.substr(0, length), repaired).empty()) << name << " " << length;
        EXPECT_TRUE(repaired.empty() || messageOf(repaired).empty()) << name << " " << length << messageOf(repaired);
      }
    }
}

TEST(Damage, randomChangesNeverEndTheProgram) {
  std::mt19937 random(42);
  for (const fs::path& file : generated()) {
    const std::string bytes = bytesOf(file);
    for (int turn = 0; turn < 20; ++turn) {
      std::string changed = bytes;
      for (int i = 0; i < 1 + turn; ++i) changed[random() % changed.size()] = static_cast<char>(random());
      Opened drawing;
      std::vector<std::string> messages;
      try {
        atelier::dxf::readBytes(drawing.db, "d.dxf", changed, nullptr, &messages);
        for (const AcDbStub& stub : drawing.imp.stubs()) {
          AcDbExtents box;
          if (const AcDbEntity* entity = AcDbEntity::cast(&drawing.imp.object(const_cast<AcDbStub&>(stub))))
            entity->getGeomExtents(box);
        }
        const std::string repaired = drawing.written();
        EXPECT_EQ(messageOf(repaired), "") << file << " " << turn;
      } catch (const atelier::Error&) {}
    }
  }
}

// The sections that the cut has taken away come back with what is put into them.
TEST(Damage, whatIsAddedToACutDrawingIsReadBack) {
  for (const fs::path& file : generated()) {
    if (file.filename() != "R2000.dxf" && file.filename() != "R12_crlf.dxf") continue;
    const std::string bytes = bytesOf(file);
    for (std::size_t length = bytes.size() / 40; length + 8 < bytes.size(); length += bytes.size() / 40) {
      Opened drawing;
      std::vector<std::string> messages;
      atelier::dxf::readBytes(drawing.db, "d.dxf", std::string_view(bytes).substr(0, length), nullptr, &messages);
      drawing.imp.namedDictionary("ESSAI");
      const std::string written = drawing.written();
      EXPECT_EQ(messageOf(written), "") << file << " " << length;
      EXPECT_NE(written.find("ESSAI"), std::string::npos) << file << " " << length;
    }
  }
}

TEST(Damage, whatIsWholeIsKept) {
  std::string repaired;
  const std::string second = "0\nCIRCLE\n5\nA2\n8\n0\n10\n1.0\n20\n2.0\n30\n0.0\n40\n5.0\n";
  const auto messages = recovered(kOpen + kLine + "0\nLINE\n5\nA3\nabc\nx\n10\n1.0\n" + second + kClose, repaired);
  ASSERT_EQ(messages.size(), 2u);
  EXPECT_NE(messages[0].find("ligne 27: code de groupe attendu"), std::string::npos) << messages[0];
  EXPECT_NE(messages[1].find("ligne 23: entité LINE incomplète: laissée de côté"), std::string::npos) << messages[1];
  EXPECT_EQ(repaired, kOpen + kLine + second + kClose);
}

TEST(Damage, theDamagedFileIsNotOverwrittenUnlessToldTo) {
  const Folder folder;
  const std::string path = (folder.path / "d.dxf").string(), other = (folder.path / "autre.dxf").string();
  put(path, kOpen + kLine);
  Opened drawing;
  std::vector<std::string> messages;
  atelier::dxf::readFileRecovering(drawing.db, path, messages);
  EXPECT_EQ(messages.size(), 4u);  // the record, the entity, ENDSEC, EOF
  EXPECT_THROW(atelier::dxf::save(drawing.db, path), atelier::FileError);
  EXPECT_EQ(bytesOf(path), kOpen + kLine);
  atelier::dxf::save(drawing.db, other);
  EXPECT_THROW(atelier::dxf::save(drawing.db, path), atelier::FileError);
  drawing.imp.mayOverwriteDamaged = true;
  atelier::dxf::save(drawing.db, path);
  EXPECT_EQ(bytesOf(path), bytesOf(other));
}

TEST(Damage, sectionsThatAreCarriedAreExportedAsFarAsTheyGo) {
  const Folder folder;
  const std::string target = (folder.path / "d.dxf").string();
  Opened drawing;
  std::vector<std::string> messages;
  const std::string damaged = "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1024\n0\nENDSEC\n" + kOpen + kLine +
                              "0\nENDSEC\n0\nSECTION\n2\nTHUMBNAILIMAGE\n90\n4\nabc\nx\n0\nREST\n310\nFF\n" + kClose;
  atelier::dxf::readBytes(drawing.db, "d.dxf", damaged, nullptr, &messages);
  EXPECT_EQ(messages.size(), 1U);
  atelier::dxf::saveAs(drawing.db, target, "R2018");
  const std::string bytes = bytesOf(target);
  EXPECT_NE(bytes.find("THUMBNAILIMAGE\n 90\n4\n  0\nREST\n310\nFF\n  0\nENDSEC\n"), std::string::npos)
      << bytes.substr(bytes.size() - 200);
  EXPECT_EQ(messageOf(bytes), "");
}

}  // namespace
