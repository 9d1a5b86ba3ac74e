// Xrecords in the extension dictionary of an object: where the module keeps what XDATA is too small for.
// References in them follow a deep clone.
#pragma once
#include "hote/dbdict.h"

namespace plv {

// Writes the chain (null: an empty record) under the key, in place of a record of that key; makes the
// extension dictionary when it is missing. The chain stays the caller's. False when something doesn't open.
bool ecrireXrecord(AcDbObjectId objet, const ACHAR* cle, const resbuf* chaine);
// A new chain that the caller releases; null for an invalid id, and without dictionary, key or items.
resbuf* lireXrecord(AcDbObjectId objet, const ACHAR* cle);

}  // namespace plv
