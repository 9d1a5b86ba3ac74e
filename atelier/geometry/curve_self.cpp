// Where a spline crosses itself.
// It is cut into runs that always go forward in one direction. Such a run can't cross itself; only different runs meet.
#include <cmath>

#include "atelier/geometry/shape.h"

namespace atelier {

namespace {

constexpr int kDeepest = 24;            // halvings: at a cusp no piece is a run
constexpr double kSmallestLoop = 1e-5;  // units; beside a cusp two branches are nearer than the tolerance
constexpr double kSamePoint = 1e-7;

struct Run {
  Bezier curve;
  std::size_t piece;  // of the spline
  double from, to;    // along that piece
};

// Whether every leg of the control polygon goes forward along the chord: then the whole curve does.
bool goesOn(const Bezier& b) {
  const AcGeVector3d chord = b.last() - b.first();
  for (std::size_t i = 0; i + 1 < b.points.size(); ++i)
    if (!((Bezier::cartesian(b.points[i + 1]) - Bezier::cartesian(b.points[i])).dotProduct(chord) > 0)) return false;
  return true;
}

double reach(const Box& box) {
  return std::hypot(box.high[0] - box.low[0], box.high[1] - box.low[1], box.high[2] - box.low[2]);
}

void addRuns(Run whole, int depth, std::vector<Run>& out) {
  if (depth == kDeepest || goesOn(whole.curve) || reach(whole.curve.box()) <= kSmallestLoop / 4) {
    out.push_back(std::move(whole));
    return;
  }
  const double middle = (whole.from + whole.to) / 2;
  Run left{{}, whole.piece, whole.from, middle}, right{{}, whole.piece, middle, whole.to};
  whole.curve.halve(left.curve, right.curve);
  addRuns(std::move(left), depth + 1, out);
  addRuns(std::move(right), depth + 1, out);
}

}  // namespace

std::vector<Crossing> Curve::selfCrossings() const {
  const Shape& shape = pieces_.front().shape;
  const std::vector<Bezier> beziers = shapeBeziers(shape);
  std::vector<Run> runs;
  for (std::size_t i = 0; i < beziers.size(); ++i) addRuns({beziers[i], i, 0, 1}, 0, runs);
  std::vector<Box> boxes;
  for (const Run& run : runs) boxes.push_back(run.curve.box());
  const BoxTree tree(boxes);
  const auto paramAt = [&](const Run& run, double u) {
    return outer(0, ownParam(shape, beziers[run.piece], run.from + (run.to - run.from) * u));
  };
  std::vector<Crossing> out;
  // Neighbours always meet at their joint, and a closed curve at its closing point. Those aren't crossings; a meeting
  // elsewhere is a loop.
  const auto offer = [&](double s, double t) {
    if (s > t) std::swap(s, t);
    const AcGePoint3d p = *pointAt(s);
    double away = 0, beyond = 0;
    for (const double share : {0.25, 0.5, 0.75}) {
      away = std::max(away, p.distanceTo(*pointAt(s + (t - s) * share)));
      beyond = std::max({beyond, p.distanceTo(*pointAt(s + (startParam() - s) * share)),
                         p.distanceTo(*pointAt(t + (endParam() - t) * share))});
    }
    if (away <= kSmallestLoop || beyond <= kSmallestLoop) return;
    for (const Crossing& c : out)
      if (c.point.distanceTo(p) <= kSamePoint) return;
    out.push_back({p, s, t});
  };
  for (std::size_t i = 0; i < runs.size(); ++i)
    tree.visit([&](const Box& b) { return b.near(boxes[i], kMeetingTolerance); },
               [&](std::size_t k) {
                 Box both = boxes[i];
                 both.add(boxes[k]);
                 if (k <= i || reach(both) <= kSmallestLoop) return;
                 for (const Meeting& m : meetings(runs[i].curve, runs[k].curve, kMeetingTolerance))
                   offer(paramAt(runs[i], m.u), paramAt(runs[k], m.v));
               });
  std::sort(out.begin(), out.end(), [](const Crossing& a, const Crossing& b) { return a.param < b.param; });
  return out;
}

}  // namespace atelier
