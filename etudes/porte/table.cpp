// The table, and how its functions are published and called; a row's place is the code with which the host calls it.
#include "etudes/porte/table.h"

#include <iterator>

#include "etudes/cout/fonctions.h"
#include "etudes/optimal/fonctions.h"
#include "hote/aced.h"
#include "hote/acut.h"
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"

namespace etu {

namespace {

void et_aide();

constexpr ligneFonction kTable[] = {
    {L"et_aide", et_aide, L"(et_aide)", L"Les fonctions d'études: une liste (nom appel aide) pour chacune."},
    {L"et_profondeurs", et_profondeurs, L"(et_profondeurs profil sommets)",
     L"La plus petite et la plus grande profondeur d'une ligne sous le terrain: ((pk profondeur) (pk profondeur)). Les "
     L"sommets sont "
     L"des listes (pk altitude), vers la droite; nil hors du terrain."},
    {L"et_ligne", et_ligne, L"(et_ligne profil moindre plus-grande départ arrivée [contraintes])",
     L"La ligne de moins de sommets entre deux profondeurs: (lignes fenêtres (surface moindre) prouvée manque). Une "
     L"extrémité "
     L"est (pk altitude), ou pk où elle est libre. Une ligne est une liste de (pk altitude), ses fenêtres des listes "
     L"((pk "
     L"altitude) (pk altitude)): aucune ligne d'un sommet de moins ne passe la dernière. La surface est entre terrain "
     L"et "
     L"lignes, aucune ligne n'en a moins que moindre. prouvée est nil quand longueur ou arrondi demandent plus de "
     L"sommets. "
     L"manque est nil, ou (mètres (pk limite valeur) (pk limite valeur)) quand une limite basse et une haute se "
     L"contredisent: "
     L"la ligne s'en écarte de la moitié. Les contraintes sont des listes (nom nombres): (profondeur pk pk moindre "
     L"plus-grande) (pente moindre plus-grande) en mètres par mètre vers la droite, (point pk bas haut) (croisement pk "
     L"pk bas "
     L"haut) (longueur moindre) (arrondi pas-altitude pas-pente), leur nom étant une chaîne."},
    {L"et_couloir", et_couloir, L"(et_couloir profil moindre plus-grande départ arrivée [contraintes])",
     L"Le couloir où et_ligne cherche: ses limites basse et haute, deux listes de (pk altitude)."},
    {L"et_ligneCout", et_ligneCout, L"(et_ligneCout profil moindre plus-grande départ arrivée contraintes ouvrages)",
     L"La ligne de moindre coût d'un regard à l'autre: (regards (coût borne) quantités), un regard étant (pk terrain "
     L"entrée sortie), la borne un coût sous lequel aucune ligne n'est, quelles que soient ses altitudes, les "
     L"quantités "
     L"(volumes blindage regards profondeur chutes pompages relevage). Quand aucune n'arrive: (nil (pk pk)), le regard "
     L"le plus loin qu'une ligne atteint et le suivant. Les altitudes aux regards sont rondes au pas de la contrainte "
     L"arrondi, au centimètre sans elle. Les ouvrages sont des listes (nom nombres): (station pk) d'un regard, "
     L"(espacement plus-grand pas) pour en ajouter, (fouille profondeur largeur prix) par classe, (blindage profondeur "
     L"prix), (regard prix prix-du-mètre), (chute prix hauteur), (pompage prix prix-du-mètre). Chutes et pompages ne "
     L"valent qu'avec une pente d'un seul sens."},
};

void et_aide() {
  plv::ArgsLisp args;
  plv::commencerAppel(args);
  plv::listeRb liste;
  for (const ligneFonction& ligne : kTable)
    liste.ajouter(acutBuildList(RTLB, RTSTR, ligne.nom, RTSTR, ligne.appel, RTSTR, ligne.aide, RTLE, 0));
  acedRetList(liste.tete());
}

}  // namespace

std::span<const ligneFonction> tableFonctions() { return kTable; }

void publier() {
  for (std::size_t i = 0; i < std::size(kTable); ++i) acedDefun(kTable[i].nom, static_cast<int>(i));
}

void retirer() {
  for (std::size_t i = 0; i < std::size(kTable); ++i) acedUndef(kTable[i].nom, static_cast<int>(i));
}

void appeler() {
  const int code = acedGetFunCode();
  if (code >= 0 && static_cast<std::size_t>(code) < std::size(kTable)) kTable[code].fonction();
}

}  // namespace etu
