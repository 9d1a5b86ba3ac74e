// The groups of a file one after the other, and the head of each record.
// Damage is reported; in recovering, reading goes on at the next record.
#pragma once
#include "atelier/dxf/groups/faults.h"

namespace atelier::dxf {

struct RecordHead {
  std::string_view type;
  std::string_view name;  // group 2
  std::uint64_t handle = 0, owner = 0;
  bool paperSpace = false;
  bool damaged = false;
  std::size_t begin = 0, end = 0;
};

class GroupPass {
 public:
  GroupPass(FileLayout& layout, const Faults& faults)
      : faults_(faults),
        layout_(layout),
        scanner_(layout.bytes, layout.style.encoding, firstGroup(layout.bytes, layout.style.encoding),
                 layout.bytes.size()) {}

  bool more() const { return more_; }
  const RawGroup& group() const { return raw_; }
  std::size_t offset() const { return scanner_.offset(); }
  // Where the current group begins, or where the last one ended when there are no more.
  std::size_t place() const { return more_ ? raw_.begin : end_; }
  bool isRecord(std::string_view type) const { return raw_.code == 0 && raw_.value == type; }
  void step();
  void skipComments() {
    while (more_ && raw_.code == 999) step();
  }
  // Whether subclass marks were met: drawings up to R12 have none.
  bool sawMarks() const { return sawMarks_; }
  // Reads the record that begins at the current group, up to the next group 0.
  RecordHead head();

 private:
  void damaged(const FormatError& error);
  const Faults& faults_;
  FileLayout& layout_;
  Scanner scanner_;
  RawGroup raw_;
  bool more_ = true;
  std::size_t end_ = 0;
  bool inRecord_ = false, recordDamaged_ = false, sawMarks_ = false;
};

}  // namespace atelier::dxf
