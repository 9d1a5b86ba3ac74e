// Menu groups come from menu files, of which only the line with the group's name is read; applications make the menus
// through the automation.
// Reference: the host's menu files, "***MENUGROUP".
#include "atelier/plugin/host_menus.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <utility>

#include "atelier/base/text.h"

namespace atelier {
namespace {

bool sameName(std::wstring_view a, std::wstring_view b) { return equalNoCase(toUtf8(a), toUtf8(b)); }

std::wstring groupNamedIn(const std::string& path) {
  std::ifstream in(path, std::ios::binary);
  constexpr std::string_view kMark = "***MENUGROUP=";
  for (std::string line; std::getline(in, line);)
    if (const std::string_view text = trimmed(line); equalNoCase(text.substr(0, kMark.size()), kMark)) {
      const std::string name(trimmed(text.substr(kMark.size())));
      return toWide(isValidUtf8(name) ? name : CodePage::named("ANSI_1252").decode(name));
    }
  return {};
}

// A menu file that a plug-in made in the temporary folder to name a group has done its work once it is read.
void removeTemporary(const std::filesystem::path& file) {
  std::error_code error;
  const auto folder = std::filesystem::temp_directory_path(error);
  if (!error && file.extension() == ".mnu" && file.filename().string().starts_with("_TP") &&
      std::filesystem::equivalent(file.parent_path(), folder, error))
    std::filesystem::remove(file, error);
}

template <class List>
auto* at(List& list, Adesk::Int32 index) {
  return index >= 0 && static_cast<std::size_t>(index) < list.size() ? &list[static_cast<std::size_t>(index)] : nullptr;
}

}  // namespace

HostMenus& hostMenus() {
  static HostMenus menus;
  return menus;
}

bool MenuItem::remove() {
  auto& items = menu_.items_;
  const auto self = std::find_if(items.begin(), items.end(), [this](const auto& item) { return item.get() == this; });
  if (self == items.end()) return false;
  items.erase(self);  // destroys this object
  hostMenus().changed();
  return true;
}

adaptation::MenuItem* PopupMenu::item(Adesk::Int32 index) {
  auto* item = at(items_, index);
  return item ? item->get() : nullptr;
}
void PopupMenu::insert(Adesk::Int32 index, std::unique_ptr<MenuItem> item) {
  const auto place = std::clamp<std::ptrdiff_t>(index, 0, static_cast<std::ptrdiff_t>(items_.size()));
  items_.insert(items_.begin() + place, std::move(item));
  hostMenus().changed();
}
bool PopupMenu::addItem(Adesk::Int32 index, const wchar_t* label, const wchar_t* macro) {
  if (!label || !*label || !macro) return false;
  insert(index, std::make_unique<MenuItem>(*this, label, macro));
  return true;
}
bool PopupMenu::addSeparator(Adesk::Int32 index) {
  insert(index, std::make_unique<MenuItem>(*this, L"", L""));
  return true;
}

PopupMenu* PopupMenus::named(const wchar_t* name) {
  if (!name) return nullptr;
  const auto found =
      std::find_if(menus_.begin(), menus_.end(), [&](const PopupMenu& menu) { return sameName(menu.name(), name); });
  return found == menus_.end() ? nullptr : &*found;
}
adaptation::PopupMenu* PopupMenus::item(Adesk::Int32 index) { return at(menus_, index); }
adaptation::PopupMenu* PopupMenus::add(const wchar_t* name) {
  if (!name || !*name || named(name)) return nullptr;
  return &menus_.emplace_back(name);
}
bool PopupMenus::insertInMenuBar(const wchar_t* name, Adesk::Int32 index) {
  PopupMenu* menu = named(name);
  if (!menu) return false;
  if (menu->inBar) return true;
  auto& bar = hostMenus().bar_;
  bar.insert(bar.begin() + std::clamp<std::ptrdiff_t>(index, 0, static_cast<std::ptrdiff_t>(bar.size())), menu);
  menu->inBar = true;
  hostMenus().changed();
  return true;
}
bool PopupMenus::removeFromMenuBar(const wchar_t* name) {
  PopupMenu* menu = named(name);
  if (!menu || !menu->inBar) return false;
  std::erase(hostMenus().bar_, menu);
  menu->inBar = false;
  hostMenus().changed();
  return true;
}

adaptation::MenuGroup* HostMenus::item(Adesk::Int32 index) { return at(groups_, index); }
adaptation::MenuGroup* HostMenus::load(const wchar_t* path, Adesk::Int32) {
  const std::string file = path ? toUtf8(path) : std::string();
  const std::wstring name = groupNamedIn(file);
  removeTemporary(file);
  if (name.empty()) return nullptr;
  for (MenuGroup& group : groups_)
    if (sameName(group.name(), name)) return &group;
  return &groups_.emplace_back(name);
}

const MenuItem* HostMenus::find(std::wstring_view label) const {
  const std::size_t slash = label.find(L'/');
  for (const PopupMenu* menu : bar_)
    for (const auto& item : menu->items()) {
      if (item->isSeparator()) continue;
      if (sameName(item->label, label)) return item.get();
      if (slash != label.npos && sameName(menu->name(), label.substr(0, slash)) &&
          sameName(item->label, label.substr(slash + 1)))
        return item.get();
    }
  return nullptr;
}

std::vector<std::string> linesOfMacro(std::wstring_view macro) {
  std::vector<std::string> lines;
  std::string line;
  int depth = 0;
  bool quoted = false;
  const std::string text = toUtf8(macro);
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (c == '^' && i + 1 < text.size() && (text[i + 1] == 'C' || text[i + 1] == 'c')) {
      ++i;  // at the start of a macro nothing is running
      continue;
    }
    if (c == '"' && (i == 0 || text[i - 1] != '\\')) quoted = !quoted;
    if (!quoted && c == '(') ++depth;
    if (!quoted && c == ')') --depth;
    if (!quoted && depth <= 0 && (c == ' ' || c == ';' || c == '\n')) {
      lines.push_back(std::exchange(line, {}));
      continue;
    }
    line += c;
  }
  if (!line.empty()) lines.push_back(std::move(line));
  return lines;
}

}  // namespace atelier

adaptation::MenuGroups* adaptation::menuGroups() { return &atelier::hostMenus(); }
