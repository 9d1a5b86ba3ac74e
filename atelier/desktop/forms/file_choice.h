// Asking for a file with a dialog. It begins in the folder of the last choice.
#pragma once
#include <QString>

class QWidget;

namespace atelier::desktop {

enum class FileUse { toRead, toWrite, either };  // either: whoever asks says what becomes of it

// The path; empty when the user cancels. A suggested name without a folder stands in the folder of the last choice. Files that
// would be replaced are asked about, unless the use is open.
QString askFile(QWidget* over, FileUse use, const QString& title, const QString& filter, const QString& suggested = {});
// Where a result of a drawing is proposed: beside its file, or in the folder of the last choice while it has none.
QString besideDrawing(const QString& drawing, const QString& name);

}  // namespace atelier::desktop
