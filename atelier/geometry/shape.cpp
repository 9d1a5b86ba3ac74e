// One piece of a curve: points, derivatives, boxes, nearest points, transforms.
// Angles of elliptic pieces are the eccentric ones of their two half diameters.
#include "atelier/geometry/shape.h"

#include <cmath>
#include <numbers>

namespace atelier {

namespace {

constexpr double kTurn = 2 * std::numbers::pi;

template <class... F>
struct overloaded : F... {
  using F::operator()...;
};
template <class... F>
overloaded(F...) -> overloaded<F...>;

bool finite(double x, double y, double z) { return std::isfinite(x) && std::isfinite(y) && std::isfinite(z); }
bool finite(const AcGePoint3d& p) { return finite(p.x, p.y, p.z); }
bool finite(const AcGeVector3d& v) { return finite(v.x, v.y, v.z); }

AcGePoint3d on(const Elliptic& e, double t) { return e.centre + e.u * std::cos(t) + e.v * std::sin(t); }

const Bezier& spanAt(const Spline& s, double own) {
  const auto& list = *s.pieces;
  const auto it = std::upper_bound(list.begin(), list.end(), own, [](double t, const Bezier& b) { return t < b.to; });
  return it == list.end() ? list.back() : *it;
}
double localOf(const Bezier& b, double own) { return std::clamp((own - b.from) / (b.to - b.from), 0.0, 1.0); }

bool isCircle(const Elliptic& e) {
  const double a = e.u.length(), b = e.v.length();
  return std::abs(a - b) <= 1e-12 * a && std::abs(e.u.dotProduct(e.v)) <= 1e-12 * a * b;
}

Box boxOf(const Straight& s) {
  Box box;
  box.add(s.from);
  box.add(s.to);
  const AcGeVector3d d = s.to - s.from;
  const double along[3] = {d.x, d.y, d.z};
  for (int i = 0; i < 3; ++i) {
    if (along[i] == 0) continue;
    if (s.endlessAfter) (along[i] > 0 ? box.high[i] : box.low[i]) = along[i] > 0 ? Box::kEnd : -Box::kEnd;
    if (s.endlessBefore) (along[i] > 0 ? box.low[i] : box.high[i]) = along[i] > 0 ? -Box::kEnd : Box::kEnd;
  }
  return box;
}

Box boxOf(const Elliptic& e) {
  Box box;
  box.add(on(e, e.from));
  box.add(on(e, e.to));
  const double axes[3][2] = {{e.u.x, e.v.x}, {e.u.y, e.v.y}, {e.u.z, e.v.z}};
  for (const auto& axis : axes) {
    const double extreme = std::atan2(axis[1], axis[0]);
    for (const double t : {extreme, extreme + std::numbers::pi})
      if (angleFrom(e.from, t) <= e.to) box.add(on(e, t));
  }
  return box;
}

bool nearestOn(const Straight& s, const AcGePoint3d& p, double& best, double& own) {
  const AcGeVector3d d = s.to - s.from;
  const double square = d.dotProduct(d);
  double t = square > 0 ? (p - s.from).dotProduct(d) / square : 0;
  if (!s.endlessBefore) t = std::max(t, 0.0);
  if (!s.endlessAfter) t = std::min(t, 1.0);
  const double distance = (t == 1 ? s.to : s.from + d * t).distanceTo(p);
  if (!(distance < best)) return false;
  best = distance, own = t;
  return true;
}

bool nearestOnCircle(const Elliptic& e, const AcGePoint3d& p, double& best, double& own) {
  const AcGeVector3d d = p - e.centre;
  const double t = angleFrom(e.from, std::atan2(d.dotProduct(e.v), d.dotProduct(e.u)));
  bool better = false;
  for (const double angle : {std::clamp(t, e.from, e.to), e.from, e.to}) {
    const double distance = on(e, angle).distanceTo(p);
    if (distance < best) best = distance, own = angle, better = true;
  }
  return better;
}

// The own parameter of a place on a Bézier piece of an ellipse: the angle of the point.
double ellipticOwn(const Elliptic& e, const Bezier& piece, double u) {
  const AcGeVector3d d = piece.at(u) - e.centre;
  const double uu = e.u.dotProduct(e.u), uv = e.u.dotProduct(e.v), vv = e.v.dotProduct(e.v), det = uu * vv - uv * uv;
  if (!(det > 0)) return piece.from + u * (piece.to - piece.from);
  const double du = d.dotProduct(e.u), dv = d.dotProduct(e.v);
  return std::clamp(angleFrom(e.from, std::atan2(dv * uu - du * uv, du * vv - dv * uv)), piece.from, piece.to);
}

}  // namespace

double angleFrom(double from, double angle, double hair) {
  double turns = std::fmod(angle - from, kTurn);
  if (turns < 0) turns += kTurn;
  if (kTurn - turns <= hair) turns -= kTurn;
  return from + turns;
}

double ownParam(const Shape& shape, const Bezier& piece, double u) {
  if (const auto* e = std::get_if<Elliptic>(&shape)) return ellipticOwn(*e, piece, u);
  return piece.from + u * (piece.to - piece.from);
}

double shapeStart(const Shape& shape) {
  return std::visit(overloaded{[](const Straight&) { return 0.0; }, [](const Elliptic& e) { return e.from; },
                               [](const Spline& s) { return s.pieces->front().from; }},
                    shape);
}

double shapeEnd(const Shape& shape) {
  return std::visit(overloaded{[](const Straight&) { return 1.0; }, [](const Elliptic& e) { return e.to; },
                               [](const Spline& s) { return s.pieces->back().to; }},
                    shape);
}

AcGePoint3d shapePoint(const Shape& shape, double own) {
  return std::visit(overloaded{[&](const Straight& s) { return own == 1 ? s.to : s.from + (s.to - s.from) * own; },
                               [&](const Elliptic& e) { return on(e, own); },
                               [&](const Spline& s) { return spanAt(s, own).at(localOf(spanAt(s, own), own)); }},
                    shape);
}

AcGeVector3d shapeDerivative(const Shape& shape, double own) {
  return std::visit(overloaded{[&](const Straight& s) { return s.to - s.from; },
                               [&](const Elliptic& e) { return e.v * std::cos(own) - e.u * std::sin(own); },
                               [&](const Spline& s) {
                                 const Bezier& b = spanAt(s, own);
                                 return b.derivative(localOf(b, own)) / (b.to - b.from);
                               }},
                    shape);
}

AcGeVector3d shapeSecondDerivative(const Shape& shape, double own) {
  return std::visit(overloaded{[](const Straight&) { return AcGeVector3d(); },
                               [&](const Elliptic& e) { return e.u * -std::cos(own) - e.v * std::sin(own); },
                               [&](const Spline& s) {
                                 const Bezier& b = spanAt(s, own);
                                 return b.second(localOf(b, own)) / ((b.to - b.from) * (b.to - b.from));
                               }},
                    shape);
}

bool shapeNearest(const Shape& shape, const AcGePoint3d& p, double& best, double& own) {
  if (const auto* s = std::get_if<Straight>(&shape)) return nearestOn(*s, p, best, own);
  if (const auto* e = std::get_if<Elliptic>(&shape); e && isCircle(*e)) return nearestOnCircle(*e, p, best, own);
  bool better = false;
  for (const Bezier& piece : shapeBeziers(shape)) {
    double u = 0;
    if (nearest(piece, p, best, u)) own = ownParam(shape, piece, u), better = true;
  }
  return better;
}

Box shapeBox(const Shape& shape) {
  return std::visit(overloaded{[](const Spline& s) {
                                 Box box;
                                 for (const Bezier& b : *s.pieces) box.add(b.box());
                                 return box;
                               },
                               [](const auto& plain) { return boxOf(plain); }},
                    shape);
}

Shape shapeTransformed(const Shape& shape, const AcGeMatrix3d& m) {
  return std::visit(overloaded{[&](Straight s) -> Shape {
                                 s.from = m * s.from, s.to = m * s.to;
                                 return s;
                               },
                               [&](Elliptic e) -> Shape {
                                 e.centre = m * e.centre, e.u = m * e.u, e.v = m * e.v;
                                 return e;
                               },
                               [&](const Spline& s) -> Shape {
                                 Nurbs moved = *s.data;
                                 for (AcGePoint3d& p : moved.points) p = m * p;
                                 const auto made = splineShape(moved);
                                 return made ? *made : s;
                               }},
                    shape);
}

std::vector<Bezier> shapeBeziers(const Shape& shape) {
  return std::visit(
      overloaded{[](const Straight& s) {
                   return std::vector<Bezier>{{{{s.from.x, s.from.y, s.from.z, 1}, {s.to.x, s.to.y, s.to.z, 1}}, 0, 1}};
                 },
                 [](const Elliptic& e) { return bezierPieces(e.centre, e.u, e.v, e.from, e.to); },
                 [](const Spline& s) { return *s.pieces; }},
      shape);
}

bool shapeIsFinite(const Shape& shape) {
  return std::visit(overloaded{[](const Straight& s) { return finite(s.from) && finite(s.to); },
                               [](const Elliptic& e) {
                                 return finite(e.centre) && finite(e.u) && finite(e.v) && std::isfinite(e.from) &&
                                        std::isfinite(e.to) && e.from < e.to;
                               },
                               [](const Spline& s) { return !s.pieces->empty(); }},
                    shape);
}

bool shapeIsEndless(const Shape& shape) {
  const auto* s = std::get_if<Straight>(&shape);
  return s && (s->endlessBefore || s->endlessAfter);
}

std::optional<Spline> splineShape(const Nurbs& data) {
  auto pieces = bezierPieces(data);
  if (pieces.empty()) return std::nullopt;
  return Spline{std::make_shared<const Nurbs>(data), std::make_shared<const std::vector<Bezier>>(std::move(pieces))};
}

Shape bulgeShape(const AcGePoint3d& from, const AcGePoint3d& to, double bulge, const AcGeVector3d& normal) {
  const AcGeVector3d chord = to - from;
  if (bulge == 0 || chord.length() == 0) return Straight{from, to};
  const AcGeVector3d left = normal.normal().crossProduct(chord);
  const AcGePoint3d centre = from + chord * 0.5 + left * ((1 - bulge * bulge) / (4 * bulge));
  const AcGeVector3d u = from - centre;
  const AcGeVector3d v = normal.normal().crossProduct(u) * (bulge > 0 ? 1.0 : -1.0);
  return Elliptic{centre, u, v, 0, 4 * std::atan(std::abs(bulge))};
}

}  // namespace atelier
