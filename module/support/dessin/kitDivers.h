// The installation folder, the drawing's name, its current space, and a log for debugging.
// None of it writes to the drawing.
#pragma once
#include <string>

#include "hote/adesk.h"

namespace plv {

// The installation folder, asked of the platform at the first call only, without separators at its end; with
// a name, that name after it. The text stays valid until the next call.
const ACHAR* cheminInstallation(const ACHAR* nomFichier = nullptr);
// The drawing's folder and name up to the first "." of the name; empty when a variable can't be read.
std::wstring nomDessinComplet();
// "*Model_Space" or "*Paper_Space": paper only on a layout, outside its viewports.
const ACHAR* espaceCourant();
// A line of `niveau` blanks and the text, in the ANSI code page, at the end of the file "DEBUGINFO.MSG" of the
// current directory. A file that doesn't open loses the message.
void journalDebug(int niveau, const std::wstring& texte);

}  // namespace plv
