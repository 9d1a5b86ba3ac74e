// The light and dark colours of the window. The drawing's background is a setting of its own.
#pragma once

namespace atelier::desktop {

// Applies the theme of the settings ("theme": "clair" or "sombre"; the system's own for anything else).
void applyTheme();
bool isDarkTheme();
// Saves the choice and applies it at once.
void chooseTheme(bool dark);

}  // namespace atelier::desktop
