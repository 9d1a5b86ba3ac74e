// Static elements: entities that stand at one abscissa of a profile, kept in groups, one an abscissa.
// A group's base list follows the section on its left, its duplicates, made at a change of section, that on its right.
//
// The Xrecord "ELEMS_STATIQUES_KAVEL" of a support object holds, for each group: 102 "{", 10 (position, ordonnee),
// 102 "{", 330 for each element, 102 "}", then for duplicates, when there are any, 102 "{", 330 ..., 102 "}", and
// 102 "}". An entity with a twin names it in a 330 of its Xrecord "DOUBLON_KAVEL".
#pragma once
#include <vector>

#include "hote/acut.h"
#include "hote/dbents.h"
#include "hote/mfc.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/grandeurs.h"

namespace plv {

inline constexpr int kCroissanceElems = 8;
inline constexpr double kTolerancePosition = 0.001;  // positions of one group, drawing units

struct elemsFixesKavel {
  distanceProfil position;
  yDessin ordonnee;  // kept as it was read
  AcDbObjectIdArray elements{0, kCroissanceElems};
  AcDbObjectIdArray doublons{0, kCroissanceElems};
};

// Owns its groups.
class listeElemsFixes : public CArray<elemsFixesKavel*, elemsFixesKavel*> {
 public:
  listeElemsFixes() = default;
  ~listeElemsFixes();
  listeElemsFixes(const listeElemsFixes&) = delete;
  listeElemsFixes& operator=(const listeElemsFixes&) = delete;
};

// Parses one group; on success the cursor goes past it, when asked to.
bool parserGroupe(elemsFixesKavel& groupe, const resbuf*& curseur, bool avancer);
// The groups up to the first that isn't in order, where the cursor stays.
void lireGroupesValeur(std::vector<elemsFixesKavel>& groupes, const resbuf*& curseur);
// Appends the groups of a support object; gives the number held.
std::ptrdiff_t lireElemsFixes(listeElemsFixes& liste, AcDbObjectId support);
void ecrireElemsFixes(const listeElemsFixes& liste, AcDbObjectId support);
// The items of one group, dead ids dropped first; a group with duplicates only makes them its base. Empty for a group
// without elements.
resbuf* enChaine(elemsFixesKavel& groupe);
// The items before the elements of a group's base list, and those after its last list.
void ouvrirGroupe(listeRb& chaine, const ads_point place);
void fermerGroupe(listeRb& chaine);
// The first group nearer than the tolerance, or a new one at the end.
elemsFixesKavel& chercherGroupe(listeElemsFixes& liste, distanceProfil position, double tolerance);
void viderGroupes(listeElemsFixes& liste);

// On the screen: a mark at each group and a frame around each element. Dead ids leave the lists.
void redessinerGroupes(listeElemsFixes& liste, const AcGePoint3d& base);

// Twins, each naming the other.
void lierDoublons(AcDbObjectId premier, AcDbObjectId second);
// Clones the base list, in model space, into the duplicates.
void creerDoublons(elemsFixesKavel& groupe);
// Adds the picked block references that stand in the band to the groups of their abscissas.
void associerParSelection(listeElemsFixes& liste, xDessin gauche, double largeur, yDessin bas);

// The loop in which the user edits the groups.
void editerElemsFixes(listeElemsFixes& liste, const AcGePoint3d& base);

}  // namespace plv
