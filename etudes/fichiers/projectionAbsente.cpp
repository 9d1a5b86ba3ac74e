// In place of projection.cpp where PROJ isn't there when the program is built.
#include "etudes/fichiers/projection.h"

namespace etu {

bool projPresente() { return false; }

std::optional<systemeConnu> systemeDe(const std::string&) { return {}; }

passage passageEntre(const std::string& de, const std::string& a) {
  if (de == a) return {};
  throw refus{L"ce programme a été construit sans PROJ, qui passe d'un système de coordonnées à un autre"};
}

std::vector<systemeConnu> systemesPossibles(const etendue&) { return {}; }

}  // namespace etu
