// Chords by the second differences of a Bézier's points; trapezoids by a sweep over the heights of all corners.
#include "atelier/render/shapes/flatten.h"

#include <algorithm>
#include <cmath>

namespace atelier::render {
namespace {

constexpr double kMostChords = 1000;

void addCurve(std::vector<Pt>& points, Pt c1, Pt c2, Pt to, double tolerance) {
  const Pt from = points.back();
  const Pt d1 = from - 2 * c1 + c2, d2 = c1 - 2 * c2 + to;
  const double bend = std::max(std::hypot(d1.x, d1.y), std::hypot(d2.x, d2.y));
  const int chords = static_cast<int>(std::clamp(std::ceil(std::sqrt(0.75 * bend / tolerance)), 1.0, kMostChords));
  for (int i = 1; i <= chords; ++i) {
    const double t = static_cast<double>(i) / chords, s = 1 - t;
    points.push_back(s * s * s * from + 3 * s * s * t * c1 + 3 * s * t * t * c2 + t * t * t * to);
  }
}

struct Edge {
  Pt low, high;
  double at(double y) const { return low.x + (high.x - low.x) * (y - low.y) / (high.y - low.y); }
};

}  // namespace

std::vector<FlatPath> flattened(const Path& path, double tolerance) {
  std::vector<FlatPath> paths;
  const Pt* p = path.points().data();
  for (const Path::Verb verb : path.verbs()) {
    if (verb != Path::Verb::move && paths.empty()) continue;
    switch (verb) {
      case Path::Verb::move: paths.push_back({{*p++}}); break;
      case Path::Verb::line: paths.back().points.push_back(*p++); break;
      case Path::Verb::cubic: addCurve(paths.back().points, p[0], p[1], p[2], tolerance), p += 3; break;
      case Path::Verb::close: paths.back().closed = true; break;
    }
  }
  return paths;
}

std::vector<Trapezoid> trapezoids(const std::vector<FlatPath>& paths) {
  std::vector<Edge> edges;
  std::vector<double> heights;
  for (const FlatPath& path : paths)
    for (std::size_t i = 0; i < path.points.size(); ++i) {
      const Pt a = path.points[i], b = path.points[(i + 1) % path.points.size()];
      heights.push_back(a.y);
      if (a.y != b.y) edges.push_back(a.y < b.y ? Edge{a, b} : Edge{b, a});
    }
  std::ranges::sort(heights);
  heights.erase(std::unique(heights.begin(), heights.end()), heights.end());
  std::vector<Trapezoid> out;
  for (std::size_t i = 0; i + 1 < heights.size(); ++i) {
    const double y0 = heights[i], y1 = heights[i + 1], middle = (y0 + y1) / 2;
    std::vector<const Edge*> crossed;
    for (const Edge& edge : edges)
      if (edge.low.y < middle && edge.high.y > middle) crossed.push_back(&edge);
    std::ranges::sort(crossed, {}, [&](const Edge* edge) { return edge->at(middle); });
    for (std::size_t k = 0; k + 1 < crossed.size(); k += 2) {
      const Edge &left = *crossed[k], &right = *crossed[k + 1];
      out.push_back({y0, y1, left.at(y0), right.at(y0), left.at(y1), right.at(y1)});
    }
  }
  return out;
}

}  // namespace atelier::render
