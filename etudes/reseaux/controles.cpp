// Each check is a function over the placed network.
#include "etudes/reseaux/controles.h"

#include <algorithm>
#include <cmath>

#include "etudes/reseaux/ecoulement.h"

namespace etu {

namespace {

constexpr double kRien = 1e-9;
constexpr double kEcartDeLigne = 0.005;  // metres between a pipe and the line that it was made from

// What holds where a network doesn't say; the second set is for pipes under pressure.
struct usuelles {
  bornes gravitaire, pression;
};
const std::array<usuelles, kNombreLimites> kUsuelles{{{{0.003, 0.10}, {}},         // slope
                                                      {{0.80, {}}, {0.80, {}}},    // cover
                                                      {{{}, 0.80}, {}},            // drop
                                                      {{{}, 80.0}, {}},            // distance of manholes
                                                      {{0.3, 4.0}, {}},            // velocity at a tenth, full
                                                      {{0.20, {}}, {0.20, {}}}}};  // clearance

class controle {
 public:
  controle(const reseauPose& p, const ligneDroites& terrain, const ligneDroites& ligne, bool gravitaire)
      : m_p(p), m_terrain(terrain), m_ligne(ligne), m_gravitaire(gravitaire) {}

  std::vector<avis> faire() {
    for (std::size_t i = 0; i < m_p.tuyaux.size(); ++i) duTuyau(i);
    for (const troncon& t : m_p.troncons) duTroncon(t);
    for (const croisement& c : m_p.r.croisements) duCroisement(c);
    std::ranges::stable_sort(m_avis, {}, &avis::station);
    return std::move(m_avis);
  }

 private:
  bornes bornesDe(limite l) const {
    const auto i = static_cast<std::size_t>(l);
    if (m_p.r.limites[i]) return *m_p.r.limites[i];
    return m_gravitaire ? kUsuelles[i].gravitaire : kUsuelles[i].pression;
  }

  void dire(double station, const std::wstring& texte) { m_avis.push_back({station, texte}); }

  static std::wstring mesure(double valeur, limite l, const wchar_t* unite, int decimales) {
    return enTexte(valeur / uniteLimite(l), decimales) + unite;
  }

  // Tells when a value leaves a limit.
  void tenir(double station, const std::wstring& quoi, double valeur, limite l, const wchar_t* unite, int decimales) {
    const bornes b = bornesDe(l);
    if (b.moindre && valeur < *b.moindre - kRien)
      dire(station, quoi + L" " + mesure(valeur, l, unite, decimales) + L", au moins " +
                        mesure(*b.moindre, l, unite, decimales) + L" attendus");
    if (b.plusGrande && valeur > *b.plusGrande + kRien)
      dire(station, quoi + L" " + mesure(valeur, l, unite, decimales) + L", au plus " +
                        mesure(*b.plusGrande, l, unite, decimales) + L" attendus");
  }

  void duTuyau(std::size_t i) {
    const tuyau& t = m_p.r.tuyaux[i];
    const tuyauPose& pose = m_p.tuyaux[i];
    const std::wstring nom = L"tuyau " + m_p.nomTuyau(i) + L": ";
    tenir(pose.debut, nom + L"pente", std::abs(pose.pente()), kLimitePente, L" %", 3);
    tenir(pose.debut, nom + L"longueur", pose.longueur(), kLimiteEspacement, L" m", 2);
    if (!t.diametre.connu())
      dire(pose.debut, nom + L"sa paroi n'est pas connue, son diamètre extérieur est pris pour l'intérieur");
    couverture(i, nom);
    vitesses(t, pose, nom);
    ecartALaLigne(pose, nom);
  }

  // The least cover over the crown, wherever ground or pipe change.
  void couverture(std::size_t i, const std::wstring& nom) {
    const tuyauPose& pose = m_p.tuyaux[i];
    const diametres& d = m_p.r.tuyaux[i].diametre;
    const double sommet = d.interieur + d.paroi();
    std::optional<avis> moindre;
    double valeur = 0;
    parMorceaux(m_terrain, pose, [&](double x, double ecart) {
      if (moindre && ecart - sommet >= valeur) return;
      valeur = ecart - sommet;
      moindre = avis{x, {}};
    });
    if (moindre) tenir(moindre->station, nom + L"couverture", valeur, kLimiteCouverture, L" m", 2);
  }

  // Calls the action with stations and by how much the line is above the pipe's invert there.
  template <class Action>
  static void parMorceaux(const ligneDroites& ligne, const tuyauPose& pose, const Action& action) {
    std::vector<double> stations{pose.debut, pose.fin};
    ligne.stations(stations);
    std::ranges::sort(stations);
    const auto fin = std::unique(stations.begin(), stations.end());
    for (auto a = std::ranges::lower_bound(stations.begin(), fin, pose.debut); a + 1 < fin && *a < pose.fin; ++a)
      if (const auto z = ligne.sur(*a, a[1])) {
        action(*a, z->a - (pose.zDebut + pose.pente() * (*a - pose.debut)));
        action(a[1], z->b - (pose.zDebut + pose.pente() * (a[1] - pose.debut)));
      }
  }

  void vitesses(const tuyau& t, const tuyauPose& pose, const std::wstring& nom) {
    const bornes b = bornesDe(kLimiteVitesse);
    const ecoulement plein = pleineSection(t.diametre.interieur, pose.pente(), stricklerDe(t));
    const double dixieme = plein.vitesse * vitesseRelative(0.1);
    if (b.moindre && dixieme < *b.moindre - kRien)
      dire(pose.debut, nom + L"vitesse au dixième du débit " + enTexte(dixieme, 2) + L" m/s (débit " +
                           enTexte(plein.debit * 100, 1) + L" l/s), au moins " + enTexte(*b.moindre, 2) + L" attendus");
    if (b.plusGrande && plein.vitesse > *b.plusGrande + kRien)
      dire(pose.debut, nom + L"vitesse à pleine section " + enTexte(plein.vitesse, 2) + L" m/s (débit " +
                           enTexte(plein.debit * 1000, 1) + L" l/s), au plus " + enTexte(*b.plusGrande, 2) +
                           L" attendus");
  }

  void ecartALaLigne(const tuyauPose& pose, const std::wstring& nom) {
    std::optional<avis> plusGrand;
    double valeur = 0;
    parMorceaux(m_ligne, pose, [&](double x, double ecart) {
      if (std::abs(ecart) <= std::max(kEcartDeLigne, std::abs(valeur))) return;
      valeur = ecart;
      plusGrand = avis{x, {}};
    });
    if (plusGrand)
      dire(plusGrand->station, nom + L"la ligne est à " + enTexte(valeur, 3) + L" m du tuyau: un regard y manque");
  }

  void duTroncon(const troncon& t) {
    if (!m_gravitaire) return;
    const bool droite = m_p.versLaDroite(t);
    for (std::size_t i = t.premier; i < t.apres; ++i) {
      const tuyauPose& pose = m_p.tuyaux[i];
      if (droite ? pose.pente() > kRien : pose.pente() < -kRien)
        dire(pose.debut,
             L"tuyau " + m_p.nomTuyau(i) + L": contre-pente de " + enTexte(100 * std::abs(pose.pente()), 3) + L" %");
      if (i + 1 < t.apres) auRegard(i, droite);
    }
  }

  // Between the pipe i and the next one.
  void auRegard(std::size_t i, bool droite) {
    const std::size_t rang = m_p.r.tuyaux[i + 1].de;
    const regardPose& pose = m_p.regards[rang];
    const std::wstring nom = L"regard " + m_p.r.regards[rang].nom + L": ";
    const double chute = droite ? *pose.arrivee - *pose.depart : *pose.depart - *pose.arrivee;
    if (chute < -kRien)
      dire(pose.station, nom + L"le départ est " + enTexte(-chute, 3) + L" m plus haut que l'arrivée");
    else tenir(pose.station, nom + L"chute", chute, kLimiteChute, L" m", 2);
    const diametres &gauche = m_p.r.tuyaux[i].diametre, &aDroite = m_p.r.tuyaux[i + 1].diametre;
    const diametres &amont = droite ? gauche : aDroite, &aval = droite ? aDroite : gauche;
    if (aval.interieur < amont.interieur - kRien)
      dire(pose.station, nom + L"le diamètre diminue vers l'aval, de " + enTexte(amont) + L" à " + enTexte(aval));
  }

  void duCroisement(const croisement& c) {
    for (std::size_t i = 0; i < m_p.tuyaux.size(); ++i) {
      const tuyauPose& pose = m_p.tuyaux[i];
      if (c.station < pose.debut - kRien || c.station >= pose.fin - kRien) continue;
      const diametres& d = m_p.r.tuyaux[i].diametre;
      const double radier = pose.zDebut + pose.pente() * (c.station - pose.debut), bas = radier - d.paroi();
      const double libre =
          std::max(bas - (c.altitude + c.diametre / 2), c.altitude - c.diametre / 2 - (bas + d.exterieur));
      if (libre < -kRien)
        dire(c.station, L"croisement " + c.nom + L": il coupe le tuyau " + m_p.nomTuyau(i) + L", de " +
                            enTexte(-libre, 3) + L" m");
      else
        tenir(c.station, L"croisement " + c.nom + L": distance au tuyau " + m_p.nomTuyau(i), libre, kLimiteCroisement,
              L" m", 3);
    }
  }

  const reseauPose& m_p;
  const ligneDroites &m_terrain, &m_ligne;
  bool m_gravitaire;
  std::vector<avis> m_avis;
};

}  // namespace

std::vector<avis> controler(const reseauPose& p, const ligneDroites& terrain, const ligneDroites& ligne,
                            bool gravitaire) {
  return controle(p, terrain, ligne, gravitaire).faire();
}

}  // namespace etu
