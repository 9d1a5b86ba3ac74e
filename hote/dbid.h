// Object ids and handles. An id is a pointer-sized value that stays the same while the drawing is loaded;
// a handle is the number under which the drawing file knows the object.
#pragma once
#include "hote/acarray.h"
#include "hote/adesk.h"

class AcDbStub;
class AcDbDatabase;
class AcRxClass;

class AcDbHandle {
 public:
  AcDbHandle() = default;
  explicit AcDbHandle(Adesk::UInt64 value) : mValue(value) {}
  // Hexadecimal digits of either case; reading stops at the first other character.
  explicit AcDbHandle(const ACHAR* text);
  AcDbHandle& operator=(const ACHAR* text) { return *this = AcDbHandle(text); }

  bool isNull() const { return mValue == 0; }
  void setNull() { mValue = 0; }
  Adesk::UInt64 value() const { return mValue; }
  operator Adesk::UInt64() const { return mValue; }
  // Upper-case hexadecimal without leading zeros; the buffer holds at least 17 characters.
  bool getIntoAsciiBuffer(ACHAR* buffer) const;
  bool getIntoAsciiBuffer(ACHAR* buffer, std::size_t size) const;
  bool operator==(const AcDbHandle& other) const { return mValue == other.mValue; }

 private:
  Adesk::UInt64 mValue = 0;
};

class AcDbObjectId {
 public:
  static const AcDbObjectId kNull;
  constexpr AcDbObjectId() = default;
  constexpr explicit AcDbObjectId(AcDbStub* stub) : mStub(stub) {}

  bool isNull() const { return mStub == nullptr; }
  void setNull() { mStub = nullptr; }
  bool isValid() const { return mStub != nullptr; }
  bool isErased() const;
  bool isResident() const;  // the object is in memory
  AcDbHandle handle() const;
  AcDbDatabase* database() const;
  AcRxClass* objectClass() const;
  Adesk::IntPtr asOldId() const { return reinterpret_cast<Adesk::IntPtr>(mStub); }
  AcDbObjectId& setFromOldId(Adesk::IntPtr value) {
    mStub = reinterpret_cast<AcDbStub*>(value);
    return *this;
  }
  operator AcDbStub*() const { return mStub; }
  bool operator==(const AcDbObjectId& other) const { return mStub == other.mStub; }
  bool operator!=(const AcDbObjectId& other) const { return mStub != other.mStub; }
  bool operator<(const AcDbObjectId& other) const { return mStub < other.mStub; }

 private:
  AcDbStub* mStub = nullptr;
};

inline constexpr AcDbObjectId AcDbObjectId::kNull{};
using AcDbObjectIdArray = AcArray<AcDbObjectId>;
