// The entries of the window's own menus, with the lines that they send to the command line.
#pragma once
#include <span>

namespace atelier::desktop {

struct ActionRow {
  const char* menu;  // title; a row without text is a separator
  const char* text;
  const char* shortcut;  // null: none
  const char* icon;      // null: not in the tool bar
  const char* command;   // lines for the command line, separated by "|"; or "@name": an action of the window itself
};

std::span<const ActionRow> actionRows();

}  // namespace atelier::desktop
