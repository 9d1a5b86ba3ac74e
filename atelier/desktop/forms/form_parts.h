// Parts of several forms: a file name with a button to choose it, OK and Cancel. Inner header of the room.
#pragma once
#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QHBoxLayout>
#include <QLineEdit>
#include <QPushButton>

#include "atelier/desktop/forms/file_choice.h"

namespace atelier::desktop {

// The line edit and, beside it, a button that chooses a file of the filter.
inline QWidget* fileLine(QDialog* form, QLineEdit*& edit, const QString& title, const QString& filter,
                         bool save = false) {
  auto* row = new QWidget(form);
  auto* layout = new QHBoxLayout(row);
  layout->setContentsMargins(0, 0, 0, 0);
  edit = new QLineEdit(row);
  auto* look = new QPushButton(QStringLiteral("Parcourir..."), row);
  layout->addWidget(edit, 1);
  layout->addWidget(look);
  QObject::connect(look, &QPushButton::clicked, form, [form, edit, title, filter, save] {
    const QString path = askFile(form, save ? FileUse::toWrite : FileUse::toRead, title, filter, edit->text());
    if (!path.isEmpty()) edit->setText(path);
  });
  return row;
}

// What plots make of colours: as drawn, grey, black, or a table; the data of an entry is what render::inksNamed takes.
QComboBox* inksChoice(QWidget* parent, const std::string& table);

inline QDialogButtonBox* okAndCancel(QDialog* form, const QString& ok) {
  auto* box = new QDialogButtonBox(form);
  box->addButton(ok, QDialogButtonBox::AcceptRole);
  box->addButton(QStringLiteral("Annuler"), QDialogButtonBox::RejectRole);
  QObject::connect(box, &QDialogButtonBox::accepted, form, &QDialog::accept);
  QObject::connect(box, &QDialogButtonBox::rejected, form, &QDialog::reject);
  return box;
}

}  // namespace atelier::desktop
