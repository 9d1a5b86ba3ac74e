// Wild-card patterns of wcmatch, also used by selection filters and symbol tables.
#pragma once

#include <functional>
#include <string_view>

namespace atelier::lisp {

// Whether `text` matches one of the comma-separated patterns:
//   # digit   @ letter   . neither   * any run   ? any character   ~pattern anything but it (first character
//   only) [abc] [a-z] one of   [~abc] none of   ` the next character as it is
// Case counts. Public reference: AutoLISP wcmatch.
// `step` is called now and then while long texts are matched; it may throw to stop.
bool matchesWildcard(std::string_view text, std::string_view patterns, const std::function<void()>& step = {});
// As above for file names, where only * and ? are special.
bool matchesFileName(std::string_view name, std::string_view pattern);

}  // namespace atelier::lisp
