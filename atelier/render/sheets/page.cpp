// Chooses a sheet and places the drawing on it.
// All depends on the size of the content in millimetres on paper.
#include "atelier/render/sheets/page.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "atelier/render/shapes/plot_error.h"

namespace atelier::render {

namespace {

constexpr std::array<Paper, 5> kPapers{
    {{"A4", 210, 297}, {"A3", 297, 420}, {"A2", 420, 594}, {"A1", 594, 841}, {"A0", 841, 1189}}};
// PDF pages may not be longer than 200 inches.
constexpr double kLongestMm = 5080;
// A sheet is not refused for less than this.
constexpr double kSlackMm = 0.05;

struct Size {
  double width, height;
};

bool fits(Size content, Size room) {
  return content.width <= room.width + kSlackMm && content.height <= room.height + kSlackMm;
}

Size oriented(const Paper& paper, Size content) {
  return content.width > content.height ? Size{paper.longMm, paper.shortMm} : Size{paper.shortMm, paper.longMm};
}

Size within(Size sheet, double margin) { return {sheet.width - 2 * margin, sheet.height - 2 * margin}; }

std::string number(double value, int decimals = 0) {
  char buffer[64];
  const auto [end, error] = std::to_chars(buffer, buffer + sizeof buffer, value, std::chars_format::fixed, decimals);
  std::string out(buffer, error == std::errc() ? end : buffer);
  if (const auto point = out.find('.'); point != std::string::npos) {
    out.erase(out.find_last_not_of('0') + 1);
    if (out.back() == '.') out.pop_back();
  }
  return out;
}

std::string dimensions(Size s) { return number(s.width) + " x " + number(s.height) + " mm"; }

std::string scaleName(double denominator) { return "1:" + number(denominator, denominator < 10 ? 3 : 0); }

// The next usual scale at or above the denominator: 1, 2, 2.5, 5, 7.5 by powers of ten.
double usualScale(double denominator) {
  const double power = std::pow(10, std::floor(std::log10(denominator)));
  for (const double step : {1.0, 2.0, 2.5, 5.0, 7.5})
    if (step * power >= denominator * (1 - 1e-9)) return step * power;
  return 10 * power;
}

std::optional<double> readNumber(std::string_view text) {
  const auto trimmed = [](std::string_view s) {
    while (s.starts_with(' ')) s.remove_prefix(1);
    while (s.ends_with(' ')) s.remove_suffix(1);
    return s;
  };
  text = trimmed(text);
  double value = 0;
  const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
  const bool whole = error == std::errc() && end == text.data() + text.size();
  return whole && std::isfinite(value) ? std::optional(value) : std::nullopt;
}

double fitScale(const Box& content, Size room, double unitMm) {
  const double scale = std::max(content.width() * unitMm / room.width, content.height() * unitMm / room.height);
  return scale > 0 ? scale : 1;  // a single point is shown at 1:1
}

Size roll(Size content, double margin) {
  // A roll is at least A4 high, so that a thin profile still folds to A4.
  const Size sheet{std::max(content.width + 2 * margin, 297.0), std::max(content.height + 2 * margin, 297.0)};
  if (std::max(sheet.width, sheet.height) > kLongestMm)
    throw PlotError("le dessin demande une feuille de " + dimensions(sheet) + ", le maximum est " + number(kLongestMm) +
                    " mm : choisissez une échelle plus petite, une fenêtre ou \"fit\"");
  return sheet;
}

Size smallestSheet(Size content, double margin) {
  for (const Paper& paper : kPapers)
    if (fits(content, within(oriented(paper, content), margin))) return oriented(paper, content);
  return roll(content, margin);
}

std::string overflow(const Paper& paper, Size content, Size room, double scale) {
  const double needed = scale * std::max(content.width / room.width, content.height / room.height);
  std::string text = "à l'échelle " + scaleName(scale) + " le dessin mesure " + dimensions(content) + ", la feuille " +
                     std::string(paper.name) + " n'offre que " + dimensions(room) +
                     " : il est centré et coupé. Il tiendrait à l'échelle " + scaleName(usualScale(needed));
  const double margin = (oriented(paper, content).width - room.width) / 2;
  for (const Paper& larger : kPapers)
    if (larger.longMm > paper.longMm && fits(content, within(oriented(larger, content), margin)))
      return text + " ou sur une feuille " + std::string(larger.name) + ".";
  return text + " ou, sans format imposé, sur un rouleau.";
}

void place(Page& page, const Box& content, double perUnit, double margin) {
  const Pt centre = content.empty() ? Pt{} : Pt{(content.xMin + content.xMax) / 2, (content.yMin + content.yMax) / 2};
  page.toPage = {
      perUnit, 0, 0, -perUnit, page.widthMm / 2 - perUnit * centre.x, page.heightMm / 2 + perUnit * centre.y};
  page.clipMm.add(Pt{margin, margin});
  page.clipMm.add(Pt{page.widthMm - margin, page.heightMm - margin});
  const auto back = [&](double x, double y) {
    return Pt{(x - page.toPage.x0) / perUnit, (page.toPage.y0 - y) / perUnit};
  };
  page.view.add(back(page.clipMm.xMin, page.clipMm.yMin));
  page.view.add(back(page.clipMm.xMax, page.clipMm.yMax));
}

// A window is a frame: nothing outside it is plotted, even where the sheet has room.
void clipToWindow(Page& page, const Box& window) {
  const Box onPage = fonts::rectangle(window).bounds(page.toPage);
  const auto cut = [](Box& box, const Box& by) {
    box.xMin = std::max(box.xMin, by.xMin), box.xMax = std::min(box.xMax, by.xMax);
    box.yMin = std::max(box.yMin, by.yMin), box.yMax = std::min(box.yMax, by.yMax);
  };
  cut(page.clipMm, onPage);
  cut(page.view, window);
}

}  // namespace

std::optional<double> parseScale(std::string_view text) {
  if (text == "fit") return std::nullopt;
  std::string_view denominator = text;
  if (text.starts_with("1:") || text.starts_with("1/")) denominator.remove_prefix(2);
  const auto value = readNumber(denominator);
  if (!value || *value <= 0) throw PlotError("échelle \"" + std::string(text) + "\" : attendu \"1:200\" ou \"fit\"");
  return value;
}

Paper parsePaper(std::string_view text) {
  for (const Paper& paper : kPapers)
    if (text.size() == 2 && (text[0] == 'A' || text[0] == 'a') && text[1] == paper.name[1]) return paper;
  throw PlotError("format de papier \"" + std::string(text) + "\" : attendu A4, A3, A2, A1 ou A0");
}

Box parseWindow(std::string_view text) {
  std::array<double, 4> c{};
  std::string_view rest = text;
  for (std::size_t i = 0; i < 4; ++i) {
    const auto comma = i < 3 ? rest.find(',') : rest.size();
    const auto value = comma <= rest.size() ? readNumber(rest.substr(0, comma)) : std::nullopt;
    if (!value) throw PlotError("fenêtre \"" + std::string(text) + "\" : attendu quatre nombres x1,y1,x2,y2");
    c[i] = *value;
    rest.remove_prefix(std::min(comma + 1, rest.size()));
  }
  Box box;
  box.add(Pt{c[0], c[1]});
  box.add(Pt{c[2], c[3]});
  if (box.width() <= 0 || box.height() <= 0)
    throw PlotError("fenêtre \"" + std::string(text) + "\" : les deux coins doivent différer en x et en y");
  return box;
}

double parseDpi(std::string_view text) {
  const auto value = readNumber(text);
  if (!value || *value < kLeastDpi || *value > kMostDpi)
    throw PlotError("résolution \"" + std::string(text) + "\" : attendu de " + number(kLeastDpi) + " à " +
                    number(kMostDpi) + " points par pouce");
  return *value;
}

Page layOutPage(const Box& drawn, const PlotRequest& request) {
  const Box content = request.window.value_or(drawn);
  Page page;
  const double perUnit = request.unitMm / request.scale.value_or(1);
  const Size onPaper{content.width() * perUnit, content.height() * perUnit};
  if (!std::isfinite(onPaper.width) || !std::isfinite(onPaper.height)) throw PlotError("dessin d'étendue infinie");

  const Paper paper = request.paper.value_or(kPapers[0]);
  const bool chosen = request.paper || !request.scale;
  const Size sheet = chosen ? oriented(paper, onPaper) : smallestSheet(onPaper, request.marginMm);
  const Size room = within(sheet, request.marginMm);
  if (request.marginMm < 0 || room.width <= 0 || room.height <= 0)
    throw PlotError("marge de " + number(request.marginMm, 1) + " mm : trop grande ou négative pour cette feuille");

  page.widthMm = sheet.width, page.heightMm = sheet.height;
  page.scale = request.scale.value_or(fitScale(content, room, request.unitMm));
  if (content.empty()) page.warnings.push_back("rien à tracer : la feuille est vide");
  else if (request.scale && !fits(onPaper, room)) page.warnings.push_back(overflow(paper, onPaper, room, page.scale));
  place(page, content, request.unitMm / page.scale, request.marginMm);
  if (request.window) clipToWindow(page, *request.window);
  return page;
}

}  // namespace atelier::render
