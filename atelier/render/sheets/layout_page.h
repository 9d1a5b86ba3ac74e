// Layouts on pages of their own size: what stands in paper space, and the model through its viewports.
#pragma once

#include <deque>
#include <optional>
#include <string>
#include <vector>

#include "atelier/database/objects/imp_database.h"
#include "atelier/render/scene/viewports.h"
#include "atelier/render/sheets/painted_page.h"
#include "atelier/render/sheets/plot.h"

namespace atelier::render {

// The layouts that show something, in the order of their tabs; the model space isn't among them.
std::vector<std::string> layoutsOf(const AcDbDatabase& database);

// The sheet of a layout in units of the layout; none when its settings don't tell.
std::optional<Box> sheetArea(AcDbImpDatabase& database, AcDbStub& space);

// What stands in a layout, on its page. The sheet and the scale are those of the layout, unless the request says otherwise.
// The drawing outlives it. Throws PlotError as plot does.
class LayoutPage {
 public:
  LayoutPage(const AcDbDatabase& database, AcDbStub& space, const PlotRequest& request);
  LayoutPage(const LayoutPage&) = delete;
  LayoutPage& operator=(const LayoutPage&) = delete;

  const PaintedPage& page() const { return page_; }
  Inks inks() const;                  // those that the layout names
  std::vector<std::string> warnings;  // French

 private:
  struct View {
    const WholeScene* scene;
    Affine toPaper;
    Box window;
  };
  void addView(const AcDbDatabase& database, const Viewport& viewport);
  Box content() const;
  void layOut(const PlotRequest& request);

  AcDbImpDatabase& database_;
  AcDbStub& space_;
  std::deque<WholeScene> scenes_;  // the layout itself, then the model for each viewport
  std::vector<Viewport> viewports_;
  std::vector<View> views_;
  PaintedPage page_;
};

// Plots layouts by their names: pages of a PDF; of pictures one file each, named after both, when there are several.
// Gives warnings in French. Throws PlotError as plot does, and for a layout that isn't there.
std::vector<std::string> plotLayouts(const AcDbDatabase& database, const std::vector<std::string>& names,
                                     const std::string& file, const PlotOptions& options);

}  // namespace atelier::render
