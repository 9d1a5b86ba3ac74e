// Texts keep their bytes in the same code page, but for control characters, which can't stand in an ASCII file; numbers
// keep their digits.
#include "atelier/dxf/versions/group_writer.h"

#include <algorithm>

namespace atelier::dxf {

GroupWriter::GroupWriter(ReplacedFile& file, const Style& source, const Style& target)
    : file_(file), source_(source), target_(target), samePage_(target.codePage == source.codePage) {
  if (target.encoding != Encoding::ascii) file_.write(kBinarySentinel);
}

void GroupWriter::put(Group group) {
  const bool sameForm = target_.encoding == source_.encoding;
  const GroupKind kind = kindOfCode(group.code());
  const auto control = [](char c) { return static_cast<unsigned char>(c) < ' '; };
  const bool kept = kind == GroupKind::text ? samePage_ && (sameForm || std::ranges::none_of(group.source(), control))
                    : kind == GroupKind::binary ? sameForm
                                                : sameForm && (samePage_ || target_.encoding == Encoding::ascii);
  if (!kept) group.from({});
  append(text_, group, target_);
}

void GroupWriter::flush() {
  file_.write(text_);
  text_.clear();
}

void GroupWriter::flushLarge() {
  if (text_.size() > (1u << 20)) flush();
}

}  // namespace atelier::dxf
