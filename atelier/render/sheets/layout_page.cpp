// The settings of a layout stand in its LAYOUT object: sheet, margins, rotation, scale.
// Reference: DXF reference, "LAYOUT" and "PLOTSETTINGS".
#include "atelier/render/sheets/layout_page.h"

#include <algorithm>
#include <filesystem>

#include "atelier/base/text.h"
#include "atelier/database/objects/layouts.h"
#include "atelier/database/records/groups.h"
#include "atelier/render/shapes/plot_error.h"
#include "atelier/render/sheets/ink_tables.h"

namespace atelier::render {
namespace {

constexpr double kInchMm = 25.4;

Record settingsOf(AcDbImpDatabase& database, AcDbStub& space) {
  AcDbStub* const layout = layoutOf(space);
  return layout ? AcDbImpObject::of(&database.object(*layout)).settled() : Record();
}

struct Sheet {
  double widthMm = 0, heightMm = 0;
  double leftMm = 0, bottomMm = 0;  // of the printable part, where the layout's origin is
  double perUnit = 1;               // millimetres
  bool known() const { return widthMm > 0 && heightMm > 0 && perUnit > 0; }
  Affine toPage() const { return {perUnit, 0, 0, -perUnit, leftMm, heightMm - bottomMm}; }
};

Sheet sheetOf(const Record& settings) {
  const Groups g(settings);
  enum Turn { none, quarter, half, threeQuarters };
  const double margins[] = {g.real(40), g.real(41), g.real(42),
                            g.real(43)};  // left, bottom, right, top as the sheet is fed
  constexpr int kLeft[] = {0, 3, 2, 1}, kBottom[] = {1, 0, 3, 2};
  const int turn = static_cast<int>(std::clamp<std::int64_t>(g.integer(73), none, threeQuarters));
  Sheet sheet;
  sheet.widthMm = g.real(turn % 2 ? 45 : 44);
  sheet.heightMm = g.real(turn % 2 ? 44 : 45);
  sheet.leftMm = margins[kLeft[turn]] + g.real(46);
  sheet.bottomMm = margins[kBottom[turn]] + g.real(47);
  const double unit = g.integer(72, 1) == 0 ? kInchMm : 1;
  const double numerator = g.real(142, 1), denominator = g.real(143, 1);
  sheet.perUnit = denominator > 0 && numerator > 0 ? unit * numerator / denominator : unit;
  return sheet;
}

bool showsSomething(AcDbImpDatabase& database, const AcDbStub& space) {
  if (!viewportsOf(database, space).empty()) return true;
  return space.children && std::ranges::any_of(*space.children, [&](const AcDbStub* stub) {
           return !stub->is(AcDbStub::kErased) && database.typeName(*stub) != "VIEWPORT";
         });
}

// With the name of the layout behind its own; a slash of the layout becomes "_".
std::string fileOf(const std::string& file, std::string layout) {
  std::ranges::replace(layout, '/', '_');
  const std::filesystem::path path(file);
  return (path.parent_path() / (path.stem().string() + "-" + layout + path.extension().string())).string();
}

}  // namespace

LayoutPage::LayoutPage(const AcDbDatabase& database, AcDbStub& space, const PlotRequest& request)
    : database_(AcDbImpDatabase::of(&database)), space_(space) {
  SceneOptions own = forPlot();
  own.space = &space;
  scenes_.emplace_back(database, own);
  viewports_ = viewportsOf(database_, space);
  for (const Viewport& viewport : viewports_) addView(database, viewport);
  layOut(request);
}

void LayoutPage::addView(const AcDbDatabase& database, const Viewport& viewport) {
  if (!viewport.fromAbove) {
    warnings.push_back("fenêtre de présentation qui n'est pas vue de dessus, non représentée");
    return;
  }
  SceneOptions model = forPlot();
  model.frozen = viewport.frozen;
  model.clip = viewport.clip;
  // Line types are as long on paper in every viewport, unless the drawing says otherwise.
  if (database_.header.integer("$PSLTSCALE", 1) != 0) model.patternScale = 1 / viewport.scale;
  scenes_.emplace_back(database, model);
  views_.push_back({&scenes_.back(), viewport.toPaper, viewport.window});
}

Inks LayoutPage::inks() const { return inksOf(space_); }

Box LayoutPage::content() const {
  Box all = scenes_.front().bounds();
  for (const Viewport& viewport : viewports_) all.add(viewport.window);
  return all;
}

void LayoutPage::layOut(const PlotRequest& request) {
  const Sheet sheet = sheetOf(settingsOf(database_, space_));
  const bool asked = request.scale || request.paper || request.window;
  const Box sheetMm{0, 0, sheet.widthMm, sheet.heightMm};
  Affine toPage = sheet.toPage();
  Box clip = sheetMm;
  page_.widthMm = sheet.widthMm, page_.heightMm = sheet.heightMm;
  if (asked || !sheet.known() || !content().mapped(toPage).meets(sheetMm)) {
    PlotRequest fitted = request;
    fitted.unitMm = sheet.perUnit;
    const Page page = layOutPage(content(), fitted);
    toPage = page.toPage, clip = page.clipMm;
    page_.widthMm = page.widthMm, page_.heightMm = page.heightMm;
    warnings.insert(warnings.end(), page.warnings.begin(), page.warnings.end());
  }
  for (const View& view : views_) {
    Box window = view.window.mapped(toPage);
    window = {std::max(window.xMin, clip.xMin), std::max(window.yMin, clip.yMin), std::min(window.xMax, clip.xMax),
              std::min(window.yMax, clip.yMax)};
    if (!window.empty()) page_.parts.push_back({view.scene, toPage * view.toPaper, window});
  }
  page_.parts.push_back({&scenes_.front(), toPage, clip});
  for (const WholeScene& scene : scenes_)
    warnings.insert(warnings.end(), scene.warnings().begin(), scene.warnings().end());
}

std::vector<std::string> layoutsOf(const AcDbDatabase& database) {
  AcDbImpDatabase& imp = AcDbImpDatabase::of(&database);
  std::vector<std::string> names;
  for (AcDbStub* sheet : sheetsOf(imp))
    if (showsSomething(imp, *sheet)) names.push_back(layoutNameOf(*sheet));
  return names;
}

std::optional<Box> sheetArea(AcDbImpDatabase& database, AcDbStub& space) {
  const Sheet sheet = sheetOf(settingsOf(database, space));
  if (!sheet.known()) return std::nullopt;
  const double k = 1 / sheet.perUnit;
  return Box{-k * sheet.leftMm, -k * sheet.bottomMm, k * (sheet.widthMm - sheet.leftMm),
             k * (sheet.heightMm - sheet.bottomMm)};
}

std::vector<std::string> plotLayouts(const AcDbDatabase& database, const std::vector<std::string>& names,
                                     const std::string& file, const PlotOptions& options) {
  const FileKind kind = kindOf(file);
  std::deque<LayoutPage> pages;
  for (const std::string& name : names) {
    AcDbStub* space = spaceOfLayout(AcDbImpDatabase::of(&database), name);
    if (!space) throw PlotError("pas de présentation " + name + " dans ce dessin");
    pages.emplace_back(database, *space, options.page);
  }
  std::vector<std::string> warnings;
  std::vector<PaintedPage> painted;
  for (const LayoutPage& page : pages) {
    painted.push_back(page.page());
    painted.back().inks = options.inks ? *options.inks : page.inks();
    warnings.insert(warnings.end(), page.warnings.begin(), page.warnings.end());
  }
  if (kind == FileKind::pdf || painted.size() == 1) {
    writePages(painted, file, options.dpi);
  } else {
    for (std::size_t i = 0; i < painted.size(); ++i) writePages({&painted[i], 1}, fileOf(file, names[i]), options.dpi);
  }
  return warnings;
}

}  // namespace atelier::render
