// From a profile's supports to the computation of its quantities.
// Kept as they are: the two texts about a missing project differ by a letter.
#include "module/metres/metresProfil.h"

#include <algorithm>
#include <array>

#include "hote/dialogues.h"
#include "module/elements/listeProjet.h"
#include "module/metres/calculMetres.h"
#include "module/profil/chaines.h"

namespace plv {

namespace {

struct genreProjet {
  genreLigne genre;
  const wchar_t* libelle;
};
constexpr std::array<genreProjet, 6> kProjets = {{{kAss, L"Assainissement"},
                                                  {kVoirie, L"Voirie"},
                                                  {kAep, L"A.E.P"},
                                                  {kGen, L"Generique"},
                                                  {kTerra, L"Terrassement"},
                                                  {kProj, L"Projet"}}};
constexpr double kVerticale = 1e-8;  // a ground line of this width has no extent along the profile

// The dialog in which the user picks one of a list of texts; the choice is the row of the last change of selection.
// Rows carry their index, so that the list may show them in any order.
class CDlgChoixDansListe : public dialogues::Dialog {
 public:
  CDlgChoixDansListe(const std::wstring& invite, const std::vector<std::wstring>& textes)
      : Dialog(L"Selection", 320, 260), m_invite(invite) {
    add(m_invite, {0, 0, 1, 2});
    add(m_liste, {1, 0, 1, 2});
    add(m_ok, {2, 0});
    add(m_annuler, {2, 1});
    std::vector<dialogues::Row> lignes;
    for (const std::wstring& texte : textes) lignes.push_back({{texte}, static_cast<int>(lignes.size())});
    m_liste.append(std::move(lignes));
    m_liste.onSelect = [this] {
      if (!m_liste.selection().empty())
        choix = m_liste.rows()[static_cast<std::size_t>(m_liste.selection().front())].data;
    };
    m_ok.isDefault = true;
    m_ok.onClick = [this] { end(dialogues::kOk); };
    m_annuler.onClick = [this] { end(dialogues::kCancel); };
  }
  int choix = -1;

 private:
  dialogues::Text m_invite;
  dialogues::List m_liste{{}, false};
  dialogues::Button m_ok{L"OK"}, m_annuler{L"Cancel"};
};

// The index of the chosen text; -1 for a cancel, for OK without a choice, and at once for an empty list.
int choisirDansListe(const std::wstring& invite, const std::vector<std::wstring>& textes) {
  if (textes.empty()) return -1;
  CDlgChoixDansListe dialogue(invite, textes);
  return runDialog(dialogue) == dialogues::kOk ? dialogue.choix : -1;
}

AcDbObjectIdArray elementsDe(AcDbObjectId support) {
  AcDbObjectIdArray ids;
  if (!support.isNull()) lireListeProjet(support, ids);
  return ids;
}

// False when there is none, or the user chooses none.
bool choisirProjet(const profilLong& profil, int& projetChoisi) {
  std::vector<int> candidats;
  std::vector<std::wstring> libelles;
  for (std::size_t i = 0; i < kProjets.size(); ++i) {
    if (elementsDe(profil.ids[kProjets[i].genre]).isEmpty()) continue;
    candidats.push_back(static_cast<int>(i));
    libelles.emplace_back(kProjets[i].libelle);
  }
  if (candidats.empty()) {
    dialogues::messageBox(L"Ce profil ne contient pas de projet associ\u00e9", L"Erreur", dialogues::Icon::error);
    return false;
  }
  const int choix = candidats.size() == 1 ? 0 : choisirDansListe(L"Selectionnez quel projet a utiliser", libelles);
  if (choix < 0) return false;
  projetChoisi = candidats[static_cast<std::size_t>(choix)];
  return true;
}

// The support of the chosen kind, or the first one that the profile has.
AcDbObjectId supportProjet(const profilLong& profil, int projetChoisi) {
  const AcDbObjectId voulu = profil.ids[kProjets[static_cast<std::size_t>(projetChoisi)].genre];
  if (!voulu.isNull()) return voulu;
  const auto premier = std::find_if(kProjets.begin(), kProjets.end(),
                                    [&](const genreProjet& p) { return !profil.ids[p.genre].isNull(); });
  return premier == kProjets.end() ? AcDbObjectId() : profil.ids[premier->genre];
}

bool aUneLargeur(AcDbObjectId id) {
  AcDbObjectPointer<AcDbLine> ligne(id);
  return ligne.openStatus() == Acad::eOk && std::abs(ligne->endPoint().x - ligne->startPoint().x) > kVerticale;
}

// The attached terrain, else the ground lines of the profile's sections.
AcDbObjectIdArray terrainDe(const profilLong& profil) {
  AcDbObjectIdArray ids = elementsDe(profil.ids[kTn]);
  if (!ids.isEmpty()) return ids;
  AcDbObjectIdArray lignes;
  lireLignes(profil, lignes);
  for (const AcDbObjectId& id : lignes)
    if (aUneLargeur(id)) ids.append(id);
  return ids;
}

std::vector<elemsFixesKavel> groupesDe(const profilLong& profil) {
  AcDbObjectIdArray supports;
  profil.idsElements(supports, true, true);
  std::vector<elemsFixesKavel> groupes;
  for (const AcDbObjectId& support : supports) {
    listeElemsFixes liste;
    if (!support.isNull()) lireElemsFixes(liste, support);
    for (std::ptrdiff_t i = 0; i < liste.GetSize(); ++i) groupes.push_back(*liste[i]);
  }
  return groupes;
}

}  // namespace

void calculerProfil(const poigneeProfil& profil, int& projetChoisi) {
  const gardeClassesExtremes garde(listeClasses());
  if (projetChoisi == kProjetNonChoisi && !choisirProjet(*profil, projetChoisi)) return;
  const AcDbObjectId support = supportProjet(*profil, projetChoisi);
  if (support.isNull()) {
    dialogues::messageBox(L"Ce profil ne continent pas de projet associ\u00e9", L"Erreur Selection",
                          dialogues::Icon::error);
    return;
  }
  const AcDbObjectIdArray projet = elementsDe(support);
  if (projet.isEmpty()) return;
  const AcDbObjectIdArray terrain = terrainDe(*profil);
  const std::vector<elemsFixesKavel> groupes = groupesDe(*profil);
  if (!terrain.isEmpty()) calculerMetres(profil, projet, terrain, groupes);
}

}  // namespace plv
