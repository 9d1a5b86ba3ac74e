// The settings of the module, in the order of their construction, which is that of a new file.
// All of them belong to the six depth classes of a trench and to their hatching.
#pragma once
#include <array>

#include "module/support/reglages/configVariable.h"

namespace plv {

inline constexpr std::size_t kNombreClassesProfondeur = 6;

template <class T>
using reglageParClasse = std::array<Static_ConfigVariable<T>, kNombreClassesProfondeur>;

struct reglages {
  Static_ConfigVariable<Adesk::Int32> transparenceHachures{"Kavels.HatchTransparency", 90};  // percent
  reglageParClasse<double> hauteursMin{{{"Kavels.HauteurMinClasseProfondeur1", 1.0},         // metres, as all below
                                        {"Kavels.HauteurMinClasseProfondeur2", 1.5},
                                        {"Kavels.HauteurMinClasseProfondeur3", 2.0},
                                        {"Kavels.HauteurMinClasseProfondeur4", 3.0},
                                        {"Kavels.HauteurMinClasseProfondeur5", 4.0},
                                        {"Kavels.HauteurMinClasseProfondeur6", 5.0}}};
  reglageParClasse<std::uint8_t> couleurs{{{"Kavels.CoulClasse1", 1},  // index of the palette
                                           {"Kavels.CoulClasse2", 2},
                                           {"Kavels.CoulClasse3", 3},
                                           {"Kavels.CoulClasse4", 4},
                                           {"Kavels.CoulClasse5", 5},
                                           {"Kavels.CoulClasse6", 6}}};
  reglageParClasse<double> largeurs{{{"Kavels.LargeurClasse1", 0.6},
                                     {"Kavels.LargeurClasse2", 0.8},
                                     {"Kavels.LargeurClasse3", 1.0},
                                     {"Kavels.LargeurClasse4", 1.5},
                                     {"Kavels.LargeurClasse5", 2.0},
                                     {"Kavels.LargeurClasse6", 2.0}}};
  reglageParClasse<double> profondeursLit{{{"Kavels.profLitClasse1", 0.0},
                                           {"Kavels.profLitClasse2", 0.0},
                                           {"Kavels.profLitClasse3", 0.0},
                                           {"Kavels.profLitClasse4", 0.0},
                                           {"Kavels.profLitClasse5", 0.0},
                                           {"Kavels.profLitClasse6", 0.0}}};
};

// The one set. The module's static initialisation builds it, so that the file is read before the first message.
inline reglages& reglagesModule() {
  static reglages tous;
  return tous;
}

}  // namespace plv
