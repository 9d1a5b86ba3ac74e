// The form of a command of the front-end, made of what that says of it. While it is filled in, the front-end looks at the answers: what is
// wrong with them stands beside the fields, what they would give is shown.
#pragma once
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QTimer>
#include <QVBoxLayout>
#include <map>

#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/forms/form_fields.h"
#include "atelier/desktop/forms/form_picture.h"

namespace atelier::desktop {

class CommandForm : public QDialog {
 public:
  // Whether the command has a form; a wanting profile or the like is the form's to say.
  static bool exists(Drawing& drawing, const QString& command);
  CommandForm(Drawing& drawing, const QString& command, QWidget* parent);
  void accept() override;
  void reject() override;
  // A field by its label, as users know it; null for none.
  FormField* field(const QString& label);
  // What is wrong with a field; empty when nothing is.
  QString fault(const QString& label) const;
  FormPicture* picture(int which = 0) { return pictures_.value(which); }
  QString words() const { return words_->text(); }
  // Gives an answer by its key, or a cell of a table as key/row/column.
  void write(const QString& path, const QString& text);
  static constexpr const char* kFile = "fichier";  // the key of the file that a form is about
  void look();                                     // at once, at the answers as they are

 private:
  struct Row {
    QString key, label;
    bool kept;  // with the settings
    std::unique_ptr<FormField> field;
    QWidget* caption;
    QLabel* fault;
  };
  void addRow(const QVariantList& parts, QFormLayout& rows);
  QString answers() const;
  void show(const QVariantList& seen);
  void makeRoom();
  void showPictures(const QVariantList& pictures);
  void changed(const QString& key);
  void pick(const QString& key);
  void takePicked(const QString& key);
  static QString rounded(double value, double pixel);
  void dragged(const FormPicture::Changes& changes, bool released);
  Row* row(const QString& key);
  // A number of a field, or of a cell as key/row/column.
  QString text(const QString& path);
  void remember() const;

  Drawing& drawing_;
  QString command_, title_, last_;  // last_: the key of the field that was changed last
  std::vector<Row> rows_;
  QFormLayout* fields_ = nullptr;
  QVBoxLayout* side_ = nullptr;
  QList<FormPicture*> pictures_;
  QLabel* words_;
  QLabel* refusal_;
  QTimer soon_;
  bool picks_ = false;  // is out of the way while something is picked for it
  bool roomy_ = false;  // it was made larger for its pictures
  std::map<QString, QString> dragFrom_;
};

}  // namespace atelier::desktop
