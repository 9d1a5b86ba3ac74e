// Station text: the one formatter of distances along a profile.
// It serves the matrices, the dimensions and the lists.
#pragma once
#include <string>

namespace plv {

// The value (metres) with that many decimals. Format 0: "1250.50", with its sign. 1: "PK 1+250.50"; 2:
// "1+250.50"; any other: "1 250.50". Kept as it is: the kilometre forms drop the sign, and rounding
// doesn't carry over to the kilometres: 1999.999 gives "PK 1+1000.00".
void texteStation(double valeur, std::wstring& texte, int decimales, int format);

}  // namespace plv
