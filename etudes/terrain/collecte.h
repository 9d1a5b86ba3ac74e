// What of a drawing makes a surface: points, blocks with an altitude, texts that are altitudes, breaklines, faces.
// Each entity is looked at for what it is; what says nothing of the ground is counted.
#pragma once
#include <map>
#include <string>

#include "etudes/surfaces/surface.h"
#include "hote/dbents.h"

namespace etu {

struct reglesCollecte {
  std::wstring attribut;       // the tag of a block's altitude; empty: any of the usual tags, else the only number
  bool zeroCompris = false;    // altitude 0 is an altitude, and not the lack of one
  AcDbObjectIdArray ecartees;  // entities that are no ground, such as the axis
};

// How many entities of each kind were taken, and of those left out why.
struct bilanCollecte {
  std::size_t points = 0, blocs = 0, textes = 0, lignes = 0, faces = 0;
  std::size_t sansAltitude = 0, altitudeNulle = 0, autres = 0;
};

class collecte {
 public:
  explicit collecte(const reglesCollecte& regles) : m_regles(regles) {}
  void prendre(AcDbObjectId id);
  const bilanCollecte& bilan() const { return m_bilan; }
  releve& resultat() { return m_releve; }

 private:
  void prendre(const AcDbEntity& entite);
  void prendreCourbe(const AcDbCurve& courbe);
  void prendreFace(const AcDbFace& face);
  bool prendreMaillage(const AcDbEntity& entite);
  void prendreBloc(const AcDbBlockReference& bloc);
  void prendreTexte(const std::wstring& texte, const AcGePoint3d& lieu);
  bool ajouter(const point3& p);
  void ajouterFace(const point3& a, const point3& b, const point3& c);
  bool nulle(double z) const { return z == 0 && !m_regles.zeroCompris; }

  const reglesCollecte& m_regles;
  bilanCollecte m_bilan;
  releve m_releve;
};

}  // namespace etu
