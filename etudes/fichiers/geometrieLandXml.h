// The plan geometry of a LandXML alignment as an axis: lines, arcs, clothoids. And what readers of LandXML share.
#pragma once
#include <map>
#include <optional>
#include <pugixml.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "etudes/surfaces/axe.h"

namespace etu {

// Metres in the file's units.
struct echellesLandXml {
  double longueur = 1, altitude = 1;
};
using pointsNommes = std::map<std::string, point3>;

// A unit of length by its name in any case of letters; none for another word.
std::optional<double> metresParUnite(std::string_view nom);

// Throws `refus`, with the place, for a file that can't be read or isn't XML.
void chargerXml(const std::wstring& chemin, pugi::xml_document& document);
// An element's name without its namespace.
std::string_view nomLocal(const pugi::xml_node& noeud);
// The children of that local name.
template <class Action>
void pourChaque(const pugi::xml_node& parent, std::string_view nom, const Action& action) {
  for (const pugi::xml_node& enfant : parent.children())
    if (nomLocal(enfant) == nom) action(enfant);
}
std::vector<std::string> motsDe(std::string_view texte);
// Throws `refus` for a word that is no number.
std::vector<double> nombresDe(std::string_view texte);
// "northing easting [elevation]" from a place in the numbers on.
point3 pointDe(const std::vector<double>& v, std::size_t place, std::size_t nombre, const echellesLandXml& echelles);

// Clothoids become arcs that keep to them within kFlecheAxe. Throws `refus`, with the number of the element, for one that can't be
// built or doesn't begin where the one before ends.
axePlan axeDeGeometrie(const pugi::xml_node& coordGeom, const pointsNommes& nommes, const echellesLandXml& echelles);

}  // namespace etu
