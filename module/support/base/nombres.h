// Numbers as text and back, independent of the locale, and the cut of a real to a whole number.
// The module's texts and files all use the decimal point.
#pragma once
#include <string>

#include "hote/adesk.h"

namespace plv {

// The value with that many decimals, as "%.*f" gives it in the C library: rounded on the binary value, half
// to even. A negative number of decimals counts as the six of a bare "%f".
std::wstring texteFixe(double valeur, int decimales);
// Towards zero. What no 32-bit integer holds, nan included, becomes the smallest one, as the processor has
// it.
Adesk::Int32 tronquer32(double valeur);

}  // namespace plv
