// What a ground surface is made of, the mesh that it becomes, and what contradicts itself in it.
// Everything here is plain data; triangulation.h makes a mesh of it, coupe.h cuts it.
#pragma once
#include <array>
#include <cstdint>
#include <utility>
#include <vector>

#include "etudes/surfaces/point.h"

namespace etu {

using numero = std::uint32_t;

// Points, breaklines between them, and faces that stand as they are.
struct releve {
  std::vector<point3> points;
  std::vector<std::pair<numero, numero>> segments;  // of breaklines, by the places of their points
  std::vector<std::array<point3, 3>> faces;
};

// Triangles by the places of their points; two that share an edge share both its points.
struct maillage {
  std::vector<point3> points;
  std::vector<std::array<numero, 3>> triangles;
};

enum class desaccord { pointDouble, lignesCroisees, pointSurLigne, facesSuperposees };

// A place with two altitudes.
struct contradiction {
  desaccord quoi;
  double x, y, z1, z2;
};

// Altitudes at one place that differ by no more are the same.
inline constexpr double kMemeAltitude = 1e-3;

// Of each kind of contradiction so many are listed; the others are counted.
struct listeContradictions {
  static constexpr std::size_t kMontrees = 200;
  std::vector<contradiction> montrees;
  std::size_t nombre = 0;

  void ajouter(desaccord quoi, double x, double y, double z1, double z2) {
    if (std::abs(z1 - z2) <= kMemeAltitude) return;
    ++nombre;
    if (montrees.size() < kMontrees) montrees.push_back({quoi, x, y, z1, z2});
  }
};

// Leaves out triangles with an edge, in plan, that is longer.
void retirerLongues(maillage& m, double longueur);

// A mesh of faces as they are; points that are equal become one.
maillage maillageDe(const std::vector<std::array<point3, 3>>& faces);

}  // namespace etu
