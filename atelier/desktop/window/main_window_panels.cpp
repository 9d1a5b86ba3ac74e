// The panels around the drawing and the status bar: how they are placed, and what they show and ask for.
#include <QDockWidget>
#include <QStatusBar>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

constexpr int kPanelWidth = 42;    // characters
constexpr int kReadingDelay = 60;  // milliseconds between two readings of a profile

QDockWidget* dock(QMainWindow& window, const QString& title, QWidget* content, Qt::DockWidgetArea area) {
  auto* panel = new QDockWidget(title, &window);
  panel->setObjectName(title);
  panel->setWidget(content);
  window.addDockWidget(area, panel);
  return panel;
}

}  // namespace

void MainWindow::buildPanels() {
  profiles_ = new ProfilesPanel(this);
  properties_ = new PropertiesPanel(this);
  commands_ = new CommandLine(this);
  guide_ = new GuideWindow(this);
  layers_ = new LayersPanel(this);
  layers_->onChange = [this](const QStringList& answers) {
    carryOut(QStringList("-LAYER") + answers + QStringList(""));
  };
  layers_->onLoad = [this](const QString& name) { carryOut({"-LINETYPE", "_Load", name, "", ""}); };
  QDockWidget* const profiles = dock(*this, QStringLiteral("Profils"), profiles_, Qt::LeftDockWidgetArea);
  resizeDocks({profiles}, {fontMetrics().averageCharWidth() * kPanelWidth}, Qt::Horizontal);
  QDockWidget* const properties = dock(*this, QStringLiteral("Propriétés"), properties_, Qt::LeftDockWidgetArea);
  tabifyDockWidget(properties, dock(*this, QStringLiteral("Calques"), layers_, Qt::LeftDockWidgetArea));
  properties->raise();
  QDockWidget* const commands = dock(*this, QStringLiteral("Commandes"), commands_, Qt::BottomDockWidgetArea);
  resizeDocks({commands}, {commands->minimumSizeHint().height()}, Qt::Vertical);
  buildLineTable(*commands);
  coordinates_ = new QLabel(this);
  coordinates_->setMinimumWidth(fontMetrics().horizontalAdvance("000000.000 , 000000.000"));
  profileStatus_ = new QLabel(this);
  statusBar()->addWidget(coordinates_);
  statusBar()->addWidget(profileStatus_, 1);
  currentProfile_ = new QLabel(this);
  statusBar()->addPermanentWidget(currentProfile_);
  buildModes();
  profiles_->onShow = [this](const QString& handle) {
    Drawing* const d = drawing();
    if (!d || !d->waits() || !d->prompt()->wantsEntity) return showHandle(handle);
    d->type(QString("(handent \"%1\")").arg(handle));
    commands_->setFocus();
  };
  profiles_->onChoose = [this](const QString& handle) { chooseProfile(handle); };
  properties_->onChange = [this](const QString& handles, int code, const QString& value) {
    const QString call =
        QString("(progn (plv-bureau-changer %1 %2 %3) (princ))").arg(handles).arg(code).arg(quoted(value));
    if (Drawing* d = drawing()) d->feed({{call.toStdString(), {}, "Propriétés"}});
  };
  profiles_->onOperate = [this](const QString& handle, const QString& operation) {
    const QString call =
        "(progn (plv-operer-profil (handent " + quoted(handle) + ") " + quoted(operation) + ") (princ))";
    if (Drawing* d = drawing()) d->feed({{call.toStdString(), {}, "PLV-PROFIL"}});
  };
  commands_->onLine = [this](const QString& line) { answer(line); };
  commands_->onCancel = [this] { escape(); };
}

// Over the command line, hidden until it is wanted.
void MainWindow::buildLineTable(QDockWidget& commands) {
  lineTable_ = new LineTable(this);
  QDockWidget* const panel = dock(*this, QStringLiteral("Sommets"), lineTable_, Qt::BottomDockWidgetArea);
  splitDockWidget(panel, &commands, Qt::Vertical);
  panel->hide();
  lineTable_->onOrder = [this](const QString& order) {
    if (Drawing* const d = drawing()) d->feed({{order.toStdString(), {}, "PLV-SOMMETS"}});
  };
  lineTable_->onVertex = [this](std::optional<AcGePoint3d> at) {
    if (DrawingView* const v = view()) v->point(at);
  };
}

void MainWindow::toggleLineTable() {
  QWidget* const panel = lineTable_->parentWidget();
  panel->setVisible(!panel->isVisible());
  if (panel->isVisible()) lineTable_->cells().setFocus();
}

void MainWindow::chooseProfile(const QString& handle) {
  const QString profile = QString("(handent \"%1\")").arg(handle);
  const QString call = QString("(progn (if (plv-profil-sain %1) (plv-choix-profil %1)) (princ))").arg(profile);
  if (Drawing* d = drawing()) d->feed({{call.toStdString(), {}, "PLV-CHOISIR"}});
}

void MainWindow::moved(Drawing& drawing, const AcGePoint3d& point) {
  coordinates_->setText(QString("%1 , %2").arg(point.x, 0, 'f', 3).arg(point.y, 0, 'f', 3));
  readingAt_ = point;
  // A running computation is not disturbed.
  if ((!drawing.isRunning() || drawing.prompt()) && !readingTimer_.isActive()) readingTimer_.start(kReadingDelay);
}

void MainWindow::readProfile() {
  Drawing* const d = drawing();
  if (!d || (d->isRunning() && !d->prompt())) return;
  if (d->isRunning()) lineTable_->follow();
  const QVariantList reading =
      atelier::desktop::ask(d->document(),
                            QString("(plv-bureau-lecture %1 %2)").arg(number(readingAt_.x), number(readingAt_.y)))
          .toList();
  profileStatus_->setText(reading.size() < 5
                              ? QString()
                              : QStringLiteral("Profil %1   distance %2   altitude %3   terrain %4   profondeur %5")
                                    .arg(reading[0].toString(), reading[1].toString(), reading[2].toString(),
                                         reading[3].toString(), reading[4].toString()));
}

void MainWindow::showHandle(const QString& handle) {
  Tab* const tab = front();
  const auto value = parseHandle(handle.toStdString());
  if (!tab || !value) return;
  AcDbStub* const stub = tab->drawing->document().imp().stubOf(*value);
  if (!stub || stub->is(AcDbStub::kErased)) return;
  tab->view->select({stub});
  // A profile's block contains only its title; the front-end gives the extent of the whole profile.
  const QVariantList box =
      atelier::desktop::ask(tab->drawing->document(), QString("(plv-bureau-boite \"%1\")").arg(handle)).toList();
  AcDbEntityPointer entity(idOf(stub));
  AcDbExtents extents;
  if (box.size() == 4)
    extents = AcDbExtents({box[0].toDouble(), box[1].toDouble(), 0}, {box[2].toDouble(), box[3].toDouble(), 0});
  else if (entity.openStatus() == Acad::eOk) entity->getGeomExtents(extents);
  tab->view->zoomTo(extents);
}

}  // namespace atelier::desktop
