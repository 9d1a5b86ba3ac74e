// A plot's file, there whole or not at all: the way drawings are saved, for writers that can't throw.
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
  // Flushes to the disk and puts the file in its place. Throws PlotError; the target is then as it was. Without it
  // nothing remains.
  void commit();

 private:
  dxf::ReplacedFile file_;
  std::string failure_;
};

}  // namespace atelier::render
