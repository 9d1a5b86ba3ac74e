// The first bytes tell XML and what is no text; the rest is asked of the readers.
#include "etudes/fichiers/nature.h"

#include <filesystem>
#include <fstream>
#include <string_view>

#include "etudes/fichiers/landxml.h"
#include "etudes/fichiers/raster.h"
#include "etudes/fichiers/vecteur.h"
#include "module/support/base/lettres.h"

namespace etu {

namespace {

std::string debutDe(const std::wstring& chemin) {
  std::ifstream fichier(plv::nomDeFichier(chemin), std::ios::binary);
  if (!fichier) throw refus{L"lecture impossible: " + chemin};
  std::string debut(4096, '\0');
  fichier.read(debut.data(), static_cast<std::streamsize>(debut.size()));
  debut.resize(static_cast<std::size_t>(fichier.gcount()));
  return debut;
}

// A text of lines that isn't one of those that other formats begin with; UTF-16 has zeros too, but begins with its mark.
bool lignesDeTexte(std::string_view debut) {
  if (debut.starts_with("\xFF\xFE") || debut.starts_with("\xFE\xFF")) return true;
  const std::size_t premier = debut.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
  if (premier == debut.npos) return true;
  if (debut.find('\0') != debut.npos || debut[premier] == '<' || debut[premier] == '{') return false;
  const std::wstring mot = plv::enMinuscules(plv::depuisAnsi(debut.substr(premier, 6)));
  return !mot.starts_with(L"ncols") && !mot.starts_with(L"nrows") && !mot.starts_with(L"north:") &&
         !mot.starts_with(L"dsaa");
}

}  // namespace

nature natureDe(const std::wstring& chemin) {
  std::error_code faute;
  if (std::filesystem::is_directory(plv::nomDeFichier(chemin), faute)) return nature::raster;
  const std::string debut = debutDe(chemin);
  if (debut.find("<LandXML") != debut.npos || debut.find(":LandXML") != debut.npos) return nature::landXml;
  if (lignesDeTexte(debut)) return nature::listePoints;
  if (estRaster(chemin)) return nature::raster;
  if (estVecteur(chemin)) return nature::vecteur;
  throw refus{chemin +
              L": ce fichier n'est ni une liste de points, ni LandXML, GeoJSON, GPX, KML, Shapefile ou GeoPackage, ni "
              L"une grille "
              L"d'altitudes; ou il est abîmé"};
}

std::string systemeDuFichier(const std::wstring& chemin, nature n) {
  if (n == nature::landXml) {
    try {
      return lireLandXml(chemin).systeme;
    } catch (const refus&) {
      return {};  // one with nothing in plan
    }
  }
  if (n == nature::raster) return ouvrirRaster(chemin).systeme;
  return n == nature::vecteur ? lireVecteur(chemin).front().systeme : std::string();
}

}  // namespace etu
