// The conversion of a LISP value into XDATA.
// The store side of the keys of "PLV2_DATA".
#pragma once
#include <string>

#include "hote/adesk.h"

namespace plv {

// A new chain of two nodes, the key (1000) and the value; the caller releases it. Reals become 1040, 16-bit
// integers 1070, 32-bit ones 1071, strings 1000, entities 1005 with their handle, nil 1071 with kSansValeur,
// and what has no other encoding (T, lists, points) 1071 with kObjetNul.
resbuf* paireXData(const std::wstring& cle, const resbuf& valeur);

}  // namespace plv
