// System variables that are computed when they are asked for.
// Names that are set must exist in the drawing.
#include <pwd.h>
#include <unistd.h>

#include <chrono>
#include <cmath>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <numbers>

#include "atelier/database/objects/layouts.h"
#include "atelier/document/document.h"
#include "atelier/variables/variable_table.h"
#include "hote/adaptation.h"

namespace atelier {
namespace {

using Value = SystemVariables::Value;
using Point = SystemVariables::Point;
using Clock = std::chrono::system_clock;

std::tm localTime(std::time_t seconds) {
  std::tm parts{};
  localtime_r(&seconds, &parts);
  return parts;
}

double secondsOfDay(const std::tm& parts, Clock::time_point now) {
  const auto millis = std::chrono::duration_cast<std::chrono::milliseconds>(now.time_since_epoch()).count() % 1000;
  return parts.tm_hour * 3600 + parts.tm_min * 60 + parts.tm_sec + static_cast<double>(millis) / 1000;
}

// Day number at noon by the formula of Fliegel and Van Flandern (1968), counted from midnight.
Value julianDate(Document&) {
  const auto now = Clock::now();
  const std::tm t = localTime(Clock::to_time_t(now));
  const int y = t.tm_year + 1900, m = t.tm_mon + 1, d = t.tm_mday, a = (m - 14) / 12;
  const int day =
      (1461 * (y + 4800 + a)) / 4 + (367 * (m - 2 - 12 * a)) / 12 - (3 * ((y + 4900 + a) / 100)) / 4 + d - 32075;
  return day + secondsOfDay(t, now) / 86400;
}

Value calendarDate(Document&) {
  const auto now = Clock::now();
  const std::tm t = localTime(Clock::to_time_t(now));
  const double seconds = secondsOfDay(t, now);
  const int whole = static_cast<int>(seconds);
  const double clock = t.tm_hour * 10000 + t.tm_min * 100 + t.tm_sec + (seconds - whole);
  return (t.tm_year + 1900) * 10000.0 + (t.tm_mon + 1) * 100.0 + t.tm_mday + clock / 1e6;
}

Value milliseconds(Document&) {
  const auto now = std::chrono::steady_clock::now().time_since_epoch();
  return static_cast<int>(std::chrono::duration_cast<std::chrono::milliseconds>(now).count() & 0x7fffffff);
}

std::string withSlash(const std::string& folder) {
  return folder.empty() || folder.ends_with('/') ? folder : folder + "/";
}

std::string environment(const char* name) {
  const char* value = std::getenv(name);
  return value ? value : "";
}
Value homeFolder(Document&) { return withSlash(environment("HOME")); }
// Where programs may keep settings of their own: the folder that the desktop's conventions give to applications.
Value settingsFolder(Document&) {
  const std::string given = environment("XDG_DATA_HOME");
  return withSlash(given.empty() ? environment("HOME") + "/.local/share" : given) + "kavel/";
}
Value searchedFolders(Document&) {
  std::error_code error;
  return withSlash(std::filesystem::current_path(error).string());
}

Value userName(Document&) {
  const char* name = std::getenv("USER");
  if (const passwd* entry = name ? nullptr : getpwuid(getuid())) name = entry->pw_name;
  return std::string(name ? name : "");
}

Value fromAbove(Document&) { return Point{AcGePoint3d(0, 0, 1), false}; }

Value temporaryFolder(Document&) {
  std::error_code error;
  return withSlash(std::filesystem::temp_directory_path(error).string());
}
Value drawingName(Document& d) {
  return d.path().empty() ? d.untitled : std::filesystem::path(d.path()).filename().string();
}
Value drawingFolder(Document& d) {
  std::error_code error;
  const auto base = d.path().empty() ? std::filesystem::current_path(error)
                                     : std::filesystem::absolute(d.path(), error).parent_path();
  return withSlash(base.string());
}
Value titled(Document& d) { return d.path().empty() ? 0 : 1; }
Value savedName(Document& d) { return d.path(); }
Value codePage(Document& d) { return d.imp().header.text("$DWGCODEPAGE", "ANSI_1252"); }
Value modified(Document& d) { return d.imp().modified ? 1 : 0; }

// --- spaces and the view

Value tileMode(Document& d) { return d.database().tilemode() ? 1 : 0; }
bool setTileMode(Document& d, const Value& value) {
  const int* mode = std::get_if<int>(&value);
  if (!mode || (*mode != 0 && *mode != 1) || (*mode == 0 && !d.imp().paperSpace())) return false;
  d.imp().header.set("$TILEMODE", Group::integer(70, *mode));
  return true;
}
Value viewport(Document& d) { return d.database().tilemode() ? 2 : 1; }
bool setViewport(Document& d, const Value& value) {
  return value.index() == 0 && std::get<int>(value) == std::get<int>(viewport(d));
}

std::string paperLayout(Document& d) {
  AcDbStub* paper = d.imp().currentSheet();
  return paper ? layoutNameOf(*paper) : std::string();
}
Value currentTab(Document& d) { return d.database().tilemode() ? std::string("Model") : paperLayout(d); }
bool setCurrentTab(Document& d, const Value& value) {
  const std::string* name = std::get_if<std::string>(&value);
  if (!name) return false;
  if (equalNoCase(*name, "Model")) return setTileMode(d, 1);
  AcDbStub* sheet = spaceOfLayout(d.imp(), *name);
  if (!sheet || !setTileMode(d, 0)) return false;
  d.imp().chooseSheet(sheet);
  return true;
}

AcDbExtents drawnExtents(Document& d) { return d.spatialIndex().extents(d.database().currentSpaceId()); }
constexpr double kNothingDrawn = 1e20;
Value lowest(Document& d) {
  const AcDbExtents box = drawnExtents(d);
  return Point{adaptation::isEmpty(box) ? AcGePoint3d(kNothingDrawn, kNothingDrawn, kNothingDrawn) : box.minPoint(),
               false};
}
Value highest(Document& d) {
  const AcDbExtents box = drawnExtents(d);
  return Point{adaptation::isEmpty(box) ? AcGePoint3d(-kNothingDrawn, -kNothingDrawn, -kNothingDrawn) : box.maxPoint(),
               false};
}

// 1 for a program that runs between calls which answer a command.
// 1 for a command, 4 for answers that were given beforehand: of a script, a program, a file on the standard input.
Value commandActive(Document& d) {
  const InputSource* const source = d.prompter().source;
  return (d.waitingCommand() ? 1 : 0) | (source && !source->isPerson() ? 4 : 0);
}
Value commandNames(Document& d) { return d.waitingCommand() ? std::string(d.waitingCommand()->name()) : std::string(); }

Value lastPoint(Document& d) { return Point{d.prompter().lastPoint, false}; }
bool setLastPoint(Document& d, const Value& value) {
  const Point* point = std::get_if<Point>(&value);
  if (point) d.prompter().lastPoint = point->value;
  return point != nullptr;
}

Value viewHeight(Document& d) { return d.view().height; }
bool setViewHeight(Document& d, const Value& value) {
  const double* height = std::get_if<double>(&value);
  if (height && *height > 0) d.view().height = *height;
  return height && *height > 0;
}
Value viewLow(Document& d) {
  const View& view = d.view();
  return Point{view.centre - AcGeVector3d(view.height / 2, view.height / 2, 0), false};
}
Value viewHigh(Document& d) {
  const View& view = d.view();
  return Point{view.centre + AcGeVector3d(view.height / 2, view.height / 2, 0), false};
}
Value viewCentre(Document& d) { return Point{d.view().centre, false}; }
bool setViewCentre(Document& d, const Value& value) {
  const Point* point = std::get_if<Point>(&value);
  if (point) d.view().centre = point->value;
  return point != nullptr;
}

// --- names that must exist in the drawing

bool setName(Document& d, const Value& value, std::string_view table, const char* variable, int code) {
  const std::string* name = std::get_if<std::string>(&value);
  AcDbStub* record = name ? d.imp().tableRecord(table, *name) : nullptr;
  if (record) d.imp().header.set(variable, Group::text(code, d.imp().recordName(*record)));
  return record != nullptr;
}
Value layer(Document& d) { return d.imp().header.text("$CLAYER", "0"); }
bool setLayer(Document& d, const Value& value) { return setName(d, value, "LAYER", "$CLAYER", 8); }
Value style(Document& d) { return d.imp().header.text("$TEXTSTYLE", "Standard"); }
bool setStyle(Document& d, const Value& value) { return setName(d, value, "STYLE", "$TEXTSTYLE", 7); }
Value lineType(Document& d) { return d.imp().header.text("$CELTYPE", "ByLayer"); }
bool setLineType(Document& d, const Value& value) {
  const std::string* name = std::get_if<std::string>(&value);
  for (const char* fixed : {"ByLayer", "ByBlock"})
    if (name && equalNoCase(*name, fixed)) {
      d.imp().header.set("$CELTYPE", Group::text(6, fixed));
      return true;
    }
  return setName(d, value, "LTYPE", "$CELTYPE", 6);
}

// A colour is a text: its number, or BYLAYER or BYBLOCK.
Value colour(Document& d) {
  const std::int64_t index = d.imp().header.integer("$CECOLOR", 256);
  return index == 256 ? std::string("BYLAYER") : index == 0 ? std::string("BYBLOCK") : std::to_string(index);
}
bool setColour(Document& d, const Value& value) {
  std::optional<std::int64_t> index;
  if (const std::string* name = std::get_if<std::string>(&value)) index = colorNumber(*name);
  else if (const int* number = std::get_if<int>(&value)) index = *number;
  if (!index || *index < 0 || *index > 256) return false;
  d.imp().header.set("$CECOLOR", Group::integer(62, *index));
  return true;
}

// The header holds degrees.
Value angleBase(Document& d) { return d.imp().header.real("$ANGBASE", 0) * std::numbers::pi / 180; }
bool setAngleBase(Document& d, const Value& value) {
  const double* angle = std::get_if<double>(&value);
  if (angle) d.imp().header.set("$ANGBASE", Group::real(50, *angle * 180 / std::numbers::pi));
  return angle != nullptr;
}

constexpr ComputedVariable kComputed[] = {{"TEMPPREFIX", temporaryFolder, nullptr},
                                          {"LOGINNAME", userName, nullptr},
                                          {"ACADPREFIX", searchedFolders, nullptr},
                                          {"MYDOCUMENTSPREFIX", homeFolder, nullptr},
                                          {"ROAMABLEROOTPREFIX", settingsFolder, nullptr},
                                          {"LOCALROOTPREFIX", settingsFolder, nullptr},
                                          {"SAVEFILEPATH", temporaryFolder, nullptr},
                                          {"LOGFILEPATH", temporaryFolder, nullptr},
                                          {"VSMIN", viewLow, nullptr},
                                          {"VSMAX", viewHigh, nullptr},
                                          {"VIEWDIR", fromAbove, nullptr},
                                          {"DATE", julianDate, nullptr},
                                          {"CDATE", calendarDate, nullptr},
                                          {"MILLISECS", milliseconds, nullptr},
                                          {"DWGNAME", drawingName, nullptr},
                                          {"DWGPREFIX", drawingFolder, nullptr},
                                          {"DWGTITLED", titled, nullptr},
                                          {"SAVENAME", savedName, nullptr},
                                          {"DWGCODEPAGE", codePage, nullptr},
                                          {"SYSCODEPAGE", codePage, nullptr},
                                          {"DBMOD", modified, nullptr},
                                          {"CMDACTIVE", commandActive, nullptr},
                                          {"CMDNAMES", commandNames, nullptr},
                                          {"CTAB", currentTab, setCurrentTab},
                                          {"CVPORT", viewport, setViewport},
                                          {"TILEMODE", tileMode, setTileMode},
                                          {"EXTMIN", lowest, nullptr},
                                          {"EXTMAX", highest, nullptr},
                                          {"LASTPOINT", lastPoint, setLastPoint},
                                          {"VIEWSIZE", viewHeight, setViewHeight},
                                          {"VIEWCTR", viewCentre, setViewCentre},
                                          {"CLAYER", layer, setLayer},
                                          {"TEXTSTYLE", style, setStyle},
                                          {"CELTYPE", lineType, setLineType},
                                          {"CECOLOR", colour, setColour},
                                          {"ANGBASE", angleBase, setAngleBase}};

}  // namespace

std::optional<int> colorNumber(std::string_view text) {
  constexpr std::string_view kEnglish[] = {"BYBLOCK", "RED", "YELLOW", "GREEN", "CYAN", "BLUE", "MAGENTA", "WHITE"};
  constexpr std::string_view kFrench[] = {"DUBLOC", "ROUGE", "JAUNE", "VERT", "CYAN", "BLEU", "MAGENTA", "BLANC"};
  const std::string name = upperCase(trimmed(text));
  if (name == "BYLAYER" || name == "DUCALQUE") return 256;
  for (int i = 0; i < 8; ++i)
    if (name == kEnglish[i] || name == kFrench[i]) return i;
  const auto number = parseInteger(name);
  return number && *number >= 0 && *number <= 256 ? std::optional(static_cast<int>(*number)) : std::nullopt;
}

const ComputedVariable* computedVariable(std::string_view name) {
  for (const ComputedVariable& row : kComputed)
    if (row.name == name) return &row;
  return nullptr;
}

}  // namespace atelier
