// Light and dark: the colours of the window. The drawing's ground is the user's own choice.
#pragma once

namespace atelier::desktop {

// Takes the theme of the settings ("theme": "clair" or "sombre"; the system's own when it says neither).
void applyTheme();
bool isDarkTheme();
// Keeps the choice and takes it at once.
void chooseTheme(bool dark);

}  // namespace atelier::desktop
