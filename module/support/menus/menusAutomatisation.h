// The steps of dynamic menus that go through the host's automation.
// Each gives false, in silence, when the host has no menus or refuses.
#pragma once
#include <string>

namespace plv {

// Makes the menu in the group, which becomes the one in use and is itself made when it is missing, and puts
// it at the end of the menu bar. Kept as it is: false for a menu that is there already, which is put in the bar all the
// same.
bool creerMenu(const std::wstring& groupe, const std::wstring& nom);
// At the end of a menu of the group in use.
bool ajouterOption(const std::wstring& nom, const std::wstring& libelle, const std::wstring& macro);
bool ajouterSeparateur(const std::wstring& nom);
// Empties the menu and takes it out of the menu bar.
bool retirerMenu(const std::wstring& nom);

}  // namespace plv
