// The model space on one page.
#include "atelier/render/sheets/plot.h"

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/sheets/ink_tables.h"
#include "atelier/render/sheets/painted_page.h"

namespace atelier::render {

namespace {

// Those that the layout of the model space names.
Inks inksOfModel(const WholeScene& scene) {
  const AcDbDatabase* const drawing = scene.drawing();
  AcDbStub* const model = drawing ? AcDbImpDatabase::of(drawing).modelSpace() : nullptr;
  return model ? inksOf(*model) : nullptr;
}

}  // namespace

std::vector<std::string> plot(const WholeScene& scene, const std::string& file, const PlotOptions& options) {
  kindOf(file);
  const Page page = layOutPage(scene.bounds(), options.page);
  const PaintedPage painted{page.widthMm,
                            page.heightMm,
                            {{&scene, page.toPage, page.clipMm}},
                            options.inks ? *options.inks : inksOfModel(scene)};
  writePages({&painted, 1}, file, options.dpi);
  std::vector<std::string> warnings = scene.warnings();
  warnings.insert(warnings.end(), page.warnings.begin(), page.warnings.end());
  if (!painted.inks && !scene.empty() && !scene.showsOnPaper())
    warnings.push_back("rien de visible : tout est blanc sur la feuille");
  return warnings;
}

}  // namespace atelier::render
