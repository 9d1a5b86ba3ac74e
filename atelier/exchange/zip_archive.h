// The files of a ZIP archive, as workbooks are.
#pragma once
#include <map>
#include <string>
#include <string_view>

namespace atelier::exchange {

class ZipArchive {
 public:
  // Throws FileError for what is no archive.
  explicit ZipArchive(const std::string& path);
  bool has(const std::string& name) const { return entries_.contains(name); }
  // The bytes of a file of the archive, none for an absent one. Throws FileError for damaged and for enormous ones.
  std::string file(const std::string& name) const;

 private:
  struct Entry {
    std::size_t method, checksum, packed, size, offset;
  };
  [[noreturn]] void damaged() const;
  std::size_t number(std::size_t at, std::size_t bytes) const;
  std::string path_, bytes_;
  std::map<std::string, Entry> entries_;
};

}  // namespace atelier::exchange
