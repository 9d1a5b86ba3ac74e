// Lines along a profile as straight pieces: grounds with their gaps and walls, project lines with their steps.
#pragma once
#include <optional>
#include <vector>

namespace etu {

struct pointLigne {
  double x, z;
};
// Points from left to right; two at one station make a vertical step, which has no extent.
using morceauLigne = std::vector<pointLigne>;

struct bouts {
  double a, b;
};

class ligneDroites {
 public:
  ligneDroites() = default;
  explicit ligneDroites(const std::vector<morceauLigne>& morceaux);

  bool vide() const { return m_segments.empty(); }
  double debut() const { return m_segments.front().x0; }
  double fin() const { return m_segments.back().x1; }
  // Where it may change its slope or end.
  void stations(std::vector<double>& toutes) const;
  // The altitudes at both ends of a stretch within which it has one slope; none in a gap.
  std::optional<bouts> sur(double a, double b) const;
  // The altitude that it comes to a station with, and leaves it with; none where it isn't.
  std::optional<double> avant(double x) const;
  std::optional<double> apres(double x) const;

 private:
  struct segment {
    double x0, z0, x1, z1;
    double en(double x) const { return x == x1 ? z1 : z0 + (z1 - z0) * ((x - x0) / (x1 - x0)); }
  };
  std::vector<segment> m_segments;  // left to right
};

}  // namespace etu
