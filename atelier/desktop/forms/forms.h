// The forms that aren't a command's of the front-end.
#pragma once
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>

#include "atelier/desktop/document/drawing.h"
#include "atelier/desktop/document/long_work.h"
#include "atelier/render/scene/whole_scene.h"
#include "atelier/render/sheets/page.h"
#include "atelier/render/sheets/painted_page.h"

namespace atelier::desktop {

// A plot to PDF, SVG or PNG, with a preview of the sheet.
class PlotForm : public QDialog {
 public:
  PlotForm(Drawing& drawing, QWidget* parent);
  void accept() override;
  QLineEdit *file, *scale;
  QComboBox *paper, *inks;
  QPixmap picture() const { return picture_->pixmap(); }

 private:
  render::PlotRequest request() const;  // throws PlotError
  AcDbStub& space() const;
  void keepTable();
  void preview();
  void show(const render::PaintedPage& page, const QString& scaleText, const std::vector<std::string>& warnings);
  Drawing& drawing_;
  AcDbStub* sheet_;  // that is shown; null: the model
  render::WholeScene scene_;
  QString table_;  // as the form was opened
  QLabel *picture_, *message_;
  LongWork work_{*this};
};
// Shows the form; of a drawing that can't be plotted the reason.
void plotByForm(Drawing& drawing, QWidget* parent);

}  // namespace atelier::desktop
