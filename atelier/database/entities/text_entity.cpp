// Texts on one line and attributes: fields, alignment, extents.
// The fonts room measures the glyphs; a text's natural width is that of its ink.
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"
#include "atelier/database/entities/text_measure.h"
#include "atelier/database/objects/imp_database.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

constexpr std::string_view kText = "AcDbText";
constexpr double kDegree = std::numbers::pi / 180;
constexpr Field kPosition = pointField(kText, 10), kAlignment = pointField(kText, 11), kHeight = realField(kText, 40),
                kString = textField(kText, 1), kRotation = realField(kText, 50), kWidthFactor = realField(kText, 41, 1),
                kOblique = realField(kText, 51), kStyle = textField(kText, 7, "Standard"),
                kHorizontal = integerField(kText, 72), kMirror = integerField(kText, 71);

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }
AcDbImpObject& impOf(AcDbObject* object) { return AcDbImpObject::of(object); }

// The vertical mode stands in another place for each of the three kinds of text.
Field verticalField(const Record& record) {
  if (record.type() == "ATTRIB") return integerField("AcDbAttribute", 74);
  if (record.type() == "ATTDEF") return integerField("AcDbAttributeDefinition", 74);
  return integerField("AcDbText#2", 73);
}

AcGeVector2d turn(double angle, double x, double y) {
  return {x * std::cos(angle) - y * std::sin(angle), x * std::sin(angle) + y * std::cos(angle)};
}

}  // namespace

AcDbText::AcDbText() { initRecord(*this, "TEXT"); }
AcDbText::AcDbText(const AcGePoint3d& position, const ACHAR* text, AcDbObjectId style, double height, double rotation)
    : AcDbText() {
  setPosition(position);
  setTextString(text);
  if (!style.isNull()) setTextStyle(style);
  setHeight(height);
  setRotation(rotation);
}

AcGePoint3d AcDbText::position() const { return toWorld(recordOf(this).point(kPosition), normal()); }
AcGePoint3d AcDbText::alignmentPoint() const {
  return toWorld(recordOf(this).point(recordOf(this).has(kAlignment) ? kAlignment : kPosition), normal());
}
AcString AcDbText::textString() const { return toWide(recordOf(this).text(kString)).c_str(); }
double AcDbText::height() const { return recordOf(this).real(kHeight); }
double AcDbText::rotation() const { return recordOf(this).real(kRotation) * kDegree; }
double AcDbText::widthFactor() const { return recordOf(this).real(kWidthFactor); }
double AcDbText::oblique() const { return recordOf(this).real(kOblique) * kDegree; }
AcDbObjectId AcDbText::textStyle() const {
  AcDbImpDatabase* db = databaseOf(this);
  return db ? idOf(db->tableRecord("STYLE", recordOf(this).text(kStyle))) : AcDbObjectId();
}
AcDb::TextHorzMode AcDbText::horizontalMode() const {
  return static_cast<AcDb::TextHorzMode>(recordOf(this).integer(kHorizontal));
}
AcDb::TextVertMode AcDbText::verticalMode() const {
  return static_cast<AcDb::TextVertMode>(recordOf(this).integer(verticalField(recordOf(this))));
}
AcGeVector3d AcDbText::normal() const { return normalOf(recordOf(this), kText); }
bool AcDbText::isDefaultAlignment() const {
  return horizontalMode() == AcDb::kTextLeft && verticalMode() == AcDb::kTextBase;
}

Acad::ErrorStatus AcDbText::setPosition(const AcGePoint3d& p) {
  return impOf(this).setPoint(kPosition, toPlane(p, normal()));
}
Acad::ErrorStatus AcDbText::setAlignmentPoint(const AcGePoint3d& p) {
  // A text left aligned on its base line doesn't use an alignment point; storing one is harmless, as in the host.
  const Acad::ErrorStatus status = impOf(this).setPoint(kAlignment, toPlane(p, normal()));
  return status != Acad::eOk || isDefaultAlignment() ? status : adjustAlignment();
}
Acad::ErrorStatus AcDbText::setTextString(const ACHAR* text) { return impOf(this).setText(kString, toUtf8(text)); }
Acad::ErrorStatus AcDbText::setHeight(double height) { return impOf(this).setReal(kHeight, height); }
Acad::ErrorStatus AcDbText::setRotation(double rotation) { return impOf(this).setReal(kRotation, rotation / kDegree); }
Acad::ErrorStatus AcDbText::setWidthFactor(double factor) { return impOf(this).setReal(kWidthFactor, factor); }
Acad::ErrorStatus AcDbText::setOblique(double angle) { return impOf(this).setReal(kOblique, angle / kDegree); }
Acad::ErrorStatus AcDbText::setTextStyle(AcDbObjectId style) {
  AcDbStub* stub = style;
  return stub ? impOf(this).setText(kStyle, stub->database->recordName(*stub)) : Acad::eNullObjectId;
}
Acad::ErrorStatus AcDbText::setHorizontalMode(AcDb::TextHorzMode mode) {
  return impOf(this).setInteger(kHorizontal, mode);
}
Acad::ErrorStatus AcDbText::setVerticalMode(AcDb::TextVertMode mode) {
  return impOf(this).setInteger(verticalField(recordOf(this)), mode);
}
Acad::ErrorStatus AcDbText::setNormal(const AcGeVector3d& n) {
  if (isWorldPlane(n) && !recordOf(this).has(normalField(kText))) return Acad::eOk;
  return impOf(this).setPoint(normalField(kText), AcGePoint3d() + n.normal());
}

Acad::ErrorStatus AcDbText::adjustAlignment(const AcDbDatabase*) {
  AcDbImpObject& imp = impOf(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  if (isDefaultAlignment() || !imp.record.has(kAlignment)) return Acad::eOk;
  const MeasuredText measured(*this);
  const AcGePoint3d anchor = imp.record.point(kAlignment);
  const AcGePoint3d start = imp.record.point(kPosition);
  if (horizontalMode() == AcDb::kTextAlign || horizontalMode() == AcDb::kTextFit) {
    // Text between two points: "fit" changes the width factor, "align" also the height.
    const AcGeVector2d along(anchor.x - start.x, anchor.y - start.y);
    if (along.length() == 0 || measured.width() <= 0) return Acad::eOk;
    const double ratio = along.length() / measured.width();
    setRotation(along.angle());
    return horizontalMode() == AcDb::kTextFit ? setWidthFactor(widthFactor() * ratio) : setHeight(height() * ratio);
  }
  const AcGeVector2d offset = turn(rotation(), measured.anchorX(horizontalMode()), measured.anchorY(*this));
  return imp.setPoint(kPosition, AcGePoint3d(anchor.x - offset.x, anchor.y - offset.y, anchor.z));
}

Acad::ErrorStatus AcDbText::subGetGeomExtents(AcDbExtents& extents) const {
  const MeasuredText measured(*this);
  if (measured.isEmpty()) return Acad::eInvalidExtents;
  AcGePoint3d origin = recordOf(this).point(kPosition);
  double angle = rotation(), begin = 0, wide = 1, high = 1;
  if (horizontalMode() == AcDb::kTextAlign || horizontalMode() == AcDb::kTextFit) {
    // The ink fills the distance between the points, even if the stored sizes come from another font. A backward text
    // begins at the second point.
    const AcGePoint3d second = recordOf(this).has(kAlignment) ? recordOf(this).point(kAlignment) : origin;
    const AcGeVector2d along(second.x - origin.x, second.y - origin.y);
    begin = measured.backwards() ? measured.right() : measured.left();
    if (along.length() > 0 && measured.width() > 0) {
      angle = along.angle();
      wide = along.length() / measured.width();
      if (horizontalMode() == AcDb::kTextAlign) high = wide;
    }
    if (measured.backwards()) origin = second;
  }
  AcDbExtents box;
  for (const double x : {measured.left(), measured.right()})
    for (const double y : {measured.bottom(), measured.top()}) {
      const AcGeVector2d v = turn(angle, (x - begin) * wide, y * high);
      box.addPoint(toWorld(AcGePoint3d(origin.x + v.x, origin.y + v.y, origin.z), normal()));
    }
  extents = box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbText::transformBy(const AcGeMatrix3d& m) {
  AcDbImpObject& imp = impOf(this);
  if (!imp.writable()) return Acad::eNotOpenForWrite;
  PlaneChange plane(m, normal());
  if (const double wider = plane.stretchAlong(m, normal(), rotation()); wider != 1)
    setWidthFactor(widthFactor() * wider);
  const AcGePoint3d at = m * position(), aligned = m * alignmentPoint();
  const bool hasAlignment = imp.record.has(kAlignment);
  setNormal(plane.normal);
  setPosition(at);
  if (hasAlignment) imp.setPoint(kAlignment, toPlane(aligned, plane.normal));
  setHeight(height() * plane.scale);
  const double before = rotation(), angle = textAngle(plane, before);
  setRotation(angle);
  if (!plane.mirrored) return Acad::eOk;
  const bool between = horizontalMode() == AcDb::kTextAlign || horizontalMode() == AcDb::kTextFit;
  if (!between) return adjustAlignment();  // the letters now begin on the other side of the alignment point
  if (hasAlignment && std::cos(angle - (plane.turn - before)) < 0) {
    // When reversed, the text runs from the second point to the first.
    const AcGePoint3d first = imp.record.point(kPosition), second = imp.record.point(kAlignment);
    imp.setPoint(kPosition, second);
    imp.setPoint(kAlignment, first);
  }
  return Acad::eOk;
}

#define ATELIER_TAGGED(CLASS, TYPE)                                                                                    \
  CLASS::CLASS() {                                                                                                     \
    if (impOf(this).record.type() != TYPE) impOf(this).record = Record::fresh(TYPE);                                   \
  }                                                                                                                    \
  AcString CLASS::tag() const { return toWide(recordOf(this).text(textField(#CLASS, 2))).c_str(); }                    \
  int CLASS::fieldLength() const { return static_cast<int>(recordOf(this).integer(integerField(#CLASS, 73))); }        \
  bool CLASS::isInvisible() const {                                                                                    \
    return recordOf(this).integer(integerField(#CLASS, 70)) & AttributeFlags::kInvisible;                              \
  }                                                                                                                    \
  bool CLASS::isConstant() const {                                                                                     \
    return recordOf(this).integer(integerField(#CLASS, 70)) & AttributeFlags::kConstant;                               \
  }                                                                                                                    \
  Acad::ErrorStatus CLASS::setTag(const ACHAR* tag) { return impOf(this).setText(textField(#CLASS, 2), toUtf8(tag)); } \
  Acad::ErrorStatus CLASS::setFieldLength(int n) { return impOf(this).setInteger(integerField(#CLASS, 73), n); }       \
  Acad::ErrorStatus CLASS::setInvisible(bool on) {                                                                     \
    const std::int64_t flags = recordOf(this).integer(integerField(#CLASS, 70));                                       \
    return impOf(this).setInteger(integerField(#CLASS, 70),                                                            \
                                  on ? flags | AttributeFlags::kInvisible : flags & ~AttributeFlags::kInvisible);      \
  }
ATELIER_TAGGED(AcDbAttributeDefinition, "ATTDEF")
ATELIER_TAGGED(AcDbAttribute, "ATTRIB")
#undef ATELIER_TAGGED

AcString AcDbAttributeDefinition::prompt() const {
  return toWide(recordOf(this).text(textField("AcDbAttributeDefinition", 3))).c_str();
}
Acad::ErrorStatus AcDbAttributeDefinition::setPrompt(const ACHAR* prompt) {
  return impOf(this).setText(textField("AcDbAttributeDefinition", 3), toUtf8(prompt));
}
Acad::ErrorStatus AcDbAttributeDefinition::setConstant(bool on) {
  const Field field = integerField("AcDbAttributeDefinition", 70);
  const std::int64_t flags = recordOf(this).integer(field);
  return impOf(this).setInteger(field, on ? flags | AttributeFlags::kConstant : flags & ~AttributeFlags::kConstant);
}

AcDbAttribute::AcDbAttribute(const AcGePoint3d& position, const ACHAR* text, const ACHAR* tag, AcDbObjectId style)
    : AcDbAttribute() {
  setPosition(position);
  setTextString(text);
  setTag(tag);
  if (!style.isNull()) setTextStyle(style);
}

Acad::ErrorStatus AcDbAttribute::setAttributeFromBlock(const AcDbAttributeDefinition* definition,
                                                       const AcGeMatrix3d& transform) {
  if (!definition) return Acad::eNullObjectPointer;
  if (!impOf(this).writable()) return Acad::eNotOpenForWrite;
  const Record& from = recordOf(definition);
  setPropertiesFrom(definition);
  AcDbImpObject& imp = impOf(this);
  imp.setText(kString, from.text(kString));
  imp.setText(kStyle, from.text(kStyle));
  imp.setPoint(kPosition, from.point(kPosition));
  for (const Field& field : {kHeight, kRotation, kWidthFactor, kOblique}) imp.setReal(field, from.real(field));
  imp.setInteger(kHorizontal, from.integer(kHorizontal));
  if (from.has(kMirror) || imp.record.has(kMirror)) imp.setInteger(kMirror, from.integer(kMirror));
  imp.setInteger(verticalField(imp.record), from.integer(verticalField(from)));
  imp.setInteger(integerField("AcDbAttribute", 70), from.integer(integerField("AcDbAttributeDefinition", 70)));
  if (from.has(kAlignment)) imp.setPoint(kAlignment, from.point(kAlignment));
  if (from.has(normalField(kText))) setNormal(definition->normal());
  setTag(definition->tag());
  const Acad::ErrorStatus status = transformBy(transform);
  return status != Acad::eOk ? status : adjustAlignment();
}
