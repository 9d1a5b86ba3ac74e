// A user who wanders: random menus, keys, clicks, typed lines, forms, panels and tabs, each step an event of its own, so that it may
// stand inside the command or the dialog that the one before has begun.
#pragma once
#include <random>

#include "tests/desktop/desktop.h"

namespace kaveltest {

struct Wandering : Desktop {
  // Takes so many steps; every so many of them, and at the end, calls `check` when neither a command nor a dialog is open.
  void wander(unsigned seed, int steps, int between, const std::function<void()>& check);
  // Called with each new tab's drawing before anything is done in it.
  std::function<void(atelier::desktop::Drawing&)> onTab;
  int taken = 0;

 private:
  int below(int n) { return static_cast<int>(random_() % static_cast<unsigned>(std::max(1, n))); }
  template <class List>
  auto oneOf(const List& list) {
    return list[static_cast<decltype(std::size(list))>(below(static_cast<int>(std::size(list))))];
  }
  void step();
  void click(QWidget& on);
  void press();
  void type();
  void menu();
  void tab();
  void panel();
  void answerModal();
  bool rests() const;
  std::string restless() const;
  void complain();
  void calm();  // one step out of dialogs and commands
  void tick();
  void guard();
  void welcome();
  std::mt19937 random_;
  int between_ = 1, tabs_ = 0, calmed_ = 0;
  bool wanders_ = false, due_ = false;
};

}  // namespace kaveltest
