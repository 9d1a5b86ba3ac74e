// Groups of static elements on the screen, and the loop in which the user edits them.
// Four states: adding to or removing from the base list or the duplicates.
#include "hote/acdb.h"
#include "hote/aced.h"
#include "module/elements/elemsFixes.h"
#include "module/elements/listeProjet.h"

namespace plv {

namespace {

constexpr int kTailleReponse = 133;
constexpr int kCouleurRepere = 1, kCouleurElement = 4, kCouleurDoublon = 2;
constexpr double kHauteurRepere = 100.0, kMarge = 0.05;

// False when the entity doesn't open.
bool entourer(AcDbObjectId id, int couleur) {
  AcDbEntityPointer entite(id);
  if (entite.openStatus() != Acad::eOk) return false;
  AcDbExtents etendue;
  if (entite->getGeomExtents(etendue) != Acad::eOk) return true;
  const AcGePoint3d bas = etendue.minPoint(), haut = etendue.maxPoint();
  const double margeX = (haut.x - bas.x) * kMarge, margeY = (haut.y - bas.y) * kMarge;
  tracerCadre({bas.x - margeX, bas.y - margeY}, {haut.x + margeX, haut.y + margeY}, couleur, true);
  return true;
}

void entourerListe(AcDbObjectIdArray& liste, int couleur) {
  for (int i = 0; i < liste.length();)
    if (entourer(liste[i], couleur)) ++i;
    else liste.removeAt(i);
}

void dessinerGroupe(elemsFixesKavel& groupe, const AcGePoint3d& base) {
  const double x = base.x + groupe.position.valeur;
  const ads_point pied = {x, base.y, 0.0}, tete = {x, base.y + kHauteurRepere, 0.0};
  acedGrDraw(pied, tete, kCouleurRepere, 1);
  entourerListe(groupe.elements, kCouleurElement);
  entourerListe(groupe.doublons, kCouleurDoublon);
}

struct etat {
  const ACHAR* prompt;
  const ACHAR* motsCles;
  bool ajout, doublons;
};
constexpr etat kEtats[4] = {{L"\nEnlever Doublons Reset Fin Voir <position des éléments>:", L"E D R F V", true, false},
                            {L"\nAjouter Doublons Reset Fin Voir <element à enlever>:", L"A D R F V", false, false},
                            {L"\nEnlever Base Reset Fin Voir <position des éléments>:", L"E B R F V", true, true},
                            {L"\nAjouter Base Reset Fin Voir <element à enlever>:", L"A B R F V", false, true}};
constexpr int kAjouterBase = 0, kAjouterDoublons = 2;

// D and B lead to adding in the other list, E and A turn between adding and removing in the same one.
int apresMotCle(int present, ACHAR lettre) {
  switch (lettre) {
    case L'D': return kAjouterDoublons;
    case L'B': return kAjouterBase;
    case L'E': return present + 1;
    case L'A': return present - 1;
    default: return present;
  }
}

AcDbObjectIdArray& listeDe(elemsFixesKavel& groupe, bool doublons) {
  return doublons ? groupe.doublons : groupe.elements;
}

void ajouterElements(listeElemsFixes& liste, const AcGePoint3d& base, xDessin x, bool doublons) {
  elemsFixesKavel& groupe = chercherGroupe(liste, distanceProfil(x.valeur - base.x), kTolerancePosition);
  ads_name nom;
  ads_point point;
  while (acedEntSel(L"\nElement à ajouter", nom, point) == RTNORM) {
    AcDbObjectId id;
    AcDbObjectIdArray& cible = listeDe(groupe, doublons);
    if (acdbGetObjectId(id, nom) != Acad::eOk || cible.contains(id)) continue;
    cible.append(id);
    redessinerGroupes(liste, base);
  }
}

void enleverElement(listeElemsFixes& liste, const AcGePoint3d& base, const ads_name nom, bool doublons) {
  AcDbObjectId id;
  acdbGetObjectId(id, nom);
  for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i) {
    AcDbObjectIdArray& ids = listeDe(*liste[i], doublons);
    if (const int place = ids.find(id); place >= 0) ids.removeAt(place);
  }
  redessinerGroupes(liste, base);
}

// The input of one round of the loop, and what follows from a point or an entity; gives the host's code.
int tour(listeElemsFixes& liste, const AcGePoint3d& base, const etat& present) {
  acedInitGet(0, present.motsCles);
  ads_point point;
  if (present.ajout) {
    const int resultat = acedGetPoint(nullptr, present.prompt, point);
    if (resultat == RTNORM) ajouterElements(liste, base, xDessin(point[0]), present.doublons);
    return resultat;
  }
  ads_name nom;
  const int resultat = acedEntSel(present.prompt, nom, point);
  if (resultat == RTNORM) enleverElement(liste, base, nom, present.doublons);
  return resultat;
}

}  // namespace

void redessinerGroupes(listeElemsFixes& liste, const AcGePoint3d& base) {
  acgsRemoveAnonymousGraphics(0);
  for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i) dessinerGroupe(*liste[i], base);
}

void editerElemsFixes(listeElemsFixes& liste, const AcGePoint3d& base) {
  redessinerGroupes(liste, base);
  int present = kAjouterBase;
  for (;;) {
    const int resultat = tour(liste, base, kEtats[present]);
    if (resultat == RTCAN) return;
    if (resultat != RTKWORD) continue;
    ACHAR reponse[kTailleReponse] = L"";
    acedGetInput(reponse);
    if (*reponse == L'F') return;
    if (*reponse == L'R') viderGroupes(liste);
    if (*reponse == L'R' || *reponse == L'V') redessinerGroupes(liste, base);
    present = apresMotCle(present, *reponse);
  }
}

}  // namespace plv
