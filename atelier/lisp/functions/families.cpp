// The list of the families that every interpreter starts with.
#include "atelier/lisp/functions/families.h"

#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier::lisp {

void addBuiltins(Interpreter& in) {
  for (const auto family :
       {controlForms,       definitionForms,  arithmeticFamily, functionsFamily, bitsFamily,   comparisonFamily,
        listFamily,         accessFamily,     mappingFamily,    sortingFamily,   symbolFamily, stringFamily,
        stringSearchFamily, conversionFamily, unitFamily,       geometryFamily,  errorFamily,  debuggingFamily,
        outputFamily,       fileFamily,       fileSystemFamily, systemFamily,    programFamily})
    in.add(family());
}

}  // namespace atelier::lisp
