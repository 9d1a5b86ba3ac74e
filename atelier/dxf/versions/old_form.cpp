// The one form that all exports of a program use.
#include "atelier/dxf/versions/old_form.h"

#include <utility>

namespace atelier::dxf {
namespace {

OldForm& theOldForm() {
  static OldForm form;
  return form;
}

}  // namespace

void provideOldForm(OldForm form) { theOldForm() = std::move(form); }

const OldForm& oldForm() { return theOldForm(); }

}  // namespace atelier::dxf
