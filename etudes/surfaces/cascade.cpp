// What a surface gives is kept where those before it left gaps.
#include "etudes/surfaces/cascade.h"

namespace etu {

namespace {

struct trou {
  double debut, fin;
};

// The parts of the chord without ground.
std::vector<trou> trousDe(std::vector<tranche> tranches, double joint) {
  std::sort(tranches.begin(), tranches.end(), [](const tranche& p, const tranche& q) { return p.t0 < q.t0; });
  std::vector<trou> trous;
  double fin = 0;
  for (const tranche& t : tranches) {
    if (t.t0 > fin + joint) trous.push_back({fin, t.t0});
    fin = std::max(fin, t.t1);
  }
  if (fin < 1 - joint) trous.push_back({fin, 1});
  return trous;
}

}  // namespace

void cascade::couper(const piedAxe& a, const piedAxe& b, std::vector<tranche>& tranches) {
  const double joint = kJoint / std::max(b.station - a.station, kJoint);
  std::vector<tranche> suite;
  for (const auto& surface : m_surfaces) {
    if (tranches.empty()) {
      surface->couper(a, b, tranches);
      continue;
    }
    const std::vector<trou> trous = trousDe(tranches, joint);
    if (trous.empty()) return;
    suite.clear();
    surface->couper(a, b, suite);
    for (const tranche& t : suite)
      for (const trou& vide : trous) {
        const double t0 = std::max(t.t0, vide.debut), t1 = std::min(t.t1, vide.fin);
        if (t1 <= t0) continue;
        const double pente = (t.z1 - t.z0) / (t.t1 - t.t0);
        tranches.push_back({t0, t.z0 + (t0 - t.t0) * pente, t1, t.z0 + (t1 - t.t0) * pente});
      }
  }
}

etendue cascade::emprise() const {
  etendue e;
  for (const auto& surface : m_surfaces) e.prendre(surface->emprise());
  return e;
}

}  // namespace etu
