// Drawings saved in other versions and forms: read by an independent library, and converted back without loss.
// Messages name what a version can't hold; nothing else is lost.
#include "atelier/dxf/versions/export.h"
#include "hote/adaptation.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

const char* const kReleases[] = {"R2000", "R2004", "R2007", "R2010", "R2013", "R2018"};

std::vector<fs::path> modern() {
  std::vector<fs::path> list;
  for (const fs::path& file : generated())
    if (file.filename().string().starts_with("R20")) list.push_back(file);
  return list;
}

// Differences other than those that a change of version makes.
std::vector<std::string> realDifferences(const std::string& a, const std::string& b) {
  std::vector<std::string> found = differences(a, b);
  std::erase_if(found, [](const std::string& key) {
    for (const char* own : {"$ACADVER", "$HANDSEED", "$ACADMAINTVER", "$DWGCODEPAGE"})
      if (key.find(own) != key.npos) return true;
    return false;
  });
  return found;
}

TEST(Export, theSameVersionKeepsEveryGroup) {
  const Folder folder;
  const std::string target = (folder.path / "d.dxf").string();
  for (const fs::path& file : modern()) {
    const std::string name = file.filename().string();
    Opened drawing(file);
    atelier::dxf::saveAs(drawing.db, target, name.substr(0, name.find_first_of("_.")),
                         name.find("binary") != name.npos);
    EXPECT_EQ(realDifferences(bytesOf(file), bytesOf(target)), std::vector<std::string>()) << file;
  }
}

TEST(Export, binaryAndBackIsTheSame) {
  const Folder folder;
  const std::string binary = (folder.path / "b.dxf").string(), text = (folder.path / "t.dxf").string();
  for (const char* release : kReleases) {
    const auto file = std::find_if(generated().begin(), generated().end(),
                                   [&](const fs::path& f) { return f.filename() == std::string(release) + ".dxf"; });
    Opened drawing(*file);
    atelier::dxf::saveAs(drawing.db, binary, release, true);
    Opened again{fs::path(binary)};
    EXPECT_EQ(again.imp.stubs().size(), drawing.imp.stubs().size());
    atelier::dxf::saveAs(again.db, text, release, false);
    Opened last{fs::path(text)};
    for (const AcDbStub& stub : drawing.imp.stubs()) {
      AcDbStub* other = last.imp.stubOf(stub.handle);
      if (!other || drawing.imp.stubOf(stub.handle) != &stub) continue;
      const auto& before = AcDbImpObject::of(&drawing.imp.object(const_cast<AcDbStub&>(stub))).record.groups;
      const auto& after = AcDbImpObject::of(&last.imp.object(*other)).record.groups;
      ASSERT_EQ(before.size(), after.size()) << release << " " << atelier::handleText(stub.handle);
      for (std::size_t i = 0; i < before.size(); ++i)
        EXPECT_TRUE(before[i].kind() != after[i].kind() || before[i].sameValue(after[i]))
            << release << " " << atelier::handleText(stub.handle) << " " << before[i].code();
    }
  }
}

// From each version to each: every object not named as left out exists, with its texts.
TEST(Export, everyVersionBothWays) {
  const Folder folder;
  const std::string target = (folder.path / "d.dxf").string();
  for (const fs::path& file : modern())
    for (const char* release : kReleases) {
      Opened drawing(file);
      const auto notes = atelier::dxf::saveAs(drawing.db, target, release);
      Opened again{fs::path(target)};
      std::size_t told = 0, missing = 0;
      for (const std::string& note : notes) told += std::stoul(note);
      for (const AcDbStub& stub : drawing.imp.stubs())
        if (!stub.is(AcDbStub::kVirtual) && drawing.imp.typeName(stub) != "ENDTAB")
          missing += again.imp.stubOf(stub.handle) == nullptr;
      EXPECT_EQ(missing, told) << file << release << ::testing::PrintToString(notes);
      for (const AcDbStub& stub : drawing.imp.stubs()) {
        AcDbStub* other = again.imp.stubOf(stub.handle);
        if (!other || drawing.imp.typeName(stub) != "TEXT") continue;
        const auto text = atelier::textField("AcDbText", 1);
        EXPECT_EQ(AcDbImpObject::of(&again.imp.object(*other)).record.text(text),
                  AcDbImpObject::of(&drawing.imp.object(const_cast<AcDbStub&>(stub))).record.text(text));
      }
    }
}

TEST(Export, theOthersReadIt) {
  const Folder folder;
  Opened drawing(true);
  append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0}));
  append(drawing, new AcDbText({1, 1, 0}, L"Été 配管", AcDbObjectId::kNull, 2.5, 0));
  auto* polyline = new AcDbPolyline;
  polyline->addVertexAt(0, {0, 0}, 0.5);
  polyline->addVertexAt(1, {10, 0});
  append(drawing, polyline);
  for (const std::string release : {"R12", "R2000", "R2004", "R2007", "R2010", "R2013", "R2018"})
    for (const bool binary : {false, true})
      atelier::dxf::saveAs(drawing.db, (folder.path / (release + (binary ? "b.dxf" : ".dxf"))).string(), release,
                           binary);
  EXPECT_EQ(
      std::system(("/usr/bin/python3 " KAVEL_SOURCE "/tests/dxf/check.py " + folder.path.string() + "/*.dxf").c_str()),
      0);
}

// R12 with and without handles, in ASCII and binary, as each later version: readable by the independent library, with
// every entity under its handle, places and extended data as they were.
TEST(Export, r12BecomesLaterVersions) {
  const Folder folder;
  int files = 0;
  for (const fs::path& file : generated()) {
    if (!file.filename().string().starts_with("R12")) continue;
    Opened old(file);
    append(old, new AcDbLine({0, 0, 0}, {10, 5, 0}));
    for (const char* release : kReleases) {
      const std::string target = (folder.path / (std::to_string(++files) + ".dxf")).string();
      const auto notes = atelier::dxf::saveAs(old.db, target, release);
      Opened again{fs::path(target)};
      std::size_t count = 0;
      for (const AcDbStub& stub : old.imp.stubs()) {
        const AcDbEntity* before =
            stub.is(AcDbStub::kEntity) ? AcDbEntity::cast(&old.imp.object(const_cast<AcDbStub&>(stub))) : nullptr;
        AcDbStub* other = before && stub.handle ? again.imp.stubOf(stub.handle) : nullptr;
        if (!other) continue;
        const AcDbEntity* after = AcDbEntity::cast(&again.imp.object(*other));
        ASSERT_NE(after, nullptr) << file;
        EXPECT_EQ(before->isA(), after->isA()) << file << atelier::handleText(stub.handle);
        AcDbExtents a, b;
        EXPECT_EQ(before->getGeomExtents(a), after->getGeomExtents(b)) << file << atelier::handleText(stub.handle);
        EXPECT_LT(a.minPoint().distanceTo(b.minPoint()) + a.maxPoint().distanceTo(b.maxPoint()), 1e-9)
            << file << atelier::handleText(stub.handle);
        ++count;
      }
      EXPECT_GT(count, 0u) << file;
    }
  }
  EXPECT_GT(files, 0);
  EXPECT_EQ(std::system(("/usr/bin/python3 -c 'import ezdxf, sys; [ezdxf.readfile(f).audit() for f in sys.argv[1:]]' " +
                         folder.path.string() + "/*.dxf")
                            .c_str()),
            0);
}

TEST(Export, r12TellsWhatItCannotHold) {
  const Folder folder;
  const std::string target = (folder.path / "d.dxf").string();
  Opened drawing(true);
  auto* polyline = new AcDbPolyline;
  polyline->addVertexAt(0, {0, 0}, 0.5, 1, 2);
  polyline->addVertexAt(1, {10, 0});
  polyline->setClosed(true);
  append(drawing, polyline);
  append(drawing, new AcDbEllipse({0, 0, 0}, {0, 0, 1}, {5, 0, 0}, 0.5));
  append(drawing, new AcDbEllipse({0, 0, 0}, {0, 0, 1}, {5, 0, 0}, 0.5));
  const auto notes = atelier::dxf::saveAs(drawing.db, target, "R12");
  EXPECT_NE(std::find(notes.begin(), notes.end(), "2 ELLIPSE laissés de côté: inconnus de cette version"), notes.end())
      << ::testing::PrintToString(notes);
  Opened again{fs::path(target)};
  EXPECT_EQ(again.imp.header.text("$ACADVER", ""), "AC1009");
  const AcDbObjectPointer<AcDbBlockTableRecord> space(again.db.currentSpaceId());
  ASSERT_EQ(adaptation::entityIds(*space).length(), 1);
  const AcDbObjectPointer<AcDb2dPolyline> read(adaptation::entityIds(*space)[0]);
  ASSERT_EQ(read.openStatus(), Acad::eOk);
  EXPECT_TRUE(read->isClosed());
  const std::unique_ptr<AcDbObjectIterator> vertices(read->vertexIterator());
  const AcDbObjectPointer<AcDbVertex> vertex(vertices->objectId());
  EXPECT_EQ(vertex->bulge(), 0.5);
  EXPECT_EQ(vertex->endWidth(), 2.0);
  EXPECT_THROW(atelier::dxf::saveAs(drawing.db, target, "R2042"), atelier::Error);
}

}  // namespace
