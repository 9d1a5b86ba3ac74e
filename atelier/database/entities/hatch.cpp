// Hatches: plane, pattern and loops, their extents, and what a matrix makes of them.
// What stands in a loop is known to hatch_loops.h alone.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/base/text.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"
#include "atelier/database/entities/hatch_loops.h"
#include "atelier/database/entities/hatch_pattern.h"
#include "atelier/database/objects/new_record.h"
#include "hote/adaptation.h"
#include "hote/dbents.h"

using namespace atelier;

namespace {

constexpr std::string_view kHatch = "AcDbHatch";
constexpr Field kElevation = pointField(kHatch, 10), kPattern = textField(kHatch, 2), kSolid = integerField(kHatch, 70),
                kAssociative = integerField(kHatch, 71), kLoops = integerField(kHatch, 91),
                kStyle = integerField(kHatch, 75), kType = integerField(kHatch, 76, 1),
                kPatternAngle = realField(kHatch, 52), kPatternScale = realField(kHatch, 41, 1),
                kSeeds = integerField(kHatch, 98);

AcDbImpObject& impOf(const AcDbHatch* hatch) { return AcDbImpObject::of(hatch); }
const Record& recordOf(const AcDbHatch* hatch) { return AcDbImpObject::of(hatch).record; }

// The groups of the hatch's own section, and the index of the first of them in the record.
struct Section {
  std::vector<const Group*> groups;
  std::ptrdiff_t begin = 0;
};
Section sectionOf(const Record& record) {
  const auto [begin, end] = record.section(kHatch);
  Section section;
  if (begin == Record::npos) return section;
  section.begin = static_cast<std::ptrdiff_t>(begin);
  for (std::size_t i = begin; i < end; ++i) section.groups.push_back(&record.groups[i]);
  return section;
}

}  // namespace

AcDbHatch::AcDbHatch() { initRecord(*this, "HATCH"); }
AcString AcDbHatch::patternName() const { return toWide(recordOf(this).text(kPattern)).c_str(); }
bool AcDbHatch::isSolidFill() const { return recordOf(this).integer(kSolid) != 0; }
double AcDbHatch::elevation() const { return recordOf(this).point(kElevation).z; }
int AcDbHatch::numLoops() const { return static_cast<int>(recordOf(this).integer(kLoops)); }

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
  HatchLoop loop;
  loop.type = type | kPolyline;
  for (int i = 0; i < vertices.length(); ++i) loop.vertices.push_back({vertices[i], bulges[i]});
  loop.bulged = std::any_of(bulges.begin(), bulges.end(), [](double bulge) { return bulge != 0; });
  std::vector<Group> groups;
  writeLoop(loop, groups);
  // Loops stand between their count and the style.
  record->setInteger(kStyle, record->integer(kStyle));
  const auto place = record->groups.begin() + static_cast<std::ptrdiff_t>(record->find(kStyle));
  record->groups.insert(place, groups.begin(), groups.end());
  record->setInteger(kLoops, numLoops() + 1);
  return Acad::eOk;
}

// A solid pattern has no lines to work out.
Acad::ErrorStatus AcDbHatch::evaluateHatch(bool) { return numLoops() > 0 ? Acad::eOk : Acad::eInvalidInput; }

namespace {

// The box of a boundary in the world; splines by their control points.
class BoundaryBox {
 public:
  BoundaryBox(const AcGeVector3d& normal, double elevation)
      : normal_(normal), plane_(AcGeMatrix3d().setToPlaneToWorld(normal)), elevation_(elevation) {}

  void add(const HatchLoop& loop) {
    for (std::size_t i = 0; i < loop.vertices.size(); ++i) {
      const HatchVertex &a = loop.vertices[i], &b = loop.vertices[(i + 1) % loop.vertices.size()];
      box.addExt(bulgeExtents(a.at, b.at, a.bulge, elevation_, normal_));
    }
    for (const HatchEdge& edge : loop.edges) std::visit(*this, edge);
  }
  void operator()(const LineEdge& edge) { add({edge.from, edge.to}); }
  void operator()(const ArcEdge& edge) { add(arcOf(edge)); }
  void operator()(const EllipticEdge& edge) { add(arcOf(edge)); }
  void operator()(const SplineEdge& edge) { add(edge.points.empty() ? edge.fit : edge.points); }

  AcDbExtents box;

 private:
  AcGePoint3d world(const AcGePoint2d& p) const { return plane_ * AcGePoint3d(p.x, p.y, elevation_); }
  AcGeVector3d world(const AcGeVector2d& v) const { return plane_ * AcGeVector3d(v.x, v.y, 0); }
  void add(const std::vector<AcGePoint2d>& points) {
    for (const AcGePoint2d& p : points) box.addPoint(world(p));
  }
  void add(const EdgeArc& arc) {
    const double low = std::min(arc.start, arc.start + arc.sweep);
    box.addExt(ellipseExtents(world(arc.centre), world(arc.u), world(arc.v), low, low + std::abs(arc.sweep)));
  }
  AcGeVector3d normal_;
  AcGeMatrix3d plane_;
  double elevation_;
};

// The matrix in the coordinates of the hatch's plane, before and after.
PlaneMap planeMap(const AcGeMatrix3d& m, const AcGeVector3d& before, const AcGeVector3d& after, double elevation) {
  const AcGeMatrix3d toWorld = AcGeMatrix3d().setToPlaneToWorld(before),
                     toPlane = AcGeMatrix3d().setToWorldToPlane(after);
  const AcGePoint3d origin = toPlane * (m * (toWorld * AcGePoint3d(0, 0, elevation)));
  const AcGeVector3d x = toPlane * (m * (toWorld * AcGeVector3d(1, 0, 0))),
                     y = toPlane * (m * (toWorld * AcGeVector3d(0, 1, 0)));
  return {{origin.x, origin.y}, {x.x, x.y}, {y.x, y.y}};
}

void replace(Record& record, std::ptrdiff_t begin, std::ptrdiff_t end, const std::vector<Group>& groups) {
  const auto place = record.groups.erase(record.groups.begin() + begin, record.groups.begin() + end);
  record.groups.insert(place, groups.begin(), groups.end());
}

// From the last to the first, so that places stay true.
void mapPattern(Record& record, const PlaneMap& map) {
  const Section section = sectionOf(record);
  PatternAt pattern = loadPattern(section.groups);
  if (pattern.lines.empty()) return;
  for (PatternLine& line : pattern.lines) transform(line, map);
  std::vector<Group> groups;
  writePattern(pattern.lines, groups);
  const auto at = [&](std::size_t i) { return section.begin + static_cast<std::ptrdiff_t>(i); };
  replace(record, at(pattern.begin), at(pattern.end), groups);
  if (map.onlyMoves()) return;
  const double angle = record.real(kPatternAngle) * std::numbers::pi / 180;
  const AcGeVector2d along = map(AcGeVector2d(std::cos(angle), std::sin(angle)));
  if (record.has(kPatternAngle)) record.setReal(kPatternAngle, along.angle() * 180 / std::numbers::pi);
  if (record.has(kPatternScale)) record.setReal(kPatternScale, record.real(kPatternScale) * along.length());
}

void mapLoops(Record& record, const PlaneMap& map) {
  const Section section = sectionOf(record);
  std::vector<HatchLoopAt> loops = loadLoops(section.groups);
  for (auto found = loops.rbegin(); found != loops.rend(); ++found) {
    transform(found->loop, map);
    std::vector<Group> groups;
    writeLoop(found->loop, groups);
    replace(record, section.begin + static_cast<std::ptrdiff_t>(found->begin),
            section.begin + static_cast<std::ptrdiff_t>(found->end), groups);
  }
}

void mapSeeds(Record& record, const PlaneMap& map) {
  const std::size_t count = record.find(kSeeds);
  if (count == Record::npos) return;
  auto& groups = record.groups;
  for (std::size_t i = count + 1; i + 1 < groups.size() && groups[i].code() == 10 && groups[i + 1].code() == 20;
       i += 2) {
    const AcGePoint2d p = map(AcGePoint2d(groups[i].real(), groups[i + 1].real()));
    groups[i] = Group::real(10, p.x);
    groups[i + 1] = Group::real(20, p.y);
  }
}

}  // namespace

Acad::ErrorStatus AcDbHatch::subGetGeomExtents(AcDbExtents& extents) const {
  BoundaryBox boundary(normalOf(recordOf(this), kHatch), elevation());
  for (const HatchLoopAt& found : loadLoops(sectionOf(recordOf(this)).groups)) boundary.add(found.loop);
  if (adaptation::isEmpty(boundary.box)) return Acad::eInvalidExtents;
  extents = boundary.box;
  return Acad::eOk;
}

Acad::ErrorStatus AcDbHatch::transformBy(const AcGeMatrix3d& m) {
  AcDbImpObject& imp = impOf(this);
  Record* record = imp.writable();
  if (!record) return Acad::eNotOpenForWrite;
  const AcGeVector3d before = normalOf(*record, kHatch);
  const AcGeVector3d after = PlaneChange(m, before).normal;
  const double height = elevation();
  const PlaneMap map = planeMap(m, before, after, height);
  mapSeeds(*record, map);
  mapPattern(*record, map);
  mapLoops(*record, map);
  imp.setPoint(kElevation, {0, 0, toPlane(m * toWorld({0, 0, height}, before), after).z});
  return imp.setPoint(normalField(kHatch), AcGePoint3d() + after);
}
