// Object snaps and the orthogonal mode: their keys, their buttons in the status bar, and the choice of the snaps.
// They are system variables, set while a command runs, too.
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QStatusBar>
#include <QVBoxLayout>

#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

constexpr int kSuspended = 16384;                                 // of OSMODE: the modes are kept, and not used
constexpr int kUsual = kEnd | kMiddle | kCentre | kIntersection;  // where none was chosen

}  // namespace

void MainWindow::buildModes() {
  const auto button = [this](const QString& text, const QString& key, const QString& action) {
    auto* made = new QToolButton(this);
    made->setText(text);
    made->setToolTip(text + " (" + key + ")");
    made->setCheckable(true);
    made->setFocusPolicy(Qt::NoFocus);
    made->setStyleSheet("QToolButton:checked { background: palette(highlight); color: palette(highlighted-text); }");
    connect(made, &QToolButton::clicked, this, [this, action] { perform(action); });
    statusBar()->addPermanentWidget(made);
    return made;
  };
  snapButton_ = button(QStringLiteral("Accrochage"), "F3", "@toggleSnaps");
  orthoButton_ = button(QStringLiteral("Ortho"), "F8", "@ortho");
}

void MainWindow::showModes() {
  const Drawing* const d = drawing();
  if (!d) return;
  SystemVariables& variables = drawing()->document().variables();
  const int modes = variables.integer("OSMODE", 0);
  snapButton_->setChecked(modes != 0 && !(modes & kSuspended));
  orthoButton_->setChecked(variables.integer("ORTHOMODE", 0) != 0);
}

void MainWindow::toggleSnaps() {
  const int now = drawing()->document().variables().integer("OSMODE", 0);
  setVariable("OSMODE", (now & ~kSuspended) == 0 ? kUsual : now ^ kSuspended);
}

void MainWindow::toggleOrtho() {
  setVariable("ORTHOMODE", drawing()->document().variables().integer("ORTHOMODE", 0) == 0 ? 1 : 0);
}

// At once, whatever runs: a mode is no step of the drawing's history.
void MainWindow::setVariable(const std::string& name, int value) {
  drawing()->document().variables().set(name, value);
  showModes();
  view()->update();
}

void MainWindow::chooseSnaps() {
  QDialog form(this);
  form.setWindowTitle(QStringLiteral("Accrochages aux objets"));
  auto* column = new QVBoxLayout(&form);
  SystemVariables& variables = drawing()->document().variables();
  const int now = variables.integer("OSMODE", 0);
  std::vector<std::pair<SnapMode, QCheckBox*>> boxes;
  for (const SnapMode mode :
       {kEnd, kMiddle, kCentre, kNode, kQuadrant, kIntersection, kInsertion, kPerpendicular, kNearest}) {
    auto* box = new QCheckBox(QString::fromUtf8(snapName(mode)), &form);
    box->setChecked(now & static_cast<int>(mode));
    column->addWidget(box);
    boxes.emplace_back(mode, box);
  }
  auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, &form);
  column->addWidget(buttons);
  connect(buttons, &QDialogButtonBox::accepted, &form, &QDialog::accept);
  connect(buttons, &QDialogButtonBox::rejected, &form, &QDialog::reject);
  if (form.exec() != QDialog::Accepted) return;
  int modes = 0;
  for (const auto& [mode, box] : boxes) modes |= box->isChecked() ? static_cast<int>(mode) : 0;
  setVariable("OSMODE", modes);
}

}  // namespace atelier::desktop
