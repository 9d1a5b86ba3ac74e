// The rows of the system variables, by subject.
// Header variables without a row here can be read and set, too; their type is that of the value in the drawing.
#include "atelier/variables/variable_table.h"

#include <algorithm>
#include <vector>

#include "atelier/variables/variable_rows.h"

namespace atelier {
namespace {

using enum VariableKind;

constexpr VariableRow kRows[] = {
    // --- the program
    fixedText("ACADVER", "22.0", "Version de l'hôte, celle des dessins R2018."),
    fixedText("PLATFORM", "Linux", "Système."),
    fixedText("LOCALE", "FRA", "Langue."),
    computed("TEMPPREFIX", text, "Dossier des fichiers temporaires."),
    computed("LOGINNAME", text, "Nom de l'utilisateur."),
    computed("ACADPREFIX", text, "Dossier où les fichiers sont cherchés d'abord."),
    computed("MYDOCUMENTSPREFIX", text, "Dossier de l'utilisateur."),
    computed("ROAMABLEROOTPREFIX", text, "Dossier des réglages de l'utilisateur."),
    computed("LOCALROOTPREFIX", text, "Dossier des réglages de l'utilisateur."),
    computed("SAVEFILEPATH", text, "Dossier des copies automatiques."),
    computed("LOGFILEPATH", text, "Dossier du journal."),
    computed("DATE", real, "Date julienne et fraction du jour."),
    computed("CDATE", real, "Date et heure AAAAMMJJ.HHMMSSmmm."),
    computed("MILLISECS", integer, "Millisecondes d'une horloge qui ne recule pas."),
    sessionInt("ERRNO", 0, 0, 32767, "Ce qui a manqué à la dernière fonction."),
    sessionInt("CMDECHO", 1, 0, 1, "Écho des commandes appelées par command."),
    sessionInt("NOMUTT", 0, 0, 1, "Messages des commandes tus."),
    sessionInt("FILEDIA", 1, 0, 1, "Dialogues de fichiers."),
    sessionInt("CMDDIA", 1, 0, 1, "Dialogues des commandes."),
    sessionInt("ATTDIA", 0, 0, 1, "Dialogue des attributs à l'insertion."),
    sessionInt("ATTREQ", 1, 0, 1, "Attributs demandés à l'insertion."),
    sessionInt("EXPERT", 0, 0, 5, "Questions de sûreté sautées."),
    sessionInt("HIGHLIGHT", 1, 0, 1, "Mise en surbrillance des objets choisis."),
    sessionInt("BLIPMODE", 0, 0, 1, "Marques des points."),
    sessionInt("QAFLAGS", 0, 0, 32767, "Réglages d'essai."),
    sessionInt("TRIMMODE", 1, 0, 1, "Raccords et chanfreins coupent les lignes."),
    sessionInt("PEDITACCEPT", 0, 0, 1, "PEDIT convertit sans demander."),
    sessionInt("DELOBJ", 3, -3, 3, "Objets d'origine effacés."),
    sessionInt("PICKBOX", 3, 0, 50, "Demi-côté de la cible, en pixels."),
    sessionInt("PICKFIRST", 1, 0, 1, "Sélection avant la commande."),
    sessionInt("PICKADD", 2, 0, 2, "Choix ajoutés à la sélection."),
    sessionInt("PICKAUTO", 1, 0, 7, "Fenêtre automatique."),
    sessionInt("PICKSTYLE", 1, 0, 3, "Choix des groupes."),
    sessionInt("OSMODE", 4133, 0, 32767, "Accrochages aux objets."),
    sessionInt("AUTOSNAP", 63, 0, 63, "Aides d'accrochage."),
    sessionInt("SNAPMODE", 0, 0, 1, "Résolution."),
    sessionInt("GRIDMODE", 0, 0, 1, "Grille."),
    sessionInt("POLARMODE", 0, 0, 31, "Repérage polaire."),
    sessionInt("MENUECHO", 0, 0, 15, "Écho des menus."),
    sessionInt("TEXTEVAL", 0, 0, 1, "Expressions évaluées dans les textes."),
    sessionInt("HPASSOC", 1, 0, 1, "Hachures associatives."),
    sessionInt("LAYEREVAL", 0, 0, 2, "Veille des nouveaux calques."),
    sessionInt("SECURELOAD", 1, 0, 2, "Programmes hors des dossiers sûrs: 0 chargés, 1 signalés, 2 refusés."),
    sessionText("TRUSTEDPATHS", "", "Dossiers sûrs."),
    fixedInt("UNDOCTL", 5, "État de l'annulation."),
    fixedInt("WORLDUCS", 1, "Le repère courant est le général."),
    computed("CMDACTIVE", integer,
             "1 quand une commande attend des réponses, plus 4 quand elles viennent d'un script ou d'un programme."),
    computed("CMDNAMES", text, "Nom de la commande qui attend."),
    sessionReal("CIRCLERAD", 0, "Rayon proposé des cercles."),
    sessionReal("OFFSETDIST", -1, "Distance proposée de décalage."),
    sessionText("INSNAME", "", "Bloc proposé à l'insertion."),
    sessionText("MODEMACRO", "", "Texte de la ligne d'état."),
    sessionText("USERS1", "", "Texte au choix."),
    sessionText("USERS2", "", "Texte au choix."),
    sessionText("USERS3", "", "Texte au choix."),
    sessionText("USERS4", "", "Texte au choix."),
    sessionText("USERS5", "", "Texte au choix."),
    // --- the file and the view
    computed("DWGNAME", text, "Nom du fichier."),
    computed("DWGPREFIX", text, "Dossier du fichier."),
    computed("DWGTITLED", integer, "1 quand le dessin a un fichier."),
    computed("SAVENAME", text, "Chemin du dernier enregistrement."),
    computed("DWGCODEPAGE", text, "Page de codes."),
    computed("SYSCODEPAGE", text, "Page de codes du système."),
    computed("DBMOD", integer, "1 quand le dessin est modifié."),
    computed("CTAB", text, "Présentation courante."),
    computed("CVPORT", integer, "Fenêtre courante: 1 papier, 2 objet."),
    computed("TILEMODE", integer, "1 dans l'espace objet."),
    computed("EXTMIN", point3, "Coin inférieur de ce qui est dessiné."),
    computed("EXTMAX", point3, "Coin supérieur de ce qui est dessiné."),
    computed("LASTPOINT", point3, "Dernier point donné."),
    computed("VIEWSIZE", real, "Hauteur de la vue."),
    computed("VIEWCTR", point3, "Centre de la vue."),
    computed("VSMIN", point3, "Coin inférieur de la vue."),
    computed("VSMAX", point3, "Coin supérieur de la vue."),
    computed("VIEWDIR", point3, "Direction de la vue."),
    {"SCREENSIZE", point2, VariablePlace::document, 0, 1000, {}, true, 0, 0, "Taille de l'écran en pixels."},
    // --- what new entities take
    computed("CLAYER", text, "Calque courant."),
    computed("TEXTSTYLE", text, "Style de texte courant."),
    computed("CELTYPE", text, "Type de ligne courant."),
    computed("CECOLOR", text, "Couleur courante."),
    headerInt("CELWEIGHT", 370, -1, -3, 211, "Épaisseur courante."),
    headerReal("CELTSCALE", 40, 1, "Échelle courante des types de ligne."),
    headerReal("TEXTSIZE", 40, 2.5, "Hauteur de texte proposée."),
    headerReal("PLINEWID", 40, 0, "Largeur de polyligne proposée."),
    headerReal("LTSCALE", 40, 1, "Échelle des types de ligne."),
    headerReal("ELEVATION", 40, 0, "Élévation courante."),
    headerReal("THICKNESS", 40, 0, "Hauteur d'objet courante."),
    headerReal("FILLETRAD", 40, 0, "Rayon de raccord."),
    headerReal("CHAMFERA", 40, 0, "Premier écart de chanfrein."),
    headerReal("CHAMFERB", 40, 0, "Deuxième écart de chanfrein."),
    // --- units
    headerInt("LUNITS", 70, 2, 1, 5, "Unités linéaires."),
    headerInt("LUPREC", 70, 4, 0, 8, "Décimales des longueurs."),
    headerInt("AUNITS", 70, 0, 0, 4, "Unités d'angle."),
    headerInt("AUPREC", 70, 0, 0, 8, "Décimales des angles."),
    headerInt("ANGDIR", 70, 0, 0, 1, "Sens des angles."),
    computed("ANGBASE", real, "Direction de l'angle 0, en radians."),
    headerInt("UNITMODE", 70, 0, 0, 1, "Écriture des fractions et des angles."),
    headerInt("INSUNITS", 70, 6, 0, 24, "Unité du dessin."),
    headerInt("MEASUREMENT", 70, 1, 0, 1, "1 pour le système métrique."),
    // --- drawing modes
    headerInt("ORTHOMODE", 70, 0, 0, 1, "Mode orthogonal."),
    headerInt("REGENMODE", 70, 1, 0, 1, "Régénération automatique."),
    headerInt("FILLMODE", 70, 1, 0, 1, "Remplissage."),
    headerInt("MIRRTEXT", 70, 0, 0, 1, "Textes retournés par le miroir."),
    headerInt("PDMODE", 70, 0, 0, 100, "Dessin des points."),
    headerReal("PDSIZE", 40, 0, "Taille des points."),
    headerInt("PLINEGEN", 70, 0, 0, 1, "Types de ligne continus le long des polylignes."),
    headerInt("PSLTSCALE", 70, 1, 0, 1, "Échelle des types de ligne en espace papier."),
    headerInt("SPLFRAME", 70, 0, 0, 1, "Polygones de contrôle montrés."),
    headerInt("SPLINETYPE", 70, 6, 5, 6, "Lissage des polylignes."),
    headerInt("SPLINESEGS", 70, 8, -32768, 32767, "Segments des lissages."),
    headerInt("ATTMODE", 70, 1, 0, 2, "Attributs montrés."),
    headerInt("LWDISPLAY", 290, 0, 0, 1, "Épaisseurs montrées."),
    headerInt("VISRETAIN", 70, 1, 0, 1, "États des calques externes gardés."),
    headerInt("USERI1", 70, 0, -32768, 32767, "Entier au choix."),
    headerInt("USERI2", 70, 0, -32768, 32767, "Entier au choix."),
    headerInt("USERI3", 70, 0, -32768, 32767, "Entier au choix."),
    headerInt("USERI4", 70, 0, -32768, 32767, "Entier au choix."),
    headerInt("USERI5", 70, 0, -32768, 32767, "Entier au choix."),
    headerReal("USERR1", 40, 0, "Nombre au choix."),
    headerReal("USERR2", 40, 0, "Nombre au choix."),
    headerReal("USERR3", 40, 0, "Nombre au choix."),
    headerReal("USERR4", 40, 0, "Nombre au choix."),
    headerReal("USERR5", 40, 0, "Nombre au choix."),
    {"UCSNAME", text, VariablePlace::header, 2, 0, {}, true, 0, 0, "Nom du repère courant."},
};

}  // namespace

std::span<const VariableRow> variableRows() {
  static const std::vector<VariableRow> rows = [] {
    std::vector<VariableRow> all(std::begin(kRows), std::end(kRows));
    for (const auto& more : {keptVariableRows(), dimensionVariableRows()})
      all.insert(all.end(), more.begin(), more.end());
    return all;
  }();
  return rows;
}

const VariableRow* variableRow(std::string_view name) {
  const std::span<const VariableRow> rows = variableRows();
  const auto it = std::ranges::find(rows, name, &VariableRow::name);
  return it == rows.end() ? nullptr : &*it;
}

}  // namespace atelier
