// Reading entities as ground. A flat line at altitude 0 is taken for one that nobody gave an altitude; so is a point.
#include "etudes/terrain/collecte.h"

#include <memory>
#include <optional>

#include "etudes/fichiers/nombres.h"
#include "etudes/terrain/lectureAxe.h"
#include "etudes/terrain/maillages.h"
#include "hote/acdb.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr const wchar_t* kEtiquettes[] = {L"ALT", L"ALTITUDE", L"Z",         L"COTE", L"TN",
                                          L"ZTN", L"ELEV",     L"ELEVATION", L"H"};

bool usuelle(const std::wstring& etiquette) {
  return std::any_of(std::begin(kEtiquettes), std::end(kEtiquettes),
                     [&](const wchar_t* e) { return plv::egalSansCasse(etiquette, e); });
}

bool finie(const point3& p) { return std::isfinite(p.x) && std::isfinite(p.y) && std::isfinite(p.z); }

std::wstring texteDe(const AcString& texte) { return std::wstring(texte.kACharPtr()); }

// The altitude that a block's attributes tell: that with the tag, or with a usual one, or the only one that is a number.
std::optional<double> altitudeDesAttributs(const AcDbBlockReference& bloc, const std::wstring& etiquette) {
  std::optional<double> usuel, seul;
  int nombres = 0;
  const std::unique_ptr<AcDbObjectIterator> attributs(bloc.attributeIterator());
  for (; attributs && !attributs->done(); attributs->step()) {
    const AcDbObjectPointer<AcDbAttribute> attribut(attributs->objectId());
    if (attribut.openStatus() != Acad::eOk) continue;
    const std::optional<double> valeur = nombreDe(texteDe(attribut->textString()));
    if (!valeur) continue;
    const std::wstring nom = texteDe(attribut->tag());
    if (!etiquette.empty()) {
      if (plv::egalSansCasse(nom, etiquette)) return valeur;
      continue;
    }
    if (!usuel && usuelle(nom)) usuel = valeur;
    seul = valeur, ++nombres;
  }
  return usuel ? usuel : nombres == 1 && etiquette.empty() ? seul : std::nullopt;
}

}  // namespace

bool collecte::ajouter(const point3& p) {
  if (!finie(p)) return false;
  m_releve.points.push_back(p);
  return true;
}

void collecte::ajouterFace(const point3& a, const point3& b, const point3& c) {
  // A face that stands upright has no extent in plan.
  if (finie(a) && finie(b) && finie(c) && (b.x - a.x) * (c.y - a.y) != (b.y - a.y) * (c.x - a.x))
    m_releve.faces.push_back({a, b, c});
}

void collecte::prendre(AcDbObjectId id) {
  if (m_regles.ecartees.contains(id)) return;
  const AcDbEntityPointer entite(id);
  if (entite.openStatus() == Acad::eOk) prendre(*entite);
}

void collecte::prendre(const AcDbEntity& entite) {
  if (const auto* point = AcDbPoint::cast(&entite)) {
    const AcGePoint3d p = point->position();
    if (nulle(p.z)) ++m_bilan.altitudeNulle;
    else if (ajouter({p.x, p.y, p.z})) ++m_bilan.points;
  } else if (const auto* face = AcDbFace::cast(&entite)) {
    prendreFace(*face);
  } else if (const auto* bloc = AcDbBlockReference::cast(&entite)) {
    prendreBloc(*bloc);
  } else if (const auto* texte = AcDbText::cast(&entite)) {
    prendreTexte(texteDe(texte->textString()),
                 texte->isDefaultAlignment() ? texte->position() : texte->alignmentPoint());
  } else if (const auto* paragraphe = AcDbMText::cast(&entite)) {
    prendreTexte(texteDe(paragraphe->contents()), paragraphe->location());
  } else if (const auto* courbe = AcDbCurve::cast(&entite)) {
    prendreCourbe(*courbe);
  } else if (!prendreMaillage(entite)) {
    ++m_bilan.autres;
  }
}

void collecte::prendreCourbe(const AcDbCurve& courbe) {
  const std::vector<piedAxe> pieds = cordes(axeDeCourbe(courbe), 1e-3);
  if (pieds.size() < 2) {
    ++m_bilan.autres;
    return;
  }
  if (std::all_of(pieds.begin(), pieds.end(), [&](const piedAxe& p) { return nulle(p.z); })) {
    ++m_bilan.altitudeNulle;
    return;
  }
  const auto premier = static_cast<numero>(m_releve.points.size());
  for (const piedAxe& p : pieds) m_releve.points.push_back({p.x, p.y, p.z});
  for (numero i = premier; i + 1 < m_releve.points.size(); ++i) m_releve.segments.emplace_back(i, i + 1);
  ++m_bilan.lignes;
}

void collecte::prendreFace(const AcDbFace& face) {
  std::array<point3, 4> coins;
  for (int i = 0; i < 4; ++i) {
    AcGePoint3d p;
    face.getVertexAt(i, p);
    coins[static_cast<std::size_t>(i)] = {p.x, p.y, p.z};
  }
  ajouterFace(coins[0], coins[1], coins[2]);
  ajouterFace(coins[0], coins[2], coins[3]);
  ++m_bilan.faces;
}

bool collecte::prendreMaillage(const AcDbEntity& entite) {
  const std::optional<facesLues> lues = facesDuMaillage(entite);
  if (!lues) return false;
  for (const auto& [a, b, c] : lues->triangles) ajouterFace(a, b, c);
  m_bilan.faces += lues->faces;
  return true;
}

void collecte::prendreBloc(const AcDbBlockReference& bloc) {
  const AcGePoint3d p = bloc.position();
  const std::optional<double> altitude = altitudeDesAttributs(bloc, m_regles.attribut);
  if (!altitude && (p.z == 0 || !m_regles.attribut.empty())) ++m_bilan.sansAltitude;
  else if (nulle(altitude.value_or(p.z))) ++m_bilan.altitudeNulle;
  else if (ajouter({p.x, p.y, altitude.value_or(p.z)})) ++m_bilan.blocs;
}

void collecte::prendreTexte(const std::wstring& texte, const AcGePoint3d& lieu) {
  const std::optional<double> altitude = nombreDe(texte);
  if (!altitude) ++m_bilan.sansAltitude;
  else if (nulle(*altitude)) ++m_bilan.altitudeNulle;
  else if (ajouter({lieu.x, lieu.y, *altitude})) ++m_bilan.textes;
}

}  // namespace etu
