// What other events do while the user is looked at (a copy of another drawing) is never stopped by the answer.
#include "atelier/desktop/document/own_work.h"

#include <QCoreApplication>
#include <QThread>

#include "atelier/base/interruption.h"
#include "atelier/desktop/document/drawing.h"

namespace atelier::desktop {
namespace {

OwnWork* underWay = nullptr;

}  // namespace

OwnWork::OwnWork(LongWork& shown, const QString& name) : shown_(shown), name_(name) {
  timer_.start();
  underWay = this;
  setInterruptionQuestion(stopAsked);
}

OwnWork::~OwnWork() {
  underWay = nullptr;
  shown_.end();
  setInterruptionQuestion(Drawing::stopAsked);
}

bool OwnWork::stopAsked() {
  if (!underWay || underWay->looks_ || QThread::currentThread() != QCoreApplication::instance()->thread()) return false;
  underWay->look();
  return underWay->stopped_;
}

void OwnWork::look() {
  const qint64 now = timer_.elapsed();
  if (now < lookAt_) return;
  looks_ = true;
  shown_.goesOn(name_, now, [this] { stopped_ = true; });
  looks_ = false;
  lookAt_ = timer_.elapsed() + LongWork::pause;
}

}  // namespace atelier::desktop
