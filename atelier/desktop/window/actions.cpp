// Menus from left to right, entries from top to bottom.
#include "atelier/desktop/window/actions.h"

namespace atelier::desktop {
namespace {

constexpr ActionRow kRows[] = {
    {"&Fichier", "&Nouveau", "Ctrl+N", "nouveau", "@new"},
    {"&Fichier", "&Ouvrir...", "Ctrl+O", "ouvrir", "@open"},
    {"&Fichier", "&Enregistrer", "Ctrl+S", "enregistrer", "@save"},
    {"&Fichier", "En&registrer sous...", "Ctrl+Shift+S", nullptr, "@saveAs"},
    {"&Fichier", nullptr, nullptr, nullptr, nullptr},
    {"&Fichier", "&Tracer...", "Ctrl+P", "tracer", "@plot"},
    {"&Fichier", "&Vérifier le dessin", nullptr, nullptr, "@audit"},
    {"&Fichier", nullptr, nullptr, nullptr, nullptr},
    {"&Fichier", "&Fermer", "Ctrl+W", nullptr, "@close"},
    {"&Fichier", "&Quitter", "Ctrl+Q", nullptr, "@quit"},
    {"É&dition", "&Annuler", "Ctrl+Z", "annuler", "U"},
    {"É&dition", "&Rétablir", "Ctrl+Y", "retablir", "REDO"},
    {"É&dition", nullptr, nullptr, nullptr, nullptr},
    {"É&dition", "&Effacer", nullptr, nullptr, "ERASE"},
    {"É&dition", "&Copier", nullptr, nullptr, "COPY"},
    {"É&dition", "&Déplacer", nullptr, nullptr, "MOVE"},
    {"É&dition", "&Tourner", nullptr, nullptr, "ROTATE"},
    {"É&dition", "É&chelle", nullptr, nullptr, "SCALE"},
    {"É&dition", "Sé&lectionner tout", "Ctrl+A", nullptr, "@selectAll"},
    {"&Affichage", "Zoom é&tendu", "Ctrl+E", "etendu", "@extents"},
    {"&Affichage", "Zoom &fenêtre", nullptr, "fenetre", "ZOOM|Fenêtre"},
    {"&Affichage", "&Plus près", "Ctrl++", nullptr, "@nearer"},
    {"&Affichage", "P&lus loin", "Ctrl+-", nullptr, "@farther"},
    {"&Affichage", nullptr, nullptr, nullptr, nullptr},
    {"&Affichage", "&Couleur du fond...", nullptr, nullptr, "@ground"},
    {"&Affichage", "Couleur du fon&d selon le thème", nullptr, nullptr, "@themeGround"},
    {"&Affichage", "&Thème sombre", nullptr, nullptr, "@theme"},
    {"&Affichage", nullptr, nullptr, nullptr, nullptr},
    {"&Affichage", "&Accrochages aux objets...", nullptr, nullptr, "@snaps"},
    {"&Affichage", "Accr&ochage", "F3", nullptr, "@toggleSnaps"},
    {"&Affichage", "O&rtho", "F8", nullptr, "@ortho"},
    {"&Dessin", "&Ligne", nullptr, nullptr, "LINE"},
    {"&Dessin", "&Polyligne", nullptr, nullptr, "PLINE"},
    {"&Dessin", "&Cercle", nullptr, nullptr, "CIRCLE"},
    {"&Dessin", "&Arc", nullptr, nullptr, "ARC"},
    {"&Dessin", "&Texte", nullptr, nullptr, "TEXT"},
    {"&Dessin", "P&oint", nullptr, nullptr, "POINT"},
    {"&Profil", "&Nouveau profil...", "Ctrl+Shift+N", "profil", "@newProfile"},
    {"&Profil", "Profil d'une s&urface", nullptr, nullptr, "PLV-TERRAIN"},
    {"&Profil", "&Matrices...", "Ctrl+M", "tableaux", "@matrices"},
    {"&Profil", "Ligne &projet", nullptr, "projet", "PLV-PROJET"},
    {"&Profil", "P&lans de comparaison", nullptr, "plan", "PLV-PC"},
    {"&Profil", "Ligne &optimale", nullptr, "optimal", "PLV-OPTIMAL"},
    {"&Profil", nullptr, nullptr, nullptr, nullptr},
    {"&Profil", "Lignes par &stations", nullptr, nullptr, "PLV-LIGNES"},
    {"&Profil", "&Reporter une courbe", nullptr, nullptr, "PLV-REPORT"},
    {"&Profil", "Pente d'&un segment", nullptr, nullptr, "PLV-PENTE"},
    {"&Profil", "Longueur &d'un segment", nullptr, nullptr, "PLV-LONGUEUR"},
    {"&Profil", "Lister les &altitudes", nullptr, nullptr, "PLV-ALTITUDES"},
    {"&Profil", "Lister les po&ints", nullptr, nullptr, "PLV-POINTS"},
    {"&Profil", nullptr, nullptr, nullptr, nullptr},
    {"&Profil", "Mé&trés...", nullptr, "metres", "CUBPL"},
    {"&Profil", "Métrés en une &fois", nullptr, nullptr, "PLV-METRES"},
    {"&Profil", "Lé&gende", nullptr, nullptr, "PLV-LEGENDE"},
    {"&Profil", nullptr, nullptr, nullptr, nullptr},
    {"&Profil", "&Feuilles en PDF", nullptr, "tracer", "PLV-FEUILLES"},
    {"&Profil", "&Exporter", nullptr, nullptr, "PLV-EXPORT"},
    {"&Profil", nullptr, nullptr, nullptr, nullptr},
    {"&Profil", "&Choisir un profil", nullptr, nullptr, "PLV-CHOISIR"},
};

}  // namespace

std::span<const ActionRow> actionRows() { return kRows; }

}  // namespace atelier::desktop
