// Pictures in files.
#pragma once

#include <memory>
#include <string>

#include "atelier/render/shapes/primitives.h"

namespace atelier::render {

// The picture of a file (PNG, JPEG, TIFF, BMP ...), made smaller when it has more pixels than a sheet shows; null when it
// can't be read, with the reason in French. Kept as long as somebody uses it.
std::shared_ptr<const Picture> pictureOf(const std::string& file, std::string& reason);

}  // namespace atelier::render
