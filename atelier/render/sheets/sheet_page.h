// One page of a sheet set: views clipped to their windows, insets, match lines and graduation. Inner header of the room.
#pragma once

#include <cairo.h>

#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/sheets/sheets.h"

namespace atelier::render {

class SheetPage {
 public:
  SheetPage(const SheetCanvas& canvas, const Template& model, const Inks& inks, const fonts::FontStyle& font)
      : canvas_(canvas), model_(model), inks_(inks), font_(font) {}

  // Millimetres of the template to those of the page, from its top left corner.
  Affine paper() const { return {1, 0, 0, -1, -model_.sheet.xMin, model_.sheet.yMax}; }
  // Draws the part in the window with a map to the page, without the objects of these handles.
  void show(const WholeScene& scene, const Affine& toPage, const Box& windowMm,
            const std::set<std::uint64_t>& hidden = {}) const;
  // Throws PlotError for a view without size, or when the room is too small.
  void views(const WholeScene& drawing, const Sheet& sheet) const;
  // What is drawn on the sheet itself.
  void items(const std::vector<PaperItem>& items) const;

 private:
  // Where all views and insets stand: drawing units from the left of the first view, at the heights of the drawing.
  struct Row {
    std::vector<double> lefts;  // of the views
    Box whole;
  };
  static Row rowOf(const Sheet& sheet);
  // Page millimetres: the room, and what a plan strip leaves of it.
  Box room() const;
  static Box beneath(Box room, const std::optional<PlanStrip>& plan);
  Pt corner(const Row& row, double perUnit, const Box& room) const;
  void strip(const WholeScene& drawing, const PlanStrip& plan, double perUnit, double x) const;
  void matchLine(const MatchLine& cut, const Affine& toPage) const;
  void graduation(const Graduation& axis, double x, const Affine& toPage) const;

  // y downwards, as pages have it.
  GlyphRun written(const std::string& text, Pt at, double height, int side, double angle = 0) const;

  const SheetCanvas canvas_;
  const Template& model_;
  Inks inks_;
  fonts::Font font_;
};

}  // namespace atelier::render
