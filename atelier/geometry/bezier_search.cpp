// Meetings of two Bézier pieces, and the nearest point of one: halving until pieces are nearly straight, then Newton.
// A greatest number of steps bounds the work: for pieces that run along each other it would otherwise never end.
#include <cmath>
#include <optional>

#include "atelier/geometry/bezier.h"

namespace atelier {

namespace {

constexpr int kDeepest = 48;
constexpr int kNewtonSteps = 24;
constexpr std::size_t kMostSteps = 20'000;  // pairs looked at
constexpr std::size_t kMostMeetings = 512;
constexpr double kStraight = 1e-4;  // bend, as a share of the chord

struct Part {
  Bezier curve;
  double from, to;  // of the whole piece, in u
  bool straight() const { return curve.bend() <= kStraight * curve.first().distanceTo(curve.last()); }
};

void halve(const Part& part, Part& left, Part& right) {
  part.curve.halve(left.curve, right.curve);
  const double middle = part.from + (part.to - part.from) / 2;
  left.from = part.from, left.to = right.from = middle, right.to = part.to;
}

class Search {
 public:
  Search(const Bezier& a, const Bezier& b, double tolerance) : a_(a), b_(b), tolerance_(tolerance) {}

  std::vector<Meeting> run() {
    walk({a_, 0, 1}, {b_, 0, 1}, 0);
    return std::move(found_);
  }

 private:
  const Bezier &a_, &b_;
  double tolerance_;
  std::size_t steps_ = 0;
  std::vector<Meeting> found_;

  void walk(const Part& a, const Part& b, int depth) {
    if (++steps_ > kMostSteps || found_.size() >= kMostMeetings) return;
    if (!a.curve.box().near(b.curve.box(), tolerance_)) return;
    const bool aStraight = a.straight(), bStraight = b.straight();
    if (depth == kDeepest || (aStraight && bStraight && decided(a, b))) return refine(a, b);
    Part left, right;
    // The longer of the two is halved, unless it alone is straight.
    const bool splitA = !aStraight && (bStraight || a.curve.first().distanceTo(a.curve.last()) >=
                                                        b.curve.first().distanceTo(b.curve.last()));
    if (splitA || (aStraight && bStraight)) {
      halve(a, left, right);
      walk(left, b, depth + 1);
      walk(right, b, depth + 1);
    } else {
      halve(b, left, right);
      walk(a, left, depth + 1);
      walk(a, right, depth + 1);
    }
  }

  // Two nearly straight parts that cross at a fair angle meet once at most. Near tangents go on being halved until
  // they are as short as the tolerance.
  bool decided(const Part& a, const Part& b) const {
    const AcGeVector3d p = a.curve.last() - a.curve.first(), q = b.curve.last() - b.curve.first();
    const double across = p.crossProduct(q).length(), size = p.length() * q.length();
    return across > 0.01 * size || std::max(p.length(), q.length()) < 16 * tolerance_;
  }

  void refine(const Part& a, const Part& b) {
    double u = (a.from + a.to) / 2, v = (b.from + b.to) / 2;
    for (int i = 0; i < kNewtonSteps; ++i) {
      const AcGeVector3d gap = a_.at(u) - b_.at(v), p = a_.derivative(u), q = b_.derivative(v);
      const double pp = p.dotProduct(p), pq = p.dotProduct(q), qq = q.dotProduct(q);
      const double det = pp * qq - pq * pq;
      if (!(det > 1e-14 * pp * qq)) break;
      const double pg = p.dotProduct(gap), qg = q.dotProduct(gap);
      const double nu = std::clamp(u + (qg * pq - pg * qq) / det, 0.0, 1.0);
      const double nv = std::clamp(v + (qg * pp - pg * pq) / det, 0.0, 1.0);
      const bool still = nu == u && nv == v;
      u = nu, v = nv;
      if (still) break;
    }
    if (!(a_.at(u).distanceTo(b_.at(v)) <= tolerance_)) return;
    const AcGePoint3d at = a_.at(u);
    for (const Meeting& m : found_)
      if (a_.at(m.u).distanceTo(at) <= 8 * tolerance_) return;
    found_.push_back({u, v});
  }
};

}  // namespace

std::vector<Meeting> meetings(const Bezier& a, const Bezier& b, double tolerance) {
  return Search(a, b, tolerance).run();
}

namespace {

// Newton's method for the foot of the perpendicular, from inside a part. Nothing where the distance has no minimum
// nearby, as beside a sharp turn back.
std::optional<double> foot(const Bezier& piece, const AcGePoint3d& p, const Part& part) {
  double u = (part.from + part.to) / 2;
  const AcGeVector3d chord = part.curve.last() - part.curve.first();
  const double square = chord.dotProduct(chord);
  if (square > 0)
    u = part.from + (part.to - part.from) * std::clamp((p - part.curve.first()).dotProduct(chord) / square, 0.0, 1.0);
  for (int i = 0; i < kNewtonSteps; ++i) {
    const AcGeVector3d gap = piece.at(u) - p, d = piece.derivative(u);
    const double slope = d.dotProduct(d) + gap.dotProduct(piece.second(u));
    if (!(slope > 0)) return std::nullopt;
    const double next = std::clamp(u - gap.dotProduct(d) / slope, 0.0, 1.0);
    if (next == u) break;
    u = next;
  }
  return u;
}

void approach(const Bezier& piece, const AcGePoint3d& p, const Part& part, int depth, double& best, double& u,
              bool& better) {
  if (part.curve.box().squareDistance(p) >= best * best) return;
  const auto valley = part.straight() || part.curve.bend() < 1e-12 * (1 + best) ? foot(piece, p, part) : std::nullopt;
  if (depth == kDeepest || valley) {
    for (const double t : {valley.value_or(part.from), part.from, part.to}) {
      const double d = piece.at(t).distanceTo(p);
      if (d < best) best = d, u = t, better = true;
    }
    return;
  }
  Part left, right;
  halve(part, left, right);
  const bool leftFirst = left.curve.box().squareDistance(p) <= right.curve.box().squareDistance(p);
  approach(piece, p, leftFirst ? left : right, depth + 1, best, u, better);
  approach(piece, p, leftFirst ? right : left, depth + 1, best, u, better);
}

}  // namespace

bool nearest(const Bezier& piece, const AcGePoint3d& p, double& best, double& u) {
  bool better = false;
  approach(piece, p, {piece, 0, 1}, 0, best, u, better);
  return better;
}

}  // namespace atelier
