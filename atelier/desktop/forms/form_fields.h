// The fields of a form, made of what the front-end says of them: (key label kind value choices), see frontal/fiches.
#pragma once
#include <QString>
#include <QVariant>
#include <QWidget>
#include <functional>
#include <memory>

namespace atelier::desktop {

class FormField {
 public:
  virtual ~FormField() = default;
  virtual QWidget* widget() = 0;
  // The answer as AutoLISP reads it.
  virtual QString answer() const = 0;
  // Shows a value: text, truth, or a list, as the kind has it.
  virtual void set(const QVariant& value) = 0;
  virtual QVariant value() const = 0;
  virtual void choose(const QVariant& choices) { Q_UNUSED(choices); }  // other choices than it was made with
};

// A field that calls changed whenever the user changes it, pick when a point or entities shall be picked in the drawing for it. An
// unknown kind is a text.
std::unique_ptr<FormField> makeField(const QString& label, const QString& kind, const QVariant& value,
                                     const QVariant& choices, std::function<void()> changed, std::function<void()> pick,
                                     QWidget* parent);

}  // namespace atelier::desktop
