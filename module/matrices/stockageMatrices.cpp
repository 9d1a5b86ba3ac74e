// How drawn matrices are kept in the drawing.
// A reader stops at the first item of another group than expected.
#include "module/matrices/stockageMatrices.h"

#include <memory>

#include "module/commande/arguments/listeRb.h"
#include "module/support/dessin/kitXrecords.h"

namespace plv {

namespace {

constexpr const ACHAR* kListeMatrices = L"VARDANE_MATRICES";
constexpr const ACHAR* kInfosMatrice = L"INFO_MATRICE";
constexpr Adesk::Int32 kMarqueListe = 1425781;  // 0x15C175

// The two records are declared once, as walks over their items: a writer and a reader go the same way. A step gives
// false when the reader meets another group than expected, and the walk ends there.
struct ecrivain {
  listeRb chaine;

  bool texte(const std::wstring& valeur) { return chaine.ajouterTexte(valeur); }
  bool entier(Adesk::Int32 valeur) { return chaine.ajouterEntier(valeur); }
  bool identite(Adesk::UInt32 valeur) { return chaine.ajouterEntier91(static_cast<Adesk::Int32>(valeur)); }
  bool reel(double valeur) { return chaine.ajouterReel(valeur); }
  bool id(AcDbObjectId valeur) { return chaine.ajouterId(valeur); }
  bool constante(Adesk::Int32 valeur) { return entier(valeur); }
  bool nombre(Adesk::Int32& presents) { return entier(presents); }
  const ligneMatrice& ligne(const matriceProfil& matrice, Adesk::Int32 i) { return *matrice.lignes[i]; }
  AcDbObjectId trait(const matriceProfil& matrice, Adesk::Int32 i) { return matrice.idTraits[i]; }
};

struct lecteur {
  listeRb chaine;

  bool texte(std::wstring& valeur) { return chaine.lireTexte(valeur); }
  bool entier(Adesk::Int32& valeur) { return chaine.lireEntier(valeur); }
  bool identite(Adesk::UInt32& valeur) {
    Adesk::Int32 lue = 0;
    const bool presente = chaine.lireEntier91(lue);
    valeur = static_cast<Adesk::UInt32>(lue);
    return presente;
  }
  bool reel(double& valeur) { return chaine.lireReel(valeur); }
  bool id(AcDbObjectId& valeur) { return chaine.lireId(valeur); }
  bool constante(Adesk::Int32 attendue) {
    Adesk::Int32 lue = 0;
    return entier(lue) && lue == attendue;
  }
  bool nombre(Adesk::Int32& presents) { return entier(presents); }
  // The rows and rules of a fresh matrix are made as they are read.
  ligneMatrice& ligne(matriceProfil& matrice, Adesk::Int32) { return matrice.nouvelleLigne(); }
  AcDbObjectId& trait(matriceProfil& matrice, Adesk::Int32 i) {
    matrice.idTraits.append(AcDbObjectId::kNull);
    return matrice.idTraits[i];
  }
};

template <class PARCOURS, class LIGNE>
bool parcourirLigne(PARCOURS& p, Adesk::Int32 index, LIGNE& ligne) {
  return p.constante(index) && p.identite(ligne.idLigne) && p.texte(ligne.nomLigne) && p.reel(ligne.hauteurLigne) &&
         p.entier(ligne.decimales) && p.entier(ligne.typeLigne) && p.texte(ligne.libelle) && p.texte(ligne.infosLigne);
}

template <class PARCOURS, class MATRICE>
bool parcourirMatrice(PARCOURS& p, MATRICE& matrice) {
  auto lignes = static_cast<Adesk::Int32>(matrice.lignes.GetCount()), traits = matrice.idTraits.length();
  if (!(p.texte(matrice.nomMatrice) && p.reel(matrice.echelle) && p.id(matrice.styleTexte) && p.nombre(lignes)))
    return false;
  for (Adesk::Int32 i = 0; i < lignes; ++i)
    if (!parcourirLigne(p, i, p.ligne(matrice, i))) return false;
  if (!p.nombre(traits)) return false;
  for (Adesk::Int32 i = 0; i < traits; ++i)
    if (auto&& trait = p.trait(matrice, i); !p.id(trait)) return false;
  return p.id(matrice.idGroupe);
}

template <class PARCOURS>
bool parcourirEnTete(PARCOURS& p, Adesk::Int32& matrices) {
  return p.constante(kMarqueListe) && p.nombre(matrices);
}

}  // namespace

void ecrireListeMatrices(const gestionMatrices& collection) {
  ecrivain liste;
  auto nombre = static_cast<Adesk::Int32>(collection.matrices.GetCount());
  parcourirEnTete(liste, nombre);
  for (Adesk::Int32 i = 0; i < nombre; ++i) liste.id(collection.matrices[i]->idBloc);
  ecrireXrecord(collection.idProfil, kListeMatrices, liste.chaine.tete());
}

void ecrireInfosMatrice(const matriceProfil& matrice) {
  ecrivain infos;
  parcourirMatrice(infos, matrice);
  ecrireXrecord(matrice.idBloc, kInfosMatrice, infos.chaine.tete());
}

bool lireInfosMatrice(matriceProfil& matrice) {
  matrice.viderLignes();
  lecteur infos{listeRb(lireXrecord(matrice.idBloc, kInfosMatrice))};
  return parcourirMatrice(infos, matrice) && !matrice.lignes.IsEmpty();
}

void chargerMatrices(AcDbObjectId profil, gestionMatrices& collection) {
  collection.detruireMatrices();
  collection.idProfil = profil;
  lecteur liste{listeRb(lireXrecord(profil, kListeMatrices))};
  Adesk::Int32 nombre = 0;
  if (!parcourirEnTete(liste, nombre)) return;
  for (Adesk::Int32 i = 0; i < nombre; ++i) {
    auto matrice = std::make_unique<matriceProfil>();
    if (!liste.id(matrice->idBloc)) return;
    if (lireInfosMatrice(*matrice)) collection.matrices.Add(matrice.release());
  }
}

}  // namespace plv
