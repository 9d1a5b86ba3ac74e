// The list of the families that every interpreter starts with.
#include "atelier/lisp/families.h"

#include "atelier/lisp/interpreter.h"

namespace atelier::lisp {

void addBuiltins(Interpreter& in) {
  for (const auto family :
       {controlForms,       definitionForms,  arithmeticFamily, functionsFamily, bitsFamily,   comparisonFamily,
        listFamily,         accessFamily,     mappingFamily,    sortingFamily,   symbolFamily, stringFamily,
        stringSearchFamily, conversionFamily, unitFamily,       geometryFamily,  errorFamily,  debuggingFamily,
        outputFamily,       fileFamily,       fileSystemFamily, systemFamily})
    in.add(family());
}

}  // namespace atelier::lisp
