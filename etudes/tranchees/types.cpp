// Reading trench types. A word opens a type or a surface, to which the words after it belong; a table says which word belongs where.
#include "etudes/tranchees/types.h"

#include <algorithm>

#include "etudes/fichiers/nombres.h"
#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

constexpr double kMillimetre = 0.001;

// "2/3" or a number.
double rapportDe(const rangee& r, std::size_t i, double sinon) {
  const std::wstring& texte = r.champ(i);
  const auto barre = texte.find(L'/');
  if (barre == std::wstring::npos) return r.positif(i, L"le rapport", sinon);
  const auto haut = nombreDe(texte.substr(0, barre)), bas = nombreDe(texte.substr(barre + 1));
  if (!haut || !bas || !(*haut > 0) || !(*bas > 0)) r.refuser(L"le rapport est un nombre, ou deux comme 2/3");
  return *haut / *bas;
}

class lecteur {
 public:
  explicit lecteur(const rangees& textes) {
    for (const rangee& r : lues(textes)) lire(r);
    finir();
  }
  reglesTranchees ceder() { return std::move(m_regles); }

 private:
  struct motConnu {
    const wchar_t* mot;
    void (lecteur::*lire)(const rangee& r);
  };

  void lire(const rangee& r) {
    static constexpr motConnu kMots[] = {{L"sol", &lecteur::lireSol},
                                         {L"couche", &lecteur::lireCouche},
                                         {L"foisonnement", &lecteur::lireFoisonnement},
                                         {L"classes", &lecteur::lireClasses},
                                         {L"type", &lecteur::lireType},
                                         {L"largeur", &lecteur::lireLargeur},
                                         {L"profondeur", &lecteur::lireProfondeur},
                                         {L"lit", &lecteur::lireLit},
                                         {L"enrobage", &lecteur::lireEnrobage},
                                         {L"talus", &lecteur::lireTalus},
                                         {L"blindage", &lecteur::lireBlindage},
                                         {L"remblai", &lecteur::lireRemblai},
                                         {L"regard", &lecteur::lireRegard},
                                         {L"revêtement", &lecteur::lireRevetement},
                                         {L"structure", &lecteur::lireStructure},
                                         {L"tronçon", &lecteur::lireTroncon}};
    for (const motConnu& m : kMots)
      if (r.mot() == m.mot) return (this->*m.lire)(r);
    std::wstring mots;
    for (const motConnu& m : kMots) mots += (mots.empty() ? L"" : L", ") + std::wstring(m.mot);
    r.refuser(L"mot inconnu; connus: " + mots);
  }

  // --- the ground

  void lireSol(const rangee& r) {
    r.auPlus(2, L"sol;TN, le nom d'un autre terrain ou un genre de ligne");
    m_regles.sol = r.texteVoulu(1, L"le nom du sol");
  }
  void lireFoisonnement(const rangee& r) {
    r.auPlus(2, L"foisonnement;coefficient");
    m_foisonnement = foisonnementDe(r, 1);
  }
  void lireCouche(const rangee& r) {
    r.auPlus(3, L"couche;nom d'un autre terrain;foisonnement");
    m_couches.push_back({r.texteVoulu(1, L"le nom du terrain"), foisonnementDe(r, 2)});
  }
  static double foisonnementDe(const rangee& r, std::size_t i) {
    const double valeur = r.nombreOu(i, L"le foisonnement", 1);
    if (valeur < 1) r.refuser(L"un foisonnement est d'au moins 1");
    return valeur;
  }
  void lireClasses(const rangee& r) {
    for (std::size_t i = 1; i < r.nombreDeChamps(); ++i) {
      const double limite = r.nombreVoulu(i, L"la limite de classe");
      if (limite <= (m_regles.classes.empty() ? 0 : m_regles.classes.back()))
        r.refuser(L"les limites vont en croissant");
      m_regles.classes.push_back(limite);
    }
  }

  // --- types

  typeTranchee& type(const rangee& r) {
    if (m_regles.types.empty()) r.refuser(L"une rangée type;nom est attendue avant");
    return m_regles.types.back();
  }
  void lireType(const rangee& r) {
    r.auPlus(2, L"type;nom");
    const std::wstring& nom = r.texteVoulu(1, L"le nom du type");
    if (rangDe(m_regles.types, nom)) r.refuser(L"il y a déjà un type " + nom);
    m_regles.types.emplace_back().nom = nom;
  }
  void lireLargeur(const rangee& r) {
    r.auPlus(3, L"largeur;jusqu'au diamètre (mm);en plus du diamètre extérieur (m)");
    auto jusque = r.nombre(1, L"le diamètre");
    if (jusque) *jusque *= kMillimetre;
    r.nombreVoulu(2, L"la largeur en plus");
    ajouterPalier(r, type(r).parDiametre, jusque, r.positif(2, L"la largeur en plus", 0));
  }
  void lireProfondeur(const rangee& r) {
    r.auPlus(3, L"profondeur;jusqu'à;largeur la plus petite");
    ajouterPalier(r, type(r).parProfondeur, r.nombre(1, L"la profondeur"), r.positif(2, L"la largeur", 0));
  }
  static void ajouterPalier(const rangee& r, std::vector<palier>& paliers, std::optional<double> jusque,
                            double valeur) {
    if (!paliers.empty() && (!paliers.back().jusque || (jusque && *jusque <= *paliers.back().jusque)))
      r.refuser(L"les limites vont en croissant, la dernière peut être vide");
    paliers.push_back({jusque, valeur});
  }
  void lireLit(const rangee& r) {
    r.auPlus(3, L"lit;épaisseur;surprofondeur");
    type(r).lit = r.positif(1, L"l'épaisseur", 0);
    type(r).surprofondeur = r.positif(2, L"la surprofondeur", 0);
  }
  void lireEnrobage(const rangee& r) {
    r.auPlus(2, L"enrobage;au-dessus du tuyau");
    type(r).enrobage = r.positif(1, L"l'enrobage", 0);
  }
  void lireTalus(const rangee& r) {
    r.auPlus(4, L"talus;au-delà de la profondeur;fruit;hauteur droite");
    type(r).pente =
        talus{r.positif(1, L"la profondeur", 0), r.positif(2, L"le fruit", 0), r.positif(3, L"la hauteur", 0)};
  }
  void lireBlindage(const rangee& r) {
    r.auPlus(4, L"blindage;au-delà de la profondeur;largeur sur profondeur;fruit admis");
    type(r).soutien =
        blindage{r.positif(1, L"la profondeur", 1.30), rapportDe(r, 2, 2.0 / 3), r.positif(3, L"le fruit", 0.2)};
  }
  void lireRemblai(const rangee& r) {
    r.auPlus(4, L"remblai;nom;épaisseur;réemploi");
    couche c{r.texteVoulu(1, L"le nom"), r.nombre(2, L"l'épaisseur"), plv::enMinuscules(r.champ(3)) == L"réemploi"};
    if (c.epaisseur && !(*c.epaisseur > 0)) r.refuser(L"une épaisseur est plus grande que zéro");
    std::vector<couche>& remblais = type(r).remblais;
    if (!remblais.empty() && !remblais.back().epaisseur) r.refuser(L"le remblai sans épaisseur est le dernier");
    if (rangDe(remblais, c.nom)) r.refuser(L"le type a déjà un remblai " + c.nom);
    remblais.push_back(std::move(c));
  }
  void lireRegard(const rangee& r) {
    r.auPlus(4, L"regard;débord;lit;radier");
    type(r).regard = {r.positif(1, L"le débord", 0.5), r.positif(2, L"le lit", 0), r.positif(3, L"le radier", 0)};
  }

  // --- surfaces and stretches

  void lireRevetement(const rangee& r) {
    r.auPlus(2, L"revêtement;nom");
    const std::wstring& nom = r.texteVoulu(1, L"le nom du revêtement");
    if (rangDe(m_regles.revetements, nom)) r.refuser(L"il y a déjà un revêtement " + nom);
    m_regles.revetements.emplace_back().nom = nom;
  }
  void lireStructure(const rangee& r) {
    r.auPlus(3, L"structure;nom;épaisseur");
    if (m_regles.revetements.empty()) r.refuser(L"une rangée revêtement;nom est attendue avant");
    couche c{r.texteVoulu(1, L"le nom"), r.nombreVoulu(2, L"l'épaisseur")};
    if (!(*c.epaisseur > 0)) r.refuser(L"une épaisseur est plus grande que zéro");
    if (rangDe(m_regles.revetements.back().couches, c.nom)) r.refuser(L"le revêtement a déjà une couche " + c.nom);
    m_regles.revetements.back().couches.push_back(std::move(c));
  }
  // Types and surfaces may come after the stretches that name them.
  void lireTroncon(const rangee& r) {
    r.auPlus(5, L"tronçon;début;fin;type;revêtement");
    m_troncons.push_back(r);
  }

  void poser(const rangee& r) {
    partie p{r.station(1, L"le début"), r.station(2, L"la fin"), 0, {}};
    if (!(p.fin > p.debut)) r.refuser(L"un tronçon va vers les stations croissantes");
    if (!r.champ(3).empty()) p.type = voulu(r, m_regles.types, 3, L"type");
    if (!r.champ(4).empty()) p.revetement = voulu(r, m_regles.revetements, 4, L"revêtement");
    for (const partie& autre : m_regles.parties)
      if (p.debut < autre.fin && autre.debut < p.fin)
        r.refuser(L"il recouvre le tronçon de " + enTexte(autre.debut, 3) + L" à " + enTexte(autre.fin, 3));
    m_regles.parties.push_back(p);
  }

  template <class Liste>
  static std::optional<std::size_t> rangDe(const Liste& liste, const std::wstring& nom) {
    for (std::size_t i = 0; i < liste.size(); ++i)
      if (plv::egalSansCasse(liste[i].nom, nom)) return i;
    return {};
  }
  template <class Liste>
  static std::size_t voulu(const rangee& r, const Liste& liste, std::size_t champ, const wchar_t* quoi) {
    const auto rang = rangDe(liste, r.champ(champ));
    if (!rang) r.refuser(std::wstring(L"il n'y a pas de ") + quoi + L" " + r.champ(champ));
    return *rang;
  }

  void finir() {
    if (m_regles.types.empty()) throw refus{L"aucun type de tranchée: une rangée type;nom est attendue"};
    for (typeTranchee& t : m_regles.types) {
      if (t.parDiametre.empty() && t.parProfondeur.empty())
        throw refus{L"type " + t.nom + L": ni largeur par diamètre ni largeur par profondeur"};
      if (t.remblais.empty() || t.remblais.back().epaisseur)
        throw refus{L"type " + t.nom + L": le dernier remblai est attendu sans épaisseur, il prend ce qui reste"};
    }
    m_regles.sols.push_back({L"terre", m_foisonnement});
    m_regles.sols.insert(m_regles.sols.end(), m_couches.begin(), m_couches.end());
    for (const rangee& r : m_troncons) poser(r);
    std::ranges::sort(m_regles.parties, {}, &partie::debut);
  }

  reglesTranchees m_regles;
  double m_foisonnement = 1;
  std::vector<coucheSol> m_couches;
  std::vector<rangee> m_troncons;
};

}  // namespace

partie reglesTranchees::en(double station) const {
  for (const partie& p : parties)
    if (p.debut <= station && station < p.fin) return p;
  partie p{station, station, 0, {}};
  if (!revetements.empty()) p.revetement = 0;
  return p;
}

reglesTranchees lireRegles(const rangees& textes) { return lecteur(textes).ceder(); }

}  // namespace etu
