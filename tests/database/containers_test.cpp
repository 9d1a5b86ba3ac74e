// Extended data, dictionaries, Xrecords, groups, blocks and clones.
// Stored values are checked in the drawing after it was written and read again.
#include "atelier/database/lists/entity_groups.h"
#include "atelier/database/objects/chain.h"
#include "hote/acut.h"
#include "hote/adaptation.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;
using atelier::Group;

namespace {

AcDbObjectId line(Opened& drawing) { return append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0})); }

void registerApplication(Opened& drawing, const wchar_t* name) {
  AcDbRegAppTable* table = nullptr;
  ASSERT_EQ(drawing.db.getRegAppTable(table, AcDb::kForWrite), Acad::eOk);
  auto* record = new AcDbRegAppTableRecord;
  record->setName(name);
  EXPECT_EQ(table->add(record), Acad::eOk);
  record->close();
  table->close();
}

// The drawing after having been written and read.
struct Reread : Opened {
  explicit Reread(Opened& source) : bytes(source.written()) { atelier::dxf::readBytes(db, "d", bytes, nullptr); }
  AcDbObjectId same(AcDbObjectId id) { return atelier::idOf(imp.stubOf(id.handle().value())); }
  std::string bytes;
};

int length(const resbuf* chain) {
  int count = 0;
  for (; chain; chain = chain->rbnext) ++count;
  return count;
}

int dataLength(AcDbObjectId id, const wchar_t* application) {
  const AcDbEntityPointer entity(id);
  resbuf* chain = entity->xData(application);
  const int count = length(chain);
  acutRelRb(chain);
  return count;
}

TEST(ExtendedData, applicationsDontDisturbEachOther) {
  const auto nodes = atelier::liveNodes();
  Opened drawing(true);
  registerApplication(drawing, L"PLV2_DATA");
  registerApplication(drawing, L"AUTRE");
  const AcDbObjectId id = line(drawing);
  {
    const AcDbEntityPointer entity(id, AcDb::kForWrite);
    ads_point p = {1, 2, 3};
    resbuf* both = acutBuildList(1001, L"PLV2_DATA", 1000, L"é", 1002, L"{", 1040, 2.5, 1010, p, 1070, 5, 1071,
                                 -99999999, 1002, L"}", 1001, L"AUTRE", 1000, L"x", RTNONE);
    EXPECT_EQ(entity->setXData(both), Acad::eOk);
    acutRelRb(both);
    resbuf* unknown = acutBuildList(1001, L"INCONNUE", 1000, L"x", RTNONE);
    EXPECT_EQ(entity->setXData(unknown), Acad::eRegappIdNotFound);
    acutRelRb(unknown);
  }
  Reread again(drawing);
  EXPECT_EQ(dataLength(again.same(id), L"plv2_data"), 8);
  EXPECT_EQ(dataLength(again.same(id), L"AUTRE"), 2);
  EXPECT_EQ(dataLength(again.same(id), nullptr), 10);
  EXPECT_EQ(dataLength(again.same(id), L"ABSENTE"), 0);
  {
    const AcDbEntityPointer entity(again.same(id), AcDb::kForWrite);
    resbuf* lone = acutBuildList(1001, L"PLV2_DATA", RTNONE);
    EXPECT_EQ(entity->setXData(lone), Acad::eOk);
    acutRelRb(lone);
  }
  EXPECT_EQ(dataLength(again.same(id), L"PLV2_DATA"), 0);
  EXPECT_EQ(dataLength(again.same(id), L"AUTRE"), 2);
  EXPECT_EQ(atelier::liveNodes(), nodes);
}

TEST(Dictionaries, entriesComeThrough) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  ads_name name;
  atelier::nameOf(id, name);
  {
    const AcDbObjectPointer<AcDbDictionary> root(drawing.db.namedObjectsDictionaryId(), AcDb::kForWrite);
    AcDbObjectId entry;
    auto* record = new AcDbXrecord;
    ASSERT_EQ(root->setAt(L"KAVEL é", record, entry), Acad::eOk);
    ads_point p = {1, 2, 3};
    resbuf* chain = acutBuildList(90, 70000, 300, L"texte", 330, name, 40, 2.5, 10, p, 70, -3, RTNONE);
    EXPECT_EQ(record->setFromRbChain(*chain), Acad::eOk);
    acutRelRb(chain);
    record->close();
    EXPECT_TRUE(root->has(L"kavel É"));
  }
  Reread again(drawing);
  const AcDbObjectPointer<AcDbDictionary> root(again.db.namedObjectsDictionaryId());
  AcDbObject* object = nullptr;
  ASSERT_EQ(root->getAt(L"KAVEL é", object, AcDb::kForRead), Acad::eOk);
  resbuf* chain = nullptr;
  ASSERT_EQ(AcDbXrecord::cast(object)->rbChain(&chain), Acad::eOk);
  object->close();
  ASSERT_EQ(length(chain), 6);
  EXPECT_EQ(chain->resval.rlong, 70000);
  EXPECT_EQ(atelier::stubOfName(chain->rbnext->rbnext->resval.rlname), again.same(id));
  acutRelRb(chain);
}

TEST(Groups, membersKnowTheirGroup) {
  Opened drawing(true);
  const AcDbObjectId first = line(drawing), second = line(drawing);
  AcDbObjectId id;
  {
    const AcDbObjectPointer<AcDbDictionary> groups(drawing.db.groupDictionaryId(), AcDb::kForWrite);
    auto* group = new AcDbGroup(L"regards");
    ASSERT_EQ(groups->setAt(L"*", group, id), Acad::eOk);
    EXPECT_EQ(group->append(first), Acad::eOk);
    EXPECT_EQ(group->append(first), Acad::eAlreadyInGroup);
    EXPECT_EQ(group->append(second), Acad::eOk);
    group->close();
  }
  {
    const AcDbEntityPointer gone(second, AcDb::kForWrite);
    gone->erase();
  }
  Reread again(drawing);
  const AcDbObjectPointer<AcDbGroup> group(again.same(id));
  EXPECT_EQ(group->numEntities(), 1u);
  EXPECT_TRUE(group->isAnonymous());
  EXPECT_TRUE(group->has(AcDbEntityPointer(again.same(first))));
  EXPECT_EQ(again.bytes.find("\n" + atelier::handleText(second.handle()) + "\n"), std::string::npos);
}

TEST(Blocks, clonesTranslateTheirReferences) {
  Opened drawing(true);
  const AcDbObjectId reference = append(drawing, new AcDbBlockReference({5, 5, 0}, circleBlock(drawing, L"REGARD")));
  {
    const AcDbObjectPointer<AcDbBlockReference> opened(reference, AcDb::kForWrite);
    auto* attribute = new AcDbAttribute({0, 0, 0}, L"12", L"NUM");
    opened->appendAttribute(attribute);
    attribute->close();
    opened->createExtensionDictionary();
  }
  AcDbIdMapping mapping;
  AcDbObjectIdArray ids;
  ids.append(reference);
  ASSERT_EQ(drawing.db.deepCloneObjects(ids, drawing.db.currentSpaceId(), mapping), Acad::eOk);
  AcDbObjectId copy;
  ASSERT_TRUE(adaptation::copyOf(mapping, reference, copy));
  Reread again(drawing);
  const AcDbObjectPointer<AcDbBlockReference> read(again.same(copy)), original(again.same(reference));
  EXPECT_FALSE(read->extensionDictionary().isNull());
  EXPECT_NE(read->extensionDictionary(), original->extensionDictionary());
  const std::unique_ptr<AcDbObjectIterator> attributes(read->attributeIterator());
  ASSERT_FALSE(attributes->done());
  EXPECT_EQ(AcDbEntityPointer(attributes->objectId())->ownerId(), again.same(copy));
}

TEST(Blocks, anotherDrawingComesInWithWhatItNeeds) {
  Opened target(true), source(true);
  {
    AcDbLayerTable* layers = nullptr;
    source.db.getLayerTable(layers, AcDb::kForWrite);
    auto* layer = new AcDbLayerTableRecord;
    layer->setName(L"AXE");
    layers->add(layer);
    layer->close();
    layers->close();
    const AcDbEntityPointer entity(line(source), AcDb::kForWrite);
    entity->setLayer(L"AXE");
  }
  append(source, new AcDbBlockReference({5, 5, 0}, circleBlock(source, L"REGARD")));
  AcDbObjectId id;
  ASSERT_EQ(target.db.insert(id, L"PLAN", &source.db), Acad::eOk);
  EXPECT_EQ(target.db.insert(id, L"plan", &source.db), Acad::eDuplicateRecordName);
  Reread again(target);
  EXPECT_TRUE(again.imp.tableRecord("LAYER", "AXE"));
  EXPECT_TRUE(again.imp.tableRecord("BLOCK_RECORD", "REGARD"));
  const AcDbObjectPointer<AcDbBlockTableRecord> plan(atelier::idOf(again.imp.tableRecord("BLOCK_RECORD", "PLAN")));
  EXPECT_EQ(adaptation::entityIds(*plan).length(), 2);
}

TEST(GroupLists, entitiesAreMadeAndChanged) {
  Opened drawing(true);
  atelier::EntityMaker maker(drawing.imp);
  const auto made = maker.make(
      {Group::text(0, "CIRCLE"), Group::text(8, "NEUF"), Group::real(10, 1), Group::real(20, 2), Group::real(40, 5)});
  ASSERT_TRUE(made.ok && made.stub);
  EXPECT_TRUE(drawing.imp.tableRecord("LAYER", "NEUF"));
  EXPECT_FALSE(maker.make({Group::text(0, "TEXT"), Group::text(7, "ABSENT"), Group::text(1, "x")}).ok);
  EXPECT_FALSE(maker.make({Group::text(0, "INSERT"), Group::text(2, "ABSENT")}).ok);
  EXPECT_FALSE(maker.make({Group::text(0, "CERCLE")}).ok);
  std::vector<Group> groups = atelier::groupsOf(*made.stub, {}).copies();
  for (Group& group : groups)
    if (group.code() == 40) group = Group::real(40, 7);
  EXPECT_TRUE(atelier::changeObject(*made.stub, groups));
  groups[0] = Group::text(0, "LINE");
  EXPECT_FALSE(atelier::changeObject(*made.stub, groups));
  Reread again(drawing);
  const AcDbObjectPointer<AcDbCircle> circle(again.same(atelier::idOf(made.stub)));
  ASSERT_EQ(circle.openStatus(), Acad::eOk);
  EXPECT_EQ(circle->radius(), 7.0);
  EXPECT_EQ(circle->center().y, 2.0);
}

struct Box {
  const char* name;
  AcDbEntity* entity;
  AcGePoint3d low, high;
};

TEST(Extents, boxesByHand) {
  Opened drawing(true);
  auto* bulged = new AcDbPolyline;
  bulged->addVertexAt(0, {0, 0}, 1);  // a half circle below the chord
  bulged->addVertexAt(1, {2, 0});
  auto* tilted = new AcDbCircle({0, 0, 0}, {0, 1, 0}, 2);
  AcGePoint3dArray fit;
  const double pi = 3.14159265358979323846;
  const Box rows[] = {
      {"line", new AcDbLine({3, 1, 2}, {0, 5, -1}), {0, 1, -1}, {3, 5, 2}},
      {"circle", new AcDbCircle({1, 2, 3}, {0, 0, 1}, 4), {-3, -2, 3}, {5, 6, 3}},
      {"circle on edge", tilted, {-2, 0, -2}, {2, 0, 2}},
      {"quarter arc", new AcDbArc({0, 0, 0}, 2, 0, pi / 2), {0, 0, 0}, {2, 2, 0}},
      {"arc over the top",
       new AcDbArc({0, 0, 0}, 2, pi / 4, 3 * pi / 4),
       {-std::sqrt(2), std::sqrt(2), 0},
       {std::sqrt(2), 2, 0}},
      {"arc through zero", new AcDbArc({0, 0, 0}, 1, 3 * pi / 2, pi / 2), {0, -1, 0}, {1, 1, 0}},
      {"ellipse", new AcDbEllipse({1, 1, 0}, {0, 0, 1}, {0, 4, 0}, 0.5), {-1, -3, 0}, {3, 5, 0}},
      {"bulge", bulged, {0, -1, 0}, {2, 0, 0}},
      {"point", new AcDbPoint({1, 2, 3}), {1, 2, 3}, {1, 2, 3}},
      {"block", new AcDbBlockReference({10, 10, 0}, circleBlock(drawing, L"REGARD")), {8, 8, 0}, {12, 12, 0}},
  };
  for (const Box& row : rows) {
    AcDbExtents box;
    append(drawing, row.entity);
    ASSERT_EQ(row.entity->getGeomExtents(box), Acad::eOk) << row.name;
    for (const auto& [got, wanted] : {std::pair(box.minPoint(), row.low), std::pair(box.maxPoint(), row.high)}) {
      EXPECT_NEAR(got.x, wanted.x, 1e-9) << row.name;
      EXPECT_NEAR(got.y, wanted.y, 1e-9) << row.name;
      EXPECT_NEAR(got.z, wanted.z, 1e-9) << row.name;
    }
  }
}

TEST(Polylines, verticesComeThrough) {
  Opened drawing(true);
  auto* polyline = new AcDbPolyline;
  polyline->addVertexAt(0, {0, 0}, 0.5, 1, 2);
  polyline->addVertexAt(1, {10, 0});
  polyline->addVertexAt(1, {5, 5}, -1);
  polyline->setClosed(true);
  polyline->setElevation(3);
  const AcDbObjectId id = append(drawing, polyline);
  Reread again(drawing);
  const AcDbObjectPointer<AcDbPolyline> read(again.same(id));
  ASSERT_EQ(read->numVerts(), 3u);
  AcGePoint2d p;
  double bulge = 0, from = 0, to = 0;
  read->getPointAt(1, p);
  EXPECT_EQ(p.x, 5.0);
  read->getBulgeAt(1, bulge);
  EXPECT_EQ(bulge, -1.0);
  read->getWidthsAt(0, from, to);
  EXPECT_EQ(to, 2.0);
  EXPECT_TRUE(read->isClosed());
  EXPECT_EQ(read->elevation(), 3.0);
  EXPECT_EQ(read->getPointAt(3, p), Acad::eInvalidIndex);
}

}  // namespace
