// What is kept of a file that was read, so that only changes differ when it is written again.
// Offsets count bytes from the start of the file.
#pragma once
#include <array>
#include <memory>
#include <optional>
#include <unordered_map>

#include "atelier/database/objects/imp_database.h"
#include "atelier/dxf/groups/mapped_file.h"
#include "atelier/dxf/groups/value_codec.h"

namespace atelier::dxf {

// Sections in the order of a drawing file; other: sections that are only copied.
enum class Section : std::uint8_t { header, classes, tables, blocks, entities, objects, other };
inline constexpr std::array<std::string_view, 6> kSectionNames = {"HEADER", "CLASSES",  "TABLES",
                                                                  "BLOCKS", "ENTITIES", "OBJECTS"};
Section sectionNamed(std::string_view name);

// Damage found in recovering: bytes to leave out, and groups to write in their place.
struct Repair {
  std::size_t offset = 0, skip = 0;
  std::vector<Group> groups;
};

struct FileLayout {
  std::shared_ptr<const MappedFile> file;  // null for the built-in drawing
  std::string_view bytes;
  Style style;
  std::string version;      // $ACADVER, "AC1032" for R2018; "AC1009" when it is missing
  bool hasHandles = false;  // an R12 drawing may have none

  // Where new records are inserted: before the end mark of each section or table.
  struct Place {
    std::size_t begin;  // of 0 SECTION
    std::size_t end;    // of 0 ENDSEC
  };
  std::array<std::optional<Place>, 6> sections;
  std::optional<Place> solids;  // the ACDSDATA section: solid-model data of R2013 and later
  std::size_t fileEnd = 0;      // of 0 EOF, or of the file
  bool endMissing = false;      // 0 EOF
  std::unordered_map<const AcDbStub*, std::size_t> tableEnd;
  std::vector<Repair> repairs;
  struct Carried {
    std::string name;
    Place place;
  };
  std::vector<Carried> carried;  // the sections that are not modelled

  const std::optional<Place>& place(Section section) const { return sections[static_cast<std::size_t>(section)]; }
  bool atLeast(std::string_view acadVersion) const { return version >= acadVersion; }
};

inline constexpr std::string_view kR12 = "AC1009", kR13 = "AC1012", kR2000 = "AC1015", kR2007 = "AC1021",
                                  kR2018 = "AC1032";

}  // namespace atelier::dxf
