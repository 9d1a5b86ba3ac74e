// Objects, entities, curves and databases, and the rules by which they are opened and closed.
// An open object belongs to its drawing; a new one belongs to its maker until it is added to a container.
#pragma once
#include "hote/acstring.h"
#include "hote/dbid.h"
#include "hote/gecurve.h"
#include "hote/rxobject.h"

class AcDbImpObject;
class AcDbDatabase;
class AcDbDictionary;
class AcDbIdMapping;

namespace AcDb {
// A weight is one of these names or hundredths of a millimetre; a fixed underlying type holds any value of a file.
enum OpenMode { kForRead = 0, kForWrite = 1, kForNotify = 2 };
enum TextHorzMode : int { kTextLeft = 0, kTextCenter = 1, kTextRight = 2, kTextAlign = 3, kTextMid = 4, kTextFit = 5 };
enum TextVertMode : int { kTextBase = 0, kTextBottom = 1, kTextVertMid = 2, kTextTop = 3 };
enum Visibility : int { kInvisible = 1, kVisible = 0 };
enum LineWeight : int { kLnWtByLayer = -1, kLnWtByBlock = -2, kLnWtByLwDefault = -3 };
enum DeepCloneType {
  kDcCopy = 0,
  kDcExplode = 1,
  kDcBlock = 2,
  kDcXrefBind = 3,
  kDcInsert = 6,
  kDcWblock = 7,
  kDcObjects = 8
};
enum Poly2dType : int { k2dSimplePoly = 0, k2dFitCurvePoly, k2dQuadSplinePoly, k2dCubicSplinePoly };
enum Vertex2dType : int { k2dVertex = 0, k2dSplineCtlVertex = 1, k2dSplineFitVertex = 2, k2dCurveFitVertex = 3 };
enum Poly3dType : int { k3dSimplePoly = 0, k3dQuadSplinePoly, k3dCubicSplinePoly };
enum Intersect { kOnBothOperands = 0, kExtendThis = 1, kExtendArg = 2, kExtendBoth = 3 };
enum DuplicateRecordCloning { kDrcNotApplicable = 0, kDrcIgnore = 1, kDrcReplace = 2 };
}  // namespace AcDb

class AcDbExtents {
 public:
  AcDbExtents();  // empty: the minimum above the maximum
  AcDbExtents(const AcGePoint3d& low, const AcGePoint3d& high) : mMin(low), mMax(high) {}
  const AcGePoint3d& minPoint() const { return mMin; }
  const AcGePoint3d& maxPoint() const { return mMax; }
  Acad::ErrorStatus set(const AcGePoint3d& low, const AcGePoint3d& high);
  void addPoint(const AcGePoint3d& point);
  void addExt(const AcDbExtents& other);
  void transformBy(const AcGeMatrix3d& matrix);

 private:
  AcGePoint3d mMin, mMax;
};

// A colour index: 0 by block, 256 by layer, 1 to 255 the palette.
class AcCmColor {
 public:
  AcCmColor() = default;
  Adesk::UInt16 colorIndex() const { return mIndex; }
  Acad::ErrorStatus setColorIndex(Adesk::UInt16 index) {
    mIndex = index;
    return Acad::eOk;
  }
  bool isByLayer() const { return mIndex == 256; }
  bool isByBlock() const { return mIndex == 0; }

 private:
  Adesk::UInt16 mIndex = 256;
};

// An entity's transparency as an alpha, from 0 (clear) to 255 (opaque).
class AcCmTransparency {
 public:
  explicit AcCmTransparency(Adesk::UInt8 alpha = 255) : mAlpha(alpha) {}
  Adesk::UInt8 alpha() const { return mAlpha; }

 private:
  Adesk::UInt8 mAlpha;
};

class AcDbObject : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbObject)
  ~AcDbObject() override;

  AcDbObjectId objectId() const;
  AcDbObjectId id() const { return objectId(); }
  AcDbObjectId ownerId() const;
  Acad::ErrorStatus setOwnerId(AcDbObjectId owner);
  void getAcDbHandle(AcDbHandle& handle) const;
  AcDbDatabase* database() const;

  // Ends one opening. Answers eNotOpenForRead and does nothing for an object that is in no database.
  Acad::ErrorStatus close();
  Acad::ErrorStatus erase(bool erasing = true);
  // Puts newObject in this object's place: it takes over id, handle, owner and, if asked, XDATA and extension
  // dictionary. This object then is in no database and belongs to the caller: the answer is eObjectToBeDeleted.
  Acad::ErrorStatus handOverTo(AcDbObject* newObject, bool keepXData = true, bool keepExtDict = true);
  Acad::ErrorStatus upgradeOpen();
  Acad::ErrorStatus downgradeOpen();
  bool isErased() const;
  bool isModified() const;
  bool isReadEnabled() const;
  bool isWriteEnabled() const;
  bool isNewObject() const;

  // The chain of one application's data, or of all applications for a null name; its first node is a group 1001. The
  // caller releases it. Null when there is none.
  virtual resbuf* xData(const ACHAR* application = nullptr) const;
  // Replaces the data of every application that the chain names; a 1001 followed by nothing removes that application's.
  // The chain is copied.
  // eRegappIdNotFound when an application is not registered, eInvalidDxfCode for a group that XDATA can't hold.
  virtual Acad::ErrorStatus setXData(const resbuf* chain);

  AcDbObjectId extensionDictionary() const;
  Acad::ErrorStatus createExtensionDictionary();  // eAlreadyInDb when there is one
  Acad::ErrorStatus releaseExtensionDictionary();
  Acad::ErrorStatus addPersistentReactor(AcDbObjectId reactor);
  Acad::ErrorStatus removePersistentReactor(AcDbObjectId reactor);
  bool hasPersistentReactor(AcDbObjectId reactor) const;

  // A copy that is in no database; the caller owns it.
  virtual AcRxObject* clone() const;

  AcDbImpObject* impObject() const { return mpImpObject; }

 protected:
  AcDbObject();
  AcDbImpObject* mpImpObject;

 private:
  friend class AcDbImpObject;
};

class AcDbEntity : public AcDbObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbEntity)

  AcDbObjectId blockId() const { return ownerId(); }
  Adesk::UInt16 colorIndex() const;
  virtual Acad::ErrorStatus setColorIndex(Adesk::UInt16 color, bool doSubents = true);
  AcCmColor color() const;
  ACHAR* layer() const;  // the caller frees it with acutDelString
  Acad::ErrorStatus layer(AcString& name) const;
  AcDbObjectId layerId() const;
  // The layer must exist: eKeyNotFound otherwise.
  virtual Acad::ErrorStatus setLayer(const ACHAR* name, bool doSubents = true);
  virtual Acad::ErrorStatus setLayer(AcDbObjectId layer, bool doSubents = true);
  AcString linetypeName() const;
  Acad::ErrorStatus setLinetype(const ACHAR* name);
  double linetypeScale() const;
  Acad::ErrorStatus setLinetypeScale(double scale);
  AcDb::LineWeight lineWeight() const;
  Acad::ErrorStatus setLineWeight(AcDb::LineWeight weight);  // hundredths of a millimetre or one of the names
  AcDb::Visibility visibility() const;
  Acad::ErrorStatus setVisibility(AcDb::Visibility visibility);
  // 0 opaque to 90 percent transparent; -1 by layer.
  int transparencyPercent() const;
  Acad::ErrorStatus setTransparencyPercent(int percent);
  Acad::ErrorStatus setTransparency(const AcCmTransparency& transparency, bool doSubents = true);
  Acad::ErrorStatus setPropertiesFrom(const AcDbEntity* source, bool doSubents = true);
  void setDatabaseDefaults(AcDbDatabase* database = nullptr);

  // In world coordinates. eInvalidExtents, with the extents as they were, for an entity without geometry and for one whose
  // coordinates aren't finite.
  Acad::ErrorStatus getGeomExtents(AcDbExtents& extents) const;
  // What a class says of its geometry; asked through getGeomExtents.
  virtual Acad::ErrorStatus subGetGeomExtents(AcDbExtents& extents) const;
  virtual Acad::ErrorStatus transformBy(const AcGeMatrix3d& matrix);
  // Appends the points where the two meet, ordered along this one. With a plane both are projected along its normal,
  // and the points given are those of this entity. eNotApplicable unless both are curves.
  virtual Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, AcGePoint3dArray& points,
                                          Adesk::GsMarker thisMarker = 0, Adesk::GsMarker otherMarker = 0) const;
  virtual Acad::ErrorStatus intersectWith(const AcDbEntity* entity, AcDb::Intersect mode, const AcGePlane& plane,
                                          AcGePoint3dArray& points, Adesk::GsMarker thisMarker = 0,
                                          Adesk::GsMarker otherMarker = 0) const;
  // Appends new entities, which the caller owns. eNotApplicable for an entity that can't be exploded.
  virtual Acad::ErrorStatus explode(AcArray<AcRxObject*>& parts) const;
  Acad::ErrorStatus highlight() const;
  Acad::ErrorStatus unhighlight() const;

 protected:
  AcDbEntity() = default;
};

// Every opening that answers eOk must be closed once. An object has several readers or one writer: eWasOpenForWrite
// and eWasOpenForRead say why it can't be opened; eWasErased that it is erased, unless openErased is true.
Acad::ErrorStatus acdbOpenObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode, bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbObject(AcDbObject*& object, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);
Acad::ErrorStatus acdbOpenAcDbEntity(AcDbEntity*& entity, AcDbObjectId id, AcDb::OpenMode mode,
                                     bool openErased = false);

// eNotThatKindOfClass when the object is of another class; it is then closed again.
template <class T>
Acad::ErrorStatus acdbOpenObject(T*& object, AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead,
                                 bool openErased = false) {
  object = nullptr;
  AcDbObject* opened = nullptr;
  const Acad::ErrorStatus status = acdbOpenObject(opened, id, mode, openErased);
  if (status != Acad::eOk) return status;
  object = T::cast(opened);
  if (object) return Acad::eOk;
  opened->close();
  return Acad::eNotThatKindOfClass;
}

// Opens in its constructor and closes in its destructor.
template <class T>
class AcDbObjectPointer {
 public:
  AcDbObjectPointer() = default;
  explicit AcDbObjectPointer(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    mStatus = acdbOpenObject(mObject, id, mode, openErased);
  }
  ~AcDbObjectPointer() { close(); }
  AcDbObjectPointer(const AcDbObjectPointer&) = delete;
  AcDbObjectPointer& operator=(const AcDbObjectPointer&) = delete;
  Acad::ErrorStatus openStatus() const { return mStatus; }
  Acad::ErrorStatus open(AcDbObjectId id, AcDb::OpenMode mode = AcDb::kForRead, bool openErased = false) {
    close();
    return mStatus = acdbOpenObject(mObject, id, mode, openErased);
  }
  Acad::ErrorStatus close() {
    if (!mObject) return mStatus;
    const Acad::ErrorStatus status = mObject->close();
    mObject = nullptr;
    mStatus = Acad::eNullObjectPointer;
    return status;
  }
  T* object() const { return mObject; }
  T* operator->() const { return mObject; }
  T& operator*() const { return *mObject; }
  operator T*() const { return mObject; }

 private:
  T* mObject = nullptr;
  Acad::ErrorStatus mStatus = Acad::eNullObjectPointer;
};
using AcDbEntityPointer = AcDbObjectPointer<AcDbEntity>;

class AcDbIdPair {
 public:
  AcDbIdPair() = default;
  AcDbIdPair(const AcDbObjectId& key, const AcDbObjectId& value, bool isCloned)
      : mKey(key), mValue(value), mCloned(isCloned) {}
  AcDbObjectId key() const { return mKey; }
  AcDbObjectId value() const { return mValue; }
  bool isCloned() const { return mCloned; }

 private:
  AcDbObjectId mKey, mValue;
  bool mCloned = false;
};

// Pairs of a source id and the id of its copy, filled by a deep clone.
class AcDbIdMapping {
 public:
  AcDbIdMapping();
  ~AcDbIdMapping();
  AcDbIdMapping(const AcDbIdMapping&) = delete;
  AcDbIdMapping& operator=(const AcDbIdMapping&) = delete;
  bool assign(const AcDbIdPair& pair);
  bool compute(AcDbIdPair& pair) const;  // looks for the pair's key; false when that was not cloned

 private:
  struct Pairs;
  Pairs* mPairs;
};

class AcDbImpDatabase;

class AcDbDatabase : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbDatabase)
  // With buildDefaultDrawing it has the tables, layouts and styles of a new drawing; without, it awaits readDwgFile.
  explicit AcDbDatabase(bool buildDefaultDrawing = true, bool noDocument = false);
  ~AcDbDatabase() override;

  AcDbObjectId blockTableId() const;
  AcDbObjectId layerTableId() const;
  AcDbObjectId textStyleTableId() const;
  AcDbObjectId linetypeTableId() const;
  AcDbObjectId regAppTableId() const;
  AcDbObjectId namedObjectsDictionaryId() const;
  AcDbObjectId groupDictionaryId() const;
  AcDbObjectId currentSpaceId() const;
  AcDbObjectId textstyle() const;
  Acad::ErrorStatus setTextstyle(AcDbObjectId style);
  AcDbObjectId clayer() const;
  Acad::ErrorStatus setClayer(AcDbObjectId layer);
  bool tilemode() const;

  template <class TABLE>
  Acad::ErrorStatus getTable(TABLE*& table, AcDbObjectId id, AcDb::OpenMode mode) {
    return acdbOpenObject(table, id, mode);
  }
  Acad::ErrorStatus getBlockTable(class AcDbBlockTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getLayerTable(class AcDbLayerTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getTextStyleTable(class AcDbTextStyleTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getRegAppTable(class AcDbRegAppTable*& table, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getNamedObjectsDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);
  Acad::ErrorStatus getGroupDictionary(AcDbDictionary*& dictionary, AcDb::OpenMode mode = AcDb::kForRead);

  // The id of the object with this handle. eUnknownHandle when there is none.
  Acad::ErrorStatus getAcDbObjectId(AcDbObjectId& id, bool createIfNotFound, const AcDbHandle& handle,
                                    Adesk::UInt32 reserved = 0);
  // Copies the objects and what they own to the new owner; references among them then point to the copies.
  Acad::ErrorStatus deepCloneObjects(const AcDbObjectIdArray& objects, AcDbObjectId owner, AcDbIdMapping& mapping,
                                     bool deferTranslation = false);
  // Reads a drawing file. eFileNotFound, or eFilerError for a file that isn't a sound drawing.
  Acad::ErrorStatus readDwgFile(const ACHAR* path, int shareMode = 32, bool allowCPConversion = false,
                                const ACHAR* password = nullptr);
  // Makes a block of that name from the model space of another database.
  Acad::ErrorStatus insert(AcDbObjectId& blockId, const ACHAR* blockName, AcDbDatabase* source, bool preserve = true);

  AcDbImpDatabase* impDatabase() const { return mpImp; }

 private:
  AcDbImpDatabase* mpImp;
};

class AcDbHostApplicationServices : public AcRxObject {
 public:
  ACRX_DECLARE_MEMBERS(AcDbHostApplicationServices)
  AcDbDatabase* workingDatabase() const { return mWorking; }
  void setWorkingDatabase(AcDbDatabase* database) { mWorking = database; }

 private:
  AcDbDatabase* mWorking = nullptr;
};

AcDbHostApplicationServices* acdbHostApplicationServices();
