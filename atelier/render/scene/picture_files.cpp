// A file is read again once it has changed.
#include "atelier/render/scene/picture_files.h"

#include <gdk-pixbuf/gdk-pixbuf.h>

#include <algorithm>
#include <cmath>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <mutex>

namespace atelier::render {
namespace {

constexpr double kMostPixels = 24e6;   // that are kept: a hundred megabytes
constexpr double kMostInFile = 400e6;  // that are read at all

using Held = std::unique_ptr<GdkPixbuf, decltype(&g_object_unref)>;

Held read(const std::string& file, std::string& reason) {
  int width = 0, height = 0;
  if (!gdk_pixbuf_get_file_info(file.c_str(), &width, &height)) {
    reason = "format inconnu";
    return {nullptr, g_object_unref};
  }
  const double pixels = static_cast<double>(width) * height;
  if (pixels > kMostInFile) {
    reason = "plus de 400 millions de points";
    return {nullptr, g_object_unref};
  }
  GError* error = nullptr;
  const double factor = std::sqrt(kMostPixels / pixels);
  GdkPixbuf* made =
      factor >= 1 ? gdk_pixbuf_new_from_file(file.c_str(), &error)
                  : gdk_pixbuf_new_from_file_at_scale(file.c_str(), std::max(1, static_cast<int>(width * factor)),
                                                      std::max(1, static_cast<int>(height * factor)), FALSE, &error);
  if (error) {
    reason = "fichier endommagé";
    g_error_free(error);
  }
  return {made, g_object_unref};
}

std::shared_ptr<Picture> converted(GdkPixbuf* source) {
  auto made = std::make_shared<Picture>();
  made->width = gdk_pixbuf_get_width(source), made->height = gdk_pixbuf_get_height(source);
  const auto channels = static_cast<std::size_t>(gdk_pixbuf_get_n_channels(source));
  const auto stride = static_cast<std::size_t>(gdk_pixbuf_get_rowstride(source));
  const guint8* const bytes = gdk_pixbuf_read_pixels(source);
  const auto width = static_cast<std::size_t>(made->width), height = static_cast<std::size_t>(made->height);
  made->pixels.reserve(width * height);
  for (std::size_t row = 0; row < height; ++row)
    for (std::size_t column = 0; column < width; ++column) {
      const guint8* const p = bytes + row * stride + column * channels;
      const std::uint32_t alpha = channels == 4 ? p[3] : 255;
      const auto part = [&](int i) { return (p[i] * alpha + 127) / 255; };
      made->pixels.push_back(alpha << 24 | part(0) << 16 | part(1) << 8 | part(2));
    }
  return made;
}

// Whether the file is a JPEG that was read at its full size.
bool wholeJpeg(const std::string& file, const Picture& picture) {
  int width = 0, height = 0;
  GdkPixbufFormat* const format = gdk_pixbuf_get_file_info(file.c_str(), &width, &height);
  if (!format || picture.width != width || picture.height != height) return false;
  gchar* const name = gdk_pixbuf_format_get_name(format);
  const bool jpeg = std::string_view(name) == "jpeg";
  g_free(name);
  return jpeg;
}

std::string bytesOf(const std::string& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

struct Known {
  std::filesystem::file_time_type changed;
  std::weak_ptr<const Picture> picture;
};

}  // namespace

std::shared_ptr<const Picture> pictureOf(const std::string& file, std::string& reason) {
  static std::mutex lock;
  static std::map<std::string, Known> known;
  const std::lock_guard guard(lock);
  std::error_code error;
  const auto changed = std::filesystem::last_write_time(file, error);
  Known& entry = known[file];
  if (auto picture = entry.picture.lock(); picture && entry.changed == changed) return picture;
  const Held source = read(file, reason);
  if (!source) return nullptr;
  auto picture = converted(source.get());
  if (wholeJpeg(file, *picture)) picture->jpeg = bytesOf(file);
  entry = {changed, picture};
  return picture;
}

}  // namespace atelier::render
