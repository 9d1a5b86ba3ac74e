// The order of the sheets, and those of all networks together. The library writes nothing before it closes a workbook.
#include "etudes/tranchees/classeur.h"

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <memory>

#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

struct fermerClasseur {
  void operator()(lxw_workbook* classeur) const { lxw_workbook_free(classeur); }
};

// An article of all networks, by its designation: where each has it among its own.
struct articleCommun {
  std::wstring designation, unite;
  std::vector<std::optional<std::size_t>> parLot;
};

std::vector<articleCommun> communs(const std::vector<std::vector<article>>& articles) {
  std::vector<articleCommun> liste;
  for (std::size_t lot = 0; lot < articles.size(); ++lot)
    for (std::size_t k = 0; k < articles[lot].size(); ++k) {
      auto trouve = std::ranges::find(liste, articles[lot][k].designation, &articleCommun::designation);
      if (trouve == liste.end()) {
        liste.push_back({articles[lot][k].designation, articles[lot][k].unite,
                         std::vector<std::optional<std::size_t>>(articles.size())});
        trouve = liste.end() - 1;
      }
      trouve->parLot[lot] = k;
    }
  return liste;
}

class ouvrageEcrit {
 public:
  ouvrageEcrit(lxw_workbook* classeur, const std::vector<lotMesure>& lots, const std::vector<prix>& tarif,
               const enteteClasseur& entete)
      : m_formats(classeur),
        m_lots(lots),
        m_tarif(tarif),
        m_entete(entete),
        m_bordereau(classeur, L"Bordereau", m_formats) {
    for (std::size_t k = 0; k < lots.size(); ++k)
      m_feuilles.push_back(
          std::make_unique<lotFeuilles>(classeur, lots[k], m_formats, lots.size() > 1 ? L" " + lots[k].nom : L""));
    m_controles.emplace(classeur, L"Contrôles", m_formats);
  }

  std::vector<std::wstring> ecrire() {
    for (const auto& f : m_feuilles) {
      f->cellules = ecrireParametres(*f->parametres, f->lot().t.regles);
      ecrireDecoupe(*f);
      ecrireRegards(*f);
      for (std::size_t k = 0; k < f->troncons.size(); ++k) ecrireTroncon(*f, k);
      ecrireSynthese(*f);
      m_articles.push_back(articlesDe(*f));
      recapituler(*f, m_articles.back());
    }
    m_communs = communs(m_articles);
    bordereau();
    controles();
    return m_sansPrix;
  }

 private:
  static std::string colonneDesTroncons(const lotFeuilles& f, std::size_t article) {
    return f.recapitulation->prefixe() + plageFixe(kPremiereRangee,
                                                   kPremiereRangee + static_cast<int>(f.troncons.size()) - 1,
                                                   1 + static_cast<int>(article));
  }

  // A row for each run, a column for each article.
  void recapituler(lotFeuilles& f, const std::vector<article>& articles) {
    feuille& s = *f.recapitulation;
    s.largeur(0, 0, 24);
    s.largeur(1, static_cast<int>(articles.size()) + 1, 14);
    s.figer(kPremiereRangee, 1);
    s.texte(0, 0, f.lot().nom + L": quantités par tronçon", m_formats.titre);
    s.texte(kEntetes, 0, L"tronçon", m_formats.entete);
    for (std::size_t a = 0; a < articles.size(); ++a)
      s.texte(kEntetes, 1 + static_cast<int>(a), articles[a].designation + L" (" + articles[a].unite + L")",
              m_formats.entete);
    for (std::size_t k = 0; k < f.troncons.size(); ++k) {
      const int r = kPremiereRangee + static_cast<int>(k);
      const troncon& t = f.lot().t.reseau.troncons[k];
      s.texte(r, 0,
              f.lot().t.reseau.nomTuyau(t.premier) + L" ... " +
                  f.lot().t.reseau.r.regards[f.lot().t.reseau.r.tuyaux[t.apres - 1].de + 1].nom,
              m_formats.texte);
      for (std::size_t a = 0; a < articles.size(); ++a)
        s.formule(r, 1 + static_cast<int>(a), articles[a].formule(k), articles[a].quantites[k], m_formats.nombre);
    }
  }

  // --- the bill

  enum { kNumero, kDesignation, kUnite, kPrix, kPremierLot };
  static int colonneQuantite(std::size_t lot) { return kPremierLot + 2 * static_cast<int>(lot); }

  void bordereau() {
    feuille& s = m_bordereau;
    s.largeur(kDesignation, kDesignation, 48);
    s.largeur(kUnite, colonneQuantite(m_lots.size()), 14);
    s.figer(kPremiereRangee, kPrix);
    s.texte(0, 0, L"Bordereau des quantités et estimation" + (m_entete.dessin.empty() ? L"" : L", " + m_entete.dessin),
            m_formats.titre);
    s.texte(1, 0, m_entete.date);
    const wchar_t* const titres[] = {L"n°", L"désignation", L"unité", L"prix unitaire"};
    for (int k = 0; k < kPremierLot; ++k) s.texte(kEntetes, k, titres[k], m_formats.entete);
    for (std::size_t l = 0; l < m_lots.size(); ++l) {
      const std::wstring suite = m_lots.size() > 1 ? L", " + m_lots[l].nom : L"";
      s.texte(kEntetes, colonneQuantite(l), L"quantité" + suite, m_formats.entete);
      s.texte(kEntetes, colonneQuantite(l) + 1, L"montant" + suite, m_formats.entete);
    }
    m_montants.resize(m_lots.size());
    int r = kPremiereRangee;
    for (const articleCommun& a : m_communs) rangeeDuBordereau(a, r++);
    s.texte(r, kDesignation, L"total hors taxes", m_formats.gras);
    for (std::size_t l = 0; l < m_lots.size(); ++l)
      s.formule(r, colonneQuantite(l) + 1,
                m_communs.empty() ? "0" : "SUM(" + plage(kPremiereRangee, r - 1, colonneQuantite(l) + 1) + ")",
                m_montants[l], m_formats.somme);
  }

  void rangeeDuBordereau(const articleCommun& a, int r) {
    feuille& s = m_bordereau;
    s.nombre(r, kNumero, r - kPremiereRangee + 1, m_formats.entier);
    s.texte(r, kDesignation, a.designation, m_formats.texte);
    s.texte(r, kUnite, a.unite, m_formats.texte);
    const auto connu = prixDe(m_tarif, a.designation);
    if (connu) s.nombre(r, kPrix, *connu, m_formats.saisie);
    else s.texte(r, kPrix, L"", m_formats.saisie), m_sansPrix.push_back(a.designation);
    for (std::size_t l = 0; l < m_lots.size(); ++l) {
      const int colonne = colonneQuantite(l);
      const double quantite = a.parLot[l] ? m_articles[l][*a.parLot[l]].total() : 0;
      if (a.parLot[l])
        s.formule(r, colonne, "SUM(" + colonneDesTroncons(*m_feuilles[l], *a.parLot[l]) + ")", quantite,
                  m_formats.nombre);
      else s.nombre(r, colonne, 0, m_formats.nombre);
      s.formule(r, colonne + 1, cellule(r, colonne) + "*" + celluleFixe(r, kPrix), quantite * connu.value_or(0),
                m_formats.somme);
      m_montants[l] += quantite * connu.value_or(0);
    }
  }

  // --- checks

  void controles() {
    feuille& s = *m_controles;
    s.largeur(0, 0, 26);
    s.largeur(1, 1, 14);
    s.largeur(2, 2, 90);
    s.texte(0, 0, L"Contrôles et avertissements", m_formats.titre);
    s.texte(1, 0, L"dessin");
    s.texte(1, 1, m_entete.dessin);
    s.texte(2, 0, L"date");
    s.texte(2, 1, m_entete.date);
    int r = 4;
    for (const auto& f : m_feuilles) controlesDe(*f, r);
    for (const std::wstring& nom : m_sansPrix) avertir(r, L"prix", {}, L"article sans prix: " + nom);
    for (const prix& p : m_tarif)
      if (std::ranges::find_if(m_communs, [&](const articleCommun& a) {
            return plv::egalSansCasse(a.designation, p.designation);
          }) == m_communs.end())
        avertir(r, L"prix", {}, L"prix sans article: " + p.designation);
  }

  void controlesDe(lotFeuilles& f, int& r) {
    const lotMesure& lot = f.lot();
    const int colonne = colonnesTroncon::quantite(colonnesDe(lot.t.regles, lot.q.noms).size());
    for (std::size_t k = 0; k < f.troncons.size(); ++k) {
      m_controles->texte(r, 0, lot.nom, m_formats.texte);
      m_controles->texte(r, 1, L"identité", m_formats.texte);
      m_controles->formuleTexte(r++, 2,
                                "IF(ABS(" + f.troncons[k].ailleurs(f.derniereLigne(k) + 1, colonne) +
                                    ")<0.000001,\"fouille = lit + enrobage + tuyau + regards + remblais + surface: "
                                    "juste\",\"la fouille ne se retrouve pas dans ce qui la remplit\")",
                                std::abs(lot.q.total.ecart()) < 1e-6
                                    ? "fouille = lit + enrobage + tuyau + regards + remblais + surface: juste"
                                    : "la fouille ne se retrouve pas dans ce qui la remplit",
                                m_formats.texte);
    }
    if (lot.q.total.reemploi > lot.q.total.sols.front() + 1e-9)
      avertir(r, lot.nom, {},
              L"le réemploi dépasse de " + enTexte(lot.q.total.reemploi - lot.q.total.sols.front(), 3) +
                  L" m3 ce que donne la première couche");
    for (const avis& a : lot.remarques) avertir(r, lot.nom, a.station, a.texte);
  }

  void avertir(int& r, const std::wstring& quoi, const std::optional<double>& station, const std::wstring& texte) {
    m_controles->texte(r, 0, quoi, m_formats.texte);
    if (station) m_controles->nombre(r, 1, *station, m_formats.nombre);
    m_controles->texte(r++, 2, texte, m_formats.texte);
  }

  formats m_formats;
  const std::vector<lotMesure>& m_lots;
  const std::vector<prix>& m_tarif;
  const enteteClasseur& m_entete;
  feuille m_bordereau;
  std::vector<std::unique_ptr<lotFeuilles>> m_feuilles;
  std::optional<feuille> m_controles;
  std::vector<std::vector<article>> m_articles;
  std::vector<articleCommun> m_communs;
  std::vector<double> m_montants;
  std::vector<std::wstring> m_sansPrix;
};

}  // namespace

std::vector<article> articlesDe(const std::vector<lotMesure>& lots) {
  // A workbook that is never written: articles know their cells.
  const std::unique_ptr<lxw_workbook, fermerClasseur> classeur(workbook_new(""));
  const formats f(classeur.get());
  std::vector<article> tous;
  for (const lotMesure& lot : lots)
    for (article& a : articlesDe(lotFeuilles(classeur.get(), lot, f, L""))) {
      const auto trouve = std::ranges::find(tous, a.designation, &article::designation);
      if (trouve == tous.end()) tous.push_back({a.designation, a.unite, {}, {a.total()}});
      else trouve->quantites.push_back(a.total());
    }
  return tous;
}

std::vector<std::wstring> ecrireClasseur(const std::wstring& chemin, const std::vector<lotMesure>& lots,
                                         const std::vector<prix>& tarif, const enteteClasseur& entete) {
  const std::string but = plv::nomDeFichier(chemin), provisoire = but + ".tmp";
  lxw_workbook_options options{};
  options.constant_memory = LXW_TRUE;
  std::unique_ptr<lxw_workbook, fermerClasseur> classeur(workbook_new_opt(provisoire.c_str(), &options));
  if (!classeur) throw refus{L"le classeur n'a pas pu être préparé: " + chemin};
  const std::vector<std::wstring> sansPrix = ouvrageEcrit(classeur.get(), lots, tarif, entete).ecrire();
  std::error_code erreur;
  // Closing also releases the workbook.
  if (workbook_close(classeur.release()) == LXW_NO_ERROR) std::filesystem::rename(provisoire, but, erreur);
  else erreur = std::make_error_code(std::errc::io_error);
  if (erreur) {
    std::error_code ignoree;
    std::filesystem::remove(provisoire, ignoree);
    throw refus{L"le classeur n'a pas pu être écrit: " + chemin};
  }
  return sansPrix;
}

}  // namespace etu
