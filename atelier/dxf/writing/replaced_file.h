// A file that is written beside its target and replaces it when it is complete.
// The old file becomes .bak if asked for (rue.bak of a drawing rue.dxf, rue.xml.bak of another file); until then, and after
// any failure, it is unchanged. What a killed program left of an earlier save is removed.
#pragma once
#include <string>
#include <string_view>

namespace atelier::dxf {

// Whether the file is there and may not be written, by its mode or by this user.
bool isWriteProtected(const std::string& path);
constexpr const char* kWriteProtected = "le fichier est protégé en écriture; il reste tel qu'il était";

class ReplacedFile {
 public:
  // A target that is a symbolic link stands for the file it leads to. Throws FileError, as the others do.
  explicit ReplacedFile(const std::string& target, bool backup = true);
  ~ReplacedFile();
  ReplacedFile(const ReplacedFile&) = delete;
  ReplacedFile& operator=(const ReplacedFile&) = delete;
  void write(std::string_view bytes);
  // Replaces the target, once all is on the disk unless it needn't be.
  void keep(bool flushed = true);

 private:
  void put(std::string_view bytes);
  [[noreturn]] void fail(const std::string& what, int error) const;
  std::string name_, target_, path_, buffer_;
  std::size_t written_ = 0, pushed_ = 0;
  int file_ = -1;
  bool backup_ = true, kept_ = false;
};

}  // namespace atelier::dxf
