// The making of hatches: plane, pattern and loops.
// A loop of vertices is 92 (type), 72 (has bulges), 73 (closed), 93 (count), 10 20 [42] for each vertex, 97 (sources).
#include <algorithm>

#include "atelier/base/text.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/objects/new_record.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

constexpr std::string_view kHatch = "AcDbHatch";
constexpr Field kElevation = pointField(kHatch, 10), kPattern = textField(kHatch, 2), kSolid = integerField(kHatch, 70),
                kAssociative = integerField(kHatch, 71), kLoops = integerField(kHatch, 91),
                kStyle = integerField(kHatch, 75), kType = integerField(kHatch, 76, 1);

AcDbImpObject& impOf(const AcDbHatch* hatch) { return AcDbImpObject::of(hatch); }

}  // namespace

Acad::ErrorStatus AcDbHatch::setNormal(const AcGeVector3d& normal) {
  return impOf(this).setPoint(normalField(kHatch), AcGePoint3d() + normal);
}
Acad::ErrorStatus AcDbHatch::setElevation(double height) { return impOf(this).setPoint(kElevation, {0, 0, height}); }
Acad::ErrorStatus AcDbHatch::setAssociative(bool associative) {
  return impOf(this).setInteger(kAssociative, associative);
}
Acad::ErrorStatus AcDbHatch::setHatchStyle(HatchStyle style) { return impOf(this).setInteger(kStyle, style); }

Acad::ErrorStatus AcDbHatch::setPattern(HatchPatternType type, const ACHAR* name) {
  if (type != kPreDefined || !equalNoCase(toUtf8(name), "SOLID")) return Acad::eInvalidInput;
  AcDbImpObject& imp = impOf(this);
  if (const Acad::ErrorStatus status = imp.setText(kPattern, "SOLID"); status != Acad::eOk) return status;
  imp.setInteger(kSolid, 1);
  return imp.setInteger(kType, type);
}

Acad::ErrorStatus AcDbHatch::appendLoop(Adesk::Int32 type, const AcGePoint2dArray& vertices,
                                        const AcGeDoubleArray& bulges) {
  if (vertices.length() < 2 || bulges.length() != vertices.length()) return Acad::eInvalidInput;
  Record* record = impOf(this).writable();
  if (!record) return Acad::eNotOpenForWrite;
  const bool bulged = std::any_of(bulges.begin(), bulges.end(), [](double bulge) { return bulge != 0; });
  std::vector<Group> loop = {Group::integer(92, type | kPolyline), Group::integer(72, bulged), Group::integer(73, 1),
                             Group::integer(93, vertices.length())};
  for (int i = 0; i < vertices.length(); ++i) {
    loop.push_back(Group::real(10, vertices[i].x));
    loop.push_back(Group::real(20, vertices[i].y));
    if (bulged) loop.push_back(Group::real(42, bulges[i]));
  }
  loop.push_back(Group::integer(97, 0));
  // Loops stand between their count and the style.
  record->setInteger(kStyle, record->integer(kStyle));
  const auto place = record->groups.begin() + static_cast<std::ptrdiff_t>(record->find(kStyle));
  record->groups.insert(place, loop.begin(), loop.end());
  record->setInteger(kLoops, numLoops() + 1);
  return Acad::eOk;
}

// A solid pattern has no lines to work out.
Acad::ErrorStatus AcDbHatch::evaluateHatch(bool) { return numLoops() > 0 ? Acad::eOk : Acad::eInvalidInput; }
