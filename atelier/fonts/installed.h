// The fonts installed on the machine, as fontconfig knows them.
// Inner header of the room: fontconfig stays behind it.
#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace atelier::fonts {

struct FontFile {
  std::string path;
  int index = 0;
};

// By name of file, letter case ignored: "DejaVuSans.ttf".
std::optional<FontFile> installedFile(std::string_view name);
// By family, exactly (letter case ignored); the style nearest to the one asked for.
std::optional<FontFile> installedFamily(std::string_view family, bool bold, bool italic);
// Any font that has the character, the best match for a sans serif first.
std::optional<FontFile> installedWith(char32_t c);

}  // namespace atelier::fonts
