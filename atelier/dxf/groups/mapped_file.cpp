// Mapping of files, POSIX.
// An empty file maps to no bytes.
#include "atelier/dxf/groups/mapped_file.h"

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

#include "atelier/base/error.h"

namespace atelier::dxf {

MappedFile::MappedFile(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  if (file < 0) throw FileError(path, 0, "lecture impossible: " + systemReason(errno));
  struct stat info {};
  const bool regular = fstat(file, &info) == 0 && S_ISREG(info.st_mode);
  if (regular && info.st_size > 0) {
    size_ = static_cast<std::size_t>(info.st_size);
    void* mapped = mmap(nullptr, size_, PROT_READ, MAP_PRIVATE, file, 0);
    if (mapped != MAP_FAILED) data_ = static_cast<const char*>(mapped);
  }
  close(file);
  if (!regular) throw FileError(path, 0, "lecture impossible: ce n'est pas un fichier");
  if (size_ > 0 && !data_) throw FileError(path, 0, "lecture impossible: le fichier ne tient pas en mémoire");
}

MappedFile::~MappedFile() {
  if (data_) munmap(const_cast<char*>(data_), size_);
}

}  // namespace atelier::dxf
