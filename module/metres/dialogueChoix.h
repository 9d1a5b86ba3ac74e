// The general dialog in which the user picks one of a list of texts.
// The choice is the row of the last change of selection.
#pragma once
#include <string>
#include <vector>

namespace plv {

// The index of the chosen text; -1 for a cancel, for OK without a choice, and at once for an empty list.
int choisirDansListe(const std::wstring& invite, const std::vector<std::wstring>& textes);

}  // namespace plv
