// Depth classes: bands of trench depth, each with an excavation width, a bedding depth and a colour.
// One list serves the whole module; the first six classes are kept in the settings. The class number k of a depth
// section stands for the list's entry k-1: 0 is not buried, the list's count and above is deeper than all classes.
#pragma once
#include <deque>
#include <string>

#include "hote/adesk.h"
#include "module/profil/grandeurs.h"

namespace plv {

struct classeProfondeur {
  double debut = 0;  // lower limit of the depth, metres, excluded
  double fin = 0;    // upper limit, included
  double profLit = 0;
  double largeur = 0;
  Adesk::Int32 couleur = 0;  // index of the palette
};

// Sorted by `debut`, after any insertion.
using classesProfondeur = std::deque<classeProfondeur>;

// The list of the module, filled from the settings at the first call.
classesProfondeur& listeClasses();

// From the settings: negative heights, widths and bedding depths are made positive there first. Throws what a setting
// throws whose file can't be written; so does sauverClasses.
void chargerClasses(classesProfondeur& liste);
// Only the first six classes, and of their limits only `fin`: a gap in the list closes at the next loading.
void sauverClasses(const classesProfondeur& liste);

// Puts the class in and cuts what it overlaps. Limits in the wrong order are exchanged in the class that is given; one
// shorter than 0.01 is refused without a word.
void insererClasse(classesProfondeur& liste, classeProfondeur& classe);
// An index outside the list is ignored.
void supprimerClasse(classesProfondeur& liste, std::ptrdiff_t index);

// While one lives, the list has a class for any depth: not buried as the first one, deeper than all as the last one.
class gardeClassesExtremes {
 public:
  explicit gardeClassesExtremes(classesProfondeur& liste);
  ~gardeClassesExtremes();
  gardeClassesExtremes(const gardeClassesExtremes&) = delete;
  gardeClassesExtremes& operator=(const gardeClassesExtremes&) = delete;

 private:
  classesProfondeur& m_liste;
  std::size_t m_place;  // of the last one
};

// A depth this near to a limit is the limit: depths are differences of drawn altitudes, and a trench of constant depth lies on
// one side of it here and on the other there by their rounding alone.
inline constexpr double kMemeProfondeur = 1e-8;  // metres
bool estSurLimite(profondeurFouille profondeur, profondeurFouille limite);
// The first class with debut < depth <= fin, else the last one; -1 for an empty list.
Adesk::Int32 classeDeProfondeur(const classesProfondeur& liste, profondeurFouille profondeur);

// Limits by index: 1e36 and 0 for an index outside the list.
profondeurFouille finDeClasse(const classesProfondeur& liste, std::ptrdiff_t index);
profondeurFouille debutDeClasse(const classesProfondeur& liste, std::ptrdiff_t index);
// What a depth section of that class number is called in reports. Kept as it is: the last class is called like what
// lies deeper than it.
std::wstring libelleClasse(const classesProfondeur& liste, Adesk::Int32 numero);

}  // namespace plv
