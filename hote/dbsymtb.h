// Symbol tables and their records. Names compare without regard to case.
// Tables are asked for through AcDbDatabase and opened like any object.
#pragma once
#include "hote/dbmain.h"

class AcDbSymbolTableRecord : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTableRecord)
  Acad::ErrorStatus getName(AcString& name) const;
  Acad::ErrorStatus getName(const ACHAR*& name) const = delete;  // allocating form: not offered
  Acad::ErrorStatus setName(const ACHAR* name);

 protected:
  AcDbSymbolTableRecord() = default;
};

class AcDbSymbolTable : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbSymbolTable)
  bool has(const ACHAR* name) const;
  bool has(AcDbObjectId id) const;
  // eKeyNotFound when the table has no such record.
  Acad::ErrorStatus getAt(const ACHAR* name, AcDbObjectId& id, bool erased = false) const;
  // Adds a new record, which stays open; the caller closes it. eDuplicateRecordName when the name is taken.
  Acad::ErrorStatus add(AcDbObjectId& id, AcDbSymbolTableRecord* record);
  Acad::ErrorStatus add(AcDbSymbolTableRecord* record);
  AcDbObjectIdArray ids() const;  // every record that is not erased, in order

 protected:
  AcDbSymbolTable() = default;
};

#define KAVEL_SYMBOL_TABLE(TABLE, RECORD)                                                                         \
  class TABLE : public AcDbSymbolTable {                                                                          \
   public:                                                                                                        \
    ACRX_DECLARE_MEMBERS(TABLE)                                                                                   \
    TABLE() = default;                                                                                            \
    using AcDbSymbolTable::getAt;                                                                                 \
    Acad::ErrorStatus getAt(const ACHAR* name, RECORD*& record, AcDb::OpenMode mode, bool erased = false) const { \
      AcDbObjectId id;                                                                                            \
      const Acad::ErrorStatus status = getAt(name, id, erased);                                                   \
      return status != Acad::eOk ? status : acdbOpenObject(record, id, mode, erased);                             \
    }                                                                                                             \
  };

class AcDbBlockTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbBlockTableRecord)
  AcDbBlockTableRecord();
  // Appends at the end; the entity stays open for write until its maker closes it.
  Acad::ErrorStatus appendAcDbEntity(AcDbEntity* entity);
  Acad::ErrorStatus appendAcDbEntity(AcDbObjectId& id, AcDbEntity* entity);
  AcGePoint3d origin() const;
  Acad::ErrorStatus setOrigin(const AcGePoint3d& origin);
  Acad::ErrorStatus comments(AcString& text) const;
  Acad::ErrorStatus setComments(const ACHAR* text);
  bool isAnonymous() const;
  bool isLayout() const;
  bool hasAttributeDefinitions() const;
};
KAVEL_SYMBOL_TABLE(AcDbBlockTable, AcDbBlockTableRecord)
inline constexpr const ACHAR* ACDB_MODEL_SPACE = L"*Model_Space";
inline constexpr const ACHAR* ACDB_PAPER_SPACE = L"*Paper_Space";

class AcDbLayerTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLayerTableRecord)
  AcDbLayerTableRecord();
  AcCmColor color() const;
  void setColor(const AcCmColor& color);
  bool isOff() const;
  bool isFrozen() const;
  bool isLocked() const;
  void setIsOff(bool off);
  Acad::ErrorStatus setIsFrozen(bool frozen);
  void setIsLocked(bool locked);
  AcDb::LineWeight lineWeight() const;
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);
  AcDbObjectId linetypeObjectId() const;
  void setLinetypeObjectId(AcDbObjectId linetype);
};
KAVEL_SYMBOL_TABLE(AcDbLayerTable, AcDbLayerTableRecord)

class AcDbTextStyleTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbTextStyleTableRecord)
  AcDbTextStyleTableRecord();
  AcString fileName() const;
  Acad::ErrorStatus setFileName(const ACHAR* file);
  double xScale() const;
  Acad::ErrorStatus setXScale(double scale);
  double obliquingAngle() const;  // radians from the upright
  double textSize() const;        // 0: each text has its own height
  Acad::ErrorStatus setTextSize(double size);
};
KAVEL_SYMBOL_TABLE(AcDbTextStyleTable, AcDbTextStyleTableRecord)

class AcDbLinetypeTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbLinetypeTableRecord)
  AcDbLinetypeTableRecord();
  int numDashes() const;
  double dashLengthAt(int index) const;  // negative: a gap; 0: a dot
  double patternLength() const;
};
KAVEL_SYMBOL_TABLE(AcDbLinetypeTable, AcDbLinetypeTableRecord)

class AcDbRegAppTableRecord : public AcDbSymbolTableRecord {
 public:
  ACRX_DECLARE_MEMBERS(AcDbRegAppTableRecord)
  AcDbRegAppTableRecord();
};
KAVEL_SYMBOL_TABLE(AcDbRegAppTable, AcDbRegAppTableRecord)
#undef KAVEL_SYMBOL_TABLE
