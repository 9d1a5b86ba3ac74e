// The host's functions on system variables and coordinate systems.
// A text that acedGetVar hands out belongs to the caller.
#include <algorithm>

#include "atelier/database/objects/chain.h"
#include "atelier/document/coordinate_systems.h"
#include "atelier/document/document.h"
#include "hote/aced.h"

using namespace atelier;

namespace {

std::optional<SystemVariables::Value> valueOf(const resbuf& node) {
  switch (node.restype) {
    case RTSHORT: return static_cast<int>(node.resval.rint);
    case RTLONG: return static_cast<int>(node.resval.rlong);
    case RTREAL:
    case RTANG:
    case RTORINT: return node.resval.rreal;
    case RTSTR: return stringOf(node);
    case RTPOINT: return SystemVariables::Point{{node.resval.rpoint[0], node.resval.rpoint[1], 0}, true};
    case RT3DPOINT: return SystemVariables::Point{asPnt3d(node.resval.rpoint), false};
    default: return std::nullopt;
  }
}

std::optional<AcGeMatrix3d> systemOf(const resbuf* node) {
  if (!node) return std::nullopt;
  switch (node->restype) {
    case RTSHORT: return systemByCode(node->resval.rint);
    case RTLONG: return systemByCode(node->resval.rlong);
    case RT3DPOINT: return systemOfNormal(asPnt3d(node->resval.rpoint).asVector());
    case RTENAME: {
      const AcDbStub* stub = stubOfName(node->resval.rlname);
      return stub ? std::optional(systemOfEntity(*stub)) : std::nullopt;
    }
    default: return std::nullopt;
  }
}

}  // namespace

int acedGetVar(const ACHAR* variable, resbuf* result) {
  const auto value = Document::needed().variables().value(toUtf8(variable));
  if (!value) return RTERROR;
  if (const int* number = std::get_if<int>(&*value)) {
    const bool fits = *number >= -32768 && *number <= 32767;
    result->restype = static_cast<short>(fits ? RTSHORT : RTLONG);
    if (fits) result->resval.rint = static_cast<short>(*number);
    else result->resval.rlong = *number;
  } else if (const double* real = std::get_if<double>(&*value)) {
    result->restype = RTREAL;
    result->resval.rreal = *real;
  } else if (const std::string* text = std::get_if<std::string>(&*value)) {
    result->restype = RTSTR;
    result->resval.rstring = nullptr;
    setString(*result, *text);
  } else {
    const auto& point = std::get<SystemVariables::Point>(*value);
    result->restype = static_cast<short>(point.flat ? RTPOINT : RT3DPOINT);
    std::copy_n(asDblArray(point.value), 3, result->resval.rpoint);
  }
  return RTNORM;
}

int acedSetVar(const ACHAR* variable, const resbuf* value) {
  const auto given = value ? valueOf(*value) : std::nullopt;
  return given && Document::needed().variables().set(toUtf8(variable), *given) ? RTNORM : RTERROR;
}

int acedTrans(const ads_point point, const resbuf* from, const resbuf* to, int displacement, ads_point result) {
  const auto source = systemOf(from), target = systemOf(to);
  if (!source || !target) return RTERROR;
  const AcGePoint3d moved = translated(asPnt3d(point), *source, *target, displacement != 0);
  std::copy_n(asDblArray(moved), 3, result);
  return RTNORM;
}
