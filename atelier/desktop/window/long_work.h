// What is shown of work that takes over half a second: its name, its time, and a button that stops it.
// Nothing else of the window answers meanwhile.
#pragma once
#include <QElapsedTimer>
#include <QProgressDialog>
#include <functional>
#include <memory>

namespace atelier::desktop {

class LongWork {
 public:
  static constexpr const char* kName = "travail";  // of the dialog, as an object
  explicit LongWork(QWidget& window) : window_(window) {}
  // Milliseconds until it is shown, and between two looks at the user; tests take less, so that they don't depend on how fast the
  // machine is.
  static inline qint64 shownAfter = 500, pause = 50;
  // While the work goes on. Shown from the half second on; `stop` is called when the user wants it to end. Whether it is shown.
  bool goesOn(const QString& name, qint64 milliseconds, const std::function<void()>& stop);
  void end() { shown_.reset(); }
  bool isShown() const { return shown_ != nullptr; }

 private:
  QWidget& window_;
  std::unique_ptr<QProgressDialog> shown_;
};

}  // namespace atelier::desktop
