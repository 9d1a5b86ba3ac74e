// The steps of dynamic menus that go through the host's automation.
// A missing group is made from a temporary menu file that names it.
#include "module/support/menus/menusAutomatisation.h"

#include <cstdio>
#include <filesystem>
#include <memory>

#include "hote/adaptation.h"
#include "module/support/base/lettres.h"
#include "module/support/menus/menus.h"

namespace plv {

namespace {

constexpr int kEssaisNom = 0x10000;  // temporary names are four hexadecimal digits

// What trouverGroupe gives: the host's groups, and the one in use unless it is missing and wasn't to be made.
struct groupeTrouve {
  adaptation::MenuGroups* groupes = nullptr;
  adaptation::MenuGroup* groupe = nullptr;
};

adaptation::MenuGroups* groupesHote() {
  static adaptation::MenuGroups* groupes = nullptr;
  if (!groupes) groupes = adaptation::menuGroups();
  return groupes;
}

// A new file of the temporary folder, opened for writing, and its path. Null when none can be made.
std::unique_ptr<std::FILE, int (*)(std::FILE*)> fichierTemporaire(std::filesystem::path& chemin) {
  std::error_code erreur;
  const std::filesystem::path dossier = std::filesystem::temp_directory_path(erreur);
  std::FILE* fichier = nullptr;
  for (int i = 0; !erreur && !fichier && i < kEssaisNom; ++i) {
    char nom[32];
    std::snprintf(nom, sizeof nom, "_TP%04X.tmp.mnu", static_cast<unsigned>(i));
    chemin = dossier / nom;
    fichier = std::fopen(chemin.string().c_str(), "w+x");
  }
  return {fichier, std::fclose};
}

adaptation::MenuGroup* chargerGroupe(adaptation::MenuGroups& groupes, const std::wstring& nom) {
  std::filesystem::path chemin;
  {
    const auto fichier = fichierTemporaire(chemin);
    if (!fichier) return nullptr;
    std::fprintf(fichier.get(), "\n***MENUGROUP=%s\n", versAnsi(nom).c_str());
  }
  return groupes.load(depuisNomDeFichier(chemin.string()).c_str(), groupes.count());
}

bool trouverGroupe(bool creer, groupeTrouve& trouve) {
  adaptation::MenuGroups* groupes = trouve.groupes = groupesHote();
  if (!groupes) return false;
  const std::wstring& nom = groupeMenus();
  for (Adesk::Int32 i = 0; i < groupes->count(); ++i) {
    adaptation::MenuGroup* groupe = groupes->item(i);
    if (groupe && egalSansCasse(groupe->name(), nom)) {
      trouve.groupe = groupe;
      return true;
    }
  }
  if (nom.empty()) return false;
  if (!creer) return true;
  return (trouve.groupe = chargerGroupe(*groupes, nom)) != nullptr;
}

adaptation::PopupMenu* chercherMenu(adaptation::PopupMenus& menus, const std::wstring& nom) {
  for (Adesk::Int32 i = 0; i < menus.count(); ++i) {
    adaptation::PopupMenu* menu = menus.item(i);
    if (menu && egalSansCasse(menu->name(), nom)) return menu;
  }
  return nullptr;
}

// The menus of the group in use; null when there is no group.
adaptation::PopupMenus* menusDuGroupe(bool creer) {
  groupeTrouve trouve;
  return trouverGroupe(creer, trouve) && trouve.groupe ? trouve.groupe->menus() : nullptr;
}

}  // namespace

bool creerMenu(const std::wstring& groupe, const std::wstring& nom) {
  groupeMenus() = groupe;
  adaptation::PopupMenus* menus = menusDuGroupe(true);
  if (!menus) return false;
  const bool nouveau = chercherMenu(*menus, nom) == nullptr;
  if (nouveau && !menus->add(nom.c_str())) return false;
  return menus->insertInMenuBar(nom.c_str(), menus->count() + 1) && nouveau;
}

bool ajouterOption(const std::wstring& nom, const std::wstring& libelle, const std::wstring& macro) {
  adaptation::PopupMenus* menus = menusDuGroupe(true);
  adaptation::PopupMenu* menu = menus ? chercherMenu(*menus, nom) : nullptr;
  return menu && menu->addItem(menu->count() + 1, libelle.c_str(), macro.c_str());
}

bool ajouterSeparateur(const std::wstring& nom) {
  adaptation::PopupMenus* menus = menusDuGroupe(true);
  adaptation::PopupMenu* menu = menus ? chercherMenu(*menus, nom) : nullptr;
  return menu && menu->addSeparator(menu->count() + 1);
}

bool retirerMenu(const std::wstring& nom) {
  adaptation::PopupMenus* menus = menusDuGroupe(false);
  adaptation::PopupMenu* menu = menus ? chercherMenu(*menus, nom) : nullptr;
  if (!menu) return false;
  for (Adesk::Int32 n = menu->count(); n > 0; --n)
    if (adaptation::MenuItem* premier = menu->item(0)) premier->remove();
  return menus->removeFromMenuBar(nom.c_str());
}

}  // namespace plv
