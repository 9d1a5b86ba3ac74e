// The one exception family of the embedded host, for faults of files and of input.
// what() is a French sentence for the user that says where to look and what was expected.
#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

namespace atelier {

class Error : public std::runtime_error {
 public:
  explicit Error(const std::string& message) : std::runtime_error(message) {}
  // file: path as the user gave it; line: 1-based, 0 when unknown.
  Error(const std::string& file, std::int64_t line, const std::string& message)
      : std::runtime_error(line > 0 ? file + ":" + std::to_string(line) + ": " + message : file + ": " + message) {}
};

// A file that can't be opened, read or written.
class FileError : public Error {
 public:
  using Error::Error;
};

// Raised inside a host call when the user interrupts; it unwinds the handler that made the call.
class Interrupted : public Error {
 public:
  Interrupted() : Error("interruption") {}
};

// The reason behind an errno, in French; the C library's own text for a rare one.
std::string systemReason(int error);

// A broken invariant of the host itself: says where and stops the program. It stays on in release builds.
[[noreturn]] void invariantBroken(const char* condition, const char* file, int line);

}  // namespace atelier

#define ATELIER_ASSERT(condition) ((condition) ? void(0) : ::atelier::invariantBroken(#condition, __FILE__, __LINE__))
