// A file that is there whole or not at all: written beside its target, then renamed over it.
#pragma once

#include <cstdio>
#include <memory>
#include <string>

namespace atelier::render {

class AtomicFile {
 public:
  // Throws PlotError (French, with the path and the system's reason) when the folder cannot be written.
  explicit AtomicFile(std::string path);
  // Without commit() nothing remains.
  ~AtomicFile();
  AtomicFile(const AtomicFile&) = delete;
  AtomicFile& operator=(const AtomicFile&) = delete;

  // False once a write has failed.
  bool write(const void* bytes, std::size_t count);
  // Flushes to the disk and puts the file in its place. Throws PlotError; the target is then as it was.
  void commit();

 private:
  struct Closer {
    void operator()(std::FILE* f) const { std::fclose(f); }
  };
  std::string path_, temporary_;
  std::unique_ptr<std::FILE, Closer> file_;
};

}  // namespace atelier::render
