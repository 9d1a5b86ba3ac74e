// The dark palette needs a style that uses palettes on every system.
#include "atelier/desktop/window/theme.h"

#include <QApplication>
#include <QPainter>
#include <QPalette>
#include <QProxyStyle>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>
#include <QStyleOption>

namespace atelier::desktop {
namespace {

QPalette darkPalette() {
  const QColor window(45, 47, 51), base(32, 33, 36), text(226, 226, 226), faint(130, 132, 136), link(110, 170, 250);
  QPalette palette(window);
  for (const auto role :
       {QPalette::WindowText, QPalette::Text, QPalette::ButtonText, QPalette::ToolTipText, QPalette::BrightText})
    palette.setColor(role, text);
  palette.setColor(QPalette::Base, base);
  palette.setColor(QPalette::AlternateBase, window);
  palette.setColor(QPalette::ToolTipBase, base);
  palette.setColor(QPalette::PlaceholderText, faint);
  palette.setColor(QPalette::Link, link);
  palette.setColor(QPalette::Highlight, QColor(45, 95, 160));
  palette.setColor(QPalette::HighlightedText, Qt::white);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
    palette.setColor(QPalette::Disabled, role, faint);
  return palette;
}

// The style draws the outline of boxes darker than the window, which can't be seen on a dark one.
class DarkStyle final : public QProxyStyle {
 public:
  DarkStyle() : QProxyStyle("Fusion") {}
  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override {
    QProxyStyle::drawPrimitive(element, option, painter, widget);
    if (element != PE_IndicatorCheckBox && element != PE_FrameLineEdit) return;
    painter->setPen(QColor(130, 132, 136));
    painter->setBrush(Qt::NoBrush);
    painter->drawRect(option->rect.adjusted(0, 0, -1, -1));
  }
};

// A widget with a style sheet keeps the palette that it was given with it.
void giveSheetsAgain() {
  for (QWidget* const widget : QApplication::allWidgets()) {
    const QString sheet = widget->styleSheet();
    if (sheet.isEmpty()) continue;
    widget->setStyleSheet({});
    widget->setPalette(QApplication::palette(widget));
    widget->setStyleSheet(sheet);
  }
}

}  // namespace

bool isDarkTheme() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }

void applyTheme() {
  const QString theme = QSettings().value("theme").toString();
  if (theme.isEmpty()) return;
  QApplication::setStyle(theme == "sombre" ? new DarkStyle : QStyleFactory::create("Fusion"));
  QApplication::setPalette(theme == "sombre" ? darkPalette() : QApplication::style()->standardPalette());
  giveSheetsAgain();
}

QColor groundColour() {
  const QString chosen = QSettings().value("fond").toString();
  return chosen.isEmpty() ? QColor(isDarkTheme() ? "#1e1f22" : "#ffffff") : QColor(chosen);
}

void chooseGroundColour(const QColor& colour) {
  QSettings().setValue("fond", colour.isValid() ? colour.name() : QString());
}

void chooseTheme(bool dark) {
  QSettings().setValue("theme", dark ? "sombre" : "clair");
  applyTheme();
}

}  // namespace atelier::desktop
