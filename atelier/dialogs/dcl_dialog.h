// A DCL dialog as a model that the desktop or the command line shows, with its tiles by their keys.
// Inner header of the room. Values are texts, as AutoLISP sets and gets them.
#pragma once
#include <functional>
#include <list>

#include "atelier/dialogs/dcl.h"
#include "hote/dialogues.h"

namespace atelier::dcl {

class TileDialog {
 public:
  // Called when the user changes or presses a tile that has an action.
  using Act = std::function<void(const std::string& action, const std::string& key, const std::string& value)>;
  TileDialog(const Tile& description, std::string defaultAction, Act act);

  int run();  // 1 for OK, 0 for a cancel, or what finish() was given
  void finish(int status);
  bool has(std::string_view key) const { return tiles_.contains(key); }
  void setAction(const std::string& key, std::string action);
  std::string value(const std::string& key) const;
  void setValue(const std::string& key, const std::string& value);
  std::string attribute(const std::string& key, std::string_view name) const;
  void setMode(const std::string& key, int mode);  // 0 enables, 1 disables; others have no effect
  enum class Change { one = 1, append = 2, all = 3 };
  // Of an image: its size in pixels, nothing for any other tile; and drawing on it.
  const dialogues::Picture* picture(const std::string& key) const;
  void draw(const std::string& key, const std::vector<dialogues::Picture::Stroke>& strokes);
  void changeList(const std::string& key, Change change, std::size_t index, const std::vector<std::string>& texts);

 private:
  struct Slot {
    std::unique_ptr<dialogues::Control> control;  // null for a group of radio buttons
    Tile tile;
    std::string action, group;  // the key of its group of radio buttons
    std::vector<std::wstring> texts;
  };
  struct Size {
    int rows = 0, columns = 0;
  };
  // Puts the tile into the frame's grid from that place on; gives the number of rows and columns used.
  Size add(const Tile& tile, const std::wstring& frame, dialogues::Place at, const std::string& group);
  void addLeaf(const Tile& tile, const std::wstring& frame, const dialogues::Place& place, const std::string& group);
  std::unique_ptr<dialogues::Control> controlFor(const Tile& tile, const std::string& key);
  void touched(const std::string& key);
  void fill(Slot& slot, const std::string& selected);
  void chooseRadio(const std::string& key);

  Act act_;
  std::string defaultAction_;
  std::map<std::string, Slot, std::less<>> tiles_;
  dialogues::Dialog dialog_;
  int status_ = 0, unnamed_ = 0;
  bool setting_ = false;  // the program is setting a value: no action is called
};

}  // namespace atelier::dcl
