// Images in files, and masks.
// An image that can't be shown is a frame with the name of its file.
#include <algorithm>
#include <cmath>

#include "atelier/base/files.h"
#include "atelier/database/objects/extension_objects.h"
#include "atelier/database/pictures/raster_outline.h"
#include "atelier/render/scene/picture_files.h"
#include "atelier/render/scene/scene_builder.h"

namespace atelier::render {

namespace {

Path areaOf(const Entity& e, const RasterOutline& outline) {
  Path area;
  for (const AcGePoint3d& corner : outline.corners) area.lineTo(e.world(corner));
  area.close();
  if (!outline.inverted) return area;
  const double right = outline.columns, down = outline.rows;
  Path around;
  for (const auto& [x, y] : {std::pair{0.0, 0.0}, {right, 0.0}, {right, down}, {0.0, down}})
    around.lineTo(e.world(outline.at(x, y)));
  around.close();
  around.append(area);
  return around;
}

// Whether frames are drawn, as the drawing's settings for this kind say.
bool framed(SceneBuilder& scene, std::string_view settings, std::string_view mark, bool missing) {
  AcDbStub* stub = rootObject(scene.database(), settings);
  if (!stub) return missing;
  return AcDbImpObject::of(&scene.database().object(*stub)).record.integer(integerField(mark, 70)) == 1;
}

std::string nameOfFile(SceneBuilder& scene, const Entity& e) {
  const Group* definition = e.groups.find(340);
  AcDbStub* stub = definition ? scene.database().stubOf(definition->handle()) : nullptr;
  if (!stub || stub->is(AcDbStub::kErased) || scene.database().typeName(*stub) != "IMAGEDEF") return {};
  return AcDbImpObject::of(&scene.database().object(*stub)).record.text(textField("AcDbRasterImageDef", 1));
}

std::shared_ptr<const Picture> load(SceneBuilder& scene, const std::string& name) {
  const auto file = name.empty() ? std::nullopt : fileBeside(scene.database().path, name);
  std::string reason = "introuvable";
  auto picture = file ? pictureOf(*file, reason) : nullptr;
  if (!picture)
    scene.cannotShow("image " + (name.empty() ? "sans fichier" : name + " : " + reason) +
                     ", représentée par son cadre");
  return picture;
}

// The name in the middle, along the image's lower side, within the frame.
void writeName(SceneBuilder& scene, const Entity& e, const RasterOutline& outline, std::string name) {
  name = name.substr(name.find_last_of("/\\") + 1);
  const fonts::Font& font = scene.font({});
  const fonts::TextLine line = font.layout(name);
  const AcGePoint3d low = outline.at(0, outline.rows), middle = outline.at(outline.columns / 2, outline.rows / 2);
  const Pt o = e.world(low), right = e.world(outline.at(outline.columns, outline.rows)) - o,
           up = e.world(outline.at(0, 0)) - o;
  const double width = std::hypot(right.x, right.y), tall = std::hypot(up.x, up.y);
  if (!(width > 0) || !(tall > 0) || !(line.advance > 0)) return;
  constexpr double kShareAcross = 0.9, kShareUp = 0.2;
  const double height = std::min(kShareAcross * width / line.advance, kShareUp * tall);
  const Pt x = 1 / width * right, y = 1 / tall * up, at = e.world(middle);
  const Affine map{height * x.x, height * x.y, height * y.x, height * y.y, at.x, at.y};
  scene.add(e, GlyphRun{line, map * Affine::translation(-line.advance / 2, -0.5), e.look.colour});
}

}  // namespace

void drawWipeout(SceneBuilder& scene, const Entity& e) {
  const RasterOutline outline = rasterOutline(e.record);
  scene.fill(e, areaOf(e, outline), true, kBackground);
  if (framed(scene, "ACAD_WIPEOUT_VARS", "AcDbWipeoutVariables", false)) scene.stroke(e, areaOf(e, outline));
}

void drawImage(SceneBuilder& scene, const Entity& e) {
  constexpr int kShown = 1;
  const RasterOutline outline = rasterOutline(e.record);
  const std::string name = nameOfFile(scene, e);
  const bool shown = (e.groups.integer(70, kShown) & kShown) != 0;
  const auto picture = shown ? load(scene, name) : nullptr;
  if (picture && outline.columns > 0 && outline.rows > 0) {
    const Pt o = e.world(outline.at(0, 0)), right = e.world(outline.at(outline.columns, 0)) - o,
             down = e.world(outline.at(0, outline.rows)) - o;
    const double w = picture->width, h = picture->height;
    Raster raster{picture, {right.x / w, right.y / w, down.x / h, down.y / h, o.x, o.y}, areaOf(e, outline)};
    const double fade = std::clamp(e.groups.real(283), 0.0, 100.0);
    raster.alpha = static_cast<std::uint8_t>(std::lround(e.look.colour.alpha * (1 - fade / 100)));
    scene.add(e, std::move(raster));
  }
  if (!picture || framed(scene, "ACAD_IMAGE_VARS", "AcDbRasterVariables", true)) scene.stroke(e, areaOf(e, outline));
  if (shown && !picture) writeName(scene, e, outline, name);
}

}  // namespace atelier::render
