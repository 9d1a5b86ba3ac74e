// Places are kept in cells of a grid, so that each text looks at its own cell and those around it only.
#include "etudes/suivi/places.h"

#include <cmath>
#include <cstdint>
#include <map>
#include <string_view>
#include <utility>

#include "hote/dbents.h"

namespace etu {

namespace {

constexpr double kMemePlace = 1e-3;  // drawing units
constexpr int kCouleurDuCalque = 256;

double sommeDe(std::wstring_view mots) {
  std::uint32_t somme = 2166136261U;
  for (const wchar_t lettre : mots) somme = (somme ^ static_cast<std::uint32_t>(lettre)) * 16777619U;
  return somme & 0xFFFFFFU;
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

std::optional<texte> lireTexte(AcDbObjectId id) {
  const AcDbObjectPointer<AcDbText> lu(id);
  if (lu.openStatus() != Acad::eOk) return {};
  const AcGePoint3d debut = lu->position();
  const bool justifie = !lu->isDefaultAlignment();
  const AcGePoint3d lieu = justifie ? lu->alignmentPoint() : debut;
  texte t;
  t.lieu = {lieu.x, lieu.y, sommeDe(lu->textString().kACharPtr())};
  t.milieu = justifie ? (debut.y + lieu.y) / 2
                      : debut.y + 0.3 * lu->height() * (std::sin(lu->rotation()) + std::cos(lu->rotation()));
  t.coloree = lu->colorIndex() != kCouleurDuCalque;
  return t;
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
