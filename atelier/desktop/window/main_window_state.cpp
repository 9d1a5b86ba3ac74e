// What of the profiles isn't true any more: frames in the view, and whether it is made anew before a plot.
#include <QSettings>

#include "atelier/desktop/document/lisp_bridge.h"
#include "atelier/desktop/forms/forms.h"
#include "atelier/desktop/window/main_window.h"

namespace atelier::desktop {
namespace {

constexpr const char* kUnasked = "miseAJourSansDemander";

constexpr const char* kAtOnce = "miseAJourAussitot";

bool atOnce() { return QSettings().value(kAtOnce, false).toBool(); }
bool unasked() { return QSettings().value(kUnasked, false).toBool(); }

}  // namespace

// While a command computes, the states of before it stay.
void MainWindow::showState(Tab& tab) {
  if (tab.drawing->isRunning()) return;
  std::vector<AcDbExtents> boxes;
  for (const QVariant& box : atelier::desktop::ask(tab.drawing->document(), "(plv-bureau-marques)").toList()) {
    const QVariantList sides = box.toList();
    if (sides.size() == 4)
      boxes.push_back(
          AcDbExtents({sides[0].toDouble(), sides[1].toDouble(), 0}, {sides[2].toDouble(), sides[3].toDouble(), 0}));
  }
  const bool stale = !boxes.empty();
  tab.view->frame(std::move(boxes));
  if (stale && &tab == front()) updateAtOnce(*tab.drawing);
}

// After a command, when that is wanted; not after one that goes back, which would never arrive, nor twice.
void MainWindow::updateAtOnce(Drawing& drawing) {
  static const QStringList kNotAfter{"U", "UNDO", "REDO", "OPEN", "RECOVER", "NEW", "PLV-ACTUALISER", ""};
  if (!atOnce() || kNotAfter.contains(drawing.ended) || drawing.hasMore()) return;
  drawing.ended.clear();
  drawing.feed({{"PLV-ACTUALISER"}});
}

void MainWindow::changeUpdateAtOnce() {
  QSettings().setValue(kAtOnce, !atOnce());
  commands_->print(atOnce() ? QStringLiteral("\nCe qui n'est plus à jour est refait après chaque commande.\n")
                            : QStringLiteral("\nCe qui n'est plus à jour attend la mise à jour (F5).\n"));
}

// Scripts are told; a user of the window is asked.
void MainWindow::letAsk(Drawing& drawing) {
  atelier::desktop::ask(drawing.document(),
                        QString("(plv-regler-sortie \"%1\")").arg(unasked() ? "actualiser" : "demander"));
}

void MainWindow::updateUnasked() {
  QSettings().setValue(kUnasked, !unasked());
  for (const auto& tab : drawings_) letAsk(*tab->drawing);
  commands_->print(
      unasked() ? QStringLiteral("\nCe qui n'est pas à jour sera refait sans question avant de tracer.\n")
                : QStringLiteral("\nAvant de tracer, une question est posée quand quelque chose n'est pas à jour.\n"));
}

void MainWindow::plot() {
  Drawing& d = *drawing();
  const QString stale = atelier::desktop::ask(d.document(), "(plv-perimees (plv-profils))").toString();
  const QString answer = stale.isEmpty() ? QStringLiteral("non")
                         : unasked()
                             ? QStringLiteral("oui")
                             : ask(stale + QStringLiteral(". Refaire avant de tracer ?"), {"Oui", "Non", "Annuler"});
  if (answer == "annuler") return;
  if (answer != "oui") return plotByForm(d, this);
  afterwards_ = [this] {
    if (Drawing* const now = drawing()) plotByForm(*now, this);
  };
  carryOut({"PLV-ACTUALISER"});
}

}  // namespace atelier::desktop
