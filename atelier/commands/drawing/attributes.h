// The attributes that references get from the definitions of their block.
// Inner header of the room.
#pragma once
#include <string>
#include <vector>

#include "atelier/commands/command_prompts.h"

namespace atelier {

// The definitions of a block for which a value is asked.
std::vector<AcDbObjectId> definitionsOf(AcDbObjectId block);
// Gives a reference an attribute as its definition is, with this value, or the one that the definition proposes.
void addAttribute(const Command& c, AcDbObjectId insert, AcDbObjectId definition, const std::string* value);

}  // namespace atelier
