// Work of the window itself, without a command: opening, saving, plotting. While it lives the host's long loops show it, and stop when the user
// wants it: they throw Interrupted.
#pragma once
#include <QElapsedTimer>

#include "atelier/desktop/document/long_work.h"

namespace atelier::desktop {

class OwnWork {
 public:
  OwnWork(LongWork& shown, const QString& name);
  ~OwnWork();
  OwnWork(const OwnWork&) = delete;
  OwnWork& operator=(const OwnWork&) = delete;

 private:
  static bool stopAsked();
  void look();
  LongWork& shown_;
  const QString name_;
  QElapsedTimer timer_;
  qint64 lookAt_ = 0;  // milliseconds
  bool looks_ = false, stopped_ = false;
};

}  // namespace atelier::desktop
