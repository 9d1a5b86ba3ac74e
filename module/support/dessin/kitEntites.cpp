// Makers of entities in model space, and layers.
// Every maker ends in ajouterEspaceObjet.
#include "module/support/dessin/kitEntites.h"

#include "hote/dbsymtb.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

// The one polyline in the making.
std::unique_ptr<AcDbPolyline>& polyligneCourante() {
  static std::unique_ptr<AcDbPolyline> polyligne;
  return polyligne;
}

Acad::ErrorStatus ouvrirEspaceObjet(AcDbObjectPointer<AcDbBlockTableRecord>& espace) {
  AcDbDatabase* base = baseCourante();
  if (!base) return Acad::eNoDatabase;
  AcDbObjectPointer<AcDbBlockTable> table(base->blockTableId());
  if (table.openStatus() != Acad::eOk) return table.openStatus();
  AcDbObjectId id;
  const Acad::ErrorStatus etat = table->getAt(ACDB_MODEL_SPACE, id);
  return etat == Acad::eOk ? espace.open(id, AcDb::kForWrite) : etat;
}

}  // namespace

AcDbDatabase* baseCourante() { return acdbHostApplicationServices()->workingDatabase(); }

AcDbObjectId styleCourant() {
  const AcDbDatabase* base = baseCourante();
  return base ? base->textstyle() : AcDbObjectId::kNull;
}

Acad::ErrorStatus ajouterEspaceObjet(std::unique_ptr<AcDbEntity> entite, AcDbObjectId* id) {
  AcDbObjectPointer<AcDbBlockTableRecord> espace;
  Acad::ErrorStatus etat = ouvrirEspaceObjet(espace);
  AcDbObjectId nouveau;
  if (etat == Acad::eOk) etat = espace->appendAcDbEntity(nouveau, entite.get());
  if (etat != Acad::eOk) return etat;
  if (id) *id = nouveau;
  return entite.release()->close();  // the drawing owns it from here
}

Acad::ErrorStatus ajouterEtRetenir(AcDbObjectIdArray& liste, std::unique_ptr<AcDbEntity> entite) {
  AcDbObjectId id;
  const Acad::ErrorStatus etat = ajouterEspaceObjet(std::move(entite), &id);
  if (etat == Acad::eOk) liste.append(id);
  return etat;
}

Acad::ErrorStatus dessinerLigne(const AcGePoint3d& p1, const AcGePoint3d& p2, AcDbObjectId* id, Adesk::UInt16 couleur) {
  auto ligne = std::make_unique<AcDbLine>(p1, p2);
  ligne->setColorIndex(couleur);
  return ajouterEspaceObjet(std::move(ligne), id);
}

Acad::ErrorStatus dessinerLigneXY(double x1, double y1, double x2, double y2, AcDbObjectId* id, Adesk::UInt16 couleur) {
  return dessinerLigne({x1, y1, 0.0}, {x2, y2, 0.0}, id, couleur);
}

Acad::ErrorStatus dessinerRayon(const AcGePoint3d& base, const AcGePoint3d& cible, Adesk::UInt16 couleur) {
  auto rayon = std::make_unique<AcDbRay>();
  rayon->setBasePoint(base);
  rayon->setUnitDir((cible - base).normal());
  rayon->setColorIndex(couleur);
  return ajouterEspaceObjet(std::move(rayon));
}

Acad::ErrorStatus dessinerRectangle(double x, double y, double largeur, double hauteur, double angle, AcDbObjectId* id,
                                    Adesk::UInt16 couleur) {
  const AcGeVector2d u = AcGeVector2d(std::cos(angle), std::sin(angle)) * largeur;
  const AcGeVector2d v = AcGeVector2d(-std::sin(angle), std::cos(angle)) * hauteur;
  const AcGePoint2d coin(x, y);
  auto cadre = std::make_unique<AcDbPolyline>(4);
  unsigned int i = 0;
  for (const AcGePoint2d& sommet : {coin, coin + u, coin + u + v, coin + v}) cadre->addVertexAt(i++, sommet);
  cadre->setClosed(true);
  cadre->setColorIndex(couleur);
  return ajouterEspaceObjet(std::move(cadre), id);
}

void debutPolyligne(unsigned int n) { polyligneCourante() = std::make_unique<AcDbPolyline>(n); }

void ajouterSommet(double x, double y) {
  if (AcDbPolyline* polyligne = polyligneCourante().get()) polyligne->addVertexAt(polyligne->numVerts(), {x, y});
}

std::unique_ptr<AcDbPolyline> prendrePolyligne() { return std::move(polyligneCourante()); }

void effacerTout(AcDbObjectIdArray& liste) {
  for (const AcDbObjectId& id : liste) {
    AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
    if (entite.openStatus() == Acad::eOk) entite->erase();
  }
  liste.removeAll();
}

Acad::ErrorStatus creerCalque(const std::wstring& nom, AcDbObjectId& id, Adesk::UInt16 couleur, AcDbDatabase* base) {
  id.setNull();
  if (!base && !(base = baseCourante())) return Acad::eNoDatabase;
  const std::wstring propre = sansBlancs(nom);
  AcDbObjectPointer<AcDbLayerTable> table(base->layerTableId());
  if (table.openStatus() != Acad::eOk) return table.openStatus();
  if (table->getAt(propre.c_str(), id) == Acad::eOk) return Acad::eOk;

  auto calque = std::make_unique<AcDbLayerTableRecord>();
  AcCmColor teinte;
  teinte.setColorIndex(couleur);
  calque->setName(propre.c_str());
  calque->setColor(teinte);
  Acad::ErrorStatus etat = table->upgradeOpen();
  if (etat == Acad::eOk) etat = table->add(id, calque.get());
  return etat == Acad::eOk ? calque.release()->close() : etat;
}

}  // namespace plv
