// The table, and how its functions are published and called; a row's place is the code with which the host calls it.
#include "etudes/porte/table.h"

#include <iterator>

#include "etudes/optimal/fonctions.h"
#include "etudes/suivi/fonctions.h"
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
    {L"et_empreinte", et_empreinte, L"(et_empreinte valeurs [origine [aspect]])",
     L"L'empreinte d'une liste de nombres, de textes et d'entités: seize chiffres, les mêmes tant que rien ne change. "
     L"Les "
     L"réels comptent au millionième, les points des entités depuis l'origine; avec aspect, calques, couleurs et "
     L"textes "
     L"comptent aussi."},
    {L"et_noter_textes", et_noter_textes, L"(et_noter_textes entités rangées)",
     L"Garde où sont les textes d'une liste d'entités, rangée par rangée; une rangée est (porteur clé x haut bas), ses "
     L"places "
     L"un enregistrement du porteur."},
    {L"et_ecarts", et_ecarts, L"(et_ecarts entités rangées)",
     L"Ce qu'une main a changé aux textes, d'après les places gardées: (texte rangée x y dx dy réécrit somme) pour "
     L"chacun, "
     L"la rangée par son numéro, de 0. Un texte qui a une couleur à lui en est; un texte sans place n'en est "
     L"pas."},
    {L"et_textes", et_textes, L"(et_textes entités)",
     L"Les textes d'une liste d'entités, de gauche à droite: (x mots entité) pour chacun."},
    {L"et_somme", et_somme, L"(et_somme texte)", L"La somme qui dit les mots d'un texte."},
    {L"et_dans_bande", et_dans_bande, L"(et_dans_bande entités haut bas)",
     L"Les lignes, arcs, textes et blocs d'une liste qui sont entre deux ordonnées."},
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
