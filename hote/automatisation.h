// The part of the host's automation that concerns menus: the application, its menu groups, their pull-down menus
// and items. The interfaces belong to the host and stay valid until the object that they stand for is removed.
// Names compare without regard to case; an operation that fails answers false or null.
#pragma once
#include "hote/acstring.h"

class IAcadPopupMenuItem {
 public:
  virtual bool Delete() = 0;

 protected:
  ~IAcadPopupMenuItem() = default;
};

class IAcadPopupMenu {
 public:
  virtual AcString Name() const = 0;
  virtual Adesk::Int32 Count() const = 0;
  virtual IAcadPopupMenuItem* Item(Adesk::Int32 index) = 0;  // from 0
  // Inserts the item at the index, or at the end when the index is beyond the count. The macro is sent to the
  // command line when the item is chosen; a blank in it is an Enter.
  virtual bool AddMenuItem(Adesk::Int32 index, const ACHAR* label, const ACHAR* macro) = 0;
  virtual bool AddSeparator(Adesk::Int32 index) = 0;

 protected:
  ~IAcadPopupMenu() = default;
};

class IAcadPopupMenus {
 public:
  virtual Adesk::Int32 Count() const = 0;
  virtual IAcadPopupMenu* Item(Adesk::Int32 index) = 0;  // from 0
  virtual IAcadPopupMenu* Add(const ACHAR* name) = 0;
  virtual bool InsertMenuInMenuBar(const ACHAR* name, Adesk::Int32 index) = 0;
  virtual bool RemoveMenuFromMenuBar(const ACHAR* name) = 0;

 protected:
  ~IAcadPopupMenus() = default;
};

class IAcadMenuGroup {
 public:
  virtual AcString Name() const = 0;
  virtual IAcadPopupMenus* Menus() = 0;

 protected:
  ~IAcadMenuGroup() = default;
};

class IAcadMenuGroups {
 public:
  virtual Adesk::Int32 Count() const = 0;
  virtual IAcadMenuGroup* Item(Adesk::Int32 index) = 0;  // from 0
  // Reads a menu file and makes a group, which its line ***MENUGROUP=name names. Null for a file that can't be read.
  virtual IAcadMenuGroup* Load(const ACHAR* path, Adesk::Int32 baseMenu) = 0;

 protected:
  ~IAcadMenuGroups() = default;
};

class IAcadApplication {
 public:
  virtual IAcadMenuGroups* MenuGroups() = 0;

 protected:
  ~IAcadApplication() = default;
};

// The host's application object; null for a host without menus.
IAcadApplication* AcadGetIDispatch(bool addReference);
