// Each chord is cut where it meets the polygon; of its pieces those are kept whose middle lies inside.
#include "atelier/selecting/clipped_strokes.h"

#include <algorithm>

namespace atelier {
namespace {

// Where the chord from a to b meets the polygon, as shares of the chord; 0 and 1 among them.
std::vector<double> cuts(const AcGePoint3d& a, const AcGePoint3d& b, std::span<const AcGePoint3d> polygon) {
  std::vector<double> found{0, 1};
  const double ux = b.x - a.x, uy = b.y - a.y;
  for (std::size_t i = 0; i < polygon.size(); ++i) {
    const AcGePoint3d &p = polygon[i], &q = polygon[(i + 1) % polygon.size()];
    const double vx = q.x - p.x, vy = q.y - p.y, cross = ux * vy - uy * vx;
    if (cross == 0) continue;
    const double t = ((p.x - a.x) * vy - (p.y - a.y) * vx) / cross, s = ((p.x - a.x) * uy - (p.y - a.y) * ux) / cross;
    if (t > 0 && t < 1 && s >= 0 && s <= 1) found.push_back(t);
  }
  std::ranges::sort(found);
  return found;
}

void addPieces(const Stroke& stroke, std::span<const AcGePoint3d> polygon, std::vector<Stroke>& out) {
  Stroke run;
  const auto end = [&] {
    if (run.points.size() > 1) out.push_back(run);
    run.points.clear();
  };
  for (std::size_t i = 0; i + 1 < stroke.points.size(); ++i) {
    const AcGePoint3d a = stroke.points[i], b = stroke.points[i + 1];
    const std::vector<double> places = cuts(a, b, polygon);
    for (std::size_t k = 0; k + 1 < places.size(); ++k) {
      if (!insidePolygon(a + (b - a) * ((places[k] + places[k + 1]) / 2), polygon)) {
        end();
        continue;
      }
      if (run.points.empty()) run.points.push_back(a + (b - a) * places[k]);
      run.points.push_back(a + (b - a) * places[k + 1]);
    }
  }
  end();
}

}  // namespace

std::vector<Stroke> clipped(const std::vector<Stroke>& strokes, std::span<const AcGePoint3d> polygon) {
  std::vector<Stroke> out;
  for (const Stroke& stroke : strokes) {
    if (insidePolygon(std::span(&stroke, 1), polygon)) out.push_back(stroke);
    else addPieces(stroke, polygon, out);
  }
  return out;
}

}  // namespace atelier
