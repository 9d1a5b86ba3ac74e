// The table is filled anew only where it differs from the drawing, so that it keeps its place and its selection.
#include "atelier/desktop/panels/layers_panel.h"

#include <QHeaderView>
#include <QInputDialog>
#include <QMenu>
#include <algorithm>

#include "atelier/desktop/panels/layers.h"

namespace atelier::desktop {
namespace {

constexpr int kSwatch = 12;  // pixels
constexpr int kWeights[] = {0, 9, 13, 18, 25, 35, 50, 70, 100, 140, 200};

const char* const kColours[] = {"rouge",   "jaune",         "vert",       "cyan", "bleu",
                                "magenta", "noir ou blanc", "gris foncé", "gris"};

QString millimetres(int weight) {
  return weight < 0 ? QStringLiteral("Défaut") : QStringLiteral("%1 mm").arg(weight / 100.0, 0, 'f', 2);
}

QIcon swatch(const LayerRow& layer, const QPalette& palette) {
  QPixmap picture(kSwatch, kSwatch);
  picture.fill(layer.shade.isValid() ? layer.shade : palette.color(QPalette::Text));
  return picture;
}

// What turns each state on and off.
struct Toggle {
  LayersPanel::Column column;
  const char *title, *on, *off;
};
constexpr Toggle kToggles[] = {{LayersPanel::kOn, "Visible", "_ON", "_OFF"},
                               {LayersPanel::kFrozen, "Gelé", "_FREEZE", "_THAW"},
                               {LayersPanel::kLocked, "Verrouillé", "_LOCK", "_UNLOCK"},
                               {LayersPanel::kPlotted, "Tracé", "_PLOT", "_PLOT"}};

QStringList optionOf(const Toggle& toggle, bool on) {
  if (toggle.column == LayersPanel::kPlotted) return {"_PLOT", on ? "_PLOT" : "_No"};
  return {on ? toggle.on : toggle.off};
}

}  // namespace

LayersPanel::LayersPanel(QWidget* parent) : QTableWidget(0, kPlotted + 1, parent) {
  setHorizontalHeaderLabels({QStringLiteral("Calque"), QStringLiteral("Visible"), QStringLiteral("Gelé"),
                             QStringLiteral("Verrouillé"), QStringLiteral("Couleur"), QStringLiteral("Type de ligne"),
                             QStringLiteral("Épaisseur"), QStringLiteral("Tracé")});
  horizontalHeader()->setSectionResizeMode(QHeaderView::ResizeToContents);
  verticalHeader()->hide();
  verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 6);
  setEditTriggers(NoEditTriggers);
  setSelectionBehavior(SelectRows);
  setAccessibleName(QStringLiteral("Calques"));
  setContextMenuPolicy(Qt::CustomContextMenu);
  connect(this, &QWidget::customContextMenuRequested, this, [this](const QPoint& at) { showMenu(at); });
  connect(this, &QTableWidget::cellClicked, this, [this](int row, int column) { changeCell(row, column); });
  connect(this, &QTableWidget::cellDoubleClicked, this, [this](int row, int column) {
    if (column == kName) onChange({"_SET", item(row, kName)->text()});
  });
}

void LayersPanel::refresh(Drawing* drawing) {
  std::vector<LayerRow> layers = drawing ? layersOf(drawing->document()) : std::vector<LayerRow>();
  drawing_ = drawing;
  setRowCount(static_cast<int>(layers.size()));
  for (std::size_t i = 0; i < layers.size(); ++i)
    if (i >= layers_.size() || !(layers_[i] == layers[i]) || !item(static_cast<int>(i), kName))
      showRow(static_cast<int>(i), layers[i]);
  layers_ = std::move(layers);
}

void LayersPanel::showRow(int row, const LayerRow& layer) {
  const auto put = [&](Column column, const QString& text) {
    auto* made = new QTableWidgetItem(text);
    setItem(row, column, made);
    return made;
  };
  QFont font = this->font();
  font.setBold(layer.current);
  put(kName, layer.name)->setFont(font);
  const auto check = [&](Column column, bool on) {
    auto* made = put(column, {});
    made->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable);  // the click is the panel's
    made->setCheckState(on ? Qt::Checked : Qt::Unchecked);
  };
  check(kOn, layer.on);
  check(kFrozen, layer.frozen);
  check(kLocked, layer.locked);
  check(kPlotted, layer.plotted);
  put(kColour, QString::number(layer.colour))->setIcon(swatch(layer, palette()));
  put(kLinetype, layer.linetype);
  put(kWeight, millimetres(layer.weight));
}

void LayersPanel::changeCell(int row, int column) {
  for (const Toggle& toggle : kToggles)
    if (toggle.column == column) return change(optionOf(toggle, item(row, column)->checkState() != Qt::Checked), {row});
  QList<std::pair<QString, QString>> values;
  if (column == kColour) {
    for (int i = 0; i < 9; ++i)
      values.append({QStringLiteral("%1  %2").arg(i + 1).arg(QString::fromUtf8(kColours[i])), QString::number(i + 1)});
    values.append({QStringLiteral("Autre..."), QString()});
    offer("_COLOR", values, {row});
  } else if (column == kLinetype) {
    offerLinetypes({row});
  } else if (column == kWeight) {
    for (const int weight : kWeights) values.append({millimetres(weight), QString::number(weight / 100.0)});
    offer("_LWEIGHT", values, {row});
  }
}

void LayersPanel::offerLinetypes(const QList<int>& rows) {
  if (!drawing_) return;
  QList<std::pair<QString, QString>> values;
  for (const QString& name : linetypesOf(drawing_->document())) values.append({name, name});
  QMenu* const more = offer("_LTYPE", values, rows)->addMenu(QStringLiteral("Charger"));
  for (const auto& [name, description] : linetypesToLoad(drawing_->document()))
    connect(more->addAction(name + "   " + description), &QAction::triggered, this, [this, name = name, rows] {
      onLoad(name);
      change({"_LTYPE", name}, rows);
    });
  more->setEnabled(!more->isEmpty());
}

QMenu* LayersPanel::offer(const QString& option, const QList<std::pair<QString, QString>>& values,
                          const QList<int>& rows) {
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  for (const auto& [text, value] : values)
    connect(menu->addAction(text), &QAction::triggered, this, [this, option, value = value, rows] {
      bool given = true;
      const QString answer =
          value.isEmpty()
              ? QString::number(QInputDialog::getInt(this, QStringLiteral("Couleur"),
                                                     QStringLiteral("Numéro de la couleur"), 7, 1, 255, 1, &given))
              : value;
      if (given) change({option, answer}, rows);
    });
  menu->popup(QCursor::pos());
  return menu;
}

QList<int> LayersPanel::chosenRows() const {
  QList<int> rows;
  for (const QModelIndex& index : selectionModel()->selectedRows()) rows << index.row();
  return rows;
}

// For all layers that are selected.
void LayersPanel::showMenu(const QPoint& at) {
  const QList<int> rows = chosenRows();
  if (rows.isEmpty()) return;
  auto* menu = new QMenu(this);
  menu->setAttribute(Qt::WA_DeleteOnClose);
  const auto add = [&](const char* text, const QStringList& option) {
    connect(menu->addAction(QString::fromUtf8(text)), &QAction::triggered, this,
            [this, option, rows] { change(option, rows); });
  };
  if (rows.size() == 1) {
    connect(menu->addAction(QStringLiteral("Rendre courant")), &QAction::triggered, this,
            [this, name = item(rows[0], kName)->text()] {
              onChange({"_SET", name});
            });
    menu->addSeparator();
  }
  add("Montrer", {"_ON"});
  add("Cacher", {"_OFF"});
  add("Geler", {"_FREEZE"});
  add("Libérer", {"_THAW"});
  add("Verrouiller", {"_LOCK"});
  add("Déverrouiller", {"_UNLOCK"});
  menu->popup(viewport()->mapToGlobal(at));
}

void LayersPanel::change(const QStringList& option, const QList<int>& rows) {
  QStringList names;
  for (const int row : rows) names << asPattern(item(row, kName)->text());
  onChange(option + QStringList(names.join(',')));
}

}  // namespace atelier::desktop
