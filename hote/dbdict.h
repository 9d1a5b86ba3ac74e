// Dictionaries, Xrecords and groups.
// Keys of a dictionary compare without regard to case and keep the spelling that they were set with.
#pragma once
#include "hote/dbmain.h"

class AcDbDictionary : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDictionary)
  AcDbDictionary();
  bool has(const ACHAR* key) const;
  Acad::ErrorStatus getAt(const ACHAR* key, AcDbObjectId& id) const;  // eKeyNotFound
  Acad::ErrorStatus getAt(const ACHAR* key, AcDbObject*& object, AcDb::OpenMode mode) const;
  // Stores a new object under the key; the object that was there is erased. The key "*" is replaced by a free name
  // ("*A1"). The object becomes part of the drawing and stays open; the caller closes it.
  Acad::ErrorStatus setAt(const ACHAR* key, AcDbObject* object, AcDbObjectId& id);
  Acad::ErrorStatus remove(const ACHAR* key);  // the object is erased when the dictionary owns it
  Acad::ErrorStatus remove(AcDbObjectId id);
  Acad::ErrorStatus nameAt(AcDbObjectId id, AcString& key) const;
  bool isTreatElementsAsHard() const;
  Acad::ErrorStatus setTreatElementsAsHard(bool hard);
  Adesk::UInt32 numEntries() const;
  AcArray<AcString> keys() const;
};

class AcDbXrecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbXrecord)
  AcDbXrecord();
  // A copy of the chain, which the caller releases. Handles are given as entity names.
  Acad::ErrorStatus rbChain(resbuf** chain, AcDbDatabase* database = nullptr) const;
  Acad::ErrorStatus setFromRbChain(const resbuf& chain, AcDbDatabase* database = nullptr);
  // Empties the record. This is how a chain without items is stored.
  Acad::ErrorStatus clear();
  bool isXlateReferences() const;
  Acad::ErrorStatus setXlateReferences(bool translate);
};

class AcDbGroup : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbGroup)
  AcDbGroup();
  explicit AcDbGroup(const ACHAR* description, bool selectable = true);
  Acad::ErrorStatus append(AcDbObjectId entity);
  Acad::ErrorStatus append(const AcDbObjectIdArray& entities);
  Acad::ErrorStatus remove(AcDbObjectId entity);
  Acad::ErrorStatus clear();
  bool has(const AcDbEntity* entity) const;
  Adesk::UInt32 numEntities() const;
  Adesk::UInt32 allEntityIds(AcDbObjectIdArray& ids) const;  // without the erased ones
  bool isAnonymous() const;
  Acad::ErrorStatus setAnonymous();
  bool isSelectable() const;
  Acad::ErrorStatus setSelectable(bool selectable);
  AcString name() const;
  AcString description() const;
};
