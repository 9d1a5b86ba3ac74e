// Writes groups of a drawing in another form: values keep their spelling where it means the same.
#pragma once
#include <string>

#include "atelier/dxf/groups/file_layout.h"
#include "atelier/dxf/groups/value_codec.h"
#include "atelier/dxf/writing/replaced_file.h"

namespace atelier::dxf {

class GroupWriter {
 public:
  GroupWriter(ReplacedFile& file, const Style& source, const Style& target);
  void put(Group group);
  // Gives to the file what waits; always, or once it is much.
  void flush();
  void flushLarge();

 private:
  ReplacedFile& file_;
  const Style &source_, &target_;
  bool samePage_;
  std::string text_;
};

}  // namespace atelier::dxf
