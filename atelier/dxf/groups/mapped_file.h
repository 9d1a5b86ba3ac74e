// A file's bytes, mapped read-only.
// The mapping stays valid when the file is replaced by a rename, as saving does.
#pragma once
#include <string>
#include <string_view>

namespace atelier::dxf {

class MappedFile {
 public:
  // Throws FileError with the system's reason when the file can't be opened or mapped.
  explicit MappedFile(const std::string& path);
  ~MappedFile();
  MappedFile(const MappedFile&) = delete;
  MappedFile& operator=(const MappedFile&) = delete;
  std::string_view bytes() const { return {data_, size_}; }

 private:
  const char* data_ = nullptr;
  std::size_t size_ = 0;
};

}  // namespace atelier::dxf
