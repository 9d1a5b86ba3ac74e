// matriceProfil: rows, selection and widths.
// Its slope label is in pentes.cpp, its drawing in dessinMatrices.cpp.
#include "module/matrices/matriceProfil.h"

#include <algorithm>
#include <ctime>
#include <memory>

#include "hote/dbents.h"
#include "module/support/base/lettres.h"
#include "module/support/dessin/kitEntites.h"
#include "module/support/dessin/kitTextes.h"

namespace plv {

namespace {

constexpr Adesk::UInt32 kNonAmorce = 0xFFFFFFFF;

// The counter starts from the clock, so that rows of different sessions on one drawing differ.
Adesk::UInt32 prochainIdLigne() {
  static Adesk::UInt32 compteurIdLignes = kNonAmorce;
  if (compteurIdLignes == kNonAmorce) compteurIdLignes = static_cast<Adesk::UInt32>(std::time(nullptr));
  const Adesk::UInt32 pris = compteurIdLignes++;
  return pris == kNonAmorce ? compteurIdLignes++ : pris;
}

}  // namespace

ligneMatrice::ligneMatrice() : idLigne(prochainIdLigne()) {}

matriceProfil::matriceProfil() : styleTexte(styleCourant()) {}

ligneMatrice& matriceProfil::nouvelleLigne() {
  lignes.Add(std::make_unique<ligneMatrice>().release());
  return *lignes[lignes.GetCount() - 1];
}

void matriceProfil::viderLignes() {
  for (std::ptrdiff_t i = 0; i < lignes.GetCount(); ++i) delete lignes[i];
  lignes.RemoveAll();
}

void matriceProfil::oublierDessin(const AcDbDatabase* dessin) {
  const auto oublier = [dessin](AcDbObjectId& id) {
    if (!id.isNull() && id.database() == dessin) id.setNull();
  };
  oublier(idBloc);
  oublier(styleTexte);
  oublier(idGroupe);
  for (AcDbObjectId& trait : idTraits) oublier(trait);
}

bool matriceProfil::actualiserOrigine() {
  AcDbObjectPointer<AcDbBlockReference> bloc(idBloc);
  if (bloc.openStatus() != Acad::eOk) return false;
  origineX = bloc->position().x;
  origineY = bloc->position().y;
  return true;
}

bool matriceProfil::selectionnerLigne(Adesk::Int32 index) {
  ligneCourante = -1;
  basCourant = 0.0;
  if (index < 0 || index >= lignes.GetCount()) return false;
  for (Adesk::Int32 i = 0; i <= index; ++i) basCourant -= lignes[i]->hauteurLigne;
  hautCourant = basCourant + lignes[index]->hauteurLigne;
  ligneCourante = index;
  return true;
}

bool matriceProfil::selectionnerLigne(const std::wstring& nom) {
  ligneCourante = -1;
  basCourant = 0.0;
  for (std::ptrdiff_t i = 0; i < lignes.GetCount(); ++i) {
    basCourant -= lignes[i]->hauteurLigne;
    if (!egalSansCasse(lignes[i]->nomLigne, nom)) continue;
    hautCourant = basCourant + lignes[i]->hauteurLigne;
    ligneCourante = static_cast<Adesk::Int32>(i);
    return true;
  }
  return false;
}

ligneMatrice* matriceProfil::ligneActive() const {
  return ligneCourante >= 0 && ligneCourante < lignes.GetCount() ? lignes[ligneCourante] : nullptr;
}

double matriceProfil::largeurTitre(double hauteur) const {
  double largeur = 0.0;
  for (std::ptrdiff_t i = 0; i < lignes.GetCount(); ++i)
    largeur = std::max(largeur, largeurTexte(lignes[i]->libelle, hauteur, styleTexte));
  return largeur;
}

double matriceProfil::hauteurTotale(double unite) const {
  double somme = 0.0;
  for (std::ptrdiff_t i = 0; i < lignes.GetCount(); ++i) somme += lignes[i]->hauteurLigne;
  return somme * unite;
}

}  // namespace plv
