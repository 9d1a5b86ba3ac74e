// The table of a project line's vertices: what it shows, typed values, locks, rows, the clipboard; the drawing follows it, and it the drawing.
#include <QClipboard>
#include <QDockWidget>
#include <QKeyEvent>
#include <QLineEdit>

#include "tests/desktop/desktop.h"

namespace {

struct LineTableShown : kaveltest::Desktop {
  LineTableShown() {
    lisp(QString("(progn (setq p (plv-nouveau \"%1/exemples/rue-du-moulin.csv\" \"1\" nil 10.0 2.5 nil nil)) T)")
             .arg(KAVEL_SOURCE));
    draw("Voirie", "'((0.0 142.0) (80.0 138.0 1500.0) (330.0 127.9 (\"P\" \"L\" 60.0)) (400.0 123.0))");
    window.view()->zoomExtents();
    // Which panels are open is kept from one window to the next.
    if (!table().isVisible()) driver.menu("Table des sommets").play();
    table().refresh(window.drawing());
  }
  void draw(const QString& kind, const QString& vertices) {
    driver.type(QString("(progn (plv-projet p \"%1\" %2) (princ))").arg(kind, vertices)).play();
  }
  atelier::desktop::LineTable& table() { return window.lineTable(); }
  QString text(int row, int column) { return table().cells().item(row, column)->text(); }
  // Waits for what the table has ordered.
  void change(int row, int column, const QString& text) {
    driver.then([=, this] { table().change(row, column, text); }).play();
  }
  void select(int row, int column) { table().cells().setCurrentCell(row, column); }
};

constexpr int kStation = 0, kAltitude = 1, kIn = 3, kOut = 4, kRadius = 6, kStart = 9;

TEST_F(LineTableShown, CellsShowAndChangeTheLine) {
  ASSERT_EQ(table().cells().rowCount(), 4);
  EXPECT_EQ(text(1, kStation), "80.000");
  EXPECT_EQ(text(1, kRadius), "1500.00");
  EXPECT_EQ(text(3, kIn), "-7.0000");
  change(1, kAltitude, "137,5");
  EXPECT_EQ(text(1, kIn), "-5.6250");
  EXPECT_NEAR(lisp("(cadr (cadr (car (plv-lire-ligne p \"Voirie\"))))").toDouble(), 137.5, 1e-9);
  // one step back is one change, and the table follows
  driver.type("U").play();
  EXPECT_EQ(text(1, kAltitude), "138.000");
  // so it does when something else changes the line
  driver.type("(progn (plv-sommets-corriger p \"Voirie\" '((2 \"Station\" \"90\"))) (princ))").play();
  EXPECT_EQ(text(1, kStation), "90.000");
}

// What the table reads is read without touching the drawing: no step of undo is made or lost.
TEST_F(LineTableShown, ReadingItChangesNothing) {
  window.drawing()->takeChanged();
  table().check(1, kAltitude, "130");
  table().refresh(window.drawing());
  EXPECT_FALSE(window.drawing()->takeChanged());
}

TEST_F(LineTableShown, WhatCantBeIsRedWhileItIsTyped) {
  select(1, kRadius);
  QKeyEvent press(QEvent::KeyPress, Qt::Key_9, Qt::NoModifier, "9");
  QApplication::sendEvent(&table().cells(), &press);
  auto* const edit = table().cells().findChild<QLineEdit*>();
  ASSERT_TRUE(edit);
  edit->setText("90000");
  emit edit->textEdited("90000");
  EXPECT_TRUE(edit->styleSheet().contains("ffd6d6"));
  EXPECT_TRUE(table().said().contains("se chevauchent entre les distances 0.000 et 80.000"))
      << table().said().toStdString();
  emit edit->textEdited("900");
  EXPECT_TRUE(edit->styleSheet().isEmpty());
  change(1, kRadius, "90000");
  EXPECT_EQ(text(1, kRadius), "1500.00");
  change(1, kStart, "70");
  EXPECT_EQ(text(1, kStart), "70.000");
}

TEST_F(LineTableShown, LocksInsertedAndRemovedVertices) {
  driver.then([this] { table().toggleLock(1, kOut); }).play();
  change(1, kStation, "90");
  EXPECT_EQ(text(1, kOut), "-4.0400");
  EXPECT_EQ(text(1, kAltitude), "137.596");
  EXPECT_FALSE(table().check(2, kAltitude, "127").isEmpty());
  driver.then([this] { table().toggleLock(1, kOut); }).play();
  EXPECT_TRUE(table().check(2, kAltitude, "127").isEmpty());
  driver.then([this] { table().insertAfter(0); }).play();
  ASSERT_EQ(table().cells().rowCount(), 5);
  EXPECT_EQ(text(1, kStation), "45.000");
  select(1, kStation);
  driver.then([this] { table().removeRows(); }).play();
  EXPECT_EQ(table().cells().rowCount(), 4);
}

TEST_F(LineTableShown, TheClipboardTakesCellsAndWholeLines) {
  select(0, kStation);
  table().copy();
  const QString whole = QApplication::clipboard()->text();
  EXPECT_TRUE(whole.startsWith("station\taltitude\traccordement\tforme\tprofondeur")) << whole.toStdString();
  EXPECT_EQ(whole.count('\n'), 4);
  change(1, kAltitude, "137");
  driver.then([this] { table().paste(); }).play();
  EXPECT_EQ(text(1, kAltitude), "138.000");
  EXPECT_EQ(text(1, kRadius), "1500.00");
  QApplication::clipboard()->setText("141,9\r\n137,9\r\n");
  select(0, kAltitude);
  driver.then([this] { table().paste(); }).play();
  EXPECT_EQ(text(0, kAltitude), "141.900");
  EXPECT_EQ(text(1, kAltitude), "137.900");
}

// While a vertex is dragged on the drawing, its row is in hand and shows where it would be; given up, the line is as it was.
TEST_F(LineTableShown, ItFollowsADrag) {
  lisp("(setq plv-scene:pas-station 0.0 plv-scene:pas-pente 0.0 plv-scene:profondeurs nil)");
  const auto at = [this](const char* place) {
    const QVariantList p = lisp(QString("(plv-vers-dessin (plv-cadre p) %1)").arg(place)).toList();
    return QPointF(p[0].toDouble(), p[1].toDouble());
  };
  const QPointF from = at("80.0 138.0"), to = at("110.0 136.0");
  driver.type("PLV-TIRER").type("Voirie").pick(from.x(), from.y()).hover(to.x(), to.y());
  driver.until([this] { return text(1, kStation) != "80.000"; }).then([this] {
    EXPECT_EQ(table().cells().currentRow(), 1);
    EXPECT_NEAR(text(1, kStation).toDouble(), 110, 1);
    EXPECT_NEAR(text(1, kAltitude).toDouble(), 136, 0.2);
    EXPECT_EQ(text(2, kStation), "330.000");
  });
  driver.key(Qt::Key_Escape).key(Qt::Key_Escape).play();
  EXPECT_EQ(text(1, kStation), "80.000");
}

TEST_F(LineTableShown, ANetworkHasItsColumns) {
  draw("Assainissement", "'((0.0 140.0) (80.0 136.0) (330.0 125.9) (400.0 121.0))");
  driver
      .type(
          "(progn (plv-reseau-ecrire p \"Assainissement\" (plv-reseau-rangees-de-ligne p \"Assainissement\" \"R\" "
          "\"visite;1000\" \"300/400;béton\" 50.0)) (princ))")
      .play();
  const auto show = [this](const char* kind) {
    window.profiles().onShow(lisp(QString("(plv-handle (car (plv-elements p \"%1\")))").arg(kind)).toString());
  };
  show("Assainissement");
  const int name = 12, pipe = 19;
  ASSERT_EQ(table().cells().columnCount(), 21);
  ASSERT_GT(table().cells().rowCount(), 4) << "manholes between vertices";
  EXPECT_EQ(text(0, name), "R1");
  EXPECT_EQ(text(1, name), "R2");
  EXPECT_FALSE(table().cells().item(1, kAltitude)->flags() & Qt::ItemIsEditable) << "the line's, at a manhole";
  EXPECT_TRUE(table().check(1, name, "R1").contains("le nom R1")) << table().said().toStdString();
  change(1, pipe, "400/500");
  EXPECT_EQ(text(1, pipe), "400/500");
  change(1, kStation, "42");
  EXPECT_EQ(text(1, kStation), "42.000");
  select(1, name);
  driver.then([this] { table().removeRows(); }).play();
  EXPECT_EQ(text(1, name), "R3");
  show("Voirie");
  EXPECT_EQ(table().cells().columnCount(), 12);
}

TEST_F(LineTableShown, ASelectedCurveShowsItsLine) {
  draw("AEp", "'((0.0 140.0) (400.0 120.0))");
  EXPECT_EQ(table().cells().rowCount(), 4);
  const QString handle = lisp("(plv-handle (car (plv-elements p \"AEp\")))").toString();
  window.profiles().onShow(handle);
  EXPECT_EQ(table().cells().rowCount(), 2);
  EXPECT_EQ(text(0, kAltitude), "140.000");
}

}  // namespace
