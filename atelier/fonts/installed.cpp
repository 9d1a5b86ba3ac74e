// Questions to fontconfig, each answered with a file or nothing.
// FcFontMatch always gives some font; the family that it gives is compared with the one asked for.
#include "atelier/fonts/installed.h"

#include <fontconfig/fontconfig.h>

#include <algorithm>
#include <map>
#include <memory>

namespace atelier::fonts {

namespace {

struct Deleter {
  void operator()(FcPattern* p) const { FcPatternDestroy(p); }
  void operator()(FcObjectSet* p) const { FcObjectSetDestroy(p); }
  void operator()(FcFontSet* p) const { FcFontSetDestroy(p); }
  void operator()(FcCharSet* p) const { FcCharSetDestroy(p); }
  void operator()(FcConfig* p) const { FcConfigDestroy(p); }
};
template <class T>
using Held = std::unique_ptr<T, Deleter>;

// A configuration of our own, so that no other part of the process (a desktop toolkit) changes or releases it.
FcConfig* config() {
  static const Held<FcConfig> own(FcInitLoadConfigAndFonts());
  return own.get();
}

const FcChar8* bytes(const std::string& s) { return reinterpret_cast<const FcChar8*>(s.c_str()); }

std::optional<FontFile> fileOf(FcPattern* font) {
  FcChar8* path = nullptr;
  int index = 0;
  FcBool scalable = FcFalse;
  if (!font || FcPatternGetString(font, FC_FILE, 0, &path) != FcResultMatch) return std::nullopt;
  if (FcPatternGetBool(font, FC_SCALABLE, 0, &scalable) == FcResultMatch && !scalable) return std::nullopt;
  FcPatternGetInteger(font, FC_INDEX, 0, &index);
  return FontFile{reinterpret_cast<const char*>(path), index & 0xFFFF};
}

std::string folded(std::string_view name) {
  std::string out(name);
  std::ranges::transform(out, out.begin(), [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c; });
  return out;
}

std::map<std::string, FontFile, std::less<>> readFiles() {
  std::map<std::string, FontFile, std::less<>> files;
  const Held<FcPattern> any(FcPatternCreate());
  const Held<FcObjectSet> wanted(FcObjectSetBuild(FC_FILE, FC_INDEX, FC_SCALABLE, nullptr));
  const Held<FcFontSet> fonts(FcFontList(config(), any.get(), wanted.get()));
  for (int i = 0; fonts && i < fonts->nfont; ++i) {
    const auto file = fileOf(fonts->fonts[i]);
    if (!file) continue;
    // A collection holds several faces under one file name: the first is kept.
    const auto [at, fresh] = files.try_emplace(folded(file->path.substr(file->path.rfind('/') + 1)), *file);
    if (!fresh && file->index < at->second.index) at->second = *file;
  }
  return files;
}

Held<FcPattern> match(FcPattern* pattern) {
  FcConfigSubstitute(config(), pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  return Held<FcPattern>(FcFontMatch(config(), pattern, &result));
}

bool hasFamily(FcPattern* font, const std::string& family) {
  FcChar8* name = nullptr;
  for (int i = 0; FcPatternGetString(font, FC_FAMILY, i, &name) == FcResultMatch; ++i)
    if (FcStrCmpIgnoreCase(name, bytes(family)) == 0) return true;
  return false;
}

}  // namespace

std::optional<FontFile> installedFile(std::string_view name) {
  static const auto files = readFiles();
  const auto at = files.find(folded(name));
  return at == files.end() ? std::nullopt : std::optional(at->second);
}

std::optional<FontFile> installedFamily(std::string_view family, bool bold, bool italic) {
  const std::string name(family);
  const Held<FcPattern> pattern(FcPatternCreate());
  FcPatternAddString(pattern.get(), FC_FAMILY, bytes(name));
  FcPatternAddInteger(pattern.get(), FC_WEIGHT, bold ? FC_WEIGHT_BOLD : FC_WEIGHT_REGULAR);
  FcPatternAddInteger(pattern.get(), FC_SLANT, italic ? FC_SLANT_ITALIC : FC_SLANT_ROMAN);
  const auto found = match(pattern.get());
  return found && hasFamily(found.get(), name) ? fileOf(found.get()) : std::nullopt;
}

std::optional<FontFile> installedWith(char32_t c) {
  const Held<FcPattern> pattern(FcPatternCreate());
  const Held<FcCharSet> characters(FcCharSetCreate());
  FcCharSetAddChar(characters.get(), c);
  FcPatternAddCharSet(pattern.get(), FC_CHARSET, characters.get());
  FcPatternAddString(pattern.get(), FC_FAMILY, reinterpret_cast<const FcChar8*>("sans-serif"));
  FcPatternAddBool(pattern.get(), FC_SCALABLE, FcTrue);
  const auto found = match(pattern.get());
  return found ? fileOf(found.get()) : std::nullopt;
}

}  // namespace atelier::fonts
