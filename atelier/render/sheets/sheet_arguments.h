// Sheets as AutoLISP gives them. Inner header of the room.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/render/sheets/sheets.h"

namespace atelier::render {

// ((mark . text) ...)
std::vector<std::pair<std::string, std::string>> textsOf(lisp::Interpreter& in, lisp::Value list);
// (scale (view ...) ((mark . text) ...) [(inset ...) [graduation [plan [(item ...)]]]])
Sheet sheetOf(lisp::Interpreter& in, lisp::Value list);
// ((key . text) ...): titre auteur sujet couleurs
SetInfo infoOf(lisp::Interpreter& in, lisp::Value list);

}  // namespace atelier::render
