// What is shown of work that takes over half a second: its name, its time, and a button that stops it.
// Nothing else of the window answers meanwhile.
#pragma once
#include <QPointer>
#include <QProgressDialog>
#include <functional>

namespace atelier::desktop {

class LongWork {
 public:
  static constexpr const char* kName = "travail";  // of the dialog, as an object
  explicit LongWork(QWidget& window) : window_(window) {}
  ~LongWork() { end(); }
  LongWork(const LongWork&) = delete;
  LongWork& operator=(const LongWork&) = delete;
  // Milliseconds until it is shown, and between two looks at the user; tests take less, so that they don't depend on how fast the
  // machine is.
  static inline qint64 shownAfter = 500, pause = 50;
  // While the work goes on. Shown from the half second on; `stop` is called when the user wants it to end. Whether it is shown.
  bool goesOn(const QString& name, qint64 milliseconds, const std::function<void()>& stop);
  void end() { delete shown_; }
  bool isShown() const { return !shown_.isNull(); }

 private:
  QWidget& window_;
  QPointer<QProgressDialog> shown_;  // it goes with the dialog over which it is shown
};

}  // namespace atelier::desktop
