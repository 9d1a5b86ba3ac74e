// (plv-bureau-profils) gives (title handle (child ...)) for each node.
#include "atelier/desktop/panels/profiles_panel.h"

#include <QHeaderView>
#include <QMenu>

#include "atelier/desktop/document/lisp_bridge.h"

namespace atelier::desktop {
namespace {

constexpr int kHandle = Qt::UserRole;

QTreeWidgetItem* itemOf(const QVariant& node) {
  const QVariantList parts = node.toList();
  auto* item = new QTreeWidgetItem(QStringList(parts.value(0).toString()));
  item->setToolTip(0, parts.value(0).toString());
  item->setData(0, kHandle, parts.value(1));
  for (const QVariant& child : parts.value(2).toList()) item->addChild(itemOf(child));
  return item;
}

}  // namespace

ProfilesPanel::ProfilesPanel(QWidget* parent) : QTreeWidget(parent) {
  setHeaderHidden(true);
  setAccessibleName(QStringLiteral("Profils"));
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) { showMenu(at); });
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    if (const QString handle = item->data(0, kHandle).toString(); !handle.isEmpty() && onShow) onShow(handle);
  });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    while (item->parent()) item = item->parent();
    if (const QString handle = item->data(0, kHandle).toString(); !handle.isEmpty() && onChoose) onChoose(handle);
  });
}

void ProfilesPanel::showMenu(const QPoint& at) {
  QTreeWidgetItem* item = itemAt(at);
  if (!item) return;
  const QString own = item->data(0, kHandle).toString();
  while (item->parent()) item = item->parent();
  const QString profile = item->data(0, kHandle).toString();
  if (profile.isEmpty()) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  connect(menu->addAction(QStringLiteral("Rendre courant")), &QAction::triggered, this,
          [this, profile] { onChoose(profile); });
  const auto show = [this, handle = own.isEmpty() ? profile : own] { onShow(handle); };
  connect(menu->addAction(QStringLiteral("Montrer")), &QAction::triggered, this, show);
  menu->addSeparator();
  for (const char* const operation : {"Renommer", "Copier", "Déplacer", "Supprimer"})
    connect(menu->addAction(QString::fromUtf8(operation) + QStringLiteral("...")), &QAction::triggered, this,
            [this, profile, operation = QString::fromUtf8(operation)] { onOperate(profile, operation); });
  menu->popup(viewport()->mapToGlobal(at));
}

QString ProfilesPanel::showCurrent(Drawing* drawing) {
  const QVariantList current = drawing ? ask(drawing->document(), "(plv-bureau-courant)").toList() : QVariantList();
  for (int i = 0; i < topLevelItemCount(); ++i) {
    QFont font = this->font();
    font.setBold(!current.isEmpty() && topLevelItem(i)->data(0, kHandle) == current.value(1));
    topLevelItem(i)->setFont(0, font);
  }
  return current.isEmpty() ? QString() : QStringLiteral("Profil courant : %1").arg(current[0].toString());
}

void ProfilesPanel::refresh(Drawing* drawing) {
  const QVariant profiles = drawing ? ask(drawing->document(), "(plv-bureau-profils)") : QVariant();
  if (profiles == shown_ && topLevelItemCount() > 0) return;
  shown_ = profiles;
  clear();
  for (const QVariant& profile : profiles.toList()) addTopLevelItem(itemOf(profile));
  if (topLevelItemCount() == 0) addTopLevelItem(new QTreeWidgetItem(QStringList(QStringLiteral("Aucun profil"))));
  expandToDepth(0);
}

}  // namespace atelier::desktop
