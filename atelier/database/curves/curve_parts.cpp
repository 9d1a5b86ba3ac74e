// Cuts curve entities into new ones, and reverses them.
// A part has the properties of the whole; a part of a polyline also its plane, widths and bulges.
#include <numbers>

#include "atelier/database/curves/curve_geometry.h"
#include "atelier/database/curves/plane.h"
#include "atelier/database/curves/polyline_vertices.h"

namespace atelier {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;
constexpr double kAtVertex = 1e-9;  // a fraction this near to a vertex is the vertex
using Parts = std::vector<std::unique_ptr<AcDbCurve>>;

// A copy without XDATA, which belongs to the whole.
template <class T>
std::unique_ptr<T> likeness(const T& entity) {
  std::unique_ptr<T> copy(T::cast(entity.clone()));
  if (!copy) return copy;
  Record& record = AcDbImpObject::of(copy.get()).record;
  record.groups.resize(record.xdataStart(), Group::integer(0, 0));
  return copy;
}

// Calls f for each stretch between neighbouring bounds, the ends of the curve included.
template <class F>
void eachStretch(const Curve& curve, const std::vector<double>& bounds, F f) {
  double from = curve.startParam();
  for (const double to : bounds) {
    f(from, to);
    from = to;
  }
  f(from, curve.endParam());
}

Parts cutLine(const AcDbLine& line, const Curve& curve, const std::vector<double>& bounds) {
  Parts parts;
  eachStretch(curve, bounds, [&](double from, double to) {
    auto part = likeness(line);
    part->setStartPoint(*curve.pointAt(from));
    part->setEndPoint(*curve.pointAt(to));
    parts.push_back(std::move(part));
  });
  return parts;
}

// Gives rays on the endless sides and lines between the cuts.
Parts cutEndless(const AcDbCurve& entity, const Curve& curve, const AcGeVector3d& direction, bool before,
                 const std::vector<double>& bounds) {
  Parts parts;
  const auto ray = [&](double from, const AcGeVector3d& along) {
    auto part = std::make_unique<AcDbRay>();
    part->setBasePoint(*curve.pointAt(from));
    part->setUnitDir(along);
    parts.push_back(std::move(part));
  };
  std::vector<double> places = bounds;
  if (before) ray(places.front(), -direction);
  else places.insert(places.begin(), curve.startParam());
  for (std::size_t i = 0; i + 1 < places.size(); ++i)
    parts.push_back(std::make_unique<AcDbLine>(*curve.pointAt(places[i]), *curve.pointAt(places[i + 1])));
  ray(places.back(), direction);
  for (auto& part : parts) part->setPropertiesFrom(&entity);
  return parts;
}

// A closed round curve is cut from one bound to the next; the last part passes through its start.
template <class MAKE>
Parts cutRound(const Curve& curve, const std::vector<double>& bounds, MAKE make) {
  Parts parts;
  if (!curve.isClosed()) {
    eachStretch(curve, bounds, [&](double from, double to) { parts.push_back(make(from, to)); });
    return parts;
  }
  for (std::size_t i = 0; bounds.size() > 1 && i < bounds.size(); ++i)
    parts.push_back(make(bounds[i], i + 1 < bounds.size() ? bounds[i + 1] : bounds[0] + kTurn));
  return parts;
}

std::unique_ptr<AcDbCurve> arcPart(const AcDbCircle& circle, double from, double to) {
  auto arc = std::make_unique<AcDbArc>(circle.center(), circle.normal(), circle.radius(), from, to);
  arc->setPropertiesFrom(&circle);
  return arc;
}
std::unique_ptr<AcDbCurve> arcPart(const AcDbArc& whole, double from, double to) {
  auto arc = likeness(whole);
  arc->setStartAngle(from);
  arc->setEndAngle(to);
  return arc;
}
std::unique_ptr<AcDbCurve> ellipsePart(const AcDbEllipse& whole, double from, double to) {
  auto part =
      std::make_unique<AcDbEllipse>(whole.center(), whole.normal(), whole.majorAxis(), whole.radiusRatio(), from, to);
  part->setPropertiesFrom(&whole);
  return part;
}

Parts cutSpline(const AcDbSpline& spline, const Curve& curve, const std::vector<double>& bounds) {
  Parts parts;
  const Nurbs data = nurbsOf(spline);
  bool whole = true;
  eachStretch(curve, bounds, [&](double from, double to) {
    const Nurbs part = partOf(data, from, to);
    whole &= !part.points.empty();
    parts.push_back(splineOf(part));
    parts.back()->setPropertiesFrom(&spline);
  });
  return whole ? std::move(parts) : Parts{};
}

// The vertex at a fraction of the way between two, and the first of the two shortened to end there.
PolylineVertex between(const PolylineVertex& a, const PolylineVertex& b, double from) {
  PolylineVertex v = a;
  v.identifier = 0;
  if (const BulgeArc arc = bulgeArc(a.point, b.point, a.bulge); arc.radius > 0) {
    const double angle = arc.startAngle + arc.sweep * from;
    v.point = arc.centre + AcGeVector2d(std::cos(angle), std::sin(angle)) * arc.radius;
  } else {
    v.point = a.point + (b.point - a.point) * from;
  }
  v.startWidth = a.startWidth + (a.endWidth - a.startWidth) * from;
  return v;
}
void shorten(PolylineVertex& v, const PolylineVertex& whole, double from, double to) {
  if (whole.bulge != 0) v.bulge = std::tan((to - from) * std::atan(whole.bulge));
  v.endWidth = whole.startWidth + (whole.endWidth - whole.startWidth) * to;
}

std::vector<PolylineVertex> stretchOf(const std::vector<PolylineVertex>& all, bool closed, double from, double to) {
  const auto at = [&](std::size_t i) -> const PolylineVertex& { return all[i % all.size()]; };
  const auto whole = [](double t) { return static_cast<std::size_t>(std::floor(t + kAtVertex)); };
  std::size_t first = whole(from), last = whole(to);
  const double before = std::max(0.0, from - static_cast<double>(first)),
               after = std::max(0.0, to - static_cast<double>(last));
  const bool insideFirst = before > kAtVertex, insideLast = after > kAtVertex;
  std::vector<PolylineVertex> out;
  out.reserve(last - first + 2);
  out.push_back(insideFirst ? between(at(first), at(first + 1), before) : at(first));
  for (std::size_t i = first + 1; i <= last; ++i) out.push_back(at(i));
  const double firstEnd = last > first ? 1.0 : after;
  if (insideFirst || firstEnd < 1) shorten(out.front(), at(first), insideFirst ? before : 0, firstEnd);
  if (insideLast) {
    if (last > first) shorten(out.back(), at(last), 0, after);
    out.push_back(between(at(last), at(last + 1), after));
  }
  // The last vertex begins no piece. When it is the last vertex of the whole polyline it is unchanged.
  if (!closed && last + 1 == all.size()) return out;
  out.back().bulge = 0;
  out.back().startWidth = out.back().endWidth = out[out.size() - 2].endWidth;
  return out;
}

// An empty polyline in the plane and with the properties of another one.
std::unique_ptr<AcDbPolyline> emptyLike(const AcDbPolyline& whole) {
  constexpr std::string_view kPolyline = "AcDbPolyline";
  auto part = std::make_unique<AcDbPolyline>();
  part->setPropertiesFrom(&whole);
  const Record& from = AcDbImpObject::of(&whole).record;
  AcDbImpObject& imp = AcDbImpObject::of(part.get());
  for (const Field& field : {realField(kPolyline, 43), realField(kPolyline, 38), realField(kPolyline, 39)})
    if (from.has(field)) imp.setReal(field, from.real(field));
  imp.setInteger(integerField(kPolyline, 70), from.integer(integerField(kPolyline, 70)) & PolylineFlags::kRunsThrough);
  imp.forgetDecoded();  // its vertices are read again from the record, which has none yet
  if (!isWorldPlane(whole.normal())) part->setNormal(whole.normal());
  return part;
}

Parts cutPolyline(const AcDbPolyline& polyline, const Curve& curve, const std::vector<double>& bounds) {
  Parts parts;
  const auto& list = verticesOf(&polyline).list;
  eachStretch(curve, bounds, [&](double from, double to) {
    auto part = emptyLike(polyline);
    changedVertices(part.get())->list = stretchOf(list, curve.isClosed(), from, to);
    parts.push_back(std::move(part));
  });
  return parts;
}

// The parts are lightweight polylines: outside a drawing a polyline can't have vertices that are entities.
Parts cutOldPolyline(const AcDb2dPolyline& polyline, const Curve& curve, const std::vector<double>& bounds) {
  return cutPolyline(*lightPolyline(polyline), curve, bounds);
}

// For the same reason the parts of a polyline in space are splines of degree 1.
Parts cutSpacePolyline(const AcDb3dPolyline& polyline, const Curve& curve, const std::vector<double>& bounds) {
  const auto data = curve.toNurbs();
  if (!data) return {};
  const auto spline = splineOf(*data);
  spline->setPropertiesFrom(&polyline);
  return cutSpline(*spline, curve, bounds);
}

}  // namespace

std::unique_ptr<AcDbPolyline> lightPolyline(const AcDb2dPolyline& polyline) {
  auto light = std::make_unique<AcDbPolyline>();
  light->setPropertiesFrom(&polyline);
  light->setElevation(polyline.elevation());
  if (!isWorldPlane(polyline.normal())) light->setNormal(polyline.normal());
  light->setClosed(polyline.isClosed());
  for (const DrawnVertex& v : drawnVertices(polyline))
    light->addVertexAt(light->numVerts(), AcGePoint2d(v.position.x, v.position.y), v.bulge, v.startWidth, v.endWidth);
  return light;
}

std::vector<std::unique_ptr<AcDbCurve>> partsOf(const AcDbCurve& entity, const std::vector<double>& bounds) {
  const auto curve = curveOf(entity);
  if (!curve) return {};
  if (const auto* polyline = AcDbPolyline::cast(&entity)) return cutPolyline(*polyline, *curve, bounds);
  if (const auto* line = AcDbLine::cast(&entity)) return cutLine(*line, *curve, bounds);
  if (const auto* spline = AcDbSpline::cast(&entity)) return cutSpline(*spline, *curve, bounds);
  if (const auto* old = AcDb2dPolyline::cast(&entity)) return cutOldPolyline(*old, *curve, bounds);
  if (const auto* space = AcDb3dPolyline::cast(&entity)) return cutSpacePolyline(*space, *curve, bounds);
  if (const auto* ray = AcDbRay::cast(&entity)) return cutEndless(*ray, *curve, ray->unitDir(), false, bounds);
  if (const auto* line = AcDbXline::cast(&entity)) return cutEndless(*line, *curve, line->unitDir(), true, bounds);
  const auto make = [&](double from, double to) -> std::unique_ptr<AcDbCurve> {
    if (const auto* arc = AcDbArc::cast(&entity)) return arcPart(*arc, from, to);
    if (const auto* circle = AcDbCircle::cast(&entity)) return arcPart(*circle, from, to);
    return ellipsePart(*AcDbEllipse::cast(&entity), from, to);
  };
  return cutRound(*curve, bounds, make);
}

}  // namespace atelier

using namespace atelier;

namespace {

Acad::ErrorStatus reverseVertices(AcDbPolyline& polyline) {
  PolylineVertices* vertices = changedVertices(&polyline);
  if (!vertices) return Acad::eNotOpenForWrite;
  auto& list = vertices->list;
  const std::vector<PolylineVertex> old = list;
  const std::size_t n = old.size();
  const std::size_t first = polyline.isClosed() ? n : n - 1;  // a closed one keeps its start
  for (std::size_t i = 0; i < n; ++i) {
    const PolylineVertex& here = old[(first - i) % n];
    const PolylineVertex& piece = old[(first + n - 1 - i) % n];  // the one that ends here
    list[i] = {here.point, -piece.bulge, piece.endWidth, piece.startWidth, here.identifier};
  }
  return Acad::eOk;
}

}  // namespace

// Circles, arcs and ellipses run counter-clockwise by definition; endless lines have no second end.
Acad::ErrorStatus AcDbCurve::reverseCurve() {
  if (!AcDbImpObject::of(this).isWritable()) return Acad::eNotOpenForWrite;
  if (auto* polyline = AcDbPolyline::cast(this)) return reverseVertices(*polyline);
  if (auto* line = AcDbLine::cast(this)) {
    const AcGePoint3d start = line->startPoint();
    line->setStartPoint(line->endPoint());
    return line->setEndPoint(start);
  }
  if (auto* spline = AcDbSpline::cast(this)) {
    const Nurbs back = reversed(nurbsOf(*spline));
    if (back.points.empty()) return Acad::eDegenerateGeometry;
    return setNurbs(*spline, back);
  }
  return Acad::eNotApplicable;
}
