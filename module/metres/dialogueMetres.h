// The quantity dialog: profiles picked in the drawing, their sections and fixed elements, the depth classes, hatching
// and export.
// It holds its results; nothing of them outlives it but the hatches.
#pragma once
#include <set>

#include "hote/dialogues.h"
#include "module/metres/TranconProfilEnlong.h"

namespace plv {

class CDlgMetresLineairesKavels : public dialogues::Dialog {
 public:
  CDlgMetresLineairesKavels();

 private:
  // The columns of the list as parts of its width; column 5 of the classes is painted in the row's colour.
  dialogues::List listeClassesCtrl;
  dialogues::List listeElements;
  dialogues::List listeTroncons;
  std::set<AcDbObjectId> idsProfils;
  int projetChoisi;
  std::vector<poigneeProfil> profils;
  bool voirTroncons = true;

  void placer();
  void basculer();
  void montrerListes();
  void montrerClasses();
  void ajouterProfils();
  void ajouterProfil(AcDbObjectId id);
  void montrerProfil(std::size_t index);
  void enleverSelection();
  void ajouterClasse();
  void supprimerClasseChoisie();

  dialogues::Button basculer_{L"Afficher Elements fixes", [this] { basculer(); }};
  dialogues::Button ajouter_{L"Ajouter Profils", [this] { ajouterProfils(); }};
  dialogues::Button enlever_{L"Enlever la selection", [this] { enleverSelection(); }};
  dialogues::Button schematiser_, exporter_;
  dialogues::Button ajouterClasse_{L"Ajouter une classe", [this] { ajouterClasse(); }};
  dialogues::Button supprimerClasse_{L"Supprimer la classe", [this] { supprimerClasseChoisie(); }};
  dialogues::Button fermer_{L"Fermer", [this] { end(dialogues::kOk); }};
};

}  // namespace plv
