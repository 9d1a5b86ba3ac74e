// The map from forms to the places they were read from.
#include "atelier/lisp/evaluator/session.h"

#include <algorithm>

namespace atelier::lisp {

void SourceMap::enter(const std::string& file) {
  const auto known = std::find(files_.begin(), files_.end(), file);
  file_ = static_cast<int>(known - files_.begin());
  if (known == files_.end()) files_.push_back(file);
}

Place SourceMap::find(Value list) const {
  if (!list.isPair()) return {};
  const auto found = places_.find(list.pair());
  if (found == places_.end()) return {};
  return {files_[static_cast<std::size_t>(found->second.file)], found->second.line};
}

void SourceMap::purge() {
  std::erase_if(places_, [](const auto& entry) { return !Heap::isMarked(entry.first); });
}

}  // namespace atelier::lisp
