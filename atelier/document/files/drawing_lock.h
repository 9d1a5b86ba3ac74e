// One drawing, two programs: a lock beside the drawing while it is being worked on, and whether its file has changed since.
#pragma once
#include <cstdint>
#include <string>

namespace atelier {

// A file "rue.dxf.verrou" that names machine and process. It is removed when the lock ends; one whose process has ended on
// this machine is stale and taken over.
class DrawingLock {
 public:
  ~DrawingLock() { release(); }
  DrawingLock() = default;
  DrawingLock(const DrawingLock&) = delete;
  DrawingLock& operator=(const DrawingLock&) = delete;
  // In place of an earlier one. Without effect where another program has it or the folder can't be written.
  void take(const std::string& drawing);
  void release();
  // The program that works on the drawing, "processus 4242 de la machine pc1"; empty for none and for this one.
  static std::string holder(const std::string& drawing);

 private:
  std::string file_;
};

// What tells one state of a file from another.
struct FileMark {
  std::int64_t device = 0, inode = 0, size = -1, seconds = 0, nanoseconds = 0;  // size -1: no such file
  static FileMark of(const std::string& path);
  bool operator==(const FileMark&) const = default;
};

}  // namespace atelier
