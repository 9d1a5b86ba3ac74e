// The numbers. Texts and pointers (suffix, arrow blocks, text style) stand in dimension_style.cpp.
#include "atelier/database/dimensions/dimension_variables.h"

namespace atelier {
namespace {

constexpr DimensionVariable kVariables[] = {
    {"DIMSCALE", 40, 1, "Échelle des grandeurs des cotes."},
    {"DIMASZ", 41, 2.5, "Longueur des flèches."},
    {"DIMEXO", 42, 0.625, "Écart entre l'objet et l'attache."},
    {"DIMDLI", 43, 3.75, "Écart entre lignes de cote parallèles."},
    {"DIMEXE", 44, 1.25, "Dépassement des attaches."},
    {"DIMRND", 45, 0, "Arrondi des mesures."},
    {"DIMDLE", 46, 0, "Dépassement de la ligne de cote."},
    {"DIMTP", 47, 0, "Tolérance supérieure."},
    {"DIMTM", 48, 0, "Tolérance inférieure."},
    {"DIMTXT", 140, 2.5, "Hauteur du texte des cotes."},
    {"DIMCEN", 141, 2.5, "Marque de centre."},
    {"DIMTSZ", 142, 0, "Longueur des traits obliques à la place des flèches."},
    {"DIMALTF", 143, 0.0393701, "Facteur des autres unités."},
    {"DIMLFAC", 144, 1, "Facteur des longueurs mesurées."},
    {"DIMTVP", 145, 0, "Place verticale du texte."},
    {"DIMTFAC", 146, 1, "Hauteur relative des tolérances."},
    {"DIMGAP", 147, 0.625, "Écart entre texte et ligne de cote."},
    {"DIMTOL", 71, 0, "Tolérances montrées."},
    {"DIMLIM", 72, 0, "Limites montrées."},
    {"DIMTIH", 73, 0, "Texte horizontal entre les attaches."},
    {"DIMTOH", 74, 0, "Texte horizontal au dehors."},
    {"DIMSE1", 75, 0, "Première attache supprimée."},
    {"DIMSE2", 76, 0, "Deuxième attache supprimée."},
    {"DIMTAD", 77, 1, "Texte au-dessus de la ligne de cote."},
    {"DIMZIN", 78, 8, "Zéros supprimés."},
    {"DIMAZIN", 79, 0, "Zéros des angles supprimés."},
    {"DIMALT", 170, 0, "Autres unités montrées."},
    {"DIMALTD", 171, 3, "Décimales des autres unités."},
    {"DIMTOFL", 172, 1, "Ligne de cote entre les attaches."},
    {"DIMSAH", 173, 0, "Flèches différentes."},
    {"DIMTIX", 174, 0, "Texte entre les attaches."},
    {"DIMSOXD", 175, 0, "Pas de ligne de cote au dehors."},
    {"DIMCLRD", 176, 0, "Couleur de la ligne de cote."},
    {"DIMCLRE", 177, 0, "Couleur des attaches."},
    {"DIMCLRT", 178, 0, "Couleur du texte des cotes."},
    {"DIMADEC", 179, 0, "Décimales des angles."},
    {"DIMDEC", 271, 2, "Décimales des longueurs."},
    {"DIMTDEC", 272, 2, "Décimales des tolérances."},
    {"DIMALTU", 273, 2, "Écriture des autres unités."},
    {"DIMAUNIT", 275, 0, "Unités des angles."},
    {"DIMLUNIT", 277, 2, "Écriture des longueurs."},
    {"DIMDSEP", 278, 44, "Signe décimal."},
    {"DIMJUST", 280, 0, "Place du texte le long de la ligne."},
    {"DIMSD1", 281, 0, "Première moitié de la ligne supprimée."},
    {"DIMSD2", 282, 0, "Deuxième moitié de la ligne supprimée."},
    {"DIMUPT", 288, 0, "Texte placé par l'utilisateur."},
    {"DIMATFIT", 289, 3, "Ce qui va au dehors quand la place manque."},
};

}  // namespace

std::span<const DimensionVariable> dimensionVariables() { return kVariables; }

}  // namespace atelier
