// What plug-ins ask of the host in words that are ours, because its public classes say it in more words or not at all.
// On another host this header alone is written anew, over that host's own classes.
#pragma once
#include <string>

#include "hote/dbmain.h"
#include "hote/plateforme.h"

class AcDbBlockTableRecord;

namespace adaptation {

// Every entity of the block that is not erased, in drawing order.
AcDbObjectIdArray entityIds(const AcDbBlockTableRecord& block);

// Whether nothing was added to the extents.
inline bool isEmpty(const AcDbExtents& extents) { return extents.minPoint().x > extents.maxPoint().x; }

// The id of the copy that a deep clone made of the source; false when the source was not cloned.
inline bool copyOf(const AcDbIdMapping& mapping, AcDbObjectId source, AcDbObjectId& copy) {
  AcDbIdPair pair(source, AcDbObjectId::kNull, false);
  if (!mapping.compute(pair)) return false;
  copy = pair.value();
  return true;
}

// Reads the string value of a key of the registry. size: on entry the capacity of text in bytes, on return the bytes
// written, closing zero included. Any answer but ERROR_SUCCESS: there is no such value, or the buffer is too small.
long registryString(HKEY root, const wchar_t* key, const wchar_t* value, wchar_t* text, unsigned long* size);

// The part of the host's automation that concerns menus: its menu groups, their pull-down menus and items. The objects belong to
// the host and stay valid until what they stand for is removed. Names compare without regard to case; an operation that fails
// answers false or null.

class MenuItem {
 public:
  virtual bool remove() = 0;  // the object is gone afterwards

 protected:
  ~MenuItem() = default;
};

class PopupMenu {
 public:
  virtual std::wstring name() const = 0;
  virtual Adesk::Int32 count() const = 0;
  virtual MenuItem* item(Adesk::Int32 index) = 0;  // from 0
  // Inserts the item at the index, or at the end when the index is beyond the count. The macro is sent to the command line when
  // the item is chosen; a blank in it is an Enter.
  virtual bool addItem(Adesk::Int32 index, const wchar_t* label, const wchar_t* macro) = 0;
  virtual bool addSeparator(Adesk::Int32 index) = 0;

 protected:
  ~PopupMenu() = default;
};

class PopupMenus {
 public:
  virtual Adesk::Int32 count() const = 0;
  virtual PopupMenu* item(Adesk::Int32 index) = 0;  // from 0
  virtual PopupMenu* add(const wchar_t* name) = 0;
  virtual bool insertInMenuBar(const wchar_t* name, Adesk::Int32 index) = 0;
  virtual bool removeFromMenuBar(const wchar_t* name) = 0;

 protected:
  ~PopupMenus() = default;
};

class MenuGroup {
 public:
  virtual std::wstring name() const = 0;
  virtual PopupMenus* menus() = 0;

 protected:
  ~MenuGroup() = default;
};

class MenuGroups {
 public:
  virtual Adesk::Int32 count() const = 0;
  virtual MenuGroup* item(Adesk::Int32 index) = 0;  // from 0
  // Reads a menu file and makes a group, which its line ***MENUGROUP=name names. Null for a file that can't be read.
  virtual MenuGroup* load(const wchar_t* path, Adesk::Int32 baseMenu) = 0;

 protected:
  ~MenuGroups() = default;
};

// The groups of the host's application object; null for a host without menus.
MenuGroups* menuGroups();

}  // namespace adaptation
