// Tiles as controls.
// Each frame has one grid: the tiles of a column are placed one below the other, those of a row beside each other.
#include "atelier/dialogs/dcl_dialog.h"

#include <algorithm>
#include <sstream>

#include "atelier/base/text.h"

namespace atelier::dcl {
namespace {

using namespace dialogues;

// A label without the mark of its access key.
std::wstring labelOf(const Tile& tile) {
  std::string label = tile.attribute("label", tile.attribute("value"));
  std::erase(label, '&');
  return toWide(label);
}

bool isRow(std::string_view type) { return type.ends_with("row") || type == "concatenation"; }
bool isGroup(const Tile& tile) {
  return tile.type == "dialog" || tile.type == "cluster" || isRow(tile.type) || tile.type.ends_with("column") ||
         tile.type == "paragraph";
}
// Sizes are in characters; a picture with one of them has the other one by its aspect ratio.
std::unique_ptr<Picture> pictureOf(const Tile& tile, const std::wstring& label) {
  constexpr double kWide = 7, kHigh = 15;  // pixels of a character
  constexpr int kMost = 2000, kDialogGround = -15;
  const auto number = [&](const char* name) { return parseReal(tile.attribute(name)).value_or(0); };
  const double ratio = number("aspect_ratio");
  double width = number("width") * kWide, height = number("height") * kHigh;
  if (!(height > 0)) height = ratio > 0 && width > 0 ? width * ratio : 4 * kHigh;
  if (!(width > 0)) width = ratio > 0 ? height / ratio : height;
  const auto pixels = [](double size) { return static_cast<int>(std::clamp<double>(size, 1, kMost)); };
  const auto colour = parseInteger(tile.attribute("color"));
  const int ground = colour                                             ? static_cast<int>(*colour)
                     : tile.attribute("color") == "graphics_background" ? -2
                     : tile.attribute("color") == "black"               ? 250
                                                                        : kDialogGround;
  return std::make_unique<Picture>(label, pixels(width), pixels(height), ground);
}

bool isRadioGroup(const Tile& tile) {
  return tile.type.find("radio_row") != std::string::npos || tile.type.find("radio_column") != std::string::npos;
}

}  // namespace

TileDialog::TileDialog(const Tile& description, std::string defaultAction, Act act)
    : act_(std::move(act)), defaultAction_(std::move(defaultAction)), dialog_(labelOf(description)) {
  setting_ = true;
  add(description, {}, {}, {});
  for (auto& [key, slot] : tiles_) {
    const std::string value = slot.tile.attribute("value");
    if (slot.tile.type == "list_box" || slot.tile.type == "popup_list") {
      std::istringstream lines(slot.tile.attribute("list"));
      for (std::string line; std::getline(lines, line);) slot.texts.push_back(toWide(line));
      fill(slot, value);
    } else if (isRadioGroup(slot.tile) && tiles_.contains(value)) {
      chooseRadio(value);
    }
    if (slot.control && slot.tile.attribute("is_enabled") == "false") slot.control->setEnabled(false);
  }
  setting_ = false;
}

TileDialog::Size TileDialog::add(const Tile& tile, const std::wstring& frame, Place at, const std::string& group) {
  if (tile.type.starts_with("spacer")) return {};
  if (!isGroup(tile)) {
    addLeaf(tile, frame, at, group);
    return {1, 1};
  }
  std::string radios = group;
  if (isRadioGroup(tile)) {
    radios = tile.attribute("key", "*" + std::to_string(++unnamed_));
    tiles_[radios].tile = tile;
    tiles_[radios].action = tile.attribute("action");
  }
  // A group with a title is a frame with a grid of its own.
  const bool framed = tile.type != "dialog" && tile.attributes.contains("label");
  const std::wstring title = framed ? labelOf(tile) : frame;
  if (framed) at = {};
  Size size;
  for (const Tile& child : tile.children) {
    Place place = at;
    (isRow(tile.type) ? place.column : place.row) += isRow(tile.type) ? size.columns : size.rows;
    const Size taken = add(child, title, place, radios);
    size.rows = isRow(tile.type) ? std::max(size.rows, taken.rows) : size.rows + taken.rows;
    size.columns = isRow(tile.type) ? size.columns + taken.columns : std::max(size.columns, taken.columns);
  }
  return framed ? Size() : size;
}

void TileDialog::addLeaf(const Tile& tile, const std::wstring& frame, const Place& place, const std::string& group) {
  const std::string key = tile.attribute("key", "*" + std::to_string(++unnamed_));
  Slot& slot = tiles_[key];
  slot.tile = tile;
  slot.action = tile.attribute("action");
  slot.group = group;
  slot.control = controlFor(tile, key);
  if (slot.control) dialog_.add(*slot.control, place, frame);
}

std::unique_ptr<Control> TileDialog::controlFor(const Tile& tile, const std::string& key) {
  const std::wstring label = labelOf(tile);
  const auto act = [this, key] { touched(key); };
  if (tile.type == "edit_box" || tile.type == "slider") {
    auto edit = std::make_unique<Edit>(
        label == toWide(tile.attribute("value")) && !tile.attributes.contains("label") ? std::wstring() : label,
        toWide(tile.attribute("value")));
    edit->onChange = act;
    return edit;
  }
  if (tile.type == "list_box" || tile.type == "popup_list") {
    auto list = std::make_unique<List>(std::vector<Column>(), tile.isTrue("multiple_select"));
    list->onSelect = act;
    return list;
  }
  if (tile.type == "toggle" || tile.type == "radio_button") {
    auto check = std::make_unique<Check>(label, tile.attribute("value") == "1");
    check->onChange = act;
    return check;
  }
  if (tile.type == "image" || tile.type == "image_button") {
    auto image = pictureOf(tile, label.empty() && tile.type == "image_button" ? toWide(key) : label);
    if (tile.type == "image_button") image->onClick = act;
    return image;
  }
  if (tile.type == "button") {
    auto button = std::make_unique<Button>(label, act);
    button->isDefault = tile.isTrue("is_default");
    return button;
  }
  return std::make_unique<Text>(label);
}

int TileDialog::run() {
  status_ = 0;
  runDialog(dialog_);
  return status_;
}

void TileDialog::finish(int status) {
  status_ = status;
  dialog_.end(status != 0 ? kOk : kCancel);
}

void TileDialog::touched(const std::string& key) {
  if (setting_) return;
  const Slot& slot = tiles_.at(key);
  if (slot.tile.type == "radio_button") chooseRadio(key);
  std::string action = slot.action;
  std::string acting = key;
  if (action.empty() && !slot.group.empty()) {
    acting = slot.group;
    action = tiles_.at(acting).action;
  }
  if (action.empty() && slot.control->kind() == Control::Kind::button) {
    if (key == "accept" || slot.tile.isTrue("is_default")) return finish(1);
    if (key == "cancel" || slot.tile.isTrue("is_cancel")) return finish(0);
  }
  if (action.empty()) action = defaultAction_;
  if (!action.empty()) act_(action, acting, value(acting));
}

void TileDialog::setAction(const std::string& key, std::string action) { tiles_.at(key).action = std::move(action); }

std::string TileDialog::value(const std::string& key) const {
  const Slot& slot = tiles_.at(key);
  if (!slot.control) {
    for (const auto& [name, other] : tiles_)
      if (other.group == key && other.control && static_cast<const Check&>(*other.control).value()) return name;
    return {};
  }
  if (slot.control->kind() == Control::Kind::edit) return toUtf8(static_cast<const Edit&>(*slot.control).value());
  if (slot.control->kind() == Control::Kind::check) return static_cast<const Check&>(*slot.control).value() ? "1" : "0";
  if (slot.control->kind() != Control::Kind::list) return toUtf8(slot.control->label());
  std::string rows;
  for (const int row : static_cast<const List&>(*slot.control).selection())
    rows += (rows.empty() ? "" : " ") + std::to_string(row);
  return rows;
}

void TileDialog::setValue(const std::string& key, const std::string& value) {
  Slot& slot = tiles_.at(key);
  setting_ = true;
  if (!slot.control) {
    if (tiles_.contains(value)) chooseRadio(value);
  } else if (slot.control->kind() == Control::Kind::edit) {
    static_cast<Edit&>(*slot.control).setValue(toWide(value));
  } else if (slot.control->kind() == Control::Kind::list) {
    fill(slot, value);
  } else if (slot.tile.type == "radio_button") {
    if (value == "1") chooseRadio(key);
  } else if (slot.control->kind() == Control::Kind::check) {
    static_cast<Check&>(*slot.control).setValue(value == "1");
  } else if (slot.control->kind() == Control::Kind::text) {
    slot.control->setLabel(toWide(value));
  }
  setting_ = false;
}

std::string TileDialog::attribute(const std::string& key, std::string_view name) const {
  return tiles_.at(key).tile.attribute(name);
}

void TileDialog::setMode(const std::string& key, int mode) {
  if (mode > 1) return;
  for (auto& [name, slot] : tiles_)
    if (slot.control && (name == key || slot.group == key)) slot.control->setEnabled(mode == 0);
}

void TileDialog::chooseRadio(const std::string& key) {
  const std::string group = tiles_.at(key).group;
  for (auto& [name, slot] : tiles_)
    if (slot.control && slot.tile.type == "radio_button" && slot.group == group)
      static_cast<Check&>(*slot.control).setValue(name == key);
}

const Picture* TileDialog::picture(const std::string& key) const {
  const Slot& slot = tiles_.at(key);
  return slot.control && slot.control->kind() == Control::Kind::picture
             ? static_cast<const Picture*>(slot.control.get())
             : nullptr;
}

void TileDialog::draw(const std::string& key, const std::vector<Picture::Stroke>& strokes) {
  if (picture(key)) static_cast<Picture&>(*tiles_.at(key).control).draw(strokes);
}

void TileDialog::changeList(const std::string& key, Change change, std::size_t index,
                            const std::vector<std::string>& texts) {
  Slot& slot = tiles_.at(key);
  if (!slot.control || slot.control->kind() != Control::Kind::list) return;
  const std::string selected = change == Change::all ? std::string() : value(key);
  if (change == Change::all) slot.texts.clear();
  for (const std::string& text : texts) {
    if (change != Change::one) slot.texts.push_back(toWide(text));
    else if (index < slot.texts.size()) slot.texts[index] = toWide(text);
  }
  setting_ = true;
  fill(slot, selected);
  setting_ = false;
}

void TileDialog::fill(Slot& slot, const std::string& selected) {
  List& list = static_cast<List&>(*slot.control);
  list.clear();
  std::vector<Row> rows;
  for (const std::wstring& text : slot.texts) rows.push_back({{text}, 0});
  list.append(std::move(rows));
  std::vector<int> chosen;
  std::istringstream words(selected);
  for (int row; words >> row;) chosen.push_back(row);
  list.userSelect(std::move(chosen));
}

}  // namespace atelier::dcl
