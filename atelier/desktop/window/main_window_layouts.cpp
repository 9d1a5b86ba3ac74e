// The tabs under the drawing: its model space and its sheets.
// A click sets CTAB, as a command would: what is shown is always the space that commands work in.
#include <QSignalBlocker>
#include <QTabBar>
#include <QVBoxLayout>

#include "atelier/database/objects/layouts.h"
#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {

QWidget* MainWindow::buildLayouts() {
  auto* const both = new QWidget(this);
  auto* const column = new QVBoxLayout(both);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(0);
  layouts_ = new QTabBar(both);
  layouts_->setShape(QTabBar::RoundedSouth);
  layouts_->setDocumentMode(true);
  layouts_->setExpanding(false);
  layouts_->setFocusPolicy(Qt::NoFocus);
  layouts_->setAccessibleName(QStringLiteral("Présentations"));
  column->addWidget(tabs_, 1);
  column->addWidget(layouts_);
  connect(layouts_, &QTabBar::currentChanged, this, [this](int index) { chooseLayout(index); });
  return both;
}

void MainWindow::showLayouts() {
  const QSignalBlocker quiet(layouts_);
  Drawing* const shown = drawing();
  QStringList names;
  int current = 0;
  if (shown) {
    AcDbStub* const space = shown->document().database().currentSpaceId();
    names << QStringLiteral("Objet");
    for (AcDbStub* sheet : sheetsOf(shown->document().imp())) {
      if (sheet == space) current = static_cast<int>(names.size());
      names << QString::fromStdString(layoutNameOf(*sheet));
    }
  }
  while (layouts_->count() > names.size()) layouts_->removeTab(layouts_->count() - 1);
  for (int i = 0; i < names.size(); ++i)
    if (i < layouts_->count()) layouts_->setTabText(i, names[i]);
    else layouts_->addTab(names[i]);
  layouts_->setCurrentIndex(current);
  layouts_->setVisible(names.size() > 1);
  layouts_->setEnabled(shown && !shown->isRunning());
}

void MainWindow::chooseLayout(int index) {
  if (index < 0 || !drawing()) return;
  const QString name = index == 0 ? QStringLiteral("Model") : layouts_->tabText(index);
  carryOut({QStringLiteral("SETVAR"), QStringLiteral("CTAB"), name});
}

}  // namespace atelier::desktop
