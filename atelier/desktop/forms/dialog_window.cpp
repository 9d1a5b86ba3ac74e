// Controls are placed in the grid of their frame, frames in the order in which they first appear.
#include "atelier/desktop/forms/dialog_window.h"

#include <QEventLoop>
#include <QFileDialog>
#include <QGridLayout>
#include <QGroupBox>
#include <QMessageBox>
#include <QVBoxLayout>

#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/forms/control_widgets.h"

namespace atelier::desktop {
namespace {

QMessageBox::Icon iconOf(dialogues::Icon icon) {
  switch (icon) {
    case dialogues::Icon::information: return QMessageBox::Information;
    case dialogues::Icon::question: return QMessageBox::Question;
    case dialogues::Icon::warning: return QMessageBox::Warning;
    case dialogues::Icon::error: return QMessageBox::Critical;
    default: return QMessageBox::NoIcon;
  }
}

}  // namespace

DialogWindow::DialogWindow(dialogues::Dialog& dialog, QWidget* parent) : QDialog(parent), dialog_(dialog) {
  setWindowTitle(QString::fromStdWString(dialog.title()));
  setModal(true);
  build();
  resize(dialog.width(), dialog.height());
}

DialogWindow::~DialogWindow() { qDeleteAll(widgets_); }

QWidget* DialogWindow::widgetOf(const dialogues::Control* control) const {
  ControlWidget* const found = widgets_.value(control);
  return found ? found->widget() : nullptr;
}

void DialogWindow::build() {
  auto* all = new QVBoxLayout(this);
  QHash<QString, QGridLayout*> frames;
  for (dialogues::Control* control : dialog_.controls()) {
    const QString title = QString::fromStdWString(control->frame());
    QGridLayout*& grid = frames[title];
    if (!grid) {
      if (title.isEmpty()) {
        grid = new QGridLayout;
        all->addLayout(grid, 1);
      } else {
        auto* box = new QGroupBox(title, this);
        grid = new QGridLayout(box);
        all->addWidget(box);
      }
    }
    auto widget = widgetFor(*control, dialog_, this);
    const dialogues::Place& place = control->place();
    grid->addWidget(widget->widget(), place.row, place.column, place.rows, place.columns);
    if (control->kind() == dialogues::Control::Kind::list) grid->setRowStretch(place.row, 1);
    widget->show();
    widgets_.insert(control, widget.release());
  }
}

int DialogWindow::run() {
  QEventLoop loop;
  dialog_.onTouched = [this](dialogues::Control& control) {
    if (ControlWidget* const widget = widgets_.value(&control)) widget->show();
  };
  dialog_.onShown = [this] { setVisible(dialog_.shown()); };
  dialog_.onEnd = [&loop] { loop.quit(); };
  show();
  while (!dialog_.result()) loop.exec();
  dialog_.onTouched = nullptr;
  dialog_.onShown = dialog_.onEnd = nullptr;
  hide();
  return *dialog_.result();
}

// For Escape and the window's own close button.
void DialogWindow::reject() { dialog_.end(dialogues::kCancel); }

void WindowDialogs::run(dialogues::Dialog& dialog) {
  const Drawing::Waiting waiting;
  DialogWindow window(dialog, over());
  DialogWindow* const outer = std::exchange(running_, &window);
  window.run();
  running_ = outer;
}

std::optional<std::string> WindowDialogs::chooseFile(const dialogues::FileRequest& request) {
  if (fileAnswer) return fileAnswer(request);
  const Drawing::Waiting waiting;
  const QString title = QString::fromStdWString(request.title), filter = QString::fromStdWString(request.filter);
  const QString name = QString::fromStdWString(request.name), extension = QString::fromStdWString(request.extension);
  QFileDialog chooser(over(), title, name, filter);
  chooser.setAcceptMode(request.save ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  chooser.setFileMode(request.save ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  chooser.setOption(QFileDialog::DontConfirmOverwrite, !request.overwritePrompt);
  if (!extension.isEmpty()) chooser.setDefaultSuffix(extension);
  if (chooser.exec() != QDialog::Accepted || chooser.selectedFiles().isEmpty()) return std::nullopt;
  return chooser.selectedFiles().front().toStdString();
}

int WindowDialogs::message(const std::wstring& text, const std::wstring& title, dialogues::Icon icon, bool yesNo) {
  if (messageAnswer) return messageAnswer(QString::fromStdWString(text));
  const Drawing::Waiting waiting;
  QMessageBox box(iconOf(icon), QString::fromStdWString(title), QString::fromStdWString(text),
                  yesNo ? QMessageBox::Yes | QMessageBox::No : QMessageBox::Ok, over());
  const int answer = box.exec();
  return answer == QMessageBox::Yes || answer == QMessageBox::Ok ? dialogues::kOk : dialogues::kCancel;
}

}  // namespace atelier::desktop
