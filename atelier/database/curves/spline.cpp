// Splines: degree, control points, knots and weights as they are stored.
// Evaluation belongs to the geometry room.
#include <algorithm>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/objects/new_record.h"

using namespace atelier;

namespace {

constexpr std::string_view kSpline = "AcDbSpline";
constexpr Field kFlags = integerField(kSpline, 70), kDegree = integerField(kSpline, 71, 3),
                kKnotTolerance = realField(kSpline, 42, 1e-7), kPointTolerance = realField(kSpline, 43, 1e-7);
constexpr Field kCounts[3] = {integerField(kSpline, 72), integerField(kSpline, 73), integerField(kSpline, 74)};

const Record& recordOf(const AcDbObject* object) { return AcDbImpObject::of(object).record; }

// Indexes of the groups of that code in the spline's section.
std::vector<std::size_t> places(const Record& record, int code) {
  std::vector<std::size_t> result;
  auto [begin, end] = record.section(kSpline);
  if (begin == Record::npos) begin = 1, end = record.xdataStart();
  for (std::size_t i = begin; i < end; ++i)
    if (record.groups[i].code() == code) result.push_back(i);
  return result;
}

AcGePoint3d pointAt(const Record& record, std::size_t i) {
  AcGePoint3d p(record.groups[i].real(), 0, 0);
  const int code = record.groups[i].code();
  if (i + 1 < record.groups.size() && record.groups[i + 1].code() == code + 10) p.y = record.groups[i + 1].real();
  if (i + 2 < record.groups.size() && record.groups[i + 2].code() == code + 20) p.z = record.groups[i + 2].real();
  return p;
}

Acad::ErrorStatus pointAt(const Record& record, int code, int index, AcGePoint3d& point) {
  const auto list = places(record, code);
  if (index < 0 || index >= static_cast<int>(list.size())) return Acad::eInvalidIndex;
  point = pointAt(record, list[static_cast<std::size_t>(index)]);
  return Acad::eOk;
}

void setPointAt(Record& record, std::size_t i, const AcGePoint3d& p) {
  const int code = record.groups[i].code();
  const double ordinates[3] = {p.x, p.y, p.z};
  for (int k = 0; k < 3 && i < record.groups.size() && record.groups[i].code() == code + 10 * k; ++k, ++i)
    record.groups[i] = Group::real(code + 10 * k, ordinates[k]);
}

// The record to write to. The geometry worked out from it is forgotten.
Record* change(AcDbObject* spline) {
  AcDbImpObject& imp = AcDbImpObject::of(spline);
  Record* record = imp.writable();
  if (record) imp.forgetDecoded();
  return record;
}

struct SplineData {
  std::int64_t flags;
  int degree;
  std::span<const AcGePoint3d> controlPoints;
  std::span<const double> knots, weights;
  std::span<const AcGePoint3d> fitPoints;
};

void append(std::vector<Group>& groups, int code, std::span<const AcGePoint3d> points) {
  for (const AcGePoint3d& p : points) {
    groups.push_back(Group::real(code, p.x));
    groups.push_back(Group::real(code + 10, p.y));
    groups.push_back(Group::real(code + 20, p.z));
  }
}

// Knots, weights, control points and fit points stand last in the section, in this order.
void write(Record& record, const SplineData& data) {
  record.setInteger(kFlags, data.flags);
  record.setInteger(kDegree, data.degree);
  const std::size_t counts[3] = {data.knots.size(), data.controlPoints.size(), data.fitPoints.size()};
  for (int i = 0; i < 3; ++i) record.setInteger(kCounts[i], static_cast<std::int64_t>(counts[i]));
  auto [begin, end] = record.section(kSpline);
  if (begin == Record::npos) begin = 1, end = record.xdataStart();
  const auto isData = [](const Group& g) {
    const int c = g.code();
    return c == 40 || c == 41 || (c >= 10 && c <= 13) || (c >= 20 && c <= 23) || (c >= 30 && c <= 33);
  };
  const auto at = [&](std::size_t i) { return record.groups.begin() + static_cast<std::ptrdiff_t>(i); };
  const auto kept = std::remove_if(at(begin), at(end), isData);
  const std::size_t place = static_cast<std::size_t>(kept - record.groups.begin());
  record.groups.erase(kept, at(end));
  std::vector<Group> groups;
  for (const double k : data.knots) groups.push_back(Group::real(40, k));
  for (const double w : data.weights) groups.push_back(Group::real(41, w));
  append(groups, 10, data.controlPoints);
  append(groups, 11, data.fitPoints);
  record.groups.insert(at(place), groups.begin(), groups.end());
}

std::int64_t planarFlag(std::span<const AcGePoint3d> points) {
  const bool level =
      std::all_of(points.begin(), points.end(), [&](const AcGePoint3d& p) { return p.z == points[0].z; });
  return level ? SplineFlags::kPlanar : 0;
}

}  // namespace

AcDbSpline::AcDbSpline(int order, bool rational, bool closed, bool periodic, const AcGePoint3dArray& controlPoints,
                       const AcGeDoubleArray& knots, const AcGeDoubleArray& weights, double controlPointTolerance,
                       double knotTolerance)
    : AcDbSpline() {
  const std::span points(controlPoints.asArrayPtr(), controlPoints.asArrayPtr() + controlPoints.length());
  const std::span knotList(knots.asArrayPtr(), knots.asArrayPtr() + knots.length());
  const std::span weightList(weights.asArrayPtr(), weights.asArrayPtr() + (rational ? weights.length() : 0));
  Record& record = *change(this);
  write(record, {(closed ? SplineFlags::kClosed : 0) | (periodic ? SplineFlags::kPeriodic : 0) |
                     (rational ? SplineFlags::kRational : 0) | planarFlag(points),
                 order,
                 points,
                 knotList,
                 weightList,
                 {}});
  if (controlPointTolerance > 0) record.setReal(kPointTolerance, controlPointTolerance);
  if (knotTolerance > 0) record.setReal(kKnotTolerance, knotTolerance);
}

AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, int order, double fitTolerance)
    : AcDbSpline(fitPoints, AcGeVector3d(), AcGeVector3d(), order, fitTolerance) {}

// The curve is always cubic and goes through its points exactly, whatever fit tolerance is given.
AcDbSpline::AcDbSpline(const AcGePoint3dArray& fitPoints, const AcGeVector3d& startTangent,
                       const AcGeVector3d& endTangent, int, double)
    : AcDbSpline() {
  const std::span through(fitPoints.asArrayPtr(), fitPoints.asArrayPtr() + fitPoints.length());
  const Nurbs data = interpolateNurbs(through, false, startTangent, endTangent);
  write(*change(this), {planarFlag(through), data.degree, data.points, data.knots, data.weights, through});
}

namespace {

bool keepsShapes(const AcGeMatrix3d& m) {
  const AcGeVector3d u = m * AcGeVector3d::kXAxis, v = m * AcGeVector3d::kYAxis, w = m * AcGeVector3d::kZAxis;
  const double square = u.dotProduct(u), hair = 1e-9 * square;
  return std::abs(v.dotProduct(v) - square) <= hair && std::abs(w.dotProduct(w) - square) <= hair &&
         std::abs(u.dotProduct(v)) + std::abs(v.dotProduct(w)) + std::abs(w.dotProduct(u)) <= hair;
}

}  // namespace

bool AcDbSpline::isNull() const { return !makesSense(nurbsOf(*this)); }

namespace atelier {

Nurbs nurbsOf(const AcDbSpline& spline) {
  const Record& record = recordOf(&spline);
  const auto points = [&](int code) {
    std::vector<AcGePoint3d> out;
    for (const std::size_t i : places(record, code)) out.push_back(pointAt(record, i));
    return out;
  };
  const auto reals = [&](int code) {
    std::vector<double> out;
    for (const std::size_t i : places(record, code)) out.push_back(record.groups[i].real());
    return out;
  };
  Nurbs data{spline.degree(), reals(40), points(10), reals(41)};
  if (data.points.empty()) {
    const auto start = points(12), end = points(13);
    const bool tangents = start.size() == 1 && end.size() == 1;
    return interpolateNurbs(points(11), spline.isClosed(), tangents ? start[0].asVector() : AcGeVector3d(),
                            tangents ? end[0].asVector() : AcGeVector3d());
  }
  if (data.weights.size() != data.points.size()) data.weights.clear();
  return data;
}

Acad::ErrorStatus setNurbs(AcDbSpline& spline, const Nurbs& data) {
  Record* record = change(&spline);
  if (!record) return Acad::eNotOpenForWrite;
  const std::int64_t closed = record->integer(kFlags) & SplineFlags::kClosed;
  write(*record, {closed | (data.weights.empty() ? 0 : SplineFlags::kRational) | planarFlag(data.points),
                  data.degree,
                  data.points,
                  data.knots,
                  data.weights,
                  {}});
  return Acad::eOk;
}

std::unique_ptr<AcDbSpline> splineOf(const Nurbs& data) {
  auto spline = std::make_unique<AcDbSpline>();
  setNurbs(*spline, data);
  return spline;
}

}  // namespace atelier

AcDbSpline::AcDbSpline() { initRecord(*this, "SPLINE"); }
int AcDbSpline::degree() const { return static_cast<int>(recordOf(this).integer(kDegree)); }
int AcDbSpline::numControlPoints() const {
  const std::size_t stored = places(recordOf(this), 10).size();
  return static_cast<int>(stored > 0 ? stored : nurbsOf(*this).points.size());
}
int AcDbSpline::numFitPoints() const { return static_cast<int>(places(recordOf(this), 11).size()); }
bool AcDbSpline::isRational() const { return recordOf(this).integer(kFlags) & SplineFlags::kRational; }
bool AcDbSpline::isClosed() const { return recordOf(this).integer(kFlags) & SplineFlags::kClosed; }
Acad::ErrorStatus AcDbSpline::getControlPointAt(int index, AcGePoint3d& p) const {
  if (!places(recordOf(this), 10).empty()) return pointAt(recordOf(this), 10, index, p);
  const Nurbs data = nurbsOf(*this);  // of one that its file gives by the points it goes through
  if (index < 0 || index >= static_cast<int>(data.points.size())) return Acad::eInvalidIndex;
  p = data.points[static_cast<std::size_t>(index)];
  return Acad::eOk;
}
Acad::ErrorStatus AcDbSpline::getFitPointAt(int index, AcGePoint3d& p) const {
  return pointAt(recordOf(this), 11, index, p);
}
Acad::ErrorStatus AcDbSpline::setControlPointAt(int index, const AcGePoint3d& p) {
  if (index < 0 || index >= numControlPoints()) return Acad::eInvalidIndex;
  Record* record = change(this);
  if (!record) return Acad::eNotOpenForWrite;
  // From here on the control points make the curve: it no longer goes through the points of its file.
  if (places(*record, 10).empty()) setNurbs(*this, nurbsOf(*this));
  setPointAt(*record, places(*record, 10)[static_cast<std::size_t>(index)], p);
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::getNurbsData(int& order, bool& rational, bool& closed, bool& periodic,
                                           AcGePoint3dArray& controlPoints, AcGeDoubleArray& knots,
                                           AcGeDoubleArray& weights, double& controlPointTolerance,
                                           double& knotTolerance) const {
  const Record& record = recordOf(this);
  closed = isClosed();
  periodic = record.integer(kFlags) & SplineFlags::kPeriodic;
  controlPointTolerance = record.real(kPointTolerance);
  knotTolerance = record.real(kKnotTolerance);
  controlPoints.removeAll();
  knots.removeAll();
  weights.removeAll();
  const Nurbs data = nurbsOf(*this);
  order = data.degree;
  rational = !data.weights.empty();
  for (const AcGePoint3d& p : data.points) controlPoints.append(p);
  for (const double k : data.knots) knots.append(k);
  for (const double w : data.weights) weights.append(w);
  return controlPoints.isEmpty() ? Acad::eDegenerateGeometry : Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::subGetGeomExtents(AcDbExtents& extents) const {
  if (const auto curve = curveOf(*this)) {
    Box box;
    for (const Piece& piece : curve->pieces())
      for (const Bezier& bezier : *std::get<Spline>(piece.shape).pieces) bezier.growBox(box);
    extents.set({box.low[0], box.low[1], box.low[2]}, {box.high[0], box.high[1], box.high[2]});
    return Acad::eOk;
  }
  // Data that make no curve still have an extent, that of their points.
  const Record& record = recordOf(this);
  auto list = places(record, 10);
  if (list.empty()) list = places(record, 11);
  if (list.empty()) return Acad::eInvalidExtents;
  extents = AcDbExtents();
  for (const std::size_t i : list) extents.addPoint(pointAt(record, i));
  return Acad::eOk;
}

Acad::ErrorStatus AcDbSpline::transformBy(const AcGeMatrix3d& m) {
  Record* record = change(this);
  if (!record) return Acad::eNotOpenForWrite;
  // The curve through stretched points is not the stretched curve, because its parameters depend on their distances.
  if (places(*record, 10).empty() && !keepsShapes(m))
    if (const Nurbs data = nurbsOf(*this); !data.points.empty()) setNurbs(*this, data);
  for (const int code : {10, 11})
    for (const std::size_t i : places(*record, code)) setPointAt(*record, i, m * pointAt(*record, i));
  for (const int code : {12, 13})
    for (const std::size_t i : places(*record, code)) {
      const AcGeVector3d v = m * pointAt(*record, i).asVector();
      setPointAt(*record, i, AcGePoint3d() + v);
    }
  return Acad::eOk;
}
