// The file of the export: its path, its formats, its replacement in one step.
// The library writes nothing before it closes a workbook.
#include "module/metres/exportClasseur.h"

#include <xlsxwriter.h>
#include <boost/locale/encoding_utf.hpp>
#include <filesystem>

#include "hote/dialogues.h"
#include "module/metres/feuilleProfil.h"
#include "module/support/base/lettres.h"

namespace plv {

namespace {

struct fermerClasseur {
  void operator()(lxw_workbook* classeur) const { lxw_workbook_free(classeur); }
};
using poigneeClasseur = std::unique_ptr<lxw_workbook, fermerClasseur>;

lxw_format* formatCellule(lxw_workbook* classeur, bool bas, bool nombre) {
  lxw_format* f = workbook_add_format(classeur);
  if (bas) format_set_bottom(f, LXW_BORDER_THIN);
  format_set_left(f, LXW_BORDER_THIN);
  format_set_right(f, LXW_BORDER_THIN);
  if (nombre) format_set_num_format(f, "0.000");
  else format_set_align(f, LXW_ALIGN_CENTER);
  return f;
}

formatsClasseur faireFormats(lxw_workbook* classeur) {
  formatsClasseur f;
  f.titre = workbook_add_format(classeur);
  format_set_bold(f.titre);
  format_set_font_size(f.titre, 16);
  f.entete = workbook_add_format(classeur);
  format_set_bold(f.entete);
  format_set_align(f.entete, LXW_ALIGN_CENTER);
  format_set_align(f.entete, LXW_ALIGN_VERTICAL_CENTER);
  format_set_border(f.entete, LXW_BORDER_THIN);
  format_set_text_wrap(f.entete);
  f.nombre = formatCellule(classeur, false, true);
  f.texte = formatCellule(classeur, false, false);
  f.nombreBas = formatCellule(classeur, true, true);
  f.texteBas = formatCellule(classeur, true, false);
  return f;
}

// The name of the file that is written aside, in the same folder.
std::string cheminProvisoire(const std::string& chemin) { return chemin + ".tmp"; }

}  // namespace

bool ecrireClasseur(const std::vector<poigneeProfil>& profils, const std::string& chemin) {
  const std::string provisoire = cheminProvisoire(chemin);
  poigneeClasseur classeur(workbook_new(provisoire.c_str()));
  if (!classeur) return false;
  const formatsClasseur formats = faireFormats(classeur.get());
  for (const poigneeProfil& profil : profils) {
    lxw_worksheet* feuille = workbook_add_worksheet(
        classeur.get(), boost::locale::conv::utf_to_utf<char>(profil->numero.kACharPtr()).c_str());
    if (feuille) feuilleProfil(feuille, formats, *profil).ecrire();
  }
  // Closing also releases the workbook.
  bool ecrit = workbook_close(classeur.release()) == LXW_NO_ERROR;
  std::error_code erreur;
  if (ecrit) {
    std::filesystem::rename(provisoire, chemin, erreur);
    ecrit = !erreur;
  }
  if (!ecrit) std::filesystem::remove(provisoire, erreur);
  return ecrit;
}

void exporterClasseur(const std::vector<poigneeProfil>& profils) {
  dialogues::FileRequest demande;
  demande.save = true;
  demande.extension = L"xlsx";
  demande.filter = L"Fichier resultat (*.xlsx)";
  demande.overwritePrompt = demande.pathMustExist = true;
  if (const auto chemin = dialogues::chooseFile(demande)) ecrireClasseur(profils, nomDeFichier(*chemin));
}

}  // namespace plv
