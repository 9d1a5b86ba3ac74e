// The flow of the quantity dialog, and the dialog of one depth class, which it opens.
// What goes wrong in a button goes to the framework, which shows it and keeps the dialog.
#include "module/metres/dialogueMetres.h"

#include "hote/aced.h"
#include "hote/acut.h"
#include "module/metres/classeProfondeur.h"
#include "module/metres/exportClasseur.h"
#include "module/metres/hachures.h"
#include "module/metres/metresProfil.h"
#include "module/metres/rapportMetres.h"
#include "module/support/dessin/kitSelections.h"

namespace plv {

namespace {

using dialogues::Alignment;

constexpr double kSixieme = 1.0 / 6, kTiers = 1.0 / 3;
constexpr int kColonneCouleur = 5;

std::vector<dialogues::Column> colonnesClasses() {
  std::vector<dialogues::Column> colonnes;
  for (const wchar_t* titre : {L"Entre (m)", L"Et (m)", L"Longueur", L"Largeur", L"Lit de pose", L"Couleur"})
    colonnes.push_back({titre, kSixieme, Alignment::centred});
  return colonnes;
}

std::vector<dialogues::Column> colonnesElements() {
  return {{L"Profil", kTiers, Alignment::left},
          {L"Propriete", kTiers, Alignment::left},
          {L"Valeur", kTiers, Alignment::left}};
}

std::vector<dialogues::Column> colonnesTroncons() {
  return {{L"Profil", 0.2, Alignment::centred},  {L"Debut", 0.2, Alignment::centred},
          {L"Fin ", 0.15, Alignment::centred},   {L"Profondeur", 0.15, Alignment::centred},
          {L"Volume", 0.15, Alignment::centred}, {L"Surface", 0.15, Alignment::centred}};
}

constexpr double kPlusGrand = 1e38;  // of a limit or a width; the bedding depth is any number

// A value out of its range is the framework's to report; the dialog then stays open. Kept as they are: the labels, to
// the letter, since scripts name the controls by them.
class CDlgClasseProfondeur : public dialogues::Dialog {
 public:
  CDlgClasseProfondeur();
  // What the user entered, once the dialog has ended with OK.
  classeProfondeur classe;

 private:
  void valider();
  dialogues::Edit m_debut{L"De", L"0"}, m_fin{L"A", L"0"}, m_largeur{L"Largeur de la fouille", L"0"},
      m_profLit{L"Heuteur lit de pose", L"0"};
  dialogues::Colour m_couleur{L"Couleur"};
  dialogues::Button m_ok{L"OK"}, m_annuler{L"Cancel"};
};

CDlgClasseProfondeur::CDlgClasseProfondeur() : Dialog(L"Classe de profondeur", 300, 240) {
  int rangee = 0;
  for (dialogues::Control* controle :
       {static_cast<dialogues::Control*>(&m_debut), static_cast<dialogues::Control*>(&m_fin),
        static_cast<dialogues::Control*>(&m_largeur), static_cast<dialogues::Control*>(&m_profLit),
        static_cast<dialogues::Control*>(&m_couleur)})
    add(*controle, {rangee++, 0, 1, 2});
  add(m_ok, {rangee, 0});
  add(m_annuler, {rangee, 1});
  m_ok.isDefault = true;
  m_ok.onClick = [this] { valider(); };
  m_annuler.onClick = [this] { end(dialogues::kCancel); };
}

void CDlgClasseProfondeur::valider() {
  classe.couleur = m_couleur.index();
  if (readNumber(m_debut, classe.debut, 0, kPlusGrand) && readNumber(m_fin, classe.fin, 0, kPlusGrand) &&
      readNumber(m_largeur, classe.largeur, 0, kPlusGrand) && readNumber(m_profLit, classe.profLit))
    end(dialogues::kOk);
}

// While the user picks in the drawing, the dialog stands aside.
class dialogueCache {
 public:
  explicit dialogueCache(dialogues::Dialog& dialogue) : m_dialogue(dialogue) { m_dialogue.setShown(false); }
  ~dialogueCache() { m_dialogue.setShown(true); }
  dialogueCache(const dialogueCache&) = delete;
  dialogueCache& operator=(const dialogueCache&) = delete;

 private:
  dialogues::Dialog& m_dialogue;
};

AcDbObjectIdArray choisirBlocs(dialogues::Dialog& dialogue) {
  const dialogueCache cache(dialogue);
  acutPrintf(L"\nSelectionnez les profils en longs a a jouter:");
  AcDbObjectIdArray ids;
  ads_name ss;
  if (selectionParClasse(L"AcDbBlockReference", 100, ss, true)) idsDeSelection(ss, ids);
  return ids;
}

}  // namespace

CDlgMetresLineairesKavels::CDlgMetresLineairesKavels()
    : Dialog(L"M\u00e9tr\u00e9s du profil", 720, 560),
      listeClassesCtrl(colonnesClasses()),
      listeElements(colonnesElements()),
      listeTroncons(colonnesTroncons()),
      projetChoisi(kProjetNonChoisi),
      m_schematiser(L"Sch\u00e9matiser sur p/long", [this] { hachurerProfils(profils); }),
      m_exporter(L"Exporter", [this] { exporterClasseur(profils); }) {
  listeClassesCtrl.colourColumn = kColonneCouleur;
  placer();
  montrerClasses();
  montrerListes();
}

void CDlgMetresLineairesKavels::placer() {
  const wchar_t *const profilsEnLong = L"Profils en long", *const classes = L"Classes de profondeurs";
  add(listeTroncons, {0, 0, 1, 4}, profilsEnLong);
  add(listeElements, {0, 0, 1, 4}, profilsEnLong);
  add(m_basculer, {1, 0}, profilsEnLong);
  add(m_ajouter, {1, 1}, profilsEnLong);
  add(m_enlever, {1, 2}, profilsEnLong);
  add(m_schematiser, {1, 3}, profilsEnLong);
  add(listeClassesCtrl, {0, 0, 1, 2}, classes);
  add(m_ajouterClasse, {1, 0}, classes);
  add(m_supprimerClasse, {1, 1}, classes);
  add(m_exporter, {0, 0});
  add(m_fermer, {0, 1});
}

void CDlgMetresLineairesKavels::basculer() {
  voirTroncons = !voirTroncons;
  montrerListes();
}

void CDlgMetresLineairesKavels::montrerListes() {
  for (auto [liste, visible] : {std::pair(&listeTroncons, voirTroncons), std::pair(&listeElements, !voirTroncons)}) {
    liste->setVisible(visible);
    liste->setEnabled(visible);
  }
  m_basculer.setLabel(voirTroncons ? L"Afficher Elements fixes" : L"Afficher Projet");
}

void CDlgMetresLineairesKavels::montrerClasses() {
  listeClassesCtrl.clear();
  listeClassesCtrl.append(rangeesClasses(listeClasses()));
}

void CDlgMetresLineairesKavels::ajouterProfils() {
  const AcDbObjectIdArray ids = choisirBlocs(*this);
  const std::size_t premier = profils.size();
  for (const AcDbObjectId& id : ids) ajouterProfil(id);
  for (std::size_t i = premier; i < profils.size(); ++i) montrerProfil(i);
}

void CDlgMetresLineairesKavels::ajouterProfil(AcDbObjectId id) {
  const poigneeProfil profil(new InfoProfilEnLong);
  if (!profil->lireId(id) || !idsProfils.insert(id).second) return;
  profils.push_back(profil);
  calculerProfil(profil, projetChoisi);
}

void CDlgMetresLineairesKavels::montrerProfil(std::size_t index) {
  InfoProfilEnLong& profil = *profils[index];
  listeTroncons.append(rangeesTroncons(profil, static_cast<int>(index)));
  listeElements.append(rangeesElements(profil, static_cast<int>(index)));
}

// Kept as it is: the selection that counts is that of the list which is hidden. Users of the dialog know it so.
void CDlgMetresLineairesKavels::enleverSelection() {
  const dialogues::List& liste = voirTroncons ? listeElements : listeTroncons;
  std::set<int> indexes;
  for (const int rangee : liste.selection()) indexes.insert(liste.rows()[static_cast<std::size_t>(rangee)].data);
  for (auto index = indexes.rbegin(); index != indexes.rend(); ++index) {
    const auto profil = profils.begin() + *index;
    idsProfils.erase((*profil)->idBloc);
    profils.erase(profil);
  }
  montrerProfils();
}

void CDlgMetresLineairesKavels::montrerProfils() {
  listeTroncons.clear();
  listeElements.clear();
  for (std::size_t i = 0; i < profils.size(); ++i) montrerProfil(i);
}

// Depth sections name their classes by number: with other classes the numbers mean others, in the lists, the hatches and
// the workbook. A profile without sections stays without, so that nobody is asked or told anything again.
void CDlgMetresLineairesKavels::recalculer() {
  for (const poigneeProfil& profil : profils) {
    if (profil->lignes.empty()) continue;
    profil->lignes.clear();
    calculerProfil(profil, projetChoisi);
  }
  montrerProfils();
}

void CDlgMetresLineairesKavels::ajouterClasse() {
  CDlgClasseProfondeur dialogue;
  if (runDialog(dialogue) != dialogues::kOk) return;
  insererClasse(listeClasses(), dialogue.classe);
  montrerClasses();
  recalculer();
}

void CDlgMetresLineairesKavels::supprimerClasseChoisie() {
  if (listeClassesCtrl.selection().empty()) return;
  supprimerClasse(listeClasses(), listeClassesCtrl.selection().front());
  montrerClasses();
  recalculer();
}

}  // namespace plv
