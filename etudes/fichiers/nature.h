// What a file is, by its content; its name says nothing.
#pragma once
#include <string>

namespace etu {

enum class nature { listePoints, raster, vecteur, landXml };

// A point list costs no look into GDAL. Throws `refus` for a file that can't be read, and for one whose reader this program lacks.
nature natureDe(const std::wstring& chemin);

// The coordinate system that the file itself tells, as WKT; empty without one.
std::string systemeDuFichier(const std::wstring& chemin, nature n);

}  // namespace etu
