// Drives the window for tests and screenshots, in the steps of a user.
// Each step is carried out when the window waits for the user.
#pragma once
#include <deque>
#include <functional>

#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {

class Driver : public QObject {
 public:
  explicit Driver(MainWindow& window) : window_(window) { window.opensFileDialogs = false; }

  // Adds a step; play() carries them out one after the other.
  Driver& then(std::function<void()> step);
  // Waits until the condition holds.
  Driver& until(std::function<bool()> condition);
  Driver& type(const QString& line);     // at the command line
  Driver& pick(double x, double y);      // a click at that place of the drawing
  Driver& hover(double x, double y);     // moves the cursor to that place
  Driver& menu(const QString& entry);    // an entry of any menu by its text, without &
  Driver& press(const QString& button);  // of the dialog or form that is open
  Driver& select(const QString& list,
                 std::vector<int> rows);  // in the open dialog: the visible list with that first column
  Driver& key(Qt::Key key);               // in the drawing view
  Driver& shot(const QString& file);      // the active window as a picture
  void play();                            // returns when all steps were taken and nothing runs any more

 private:
  bool isReady() const;
  void await(const std::function<bool()>& condition);  // as the next step, as long as it doesn't hold
  void step();
  static QWidget* front();
  MainWindow& window_;
  std::deque<std::function<void()>> steps_;
  bool shooting_ = false;
};

}  // namespace atelier::desktop
