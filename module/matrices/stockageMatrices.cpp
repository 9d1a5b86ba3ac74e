// How drawn matrices are kept in the drawing.
// A reader stops at the first item of another group than expected.
#include "module/matrices/stockageMatrices.h"

#include <memory>

#include "module/commande/listeRb.h"
#include "module/support/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR* kListeMatrices = L"VARDANE_MATRICES";
constexpr const ACHAR* kInfosMatrice = L"INFO_MATRICE";
constexpr Adesk::Int32 kMarqueListe = 1425781;  // 0x15C175

void ecrireLigne(listeRb& infos, Adesk::Int32 index, const ligneMatrice& ligne) {
  infos.ajouterEntier(index);
  infos.ajouterEntier91(static_cast<Adesk::Int32>(ligne.idLigne));
  infos.ajouterTexte(ligne.nomLigne);
  infos.ajouterReel(ligne.hauteurLigne);
  infos.ajouterEntier(ligne.decimales);
  infos.ajouterEntier(ligne.typeLigne);
  infos.ajouterTexte(ligne.libelle);
  infos.ajouterTexte(ligne.infosLigne);
}

bool lireLigne(listeRb& infos, Adesk::Int32 place, ligneMatrice& ligne) {
  Adesk::Int32 index = 0, identite = 0;
  const bool lue = infos.lireEntier(index) && index == place && infos.lireEntier91(identite) &&
                   infos.lireTexte(ligne.nomLigne) && infos.lireReel(ligne.hauteurLigne) &&
                   infos.lireEntier(ligne.decimales) && infos.lireEntier(ligne.typeLigne) &&
                   infos.lireTexte(ligne.libelle) && infos.lireTexte(ligne.infosLigne);
  ligne.idLigne = static_cast<Adesk::UInt32>(identite);
  return lue;
}

bool lireLignes(listeRb& infos, matriceProfil& matrice) {
  Adesk::Int32 nombre = 0;
  if (!infos.lireEntier(nombre)) return false;
  matrice.viderLignes();
  for (Adesk::Int32 i = 0; i < nombre; ++i)
    if (!lireLigne(infos, i, matrice.nouvelleLigne())) return false;
  return true;
}

bool lireTraits(listeRb& infos, matriceProfil& matrice) {
  Adesk::Int32 nombre = 0;
  if (!infos.lireEntier(nombre)) return false;
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    AcDbObjectId trait;
    if (!infos.lireId(trait)) return false;
    matrice.idTraits.append(trait);
  }
  return true;
}

}  // namespace

void ecrireListeMatrices(const gestionMatrices& collection) {
  listeRb liste;
  liste.ajouterEntier(kMarqueListe);
  liste.ajouterEntier(static_cast<Adesk::Int32>(collection.matrices.GetCount()));
  for (std::ptrdiff_t i = 0; i < collection.matrices.GetCount(); ++i) liste.ajouterId(collection.matrices[i]->idBloc);
  ecrireXrecord(collection.idProfil, kListeMatrices, liste.tete());
}

void ecrireInfosMatrice(const matriceProfil& matrice) {
  listeRb infos;
  infos.ajouterTexte(matrice.nomMatrice);
  infos.ajouterReel(matrice.echelle);
  infos.ajouterId(matrice.styleTexte);
  const auto lignes = static_cast<Adesk::Int32>(matrice.lignes.GetCount());
  infos.ajouterEntier(lignes);
  for (Adesk::Int32 i = 0; i < lignes; ++i) ecrireLigne(infos, i, *matrice.lignes[i]);
  infos.ajouterEntier(matrice.idTraits.length());
  for (const AcDbObjectId& trait : matrice.idTraits) infos.ajouterId(trait);
  infos.ajouterId(matrice.idGroupe);
  ecrireXrecord(matrice.idBloc, kInfosMatrice, infos.tete());
}

bool lireInfosMatrice(matriceProfil& matrice) {
  listeRb infos(lireXrecord(matrice.idBloc, kInfosMatrice));
  return infos.lireTexte(matrice.nomMatrice) && infos.lireReel(matrice.echelle) && infos.lireId(matrice.styleTexte) &&
         lireLignes(infos, matrice) && lireTraits(infos, matrice) && infos.lireId(matrice.idGroupe) &&
         !matrice.lignes.IsEmpty();
}

void chargerMatrices(AcDbObjectId profil, gestionMatrices& collection) {
  collection.detruireMatrices();
  collection.idProfil = profil;
  listeRb liste(lireXrecord(profil, kListeMatrices));
  Adesk::Int32 marque = 0, nombre = 0;
  if (!liste.lireEntier(marque) || marque != kMarqueListe || !liste.lireEntier(nombre)) return;
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    auto matrice = std::make_unique<matriceProfil>();
    if (!liste.lireId(matrice->idBloc)) return;
    if (lireInfosMatrice(*matrice)) collection.matrices.Add(matrice.release());
  }
}

}  // namespace plv
