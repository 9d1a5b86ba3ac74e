// One drawing is in front and current; its running command must end before another comes to the front.
#include "atelier/desktop/window/main_window.h"
#include "atelier/desktop/forms/form_command.h"

#include <QApplication>
#include <QColorDialog>
#include <QDragEnterEvent>
#include <QFileInfo>
#include <QMimeData>
#include <QScreen>
#include <QSettings>

#include "atelier/base/text.h"
#include "atelier/commands/commands.h"
#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/files/recent_files.h"
#include "atelier/desktop/window/theme.h"

namespace atelier::desktop {
namespace {

constexpr double kScreenShare = 0.95;  // of a new window, with its frame

// Where the project line can be taken hold of that a curve is part of.
std::vector<AcGePoint3d> gripsOfLine(Drawing& drawing, AcDbStub* stub) {
  std::vector<AcGePoint3d> grips;
  const QString call = QString("(plv-bureau-prises \"%1\")").arg(QString::fromStdString(handleText(stub->handle)));
  for (const QVariant& place : ask(drawing.document(), call).toList())
    grips.emplace_back(place.toList().value(0).toDouble(), place.toList().value(1).toDouble(), 0);
  return grips;
}

}  // namespace

MainWindow::MainWindow() {
  setWindowTitle(QStringLiteral("Kavel"));
  setAcceptDrops(true);
  QApplication::instance()->installEventFilter(this);
  tabs_ = new QTabWidget(this);
  tabs_->setTabsClosable(true);
  tabs_->setDocumentMode(true);
  setCentralWidget(buildLayouts());
  buildPanels();
  buildMenus();
  connect(tabs_, &QTabWidget::currentChanged, this, [this] { changeTab(); });
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
  letAsk(drawing);
  drawing.onPrinted = [this](const QString& text) { commands_->print(text); };
  drawing.onWork = [this, &drawing](qint64 milliseconds) {
    work_.goesOn(drawing.commandName(), milliseconds, [&drawing] { drawing.cancel(); });
  };
  drawing.onPrompt = [this, &tab] {
    work_.end();
    if (tab.drawing->prompt()) copySoon();
    if (&tab != front()) return;
    commands_->showPrompt(tab.drawing->prompt());
    tabs_->tabBar()->setEnabled(!tab.drawing->isRunning());
    layouts_->setEnabled(!tab.drawing->isRunning());
    showModes();
    if (!tab.drawing->prompt()) return;
    offerFiles();
    tab.view->refresh();
    layers_->refresh(tab.drawing.get());
  };
  drawing.onCommand = [this] { copySoon(); };
  drawing.onDone = [this, &tab] { afterCommand(tab); };
  drawing.onQuit = [this, &tab] { quit(tab); };
  drawing.onReplaced = [this, &tab] { afterReplacement(tab); };
  tab.view->onEdit = [this] { return properties_->editField(QStringLiteral("Texte")); };
  tab.view->onMoved = [this, &drawing](const AcGePoint3d& point) { moved(drawing, point); };
  tab.view->onSelection = [this, &tab] {
    properties_->show(tab.drawing.get(), tab.view->selection());
    if (tab.view->selection().size() == 1)
      lineTable_->showLineOf(QString::fromStdString(handleText(tab.view->selection()[0]->handle)));
  };
  tab.view->onGrips = [&drawing](AcDbStub* stub) { return gripsOfLine(drawing, stub); };
  tab.view->onGripTaken = [&drawing](AcDbStub* stub, const AcGePoint3d& at) {
    const QString call = QString("(plv-bureau-tirer \"%1\" %2 %3)")
                             .arg(QString::fromStdString(handleText(stub->handle)), number(at.x), number(at.y));
    drawing.feed({{call.toStdString(), {}, "PLV-TIRER"}});
  };
  tab.view->onMenu = [this](const QPoint& at) { showContextMenu(at); };
  tab.view->onKey = [this](QKeyEvent* event) { commands_->takeKey(event); };
}

QString MainWindow::nextName() { return QStringLiteral("Dessin%1.dxf").arg(++untitled_); }

// A drawing whose command runs or is about to begin stays in front.
void MainWindow::changeTab() {
  for (const auto& tab : drawings_)
    if (tab->view != tabs_->currentWidget() && tab->drawing->isBusy()) return tabs_->setCurrentWidget(tab->view);
  showTab();
}

void MainWindow::showTab() {
  Tab* const tab = front();
  if (tab) tab->drawing->document().makeCurrent();
  coordinates_->clear();
  profileStatus_->clear();
  hostMenus_->rebuild();
  profiles_->refresh(tab ? tab->drawing.get() : nullptr);
  properties_->show(tab ? tab->drawing.get() : nullptr, tab ? tab->view->selection() : std::vector<AcDbStub*>());
  currentProfile_->clear();
  layers_->refresh(nullptr);
  lineTable_->refresh(tab ? tab->drawing.get() : nullptr);
  showLayouts();
  if (!tab) return setWindowTitle(QStringLiteral("Kavel"));
  if (!tab->drawing->isRunning()) atelier::desktop::ask(tab->drawing->document(), "(plv-reprendre-courant)");
  showTitle(*tab);
  showModes();
  currentProfile_->setText(profiles_->showCurrent(tab->drawing.get()));
  layers_->refresh(tab->drawing.get());
  showState(*tab);
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
  for (const QVariant& taken : atelier::desktop::ask(tab.drawing->document(), "(plv-fichiers-pris)").toList())
    rememberFile(taken.toList().value(0).toString(), taken.toList().value(1).toString());
  if (tab.drawing->isModified()) copySoon();
  else forgetCopy(tab);
  tab.view->refresh();
  if (&tab != front()) return;
  commands_->showPrompt(nullptr);
  tabs_->tabBar()->setEnabled(true);
  showLayouts();
  showTitle(tab);
  showModes();
  profiles_->refresh(tab.drawing.get());
  currentProfile_->setText(profiles_->showCurrent(tab.drawing.get()));
  layers_->refresh(tab.drawing.get());
  properties_->show(tab.drawing.get(), tab.view->selection());
  lineTable_->refresh(tab.drawing.get());
  showState(tab);
  if (afterwards_) QTimer::singleShot(0, this, std::exchange(afterwards_, nullptr));
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
  if (d.document().path().empty()) d.setUntitled(nextName());
  else rememberFile(kRecentDrawings, QString::fromStdString(d.document().path()));
  atelier::desktop::ask(d.document(), "(progn (plv-bureau-oublier) (plv-reprendre-courant))");
  letAsk(d);
  tab.view->startAnew();
  showLayouts();
  showTitle(tab);
}

void MainWindow::perform(const QString& action) {
  if (action.startsWith('@')) return windowAction(action.mid(1));
  const QStringList lines = action.split('|');
  if (Drawing* d = drawing(); d && lines.size() == 1 && CommandForm::exists(*d, action)) return openForm(action);
  if (Drawing* d = drawing(); d && !d->isRunning()) d->lastLine = lines.front();
  carryOut(lines);
}

void MainWindow::openForm(const QString& command, const QString& file) {
  whenIdle([this, command, file] {
    if (!drawing()) return;
    auto* form = new CommandForm(*drawing(), command, this);
    if (!file.isEmpty()) form->write(CommandForm::kFile, file);
    form->open();
  });
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
  AcDbStub* const space = tab ? tab->drawing->document().database().currentSpaceId() : AcDbObjectId();
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
