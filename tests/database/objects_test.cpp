// Opening and closing, erasing, replacing objects, undo: the rules on which every caller relies.
// Each test works on the drawing that new ones start from.
#include "hote/acut.h"
#include "tests/dxf/drawing_files.h"

using namespace drawing;

namespace {

AcDbObjectId line(Opened& drawing) { return append(drawing, new AcDbLine({0, 0, 0}, {10, 5, 0})); }

TEST(Opening, severalReadersOrOneWriter) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  AcDbEntity *first = nullptr, *second = nullptr, *third = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(first, id, AcDb::kForRead), Acad::eOk);
  ASSERT_EQ(acdbOpenAcDbEntity(second, id, AcDb::kForRead), Acad::eOk);
  EXPECT_EQ(acdbOpenAcDbEntity(third, id, AcDb::kForWrite), Acad::eWasOpenForRead);
  EXPECT_EQ(third, nullptr);
  EXPECT_EQ(first->upgradeOpen(), Acad::eHadMultipleReaders);
  EXPECT_EQ(first->setColorIndex(3), Acad::eNotOpenForWrite);
  EXPECT_EQ(second->close(), Acad::eOk);
  EXPECT_EQ(first->upgradeOpen(), Acad::eOk);
  EXPECT_EQ(acdbOpenAcDbEntity(second, id, AcDb::kForRead), Acad::eWasOpenForWrite);
  EXPECT_EQ(acdbOpenAcDbEntity(second, id, AcDb::kForWrite), Acad::eWasOpenForWrite);
  EXPECT_EQ(first->setColorIndex(3), Acad::eOk);
  EXPECT_EQ(first->downgradeOpen(), Acad::eOk);
  EXPECT_EQ(first->setColorIndex(4), Acad::eNotOpenForWrite);
  EXPECT_EQ(first->colorIndex(), 3);
  EXPECT_EQ(first->close(), Acad::eOk);
  EXPECT_EQ(first->close(), Acad::eNotOpenForRead);
  EXPECT_EQ(atelier::OpenObjects::count(), 0u);
}

TEST(Opening, otherClassesAndNoObjects) {
  Opened drawing(true);
  AcDbCircle* circle = nullptr;
  EXPECT_EQ(acdbOpenObject(circle, line(drawing), AcDb::kForRead), Acad::eNotThatKindOfClass);
  EXPECT_EQ(acdbOpenObject(circle, AcDbObjectId::kNull, AcDb::kForRead), Acad::eNullObjectId);
  AcDbObjectId id;
  EXPECT_EQ(drawing.db.getAcDbObjectId(id, false, AcDbHandle(L"FFFFFF")), Acad::eUnknownHandle);
  EXPECT_EQ(atelier::OpenObjects::count(), 0u);
}

TEST(Opening, handlesFindTheirObjects) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  AcDbObjectId found;
  ASSERT_EQ(drawing.db.getAcDbObjectId(found, false, id.handle()), Acad::eOk);
  EXPECT_EQ(found, id);
  EXPECT_GT(drawing.imp.handleSeed(), id.handle().value());
}

TEST(Opening, manyObjectsAreDroppedFromMemoryAndComeBack) {
  std::string bytes = "0\nSECTION\n2\nENTITIES\n";
  const std::size_t count = AcDbImpDatabase::kMostIdle + 5000;
  for (std::size_t i = 0; i < count; ++i)
    bytes += "0\nPOINT\n5\n" + atelier::handleText(i + 16) + "\n8\n0\n10\n" + std::to_string(i) + "\n20\n0\n30\n0\n";
  bytes += "0\nENDSEC\n0\nEOF\n";
  Opened drawing;
  atelier::dxf::readBytes(drawing.db, "points", bytes, nullptr);
  AcDbEntity* held = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(held, atelier::idOf(drawing.imp.stubOf(16)), AcDb::kForRead), Acad::eOk);
  for (const AcDbStub& stub : drawing.imp.stubs()) drawing.imp.object(const_cast<AcDbStub&>(stub));
  std::size_t resident = 0;
  for (const AcDbStub& stub : drawing.imp.stubs()) resident += stub.object != nullptr;
  EXPECT_LT(resident, AcDbImpDatabase::kMostIdle + 100);
  EXPECT_EQ(AcDbPoint::cast(held)->position().x, 0.0);
  held->close();
  const AcDbObjectPointer<AcDbPoint> again(atelier::idOf(drawing.imp.stubOf(17)));
  EXPECT_EQ(again->position().x, 1.0);
}

// A reference works even when its block has more entities than are kept in memory.
TEST(Opening, aLargeBlockLeavesItsReferenceInMemory) {
  const std::size_t count = AcDbImpDatabase::kMostIdle + 1000;
  std::string bytes = "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n8\n0\n2\nTOUT\n70\n0\n10\n0\n20\n0\n30\n0\n";
  for (std::size_t i = 0; i < count; ++i) bytes += "0\nPOINT\n8\n0\n10\n" + std::to_string(i) + "\n20\n2\n30\n0\n";
  bytes += "0\nENDBLK\n8\n0\n0\nENDSEC\n0\nSECTION\n2\nENTITIES\n";
  bytes += "0\nINSERT\n5\nA0\n8\n0\n2\nTOUT\n10\n10\n20\n0\n30\n0\n0\nENDSEC\n0\nEOF\n";
  Opened drawing;
  atelier::dxf::readBytes(drawing.db, "bloc", bytes, nullptr);
  AcDbStub& stub = *drawing.imp.stubOf(0xA0);
  const auto* reference = AcDbBlockReference::cast(&drawing.imp.object(stub));
  ASSERT_NE(reference, nullptr);
  AcDbExtents box;
  ASSERT_EQ(reference->getGeomExtents(box), Acad::eOk);
  EXPECT_EQ(stub.object, reference);
  EXPECT_EQ(box.minPoint(), AcGePoint3d(10, 2, 0));
  EXPECT_EQ(box.maxPoint(), AcGePoint3d(static_cast<double>(count + 9), 2, 0));
  AcArray<AcRxObject*> parts;
  ASSERT_EQ(reference->explode(parts), Acad::eOk);
  EXPECT_EQ(parts.length(), static_cast<int>(count));
  EXPECT_EQ(stub.object, reference);
  for (int i = 0; i < parts.length(); ++i) delete parts[i];
}

TEST(Opening, aLongPolylineStaysWhileItsVerticesAreWalked) {
  const std::size_t count = AcDbImpDatabase::kMostIdle + 1000;
  std::string bytes = "0\nSECTION\n2\nENTITIES\n0\nPOLYLINE\n5\nA0\n8\n0\n66\n1\n70\n0\n";
  for (std::size_t i = 0; i < count; ++i) bytes += "0\nVERTEX\n8\n0\n10\n" + std::to_string(i) + "\n20\n2\n30\n0\n";
  bytes += "0\nSEQEND\n8\n0\n0\nENDSEC\n0\nEOF\n";
  Opened drawing;
  atelier::dxf::readBytes(drawing.db, "polyligne", bytes, nullptr);
  AcDbStub& stub = *drawing.imp.stubOf(0xA0);
  const auto* polyline = AcDb2dPolyline::cast(&drawing.imp.object(stub));
  ASSERT_NE(polyline, nullptr);
  AcDbExtents box;
  ASSERT_EQ(polyline->getGeomExtents(box), Acad::eOk);
  EXPECT_EQ(box.maxPoint(), AcGePoint3d(static_cast<double>(count - 1), 2, 0));
  double length = 0, end = 0;
  ASSERT_EQ(polyline->getEndParam(end), Acad::eOk);
  ASSERT_EQ(polyline->getDistAtParam(end, length), Acad::eOk);
  EXPECT_DOUBLE_EQ(length, static_cast<double>(count - 1));
  EXPECT_EQ(stub.object, polyline);
}

TEST(Erasing, whatIsOwnedGoesAndComesBack) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  AcDbObjectId dictionary;
  {
    const AcDbEntityPointer entity(id, AcDb::kForWrite);
    ASSERT_EQ(entity->createExtensionDictionary(), Acad::eOk);
    EXPECT_EQ(entity->createExtensionDictionary(), Acad::eAlreadyInDb);
    dictionary = entity->extensionDictionary();
    ASSERT_EQ(entity->erase(), Acad::eOk);
    EXPECT_EQ(entity->erase(), Acad::eWasErased);
  }
  AcDbEntity* entity = nullptr;
  EXPECT_EQ(acdbOpenAcDbEntity(entity, id, AcDb::kForRead), Acad::eWasErased);
  EXPECT_TRUE(dictionary.isErased());
  EXPECT_EQ(drawing.written().find("\n" + atelier::handleText(id.handle()) + "\n"), std::string::npos);
  ASSERT_EQ(acdbOpenAcDbEntity(entity, id, AcDb::kForWrite, true), Acad::eOk);
  EXPECT_EQ(entity->erase(false), Acad::eOk);
  entity->close();
  EXPECT_FALSE(dictionary.isErased());
  EXPECT_NE(drawing.written().find("\n" + atelier::handleText(id.handle()) + "\n"), std::string::npos);
}

TEST(Places, anotherObjectTakesOver) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  const AcDbHandle handle = id.handle();
  AcDbEntity* old = nullptr;
  ASSERT_EQ(acdbOpenAcDbEntity(old, id, AcDb::kForWrite), Acad::eOk);
  old->createExtensionDictionary();
  const AcDbObjectId dictionary = old->extensionDictionary();
  auto* circle = new AcDbCircle({1, 2, 0}, {0, 0, 1}, 3);
  ASSERT_EQ(old->handOverTo(circle), Acad::eObjectToBeDeleted);
  EXPECT_EQ(old->database(), nullptr);
  delete old;
  EXPECT_EQ(circle->objectId(), id);
  EXPECT_EQ(circle->extensionDictionary(), dictionary);
  circle->close();
  Opened again;
  const std::string bytes = drawing.written();
  atelier::dxf::readBytes(again.db, "d", bytes, nullptr);
  EXPECT_EQ(again.imp.typeName(*again.imp.stubOf(handle.value())), "CIRCLE");
}

TEST(Undo, stepsGoBackAndForth) {
  Opened drawing(true);
  const AcDbObjectId id = line(drawing);
  const std::string before = drawing.written();
  drawing.imp.journal.mark();
  {
    const AcDbEntityPointer entity(id, AcDb::kForWrite);
    entity->setColorIndex(3);
  }
  const AcDbObjectId added = line(drawing);
  drawing.imp.journal.mark();
  {
    const AcDbEntityPointer entity(id, AcDb::kForWrite);
    entity->erase();
  }
  EXPECT_TRUE(id.isErased());
  EXPECT_TRUE(drawing.imp.journal.undo());
  EXPECT_FALSE(id.isErased());
  EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 3);
  EXPECT_TRUE(drawing.imp.journal.undo());
  EXPECT_TRUE(added.isErased());
  EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 256);
  EXPECT_EQ(differences(before, drawing.written()).size(), 2u);  // the handle seed, old and new
  EXPECT_FALSE(drawing.imp.journal.undo());
  EXPECT_TRUE(drawing.imp.journal.redo());
  EXPECT_FALSE(added.isErased());
  EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 3);
  EXPECT_TRUE(drawing.imp.journal.redo());
  EXPECT_TRUE(id.isErased());
  EXPECT_FALSE(drawing.imp.journal.redo());
}

// A thousand images of a large object would fill the memory: the oldest steps are dropped, the last ones kept.
TEST(Undo, whatIsKeptIsBounded) {
  Opened drawing(true);
  auto* polyline = new AcDbPolyline;
  for (unsigned i = 0; i < 50'000; ++i) polyline->addVertexAt(i, AcGePoint2d(i, i % 7));
  append(drawing, polyline);
  const AcDbObjectId id = polyline->objectId();
  for (Adesk::UInt16 step = 1; step <= 200; ++step) {
    drawing.imp.journal.mark();
    const AcDbEntityPointer entity(id, AcDb::kForWrite);
    entity->setColorIndex(step);
  }
  EXPECT_EQ(drawing.imp.journal.undo(10), 10);
  EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 190);
  const int rest = drawing.imp.journal.undo(1000);
  EXPECT_GT(rest, 5);
  EXPECT_LT(rest, 190);
  for (int calls = 0; calls < 2; ++calls) EXPECT_TRUE(drawing.imp.journal.redo());
  EXPECT_EQ(AcDbEntityPointer(id)->colorIndex(), 200);
}

// A paragraph of R2018 carries an object of its own behind its fields, with the same codes: those are not the paragraph's.
TEST(Fields, stayBeforeAnEmbeddedObject) {
  Opened drawing(true);
  const AcDbObjectId id = append(drawing, new AcDbMText);
  auto& groups = AcDbImpObject::of(AcDbEntityPointer(id, AcDb::kForWrite).object()).record.groups;
  groups.push_back(atelier::Group::text(101, "Embedded Object"));
  groups.push_back(atelier::Group::real(50, 90));
  const AcDbObjectPointer<AcDbMText> text(id, AcDb::kForWrite);
  EXPECT_EQ(text->rotation(), 0);
  text->setRotation(0.5);
  EXPECT_NEAR(text->rotation(), 0.5, 1e-15);
  ASSERT_EQ(groups.back().code(), 50);
  EXPECT_EQ(groups.back().real(), 90);
  EXPECT_EQ(groups[groups.size() - 2].code(), 101);
}

}  // namespace
