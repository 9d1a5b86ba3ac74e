// The panel of layers: states by clicks, also while a command runs; menus for colour and for several layers; the current one.
#include <QDockWidget>
#include <QMenu>
#include <QMouseEvent>

#include "tests/desktop/desktop.h"

namespace {

using Column = atelier::desktop::LayersPanel::Column;

struct Layers : kaveltest::Desktop {
  Layers() {
    driver.type("-LAYER").type("_N").type("VOIES,RESEAU #1,RESEAU 21").type("").play();
    for (QWidget* up = panel().parentWidget(); up; up = up->parentWidget())
      if (auto* dock = qobject_cast<QDockWidget*>(up)) dock->raise();
    until([] { return false; }, 50);
  }
  atelier::desktop::LayersPanel& panel() { return window.layers(); }
  int row(const QString& name) {
    for (int i = 0; i < panel().rowCount(); ++i)
      if (panel().item(i, Column::kName)->text() == name) return i;
    ADD_FAILURE() << "no layer " << name.toStdString();
    return 0;
  }
  void send(QEvent::Type type, const QString& name, Column column, Qt::MouseButton button = Qt::LeftButton,
            Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    auto* const item = panel().item(row(name), column);
    panel().scrollToItem(item);
    const QPointF at = panel().visualItemRect(item).center();
    QMouseEvent event(type, at, panel().viewport()->mapToGlobal(at), button, button, modifiers);
    QApplication::sendEvent(panel().viewport(), &event);
  }
  void click(const QString& name, Column column, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    send(QEvent::MouseButtonPress, name, column, Qt::LeftButton, modifiers);
    send(QEvent::MouseButtonRelease, name, column, Qt::LeftButton, modifiers);
  }
  static void choose(const QString& text) {
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu) << text.toStdString();
    for (QAction* action : menu->actions())
      if (action->text().startsWith(text)) action->trigger();
    menu->close();
  }
  int group(const QString& name, int code) {
    return lisp(QString("(cdr (assoc %1 (entget (tblobjname \"LAYER\" \"%2\"))))").arg(code).arg(name)).toInt();
  }
  Qt::CheckState shown(const QString& name, Column column) { return panel().item(row(name), column)->checkState(); }
};

TEST_F(Layers, AClickChangesTheStateOfThatLayerAlone) {
  driver.then([this] { click("RESEAU #1", Column::kOn); }).play();
  EXPECT_LT(group("RESEAU #1", 62), 0);
  EXPECT_GT(group("RESEAU 21", 62), 0);  // the sign for a digit in a name is no pattern
  EXPECT_EQ(shown("RESEAU #1", Column::kOn), Qt::Unchecked);
  EXPECT_EQ(shown("RESEAU 21", Column::kOn), Qt::Checked);
  driver.then([this] { click("VOIES", Column::kPlotted); }).play();
  EXPECT_EQ(group("VOIES", 290), 0);
  driver.then([this] { click("VOIES", Column::kPlotted); }).play();
  EXPECT_EQ(group("VOIES", 290), 1);
  driver.menu("Annuler").menu("Annuler").menu("Annuler").play();
  EXPECT_EQ(shown("RESEAU #1", Column::kOn), Qt::Checked);
}

// A line type that no layer has yet is loaded by being chosen.
TEST_F(Layers, ALineTypeIsChosenOrLoaded) {
  const auto type = [this](const char* layer) {
    return lisp(QString("(cdr (assoc 6 (entget (tblobjname \"LAYER\" \"%1\"))))").arg(layer)).toString();
  };
  driver.then([this] {
    click("VOIES", Column::kLinetype);
    auto* const menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
    ASSERT_TRUE(menu);
    for (QAction* entry : menu->actions().back()->menu()->actions())
      if (entry->text().startsWith("DASHED ")) entry->trigger();
    menu->close();
  });
  driver.play();
  EXPECT_EQ(type("VOIES"), "DASHED") << history().toStdString();
  driver.then([this] { click("RESEAU 21", Column::kLinetype), choose("DASHED"); }).play();
  EXPECT_EQ(type("RESEAU 21"), "DASHED");
  EXPECT_EQ(type("RESEAU #1"), "Continuous");
}

TEST_F(Layers, ARunningCommandGoesOn) {
  driver.type("LINE").type("0,0").then([this] { click("VOIES", Column::kFrozen); }).type("10,0").type("").play();
  EXPECT_EQ(group("VOIES", 70) & 1, 1) << history().toStdString();
  EXPECT_EQ(shown("VOIES", Column::kFrozen), Qt::Checked);
  EXPECT_EQ(count("LINE"), 1) << history().toStdString();
}

TEST_F(Layers, MenusGiveValuesToOneOrSeveral) {
  driver.then([this] { click("VOIES", Column::kColour); }).then([] { choose("3 "); }).play();
  EXPECT_EQ(group("VOIES", 62), 3);
  EXPECT_EQ(panel().item(row("VOIES"), Column::kColour)->text(), "3");
  driver.then([this] { click("VOIES", Column::kWeight); }).then([] { choose("0.50"); }).play();
  EXPECT_EQ(group("VOIES", 370), 50);
  driver.then([this] {
    click("RESEAU #1", Column::kName);
    click("RESEAU 21", Column::kName, Qt::ControlModifier);
    const QPoint at = panel().visualItemRect(panel().item(row("RESEAU 21"), Column::kName)).center();
    emit panel().customContextMenuRequested(at);
  });
  driver.then([] { choose("Verrouiller"); }).play();
  EXPECT_EQ(group("RESEAU #1", 70) & 4, 4);
  EXPECT_EQ(group("RESEAU 21", 70) & 4, 4);
  EXPECT_EQ(group("VOIES", 70) & 4, 0);
  driver.then([this] { click("VOIES", Column::kName), send(QEvent::MouseButtonDblClick, "VOIES", Column::kName); })
      .play();
  EXPECT_EQ(lisp("(getvar \"CLAYER\")").toString(), "VOIES");
  EXPECT_TRUE(panel().item(row("VOIES"), Column::kName)->font().bold());
}

}  // namespace
