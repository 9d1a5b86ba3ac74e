// The columns of the sheet of pieces: how many each rule takes, and what they are called.
#include <algorithm>
#include <utility>

#include "etudes/tranchees/lot.h"

namespace etu {

namespace {

int nombreDe(std::size_t n) { return static_cast<int>(n); }

int structuresAuPlus(const reglesTranchees& regles) {
  std::size_t n = 0;
  for (const revetement& r : regles.revetements) n = std::max(n, r.couches.size());
  return nombreDe(n);
}

// Levels of fills but the last one, which is the top of the surround.
int remblaisAuPlus(const reglesTranchees& regles) {
  std::size_t n = 0;
  for (const typeTranchee& t : regles.types) n = std::max(n, t.remblais.size() - 1);
  return nombreDe(n);
}

constexpr const wchar_t* kTitres[] = {L"ouvrage",
                                      L"diamètre",
                                      L"de",
                                      L"à",
                                      L"longueur",
                                      L"sol de",
                                      L"sol à",
                                      L"fil d'eau de",
                                      L"fil d'eau à",
                                      L"fond de",
                                      L"fond à",
                                      L"profondeur de",
                                      L"profondeur à",
                                      L"moyenne",
                                      L"largeur de base",
                                      L"largeur",
                                      L"fruit",
                                      L"hauteur droite",
                                      L"classe",
                                      L"blindée",
                                      L"dessus du lit",
                                      L"dessus de l'enrobage de",
                                      L"dessus de l'enrobage à"};

}  // namespace

colonnesDecoupe::colonnesDecoupe(const tranchees& t, const matieres& noms) {
  int libre = kNiveaux;
  const auto prendre = [&](int n) { return std::exchange(libre, libre + n); };
  const reglesTranchees& regles = t.regles;
  sousHaut = prendre(1);
  sousEnrobage = prendre(1);
  niveauxStructure = prendre(structuresAuPlus(regles) * kParNiveau);
  niveauxRemblais = prendre(remblaisAuPlus(regles) * kParNiveau);
  niveauxSols = prendre(nombreDe(regles.sols.size() - 1) * kParSol);
  niveauxClasses = prendre(nombreDe(regles.classes.size()) * kParNiveau);
  fouille = prendre(1);
  sols = prendre(nombreDe(regles.sols.size()));
  lit = prendre(1);
  enrobage = prendre(1);
  remblais = prendre(nombreDe(noms.remblais.size()));
  structures = prendre(nombreDe(noms.structures.size()));
  surfaces = prendre(nombreDe(regles.revetements.size()));
  couches = prendre(nombreDe(regles.nombreDeClasses()));
  blindage = prendre(1);
  nombre = libre;
}

std::vector<std::wstring> titresDecoupe(const tranchees& t, const matieres& noms) {
  const colonnesDecoupe c(t, noms);
  const reglesTranchees& regles = t.regles;
  std::vector<std::wstring> titres(kTitres, std::end(kTitres));
  titres.resize(static_cast<std::size_t>(c.nombre));
  const auto mettre = [&](int colonne, const std::wstring& titre) {
    titres[static_cast<std::size_t>(colonne)] = titre;
  };
  const auto niveau = [&](int colonne, const std::wstring& nom) {
    mettre(colonne, nom + L" de");
    mettre(colonne + 1, nom + L" à");
    mettre(colonne + 2, nom + L": dessous");
  };
  const auto serie = [&](int premiere, std::size_t combien, const auto& titre) {
    for (std::size_t k = 0; k < combien; ++k) mettre(premiere + nombreDe(k), titre(k));
  };
  mettre(c.sousHaut, L"sous le sol");
  mettre(c.sousEnrobage, L"sous l'enrobage");
  for (int k = 0; k < structuresAuPlus(regles); ++k)
    niveau(c.niveauxStructure + k * c.kParNiveau, L"surface, couche " + std::to_wstring(k + 1));
  for (int k = 0; k < remblaisAuPlus(regles); ++k)
    niveau(c.niveauxRemblais + k * c.kParNiveau, L"remblai " + std::to_wstring(k + 1));
  for (std::size_t k = 1; k < regles.sols.size(); ++k) {
    const int colonne = c.niveauxSols + nombreDe(k - 1) * c.kParSol;
    mettre(colonne, regles.sols[k].nom + L", altitude de");
    mettre(colonne + 1, regles.sols[k].nom + L", altitude à");
    niveau(colonne + 2, regles.sols[k].nom);
  }
  for (std::size_t k = 0; k < regles.classes.size(); ++k)
    niveau(c.niveauxClasses + nombreDe(k) * c.kParNiveau, L"à " + enTexte(regles.classes[k], 2) + L" m");
  mettre(c.fouille, L"fouille");
  serie(c.sols, regles.sols.size(), [&](std::size_t k) { return L"en " + regles.sols[k].nom; });
  mettre(c.lit, L"lit");
  mettre(c.enrobage, L"enrobage et tuyau");
  serie(c.remblais, noms.remblais.size(), [&](std::size_t k) { return L"remblai " + noms.remblais[k].nom; });
  serie(c.structures, noms.structures.size(), [&](std::size_t k) { return noms.structures[k]; });
  serie(c.surfaces, regles.revetements.size(), [&](std::size_t k) { return L"surface " + regles.revetements[k].nom; });
  serie(c.couches, regles.nombreDeClasses(), [&](std::size_t k) { return L"tranche " + nomClasse(regles, k); });
  mettre(c.blindage, L"blindage");
  return titres;
}

}  // namespace etu
