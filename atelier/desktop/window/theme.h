// The light and dark colours of the window. The drawing's background goes with them unless it is chosen.
#pragma once
#include <QColor>

namespace atelier::desktop {

// Applies the theme of the settings ("theme": "clair" or "sombre"; the system's own for anything else).
void applyTheme();
bool isDarkTheme();
// The drawing's background: the one that the user has chosen, else one that goes with the theme.
QColor groundColour();
// An invalid colour: the theme's again.
void chooseGroundColour(const QColor& colour);
// Saves the choice and applies it at once.
void chooseTheme(bool dark);

}  // namespace atelier::desktop
