// Records from the format table, with what each kind needs.
#include "atelier/database/pictures/part_maker.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "atelier/database/curves/plane.h"

namespace atelier {

namespace {
constexpr std::string_view kEntity = "AcDbEntity";
constexpr double kDegree = std::numbers::pi / 180;
}  // namespace

std::string nameOf(AcDbImpDatabase& database, std::uint64_t handle) {
  AcDbStub* stub = handle ? database.stubOf(handle) : nullptr;
  return stub && !stub->is(AcDbStub::kErased) ? database.recordName(*stub) : std::string();
}

void PartMaker::give() {
  if (!part_.groups.empty()) receive_(part_);
  part_ = {};
}

void PartMaker::add(Record whole) {
  give();
  part_ = std::move(whole);
}

Record& PartMaker::add(std::string_view type) {
  add(Record::fresh(type));
  Record& record = part_;
  record.setText(textField(kEntity, 8), "0");
  record.setInteger(integerField(kEntity, 62), look_.colour);
  if (look_.trueColour >= 0) record.setInteger(integerField(kEntity, 420), look_.trueColour);
  record.setText(textField(kEntity, 6), look_.linetype);
  record.setInteger(integerField(kEntity, 370), look_.weight);
  return record;
}

void PartMaker::line(const AcGePoint3d& from, const AcGePoint3d& to) {
  if (from == to) return;
  Record& record = add("LINE");
  record.setPoint(pointField("AcDbLine", 10), from);
  record.setPoint(pointField("AcDbLine", 11), to);
}

// A polyline where the points are as high as each other, else single lines: a path in space has no form in one record.
void PartMaker::path(std::span<const AcGePoint3d> points, bool closed) {
  const bool level = std::ranges::all_of(points, [&](const AcGePoint3d& p) { return p.z == points.front().z; });
  if (level && points.size() > 2) return polyline(points, closed);
  for (std::size_t i = 0; i + 1 < points.size(); ++i) line(points[i], points[i + 1]);
  if (closed && points.size() > 2) line(points.back(), points.front());
}

void PartMaker::polyline(std::span<const AcGePoint3d> points, bool closed) {
  constexpr std::string_view kPolyline = "AcDbPolyline";
  Record& record = add("LWPOLYLINE");
  record.setInteger(integerField(kPolyline, 90), static_cast<std::int64_t>(points.size()));
  record.setInteger(integerField(kPolyline, 70), PolylineFlags::kRunsThrough | (closed ? PolylineFlags::kClosed : 0));
  record.setReal(realField(kPolyline, 38), points.front().z);
  for (const AcGePoint3d& p : points) {
    record.groups.push_back(Group::real(10, p.x));
    record.groups.push_back(Group::real(20, p.y));
  }
}

void PartMaker::curve(const std::vector<AcGePoint3d>& points) {
  if (points.size() < 3) return path(points);
  Record& record = add("SPLINE");
  record.setInteger(integerField("AcDbSpline", 70), 0);
  record.setInteger(integerField("AcDbSpline", 71), 3);
  for (const int counted : {72, 73, 74})
    record.setInteger(integerField("AcDbSpline", counted),
                      counted == 74 ? static_cast<std::int64_t>(points.size()) : 0);
  for (const AcGePoint3d& p : points)
    for (const auto& [code, ordinate] : {std::pair{11, p.x}, std::pair{21, p.y}, std::pair{31, p.z}})
      record.groups.push_back(Group::real(code, ordinate));
}

void PartMaker::ellipse(const AcGePoint3d& centre, const AcGeVector3d& major, const AcGeVector3d& normal, double ratio,
                        double start, double end) {
  constexpr std::string_view kEllipse = "AcDbEllipse";
  Record& record = add("ELLIPSE");
  record.setPoint(pointField(kEllipse, 10), centre);
  record.setPoint(pointField(kEllipse, 11), AcGePoint3d() + major);
  record.setPoint(normalField(kEllipse), AcGePoint3d() + normal);
  record.setReal(realField(kEllipse, 40), ratio);
  record.setReal(realField(kEllipse, 41), start);
  record.setReal(realField(kEllipse, 42), end);
}

void PartMaker::area(const AcGePoint3d& a, const AcGePoint3d& b, const AcGePoint3d& c, const AcGePoint3d& d,
                     const AcGeVector3d& normal) {
  Record& record = add("SOLID");
  // The corners of a solid are stored in a zigzag.
  int code = 10;
  for (const AcGePoint3d& corner : {a, b, d, c})
    record.setPoint(pointField("AcDbTrace", code++), toPlane(corner, normal));
  record.setPoint(normalField("AcDbTrace"), AcGePoint3d() + normal);
}

void PartMaker::arrow(const AcGePoint3d& tip, const AcGeVector3d& along, double size, const AcGeVector3d& normal,
                      const std::string& block) {
  if (!(size > 0) || along.length() == 0) return;
  const AcGeVector3d ahead = along.normal();
  if (!block.empty() && database_.tableRecord("BLOCK_RECORD", block)) {
    const AcGePoint3d flat = toPlane(AcGePoint3d() + ahead, normal);
    insert(block, tip, {size, size, size}, std::atan2(flat.y, flat.x), normal);
    return;
  }
  const AcGeVector3d aside = normal.crossProduct(ahead) * (size / 6);
  const AcGePoint3d end = tip - ahead * size;
  area(end + aside, end - aside, tip, tip, normal);
}

Record& PartMaker::insert(const std::string& block, const AcGePoint3d& at, const AcGeVector3d& scale, double turn,
                          const AcGeVector3d& normal) {
  constexpr std::string_view kInsert = "AcDbBlockReference";
  Record& record = add("INSERT");
  record.setText(textField(kInsert, 2), block);
  record.setPoint(pointField(kInsert, 10), toPlane(at, normal));
  const double factors[] = {scale.x, scale.y, scale.z};
  for (int i = 0; i < 3; ++i) record.setReal(realField(kInsert, 41 + i), factors[i]);
  record.setReal(realField(kInsert, 50), turn / kDegree);
  record.setPoint(normalField(kInsert), AcGePoint3d() + normal);
  return record;
}

}  // namespace atelier
