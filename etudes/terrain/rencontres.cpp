// Crossings and feet of perpendiculars, chord by chord.
#include "etudes/terrain/rencontres.h"

#include <memory>
#include <optional>

#include "etudes/surfaces/coupeAxe.h"
#include "etudes/terrain/lectureAxe.h"
#include "hote/dbsymtb.h"

namespace etu {

namespace {

std::wstring texteDe(const AcString& texte) { return texte.kACharPtr(); }

std::wstring nomDuBloc(const AcDbBlockReference& bloc) {
  const std::unique_ptr<AcDbObjectIterator> attributs(bloc.attributeIterator());
  for (; attributs && !attributs->done(); attributs->step()) {
    const AcDbObjectPointer<AcDbAttribute> attribut(attributs->objectId());
    if (attribut.openStatus() == Acad::eOk && attribut->textString().length() > 0)
      return texteDe(attribut->textString());
  }
  const AcDbObjectPointer<AcDbBlockTableRecord> definition(bloc.blockTableRecord());
  AcString nom;
  if (definition.openStatus() == Acad::eOk) definition->getName(nom);
  return texteDe(nom);
}

std::wstring calqueDe(const AcDbEntity& entite) {
  AcString nom;
  entite.layer(nom);
  return texteDe(nom);
}

struct lieuNomme {
  AcGePoint3d place;
  std::wstring nom;
};

// Where a block or a text stands; none for other entities.
std::optional<lieuNomme> lieuDe(const AcDbEntity& entite) {
  if (const auto* bloc = AcDbBlockReference::cast(&entite)) return lieuNomme{bloc->position(), nomDuBloc(*bloc)};
  if (const auto* texte = AcDbText::cast(&entite)) return lieuNomme{texte->position(), texteDe(texte->textString())};
  if (const auto* paragraphe = AcDbMText::cast(&entite))
    return lieuNomme{paragraphe->location(), texteDe(paragraphe->contents())};
  return {};
}

void croiser(const std::vector<piedAxe>& axe, const std::vector<piedAxe>& ligne, const std::wstring& nom,
             std::vector<rencontre>& trouvees) {
  for (std::size_t i = 0; i + 1 < axe.size(); ++i)
    for (std::size_t k = 0; k + 1 < ligne.size(); ++k) {
      const piedAxe &a = axe[i], &b = axe[i + 1], &c = ligne[k], &d = ligne[k + 1];
      const double ux = b.x - a.x, uy = b.y - a.y, vx = d.x - c.x, vy = d.y - c.y, det = ux * vy - uy * vx;
      if (det == 0) continue;
      const double t = ((c.x - a.x) * vy - (c.y - a.y) * vx) / det, u = ((c.x - a.x) * uy - (c.y - a.y) * ux) / det;
      if (t >= 0 && t <= 1 && u >= 0 && u <= 1) trouvees.push_back({a.station + t * (b.station - a.station), nom});
    }
}

}  // namespace

std::vector<rencontre> rencontresDe(const std::vector<piedAxe>& pieds, const AcDbObjectIdArray& ids, double distance) {
  std::vector<rencontre> trouvees;
  for (const AcDbObjectId id : ids) {
    const AcDbEntityPointer entite(id);
    if (entite.openStatus() != Acad::eOk) continue;
    if (const auto lieu = lieuDe(*entite)) {
      if (const auto pied = piedLePlusProche(pieds, {lieu->place.x, lieu->place.y, 0}, distance);
          pied && !lieu->nom.empty())
        trouvees.push_back({*pied, lieu->nom});
    } else {
      croiser(pieds, cordes(axeDeCourbe(*entite), 1e-3), calqueDe(*entite), trouvees);
    }
  }
  std::stable_sort(trouvees.begin(), trouvees.end(),
                   [](const rencontre& a, const rencontre& b) { return a.distance < b.distance; });
  // A crossing at a vertex is one, and not one for each chord.
  const auto meme = [](const rencontre& a, const rencontre& b) {
    return b.distance - a.distance < 1e-3 && a.nom == b.nom;
  };
  trouvees.erase(std::unique(trouvees.begin(), trouvees.end(), meme), trouvees.end());
  return trouvees;
}

}  // namespace etu
