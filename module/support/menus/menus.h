// Dynamic menus: pull-down menus that the front-end adds to the host's menu bar, and the menu of the chosen
// profile. All of it goes through the host's automation; without it nothing shows, and the functions give
// nil.
#pragma once
#include <string>
#include <vector>

#include "module/matrices/gestionMatrices.h"

namespace plv {

// The group that menus attach to, when nothing else was asked for.
inline constexpr const wchar_t* kGroupeMenus = L"VARDANE4";

// One entry of a menu; without a label it is a separator. The macro is what the command line receives.
struct entreeMenu {
  std::wstring libelle;
  std::wstring macro;
};

// The process-wide state of menus, made at the first call: the name of the group in use first, the ordered
// set of dynamic menus and the name of the last profile menu later.
std::wstring& groupeMenus();
void amorcerMenusDynamiques();

// The entries of the menu of a profile: one for each row of each matrix, then the fixed ones.
std::vector<entreeMenu> entreesMenuProfil(const gestionMatrices& collection);
// Takes away the previous profile menu and, for a collection with matrices, makes the one of this kind of
// profile.
void placerMenuProfil(const std::wstring& groupe, const std::wstring& genre);
// All menus of the set; the set is empty afterwards.
void retirerMenusDynamiques();

// The functions that LISP calls: (group menu), (menu), (menu label macro), (menu), (group kind), (), (ename).
void pl_CreeMenu();
void pl_AddSep();
void pl_AddOptionMenu();
void pl_RemoveMenu();
void pl_PlacerMenusKavel();
void pl_RemoveDynMnus();
void pl_ChoixProfil();

}  // namespace plv
