// The quantity dialog: profiles picked in the drawing, their depth sections and fixed elements, the depth classes,
// hatching and export.
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
  void montrerProfils();
  void recalculer();
  void enleverSelection();
  void ajouterClasse();
  void supprimerClasseChoisie();

  dialogues::Button m_basculer{L"Afficher Elements fixes", [this] { basculer(); }};
  dialogues::Button m_ajouter{L"Ajouter Profils", [this] { ajouterProfils(); }};
  dialogues::Button m_enlever{L"Enlever la selection", [this] { enleverSelection(); }};
  dialogues::Button m_schematiser, m_exporter;
  dialogues::Button m_ajouterClasse{L"Ajouter une classe", [this] { ajouterClasse(); }};
  dialogues::Button m_supprimerClasse{L"Supprimer la classe", [this] { supprimerClasseChoisie(); }};
  dialogues::Button m_fermer{L"Fermer", [this] { end(dialogues::kOk); }};
};

}  // namespace plv
