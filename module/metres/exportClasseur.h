// The quantities of profiles as a workbook: a sheet for each profile, with its depth sections and its fixed elements.
// Nothing is said, in success or in failure. A sheet title that the library refuses (a duplicate, a long one) leaves
// that sheet out.
#pragma once
#include <string>

#include "module/metres/TranconProfilEnlong.h"

namespace plv {

// Asks for a path and writes the workbook there; a cancel writes nothing.
void exporterClasseur(const std::vector<poigneeProfil>& profils);

// Writes it under that path (UTF-8): aside first, then in its place, so that a failure leaves no half of a workbook and
// an existing one as it was. The class list is in its plain state. False when it could not be written. Raises the
// invalid-argument failure for a depth section without project pieces.
bool ecrireClasseur(const std::vector<poigneeProfil>& profils, const std::string& chemin);

}  // namespace plv
