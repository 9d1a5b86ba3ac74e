// Undo and redo of every kind of change, in a drawing from a file: objects first parsed for the change must be restored
// as they are in the file. Checked by the bytes that would be saved.
#include "atelier/database/objects/chain.h"
#include "hote/acut.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

constexpr const wchar_t* kBlock = L"REGARD";

// The handles of what the operations change.
struct Parts {
  AcDbHandle line, other, insert, attribute, group, entry, layer, polyline;
};

// A drawing with one of each, as bytes.
std::string drawingBytes(Parts& parts) {
  Opened drawing(true);
  const AcDbObjectId line = append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0})),
                     other = append(drawing, new AcDbPoint({3, 3, 0}));
  const AcDbObjectId insert = append(drawing, new AcDbBlockReference({5, 5, 0}, circleBlock(drawing, kBlock)));
  auto* row = new AcDbPolyline;
  for (unsigned i = 0; i < 4; ++i) row->addVertexAt(i, AcGePoint2d(i, i % 2), 0.25);
  parts.polyline = append(drawing, row).handle();
  {
    const AcDbObjectPointer<AcDbBlockReference> opened(insert, AcDb::kForWrite);
    auto* attribute = new AcDbAttribute({0, 0, 0}, L"12", L"NUM");
    AcDbObjectId id;
    opened->appendAttribute(id, attribute);
    attribute->setHeight(2);
    attribute->close();
    parts.attribute = id.handle();
  }
  {
    const AcDbEntityPointer opened(line, AcDb::kForWrite);
    opened->createExtensionDictionary();
    const AcDbObjectPointer<AcDbDictionary> own(opened->extensionDictionary(), AcDb::kForWrite);
    auto* record = new AcDbXrecord;
    AcDbObjectId id;
    own->setAt(L"DONNEES", record, id);
    record->close();
    parts.entry = id.handle();
  }
  {
    const AcDbObjectPointer<AcDbDictionary> groups(drawing.db.groupDictionaryId(), AcDb::kForWrite);
    auto* group = new AcDbGroup(L"regards");
    AcDbObjectId id;
    groups->setAt(L"G1", group, id);
    group->append(line);
    group->close();
    parts.group = id.handle();
  }
  AcDbLayerTable* layers = nullptr;
  drawing.db.getLayerTable(layers, AcDb::kForWrite);
  auto* layer = new AcDbLayerTableRecord;
  layer->setName(L"AXE");
  AcDbObjectId id;
  layers->add(id, layer);
  layer->close();
  layers->close();
  parts.layer = id.handle();
  parts.line = line.handle();
  parts.other = other.handle();
  parts.insert = insert.handle();
  return drawing.written();
}

struct FromFile : Opened {
  explicit FromFile(const std::string& bytes) { atelier::dxf::readBytes(db, "d", bytes, nullptr); }
  AcDbObjectId id(AcDbHandle handle) { return atelier::idOf(imp.stubOf(handle.value())); }
};

// The contents of a saved drawing, without the seed of its handles, which only grows.
std::vector<std::string> changed(const std::string& a, const std::string& b) {
  auto keys = differences(a, b);
  std::erase_if(keys, [](const std::string& key) { return key.find("$HANDSEED") != std::string::npos; });
  return keys;
}

template <class T>
using Open = AcDbObjectPointer<T>;
constexpr auto kWrite = AcDb::kForWrite;

void turnIntoCircle(FromFile& d, AcDbHandle handle) {
  AcDbEntity* old = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(old, d.id(handle), kWrite), Acad::eOk);
  auto* circle = new AcDbCircle({1, 2, 0}, {0, 0, 1}, 3);
  ASSERT_EQ(old->handOverTo(circle), Acad::eObjectToBeDeleted);
  delete old;
  circle->close();
}

const struct Operation {
  const char* name;
  void (*run)(FromFile& d, const Parts& p);
} kOperations[] = {
    {"colour", [](FromFile& d, const Parts& p) { Open<AcDbEntity>(d.id(p.line), kWrite)->setColorIndex(3); }},
    {"move",
     [](FromFile& d, const Parts& p) {
       Open<AcDbEntity>(d.id(p.insert), kWrite)->transformBy(AcGeMatrix3d::translation({1, 1, 0}));
     }},
    {"erase with an extension dictionary",
     [](FromFile& d, const Parts& p) { Open<AcDbEntity>(d.id(p.line), kWrite)->erase(); }},
    {"erase with attributes", [](FromFile& d, const Parts& p) { Open<AcDbEntity>(d.id(p.insert), kWrite)->erase(); }},
    {"erase an attribute", [](FromFile& d, const Parts& p) { Open<AcDbEntity>(d.id(p.attribute), kWrite)->erase(); }},
    {"erase and bring back",
     [](FromFile& d, const Parts& p) {
       Open<AcDbEntity>(d.id(p.insert), kWrite)->erase();
       Open<AcDbEntity>(d.id(p.insert), kWrite, true)->erase(false);
       Open<AcDbEntity>(d.id(p.insert), kWrite)->setColorIndex(1);
     }},
    {"another value",
     [](FromFile& d, const Parts& p) { Open<AcDbText>(d.id(p.attribute), kWrite)->setTextString(L"13"); }},
    {"another attribute",
     [](FromFile& d, const Parts& p) {
       auto* attribute = new AcDbAttribute({0, 4, 0}, L"x", L"COTE");
       Open<AcDbBlockReference>(d.id(p.insert), kWrite)->appendAttribute(attribute);
       attribute->close();
     }},
    {"a first attribute",
     [](FromFile& d, const Parts&) {
       const AcDbObjectId id =
           append(d, new AcDbBlockReference({1, 1, 0}, atelier::idOf(d.imp.tableRecord("BLOCK_RECORD", "REGARD"))));
       auto* attribute = new AcDbAttribute({0, 4, 0}, L"x", L"COTE");
       Open<AcDbBlockReference>(id, kWrite)->appendAttribute(attribute);
       attribute->close();
     }},
    {"a member more",
     [](FromFile& d, const Parts& p) { Open<AcDbGroup>(d.id(p.group), kWrite)->append(d.id(p.other)); }},
    {"a member less",
     [](FromFile& d, const Parts& p) { Open<AcDbGroup>(d.id(p.group), kWrite)->remove(d.id(p.line)); }},
    {"no group", [](FromFile& d, const Parts& p) { Open<AcDbGroup>(d.id(p.group), kWrite)->erase(); }},
    {"an entry more",
     [](FromFile& d, const Parts&) {
       const Open<AcDbDictionary> root(d.db.namedObjectsDictionaryId(), kWrite);
       auto* record = new AcDbXrecord;
       AcDbObjectId id;
       root->setAt(L"KAVEL", record, id);
       record->close();
     }},
    {"items of an Xrecord",
     [](FromFile& d, const Parts& p) {
       resbuf* chain = acutBuildList(1, L"texte", 40, 2.5, RTNONE);
       Open<AcDbXrecord>(d.id(p.entry), kWrite)->setFromRbChain(*chain);
       acutRelRb(chain);
     }},
    {"an entry for another",
     [](FromFile& d, const Parts& p) {
       const Open<AcDbDictionary> own(Open<AcDbEntity>(d.id(p.line))->extensionDictionary(), kWrite);
       auto* record = new AcDbXrecord;
       AcDbObjectId id;
       own->setAt(L"donnees", record, id);
       record->close();
     }},
    {"an entry less",
     [](FromFile& d, const Parts& p) {
       Open<AcDbDictionary>(Open<AcDbEntity>(d.id(p.line))->extensionDictionary(), kWrite)->remove(L"DONNEES");
     }},
    {"an extension dictionary",
     [](FromFile& d, const Parts& p) { Open<AcDbEntity>(d.id(p.other), kWrite)->createExtensionDictionary(); }},
    {"another class", [](FromFile& d, const Parts& p) { turnIntoCircle(d, p.line); }},
    {"another class for one with attributes", [](FromFile& d, const Parts& p) { turnIntoCircle(d, p.insert); }},
    {"the same place twice", [](FromFile& d, const Parts& p) { turnIntoCircle(d, p.line), turnIntoCircle(d, p.line); }},
    {"a layer",
     [](FromFile& d, const Parts& p) { Open<AcDbLayerTableRecord>(d.id(p.layer), kWrite)->setName(L"BORD"); }},
    {"no layer", [](FromFile& d, const Parts& p) { Open<AcDbLayerTableRecord>(d.id(p.layer), kWrite)->erase(); }},
    {"a vertex",
     [](FromFile& d, const Parts& p) {
       Open<AcDbPolyline>(d.id(p.polyline), kWrite)->addVertexAt(1, {9, 9}, -1);
     }},
    {"a block's content",
     [](FromFile& d, const Parts&) {
       const Open<AcDbBlockTableRecord> block(atelier::idOf(d.imp.tableRecord("BLOCK_RECORD", "REGARD")), kWrite);
       auto* point = new AcDbPoint({0, 0, 0});
       block->appendAcDbEntity(point);
       point->close();
     }},
    {"no block",
     [](FromFile& d, const Parts&) {
       Open<AcDbBlockTableRecord>(atelier::idOf(d.imp.tableRecord("BLOCK_RECORD", "REGARD")), kWrite)->erase();
     }},
    {"copies",
     [](FromFile& d, const Parts& p) {
       AcDbIdMapping mapping;
       AcDbObjectIdArray ids;
       ids.append(d.id(p.insert));
       ids.append(d.id(p.line));
       EXPECT_EQ(d.db.deepCloneObjects(ids, d.db.currentSpaceId(), mapping), Acad::eOk);
     }},
};

TEST(Undo, everyChangeGoesBackAndForth) {
  Parts parts;
  const std::string bytes = drawingBytes(parts);
  for (const Operation& operation : kOperations) {
    SCOPED_TRACE(operation.name);
    FromFile d(bytes);
    const std::string before = d.written();
    d.imp.journal.mark();
    operation.run(d, parts);
    const std::string after = d.written();
    EXPECT_FALSE(changed(before, after).empty());
    ASSERT_EQ(d.imp.journal.undo(), 1);
    EXPECT_EQ(changed(before, d.written()), std::vector<std::string>{});
    ASSERT_TRUE(d.imp.journal.redo());
    EXPECT_EQ(changed(after, d.written()), std::vector<std::string>{});
    ASSERT_EQ(d.imp.journal.undo(), 1);
    EXPECT_EQ(changed(before, d.written()), std::vector<std::string>{});
    EXPECT_EQ(atelier::OpenObjects::count(), 0u);
  }
}

// All changes that can follow each other, then undo step by step: each state is reached again.
TEST(Undo, manyStepsMeetTheirStatesAgain) {
  Parts parts;
  const std::string bytes = drawingBytes(parts);
  FromFile d(bytes);
  std::vector<std::string> states = {d.written()};
  for (const Operation& operation : kOperations) {
    const std::string_view name = operation.name;
    if (name.starts_with("erase with") || name.starts_with("erase an") || name.starts_with("no ") ||
        name.starts_with("another class") || name.starts_with("the same"))
      continue;
    d.imp.journal.mark();
    operation.run(d, parts);
    states.push_back(d.written());
  }
  for (std::size_t i = states.size() - 1; i-- > 0;) {
    ASSERT_EQ(d.imp.journal.undo(), 1) << i;
    EXPECT_EQ(changed(states[i], d.written()), std::vector<std::string>{}) << i;
  }
  for (std::size_t i = 1; i < states.size(); ++i) {
    ASSERT_TRUE(d.imp.journal.redo()) << i;
    EXPECT_EQ(changed(states[i], d.written()), std::vector<std::string>{}) << i;
  }
}

// Handles of undone objects are not given to others: redo needs them.
TEST(Undo, handlesAreNotGivenTwice) {
  Opened drawing(true);
  drawing.imp.journal.mark();
  const AcDbObjectId first = append(drawing, new AcDbPoint({1, 0, 0}));
  drawing.imp.journal.undo();
  const AcDbObjectId second = append(drawing, new AcDbPoint({2, 0, 0}));
  EXPECT_NE(first.handle().value(), second.handle().value());
  EXPECT_FALSE(drawing.imp.journal.redo());  // another change came between
  EXPECT_TRUE(first.isErased());
  const std::string bytes = drawing.written();
  EXPECT_EQ(bytes.find("\n" + atelier::handleText(first.handle()) + "\n"), std::string::npos);
}

// A group follows its members: one erased and brought back belongs to it again, one that another object replaced, too.
TEST(Groups, membersComeBackToTheirGroup) {
  Parts parts;
  const std::string bytes = drawingBytes(parts);
  FromFile d(bytes);
  const auto count = [&] { return Open<AcDbGroup>(d.id(parts.group))->numEntities(); };
  Open<AcDbEntity>(d.id(parts.line), kWrite)->erase();
  EXPECT_EQ(count(), 0u);
  Open<AcDbEntity>(d.id(parts.line), kWrite, true)->erase(false);
  EXPECT_EQ(count(), 1u);
  turnIntoCircle(d, parts.line);
  EXPECT_EQ(count(), 1u);
  EXPECT_TRUE(Open<AcDbGroup>(d.id(parts.group))->has(AcDbEntityPointer(d.id(parts.line))));
  EXPECT_EQ(Open<AcDbGroup>(d.id(parts.group), kWrite)->append(d.id(parts.line)), Acad::eAlreadyInGroup);
  EXPECT_EQ(Open<AcDbGroup>(d.id(parts.group), kWrite)->remove(d.id(parts.other)), Acad::eKeyNotFound);
  EXPECT_EQ(Open<AcDbGroup>(d.id(parts.group), kWrite)->clear(), Acad::eOk);
  EXPECT_EQ(count(), 0u);
  EXPECT_FALSE(Open<AcDbEntity>(d.id(parts.line))->hasPersistentReactor(d.id(parts.group)));
}

}  // namespace
