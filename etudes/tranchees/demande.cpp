// Reading the arguments; grounds are matched with the names of the rules by their order.
#include "etudes/tranchees/demande.h"

namespace etu {

std::vector<std::wstring> nomsDesSols(const reglesTranchees& regles) {
  std::vector<std::wstring> noms{regles.sol};
  for (std::size_t k = 1; k < regles.sols.size(); ++k) noms.push_back(regles.sols[k].nom);
  return noms;
}

bool lireDemande(const resbuf*& noeud, demandeTranchees& d) {
  rangees textes;
  if (!lireReseauDuProfil(noeud, d.reseau) || !lireTextes(noeud, textes)) return false;
  d.regles = lireRegles(textes);
  const std::vector<std::wstring> noms = nomsDesSols(d.regles);
  std::vector<ligneDroites> lignes;
  if (!noeud) return false;
  const bool liste = noeud->restype == RTLB;
  noeud = noeud->rbnext;
  for (std::size_t i = 0; liste && i < noms.size(); ++i) {
    std::vector<morceauLigne> morceaux;
    if (!lireLigne(noeud, morceaux)) return false;
    lignes.push_back(morceaux.empty() ? d.reseau.terrain : ligneDroites(morceaux));
  }
  lignes.resize(noms.size(), d.reseau.terrain);
  d.sols.sol = lignes.front();
  d.sols.couches.assign(lignes.begin() + 1, lignes.end());
  if (liste && noeud && noeud->restype == RTLE) noeud = noeud->rbnext;
  return true;
}

}  // namespace etu
