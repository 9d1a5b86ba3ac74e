// The stub that an object id points to: what is known of an object without parsing it.
// Stubs never move and live as long as their database.
#pragma once
#include <cstdint>
#include <memory>
#include <vector>

class AcDbObject;
class AcDbImpDatabase;

class AcDbStub {
 public:
  enum Flag : std::uint16_t {
    kErased = 1,
    kChanged = 2,       // differs from its bytes in the file
    kNew = 4,           // has no bytes in the file
    kEntity = 8,        // stands in a block, not among tables and objects
    kVirtual = 16,      // stands in for a record that the file doesn't have; written once it is changed
    kHandleless = 32,   // the file gave it no handle: its handle is written once something refers to it
    kHandleAsked = 64,  // somebody outside knows its handle
    kNoted = 128,       // the running step of the journal has its state from before
    kLost = 256         // has no object: stands for a handle that leads nowhere
  };
  bool is(Flag flag) const { return (flags & flag) != 0; }
  void set(Flag flag, bool on = true) { flags = static_cast<std::uint16_t>(on ? flags | flag : flags & ~flag); }

  std::uint64_t handle = 0;
  AcDbImpDatabase* database = nullptr;
  AcDbObject* object = nullptr;  // once parsed or made; owned by the database
  AcDbStub* owner = nullptr;
  std::uint64_t offset = 0;  // place of the record in the file
  std::uint32_t length = 0;
  std::uint16_t type = 0;  // index into the database's type names
  std::uint16_t flags = 0;
  // The objects inside this one, in drawing order, erased ones included: a block's entities, an insert's attributes, a
  // polyline's vertices, a table's records. Null when there are none.
  std::unique_ptr<std::vector<AcDbStub*>> children;
};
