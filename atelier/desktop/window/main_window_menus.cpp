// Builds the menus and tool bar from the table of actions; the actions of the window itself.
#include <QApplication>
#include <QMenuBar>
#include <QMessageBox>
#include <QSet>
#include <QTimer>
#include <QToolBar>

#include "atelier/desktop/forms/form_command.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/desktop/window/actions.h"
#include "atelier/desktop/window/icons.h"
#include "atelier/desktop/window/main_window.h"
#include "atelier/desktop/window/theme.h"
#include "atelier/dxf/audit/audit.h"

namespace atelier::desktop {
namespace {

constexpr int kUnwinding = 100;  // milliseconds for a cancelled command to end

}  // namespace

void MainWindow::buildMenus() {
  auto* bar = addToolBar(QStringLiteral("Outils"));
  bar->setObjectName("outils");
  bar->setIconSize({24, 24});
  QHash<QString, QMenu*> menus;
  for (const ActionRow& row : actionRows()) {
    QMenu*& menu = menus[QString::fromUtf8(row.menu)];
    if (!menu) menu = menuBar()->addMenu(QString::fromUtf8(row.menu));
    if (!row.text) {
      menu->addSeparator();
      continue;
    }
    QAction* action = menu->addAction(QString::fromUtf8(row.text));
    if (row.shortcut) action->setShortcut(QKeySequence(row.shortcut));
    if (row.icon) {
      action->setProperty("icone", row.icon);
      action->setIcon(iconNamed(row.icon));
      bar->addAction(action);
    }
    action->setToolTip(QString::fromUtf8(row.text).remove('&').remove("..."));
    connect(action, &QAction::triggered, this, [this, command = QString::fromUtf8(row.command)] { perform(command); });
    for (const RecentKind& kind : recentKinds()) {
      if (QLatin1String(kind.command) != QLatin1String(row.command)) continue;
      auto* recent = menu->addMenu(QString::fromUtf8(kind.title));
      connect(recent, &QMenu::aboutToShow, this, [this, recent, &kind] { buildRecent(*recent, kind); });
    }
  }
  QMenu* view = menus[QStringLiteral("&Affichage")];
  view->addSeparator();
  QMenu* panels = createPopupMenu();
  panels->setTitle(QStringLiteral("&Panneaux"));
  view->addMenu(panels);
  QMenu* help = menuBar()->addMenu(QStringLiteral("&Aide"));
  buildHelp(*help);
  hostMenus_ = std::make_unique<HostMenuBar>(
      *menuBar(), help->menuAction(), [this](const std::string& label, const std::vector<std::string>& lines) {
        Drawing* const d = drawing();
        if (!d || lines.empty()) return;
        // A command with a form, called as a function or typed, opens it; a row of a table is called with its name.
        const QString command = QString::fromStdString(lines.front()).remove('(').remove(')').trimmed();
        if (CommandForm::exists(*d, command)) return perform(command);
        d->feed({{lines.front(), {lines.begin() + 1, lines.end()}, lines.front().starts_with('(') ? label : ""}});
      });
}

void MainWindow::buildHelp(QMenu& help) {
  const auto add = [&](const char* text, auto action) {
    QAction* entry = help.addAction(QString::fromUtf8(text));
    connect(entry, &QAction::triggered, this, action);
    return entry;
  };
  add("&Guide", [this] { openGuide(); })->setShortcut(Qt::Key_F1);
  add("Commandes", [this] { perform("AIDE|"); });
  add("Fonctions AutoLISP", [this] {
    if (Drawing* const d = drawing()) d->feed({{"(aide)", {}, "Fonctions AutoLISP"}});
  });
  add("À propos de Kavel", [this] {
    QMessageBox::about(this, QStringLiteral("Kavel"),
                       QStringLiteral("Kavel\nProfils en long de routes, d'assainissement et d'eau potable."));
  });
}

// At the running command, or the one that is being typed.
void MainWindow::openGuide() {
  const Drawing* const d = drawing();
  const QString running = d ? d->commandName() : QString();
  if (!guide_->openAt(running.isEmpty() ? commands_->typed().section(' ', 0, 0) : running))
    complain(QStringLiteral("Le guide n'est pas installé à côté du programme."));
}

// Icons are drawn in the colours of the window, so they are made again.
void MainWindow::changeTheme() {
  chooseTheme(!isDarkTheme());
  for (const auto& tab : drawings_) tab->view->setGround(groundColour());
  for (QAction* action : findChildren<QAction*>())
    if (const QString icon = action->property("icone").toString(); !icon.isEmpty()) action->setIcon(iconNamed(icon));
}

void MainWindow::buildRecent(QMenu& menu, const RecentKind& kind) {
  menu.clear();
  const bool drawings = QLatin1String(kind.name) == QLatin1String(kRecentDrawings);
  for (const QString& path : recentFiles(kind))
    connect(menu.addAction(path), &QAction::triggered, this, [this, path, drawings, command = kind.command] {
      if (drawings) whenIdle([this, path] { open(path); });
      else openForm(command, path);
    });
  if (menu.isEmpty()) menu.addAction(QStringLiteral("(aucun)"))->setEnabled(false);
}

// Before drawings are opened, saved or changed the running command is cancelled; when it doesn't end (its dialog comes
// back), or a form was opened meanwhile, the action is not carried out.
void MainWindow::whenIdle(std::function<void()> action) {
  Drawing* const d = drawing();
  if (!d || !d->isBusy()) return action();
  d->cancel();
  QTimer::singleShot(kUnwinding, d, [d, action = std::move(action)] {
    if (!d->isBusy() && !QApplication::activeModalWidget()) action();
  });
}

void MainWindow::windowAction(const QString& name) {
  Drawing* const d = drawing();
  DrawingView* const v = view();
  static const QSet<QString> always{"extents", "nearer",      "farther", "ground", "themeGround",
                                    "snaps",   "toggleSnaps", "ortho",   "theme",  "quit"};
  if (d && d->isRunning() && !always.contains(name)) return whenIdle([this, name] { windowAction(name); });
  if (name == "new") open();
  else if (name == "open") {
    const QString path = chooseFile(false, QStringLiteral("Ouvrir un dessin"), QStringLiteral("Dessins (*.dxf *.dwg)"));
    if (!path.isEmpty()) open(path);
  } else if (name == "quit") close();
  else if (name == "theme") changeTheme();
  else if (!d) return;
  else if (name == "save") save();
  else if (name == "saveAs") save(true);
  else if (name == "close") closeTab(tabs_->currentIndex());
  else if (name == "extents") v->zoomExtents();
  else if (name == "nearer") v->zoomAt(v->rect().center(), 1.5);
  else if (name == "farther") v->zoomAt(v->rect().center(), 1 / 1.5);
  else if (name == "ground") chooseGround();
  else if (name == "themeGround") setGround({});
  else if (name == "snaps") chooseSnaps();
  else if (name == "toggleSnaps") toggleSnaps();
  else if (name == "ortho") toggleOrtho();
  else if (name == "selectAll") selectAll();
  else if (name == "audit") audit();
  else if (name == "plot") plot();
  else if (name == "updateUnasked") updateUnasked();
  else if (name == "updateAtOnce") changeUpdateAtOnce();
  else if (name == "lineTable") toggleLineTable();
}

void MainWindow::audit() {
  Drawing& d = *drawing();
  const auto findings = dxf::audit(d.document().database(), false);
  for (const dxf::Finding& finding : findings) d.document().print(dxf::line(finding) + "\n");
  d.document().print("\n" + std::to_string(findings.size()) + " constats.\n");
  d.feed({{"(plv-audit)", {}, "Vérifier les profils"}});
}

}  // namespace atelier::desktop
