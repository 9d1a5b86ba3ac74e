// The files of a recovery copy: the drawing, a note with the file that it is a copy of, and a lock.
// A copy belongs to the program that holds its lock; once that program has ended otherwise, another one may take it over.
#pragma once
#include <QDateTime>
#include <QDir>
#include <QLockFile>
#include <memory>
#include <vector>

#include "hote/dbmain.h"

namespace atelier::desktop {

class RecoveryFiles {
 public:
  // Names for a new copy, which isn't written yet.
  static std::unique_ptr<RecoveryFiles> fresh();
  // Those whose program has ended without removing them, oldest first; they are owned from now on. Files without a drawing, left
  // over by a program that ended while it wrote, are removed.
  static std::vector<std::unique_ptr<RecoveryFiles>> abandoned();

  // Gives the files up, and leaves them.
  ~RecoveryFiles() = default;
  RecoveryFiles(const RecoveryFiles&) = delete;
  RecoveryFiles& operator=(const RecoveryFiles&) = delete;

  // `origin` is the drawing's path, or its title when it has none. Throws Error.
  void write(AcDbDatabase& database, const QString& origin) const;
  void remove() const;

  QString drawing() const { return path(".dxf"); }
  QString origin() const;
  // "Kavel s'est arrêté ...": which drawing it is, how old the copy and the file are.
  QString description() const;

 private:
  explicit RecoveryFiles(const QString& name);
  QString path(const char* extension) const;
  QString name_;
  QLockFile lock_;
};

}  // namespace atelier::desktop
