// The host's menus: groups, their pull-down menus, and the bar that shows some of them. The application has one set; a
// window draws it, the command MENU lists it and runs its entries. Names compare without regard to case.
#pragma once
#include <deque>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "hote/adaptation.h"

namespace atelier {

class PopupMenu;

class MenuItem final : public adaptation::MenuItem {
 public:
  MenuItem(PopupMenu& menu, std::wstring text, std::wstring commands)
      : label(std::move(text)), macro(std::move(commands)), menu_(menu) {}
  bool remove() override;  // the item is gone afterwards
  bool isSeparator() const { return label.empty(); }
  const std::wstring label, macro;

 private:
  PopupMenu& menu_;
};

class PopupMenu final : public adaptation::PopupMenu {
 public:
  explicit PopupMenu(std::wstring name) : name_(std::move(name)) {}
  std::wstring name() const override { return name_; }
  Adesk::Int32 count() const override { return static_cast<Adesk::Int32>(items_.size()); }
  adaptation::MenuItem* item(Adesk::Int32 index) override;
  bool addItem(Adesk::Int32 index, const wchar_t* label, const wchar_t* macro) override;
  bool addSeparator(Adesk::Int32 index) override;

  const std::vector<std::unique_ptr<MenuItem>>& items() const { return items_; }
  bool inBar = false;

 private:
  friend class MenuItem;
  void insert(Adesk::Int32 index, std::unique_ptr<MenuItem> item);
  const std::wstring name_;
  std::vector<std::unique_ptr<MenuItem>> items_;
};

class PopupMenus final : public adaptation::PopupMenus {
 public:
  Adesk::Int32 count() const override { return static_cast<Adesk::Int32>(menus_.size()); }
  adaptation::PopupMenu* item(Adesk::Int32 index) override;
  adaptation::PopupMenu* add(const wchar_t* name) override;                // null for a name that is there
  bool insertInMenuBar(const wchar_t* name, Adesk::Int32 index) override;  // true also for one that is shown
  bool removeFromMenuBar(const wchar_t* name) override;

 private:
  PopupMenu* named(const wchar_t* name);
  std::deque<PopupMenu> menus_;
};

class MenuGroup final : public adaptation::MenuGroup {
 public:
  explicit MenuGroup(std::wstring name) : name_(std::move(name)) {}
  std::wstring name() const override { return name_; }
  adaptation::PopupMenus* menus() override { return &menus_; }

 private:
  const std::wstring name_;
  PopupMenus menus_;
};

class HostMenus final : public adaptation::MenuGroups {
 public:
  Adesk::Int32 count() const override { return static_cast<Adesk::Int32>(groups_.size()); }
  adaptation::MenuGroup* item(Adesk::Int32 index) override;
  // Null when the file can't be read or names no group. A group with that name that exists already is given.
  adaptation::MenuGroup* load(const wchar_t* path, Adesk::Int32 baseMenu) override;

  // The menus of the bar, from the left.
  const std::vector<PopupMenu*>& bar() const { return bar_; }
  // The item of the bar with that label ("menu/entry", or the entry alone), without regard to case; null when there is
  // none.
  const MenuItem* find(std::wstring_view label) const;
  // Called after each change; there is one listener.
  std::function<void()> onChange;

 private:
  friend class PopupMenus;
  friend class MenuItem;
  friend class PopupMenu;
  void changed() {
    if (onChange) onChange();
  }
  std::deque<MenuGroup> groups_;
  std::vector<PopupMenu*> bar_;
};

HostMenus& hostMenus();

// The lines that a macro sends to the command line. Outside parentheses and quotes a blank or a semicolon is an Enter;
// ^C cancels.
std::vector<std::string> linesOfMacro(std::wstring_view macro);

}  // namespace atelier
