// A line is found by the middle of a stretch, so that ends at walls and steps belong to the right side.
#include "etudes/reseaux/lignes.h"

#include <algorithm>

namespace etu {

namespace {

constexpr double kPres = 1e-6;  // stations that are the same

}  // namespace

ligneDroites::ligneDroites(const std::vector<morceauLigne>& morceaux) {
  for (const morceauLigne& m : morceaux)
    for (std::size_t i = 1; i < m.size(); ++i)
      if (m[i].x > m[i - 1].x) m_segments.push_back({m[i - 1].x, m[i - 1].z, m[i].x, m[i].z});
  std::ranges::stable_sort(m_segments, {}, &segment::x0);
}

void ligneDroites::stations(std::vector<double>& toutes) const {
  for (const segment& s : m_segments) {
    toutes.push_back(s.x0);
    toutes.push_back(s.x1);
  }
}

std::optional<bouts> ligneDroites::sur(double a, double b) const {
  const double milieu = (a + b) / 2;
  const auto suivant = std::ranges::upper_bound(m_segments, milieu, {}, &segment::x0);
  if (suivant == m_segments.begin()) return {};
  const segment& s = *(suivant - 1);
  if (milieu > s.x1) return {};
  return bouts{s.en(a), s.en(b)};
}

std::optional<double> ligneDroites::avant(double x) const {
  std::optional<double> z;
  for (const segment& s : m_segments)
    if (s.x0 < x - kPres && x <= s.x1 + kPres) z = s.en(std::min(x, s.x1));
  return z;
}

std::optional<double> ligneDroites::apres(double x) const {
  for (const segment& s : m_segments)
    if (s.x0 - kPres <= x && x < s.x1 - kPres) return s.en(std::max(x, s.x0));
  return {};
}

}  // namespace etu
