// MENU: lists the pull-down menus that programs have added to the menu bar, and runs their entries without a window.
#include "atelier/base/text.h"
#include "atelier/commands/command_prompts.h"
#include "atelier/commands/command_table.h"
#include "atelier/document/document.h"
#include "atelier/plugin/host_menus.h"

namespace atelier {
namespace {

void list(const Command& c) {
  if (hostMenus().bar().empty()) c.print("\nLa barre de menus est vide.");
  for (const PopupMenu* menu : hostMenus().bar()) {
    c.print("\n" + toUtf8(menu->name()));
    for (const auto& item : menu->items()) c.print(item->isSeparator() ? "\n  --" : "\n  " + toUtf8(item->label));
  }
  c.print("\n");
}

CommandTask menu(Command& c) {
  const auto given = co_await c.line("\nEntrée de menu ou [?] <?>: ");
  const std::string label(trimmed(given.value));
  if (label.empty() || label == "?") {
    list(c);
    co_return;
  }
  const MenuItem* item = hostMenus().find(toWide(label));
  if (!item) c.fail("Aucun menu n'a l'entrée \"" + label + "\".");
  std::string script;
  for (const std::string& line : linesOfMacro(item->macro)) script += line + "\n";
  c.document.scripts.push_back({std::move(script)});
}

constexpr CommandRow kRows[] = {
    {"MENU", "MENUS", menu, "Nomme les menus de la barre de menus, ou exécute une de leurs entrées."},
};

}  // namespace

std::span<const CommandRow> menuCommands() { return kRows; }

}  // namespace atelier
