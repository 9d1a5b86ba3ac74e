// Places are kept in cells of a grid, so that each text looks at its own cell and those around it only.
#include "etudes/suivi/places.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <memory>
#include <string_view>
#include <utility>

#include "hote/acut.h"

namespace etu {

namespace {

constexpr double kMemePlace = 1e-3;  // drawing units

struct liberer {
  void operator()(resbuf* chaine) const { acutRelRb(chaine); }
};

double sommeDe(std::wstring_view mots) {
  std::uint32_t somme = 2166136261U;
  for (const wchar_t lettre : mots) somme = (somme ^ static_cast<std::uint32_t>(lettre)) * 16777619U;
  return somme & 0xFFFFFFU;
}

struct groupesTexte {
  AcGePoint3d debut, alignement;
  double hauteur = 0, rotation = 0;
  bool justifie = false;
};

texte assembler(const groupesTexte& g, texte t) {
  const AcGePoint3d& lieu = g.justifie ? g.alignement : g.debut;
  t.lieu.x = lieu.x;
  t.lieu.y = lieu.y;
  t.milieu = g.justifie ? (g.debut.y + g.alignement.y) / 2
                        : g.debut.y + 0.3 * g.hauteur * (std::sin(g.rotation) + std::cos(g.rotation));
  return t;
}

class grille {
 public:
  explicit grille(std::span<const place> places) : m_places(places), m_prises(places.size()) {
    for (std::size_t i = 0; i < places.size(); ++i) m_cases.emplace(cellule(places[i], 0, 0), i);
  }

  // The first free place where the text stands; with the same words, when that is wanted.
  std::optional<std::size_t> en(const place& p, bool memesMots) {
    for (std::int64_t dx = -1; dx <= 1; ++dx) {
      for (std::int64_t dy = -1; dy <= 1; ++dy) {
        const auto [debut, fin] = m_cases.equal_range(cellule(p, dx, dy));
        for (auto c = debut; c != fin; ++c)
          if (convient(c->second, p, memesMots) && pres(m_places[c->second], p)) return prendre(c->second);
      }
    }
    return {};
  }

  std::optional<std::size_t> plusProche(const place& p) {
    std::optional<std::size_t> trouve;
    for (std::size_t i = 0; i < m_places.size(); ++i)
      if (convient(i, p, true) && (!trouve || distance(i, p) < distance(*trouve, p))) trouve = i;
    if (trouve) prendre(*trouve);
    return trouve;
  }

 private:
  using cle = std::pair<std::int64_t, std::int64_t>;
  static cle cellule(const place& p, std::int64_t dx, std::int64_t dy) {
    return {std::llround(p.x / kMemePlace) + dx, std::llround(p.y / kMemePlace) + dy};
  }
  static bool pres(const place& a, const place& b) {
    return std::abs(a.x - b.x) <= kMemePlace && std::abs(a.y - b.y) <= kMemePlace;
  }
  bool convient(std::size_t i, const place& p, bool memesMots) const {
    return !m_prises[i] && (!memesMots || m_places[i].mots == p.mots);
  }
  double distance(std::size_t i, const place& p) const { return std::hypot(m_places[i].x - p.x, m_places[i].y - p.y); }
  std::size_t prendre(std::size_t i) {
    m_prises[i] = true;
    return i;
  }

  std::span<const place> m_places;
  std::vector<bool> m_prises;
  std::multimap<cle, std::size_t> m_cases;
};

}  // namespace

std::optional<texte> lireTexte(const ads_name entite) {
  const std::unique_ptr<resbuf, liberer> lus(acdbEntGet(entite));
  groupesTexte g;
  texte t;
  bool estTexte = false;
  for (const resbuf* groupe = lus.get(); groupe; groupe = groupe->rbnext) {
    switch (groupe->restype) {
      case 0: estTexte = groupe->resval.rstring && std::wstring_view(groupe->resval.rstring) == L"TEXT"; break;
      case 1: t.lieu.mots = sommeDe(groupe->resval.rstring ? groupe->resval.rstring : L""); break;
      case 10: g.debut = {groupe->resval.rpoint[0], groupe->resval.rpoint[1], 0}; break;
      case 11: g.alignement = {groupe->resval.rpoint[0], groupe->resval.rpoint[1], 0}; break;
      case 40: g.hauteur = groupe->resval.rreal; break;
      case 50: g.rotation = groupe->resval.rreal; break;
      case 62: t.coloree = groupe->resval.rint != 256; break;
      case 72:
      case 73: g.justifie = g.justifie || groupe->resval.rint != 0; break;
      default: break;
    }
  }
  if (!estTexte) return {};
  return assembler(g, t);
}

std::vector<ecart> ecarts(std::span<const texte> textes, std::span<const place> places) {
  std::vector<ecart> trouves;
  std::vector<std::size_t> restent, deplaces;
  grille libres(places);
  const auto noter = [&](std::size_t i, std::size_t ou) {
    trouves.push_back({i, ou, textes[i].lieu.x - places[ou].x, textes[i].lieu.y - places[ou].y});
  };
  for (std::size_t i = 0; i < textes.size(); ++i) {
    const auto ou = libres.en(textes[i].lieu, true);
    if (!ou) restent.push_back(i);
    if (ou && textes[i].coloree) noter(i, *ou);
  }
  for (const std::size_t i : restent) {
    if (const auto ou = libres.en(textes[i].lieu, false)) noter(i, *ou);
    else deplaces.push_back(i);
  }
  for (const std::size_t i : deplaces)
    if (const auto ou = libres.plusProche(textes[i].lieu)) noter(i, *ou);
  return trouves;
}

}  // namespace etu
