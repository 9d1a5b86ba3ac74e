// The list of depth classes: settings, insertion, extreme classes, labels.
// The settings hold one height for each class, so a loaded class begins where the one before it ended.
#include "module/metres/classeProfondeur.h"

#include <algorithm>
#include <cmath>

#include "module/support/base/nombres.h"
#include "module/support/reglages/fichierConfig.h"
#include "module/support/reglages/reglages.h"

namespace plv {

namespace {

constexpr double kPlusCourte = 0.01;  // metres
constexpr double kProfondeurExtreme = 1e99;
constexpr double kSansFin = 1e36;  // the end of a class that the list hasn't
constexpr Adesk::Int32 kCouleurExtreme = 1;
constexpr Adesk::Int32 kOctetCouleur = 0xFF;

void rendrePositifs(reglageParClasse<double>& reglage) {
  for (auto& variable : reglage)
    if (variable.valeur < 0) variable.changer(std::abs(variable.valeur));
}

bool estDans(const classesProfondeur& liste, std::ptrdiff_t index) {
  return index >= 0 && index < static_cast<std::ptrdiff_t>(liste.size());
}

// The parts of `c` that the new class leaves, in order, and the new class itself when it lies inside `c`.
class insertion {
 public:
  explicit insertion(const classeProfondeur& nouvelle) : m_nouvelle(nouvelle) {}

  void visiter(const classeProfondeur& c) {
    const double d = m_nouvelle.debut, f = m_nouvelle.fin;
    if (d >= c.fin || c.debut >= f) return garder(c);
    if (f >= c.fin && c.debut >= d) return;
    if (d >= c.debut && c.fin >= f) {
      garder(entre(c, c.debut, d));
      m_resultat.push_back(m_nouvelle);
      m_placee = true;
      return garder(entre(c, f, c.fin));
    }
    if (d >= c.debut) return garder(entre(c, c.debut, d));
    garder(entre(c, f, c.fin));
  }

  classesProfondeur terminer() {
    if (!m_placee) m_resultat.push_back(m_nouvelle);
    std::stable_sort(m_resultat.begin(), m_resultat.end(),
                     [](const classeProfondeur& a, const classeProfondeur& b) { return a.debut < b.debut; });
    return std::move(m_resultat);
  }

 private:
  static classeProfondeur entre(classeProfondeur c, double debut, double fin) {
    c.debut = debut;
    c.fin = fin;
    return c;
  }
  void garder(const classeProfondeur& c) {
    if (c.fin - c.debut > 0) m_resultat.push_back(c);
  }

  const classeProfondeur m_nouvelle;
  classesProfondeur m_resultat;
  bool m_placee = false;
};

}  // namespace

classesProfondeur& listeClasses() {
  static classesProfondeur liste = [] {
    classesProfondeur chargee;
    chargerClasses(chargee);
    return chargee;
  }();
  return liste;
}

void chargerClasses(classesProfondeur& liste) {
  reglages& r = reglagesModule();
  rendrePositifs(r.hauteursMin);
  rendrePositifs(r.largeurs);
  rendrePositifs(r.profondeursLit);
  liste.clear();
  double precedente = 0;
  for (std::size_t i = 0; i < kNombreClassesProfondeur; ++i) {
    const double hauteur = r.hauteursMin[i].valeur;
    if (hauteur != 0)
      liste.push_back({std::min(precedente, hauteur), std::max(precedente, hauteur), r.profondeursLit[i].valeur,
                       r.largeurs[i].valeur, r.couleurs[i].valeur});
    precedente = hauteur;  // kept as it is: also of a class that is left out, so that the next one begins at 0
  }
}

void sauverClasses(const classesProfondeur& liste) {
  reglages& r = reglagesModule();
  // Together: a program that read the file in between would find classes without height.
  ecritureGroupee ensemble;
  for (std::size_t i = 0; i < kNombreClassesProfondeur; ++i) {
    r.hauteursMin[i].changer(i < liste.size() ? liste[i].fin : 0.0);
    if (i >= liste.size()) continue;
    r.largeurs[i].changer(liste[i].largeur);
    r.profondeursLit[i].changer(liste[i].profLit);
    r.couleurs[i].changer(static_cast<std::uint8_t>(liste[i].couleur & kOctetCouleur));
  }
  ensemble.conclure();
}

void insererClasse(classesProfondeur& liste, classeProfondeur& classe) {
  if (classe.debut > classe.fin) std::swap(classe.debut, classe.fin);
  if (classe.fin - classe.debut < kPlusCourte) return;
  insertion nouvelle(classe);
  for (const classeProfondeur& c : liste) nouvelle.visiter(c);
  liste = nouvelle.terminer();
}

void supprimerClasse(classesProfondeur& liste, std::ptrdiff_t index) {
  if (estDans(liste, index)) liste.erase(liste.begin() + index);
}

gardeClassesExtremes::gardeClassesExtremes(classesProfondeur& liste) : m_liste(liste) {
  m_liste.push_front({-kProfondeurExtreme, 0, 0, 0, kCouleurExtreme});
  m_place = m_liste.size();
  const double e = m_liste.back().fin;
  classeProfondeur dessous{std::min(e, kProfondeurExtreme), std::max(e, kProfondeurExtreme), 0, 0, kCouleurExtreme};
  insererClasse(m_liste, dessous);
}

gardeClassesExtremes::~gardeClassesExtremes() {
  supprimerClasse(m_liste, static_cast<std::ptrdiff_t>(m_place));
  supprimerClasse(m_liste, 0);
}

bool estSurLimite(profondeurFouille profondeur, profondeurFouille limite) {
  return std::abs(profondeur - limite) <= kMemeProfondeur;
}

Adesk::Int32 classeDeProfondeur(const classesProfondeur& liste, profondeurFouille profondeur) {
  const auto trouvee = std::find_if(liste.begin(), liste.end(), [&](const classeProfondeur& c) {
    return c.debut + kMemeProfondeur < profondeur.valeur && profondeur.valeur <= c.fin + kMemeProfondeur;
  });
  return static_cast<Adesk::Int32>(trouvee == liste.end() ? static_cast<std::ptrdiff_t>(liste.size()) - 1
                                                          : trouvee - liste.begin());
}

profondeurFouille finDeClasse(const classesProfondeur& liste, std::ptrdiff_t index) {
  return profondeurFouille(estDans(liste, index) ? liste[static_cast<std::size_t>(index)].fin : kSansFin);
}
profondeurFouille debutDeClasse(const classesProfondeur& liste, std::ptrdiff_t index) {
  return profondeurFouille(estDans(liste, index) ? liste[static_cast<std::size_t>(index)].debut : 0.0);
}

std::wstring libelleClasse(const classesProfondeur& liste, Adesk::Int32 numero) {
  const auto nombre = static_cast<std::ptrdiff_t>(liste.size());
  if (numero == 0) return L"Non enterre";
  if (numero > 0 && numero < nombre)
    return texteFixe(debutDeClasse(liste, numero - 1).valeur, 2) + L" - " +
           texteFixe(finDeClasse(liste, numero - 1).valeur, 2) + L" ";
  return L"au dela de " + texteFixe(finDeClasse(liste, nombre - 1).valeur, 2);
}

}  // namespace plv
