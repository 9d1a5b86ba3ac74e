// A plot's file, written completely or not at all, as drawings are; for writers that can't throw.
#pragma once

#include <string>

#include "atelier/dxf/writing/replaced_file.h"

namespace atelier::render {

class AtomicFile {
 public:
  // Throws PlotError (French, with the path and the system's reason) when the folder cannot be written.
  explicit AtomicFile(const std::string& path);

  // False once a write has failed.
  bool write(const void* bytes, std::size_t count);
  // Flushes to the disk and replaces the target. Throws PlotError; the target is then unchanged. Without commit() no file
  // remains.
  void commit();

 private:
  dxf::ReplacedFile file_;
  std::string failure_;
};

}  // namespace atelier::render
