// A widget for each kind of control. Inner header of the room.
#pragma once
#include <memory>

#include "atelier/desktop/forms/dialog_window.h"

namespace atelier::desktop {

std::unique_ptr<ControlWidget> widgetFor(dialogues::Control& control, dialogues::Dialog& dialog, QWidget* parent);

}  // namespace atelier::desktop
