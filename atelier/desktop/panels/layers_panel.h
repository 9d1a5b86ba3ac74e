// The layers of the drawing with their states; a click on a state changes it, by the command -LAYER.
#pragma once
#include <QStringList>
#include <QTableWidget>
#include <functional>
#include <vector>

#include "atelier/desktop/document/drawing.h"

class QMenu;

namespace atelier::desktop {

// A layer as the panel shows it.
struct LayerRow {
  QString name, linetype;
  bool current = false, on = true, frozen = false, locked = false, plotted = true;
  int colour = 7, weight = -3;  // palette index; hundredths of a millimetre, below 0 the default
  QColor shade;                 // of the colour; invalid for the foreground
  bool operator==(const LayerRow&) const = default;
};

class LayersPanel : public QTableWidget {
 public:
  enum Column { kName, kOn, kFrozen, kLocked, kColour, kLinetype, kWeight, kPlotted };

  explicit LayersPanel(QWidget* parent);
  void refresh(Drawing* drawing);

  std::function<void(QStringList answers)> onChange;  // answers to the prompts of -LAYER
  std::function<void(QString name)> onLoad;           // a line type that the drawing lacks

 private:
  void showRow(int row, const LayerRow& layer);
  void changeCell(int row, int column);
  void showMenu(const QPoint& at);
  // Offers values for the layers of the rows: the texts, and what answers the option's prompt.
  QMenu* offer(const QString& option, const QList<std::pair<QString, QString>>& values, const QList<int>& rows);
  void offerLinetypes(const QList<int>& rows);
  void change(const QStringList& option, const QList<int>& rows);
  QList<int> chosenRows() const;

  std::vector<LayerRow> layers_;
  Drawing* drawing_ = nullptr;
};

}  // namespace atelier::desktop
