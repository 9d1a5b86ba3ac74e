// The model space on one page.
#include "atelier/render/sheets/plot.h"

#include "atelier/render/sheets/painted_page.h"

namespace atelier::render {

std::vector<std::string> plot(const WholeScene& scene, const std::string& file, const PlotOptions& options) {
  kindOf(file);
  const Page page = layOutPage(scene.bounds(), options.page);
  const PaintedPage painted{page.widthMm, page.heightMm, {{&scene, page.toPage, page.clipMm}}, options.inks};
  writePages({&painted, 1}, file, options.dpi);
  std::vector<std::string> warnings = scene.warnings();
  warnings.insert(warnings.end(), page.warnings.begin(), page.warnings.end());
  if (!scene.empty() && !scene.showsOnPaper()) warnings.push_back("rien de visible : tout est blanc sur la feuille");
  return warnings;
}

}  // namespace atelier::render
