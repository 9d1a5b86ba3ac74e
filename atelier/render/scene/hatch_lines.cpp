// Pattern lines cut at the boundary: each line is met with the flattened outline, and every other stretch
// between crossings is inside.
#include <algorithm>
#include <cmath>

#include "atelier/render/scene/hatch.h"
#include "atelier/render/shapes/clip_path.h"

namespace atelier::render {

namespace {

// Flattening of the boundary, as a share of its size.
constexpr double kFlatness = 1e-5;

struct Edge {
  Pt a, b;
};

std::vector<Edge> edgesOf(const Path& boundary) {
  // A box larger than the boundary cuts nothing: only the flattening is wanted.
  Box box = boundary.bounds();
  const double size = std::max(box.width(), box.height());
  box.add(Pt{box.xMin - size, box.yMin - size});
  box.add(Pt{box.xMax + size, box.yMax + size});
  const Path flat = clipFill(boundary, box, kFlatness * size);
  std::vector<Edge> edges;
  const auto points = flat.points();
  std::size_t i = 0, first = 0;
  for (const Path::Verb verb : flat.verbs()) {
    if (verb == Path::Verb::move) first = i++;
    else if (verb == Path::Verb::line) edges.push_back({points[i - 1], points[i]}), ++i;
    else if (verb == Path::Verb::close && i > 0) edges.push_back({points[i - 1], points[first]});
  }
  return edges;
}

class Cutter {
 public:
  Cutter(const std::vector<Edge>& edges, std::size_t most, Path& out) : edges_(edges), most_(most), out_(out) {}

  // False when there are too many pieces.
  bool family(const PatternLine& line) {
    along_ = {std::cos(line.angle), std::sin(line.angle)};
    across_ = {-along_.y, along_.x};
    const double pitch = dot(line.step, across_);
    double low = INFINITY, high = -INFINITY;
    for (const Edge& edge : edges_) {
      const double t = dot(edge.a - line.base, across_);
      low = std::min(low, t), high = std::max(high, t);
    }
    if (pitch == 0 || !std::isfinite(pitch) || !(low <= high)) return true;
    const double k1 = std::ceil(std::min(low / pitch, high / pitch)),
                 k2 = std::floor(std::max(low / pitch, high / pitch));
    if (!(k2 - k1 < static_cast<double>(most_))) return false;
    // Counted in integers: far from the base a double no longer tells k from k + 1.
    const auto lines = static_cast<std::int64_t>(std::max(k2 - k1 + 1, 0.0));
    for (std::int64_t i = 0; i < lines; ++i)
      if (!cut(line, line.base + (k1 + static_cast<double>(i)) * line.step)) return false;
    return true;
  }

 private:
  const std::vector<Edge>& edges_;
  std::size_t most_, pieces_ = 0, work_ = 0;
  Path& out_;
  Pt along_, across_;
  std::vector<double> crossings_;

  static double dot(Pt a, Pt b) { return a.x * b.x + a.y * b.y; }

  bool cut(const PatternLine& line, Pt origin) {
    work_ += edges_.size();
    if (work_ > 200 * most_) return false;
    crossings_.clear();
    for (const Edge& edge : edges_) {
      const double da = dot(edge.a - origin, across_), db = dot(edge.b - origin, across_);
      if ((da < 0) == (db < 0)) continue;
      const Pt p = edge.a + da / (da - db) * (edge.b - edge.a);
      crossings_.push_back(dot(p - origin, along_));
    }
    std::ranges::sort(crossings_);
    for (std::size_t i = 0; i + 1 < crossings_.size(); i += 2)
      if (!dash(line, origin, crossings_[i], crossings_[i + 1])) return false;
    return true;
  }

  bool piece(Pt origin, double from, double to) {
    out_.moveTo(origin + from * along_);
    out_.lineTo(origin + to * along_);
    return ++pieces_ < most_;
  }

  // The dashes of a line start at its origin, wherever the boundary lets it be seen.
  bool dash(const PatternLine& line, Pt origin, double from, double to) {
    double period = 0;
    for (const double d : line.dashes) period += std::abs(d);
    if (!(period > 0)) return piece(origin, from, to);
    if ((to - from) / period > static_cast<double>(most_)) return false;
    const double first = std::floor(from / period);
    const auto periods = static_cast<std::int64_t>(std::ceil((to - from) / period)) + 1;
    for (std::int64_t i = 0; i < periods; ++i) {
      double at = (first + static_cast<double>(i)) * period;
      for (const double d : line.dashes) {
        const double end = at + std::abs(d), a = std::max(at, from), b = std::min(end, to);
        if (d >= 0 && (d > 0 ? a < b : a <= b) && !piece(origin, a, b)) return false;
        at = end;
      }
    }
    return true;
  }
};

}  // namespace

Path patternStrokes(const Hatch& hatch, std::size_t most, bool& complete) {
  Path out;
  complete = true;
  const std::vector<Edge> edges = edgesOf(hatch.boundary);
  Cutter cutter(edges, most, out);
  for (const PatternLine& line : hatch.lines)
    if (!cutter.family(line)) {
      complete = false;
      return {};
    }
  return out;
}

}  // namespace atelier::render
