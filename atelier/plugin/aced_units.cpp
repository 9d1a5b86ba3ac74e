// Distances as text by the drawing's units, for handlers.
// The text buffer of acdbRToS is the caller's; 133 characters are written at most.
#include <algorithm>

#include "atelier/base/text.h"
#include "atelier/document/document.h"
#include "atelier/lisp/text/units.h"
#include "hote/acdb.h"

using namespace atelier;

namespace {

std::optional<lisp::LinearUnits> unitsOf(int unit) {
  if (unit == -1) unit = Document::needed().variables().integer("LUNITS", 2);
  return unit >= 1 && unit <= 5 ? std::optional(static_cast<lisp::LinearUnits>(unit)) : std::nullopt;
}

}  // namespace

int acdbDisToF(const ACHAR* text, int unit, ads_real* value) {
  const auto units = unitsOf(unit);
  const auto parsed = units && text ? lisp::parseDistance(toUtf8(text), *units) : std::nullopt;
  if (!parsed) return RTERROR;
  *value = *parsed;
  return RTNORM;
}

int acdbRToS(ads_real value, int unit, int precision, ACHAR* text) {
  constexpr std::size_t kBuffer = 132;
  const lisp::SystemVariables& variables = Document::needed().variables();
  const auto units = unitsOf(unit);
  if (!units) return RTERROR;
  if (precision < 0) precision = variables.integer("LUPREC", 4);
  const lisp::UnitStyle style{variables.integer("DIMZIN", 0), variables.integer("UNITMODE", 0)};
  const std::wstring wide = toWide(lisp::formatDistance(value, *units, precision, style));
  const std::size_t length = std::min(wide.size(), kBuffer);
  std::copy_n(wide.begin(), length, text);
  text[length] = 0;
  return RTNORM;
}
