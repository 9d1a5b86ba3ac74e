// How far the work has come isn't known, so the bar only moves.
#include "atelier/desktop/document/long_work.h"

#include <QApplication>
#include <QCoreApplication>
#include <QPushButton>

namespace atelier::desktop {
namespace {

constexpr int kEventsShare = 10;  // milliseconds for the user at each look

}  // namespace

bool LongWork::goesOn(const QString& name, qint64 milliseconds, const std::function<void()>& stop) {
  if (milliseconds < shownAfter) return false;
  if (!shown_) {
    QWidget* const front = QApplication::activeModalWidget();
    shown_ = new QProgressDialog(front ? front : &window_);
    shown_->setObjectName(kName);
    shown_->setWindowTitle(QStringLiteral("Kavel"));
    shown_->setWindowModality(Qt::ApplicationModal);
    shown_->setCancelButtonText(QStringLiteral("Arrêter"));
    // Enter and blank were typed for what was in front before; Escape stops.
    auto* const button = shown_->findChild<QPushButton*>();
    button->setAutoDefault(false);
    button->setFocusPolicy(Qt::NoFocus);
    shown_->setFocusPolicy(Qt::StrongFocus);
    shown_->setRange(0, 0);
    shown_->setMinimumDuration(0);
    shown_->setAutoClose(false);
    shown_->setAutoReset(false);
    QObject::connect(shown_, &QProgressDialog::canceled, shown_, stop);
    shown_->show();
    shown_->setFocus();
  }
  shown_->setLabelText(QStringLiteral("%1 : %2 s").arg(name).arg(milliseconds / 1000));
  QCoreApplication::processEvents(QEventLoop::AllEvents, kEventsShare);
  return true;
}

}  // namespace atelier::desktop
