// The table, and how its functions are published and called; a row's place is the code with which the host calls it.
#include "etudes/porte/table.h"

#include <iterator>

#include "etudes/base/arret.h"
#include "etudes/cout/fonctions.h"
#include "etudes/habillage/fonctions.h"
#include "etudes/optimal/fonctions.h"
#include "etudes/reseaux/fonctions.h"
#include "etudes/suivi/fonctions.h"
#include "etudes/terrain/fonctions.h"
#include "etudes/tranchees/fonctions.h"
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
     L"La ligne de moindre coût d'un regard à l'autre: (regards (coût borne arrondi) quantités), un regard étant (pk "
     L"terrain "
     L"entrée sortie), la borne un coût sous lequel aucune ligne n'est, quelles que soient ses altitudes, "
     L"l'arrondi le coût de la moins chère aux altitudes rondes au centimètre (0 sans elle), les quantités (volumes "
     L"blindage regards profondeur chutes pompages relevage). Quand aucune n'arrive: (nil (pk pk)), le regard "
     L"le plus loin qu'une ligne atteint et le suivant. Les altitudes aux regards sont rondes au pas de la contrainte "
     L"arrondi, quelconques sans elle. Les ouvrages sont des listes (nom nombres): (station pk) d'un regard, "
     L"(espacement plus-grand pas) pour en ajouter, (fouille profondeur largeur prix) par classe, (blindage profondeur "
     L"prix), (regard prix prix-du-mètre), (chute prix hauteur), (pompage prix prix-du-mètre). Chutes et pompages ne "
     L"valent qu'avec une pente d'un seul sens."},
    {L"et_axe", et_axe, L"(et_axe jeu [inverse])",
     L"Les courbes d'un jeu de sélection, bout à bout, en un axe en plan: une liste de (x y z bulbe), dans le sens de "
     L"la "
     L"première, ou à l'inverse pour T. Une chaîne dit pourquoi elles n'en font pas un."},
    {L"et_axe_depuis", et_axe_depuis, L"(et_axe_depuis axe distance)",
     L"L'axe à partir d'une distance, de la même forme."},
    {L"et_rencontres", et_rencontres, L"(et_rencontres axe jeu distance)",
     L"Ce qu'un axe rencontre: une liste de (distance nom), une ligne qui le croise ayant le nom de son calque, un "
     L"bloc ou un texte à cette "
     L"distance au plus celui de son attribut ou de son texte. nil sans rien."},
    {L"et_fichier", et_fichier, L"(et_fichier chemin)",
     L"Ce qu'est un fichier d'après son contenu: (\"points\"), (\"grille\"), (\"vecteur\") ou (\"landxml\"), puis, "
     L"quand il dit son système de coordonnées, T "
     L"pour des degrés ou nil, et (code nom). Une chaîne dit ce qui ne va pas."},
    {L"et_surfaces", et_surfaces, L"(et_surfaces chemin)",
     L"Les noms des surfaces d'un fichier LandXML, nil sans aucune. Une chaîne dit ce qui ne va pas."},
    {L"et_ordre", et_ordre, L"(et_ordre chemin axe)",
     L"L'ordre des colonnes d'une liste de points: \"YX\" quand ses points ne rencontrent l'étendue d'un axe "
     L"qu'échangés, "
     L"sinon \"XY\". Une phrase dit ce qui ne va pas."},
    {L"et_axes_fichier", et_axes_fichier, L"(et_axes_fichier chemin [système])",
     L"Les lignes d'un fichier GeoJSON, GPX, KML, Shapefile ou GeoPackage et les tracés en plan de LandXML: une liste "
     L"de (nom axe "
     L"station-de-départ), dans le système de coordonnées donné. Une chaîne dit pourquoi il n'y en a pas."},
    {L"et_systemes", et_systemes, L"(et_systemes texte-ou-axe)",
     L"Les systèmes de coordonnées que nomme un texte (\"EPSG:2154\"), ou ceux où un axe peut être: une liste de (code "
     L"nom), nil sans aucun."},
    {L"et_terrain", et_terrain, L"(et_terrain axes sources [options])",
     L"Le terrain le long d'axes: (profils contradictions remarques (points segments triangles "
     L"nombre-de-contradictions)). "
     L"Un axe est ce que rend et_axe. Un profil est la longueur de l'axe, puis des morceaux, listes de (distance "
     L"altitude), une lacune entre "
     L"deux; ou la chaîne qui dit pourquoi il n'y en a pas. Une contradiction est (quoi x y z1 z2). Les sources sont "
     L"des listes, les mots étant "
     L"des chaînes: (dessin jeu), (fichier chemin [echanger] [EPSG:code] [surface:nom]) ou un dossier de dalles, (axe) "
     L"pour les "
     L"altitudes de l'axe; les options "
     L"aussi: (tolerance m), 0.01 sinon, (arete m) la plus longue arête d'un triangle, (contour jeu), (trous jeu), "
     L"(sauf jeu), (attribut "
     L"étiquette), (zero T) où l'altitude 0 en est une, (pres m) pour les points près de l'axe au lieu d'une surface, "
     L"(systeme EPSG:code) celui "
     L"des axes. Une chaîne dit pourquoi une source ne convient pas."},
    {L"et_triangles", et_triangles, L"(et_triangles sources options nombre)",
     L"Les triangles d'une surface: des listes de trois points. Sources et options sont celles d'et_terrain; nil quand "
     L"elle n'a pas de triangles, "
     L"une chaîne quand il y en a plus que le nombre, ou qu'une source ne convient pas."},
    {L"et_reseau_rangees", et_reseau_rangees, L"(et_reseau_rangees rangées)",
     L"Les rangées d'un réseau, lues dans un fichier ou tapées, telles que le dessin les garde: un tuyau par rangée. "
     L"Une "
     L"chaîne dit ce qui ne va pas."},
    {L"et_reseau", et_reseau, L"(et_reseau profil rangées ligne)",
     L"Un réseau avec ses altitudes: (regards tuyaux croisements). Un regard est (nom station type intérieur extérieur "
     L"terrain tampon arrivée départ fond profil), l'arrivée et le départ nil où il n'y a pas de tuyau, un tuyau (de à "
     L"pk "
     L"radier pk radier intérieur extérieur diamètre matériau classe), un croisement (nom pk altitude diamètre angle). "
     L"La "
     L"ligne est une liste de lignes de (pk altitude). Une chaîne dit ce qui ne va pas."},
    {L"et_reseau_avis", et_reseau_avis, L"(et_reseau_avis profil rangées ligne gravitaire)",
     L"Ce qui est à dire d'un réseau, une liste de (pk phrase): pentes, couverture, contre-pentes, chutes, diamètres "
     L"qui "
     L"diminuent, espacement, vitesses, croisements. nil pour gravitaire: un réseau sous pression."},
    {L"et_reseau_importer", et_reseau_importer, L"(et_reseau_importer chemin de à station diamètre)",
     L"Les rangées d'un réseau d'un fichier .inp ou LandXML (PipeNetworks): (rangées remarques), du nœud de départ à "
     L"celui "
     L"d'arrivée, ou le plus long chemin pour deux textes vides; la station est celle du départ, le diamètre en texte "
     L"celui des "
     L"regards que le fichier ne dit pas. Une chaîne dit ce qui ne va pas."},
    {L"et_reseau_ecrire", et_reseau_ecrire, L"(et_reseau_ecrire chemin format titre lieux profil rangées ligne)",
     L"Écrit un réseau, le format étant \"inp\" ou \"xml\"; lieux est une liste d'une liste des (x y) de ses regards. "
     L"Rend T. Une "
     L"chaîne dit ce qui ne va pas."},
    {L"et_tranchees_sols", et_tranchees_sols, L"(et_tranchees_sols règles)",
     L"Les noms des sols que demandent des types de tranchées: celui d'où l'on creuse, puis ceux des couches plus "
     L"basses. "
     L"Une chaîne dit ce qui ne va pas dans les règles."},
    {L"et_tranchees", et_tranchees, L"(et_tranchees profil rangées ligne règles sols)",
     L"Les quantités d'un réseau: (colonnes ouvrages total écart). Une colonne est (titre unité), un ouvrage (nom "
     L"longueur-en-plan en-pente posée profondeur-moindre plus-grande) suivi d'une valeur par colonne, le total de "
     L"même; "
     L"l'écart est ce qui manque à l'identité de la fouille et de ce qui la remplit. Les sols sont des lignes, dans "
     L"l'ordre "
     L"d'et_tranchees_sols, nil pour le terrain du profil. Une chaîne dit ce qui ne va pas."},
    {L"et_tranchees_classeur", et_tranchees_classeur, L"(et_tranchees_classeur chemin lots prix dessin date)",
     L"Écrit le classeur de réseaux: bordereau, synthèse, tronçons, regards, découpe, paramètres, contrôles, chaque "
     L"valeur une "
     L"formule. Un lot est (nom profil rangées ligne règles sols gravitaire), les prix des rangées "
     L"désignation;unité;prix. Le "
     L"résultat est (articles-sans-prix volume-du-premier-lot). Une chaîne dit ce qui ne va pas."},
    {L"et_tranchees_articles", et_tranchees_articles, L"(et_tranchees_articles lots)",
     L"Les articles du bordereau des lots d'et_tranchees_classeur: une liste de (désignation unité quantité). Une "
     L"chaîne dit ce "
     L"qui ne va pas."},
    {L"et_tranchees_coupes", et_tranchees_coupes, L"(et_tranchees_coupes profil rangées ligne règles sols)",
     L"Les tranchées d'un réseau telles qu'elles se découpent: (morceaux nombre-de-classes). Un morceau est (ouvrage "
     L"regard "
     L"classe largeur fruit hauteur-droite bout bout), regard étant 1 pour une fosse, la classe comptée de 0, un bout "
     L"(pk sol "
     L"dessous-de-la-surface dessus-de-l'enrobage dessus-du-lit fond). Une chaîne dit ce qui ne va pas."},
    {L"et_empreinte", et_empreinte, L"(et_empreinte valeurs [origine [aspect]])",
     L"L'empreinte d'une liste de nombres, de textes et d'entités: seize chiffres, les mêmes tant que rien ne change. "
     L"Les "
     L"réels comptent au millionième, les points des entités depuis l'origine; avec aspect, calques, couleurs et "
     L"textes "
     L"comptent aussi."},
    {L"et_noter_rangees", et_noter_rangees, L"(et_noter_rangees entités gardées rangées)",
     L"Garde ce qui, d'une liste d'entités, est dans des rangées de tableaux, les gardées exceptées; une rangée est "
     L"(porteur clé x haut bas), un "
     L"enregistrement du porteur nomme ses entités, avec la place de ses textes."},
    {L"et_renoter", et_renoter, L"(et_renoter entités nouvelles rangées)",
     L"Ajoute des entités nouvelles à ce qui est gardé des rangées où elles sont, et en ôte ce qui est effacé ou n'est "
     L"pas des entités."},
    {L"et_ecarts", et_ecarts, L"(et_ecarts entités rangées)",
     L"Ce qu'une main a changé aux textes des rangées: (texte rangée x y dx dy réécrit somme) pour "
     L"chacun, la rangée par son numéro, de 0. Un texte qui a une couleur à lui en est."},
    {L"et_somme", et_somme, L"(et_somme texte)", L"La somme qui dit les mots d'un texte."},
    {L"et_a_corriger", et_a_corriger, L"(et_a_corriger entités gardées rangées)",
     L"Ce qui n'est pas juste dans des rangées de tableaux, (porteur clé x haut bas [cellules]) chacune, ses cellules "
     L"des (x mots) ou, pour des pentes, (x1 x2 montée mots): pour chaque rangée (touchée T entité ...) quand elle est "
     L"à remplir entière, sinon (touchée nil "
     L"(numéro entité) ...), "
     L"avec les cellules fausses ou absentes et les textes qui y sont; touchée: une main y a changé un texte. Gardées "
     L"peut "
     L"être T: nil est alors donné quand il faudrait les connaître, parce que rien n'est gardé d'une rangée."},
    {L"et_entites", et_entites, L"(et_entites porteur clé [calque])",
     L"Les entités qu'un enregistrement nomme (groupes 330) et qui sont là; celles d'un calque, quand il est dit."},
    {L"et_hors", et_hors, L"(et_hors entités autres)",
     L"Les entités d'une liste qui ne sont pas dans une autre, dans leur ordre; un groupe vaut ses membres."},
    {L"et_chaine", et_chaine, L"(et_chaine entité clé)",
     L"Les entités d'une chaîne, chacune nommant la suivante sous la clé; elle finit avant une entité effacée, et où "
     L"elle revient sur elle-même."},
    {L"et_bouts", et_bouts, L"(et_bouts traits)",
     L"T quand chaque ligne d'une liste de (ligne départ arrivée) va d'un point à l'autre, au dix-millième près."},
    {L"et_departs", et_departs, L"(et_departs lignes)",
     L"Le point de départ de chaque ligne d'une liste, nil pour autre chose."},
    {L"et_morceaux", et_morceaux, L"(et_morceaux courbe)",
     L"Les points entre lesquels une courbe est lue comme droite pour être mesurée."},
    {L"et_reels", et_reels, L"(et_reels valeurs décimales)",
     L"Des réels en textes, avec tant de décimales et un point; nil reste nil, zéro n'a pas de moins."},
    {L"et_cotes", et_cotes, L"(et_cotes profil courbe x)",
     L"Ce que pl_cotauto écrirait d'une courbe, ou d'une polyligne donnée par ses points, au-dessus du plan qui règne à "
     L"une abscisse du dessin: (x y altitude hauteur) à chaque point du terrain, y étant l'ordonnée de la hauteur, les "
     L"deux derniers des textes."},
    {L"et_ecarter", et_ecarter, L"(et_ecarter étiquettes gauche droite)",
     L"Des étiquettes (centre largeur) écartées le long d'une rangée, aussi peu que possible, pour qu'aucune n'en "
     L"touche "
     L"une autre: (rangée centre) pour chacune, sur aussi peu de rangées qu'il en faut, la première étant 0; nil quand "
     L"l'une est plus large que la place."},
    {L"et_placer", et_placer, L"(et_placer obstacles étiquettes)",
     L"Pour chaque étiquette, une liste de places possibles, le numéro de celle qu'elle prend, de 0, ou -1: aucune ne "
     L"touche une autre ni un obstacle. Places et obstacles sont des boîtes (x y largeur hauteur angle), par leur "
     L"centre."},
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
  if (code < 0 || static_cast<std::size_t>(code) >= std::size(kTable)) return;
  try {
    kTable[code].fonction();
  } catch (const arret&) {
    acedRetNil();
  }
}

}  // namespace etu
