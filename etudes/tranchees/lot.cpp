// Rows are numbered before anything is written, since sheets refer to each other in both directions.
#include "etudes/tranchees/lot.h"

namespace etu {

lotFeuilles::lotFeuilles(lxw_workbook* classeur, const lotMesure& lot, const formats& f, const std::wstring& suffixe)
    : m_lot(lot) {
  const reseauPose& reseau = lot.t.reseau;
  recapitulation.emplace(classeur, L"Tronçons" + suffixe, f);
  synthese.emplace(classeur, L"Synthèse" + suffixe, f);
  m_parTuyau.resize(reseau.tuyaux.size());
  std::size_t ouvrage = 0;
  for (std::size_t k = 0; k < reseau.troncons.size(); ++k) {
    const troncon& t = reseau.troncons[k];
    const std::wstring &premier = reseau.r.regards[reseau.r.tuyaux[t.premier].de].nom,
                       &dernier = reseau.r.regards[reseau.r.tuyaux[t.apres - 1].de + 1].nom;
    troncons.emplace_back(classeur, lot.nom + L" " + premier + L"-" + dernier, f);
    int rangee = kPremiereRangee;
    const auto poser = [&](bool estTuyau, std::size_t rang) {
      const bool creuse = estTuyau || aUneFosse(reseau.r.regards[rang]);
      m_lignes.push_back({estTuyau, rang, creuse ? std::optional(ouvrage++) : std::nullopt, k, rangee++});
    };
    poser(false, reseau.r.tuyaux[t.premier].de);
    for (std::size_t i = t.premier; i < t.apres; ++i) {
      m_parTuyau[i] = m_lignes.size();
      poser(true, i);
      poser(false, reseau.r.tuyaux[i].de + 1);
    }
    m_dernieres.push_back(rangee - 1);
  }
  regards.emplace(classeur, L"Regards" + suffixe, f);
  decoupe.emplace(classeur, L"Découpe" + suffixe, f);
  parametres.emplace(classeur, L"Paramètres" + suffixe, f);
  m_pieces.assign(lot.t.ouvrages.size(), {0, -1});
  for (std::size_t i = 0; i < lot.t.pieces.size(); ++i) {
    auto& [premiere, derniere] = m_pieces[lot.t.pieces[i].ouvrage];
    derniere = kPremiereRangee + static_cast<int>(i);
    if (premiere == 0) premiere = derniere;
  }
}

std::wstring designationRegard(const regard& n) {
  if (!(n.diametre.exterieur > 0)) return n.type.empty() ? L"nœud" : n.type;
  return L"regard" + (n.type.empty() ? L"" : L" " + n.type) + L" Ø" + enTexte(n.diametre);
}

std::wstring designationTuyau(const tuyau& t) {
  return L"tuyau Ø" + enTexte(t.diametre) + (t.materiau.empty() ? L"" : L" " + t.materiau) +
         (t.classe.empty() ? L"" : L" " + t.classe);
}

}  // namespace etu
