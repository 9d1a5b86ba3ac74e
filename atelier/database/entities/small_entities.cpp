// Points, solids, faces, dimensions and multi-line texts: the fields that the module and the plots need.
// All else that they store is kept in their records.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/block_extents.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/adaptation.h"
#include "hote/dbents.h"
#include "hote/dbsymtb.h"

using namespace atelier;

namespace {

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }

constexpr Field kPosition = pointField("AcDbPoint", 10);
constexpr Field kLocation = pointField("AcDbMText", 10), kMHeight = realField("AcDbMText", 40, 2.5),
                kMWidth = realField("AcDbMText", 41), kAttachment = integerField("AcDbMText", 71, 1),
                kContents = textField("AcDbMText", 1), kMStyle = textField("AcDbMText", 7, "Standard"),
                kMRotation = realField("AcDbMText", 50), kXDirection = pointField("AcDbMText", 11),
                kLongText = textField("AcDbMText", 3);

AcGePoint3d corner(const AcDbObject* object, std::string_view subclass, int index) {
  const Record& record = recordOf(object);
  // A missing fourth corner repeats the third.
  for (; index > 0 && !record.has(pointField(subclass, 10 + index)); --index) {}
  return record.point(pointField(subclass, 10 + index));
}

Acad::ErrorStatus transformCorners(AcDbObject* object, std::string_view subclass, const AcGeMatrix3d& m, bool inPlane) {
  if (!impOf(object).writable()) return Acad::eNotOpenForWrite;
  const AcGeVector3d before = inPlane ? normalOf(recordOf(object), subclass) : AcGeVector3d(0, 0, 1);
  const PlaneChange plane(m, before);
  for (int i = 0; i < 4; ++i) {
    const Field field = pointField(subclass, 10 + i);
    if (!recordOf(object).has(field)) continue;
    const AcGePoint3d p = m * toWorld(recordOf(object).point(field), before);
    impOf(object).setPoint(field, inPlane ? toPlane(p, plane.normal) : p);
  }
  if (inPlane && !isWorldPlane(plane.normal))
    impOf(object).setPoint(normalField(subclass), AcGePoint3d() + plane.normal);
  return Acad::eOk;
}

// The data behind mark 101 repeat direction (10) and place (11) and have the columns' lengths.
void keepColumns(Record& record, const AcGePoint3d& at, double turned, double scale) {
  const std::size_t end = record.xdataStart();
  std::size_t i = 0;
  while (i < end && record.groups[i].code() != 101) ++i;
  for (; i < end; ++i) {
    Group& group = record.groups[i];
    const int code = group.code();
    if (code >= 40 && code <= 46) group = Group::real(code, group.real() * scale);
    const double values[] = {std::cos(turned), std::sin(turned), 0, at.x, at.y, at.z};
    for (int k = 0; k < 6; ++k)
      if (code == 10 + 10 * (k % 3) + k / 3) group = Group::real(code, values[k]);
  }
}

}  // namespace

AcDbPoint::AcDbPoint() { initRecord(*this, "POINT"); }
AcDbPoint::AcDbPoint(const AcGePoint3d& position) : AcDbPoint() { setPosition(position); }
AcGePoint3d AcDbPoint::position() const { return recordOf(this).point(kPosition); }
Acad::ErrorStatus AcDbPoint::setPosition(const AcGePoint3d& p) { return impOf(this).setPoint(kPosition, p); }
Acad::ErrorStatus AcDbPoint::subGetGeomExtents(AcDbExtents& extents) const {
  return extents.set(position(), position());
}
Acad::ErrorStatus AcDbPoint::transformBy(const AcGeMatrix3d& m) { return setPosition(m * position()); }

AcDbSolid::AcDbSolid() { initRecord(*this, "SOLID"); }
Acad::ErrorStatus AcDbSolid::getPointAt(int index, AcGePoint3d& point) const {
  if (index < 0 || index > 3) return Acad::eInvalidIndex;
  point = toWorld(corner(this, "AcDbTrace", index), normalOf(recordOf(this), "AcDbTrace"));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbSolid::subGetGeomExtents(AcDbExtents& extents) const {
  extents = AcDbExtents();
  for (int i = 0; i < 4; ++i) {
    AcGePoint3d p;
    getPointAt(i, p);
    extents.addPoint(p);
  }
  return Acad::eOk;
}
Acad::ErrorStatus AcDbSolid::transformBy(const AcGeMatrix3d& m) { return transformCorners(this, "AcDbTrace", m, true); }

AcDbFace::AcDbFace() { initRecord(*this, "3DFACE"); }
Acad::ErrorStatus AcDbFace::getVertexAt(int index, AcGePoint3d& point) const {
  if (index < 0 || index > 3) return Acad::eInvalidIndex;
  point = corner(this, "AcDbFace", index);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbFace::subGetGeomExtents(AcDbExtents& extents) const {
  extents = AcDbExtents();
  for (int i = 0; i < 4; ++i) extents.addPoint(corner(this, "AcDbFace", i));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbFace::transformBy(const AcGeMatrix3d& m) { return transformCorners(this, "AcDbFace", m, false); }

AcDbDimension::AcDbDimension() { initRecord(*this, "DIMENSION"); }
AcDbObjectId AcDbDimension::dimBlockId() const {
  AcDbImpDatabase* db = databaseOf(this);
  return db ? idOf(db->tableRecord("BLOCK_RECORD", recordOf(this).text(textField("AcDbDimension", 2))))
            : AcDbObjectId();
}
AcDbMText::AcDbMText() { initRecord(*this, "MTEXT"); }
AcGePoint3d AcDbMText::location() const { return recordOf(this).point(kLocation); }
AcString AcDbMText::contents() const {
  // A long text comes in pieces of group 3, the last one in group 1.
  const Record& record = recordOf(this);
  const auto [begin, end] = record.section("AcDbMText");
  std::string whole;
  for (std::size_t i = begin == Record::npos ? 0 : begin; i < (begin == Record::npos ? 0 : end); ++i)
    if (record.groups[i].code() == 3) whole += record.groups[i].text();
  return toWide(whole + record.text(kContents)).c_str();
}
double AcDbMText::textHeight() const { return recordOf(this).real(kMHeight); }
double AcDbMText::width() const { return recordOf(this).real(kMWidth); }
double AcDbMText::rotation() const {
  if (!recordOf(this).has(kXDirection)) return recordOf(this).real(kMRotation) * std::numbers::pi / 180;
  // The direction is in world coordinates, the angle in those of the text's plane.
  const AcGePoint3d x = toPlane(recordOf(this).point(kXDirection), normalOf(recordOf(this), "AcDbMText"));
  return std::atan2(x.y, x.x);
}
int AcDbMText::attachment() const { return static_cast<int>(recordOf(this).integer(kAttachment)); }
AcDbObjectId AcDbMText::textStyle() const {
  AcDbImpDatabase* db = databaseOf(this);
  return db ? idOf(db->tableRecord("STYLE", recordOf(this).text(kMStyle))) : AcDbObjectId();
}
Acad::ErrorStatus AcDbMText::setLocation(const AcGePoint3d& p) { return impOf(this).setPoint(kLocation, p); }
Acad::ErrorStatus AcDbMText::setContents(const ACHAR* text) {
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  while (record->has(kLongText)) record->remove(kLongText);
  record->setText(kContents, "");
  // Pieces of at most 250 characters; no character is cut.
  std::wstring rest = toWide(toUtf8(text));
  for (; rest.size() > 250; rest.erase(0, 250)) {
    const std::size_t last = record->find(kContents);
    record->groups.insert(record->groups.begin() + static_cast<std::ptrdiff_t>(last),
                          Group::text(3, toUtf8(rest.substr(0, 250))));
  }
  record->setText(kContents, toUtf8(rest));
  return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setTextHeight(double height) { return impOf(this).setReal(kMHeight, height); }
Acad::ErrorStatus AcDbMText::setWidth(double width) { return impOf(this).setReal(kMWidth, width); }
Acad::ErrorStatus AcDbMText::setRotation(double rotation) {
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  record->remove(kXDirection);
  record->setReal(kMRotation, rotation * 180 / std::numbers::pi);
  return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::setAttachment(int attachment) { return impOf(this).setInteger(kAttachment, attachment); }
Acad::ErrorStatus AcDbMText::setTextStyle(AcDbObjectId style) {
  AcDbStub* stub = style;
  return stub ? impOf(this).setText(kMStyle, stub->database->recordName(*stub)) : Acad::eNullObjectId;
}
Acad::ErrorStatus AcDbMText::subGetGeomExtents(AcDbExtents& extents) const {
  const fonts::Box ink = paragraphInk(*this);
  if (ink.empty()) return Acad::eInvalidExtents;
  const AcGeMatrix3d frame = AcGeMatrix3d::translation(location().asVector()) *
                             AcGeMatrix3d().setToPlaneToWorld(normalOf(recordOf(this), "AcDbMText")) *
                             AcGeMatrix3d::rotation(rotation(), AcGeVector3d(0, 0, 1));
  AcDbExtents box;
  for (const double x : {ink.xMin, ink.xMax})
    for (const double y : {ink.yMin, ink.yMax}) box.addPoint(frame * AcGePoint3d(x, y, 0));
  extents = box;
  return Acad::eOk;
}
Acad::ErrorStatus AcDbMText::transformBy(const AcGeMatrix3d& m) {
  const double angle = rotation();
  PlaneChange plane(m, normalOf(recordOf(this), "AcDbMText"));
  const double wider = plane.stretchAlong(m, normalOf(recordOf(this), "AcDbMText"), angle);
  const Acad::ErrorStatus status = setLocation(m * location());
  if (status != Acad::eOk) return status;
  setTextHeight(textHeight() * plane.scale);
  setWidth(width() * plane.scale * wider);
  if (!isWorldPlane(plane.normal) || recordOf(this).has(normalField("AcDbMText")))
    impOf(this).setPoint(normalField("AcDbMText"), AcGePoint3d() + plane.normal);
  const double turned = textAngle(plane, angle);
  keepColumns(*impOf(this).writable(), location(), turned, plane.scale);
  return setRotation(turned);
}
