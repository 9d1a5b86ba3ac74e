// LandXML as ground: its surfaces, and the plan geometry of its alignments as axes. In metres, x east; elements are known by their
// local names. Profiles of LandXML are read elsewhere: here is what lies in plan.
#pragma once
#include <string>
#include <vector>

#include "etudes/surfaces/axe.h"
#include "etudes/surfaces/surface.h"

namespace etu {

struct surfaceLandXml {
  std::wstring nom;
  releve contenu;  // faces; without any, points and breaklines
};

struct axeLandXml {
  std::wstring nom;
  double depart = 0;  // station of its first point
  axePlan axe;
};

struct landXmlLu {
  std::vector<surfaceLandXml> surfaces;
  std::vector<axeLandXml> axes;
  std::string systeme;                // "EPSG:2154"; empty when the file doesn't tell
  std::vector<std::wstring> laisses;  // sentences: what couldn't be used, by name
};

// Throws `refus` for a file that isn't LandXML, or that has neither surface nor plan geometry; a faulty surface or alignment is left
// out and told.
landXmlLu lireLandXml(const std::wstring& chemin);

}  // namespace etu
