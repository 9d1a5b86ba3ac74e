// A polyline with its vertices behind it, or one entity that lists vertices and faces (MESH).
#include "etudes/terrain/maillages.h"

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "hote/acdb.h"
#include "hote/acut.h"

namespace etu {

namespace {

class groupesDe {
 public:
  explicit groupesDe(const ads_name nom) : m_tete(acdbEntGet(nom)) {}
  ~groupesDe() {
    if (m_tete) acutRelRb(m_tete);
  }
  groupesDe(const groupesDe&) = delete;
  groupesDe& operator=(const groupesDe&) = delete;
  const resbuf* tete() const { return m_tete; }
  int entier(int code) const {
    const resbuf* rb = chercher(code);
    return rb ? rb->resval.rint : 0;
  }
  point3 point() const {
    const resbuf* rb = chercher(10);
    return rb ? point3{rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]} : point3{};
  }
  bool type(const wchar_t* nom) const {
    const resbuf* rb = chercher(0);
    return rb && rb->resval.rstring && std::wstring_view(rb->resval.rstring) == nom;
  }

 private:
  const resbuf* chercher(int code) const {
    const resbuf* rb = m_tete;
    while (rb && rb->restype != code) rb = rb->rbnext;
    return rb;
  }
  resbuf* m_tete;
};

using listePoints = std::vector<point3>;

// A face by the numbers of its corners, from 0; those that there aren't leave it out.
void ajouter(facesLues& lues, const listePoints& sommets, const std::vector<std::size_t>& coins) {
  for (const std::size_t c : coins)
    if (c >= sommets.size()) return;
  for (std::size_t i = 2; i < coins.size(); ++i)
    lues.triangles.push_back({sommets[coins[0]], sommets[coins[i - 1]], sommets[coins[i]]});
  ++lues.faces;
}

// The vertices of a polyline, then faces that name them by number from 1; the minus of a hidden edge says nothing here.
facesLues aFacettes(ads_name nom) {
  facesLues lues;
  listePoints sommets;
  for (ads_name suivant; acdbEntNext(nom, suivant) == RTNORM; nom[0] = suivant[0], nom[1] = suivant[1]) {
    const groupesDe g(suivant);
    if (!g.type(L"VERTEX")) break;
    if (g.entier(70) & 64) {
      sommets.push_back(g.point());
      continue;
    }
    std::vector<std::size_t> coins;
    for (int code = 71; code <= 74; ++code)
      if (const int rang = g.entier(code)) coins.push_back(static_cast<std::size_t>(std::abs(rang)) - 1);
    ajouter(lues, sommets, coins);
  }
  return lues;
}

// M columns of N vertices; a smoothed grid has those of its frame as well, which are marked.
facesLues enGrille(ads_name nom, const groupesDe& tete) {
  constexpr int kFermeM = 1, kFermeN = 32, kCadre = 16;
  const bool lisse = tete.entier(75) != 0;
  const auto m = static_cast<std::size_t>(std::max(0, tete.entier(lisse ? 73 : 71))),
             n = static_cast<std::size_t>(std::max(0, tete.entier(lisse ? 74 : 72)));
  const int drapeaux = tete.entier(70);
  listePoints sommets;
  for (ads_name suivant; acdbEntNext(nom, suivant) == RTNORM; nom[0] = suivant[0], nom[1] = suivant[1]) {
    const groupesDe g(suivant);
    if (!g.type(L"VERTEX")) break;
    if (!lisse || !(g.entier(70) & kCadre)) sommets.push_back(g.point());
  }
  facesLues lues;
  if (m == 0 || n == 0 || sommets.size() != m * n) return lues;
  for (std::size_t i = 0; i < m - (drapeaux & kFermeM ? 0 : 1); ++i)
    for (std::size_t j = 0; j < n - (drapeaux & kFermeN ? 0 : 1); ++j) {
      const std::size_t i1 = (i + 1) % m, j1 = (j + 1) % n;
      ajouter(lues, sommets, {i * n + j, i1 * n + j, i1 * n + j1, i * n + j1});
    }
  return lues;
}

// The list of faces, after its length (93): of each the number of its corners, then these.
facesLues enListe(const groupesDe& g) {
  facesLues lues;
  listePoints sommets;
  const resbuf* rb = g.tete();
  for (; rb && rb->restype != 93; rb = rb->rbnext)
    if (rb->restype == 10) sommets.push_back({rb->resval.rpoint[0], rb->resval.rpoint[1], rb->resval.rpoint[2]});
  rb = rb ? rb->rbnext : nullptr;
  while (rb && rb->restype == 90) {
    std::vector<std::size_t> coins;
    int reste = rb->resval.rlong;
    for (rb = rb->rbnext; reste > 0 && rb && rb->restype == 90; --reste, rb = rb->rbnext)
      coins.push_back(static_cast<std::size_t>(rb->resval.rlong));
    ajouter(lues, sommets, coins);
  }
  return lues;
}

}  // namespace

std::optional<facesLues> facesDuMaillage(const AcDbEntity& entite) {
  constexpr int kGrille = 16, kFacettes = 64;
  ads_name nom;
  if (acdbGetAdsName(nom, entite.objectId()) != Acad::eOk) return std::nullopt;
  const groupesDe tete(nom);
  if (tete.type(L"MESH")) return enListe(tete);
  if (!tete.type(L"POLYLINE")) return std::nullopt;
  if (tete.entier(70) & kFacettes) return aFacettes(nom);
  if (tete.entier(70) & kGrille) return enGrille(nom, tete);
  return std::nullopt;
}

}  // namespace etu
