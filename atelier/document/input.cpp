// Lines given beforehand as a source of answers.
// A trailing line end doesn't make an empty line.
#include "atelier/document/input.h"

#include <utility>

namespace atelier {

LinesSource::LinesSource(std::string_view text, std::string name) : name_(std::move(name)) {
  while (!text.empty()) {
    const std::size_t end = text.find('\n');
    std::string_view line = text.substr(0, end);
    if (line.ends_with('\r')) line.remove_suffix(1);
    lines_.emplace_back(line);
    text = end == text.npos ? std::string_view() : text.substr(end + 1);
  }
}

bool LinesSource::dropRest() {
  const bool any = !lines_.empty();
  lines_.clear();
  return any;
}

Input LinesSource::next(const PromptInfo&) {
  if (lines_.empty()) return {};
  Input input = Input::line(std::move(lines_.front()));
  lines_.pop_front();
  ++given_;
  return input;
}

std::string LinesSource::place() const {
  return name_.empty() ? std::string() : name_ + ", ligne " + std::to_string(given_);
}

std::size_t LinesSource::dropUntil(const std::function<bool(const std::string&)>& begins) {
  const std::size_t before = lines_.size();
  while (!lines_.empty() && !begins(lines_.front())) lines_.pop_front();
  given_ += before - lines_.size();
  return before - lines_.size();
}

}  // namespace atelier
