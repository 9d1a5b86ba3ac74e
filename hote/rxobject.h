// Run-time classes: every class of the host has one AcRxClass that knows its name and its parent.
// desc() gives it for a type, isA() for an object, cast() is a checked conversion.
#pragma once
#include "hote/adesk.h"

class AcRxClass;

class AcRxObject {
 public:
  virtual ~AcRxObject() = default;
  AcRxObject(const AcRxObject&) = delete;
  AcRxObject& operator=(const AcRxObject&) = delete;

  static AcRxClass* desc();
  virtual AcRxClass* isA() const;
  bool isKindOf(const AcRxClass* ancestor) const;

 protected:
  AcRxObject() = default;
};

class AcRxClass : public AcRxObject {
 public:
  using Maker = AcRxObject* (*)();
  // dxfName is null for a class that has no records of its own in a drawing; maker is null for an abstract one.
  AcRxClass(const ACHAR* name, AcRxClass* parent, const ACHAR* dxfName = nullptr, Maker maker = nullptr)
      : mName(name), mDxfName(dxfName), mParent(parent), mMaker(maker) {}

  const ACHAR* name() const { return mName; }
  const ACHAR* dxfName() const { return mDxfName; }
  AcRxClass* myParent() const { return mParent; }
  bool isDerivedFrom(const AcRxClass* ancestor) const {
    for (const AcRxClass* c = this; c; c = c->mParent)
      if (c == ancestor) return true;
    return false;
  }
  AcRxObject* create() { return mMaker ? mMaker() : nullptr; }

 private:
  const ACHAR* mName;
  const ACHAR* mDxfName;
  AcRxClass* mParent;
  Maker mMaker;
};

inline bool AcRxObject::isKindOf(const AcRxClass* ancestor) const { return isA()->isDerivedFrom(ancestor); }

#define ACRX_DECLARE_MEMBERS(CLASS)                                                                          \
  static AcRxClass* desc();                                                                                  \
  AcRxClass* isA() const override;                                                                           \
  static CLASS* cast(const AcRxObject* object) {                                                             \
    return object && object->isKindOf(CLASS::desc()) ? const_cast<CLASS*>(static_cast<const CLASS*>(object)) \
                                                     : nullptr;                                              \
  }
