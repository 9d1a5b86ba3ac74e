// The tables of built-in functions, one for each family file.
#pragma once

#include <span>

#include "atelier/lisp/values/builtin.h"

namespace atelier::lisp {

std::span<const Builtin> controlForms();        // special_forms.cpp
std::span<const Builtin> definitionForms();     // definitions.cpp
std::span<const Builtin> arithmeticFamily();    // arithmetic.cpp
std::span<const Builtin> functionsFamily();     // transcendental.cpp
std::span<const Builtin> bitsFamily();          // bits.cpp
std::span<const Builtin> comparisonFamily();    // comparison.cpp
std::span<const Builtin> listFamily();          // lists.cpp
std::span<const Builtin> accessFamily();        // list_access.cpp
std::span<const Builtin> mappingFamily();       // mapping.cpp
std::span<const Builtin> sortingFamily();       // sorting.cpp
std::span<const Builtin> symbolFamily();        // symbols.cpp
std::span<const Builtin> stringFamily();        // strings.cpp
std::span<const Builtin> stringSearchFamily();  // string_search.cpp
std::span<const Builtin> conversionFamily();    // conversions.cpp
std::span<const Builtin> unitFamily();          // conversions.cpp
std::span<const Builtin> geometryFamily();      // geometry.cpp
std::span<const Builtin> errorFamily();         // error_functions.cpp
std::span<const Builtin> debuggingFamily();     // debugging.cpp
std::span<const Builtin> outputFamily();        // output.cpp
std::span<const Builtin> fileFamily();          // files.cpp
std::span<const Builtin> fileSystemFamily();    // file_system.cpp
std::span<const Builtin> systemFamily();        // system.cpp
std::span<const Builtin> programFamily();       // program_functions.cpp

// Gives an interpreter all of them.
void addBuiltins(Interpreter& in);

}  // namespace atelier::lisp
