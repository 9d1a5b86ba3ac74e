// What plug-ins ask of the host in words that are ours, because its public classes say it in more words or not at all.
// On another host this header alone is written anew, over that host's own classes.
#pragma once
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

}  // namespace adaptation
