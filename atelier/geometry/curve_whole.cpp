// What concerns a curve as a whole: its area, its samples, its form as one B-spline, and its meetings with another.
#include <cmath>

#include "atelier/geometry/shape.h"

namespace atelier {

namespace {

constexpr double kFlat = 1e-9;                // out of the plane, as a share of the curve's size
constexpr std::size_t kMostChords = 100'000;  // of one arc

void addHull(const Shape& shape, std::vector<AcGePoint3d>& out) {
  for (const Bezier& b : shapeBeziers(shape))
    for (const Weighted& w : b.points) out.push_back(Bezier::cartesian(w));
}

// Chords of an ellipse's arc whose sagitta stays below the bound on the greater half axis.
std::size_t chordCount(const Elliptic& e, double chord) {
  const double radius = std::hypot(e.u.length(), e.v.length());
  const double cosine = std::max(-1.0, 1 - chord / std::max(radius, 1e-300));
  const double step = std::max(1e-9, std::min(1.5, 2 * std::acos(cosine)));
  return std::min(kMostChords, std::max<std::size_t>(2, static_cast<std::size_t>(std::ceil((e.to - e.from) / step))));
}

Nurbs nurbsOfPieces(const std::vector<Bezier>& pieces) {
  Nurbs out;
  if (pieces.empty()) return out;
  const std::size_t degree = pieces.front().points.size() - 1;
  out.degree = static_cast<int>(degree);
  out.knots.assign(degree + 1, pieces.front().from);
  double joint = 1;
  bool rational = false;
  for (std::size_t k = 0; k < pieces.size(); ++k) {
    const auto& points = pieces[k].points;
    // The weights continue those of the piece before: one factor for all of a piece's weights doesn't change it.
    if (k > 0) joint *= pieces[k - 1].points.back().w / points.front().w;
    for (std::size_t i = k == 0 ? 0 : 1; i < points.size(); ++i) {
      out.points.push_back(Bezier::cartesian(points[i]));
      out.weights.push_back(points[i].w * joint);
      rational |= std::abs(out.weights.back() - out.weights.front()) > 1e-14;
    }
    out.knots.insert(out.knots.end(), k + 1 == pieces.size() ? degree + 1 : degree, pieces[k].to);
  }
  if (!rational) out.weights.clear();
  return out;
}

// A row of straight pieces; those without length are passed over.
Nurbs polygonNurbs(const std::vector<Piece>& pieces) {
  Nurbs out;
  out.degree = 1;
  for (const Piece& p : pieces) {
    const Straight& s = std::get<Straight>(p.shape);
    if (s.from.distanceTo(s.to) == 0) continue;
    if (out.points.empty()) out.points.push_back(s.from), out.knots.assign(2, p.from);
    out.points.push_back(s.to);
    out.knots.push_back(p.to);
  }
  if (!out.knots.empty()) out.knots.push_back(out.knots.back());
  return out;
}

}  // namespace

std::optional<double> Curve::area() const {
  if (isEndless()) return std::nullopt;
  const AcGePoint3d origin = *pointAt(startParam());
  std::vector<AcGePoint3d> hull;
  for (const Piece& p : pieces_) {
    if (const auto* s = std::get_if<Straight>(&p.shape)) hull.push_back(s->to);
    else addHull(p.shape, hull);
  }
  AcGeVector3d along, across;  // to the farthest point, and to the one farthest from that direction
  for (const AcGePoint3d& p : hull)
    if ((p - origin).length() > along.length()) along = p - origin;
  for (const AcGePoint3d& p : hull)
    if (const AcGeVector3d c = along.crossProduct(p - origin); c.length() > across.length()) across = c;
  const double size = along.length();
  if (across.length() <= kFlat * size * size) return 0.0;
  const AcGeVector3d normal = across.normal();
  for (const AcGePoint3d& p : hull)
    if (std::abs(normal.dotProduct(p - origin)) > kFlat * size + kMeetingTolerance) return std::nullopt;
  double sum = 0;
  for (const Piece& p : pieces_) sum += shapeArea(p.shape, origin, normal);
  return std::abs(sum);
}

std::vector<AcGePoint3d> Curve::sample(double chord) const {
  std::vector<AcGePoint3d> out;
  if (isEndless()) return out;
  out.push_back(*pointAt(startParam()));
  for (const Piece& p : pieces_) {
    if (const auto* e = std::get_if<Elliptic>(&p.shape)) {
      const std::size_t count = chordCount(*e, chord);
      for (std::size_t i = 1; i <= count; ++i)
        out.push_back(
            shapePoint(*e, e->from + (e->to - e->from) * static_cast<double>(i) / static_cast<double>(count)));
    } else if (const auto* s = std::get_if<Spline>(&p.shape)) {
      const auto points = sampleNurbs(*s->data, chord);
      if (points.size() > 1) out.insert(out.end(), points.begin() + 1, points.end());
    } else {
      out.push_back(std::get<Straight>(p.shape).to);
    }
  }
  return out;
}

std::optional<Nurbs> Curve::toNurbs() const {
  if (isEndless()) return std::nullopt;
  std::optional<Nurbs> out;
  const auto straight = [](const Piece& p) { return std::holds_alternative<Straight>(p.shape); };
  if (std::all_of(pieces_.begin(), pieces_.end(), straight)) {
    out = polygonNurbs(pieces_);
    return out->points.empty() ? std::nullopt : out;
  }
  for (const Piece& p : pieces_) {
    if (const auto* s = std::get_if<Straight>(&p.shape); s && s->from.distanceTo(s->to) == 0) continue;
    const auto* s = std::get_if<Spline>(&p.shape);
    Nurbs piece = s ? *s->data : nurbsOfPieces(shapeBeziers(p.shape));
    out = out ? joined(*out, piece) : std::move(piece);
  }
  if (!out || out->points.empty()) return std::nullopt;
  return out;
}

namespace {

// Curves that touch are within the tolerance along a stretch, where halving finds many places; and two pieces both find
// a meeting at their common end. Of such places the nearest one is kept.
std::vector<Crossing> eachOnce(const Curve& a, const Curve& b, const std::vector<Crossing>& sorted) {
  constexpr double kLongestTouch = 0.05;
  const auto gap = [&](const Crossing& c) {
    const auto there = b.pointAt(c.otherParam);
    return there ? c.point.distanceTo(*there) : kMeetingTolerance;
  };
  const auto same = [&](const Crossing& c, const Crossing& d, double middle) {
    const double apart = c.point.distanceTo(d.point);
    if (apart <= 10 * kMeetingTolerance) return true;
    const auto between = apart < kLongestTouch ? a.pointAt(middle) : std::nullopt;
    return between && b.closest(*between).distance <= kMeetingTolerance;
  };
  std::vector<Crossing> out;
  const auto keep = [&](const Crossing& c, bool another) {
    if (another) out.push_back(c);
    else if (gap(c) < gap(out.back())) out.back() = c;
  };
  for (std::size_t i = 0; i < sorted.size(); ++i)
    keep(sorted[i], i == 0 || !same(sorted[i], sorted[i - 1], (sorted[i].param + sorted[i - 1].param) / 2));
  if (!a.isClosed() || out.size() < 2) return out;
  // On a closed curve the last and the first are neighbours, too.
  const double beyond = (sorted.front().param - a.startParam() - (a.endParam() - sorted.back().param)) / 2;
  if (same(sorted.front(), sorted.back(), beyond < 0 ? a.endParam() + beyond : a.startParam() + beyond)) {
    const Crossing first = out.front();
    out.erase(out.begin());
    keep(first, false);
    std::sort(out.begin(), out.end(), [](const Crossing& c, const Crossing& d) { return c.param < d.param; });
  }
  return out;
}

}  // namespace

std::vector<Crossing> Curve::crossings(const Curve& other, bool extendThis, bool extendOther) const {
  if (&other == this && std::holds_alternative<Spline>(pieces_.front().shape)) return selfCrossings();
  if (extendThis || extendOther) {
    const auto a = extendThis && !closed_ ? extended() : nullptr;
    const auto b = extendOther && !other.closed_ ? other.extended() : nullptr;
    if (a || b) return (a ? *a : *this).crossings(b ? *b : other, false, false);
  }
  std::vector<Crossing> out;
  const auto meet = [&](std::size_t i, std::size_t k) {
    for (const OwnCrossing& c : shapeCrossings(pieces_[i].shape, other.pieces_[k].shape, kMeetingTolerance))
      out.push_back({shapePoint(pieces_[i].shape, c.first), outer(i, c.first), other.outer(k, c.second)});
  };
  // The curve with fewer pieces is walked; the other's tree of boxes is searched.
  const bool walkThis = pieces_.size() <= other.pieces_.size();
  const Curve &walked = walkThis ? *this : other, &searched = walkThis ? other : *this;
  for (std::size_t i = 0; i < walked.pieces_.size(); ++i) {
    const Box box = shapeBox(walked.pieces_[i].shape);
    searched.tree().visit([&](const Box& b) { return b.near(box, kMeetingTolerance); },
                          [&](std::size_t k) { walkThis ? meet(i, k) : meet(k, i); });
  }
  std::sort(out.begin(), out.end(), [](const Crossing& a, const Crossing& b) { return a.param < b.param; });
  return eachOnce(*this, other, out);
}

}  // namespace atelier
