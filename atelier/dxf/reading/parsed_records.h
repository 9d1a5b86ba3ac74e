// Records parsed from a file's bytes when their objects are first opened.
#pragma once
#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

class ParsedRecords : public RecordSource {
 public:
  explicit ParsedRecords(std::shared_ptr<const FileLayout> layout) : layout_(std::move(layout)) {}
  // A record that is cut off ends where it can still be read.
  Record read(std::uint64_t offset, std::uint32_t length) const override;
  bool mayHaveXdata(std::uint64_t offset, std::uint32_t length) const override;
  // From the records of the ACDSDATA section (R2013 and later).
  std::string solidData(std::uint64_t handle) const override;

 private:
  std::shared_ptr<const FileLayout> layout_;
};

}  // namespace atelier::dxf
