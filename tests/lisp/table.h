// Rows of {expression, what prin1 prints} and the interpreter that they run in.
#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <string>

#include "atelier/lisp/evaluator/interpreter.h"
#include "atelier/lisp/evaluator/printer.h"
#include "atelier/lisp/functions/families.h"

namespace atelier::lisp {

// A console that keeps what programs write and answers with prepared lines.
class RecordingConsole : public Console {
 public:
  std::string written;
  std::vector<std::string> answers;
  void write(std::string_view utf8) override { written += utf8; }
  std::optional<std::string> readLine() override {
    if (answers.empty()) return std::nullopt;
    std::string line = answers.front();
    answers.erase(answers.begin());
    return line;
  }
};

struct Row {
  const char* expression;
  const char* expected;  // the printed value, or "! " and the error's message
};

class LispTest : public testing::Test {
 protected:
  LispTest() { addBuiltins(in); }

  RecordingConsole console;
  FolderSearch search;
  DefaultVariables variables;
  Interpreter in{Host{&console, &search, &variables}};

  std::string run(std::string_view text) {
    try {
      return prin1(in.evaluate(text));
    } catch (const Error& error) {
      return "! " + error.message();
    }
  }
  void check(std::initializer_list<Row> rows) {
    for (const Row& row : rows) EXPECT_EQ(run(row.expression), row.expected) << row.expression;
  }
};

}  // namespace atelier::lisp
