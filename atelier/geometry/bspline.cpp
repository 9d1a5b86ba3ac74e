// Flat knots to Open CASCADE's distinct knots with multiplicities, and back.
// The library's exceptions are caught here: data that make no curve give an empty result.
#include "atelier/geometry/bspline.h"

#include <GeomAPI_Interpolate.hxx>
#include <GeomAdaptor_Curve.hxx>
#include <Standard_Failure.hxx>
#include <TColStd_Array1OfInteger.hxx>
#include <TColStd_Array1OfReal.hxx>
#include <TColgp_Array1OfPnt.hxx>
#include <TColgp_HArray1OfPnt.hxx>
#include <algorithm>
#include <cmath>

#include "atelier/geometry/occt_curve.h"

namespace atelier {
namespace {

// The finest chord bound, as a share of the size of the curve.
constexpr double kFinest = 1e-9;
// The most halvings of one span between knots, and points of one curve, so that extreme data end.
constexpr int kDeepest = 16;
constexpr std::size_t kMostPoints = 100'000;

bool finite(const AcGePoint3d& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

struct Knots {
  std::vector<double> values;
  std::vector<int> counts;
};

Knots distinct(const std::vector<double>& flat) {
  Knots out;
  const double apart = kSameKnot * (flat.back() - flat.front());
  for (const double k : flat) {
    if (out.values.empty() || k - out.values.back() > apart) out.values.push_back(k), out.counts.push_back(0);
    ++out.counts.back();
  }
  return out;
}

template <class Array, class List, class Convert>
Array arrayOf(const List& list, Convert convert) {
  Array out(1, static_cast<int>(list.size()));
  int i = 0;
  for (const auto& item : list) out.SetValue(++i, convert(item));
  return out;
}

double sizeOf(const Nurbs& c) {
  double size = 0;
  for (const AcGePoint3d& p : c.points) size = std::max(size, p.distanceTo(c.points.front()));
  return size;
}

AcGePoint3d point(const gp_Pnt& p) { return {p.X(), p.Y(), p.Z()}; }

double distanceToChord(const AcGePoint3d& p, const AcGePoint3d& a, const AcGePoint3d& b) {
  const AcGeVector3d ab = b - a, ap = p - a;
  const double square = ab.dotProduct(ab);
  const double t = square > 0 ? std::clamp(ap.dotProduct(ab) / square, 0.0, 1.0) : 0;
  return (ap - ab * t).length();
}

// Halves a span until the curve stays near its chord at the quarters. The library's own samplers are not
// used: with knots or points of extreme size they do not end.
class Sampler {
 public:
  Sampler(const Handle(Geom_BSplineCurve) & curve, double chord, std::vector<double>* parameters)
      : adaptor_(curve), bound_(0.8 * chord), parameters_(parameters) {}

  std::vector<AcGePoint3d> run(const std::vector<double>& knots) {
    const double first = adaptor_.FirstParameter(), last = adaptor_.LastParameter();
    double from = first;
    add(from, at(from));
    for (const double knot : knots) {
      const double to = std::clamp(knot, first, last);
      if (to > from) span(from, out_.back(), to, at(to), 0);
      from = to;
    }
    return std::move(out_);
  }

 private:
  GeomAdaptor_Curve adaptor_;
  double bound_;
  std::vector<double>* parameters_;
  std::vector<AcGePoint3d> out_;

  void add(double t, const AcGePoint3d& p) {
    out_.push_back(p);
    if (parameters_) parameters_->push_back(t);
  }

  AcGePoint3d at(double t) const { return point(adaptor_.Value(t)); }

  void span(double t0, AcGePoint3d a, double t1, AcGePoint3d b, int depth) {
    const double middle = t0 + (t1 - t0) / 2;
    const AcGePoint3d m = at(middle);
    const auto far = [&](double t) { return distanceToChord(at(t), a, b) > bound_; };
    const bool split = distanceToChord(m, a, b) > bound_ || far(t0 + (t1 - t0) / 4) || far(t0 + 3 * (t1 - t0) / 4);
    if (!split || depth == kDeepest || out_.size() >= kMostPoints) return add(t1, b);
    span(t0, a, middle, m, depth + 1);
    span(middle, m, t1, b, depth + 1);
  }
};

}  // namespace

bool makesSense(const Nurbs& c) {
  const std::size_t n = c.points.size();
  if (c.degree < 1 || c.degree > Geom_BSplineCurve::MaxDegree() || n < static_cast<std::size_t>(c.degree) + 1)
    return false;
  if (c.knots.size() != n + static_cast<std::size_t>(c.degree) + 1) return false;
  if (!c.weights.empty() && c.weights.size() != n) return false;
  const auto positive = [](double w) { return std::isfinite(w) && w > 0; };
  return std::ranges::all_of(c.points, finite) && std::ranges::all_of(c.weights, positive) &&
         std::ranges::all_of(c.knots, [](double k) { return std::isfinite(k); }) && std::ranges::is_sorted(c.knots) &&
         c.knots.front() < c.knots.back();
}

Handle(Geom_BSplineCurve) occtCurve(const Nurbs& c) {
  const Knots knots = distinct(c.knots);
  const auto poles = arrayOf<TColgp_Array1OfPnt>(c.points, [](const AcGePoint3d& p) { return gp_Pnt(p.x, p.y, p.z); });
  const auto same = [](auto v) { return v; };
  const auto values = arrayOf<TColStd_Array1OfReal>(knots.values, same);
  const auto counts = arrayOf<TColStd_Array1OfInteger>(knots.counts, same);
  if (c.weights.empty()) return new Geom_BSplineCurve(poles, values, counts, c.degree);
  return new Geom_BSplineCurve(poles, arrayOf<TColStd_Array1OfReal>(c.weights, same), values, counts, c.degree);
}

Nurbs fromOcct(const Handle(Geom_BSplineCurve) & curve) {
  if (curve->IsPeriodic()) curve->SetNotPeriodic();
  curve->Segment(curve->FirstParameter(), curve->LastParameter());  // clamps the ends
  Nurbs out;
  out.degree = curve->Degree();
  for (const double knot : curve->KnotSequence()) out.knots.push_back(knot);
  for (int i = 1; i <= curve->NbPoles(); ++i) {
    out.points.push_back(point(curve->Pole(i)));
    if (curve->IsRational()) out.weights.push_back(curve->Weight(i));
  }
  return out;
}

std::vector<AcGePoint3d> sampleNurbs(const Nurbs& curve, double chord, std::vector<double>* parameters) {
  if (parameters) parameters->clear();
  if (!makesSense(curve)) return {};
  const double size = sizeOf(curve);
  if (size == 0) {
    if (parameters) parameters->push_back(firstParameter(curve));
    return {curve.points.front()};
  }
  try {
    const Handle(Geom_BSplineCurve) spline = occtCurve(curve);
    auto out =
        Sampler(spline, std::isfinite(chord) ? std::max(chord, kFinest * size) : size, parameters).run(curve.knots);
    return std::ranges::all_of(out, finite) ? out : std::vector<AcGePoint3d>{};
  } catch (const Standard_Failure&) {
    return {};
  }
}

Nurbs interpolateNurbs(std::span<const AcGePoint3d> through, bool closed, const AcGeVector3d& startTangent,
                       const AcGeVector3d& endTangent) {
  std::vector<AcGePoint3d> kept;
  for (const AcGePoint3d& p : through)
    if (finite(p) && (kept.empty() || kept.back().distanceTo(p) > AcGeContext::gTol.equalPoint())) kept.push_back(p);
  if (closed && kept.size() > 1 && kept.front().isEqualTo(kept.back())) kept.pop_back();
  if (kept.size() < 2) return {};
  const auto direction = [](const AcGeVector3d& v) { return gp_Vec(v.x, v.y, v.z); };
  try {
    const Handle(TColgp_HArray1OfPnt) points = new TColgp_HArray1OfPnt(1, static_cast<int>(kept.size()));
    for (std::size_t i = 0; i < kept.size(); ++i)
      points->SetValue(static_cast<int>(i) + 1, gp_Pnt(kept[i].x, kept[i].y, kept[i].z));
    GeomAPI_Interpolate interpolation(points, closed && kept.size() > 2, AcGeContext::gTol.equalPoint());
    if (!startTangent.isZeroLength() && !endTangent.isZeroLength())
      interpolation.Load(direction(startTangent), direction(endTangent));
    interpolation.Perform();
    return interpolation.IsDone() ? fromOcct(interpolation.Curve()) : Nurbs{};
  } catch (const Standard_Failure&) {
    return {};
  }
}

}  // namespace atelier
