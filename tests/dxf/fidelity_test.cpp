// Drawings of every version and form are saved without loss: byte for byte, except for changes.
// The drawings are written by an independent library.
#include <algorithm>
#include <set>

#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

std::vector<AcDbStub*> stubsOf(AcDbImpDatabase& db) {
  std::vector<AcDbStub*> list;
  for (const AcDbStub& stub : db.stubs())
    if (!stub.is(AcDbStub::kVirtual)) list.push_back(const_cast<AcDbStub*>(&stub));
  return list;
}

TEST(Fidelity, theGeneratorWritesEveryForm) { ASSERT_GE(generated().size(), 30u); }

TEST(Fidelity, untouchedIsByteForByte) {
  for (const fs::path& file : generated()) {
    Opened drawing(file);
    EXPECT_EQ(drawing.written(), bytesOf(file)) << file;
  }
}

TEST(Fidelity, openedObjectsStayByteForByte) {
  for (const fs::path& file : generated()) {
    Opened drawing(file);
    for (AcDbStub* stub : stubsOf(drawing.imp)) {
      AcDbObject* object = nullptr;
      ASSERT_EQ(acdbOpenObject(object, atelier::idOf(stub), AcDb::kForRead), Acad::eOk);
      AcDbExtents box;
      if (const AcDbEntity* entity = AcDbEntity::cast(object)) entity->getGeomExtents(box);
      object->close();
    }
    EXPECT_EQ(drawing.written(), bytesOf(file)) << file;
    EXPECT_EQ(atelier::OpenObjects::count(), 0u) << file;
  }
}

// Every record is written again from its groups: nothing is lost, and the spelling is the same.
TEST(Fidelity, rewrittenRecordsKeepEveryGroup) {
  for (const fs::path& file : generated()) {
    Opened drawing(file);
    for (AcDbStub* stub : stubsOf(drawing.imp)) {
      drawing.imp.object(*stub);
      stub->set(AcDbStub::kChanged);
    }
    EXPECT_EQ(differences(bytesOf(file), drawing.written()), std::vector<std::string>()) << file;
  }
}

// Extended data of an application that every drawing has.
void setNote(AcDbObject& object) {
  std::wstring application = L"ACAD", note = L"é";
  resbuf text{}, head{};
  head.restype = 1001;
  head.rbnext = &text;
  head.resval.rstring = application.data();
  text.restype = 1000;
  text.resval.rstring = note.data();
  EXPECT_EQ(object.setXData(&head), Acad::eOk);
}

// Indices of the first object of each type.
std::vector<std::size_t> oneOfEachType(const fs::path& file) {
  Opened drawing(file);
  std::vector<std::size_t> indices;
  std::set<std::string_view> seen = {"ENDTAB"};
  const std::vector<AcDbStub*> stubs = stubsOf(drawing.imp);
  for (std::size_t i = 0; i < stubs.size(); ++i)
    if (seen.insert(drawing.imp.typeName(*stubs[i])).second) indices.push_back(i);
  return indices;
}

// Only the object that was changed and the handle seed may differ.
TEST(Fidelity, oneChangeIsOneDifference) {
  for (const fs::path& file : generated())
    for (const std::size_t i : oneOfEachType(file)) {
      Opened drawing(file);
      AcDbStub* stub = stubsOf(drawing.imp)[i];
      const std::string type(drawing.imp.typeName(*stub));
      AcDbObject* object = nullptr;
      ASSERT_EQ(acdbOpenObject(object, atelier::idOf(stub), AcDb::kForWrite), Acad::eOk);
      setNote(*object);
      object->close();
      std::vector<std::string> found = differences(bytesOf(file), drawing.written());
      std::erase_if(found, [](const std::string& key) { return key.find("$HANDSEED") != key.npos; });
      EXPECT_EQ(found.size(), 1u) << file << " " << type << " " << ::testing::PrintToString(found);
      EXPECT_TRUE(found.empty() || found[0].starts_with(type)) << found[0];
    }
}

}  // namespace
