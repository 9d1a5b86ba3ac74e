// Fixed elements: the blocks that a profile's report knows, and what it takes from each.
// Block names compare without regard to case, tags of attributes exactly.
#pragma once
#include <string>
#include <vector>

#include "module/metres/TranconProfilEnlong.h"

namespace plv {

struct champElementFixe {
  static constexpr Adesk::Int32 kStation = 0, kAttribut = 1;
  Adesk::Int32 nature;     // the computed station, or an attribute of the block
  std::wstring libelle;    // the column's title
  std::wstring etiquette;  // the attribute's tag
};

struct typeElementFixe {
  Adesk::Int32 id;
  std::wstring nomBloc, libelle, famille;
  std::vector<champElementFixe> champs;
};

const std::vector<typeElementFixe>& typesElementsFixes();

// Reads a block of a known kind. False for any other entity, and for a block that lacks one of its attributes.
bool mesurerElement(const profilLong& profil, AcDbObjectId id, elementFixeMesure& element);

}  // namespace plv
