// Copies between drawings whose handles overlap: every kind of reference points to the copy, or to nothing, and never
// to another object with the same number. Checked in the drawing as it would be saved.
#include "atelier/database/objects/chain.h"
#include "hote/acut.h"
#include "hote/adaptation.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

template <class T>
using Open = AcDbObjectPointer<T>;
constexpr auto kWrite = AcDb::kForWrite;

struct Reread : Opened {
  explicit Reread(Opened& source) : bytes(source.written()) { atelier::dxf::readBytes(db, "d", bytes, nullptr); }
  std::string bytes;
};

void registerApplication(Opened& drawing) {
  const Open<AcDbRegAppTable> table(drawing.db.regAppTableId(), kWrite);
  auto* record = new AcDbRegAppTableRecord;
  record->setName(L"RESEAU");
  table->add(record);
  record->close();
}

// An entity that knows another by XDATA and by an Xrecord in its extension dictionary.
void refer(AcDbObjectId from, AcDbObjectId to) {
  const AcDbEntityPointer entity(from, kWrite);
  ads_name name;
  atelier::nameOf(to, name);
  resbuf* data = acutBuildList(1001, L"RESEAU", 1000, L"aval", 1005,
                               atelier::toWide(atelier::handleText(to.handle())).c_str(), RTNONE);
  EXPECT_EQ(entity->setXData(data), Acad::eOk);
  acutRelRb(data);
  entity->createExtensionDictionary();
  const Open<AcDbDictionary> own(entity->extensionDictionary(), kWrite);
  auto* record = new AcDbXrecord;
  AcDbObjectId id;
  ASSERT_EQ(own->setAt(L"LIEN", record, id), Acad::eOk);
  resbuf* chain = acutBuildList(1, L"vers", 330, name, RTNONE);
  EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
  acutRelRb(chain);
  record->close();
}

// Handle in the XDATA; handle in the Xrecord; 0 for a reference to nothing.
std::pair<std::uint64_t, std::uint64_t> referred(AcDbObjectId from) {
  std::pair<std::uint64_t, std::uint64_t> out;
  const AcDbEntityPointer entity(from);
  resbuf* data = entity->xData(L"RESEAU");
  for (const resbuf* node = data; node; node = node->rbnext)
    if (node->restype == 1005) out.first = AcDbHandle(node->resval.rstring).value();
  acutRelRb(data);
  const Open<AcDbDictionary> own(entity->extensionDictionary());
  EXPECT_EQ(own.openStatus(), Acad::eOk);
  AcDbObject* record = nullptr;
  if (own.openStatus() != Acad::eOk || own->getAt(L"LIEN", record, AcDb::kForRead) != Acad::eOk) return out;
  EXPECT_EQ(record->ownerId(), own->objectId());
  EXPECT_EQ(own->ownerId(), from);
  for (const atelier::Group& group : AcDbImpObject::of(record).record.groups)
    if (group.code() == 330) out.second = group.handle();
  record->close();
  return out;
}

std::vector<AcDbObjectId> inBlock(Opened& drawing, const char* name) {
  const Open<AcDbBlockTableRecord> block(atelier::idOf(drawing.imp.tableRecord("BLOCK_RECORD", name)));
  std::vector<AcDbObjectId> ids;
  if (block.openStatus() == Acad::eOk)
    for (const AcDbObjectId id : adaptation::entityIds(*block)) ids.push_back(id);
  return ids;
}

// The target begins with a few objects more each time, so that the copies' handles meet all those of the originals.
TEST(Clones, referencesIntoADrawingWithTheSameHandles) {
  for (int shift = 0; shift < 12; ++shift) {
    SCOPED_TRACE(shift);
    Opened target(true);
    for (int i = 0; i < shift; ++i) append(target, new AcDbPoint({1.0 * i, 0, 0}));
    Opened source(true);
    registerApplication(source);
    const AcDbObjectId a = append(source, new AcDbLine({0, 0, 0}, {1, 0, 0})),
                       b = append(source, new AcDbCircle({0, 0, 0}, {0, 0, 1}, 1));
    const AcDbObjectId c = append(source, new AcDbPoint({7, 7, 0}));
    refer(a, b);
    refer(b, c);
    AcDbEntityPointer(c, kWrite)->erase();
    AcDbObjectId id;
    ASSERT_EQ(target.db.insert(id, L"PLAN", &source.db), Acad::eOk);
    Reread again(target);
    const auto copies = inBlock(again, "PLAN");
    ASSERT_EQ(copies.size(), 2u);
    const auto first = referred(copies[0]), second = referred(copies[1]);
    EXPECT_EQ(first.first, copies[1].handle().value());
    EXPECT_EQ(first.second, copies[1].handle().value());
    EXPECT_EQ(second, std::pair(std::uint64_t{0}, std::uint64_t{0}));
  }
}

TEST(Clones, referencesWithinADrawing) {
  Opened drawing(true);
  registerApplication(drawing);
  const AcDbObjectId a = append(drawing, new AcDbLine({0, 0, 0}, {1, 0, 0})),
                     b = append(drawing, new AcDbPoint({0, 0, 0}));
  const AcDbObjectId c = append(drawing, new AcDbPoint({7, 7, 0}));
  refer(a, b);
  refer(b, c);
  AcDbIdMapping mapping;
  AcDbObjectIdArray ids;
  ids.append(a);
  ids.append(b);
  ASSERT_EQ(drawing.db.deepCloneObjects(ids, drawing.db.currentSpaceId(), mapping), Acad::eOk);
  AcDbObjectId a2, b2, c2;
  ASSERT_TRUE(adaptation::copyOf(mapping, a, a2) && adaptation::copyOf(mapping, b, b2));
  EXPECT_FALSE(adaptation::copyOf(mapping, c, c2));
  Reread again(drawing);
  const auto same = [&](AcDbObjectId id) { return atelier::idOf(again.imp.stubOf(id.handle().value())); };
  EXPECT_EQ(referred(same(a2)), std::pair(b2.handle().value(), b2.handle().value()));
  EXPECT_EQ(referred(same(b2)), std::pair(c.handle().value(), c.handle().value()));  // not copied: still the old one
  EXPECT_EQ(referred(same(a)), std::pair(b.handle().value(), b.handle().value()));
}

// Records referred to by name are copied at every level: a block in a block, its layer's line type, its text's style.
TEST(Clones, namesOfEveryTableComeAlong) {
  const std::string bytes =
      "0\nSECTION\n2\nHEADER\n9\n$ACADVER\n1\nAC1009\n9\n$"
      "INSBASE\n10\n100\n20\n50\n30\n0\n0\nENDSEC\n0\nSECTION\n2\nTABLES\n"
      "0\nTABLE\n2\nLTYPE\n70\n2\n0\nLTYPE\n2\nTIRETE\n70\n0\n3\n_ "
      "_\n72\n65\n73\n2\n40\n3\n49\n2\n49\n-1\n0\nLTYPE\n2\nMIXTE\n70\n0\n3\n_.\n72\n65\n73\n2\n40\n3\n49\n2\n49\n-"
      "1\n0\nENDTAB\n"
      "0\nTABLE\n2\nLAYER\n70\n2\n0\nLAYER\n2\nAXE\n70\n0\n62\n1\n6\nTIRETE\n0\nLAYER\n2\nFOND\n70\n0\n62\n3\n6\nCONTIN"
      "UOUS\n0\nENDTAB\n"
      "0\nTABLE\n2\nSTYLE\n70\n1\n0\nSTYLE\n2\nPENTE\n70\n0\n40\n0\n41\n0.8\n50\n0\n71\n0\n42\n2\n3\nDejaVuSerif."
      "ttf\n4\n\n0\nENDTAB\n"
      "0\nTABLE\n2\nAPPID\n70\n1\n0\nAPPID\n2\nRESEAU\n70\n0\n0\nENDTAB\n0\nENDSEC\n"
      "0\nSECTION\n2\nBLOCKS\n"
      "0\nBLOCK\n8\n0\n2\nDEDANS\n70\n2\n10\n1\n20\n2\n30\n0\n0\nATTDEF\n8\nAXE\n10\n1\n20\n2\n40\n2\n1\nv\n3\nq\n2\nNU"
      "M\n70\n0\n7\nPENTE\n0\nENDBLK\n8\n0\n"
      "0\nBLOCK\n8\n0\n2\nDEHORS\n70\n0\n10\n0\n20\n0\n30\n0\n0\nLINE\n8\nFOND\n6\nMIXTE\n10\n0\n20\n0\n11\n1\n21\n1\n1"
      "001\nRESEAU\n1000\nx\n"
      "0\nINSERT\n8\n0\n2\nDEDANS\n10\n5\n20\n5\n66\n1\n0\nATTRIB\n8\nAXE\n10\n5\n20\n5\n40\n2\n1\n12\n2\nNUM\n70\n0\n7"
      "\nPENTE\n0\nSEQEND\n8\n0\n0\nENDBLK\n8\n0\n"
      "0\nENDSEC\n0\nSECTION\n2\nENTITIES\n0\nINSERT\n8\n0\n2\nDEHORS\n10\n100\n20\n50\n0\nENDSEC\n0\nEOF\n";
  Opened target(true);
  Opened source;
  atelier::dxf::readBytes(source.db, "s", bytes, nullptr);
  AcDbObjectId id;
  ASSERT_EQ(target.db.insert(id, L"PLAN", &source.db), Acad::eOk);
  Reread again(target);
  const struct {
    const char *table, *name;
  } rows[] = {{"LAYER", "AXE"},           {"LAYER", "FOND"},          {"LTYPE", "TIRETE"},
              {"LTYPE", "MIXTE"},         {"STYLE", "PENTE"},         {"APPID", "RESEAU"},
              {"BLOCK_RECORD", "DEDANS"}, {"BLOCK_RECORD", "DEHORS"}, {"BLOCK_RECORD", "PLAN"}};
  for (const auto& row : rows) EXPECT_TRUE(again.imp.tableRecord(row.table, row.name)) << row.table << ' ' << row.name;
  const auto outer = inBlock(again, "DEHORS");
  ASSERT_EQ(outer.size(), 2u);
  const Open<AcDbBlockReference> inner(outer[1]);
  ASSERT_EQ(inner.openStatus(), Acad::eOk);
  const std::unique_ptr<AcDbObjectIterator> attributes(inner->attributeIterator());
  ASSERT_FALSE(attributes->done());
  EXPECT_EQ(Open<AcDbAttribute>(attributes->objectId())->ownerId(), outer[1]);
  // The base points: of the drawing, now the block's own, and of the block inside.
  EXPECT_EQ(Open<AcDbBlockTableRecord>(atelier::idOf(again.imp.tableRecord("BLOCK_RECORD", "PLAN")))->origin().x,
            100.0);
  EXPECT_EQ(Open<AcDbBlockTableRecord>(inner->blockTableRecord())->origin().y, 2.0);
}

// A second copy into the same drawing uses the records that the first one has added, and adds none again.
TEST(Clones, namesAlreadyThereAreTakenAsTheyAre) {
  Opened target(true), source(true);
  for (Opened* drawing : {&target, &source}) {
    const Open<AcDbLayerTable> layers(drawing->db.layerTableId(), kWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(drawing == &target ? L"Axe" : L"AXE");
    layers->add(layer);
    layer->close();
  }
  acdbHostApplicationServices()->setWorkingDatabase(&source.db);
  AcDbEntityPointer(append(source, new AcDbPoint({0, 0, 0})), kWrite)->setLayer(L"AXE");
  AcDbObjectId id;
  for (const wchar_t* name : {L"UN", L"DEUX"}) ASSERT_EQ(target.db.insert(id, name, &source.db), Acad::eOk);
  Reread again(target);
  int layers = 0;
  for (AcDbStub* stub : *again.imp.table("LAYER")->children)
    layers += again.imp.recordName(*stub) == "Axe" || again.imp.recordName(*stub) == "AXE";
  EXPECT_EQ(layers, 1);
}

// A reference of an anonymous block that holds one circle.
AcDbObjectId appendAnonymous(Opened& drawing, double radius) {
  auto* block = new AcDbBlockTableRecord;
  block->setName(L"*U");
  AcDbObjectId id;
  EXPECT_EQ(Open<AcDbBlockTable>(drawing.db.blockTableId(), kWrite)->add(id, block), Acad::eOk);
  auto* circle = new AcDbCircle({0, 0, 0}, {0, 0, 1}, radius);
  block->appendAcDbEntity(circle);
  circle->close();
  block->close();
  return append(drawing, new AcDbBlockReference({0, 0, 0}, id));
}

double radiusIn(AcDbObjectId reference) {
  const Open<AcDbBlockTableRecord> block(Open<AcDbBlockReference>(reference)->blockTableRecord());
  return Open<AcDbCircle>(adaptation::entityIds(*block)[0])->radius();
}

// Both drawings number their anonymous blocks from one: the same name is another block.
TEST(Clones, anonymousBlocksKeepTheirContents) {
  Opened target(true);
  const AcDbObjectId mine = appendAnonymous(target, 3);
  Opened source(true);
  for (const double radius : {7.0, 8.0}) appendAnonymous(source, radius);
  AcDbObjectId id;
  ASSERT_EQ(target.db.insert(id, L"PLAN", &source.db), Acad::eOk);
  Reread again(target);
  const auto copies = inBlock(again, "PLAN");
  ASSERT_EQ(copies.size(), 2u);
  EXPECT_EQ(radiusIn(atelier::idOf(again.imp.stubOf(mine.handle().value()))), 3.0);
  EXPECT_EQ(radiusIn(copies[0]), 7.0);
  EXPECT_EQ(radiusIn(copies[1]), 8.0);
}

}  // namespace
