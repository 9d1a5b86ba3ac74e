// What happens when a file is damaged: strict reading stops at the first fault; recovering notes it and goes on.
#pragma once
#include <string>
#include <vector>

#include "atelier/dxf/groups/file_layout.h"

namespace atelier::dxf {

class Faults {
 public:
  Faults(const std::string& name, FileLayout& layout, std::vector<std::string>* messages)
      : name_(name), layout_(layout), messages_(messages) {}
  bool recovering() const { return messages_ != nullptr; }
  // Throws Error with the line, or notes the message.
  void report(std::size_t offset, const std::string& message) const {
    if (!messages_) stop(offset, message);
    const std::int64_t line = lineAt(offset);
    messages_->push_back(line > 0 ? "ligne " + std::to_string(line) + ": " + message
                                  : "octet " + std::to_string(offset) + ": " + message);
  }
  [[noreturn]] void stop(std::size_t offset, const std::string& message) const {
    throw Error(name_, lineAt(offset), message);
  }
  // For a file in which there is nothing to recover.
  [[noreturn]] void refuse(std::size_t offset, const std::string& message) const {
    throw FileError(name_, lineAt(offset), message);
  }
  // Notes bytes that are left out when the drawing is written.
  void leaveOut(std::size_t begin, std::size_t end) const {
    if (end > begin) layout_.repairs.push_back({begin, end - begin, {}});
  }
  void putIn(std::size_t offset, std::vector<Group> groups) const {
    layout_.repairs.push_back({offset, 0, std::move(groups)});
  }

 private:
  std::int64_t lineAt(std::size_t offset) const { return lineOf(layout_.bytes, layout_.style.encoding, offset); }
  const std::string& name_;
  FileLayout& layout_;
  std::vector<std::string>* messages_;
};

}  // namespace atelier::dxf
