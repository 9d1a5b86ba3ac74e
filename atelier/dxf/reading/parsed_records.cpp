// Parsing one record. Comments (999) inside it are kept as groups.
// The groups refer to the bytes of the file for writing them again.
#include "atelier/dxf/reading/parsed_records.h"

namespace atelier::dxf {

Record ParsedRecords::read(std::uint64_t offset, std::uint32_t length) const {
  Record record;
  Scanner scanner(layout_->bytes, layout_->style.encoding, offset, offset + length);
  RawGroup raw;
  try {
    constexpr std::size_t kBytesOfGroup = 9;
    record.groups.reserve(length / kBytesOfGroup);
    while (scanner.next(raw)) record.groups.push_back(decode(raw, layout_->style.encoding, layout_->style.codePage));
  } catch (const FormatError&) {
    // The first pass over the file has reported it.
  }
  return record;
}

bool ParsedRecords::mayHaveXdata(std::uint64_t offset, std::uint32_t length) const {
  return layout_->style.encoding != Encoding::ascii ||
         layout_->bytes.substr(offset, length).find("1001") != std::string_view::npos;
}

std::string ParsedRecords::solidData(std::uint64_t handle) const {
  if (!layout_->solids) return {};
  const Encoding encoding = layout_->style.encoding;
  Scanner scanner(layout_->bytes, encoding, layout_->solids->begin, layout_->solids->end);
  std::string data;
  bool ours = false;
  try {
    for (RawGroup raw; scanner.next(raw);) {
      if (raw.code == 0) ours = false;
      if (raw.code == 320) ours = decode(raw, encoding, layout_->style.codePage).handle() == handle;
      if (raw.code == 310 && ours) data += decode(raw, encoding, layout_->style.codePage).text();
    }
  } catch (const FormatError&) {
    return {};
  }
  return data;
}

}  // namespace atelier::dxf
