// A label and a value a row; lists of limits are two columns, a limit and what holds up to it.
#include "etudes/tranchees/feuilleParametres.h"

namespace etu {

namespace {

constexpr double kSansLimite = 1e9;  // metres

class ecrivain {
 public:
  explicit ecrivain(feuille& f) : m_f(f) {}

  void titre(const std::wstring& texte) {
    ++m_rangee;
    m_f.texte(m_rangee++, 0, texte, m_f.styles().titre);
  }
  std::string valeur(const std::wstring& libelle, double v) {
    m_f.texte(m_rangee, 0, libelle, m_f.styles().texte);
    m_f.nombre(m_rangee, 1, v, m_f.styles().nombre);
    return m_f.ailleurs(m_rangee++, 1);
  }
  cellulesPalier limite(const std::wstring& libelle, const palier& p) {
    m_f.texte(m_rangee, 0, libelle, m_f.styles().texte);
    m_f.nombre(m_rangee, 1, p.jusque.value_or(kSansLimite), m_f.styles().nombre);
    m_f.nombre(m_rangee, 2, p.valeur, m_f.styles().nombre);
    const cellulesPalier c{m_f.ailleurs(m_rangee, 1), m_f.ailleurs(m_rangee, 2)};
    ++m_rangee;
    return c;
  }
  int rangee() const { return m_rangee; }
  std::string plageDe(int premiere, int colonne) const {
    return premiere == m_rangee ? std::string() : m_f.prefixe() + plageFixe(premiere, m_rangee - 1, colonne);
  }

 private:
  feuille& m_f;
  int m_rangee = 1;
};

cellulesType ecrireType(ecrivain& e, const typeTranchee& t) {
  cellulesType c;
  e.titre(L"Type " + t.nom);
  for (const palier& p : t.parDiametre) c.parDiametre.push_back(e.limite(L"diamètre jusqu'à (m); largeur en plus", p));
  const int premiere = e.rangee();
  for (const palier& p : t.parProfondeur) e.limite(L"profondeur jusqu'à; largeur au moins", p);
  c.profondeurs = e.plageDe(premiere, 1);
  c.largeurs = e.plageDe(premiere, 2);
  c.lit = e.valeur(L"lit de pose", t.lit);
  c.surprofondeur = e.valeur(L"surprofondeur", t.surprofondeur);
  c.enrobage = e.valeur(L"enrobage au-dessus du tuyau", t.enrobage);
  if (t.pente) {
    c.talusProfondeur = e.valeur(L"talus au-delà de", t.pente->profondeur);
    c.talusFruit = e.valeur(L"fruit", t.pente->fruit);
    c.talusDroite = e.valeur(L"hauteur droite", t.pente->hauteurDroite);
  }
  if (t.soutien) {
    c.soutienProfondeur = e.valeur(L"blindage au-delà de", t.soutien->profondeur);
    c.soutienRapport = e.valeur(L"largeur sur profondeur, au plus", t.soutien->rapport);
    c.soutienFruit = e.valeur(L"fruit admis", t.soutien->fruitAdmis);
  }
  for (const couche& r : t.remblais)
    c.remblais.push_back(r.epaisseur ? e.valeur(L"remblai " + r.nom, *r.epaisseur) : std::string());
  c.debord = e.valeur(L"regard: débord", t.regard.debord);
  c.litRegard = e.valeur(L"regard: lit", t.regard.lit);
  c.radier = e.valeur(L"regard: radier", t.regard.radier);
  return c;
}

}  // namespace

cellulesParametres ecrireParametres(feuille& f, const reglesTranchees& regles) {
  cellulesParametres c;
  f.largeur(0, 0, 42);
  f.largeur(1, 2, 14);
  f.texte(0, 0, L"Règles des tranchées (m)", f.styles().titre);
  ecrivain e(f);
  e.titre(L"Sol: " + regles.sol);
  for (const coucheSol& s : regles.sols) c.foisonnements.push_back(e.valeur(L"foisonnement, " + s.nom, s.foisonnement));
  const int premiere = e.rangee();
  for (const double limite : regles.classes) c.classes.push_back(e.valeur(L"limite de classe de profondeur", limite));
  c.plageClasses = e.plageDe(premiere, 1);
  for (const typeTranchee& t : regles.types) c.types.push_back(ecrireType(e, t));
  for (const revetement& r : regles.revetements) {
    e.titre(L"Revêtement " + r.nom);
    std::vector<std::string>& epaisseurs = c.structures.emplace_back();
    for (const couche& s : r.couches) epaisseurs.push_back(e.valeur(s.nom, *s.epaisseur));
  }
  return c;
}

}  // namespace etu
