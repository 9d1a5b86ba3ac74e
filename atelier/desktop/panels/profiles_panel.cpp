// (plv-bureau-profils) gives (title handle (child ...)) for each node.
#include "atelier/desktop/panels/profiles_panel.h"

#include <QHeaderView>

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
  connect(this, &QTreeWidget::itemClicked, this, [this](QTreeWidgetItem* item) {
    if (const QString handle = item->data(0, kHandle).toString(); !handle.isEmpty() && onShow) onShow(handle);
  });
  connect(this, &QTreeWidget::itemDoubleClicked, this, [this](QTreeWidgetItem* item) {
    while (item->parent()) item = item->parent();
    if (const QString handle = item->data(0, kHandle).toString(); !handle.isEmpty() && onChoose) onChoose(handle);
  });
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
