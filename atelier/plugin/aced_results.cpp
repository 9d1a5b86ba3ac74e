// The host's functions with which handlers get their arguments and set their results.
// A later result replaces an earlier one.
#include <cwchar>

#include "atelier/database/objects/chain.h"
#include "atelier/document/document.h"
#include "atelier/document/selection_set.h"
#include "atelier/document/values.h"
#include "atelier/plugin/published.h"
#include "atelier/selecting/selections.h"
#include "hote/aced.h"
#include "hote/acrx.h"
#include "hote/acut.h"

using namespace atelier;

namespace {

PublishedFunctions& published() { return PublishedFunctions::of(Document::needed()); }
int give(lisp::Value value) { return published().setResult(value) ? RTNORM : RTERROR; }
lisp::Interpreter& interpreter() { return Document::needed().interpreter(); }

}  // namespace

bool acrxUnlockApplication(void*) { return true; }
bool acrxRegisterAppMDIAware(void*) { return true; }

int acedDefun(const ACHAR* name, int index) { return published().define(toUtf8(name), index) ? RTNORM : 0; }
int acedUndef(const ACHAR* name, int index) { return published().undefine(toUtf8(name), index) ? RTNORM : RTERROR; }
int acedGetFunCode() { return published().code(); }
resbuf* acedGetArgs() { return published().arguments(); }

int acedRetNil() { return give(lisp::nil); }
int acedRetT() { return give(interpreter().t()); }
int acedRetVoid() { return give(interpreter().quiet()); }
int acedRetInt(int value) { return give(lisp::Value::integer(value)); }
int acedRetReal(ads_real value) { return give(lisp::Value::real(value)); }
int acedRetStr(const ACHAR* text) { return give(interpreter().string(toUtf8(text))); }
int acedRetPoint(const ads_point point) { return give(interpreter().point(point[0], point[1], point[2])); }
int acedRetList(const resbuf* list) { return give(listOfChain(interpreter(), list)); }
int acedRetName(const ads_name name, int type) {
  if (type == RTPICKS) {
    const auto set = heldSelection(name);
    return set ? give(interpreter().selection(set, set->weight())) : RTERROR;
  }
  return give(entityValue(interpreter(), stubOfName(name)));
}

namespace {

void printWide(const ACHAR* text) { Document::needed().print(toUtf8(text)); }

// In the host's formats %s is a wide text and %S a narrow one; in the C library's wide printf it is the reverse.
std::wstring libraryFormat(const ACHAR* format) {
  std::wstring result;
  for (; *format; ++format) {
    result.push_back(*format);
    if (*format != L'%') continue;
    for (++format; *format && std::wcschr(L"-+ #0123456789.*", *format); ++format) result.push_back(*format);
    if (*format == L's') result += L"ls";
    else if (*format == L'S') result += L"hs";
    else if (*format) result.push_back(*format);
    else break;
  }
  return result;
}

}  // namespace

int acutPrintf(const ACHAR* format, ...) {
  // The host prints at most 2,048 characters a call.
  ACHAR buffer[2049];
  va_list values;
  va_start(values, format);
  const int length = vswprintf(buffer, 2049, libraryFormat(format).c_str(), values);
  va_end(values);
  if (length < 0) return RTERROR;
  printWide(buffer);
  return RTNORM;
}

void acdbFail(const ACHAR* message) { printWide(message); }

int acedAlert(const ACHAR* message) {
  const std::string text = toUtf8(message);
  Document::needed().print(text.starts_with('\n') ? text : "\n" + text);
  return RTNORM;
}
