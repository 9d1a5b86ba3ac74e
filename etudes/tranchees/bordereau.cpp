// Articles are found in the headings of the runs' sheets and in the designations of their rows.
#include "etudes/tranchees/bordereau.h"

#include <algorithm>
#include <numeric>

#include "module/support/base/lettres.h"

namespace etu {

namespace {

using C = colonnesTroncon;

class liste {
 public:
  explicit liste(const lotFeuilles& f) : m_f(f), m_colonnes(colonnesDe(f.lot().t.regles, f.lot().q.noms)) {
    for (std::size_t k = 0; k < f.troncons.size(); ++k) m_totaux.push_back(totalDe(k));
  }

  std::vector<article> faire() {
    const tranchees& t = m_f.lot().t;
    const matieres& noms = m_f.lot().q.noms;
    for (std::size_t k = 0; k < t.regles.nombreDeClasses(); ++k)
      colonneSomme(L"Profondeur " + nomClasse(t.regles, k), L"Fouille, profondeur " + nomClasse(t.regles, k));
    for (std::size_t k = 1; k < t.regles.sols.size(); ++k)
      colonneSomme(L"Fouille en " + t.regles.sols[k].nom, L"Plus-value pour fouille en " + t.regles.sols[k].nom);
    colonneSomme(L"Blindage", L"Blindage");
    colonneSomme(L"Lit de pose", L"Lit de pose");
    colonneSomme(L"Enrobage", L"Enrobage");
    parDesignation(true, L"ml", C::kPosee, L"",
                   [&](const ligneTroncon& l) { return m_f.lot().q.parOuvrage[*l.ouvrage].posee; });
    parDesignation(false, L"u", -1, L"", [](const ligneTroncon&) { return 1.0; });
    parDesignation(false, L"m", C::kProfRegard, L", profondeur", [&](const ligneTroncon& l) {
      return l.ouvrage ? t.reseau.regards[l.rang].tampon - t.reseau.regards[l.rang].fond : 0.0;
    });
    chutes();
    for (const couche& c : noms.remblais) colonneSomme(L"Remblai " + c.nom, L"Remblai " + c.nom);
    for (const revetement& r : t.regles.revetements)
      colonneSomme(L"Surface " + r.nom, L"Réfection de surface: " + r.nom);
    colonneSomme(L"Évacué foisonné", L"Évacuation des déblais, foisonnés");
    std::erase_if(m_articles, [](const article& a) { return a.total() <= 1e-9; });
    return std::move(m_articles);
  }

 private:
  sommes totalDe(std::size_t troncon) const {
    sommes total;
    for (const ligneTroncon& l : m_f.lignes()) {
      if (l.troncon != troncon || !l.ouvrage) continue;
      const sommes& s = m_f.lot().q.parOuvrage[*l.ouvrage];
      if (total.sols.empty()) total = s;
      else total.ajouter(s);
    }
    return total;
  }

  void colonneSomme(const std::wstring& titre, const std::wstring& designation) {
    const auto trouve = std::ranges::find(m_colonnes, titre, &colonne::titre);
    const int place = C::quantite(static_cast<std::size_t>(trouve - m_colonnes.begin()));
    article a{designation,
              trouve->unite,
              [this_ = &m_f, place](std::size_t k) {
                return this_->troncons[k].ailleurs(this_->derniereLigne(k) + 1, place);
              },
              {}};
    for (const sommes& s : m_totaux) a.quantites.push_back(trouve->valeur(s));
    m_articles.push_back(std::move(a));
  }

  std::wstring designationDe(const ligneTroncon& l) const {
    return l.estTuyau ? designationTuyau(m_f.lot().t.reseau.r.tuyaux[l.rang])
                      : designationRegard(m_f.lot().t.reseau.r.regards[l.rang]);
  }
  // What belongs to another profile is counted there.
  bool compte(const ligneTroncon& l) const { return l.estTuyau || m_f.lot().t.reseau.r.regards[l.rang].profil.empty(); }

  // An article for each designation of pipes, or of manholes: how many, or the sum of a column.
  template <class Valeur>
  void parDesignation(bool tuyaux, const wchar_t* unite, int colonne, const wchar_t* suite, const Valeur& valeur) {
    std::vector<article> articles;
    for (const ligneTroncon& l : m_f.lignes()) {
      if (l.estTuyau != tuyaux || !compte(l)) continue;
      const std::wstring designation = designationDe(l);
      auto trouve = std::ranges::find(articles, designation + suite, &article::designation);
      if (trouve == articles.end()) {
        articles.push_back(
            {designation + suite, unite, somme(designation, colonne), std::vector<double>(m_f.troncons.size())});
        trouve = articles.end() - 1;
      }
      trouve->quantites[l.troncon] += valeur(l);
    }
    std::ranges::move(articles, std::back_inserter(m_articles));
  }

  std::function<std::string(std::size_t)> somme(const std::wstring& designation, int colonne) const {
    return [f = &m_f, texte = utf8(designation), colonne](std::size_t k) {
      const feuille& s = f->troncons[k];
      const std::string designations = s.prefixe() + plageFixe(kPremiereRangee, f->derniereLigne(k), C::kDesignation);
      if (colonne < 0) return "SUMPRODUCT(--(" + designations + "=\"" + texte + "\"))";
      return "SUMPRODUCT((" + designations + "=\"" + texte + "\")*" + s.prefixe() +
             plageFixe(kPremiereRangee, f->derniereLigne(k), colonne) + ")";
    };
  }

  void chutes() {
    article a{L"Regard à chute", L"u",
              [f = &m_f](std::size_t k) {
                return "SUMPRODUCT(--(" + f->troncons[k].prefixe() +
                       plageFixe(kPremiereRangee, f->derniereLigne(k), C::kChute) + ">0.0005))";
              },
              std::vector<double>(m_f.troncons.size())};
    for (const ligneTroncon& l : m_f.lignes()) {
      const regardPose& p = m_f.lot().t.reseau.regards[l.estTuyau ? 0 : l.rang];
      if (!l.estTuyau && p.arrivee && p.depart && std::abs(*p.arrivee - *p.depart) > 0.0005)
        a.quantites[l.troncon] += 1;
    }
    m_articles.push_back(std::move(a));
  }

  const lotFeuilles& m_f;
  std::vector<colonne> m_colonnes;
  std::vector<sommes> m_totaux;
  std::vector<article> m_articles;
};

}  // namespace

double article::total() const { return std::accumulate(quantites.begin(), quantites.end(), 0.0); }

std::vector<article> articlesDe(const lotFeuilles& f) { return liste(f).faire(); }

std::vector<prix> lirePrix(const rangees& textes) {
  std::vector<prix> lus;
  bool premiere = true;
  for (const std::wstring& texte : textes) {
    const rangee r(texte, static_cast<std::size_t>(&texte - textes.data()) + 1);
    if (r.muette()) continue;
    const bool titre = premiere && plv::egalSansCasse(r.mot(), L"désignation");
    premiere = false;
    if (titre) continue;
    r.auPlus(3, L"désignation;unité;prix");
    prix p{r.champ(0), r.champ(1), r.nombre(2, L"le prix")};
    for (const prix& autre : lus)
      if (plv::egalSansCasse(autre.designation, p.designation)) r.refuser(L"cet article a déjà un prix");
    lus.push_back(std::move(p));
  }
  return lus;
}

std::optional<double> prixDe(const std::vector<prix>& liste, const std::wstring& designation) {
  for (const prix& p : liste)
    if (plv::egalSansCasse(p.designation, designation)) return p.valeur;
  return {};
}

}  // namespace etu
