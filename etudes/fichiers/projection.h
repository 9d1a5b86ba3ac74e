// Coordinate systems by name or WKT, and points from one to another. PROJ stands behind them, in projection.cpp; a build without it has
// projectionAbsente.cpp. Points go east, north, in degrees where a system is geographic. Altitudes stay as they are.
#pragma once
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "etudes/surfaces/coupeTransformee.h"

namespace etu {

struct systemeConnu {
  std::string code;  // "EPSG:2154"; empty for one that isn't in the register
  std::wstring nom;  // "RGF93 v1 / Lambert-93"
  bool geographique = false;
  std::wstring vertical;  // the name of its vertical system; empty without one
};

// Whether this program was built with PROJ.
bool projPresente();

// None for a text that names no system, and without PROJ.
std::optional<systemeConnu> systemeDe(const std::string& texte);

// From one system to the other; empty when they are the same. Throws `refus` for one that isn't known.
struct passage {
  changement aller, retour;
  bool identique() const { return !aller; }
};
passage passageEntre(const std::string& de, const std::string& a);

// The systems in which coordinates of this extent may well be: those of the usual ones whose area of use holds it.
std::vector<systemeConnu> systemesPossibles(const etendue& e);

}  // namespace etu
