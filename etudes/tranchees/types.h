// What trenches are like: types by their widths, bedding, fills and shoring; surfaces; layers of the ground; where which holds.
// Metres; a depth counts from the ground that is dug to the bottom of the trench.
#pragma once
#include <optional>
#include <string>
#include <vector>

#include "etudes/reseaux/rangees.h"

namespace etu {

// A limit with what holds up to it; the last one of a list may have none.
struct palier {
  std::optional<double> jusque;
  double valeur;
  bool contient(double v) const { return !jusque || v <= *jusque; }
};

// A fill or a layer of a surface; the lowest fill has no thickness and takes what is left.
struct couche {
  std::wstring nom;
  std::optional<double> epaisseur;
  bool reemploi = false;  // of what was dug
};

// Sides lean by `fruit` metres for one of height, above a height over the bottom, where the trench is deeper than a depth.
struct talus {
  double profondeur, fruit, hauteurDroite;
};

// Shoring is due where the trench is deeper, no wider than a part of its depth, and its sides lean less.
struct blindage {
  double profondeur, rapport, fruitAdmis;
};

// The pit of a manhole: how far it reaches beyond the outer wall, the bedding below the bottom slab, the slab.
struct fosse {
  double debord = 0.5, lit = 0, radier = 0;
};

struct typeTranchee {
  std::wstring nom;
  std::vector<palier> parDiametre;    // what the outer diameter is widened by, up to a nominal (inner) diameter
  std::vector<palier> parProfondeur;  // the least width, up to a depth
  double lit = 0, surprofondeur = 0, enrobage = 0;
  std::optional<talus> pente;
  std::optional<blindage> soutien;
  std::vector<couche> remblais;  // downwards from the surface
  fosse regard;
};

struct revetement {
  std::wstring nom;
  std::vector<couche> couches;  // downwards; all have a thickness
};

struct coucheSol {
  std::wstring nom;
  double foisonnement;
};

// Between two stations a type and a surface, by their places in the lists.
struct partie {
  double debut, fin;
  std::size_t type;
  std::optional<std::size_t> revetement;
};

struct reglesTranchees {
  std::wstring sol = L"TN";     // the ground from which is dug
  std::vector<coucheSol> sols;  // the first one reaches from there to the next ground, and so on; at least one
  std::vector<double> classes;  // limits of depth classes, growing
  std::vector<typeTranchee> types;
  std::vector<revetement> revetements;
  std::vector<partie> parties;  // by station, without overlap

  // What holds at a station: its stretch, else the first type and the first surface.
  partie en(double station) const;
  std::size_t nombreDeClasses() const { return classes.size() + 1; }
};

// Throws `refus` with the row at fault.
reglesTranchees lireRegles(const rangees& textes);

}  // namespace etu
