// In place of triangulation.cpp where CGAL isn't there when the program is built.
#include "etudes/surfaces/triangulation.h"

namespace etu {

triangulation trianguler(const std::vector<point3>&, const std::vector<std::pair<numero, numero>>&,
                         listeContradictions&) {
  throw refus{
      L"ce programme a été construit sans CGAL, qui fait une surface de points et de lignes; des faces et des "
      L"grilles peuvent être prises"};
}

}  // namespace etu
