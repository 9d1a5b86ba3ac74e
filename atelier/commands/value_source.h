// AutoLISP values as answers to prompts: strings and numbers as text, points as picks, others as an expression.
// Inner header of the room.
#pragma once
#include <optional>
#include <string>

#include "atelier/commands/command_run.h"
#include "atelier/document/input.h"
#include "atelier/lisp/evaluator/interpreter.h"

namespace atelier {

class Document;

// The values of one call, in order; at a pause the user answers.
class ValueSource : public InputSource, public AnswerSupply {
 public:
  ValueSource(Document& document, lisp::Arguments values);
  bool hasMore() const override { return at_ < values_.size(); }
  bool ranOut() const override { return ranOut_; }
  lisp::Value take() { return values_[at_++]; }
  Input next(const PromptInfo& prompt) override;
  // Takes back the full name of a command: a program may leave out the last Enter and go on with its next command.
  bool takesBack(const Input& input) override;
  bool isProgram() const override { return true; }

 private:
  Input askUser(const PromptInfo& prompt);
  Input inputOf(lisp::Value value);
  Document& document_;
  lisp::Arguments values_;
  InputSource* user_;
  std::size_t at_ = 0;
  int takenBack_ = 0;
  bool ranOut_ = false;
};

// Makes the values the prompter's source for its lifetime; then restores the former state.
class Feeding {
 public:
  Feeding(Document& document, ValueSource& source, bool muted);
  ~Feeding();
  Feeding(const Feeding&) = delete;
  Feeding& operator=(const Feeding&) = delete;

 private:
  Document& document_;
  InputSource* source_;
  std::optional<std::string> pending_;
  bool muted_;
};

}  // namespace atelier
