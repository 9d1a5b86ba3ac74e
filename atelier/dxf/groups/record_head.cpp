// Steps through a file and reads the heads of its records.
// Handle and owner are found before the first subclass mark and outside brace lists.
#include "atelier/dxf/groups/record_head.h"

#include <utility>

namespace atelier::dxf {

void GroupPass::step() {
  for (;;) {
    try {
      end_ = scanner_.offset();
      more_ = scanner_.next(raw_);
      // Blank lines at an early end of the file must not remain before the groups that are added there.
      if (!more_ && faults_.recovering()) faults_.leaveOut(end_, layout_.bytes.size());
      return;
    } catch (const FormatError& error) {
      damaged(error);
    }
  }
}

void GroupPass::damaged(const FormatError& error) {
  faults_.report(error.offset, error.message);
  scanner_.resume(error.offset);
  // A fault inside a record: its section decides about the whole record.
  if (inRecord_) recordDamaged_ = true;
  else faults_.leaveOut(error.offset, scanner_.offset());
}

RecordHead GroupPass::head() {
  RecordHead h;
  h.type = raw_.value;
  h.begin = raw_.begin;
  inRecord_ = true;
  recordDamaged_ = false;
  int braces = 0;
  bool marked = false, space = false;
  const int handleCode = h.type == "DIMSTYLE" ? 105 : 5;
  std::string_view owner, handle;
  for (step(); more_ && raw_.code != 0; step()) {
    switch (raw_.code) {
      case 100: marked = true; break;
      case 102: braces += raw_.value.starts_with('{') ? 1 : raw_.value.starts_with('}') ? -1 : 0; break;
      case 5:
      case 105:
        if (raw_.code == handleCode && !marked && braces == 0 && !handle.data()) handle = raw_.value;
        break;
      case 330:
        if (!marked && braces == 0 && !owner.data()) owner = raw_.value;
        break;
      case 67:
        if (!std::exchange(space, true))
          h.paperSpace = layout_.style.encoding == Encoding::ascii ? trimmed(raw_.value) == "1" : raw_.value[0] == 1;
        break;
      case 2:
        if (!h.name.data()) h.name = raw_.value;
        break;
      default: break;
    }
  }
  inRecord_ = false;
  sawMarks_ |= marked;
  h.damaged = recordDamaged_;
  h.end = place();
  if (!more_ && !h.damaged) {
    faults_.report(h.end, "fichier coupé dans un enregistrement " + std::string(h.type));
    h.damaged = true;
  }
  if (handle.data()) h.handle = parseHandle(handle).value_or(0);
  if (owner.data()) h.owner = parseHandle(owner).value_or(0);
  return h;
}

}  // namespace atelier::dxf
