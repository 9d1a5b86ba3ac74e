// The stored list of project elements, their flag, and how they are shown on the screen.
// An entity is open only for the time of one operation.
#include "module/elements/listeProjet.h"

#include "hote/acdb.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR* kCleProjet = L"ELEMDUPROJET";
constexpr int kDernierPointeur = 369;  // of the groups that name an object

resbuf* chercherCle(resbuf* rb) {
  while (rb && !(rb->restype == kXTexte && egalSansCasse(rb->resval.rstring, kCleProjet))) rb = rb->rbnext;
  return rb;
}

// The item after the key becomes this value, whatever it was.
void remplacerSuivant(resbuf* cle, resbuf* valeur) {
  if (resbuf* ancien = cle->rbnext) {
    valeur->rbnext = ancien->rbnext;
    ancien->rbnext = nullptr;
    acutRelRb(ancien);
  }
  cle->rbnext = valeur;
}

void poserMarque(AcDbObjectId id, int marque) {
  AcDbObjectPointer<AcDbEntity> entite(id, AcDb::kForWrite);
  if (entite.openStatus() != Acad::eOk) return;
  ArgsLisp donnees;
  if (!donnees.lireXData(*entite, kApplicationCles))
    donnees.ajouter(acutBuildList(kXApplication, kApplicationCles, RTNONE));
  if (resbuf* cle = chercherCle(donnees.tete())) remplacerSuivant(cle, acutBuildList(kXEntier16, marque, RTNONE));
  else donnees.ajouter(acutBuildList(kXTexte, kCleProjet, kXEntier16, marque, RTNONE));
  entite->setXData(donnees.tete());
}

bool sOuvre(AcDbObjectId id) {
  AcDbObjectPointer<AcDbObject> objet(id);
  return objet.openStatus() == Acad::eOk;
}

}  // namespace

void lireListeProjet(AcDbObjectId support, AcDbObjectIdArray& liste) {
  const listeRb chaine(lireXrecord(support, kRecordProjet));
  for (const resbuf* rb = chaine.tete(); rb; rb = rb->rbnext) {
    AcDbObjectId id;
    if (rb->restype == kGroupePointeur && acdbGetObjectId(id, rb->resval.rlname) == Acad::eOk && !liste.contains(id))
      liste.append(id);
  }
}

void lireListeBrute(AcDbObjectId support, AcDbObjectIdArray& liste) {
  const listeRb chaine(lireXrecord(support, kRecordProjet));
  for (const resbuf* rb = chaine.tete(); rb; rb = rb->rbnext) {
    AcDbObjectId id;
    if (rb->restype >= kGroupePointeur && rb->restype <= kDernierPointeur &&
        acdbGetObjectId(id, rb->resval.rlname) == Acad::eOk)
      liste.append(id);
  }
}

void retirerMorts(AcDbObjectIdArray& liste) {
  AcDbObjectIdArray vivants;
  for (const AcDbObjectId& id : liste)
    if (sOuvre(id)) vivants.append(id);
  liste = vivants;
}

void ecrireListeProjet(AcDbObjectId support, const AcDbObjectIdArray& liste) {
  AcDbObjectIdArray vivants = liste;
  retirerMorts(vivants);
  listeRb chaine;
  for (const AcDbObjectId& id : vivants) chaine.ajouterPointeur(id);
  ecrireXrecord(support, kRecordProjet, chaine.tete());
}

void marquerProjet(AcDbObjectId id) { poserMarque(id, 1); }
void demarquerProjet(AcDbObjectId id) { poserMarque(id, 0); }

bool estDuProjet(AcDbObjectId id) {
  AcDbObjectPointer<AcDbCurve> courbe(id);
  if (courbe.openStatus() != Acad::eOk) return false;
  ArgsLisp donnees;
  const resbuf* cle = chercherCle(donnees.lireXData(*courbe, kApplicationCles));
  const resbuf* valeur = cle ? cle->rbnext : nullptr;
  return valeur && valeur->restype == kXEntier16 && valeur->resval.rint == 1;
}

bool estCourbe(AcDbObjectId id) {
  AcDbObjectPointer<AcDbCurve> courbe(id);
  return courbe.openStatus() == Acad::eOk;
}

void surligner(AcDbObjectId id, bool allumer) {
  AcDbEntityPointer entite(id);
  if (entite.openStatus() != Acad::eOk) return;
  if (allumer) entite->highlight();
  else entite->unhighlight();
}

void tracerCadre(const AcGePoint2d& bas, const AcGePoint2d& haut, int couleur, bool surbrillance) {
  const ads_point coins[4] = {{bas.x, bas.y, 0.0}, {haut.x, bas.y, 0.0}, {haut.x, haut.y, 0.0}, {bas.x, haut.y, 0.0}};
  for (int i = 0; i < 4; ++i) acedGrDraw(coins[i], coins[(i + 1) % 4], couleur, surbrillance ? 1 : 0);
}

bool encadrer(AcDbObjectId id, int couleur, double facteurX, double facteurY) {
  AcDbEntityPointer entite(id);
  if (entite.openStatus() != Acad::eOk) return false;
  AcDbExtents etendue;
  if (entite->getGeomExtents(etendue) != Acad::eOk) return true;
  const AcGePoint3d bas = etendue.minPoint(), haut = etendue.maxPoint();
  const AcGePoint2d milieu((bas.x + haut.x) / 2, (bas.y + haut.y) / 2);
  const AcGeVector2d demi((haut.x - bas.x) / 2 * facteurX, (haut.y - bas.y) / 2 * facteurY);
  tracerCadre(milieu - demi, milieu + demi, couleur, false);
  return true;
}

}  // namespace plv
