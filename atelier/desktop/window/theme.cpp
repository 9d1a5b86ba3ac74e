// The dark palette needs a style that uses palettes on every system.
#include "atelier/desktop/window/theme.h"

#include <QApplication>
#include <QPalette>
#include <QSettings>
#include <QStyle>
#include <QStyleFactory>

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

}  // namespace

bool isDarkTheme() { return QApplication::palette().color(QPalette::Window).lightness() < 128; }

void applyTheme() {
  const QString theme = QSettings().value("theme").toString();
  if (theme.isEmpty()) return;
  QApplication::setStyle(QStyleFactory::create("Fusion"));
  QApplication::setPalette(theme == "sombre" ? darkPalette() : QApplication::style()->standardPalette());
}

void chooseTheme(bool dark) {
  QSettings().setValue("theme", dark ? "sombre" : "clair");
  applyTheme();
}

}  // namespace atelier::desktop
