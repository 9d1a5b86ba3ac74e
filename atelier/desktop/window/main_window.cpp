// One drawing is in front and current; its running command must end before another comes to the front.
#include "atelier/desktop/window/main_window.h"

#include <QApplication>
#include <QColorDialog>
#include <QDockWidget>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScreen>
#include <QSettings>
#include <QStatusBar>

#include "atelier/commands/commands.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/window/theme.h"

namespace atelier::desktop {
namespace {

constexpr int kPanelWidth = 42;        // characters
constexpr double kScreenShare = 0.95;  // of a new window, with its frame
constexpr int kReadingDelay = 60;      // milliseconds between two readings of a profile

QDockWidget* dock(QMainWindow& window, const QString& title, QWidget* content, Qt::DockWidgetArea area) {
  auto* panel = new QDockWidget(title, &window);
  panel->setObjectName(title);
  panel->setWidget(content);
  window.addDockWidget(area, panel);
  return panel;
}

}  // namespace

MainWindow::MainWindow() {
  setWindowTitle(QStringLiteral("Kavel"));
  setAcceptDrops(true);
  QApplication::instance()->installEventFilter(this);
  tabs_ = new QTabWidget(this);
  tabs_->setTabsClosable(true);
  tabs_->setDocumentMode(true);
  setCentralWidget(tabs_);
  buildPanels();
  buildMenus();
  connect(tabs_, &QTabWidget::currentChanged, this, [this] { showTab(); });
  connect(tabs_, &QTabWidget::tabCloseRequested, this, [this](int index) { closeTab(index); });
  const QSize room = screen()->availableSize();
  resize(QSize(1280, 800).boundedTo(room * kScreenShare));
  QSettings settings;
  restoreGeometry(settings.value("fenetre").toByteArray());
  restoreState(settings.value("panneaux").toByteArray());
  commands_->setHistory(settings.value("commandes").toStringList());
  copyTimer_.setSingleShot(true);
  connect(&copyTimer_, &QTimer::timeout, this, [this] { autosave(); });
  readingTimer_.setSingleShot(true);
  connect(&readingTimer_, &QTimer::timeout, this, [this] { readProfile(); });
  QTimer::singleShot(0, this, [this] { recover(); });
}

MainWindow::~MainWindow() {
  tabs_->blockSignals(true);
  while (!drawings_.empty()) {
    delete drawings_.back()->view;
    drawings_.pop_back();
  }
}

void MainWindow::buildPanels() {
  profiles_ = new ProfilesPanel(this);
  properties_ = new PropertiesPanel(this);
  commands_ = new CommandLine(this);
  guide_ = new GuideWindow(this);
  layers_ = new LayersPanel(this);
  layers_->onChange = [this](const QStringList& answers) {
    carryOut(QStringList("-LAYER") + answers + QStringList(""));
  };
  QDockWidget* const profiles = dock(*this, QStringLiteral("Profils"), profiles_, Qt::LeftDockWidgetArea);
  resizeDocks({profiles}, {fontMetrics().averageCharWidth() * kPanelWidth}, Qt::Horizontal);
  QDockWidget* const properties = dock(*this, QStringLiteral("Propriétés"), properties_, Qt::LeftDockWidgetArea);
  tabifyDockWidget(properties, dock(*this, QStringLiteral("Calques"), layers_, Qt::LeftDockWidgetArea));
  properties->raise();
  QDockWidget* const commands = dock(*this, QStringLiteral("Commandes"), commands_, Qt::BottomDockWidgetArea);
  resizeDocks({commands}, {commands->minimumSizeHint().height()}, Qt::Vertical);
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
  commands_->onLine = [this](const QString& line) { answer(line); };
  commands_->onCancel = [this] { escape(); };
}

void MainWindow::chooseProfile(const QString& handle) {
  const QString profile = QString("(handent \"%1\")").arg(handle);
  const QString call = QString("(progn (if (plv-profil-sain %1) (plv-choix-profil %1)) (princ))").arg(profile);
  if (Drawing* d = drawing()) d->feed({{call.toStdString(), {}, "PLV-CHOISIR"}});
}

MainWindow::Tab* MainWindow::front() const {
  for (const auto& tab : drawings_)
    if (tab->view == tabs_->currentWidget()) return tab.get();
  return nullptr;
}
Drawing* MainWindow::drawing() const {
  Tab* const tab = front();
  return tab ? tab->drawing.get() : nullptr;
}
DrawingView* MainWindow::view() const {
  Tab* const tab = front();
  return tab ? tab->view : nullptr;
}

void MainWindow::wire(Tab& tab) {
  Drawing& drawing = *tab.drawing;
  drawing.document().dialogPresenter = &dialogs_;
  drawing.onPrinted = [this](const QString& text) { commands_->print(text); };
  drawing.onPrompt = [this, &tab] {
    copySoon();
    if (&tab != front()) return;
    commands_->showPrompt(tab.drawing->prompt());
    tabs_->tabBar()->setEnabled(!tab.drawing->isRunning());
    showModes();
    if (!tab.drawing->prompt()) return;
    tab.view->refresh();
    layers_->refresh(tab.drawing.get());
  };
  drawing.onDone = [this, &tab] { afterCommand(tab); };
  drawing.onQuit = [this, &tab] { quit(tab); };
  drawing.onReplaced = [this, &tab] { afterReplacement(tab); };
  tab.view->onMoved = [this, &drawing](const AcGePoint3d& point) { moved(drawing, point); };
  tab.view->onSelection = [this, &tab] { properties_->show(tab.drawing.get(), tab.view->selection()); };
  tab.view->onMenu = [this](const QPoint& at) { showContextMenu(at); };
  tab.view->onKey = [this](QKeyEvent* event) { commands_->takeKey(event); };
}

QString MainWindow::nextName() { return QStringLiteral("Dessin%1.dxf").arg(++untitled_); }

void MainWindow::showTab() {
  Tab* const tab = front();
  coordinates_->clear();
  profileStatus_->clear();
  hostMenus_->rebuild();
  profiles_->refresh(tab ? tab->drawing.get() : nullptr);
  properties_->show(tab ? tab->drawing.get() : nullptr, tab ? tab->view->selection() : std::vector<AcDbStub*>());
  currentProfile_->clear();
  layers_->refresh(nullptr);
  if (!tab) return setWindowTitle(QStringLiteral("Kavel"));
  tab->drawing->document().makeCurrent();
  if (!tab->drawing->isRunning()) atelier::desktop::ask(tab->drawing->document(), "(plv-reprendre-courant)");
  showTitle(*tab);
  showModes();
  currentProfile_->setText(profiles_->showCurrent(tab->drawing.get()));
  layers_->refresh(tab->drawing.get());
  commands_->showPrompt(tab->drawing->prompt());
  QStringList names;
  for (const std::string& name : tab->drawing->document().interpreter().boundNames())
    if (name.starts_with("C:")) names << QString::fromStdString(name.substr(2));
  for (const std::string& name : commandNames()) names << QString::fromStdString(name);
  commands_->setNames(names);
  tab->view->setFocus();
}

void MainWindow::afterCommand(Tab& tab) {
  atelier::desktop::ask(tab.drawing->document(), "(plv-bureau-oublier)");
  if (!tab.drawing->isModified()) forgetCopy(tab);
  tab.view->refresh();
  if (&tab != front()) return;
  commands_->showPrompt(nullptr);
  tabs_->tabBar()->setEnabled(true);
  showTitle(tab);
  showModes();
  profiles_->refresh(tab.drawing.get());
  currentProfile_->setText(profiles_->showCurrent(tab.drawing.get()));
  layers_->refresh(tab.drawing.get());
  properties_->show(tab.drawing.get(), tab.view->selection());
}

void MainWindow::showTitle(Tab& tab) {
  tabs_->setTabText(tabs_->indexOf(tab.view), tab.drawing->title());
  if (&tab != front()) return;
  setWindowTitle(tab.drawing->title() + QStringLiteral("[*] - Kavel"));
  setWindowModified(tab.drawing->isModified());
}

// What the front-end remembers of the profiles is the old drawing's.
void MainWindow::afterReplacement(Tab& tab) {
  Drawing& d = *tab.drawing;
  forgetCopy(tab);
  tab.origin.clear();
  if (d.document().path().empty()) d.untitled = nextName();
  else remember(QString::fromStdString(d.document().path()));
  atelier::desktop::ask(d.document(), "(progn (plv-bureau-oublier) (plv-reprendre-courant))");
  tab.view->startAnew();
  showTitle(tab);
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

void MainWindow::perform(const QString& action) {
  if (action.startsWith('@')) return windowAction(action.mid(1));
  const QStringList lines = action.split('|');
  if (Drawing* d = drawing(); d && !d->isRunning()) d->lastLine = lines.front();
  carryOut(lines);
}

// A command and its answers. What may run between two answers does; else the running command is cancelled.
void MainWindow::carryOut(const QStringList& lines) {
  Drawing* const d = drawing();
  if (!d) return;
  if (d->waits() && !d->prompt()->takesSpaces && isTransparent(lines.front().toStdString())) {
    d->type("'" + lines.front());
    for (const QString& line : lines.sliced(1)) d->type(line);
    return;
  }
  Order order{lines.front().toStdString()};
  for (const QString& answer : lines.sliced(1)) order.answers.push_back(answer.toStdString());
  d->feed({order});
}

void MainWindow::selectAll() {
  Tab* const tab = front();
  AcDbStub* const space = tab ? tab->drawing->document().imp().modelSpace() : nullptr;
  if (!space || !space->children) return;
  std::vector<AcDbStub*> all;
  for (AcDbStub* stub : *space->children)
    if (!stub->is(AcDbStub::kErased)) all.push_back(stub);
  tab->view->select(std::move(all));
}

void MainWindow::chooseGround() {
  const QColor colour = QColorDialog::getColor(groundColour(), this, QStringLiteral("Couleur du fond"));
  if (colour.isValid()) setGround(colour);
}

void MainWindow::setGround(const QColor& chosen) {
  chooseGroundColour(chosen);
  for (const auto& tab : drawings_) tab->view->setGround(groundColour());
}

void MainWindow::dragEnterEvent(QDragEnterEvent* event) {
  if (event->mimeData()->hasUrls()) event->acceptProposedAction();
}

void MainWindow::dropEvent(QDropEvent* event) {
  for (const QUrl& url : event->mimeData()->urls())
    if (url.isLocalFile()) whenIdle([this, path = url.toLocalFile()] { open(path); });
}

}  // namespace atelier::desktop
