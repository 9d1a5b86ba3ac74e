// profilLong: lists of its entities, by kind of line.
// The two tables of kinds differ in their order, and both orders show.
#include "module/commande/arguments/argsLisp.h"
#include "module/commande/arguments/listeRb.h"
#include "module/profil/profilLong.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

struct motCleGenre {
  std::wstring_view motCle;
  genreLigne genre;
};

// In the order in which a keyword is tried.
constexpr motCleGenre kMotsCles[] = {
    {L"VOIRIE", kVoirie}, {L"ASSAINISSEMENT", kAss}, {L"AEP", kAep}, {L"TERRASSEMENTS", kTerra},
    {L"PROJET", kProj},   {L"GENERIQUE", kGen},      {L"TN", kTn},   {L"*", kNombreGenres}};

// In the order of genreLigne.
constexpr const wchar_t* kLabels[] = {
    L"TN", L"Assainissement", L"Voirie", L"A.E.P", L"Matrice Generique", L"Terrassements", L"Matrice Projet"};
constexpr const wchar_t* kLabelBloc = L"Profil";

bool aDesElementsProjet(AcDbObjectId id) {
  const listeRb projet(lireXrecord(id, kRecordProjet));
  return chercheCode(projet.tete(), kGroupePointeur) != nullptr;
}

}  // namespace

bool profilLong::idParMotCle(const std::wstring& motCle, AcDbObjectId& trouve) const {
  trouve.setNull();
  for (const motCleGenre& essai : kMotsCles) {
    if (!egalSansCasse(motCle, essai.motCle, std::min(motCle.size(), essai.motCle.size()))) continue;
    trouve = essai.genre == kNombreGenres ? idBloc : ids[essai.genre];
    return true;
  }
  return false;
}

void profilLong::idsElements(AcDbObjectIdArray& liste, bool avecTn, bool avecBloc) const {
  for (std::size_t genre = avecTn ? kTn : kAss; genre < kNombreGenres; ++genre) liste.append(ids[genre]);
  if (avecBloc) liste.append(idBloc);
}

void profilLong::idsNonNuls(AcDbObjectIdArray& liste) const {
  if (!idBloc.isNull()) liste.append(idBloc);
  for (const AcDbObjectId& entite : ids)
    if (!entite.isNull()) liste.append(entite);
}

void profilLong::elementsEtLabels(AcDbObjectIdArray& liste, std::vector<std::wstring>& labels, bool avecTn,
                                  bool avecBloc, bool avecProjet) const {
  const auto ajouter = [&](AcDbObjectId entite, const wchar_t* label) {
    if (entite.isNull() || (avecProjet && !aDesElementsProjet(entite))) return;
    liste.append(entite);
    labels.emplace_back(label);
  };
  if (avecTn && avecProjet) ajouter(ids[kTn], kLabels[kTn]);
  for (std::size_t genre = kAss; genre < kNombreGenres; ++genre) ajouter(ids[genre], kLabels[genre]);
  if (avecBloc) ajouter(idBloc, kLabelBloc);
}

void profilLong::pointsTn(AcGePoint2dArray& liste) const {
  for (std::size_t i = 0; i < distTn.size(); ++i) liste.append(AcGePoint2d(distTn[i], altTn[i]));
}

double profilLong::longueurTn() const { return clesInconnues && !distTn.empty() ? distTn.back() : 0.0; }

}  // namespace plv
