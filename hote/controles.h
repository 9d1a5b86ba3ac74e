// The controls of dialogs as models without a toolkit: what they show, what was chosen, what happens then.
// Operations that begin with `user` are for presenters: they change the value and raise the event.
#pragma once
#include <algorithm>
#include <functional>
#include <iterator>
#include <optional>
#include <string>
#include <vector>

namespace dialogues {

class Dialog;

// A control's cell in the grid of its frame; controls of which one at a time is shown share a cell.
struct Place {
  int row = 0, column = 0, rows = 1, columns = 1;
};

class Control {
 public:
  enum class Kind { text, edit, list, button, check, combo, colour, picture };
  Control(Kind kind, std::wstring label) : kind_(kind), label_(std::move(label)) {}
  virtual ~Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Kind kind() const { return kind_; }
  // The text on a button or check box, and before any other control.
  const std::wstring& label() const { return label_; }
  bool visible() const { return visible_; }
  bool enabled() const { return enabled_; }
  const std::wstring& frame() const { return frame_; }  // title of the frame around it; empty outside frames
  const Place& place() const { return place_; }

  void setLabel(std::wstring label) { set(label_, std::move(label)); }
  void setVisible(bool visible) { set(visible_, visible); }
  void setEnabled(bool enabled) { set(enabled_, enabled); }

 protected:
  void touched() {
    if (onTouched_) onTouched_(*this);
  }
  template <class T>
  void set(T& field, T value) {
    field = std::move(value);
    touched();
  }
  static void fire(const std::function<void()>& event) {
    if (event) event();
  }

 private:
  friend class Dialog;
  const Kind kind_;
  std::wstring label_, frame_;
  Place place_;
  bool visible_ = true, enabled_ = true;
  std::function<void(Control&)> onTouched_;
};

class Text : public Control {
 public:
  explicit Text(std::wstring label) : Control(Kind::text, std::move(label)) {}
};

class Edit : public Control {
 public:
  explicit Edit(std::wstring label, std::wstring value = {})
      : Control(Kind::edit, std::move(label)), value_(std::move(value)) {}
  const std::wstring& value() const { return value_; }
  void setValue(std::wstring value) { set(value_, std::move(value)); }
  void userType(std::wstring value) {
    setValue(std::move(value));
    fire(onChange);
  }
  std::function<void()> onChange;

 private:
  std::wstring value_;
};

enum class Alignment { left, centred, right };

struct Column {
  std::wstring title;
  double width = 1;  // in proportion to the other columns
  Alignment alignment = Alignment::left;
};

struct Row {
  std::vector<std::wstring> cells;
  int data = 0;  // the host's "item data": a number of the caller's
};

// Whole rows are selected, in ascending order.
class List : public Control {
 public:
  explicit List(std::vector<Column> columns = {}, bool multiple = true)
      : Control(Kind::list, {}), columns_(std::move(columns)), multiple_(multiple) {}
  const std::vector<Column>& columns() const { return columns_; }  // none: a plain list of texts
  const std::vector<Row>& rows() const { return rows_; }
  const std::vector<int>& selection() const { return selection_; }
  bool multiple() const { return multiple_; }
  void clear() {
    rows_.clear();
    selection_.clear();
    touched();
  }
  void append(std::vector<Row> rows) {
    std::move(rows.begin(), rows.end(), std::back_inserter(rows_));
    touched();
  }
  // Indexes outside the list are ignored; a list that allows one row takes the last index given.
  void userSelect(std::vector<int> rows) {
    std::erase_if(rows, [this](int row) { return row < 0 || row >= static_cast<int>(rows_.size()); });
    if (!multiple_ && rows.size() > 1) rows = {rows.back()};
    std::sort(rows.begin(), rows.end());
    rows.erase(std::unique(rows.begin(), rows.end()), rows.end());
    set(selection_, std::move(rows));
    fire(onSelect);
  }
  // When set: each cell of this column has the palette colour whose number is its row's item data as background.
  std::optional<int> colourColumn;
  std::function<void()> onSelect;

 private:
  const std::vector<Column> columns_;
  std::vector<Row> rows_;
  std::vector<int> selection_;
  const bool multiple_;
};

class Button : public Control {
 public:
  explicit Button(std::wstring label, std::function<void()> click = {})
      : Control(Kind::button, std::move(label)), onClick(std::move(click)) {}
  void userClick() { fire(onClick); }
  bool isDefault = false;  // what Enter presses
  std::function<void()> onClick;
};

class Check : public Control {
 public:
  explicit Check(std::wstring label, bool value = false) : Control(Kind::check, std::move(label)), value_(value) {}
  bool value() const { return value_; }
  void setValue(bool value) { set(value_, value); }
  void userCheck(bool value) {
    setValue(value);
    fire(onChange);
  }
  std::function<void()> onChange;

 private:
  bool value_;
};

class Combo : public Control {
 public:
  Combo(std::wstring label, std::vector<std::wstring> choices, int index = 0)
      : Control(Kind::combo, std::move(label)), choices_(std::move(choices)), index_(index) {}
  const std::vector<std::wstring>& choices() const { return choices_; }
  int index() const { return index_; }
  void setIndex(int index) { set(index_, index); }
  void userChoose(int index) {
    setIndex(index);
    fire(onChange);
  }
  std::function<void()> onChange;

 private:
  const std::vector<std::wstring> choices_;
  int index_;
};

// A colour of the palette: 0 by block, 1 to 255, 256 by layer.
class Colour : public Control {
 public:
  explicit Colour(std::wstring label, int index = 0) : Control(Kind::colour, std::move(label)), index_(index) {}
  int index() const { return index_; }
  void setIndex(int index) { set(index_, index); }
  void userChoose(int index) {
    setIndex(index);
    fire(onChange);
  }
  std::function<void()> onChange;

 private:
  int index_;
};

// A picture of lines and boxes in pixels from its top left corner; a click on it is a button's, where it has one.
class Picture : public Control {
 public:
  // A line between two corners, or the box between them. Colours are the palette's; negative ones are the dialog's own: -15 its
  // ground, -16 its texts, others the drawing's ground.
  struct Stroke {
    int x1, y1, x2, y2, colour;
    bool filled;
  };
  Picture(std::wstring label, int width, int height, int ground)
      : Control(Kind::picture, std::move(label)), width_(width), height_(height), ground_(ground) {}
  int width() const { return width_; }
  int height() const { return height_; }
  int ground() const { return ground_; }
  const std::vector<Stroke>& strokes() const { return strokes_; }
  void draw(const std::vector<Stroke>& strokes) {
    strokes_.insert(strokes_.end(), strokes.begin(), strokes.end());
    touched();
  }
  void userClick() { fire(onClick); }
  std::function<void()> onClick;

 private:
  const int width_, height_, ground_;
  std::vector<Stroke> strokes_;
};

}  // namespace dialogues
