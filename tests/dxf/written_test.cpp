// Drawings that we write, read by an independent library: new ones, and those that lack what a change needs.
// Its audit must find nothing to complain of and nothing to repair.
#include "atelier/database/lists/entity_groups.h"
#include "hote/acdb.h"
#include "hote/acut.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

bool passesCheck(const fs::path& file) {
  return std::system(("/usr/bin/python3 " KAVEL_SOURCE "/tests/dxf/check.py " + file.string()).c_str()) == 0;
}

const fs::path& generatedFile(const std::string& name) {
  for (const fs::path& file : generated())
    if (file.filename() == name) return file;
  throw std::runtime_error(name);
}

AcDbObjectId blockWithAttribute(Opened& drawing) {
  AcDbObjectId id;
  AcDbBlockTable* table = nullptr;
  drawing.db.getBlockTable(table, AcDb::kForWrite);
  auto* block = new AcDbBlockTableRecord;
  block->setName(L"REGARD");
  block->setOrigin({1, 2, 0});
  table->add(id, block);
  table->close();
  for (AcDbEntity* entity : {static_cast<AcDbEntity*>(new AcDbCircle({0, 0, 0}, {0, 0, 1}, 3)),
                             static_cast<AcDbEntity*>(new AcDbAttributeDefinition)}) {
    if (AcDbAttributeDefinition* definition = AcDbAttributeDefinition::cast(entity)) definition->setTag(L"NUM");
    block->appendAcDbEntity(entity);
    entity->close();
  }
  block->close();
  return id;
}

void everyTypedEntity(Opened& drawing) {
  append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0}));
  append(drawing, new AcDbRay);
  append(drawing, new AcDbXline);
  append(drawing, new AcDbArc({0, 0, 0}, 5, 0, 2));
  append(drawing, new AcDbEllipse({0, 0, 0}, {0, 0, 1}, {5, 0, 0}, 0.5));
  append(drawing, new AcDbPoint({1, 2, 3}));
  append(drawing, new AcDbText({1, 1, 0}, L"Été 12.50", AcDbObjectId::kNull, 2.5, 0.5));
  auto* polyline = new AcDbPolyline(3);
  polyline->addVertexAt(0, {0, 0});
  polyline->addVertexAt(1, {10, 0}, 1);
  append(drawing, polyline);
  auto* mtext = new AcDbMText;
  mtext->setContents(L"ligne 1\\Pligne 2");
  append(drawing, mtext);
  append(drawing, new AcDbSolid);
  append(drawing, new AcDbFace);
  const AcDbObjectId reference = append(drawing, new AcDbBlockReference({20, 0, 0}, blockWithAttribute(drawing)));
  const AcDbObjectPointer<AcDbBlockReference> opened(reference, AcDb::kForWrite);
  auto* attribute = new AcDbAttribute({20, 1, 0}, L"12", L"NUM");
  attribute->setHeight(1);
  opened->appendAttribute(attribute);
  attribute->close();
}

// An extension dictionary with an Xrecord that refers to another entity.
void storeReference(AcDbObjectId holder, AcDbObjectId target) {
  const AcDbEntityPointer entity(holder, AcDb::kForWrite);
  ASSERT_EQ(entity->createExtensionDictionary(), Acad::eOk);
  const AcDbObjectPointer<AcDbDictionary> dictionary(entity->extensionDictionary(), AcDb::kForWrite);
  auto* record = new AcDbXrecord;
  AcDbObjectId id;
  dictionary->setAt(L"LIEN", record, id);
  atelier::Record& groups = AcDbImpObject::of(record).record;
  groups.groups.push_back(
      atelier::Group::handle(330, AcDbImpDatabase::of(holder.database()).stubOf(target.handle())->handle));
  record->close();
}

TEST(Written, aNewDrawingPassesTheAudit) {
  const Folder folder;
  const fs::path file = folder.path / "nouveau.dxf";
  Opened drawing(true);
  everyTypedEntity(drawing);
  storeReference(append(drawing, new AcDbLine({0, 0, 0}, {1, 0, 0})),
                 append(drawing, new AcDbLine({0, 0, 0}, {2, 0, 0})));
  atelier::dxf::save(drawing.db, file.string());
  EXPECT_TRUE(passesCheck(file));
  // Read again and written again, it is the same file.
  Opened again(file);
  EXPECT_EQ(again.written(), bytesOf(file));
}

TEST(Written, anAddedAttributeStandsBeforeTheEndMark) {
  Opened drawing(generatedFile("R2010.dxf"));
  for (const AcDbStub& stub : drawing.imp.stubs()) {
    if (drawing.imp.typeName(stub) != "INSERT" || !stub.children) continue;
    const AcDbObjectPointer<AcDbBlockReference> reference(atelier::idOf(&stub), AcDb::kForWrite);
    auto* attribute = new AcDbAttribute({0, 0, 0}, L"x", L"AJOUT");
    ASSERT_EQ(reference->appendAttribute(attribute), Acad::eOk);
    attribute->close();
    break;
  }
  const std::string bytes = drawing.written();
  const std::size_t added = bytes.find("AJOUT");
  ASSERT_NE(added, std::string::npos);
  EXPECT_LT(added, bytes.find("SEQEND", bytes.rfind("ATTRIB", added)));
}

// Entities, blocks and layers go into drawings of every form; nothing of what was there changes.
TEST(Written, additionsLeaveTheRestAlone) {
  const Folder folder;
  std::string list;
  for (const fs::path& file : generated()) {
    Opened drawing(file);
    append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0}));
    AcDbLayerTable* layers = nullptr;
    ASSERT_EQ(drawing.db.getLayerTable(layers, AcDb::kForWrite), Acad::eOk) << file;
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"AJOUT É");
    EXPECT_EQ(layers->add(layer), Acad::eOk);
    layer->close();
    layers->close();
    const fs::path target = folder.path / file.filename();
    atelier::dxf::save(drawing.db, target.string());
    for (const std::string& key : differences(bytesOf(file), bytesOf(target)))
      EXPECT_TRUE(key.starts_with("+") || key.find("$HANDSEED") != key.npos || key.find("SECTION") != key.npos ||
                  key.starts_with("$HANDLING"))
          << file << key;
    Opened again(target);
    EXPECT_TRUE(again.imp.tableRecord("LAYER", "ajout é")) << file;
  }
}

TEST(Written, handlesAppearOnceSomethingRefersToThem) {
  Opened drawing(generatedFile("R12_no_handles.dxf"));
  std::vector<AcDbStub*> lines;
  for (const AcDbStub& stub : drawing.imp.stubs())
    if (drawing.imp.typeName(stub) == "LINE") lines.push_back(const_cast<AcDbStub*>(&stub));
  ASSERT_GE(lines.size(), 3u);
  {
    const AcDbEntityPointer plain(atelier::idOf(lines[2]), AcDb::kForWrite);
    plain->setColorIndex(5);
  }
  const std::string plain = drawing.written();
  for (const auto& [key, text] : recordsOf(plain))
    EXPECT_TRUE(!key.starts_with("LINE ") || text.find("\n5=") == text.npos) << key << text;
  storeReference(atelier::idOf(lines[0]), atelier::idOf(lines[1]));
  const std::string bytes = drawing.written();
  EXPECT_NE(bytes.find("OBJECTS"), std::string::npos);
  Opened again;
  atelier::dxf::readBytes(again.db, "r12", bytes, nullptr);
  const AcDbEntityPointer holder(atelier::idOf(again.imp.stubOf(lines[0]->handle)));
  ASSERT_EQ(holder.openStatus(), Acad::eOk);
  const AcDbObjectPointer<AcDbDictionary> dictionary(holder->extensionDictionary());
  ASSERT_EQ(dictionary.openStatus(), Acad::eOk);
  AcDbObjectId id;
  ASSERT_EQ(dictionary->getAt(L"LIEN", id), Acad::eOk);
  const AcDbObjectPointer<AcDbXrecord> record(id);
  resbuf* chain = nullptr;
  ASSERT_EQ(record->rbChain(&chain), Acad::eOk);
  ASSERT_TRUE(chain);
  EXPECT_EQ(chain->restype, 330);
  acutRelRb(chain);
  EXPECT_EQ(again.imp.typeName(*again.imp.stubOf(lines[1]->handle)), "LINE");
}

TEST(Written, anErasedBlockGoesWithItsMarks) {
  Opened drawing(generatedFile("R2010.dxf"));
  {
    const AcDbObjectPointer<AcDbBlockTableRecord> block(atelier::idOf(drawing.imp.tableRecord("BLOCK_RECORD", "VIDE")),
                                                        AcDb::kForWrite);
    ASSERT_EQ(block->erase(), Acad::eOk);
  }
  const auto found = differences(bytesOf(generatedFile("R2010.dxf")), drawing.written());
  EXPECT_EQ(std::count_if(found.begin(), found.end(), [](const std::string& key) { return key.starts_with("-"); }), 3)
      << ::testing::PrintToString(found);
}

// The number for the next handle, and the highest handle that the bytes have.
std::pair<std::uint64_t, std::uint64_t> seedAndHighest(const std::string& bytes) {
  std::istringstream lines(bytes);
  std::uint64_t seed = 0, highest = 0;
  bool isSeed = false;
  for (std::string code, value; std::getline(lines, code) && std::getline(lines, value);) {
    const int number = std::atoi(code.c_str());
    if (number == 5 && isSeed) seed = std::stoull(value, nullptr, 16);
    else if (number == 5 || number == 105) highest = std::max<std::uint64_t>(highest, std::stoull(value, nullptr, 16));
    isSeed = number == 9 && value.starts_with("$HANDSEED");
  }
  return {seed, highest};
}

// A program registers its name in a drawing that it doesn't change otherwise.
TEST(Written, theSeedIsAboveEveryHandleAlsoForANameAlone) {
  for (const char* name : {"R2000.dxf", "R2018.dxf"}) {
    Opened drawing(generatedFile(name));
    ASSERT_EQ(acdbRegApp(L"ESSAI"), RTNORM);
    drawing.imp.modified = false;
    const auto [seed, highest] = seedAndHighest(drawing.written());
    EXPECT_GT(seed, highest) << name;
  }
}

// Drawings up to R12 have no objects; what only asks doesn't make any.
TEST(Written, objectsAreMadeInDrawingsThatHaveNone) {
  for (const char* name : {"R12.dxf", "R12_entities_only.dxf", "R12_binary.dxf"}) {
    const fs::path file = generatedFile(name);
    Opened drawing(file);
    ASSERT_FALSE(drawing.db.namedObjectsDictionaryId().isNull());
    EXPECT_EQ(drawing.written(), bytesOf(file)) << name;
    AcDbObjectId id;
    {
      AcDbStub* loose = atelier::makeLooseObject(drawing.imp, {atelier::Group::text(0, "DICTIONARY")});
      ASSERT_TRUE(loose);
      const AcDbObjectPointer<AcDbDictionary> root(drawing.db.namedObjectsDictionaryId(), AcDb::kForWrite);
      auto* entry = new AcDbDictionary;
      ASSERT_EQ(root->setAt(L"ESSAI", entry, id), Acad::eOk);
      entry->close();
    }
    const Folder folder;
    put(folder.path / "apres.dxf", drawing.written());
    Opened again(folder.path / "apres.dxf");
    const AcDbObjectPointer<AcDbDictionary> root(again.db.namedObjectsDictionaryId());
    EXPECT_EQ(root->getAt(L"ESSAI", id), Acad::eOk) << name;
  }
}

}  // namespace
