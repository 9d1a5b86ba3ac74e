// A shortest path from manhole to manhole over levels (Duque, Duque and Saldarriaga 2016, Journal of Hydroinformatics 18(5)):
// what comes to a level at a place is the least of all runs that end there, and a manhole passes it on to the same
// level, to a lower one by a drop, to a higher one by pumping. All runs of all slopes are looked at; nothing is left out.
#pragma once
#include <functional>
#include <limits>
#include <vector>

#include "etudes/cout/places.h"

namespace etu {

inline constexpr double kSans = std::numeric_limits<double>::infinity();

struct regardTrouve {
  double distance, sol, entree, sortie;  // the line's altitude on its left and on its right
};
// How far lines come where none arrives: the last place that one reaches, and the next one.
struct impasse {
  double atteinte, suivante;
};

// The levels to look at: how far apart, and between which altitudes at each place (none given: wherever the corridor is). With a
// margin, half a step, a level stands for all altitudes around it, and what is found is a bound for them. Levels may follow
// a limit of slopes from place to place: a line that keeps to it goes from level to level without loss, where it would
// else gain or lose up to a step in each run.
enum class limiteSuivie { aucune, moindre, plusGrande };
struct filet {
  finesse mailles;
  limiteSuivie suit = limiteSuivie::aucune;
  std::vector<limites> altitudes{};
};

// The costs of arriving at and of leaving each level of a place, where they come from, and what is left to pay.
struct etat {
  echelle niveaux;
  std::vector<double> arrivee, depart;
  std::vector<int> place, niveau;  // of each arrival
  std::vector<int> arrive;         // of each departure
  std::vector<double> resteArrivee, resteDepart;
};

class chemin {
 public:
  chemin(const etude& e, const tarif& t, filet f);
  // Whether a line arrives; `ou` tells how far lines come.
  bool chercher();
  // How many runs are looked at, about.
  double travail() const;
  double cout() const;
  impasse ou() const { return m_ou; }
  std::vector<regardTrouve> regards() const;
  // The altitudes at each place of which lines that cost no more may make use. After `chercher`.
  std::vector<limites> altitudesJusque(double cout);

 private:
  double penteSuivie() const;
  double coutRegard(const place& p, double bas) const;
  double altitude(const etat& e, int niveau) const { return e.niveaux.altitude(niveau, m_filet.mailles.pas); }
  double fond(std::size_t rang, std::size_t niveau) const;  // what a manhole costs whose bottom is at a level
  bool dans(const limites& l, double z) const;
  bool change(std::size_t rang) const;  // whether water may fall or be pumped there
  using vuDesTroncons = std::function<void(const couts::resultat& trouve, int ecart)>;
  void parcourir(std::size_t gauche, std::size_t droite, const vuDesTroncons& vu) const;
  void relier(std::size_t gauche, std::size_t droite);
  void traverser(std::size_t rang);
  void tomber(std::size_t rang);
  void pomper(std::size_t rang);
  void resterApres(std::size_t rang);
  void resterAvant(std::size_t rang);
  void resterParChute(std::size_t rang);
  void resterParPompage(std::size_t rang);

  const etude& m_etude;
  const tarif& m_tarif;
  prixParProfondeur m_prix;
  filet m_filet;
  pentes m_pentes{-kSans, kSans};
  bool m_coule = false, m_versLaDroite = false;
  std::vector<etat> m_etats;
  impasse m_ou{};
};

}  // namespace etu
