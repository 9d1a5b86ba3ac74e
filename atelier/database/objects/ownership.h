// What an object owns and which objects refer to it: erasing, brace lists (reactors, extension dictionary), and the
// list of owned handles that erasing and cloning share.
#pragma once
#include <functional>

#include "atelier/database/objects/imp_database.h"

namespace atelier {

// Marks the object and all it owns (children, extension dictionary, entries of a dictionary) as erased or not erased.
void eraseWithOwned(AcDbStub& stub, bool erasing);

// Handles that the record owns through its groups 350-369 and, in a dictionary, its entries.
std::vector<std::uint64_t> ownedHandles(const Record& record);

void removeBraces(Record& record, std::string_view name);
void copyBraces(const Record& from, Record& to, std::string_view name);
// Adds or removes a handle in the list of that name; an empty list is removed.
void addToBraces(Record& record, std::string_view name, int code, std::uint64_t handle);
bool removeFromBraces(Record& record, std::string_view name, std::uint64_t handle);
bool inBraces(const Record& record, std::string_view name, std::uint64_t handle);

inline constexpr std::string_view kReactors = "ACAD_REACTORS";
inline constexpr std::string_view kExtension = "ACAD_XDICTIONARY";

}  // namespace atelier
