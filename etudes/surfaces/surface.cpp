// Meshes without a triangulation of their own: of faces, and with long triangles left out.
#include "etudes/surfaces/surface.h"

#include <numeric>
#include <tuple>

namespace etu {

void retirerLongues(maillage& m, double longueur) {
  const auto longue = [&](numero a, numero b) {
    return std::hypot(m.points[a].x - m.points[b].x, m.points[a].y - m.points[b].y) > longueur;
  };
  std::erase_if(m.triangles, [&](const std::array<numero, 3>& t) {
    return longue(t[0], t[1]) || longue(t[1], t[2]) || longue(t[2], t[0]);
  });
}

maillage maillageDe(const std::vector<std::array<point3, 3>>& faces) {
  const auto coin = [&](std::size_t i) -> const point3& { return faces[i / 3][i % 3]; };
  const auto cle = [&](std::size_t i) { return std::tie(coin(i).x, coin(i).y, coin(i).z); };
  std::vector<std::size_t> ordre(faces.size() * 3);
  std::iota(ordre.begin(), ordre.end(), 0);
  std::sort(ordre.begin(), ordre.end(), [&](std::size_t a, std::size_t b) { return cle(a) < cle(b); });
  maillage m;
  m.triangles.resize(faces.size());
  for (std::size_t k = 0; k < ordre.size(); ++k) {
    if (k == 0 || cle(ordre[k]) != cle(ordre[k - 1])) m.points.push_back(coin(ordre[k]));
    m.triangles[ordre[k] / 3][ordre[k] % 3] = static_cast<numero>(m.points.size() - 1);
  }
  return m;
}

}  // namespace etu
