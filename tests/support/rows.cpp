// Reads files of situations and runs their rows.
// Forms are only separated here; the interpreter evaluates them.
#include "tests/support/rows.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

namespace kaveltest {
namespace {

struct Form {
  int line;
  std::string text;
};

std::string at(const std::string& file, int line) { return file + ":" + std::to_string(line) + ": "; }

std::string replaced(std::string text, const std::string& what, const std::string& with) {
  for (std::size_t i = 0; (i = text.find(what, i)) != std::string::npos; i += with.size())
    text.replace(i, what.size(), with);
  return text;
}

// Where the token that begins at i ends: a comment, a string, a bracket, a quote or a word.
std::size_t tokenEnd(const std::string& text, std::size_t i) {
  if (text[i] == ';') return std::min(text.find('\n', i), text.size());
  if (text[i] == '"') {
    for (++i; i < text.size() && text[i] != '"'; ++i)
      if (text[i] == '\\') ++i;
    return std::min(i + 1, text.size());
  }
  if (std::string("()' \t\n").find(text[i]) != std::string::npos) return i + 1;
  return std::min(text.find_first_of("()'\"; \t\n", i), text.size());
}

// The forms of a text.
std::vector<Form> forms(const std::string& text, int line, const std::string& file) {
  std::vector<Form> found;
  std::string form;
  int depth = 0, start = line;
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = tokenEnd(text, i);
    const std::string token = text.substr(i, end - i);
    const bool blank = token == " " || token == "\t" || token == "\n" || token[0] == ';';
    if (form.empty()) start = line;
    if (token == "(") ++depth;
    if (token == ")" && --depth < 0) throw std::runtime_error(at(file, line) + "a bracket too many");
    if (!blank) form += token;
    else if (depth > 0) form += token[0] == ';' ? "" : token;
    line += static_cast<int>(std::count(token.begin(), token.end(), '\n'));
    if (depth == 0 && !form.empty() && !blank && token != "'") {
      found.push_back({start, form});
      form.clear();
    }
    i = end;
  }
  if (depth > 0) throw std::runtime_error(at(file, start) + "a bracket is missing at the end of " + form.substr(0, 60));
  return found;
}

std::vector<std::string> partsOf(const Form& form, const std::string& file) {
  if (form.text.front() != '(') throw std::runtime_error(at(file, form.line) + "a list is expected: " + form.text);
  std::vector<std::string> parts;
  for (const Form& part : forms(form.text.substr(1, form.text.size() - 2), form.line, file)) parts.push_back(part.text);
  return parts;
}

// The value of a string literal, as the interpreter reads it, for the few characters that rows need.
std::string unquoted(const std::string& string) {
  if (string.size() < 2 || string.front() != '"') throw std::runtime_error("a text is expected: " + string);
  static const std::string kLetters = "nrt\"\\", kMeant = "\n\r\t\"\\";
  std::string text;
  for (std::size_t i = 1; i + 1 < string.size(); ++i) {
    const std::size_t escape = string[i] == '\\' ? kLetters.find(string[i + 1]) : std::string::npos;
    text += escape == std::string::npos ? string[i] : kMeant[escape];
    if (escape != std::string::npos) ++i;
  }
  return text;
}

// The row with words replaced by values.
Row substituted(Row row, const std::vector<std::string>& words, const std::vector<std::string>& values) {
  for (std::string& part : row.parts) {
    std::string text;
    for (std::size_t i = 0; i < part.size();) {
      const std::size_t end = tokenEnd(part, i);
      const std::string token = part.substr(i, end - i);
      const auto word = std::find(words.begin(), words.end(), token);
      text += word == words.end() ? token : values[static_cast<std::size_t>(word - words.begin())];
      i = end;
    }
    part = text;
  }
  return row;
}

// Situations while a file is read: the rows of the last one, and its table.
class Reader {
 public:
  Reader(std::string file, std::vector<Situation>& found) : file_(std::move(file)), found_(found) {}

  void take(const Form& form) {
    Row row{form.line, partsOf(form, file_)};
    const std::string kind = row.parts.empty() ? "" : row.parts.front();
    if (kind == "commun") {
      for (std::size_t i = 1; i < row.parts.size(); ++i)
        common_.push_back({row.line, partsOf({row.line, row.parts[i]}, file_)});
    } else if (kind == "situation") {
      finish();
      name_ = unquoted(row.parts.at(1));
    } else if (name_.empty()) {
      throw std::runtime_error(at(file_, row.line) + "a row before the first situation");
    } else if (kind == "tableau") {
      words_ = partsOf({form.line, row.parts.at(1)}, file_);
      for (std::size_t i = 2; i < row.parts.size(); ++i) values_.push_back(partsOf({form.line, row.parts[i]}, file_));
    } else {
      rows_.push_back(std::move(row));
    }
  }

  void finish() {
    if (name_.empty()) return;
    if (rows_.empty()) throw std::runtime_error(file_ + ": " + name_ + " has no rows");
    if (words_.empty()) values_.assign(1, {});
    int number = 0;
    for (const std::vector<std::string>& values : values_) {
      if (values.size() != words_.size())
        throw std::runtime_error(file_ + ": " + name_ + ": the table's rows have " + std::to_string(words_.size()) +
                                 " values");
      Situation situation{file_, std::filesystem::path(file_).stem().string() + "_" + name_, common_};
      if (!words_.empty()) situation.name += "_" + std::to_string(++number);
      for (const Row& row : rows_) situation.rows.push_back(substituted(row, words_, values));
      found_.push_back(std::move(situation));
    }
    rows_.clear();
    words_.clear();
    values_.clear();
  }

 private:
  std::string file_, name_;
  std::vector<Situation>& found_;
  std::vector<Row> common_, rows_;
  std::vector<std::string> words_;
  std::vector<std::vector<std::string>> values_;
};

std::string joined(const std::vector<std::string>& parts, std::size_t from) {
  std::string text;
  for (std::size_t i = from; i < parts.size(); ++i) text += parts[i] + "\n";
  return text;
}

// The lines of a list of texts.
std::string typed(const std::string& file, int line, const std::string& list) {
  std::string lines;
  for (const std::string& text : partsOf({line, list}, file)) lines += unquoted(text) + "\n";
  return lines;
}

std::string compared(const std::string& got, const std::string& expected) {
  return got == expected ? "" : "got      " + got + "\nexpected " + expected;
}

// The message of the error that an expression ends with.
std::string errorOf(Session& session, const std::string& expression) {
  try {
    return "no error, but the value " + session.eval(expression);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
}

// The value of an expression at the command line, answered by lines; it is on one line itself.
std::string answered(Session& session, std::string expression, const std::string& lines) {
  std::replace(expression.begin(), expression.end(), '\n', ' ');
  session.eval("(setq *demande* 'sans-valeur)");
  session.feed("(setq *demande* " + expression + ")\n" + lines);
  return session.eval("*demande*");
}

// Why a row isn't fulfilled; empty when it is.
std::string fault(Session& session, const std::string& file, const Row& row, const std::string& folder) {
  const std::string kind = row.parts.at(0);
  if (kind == "fichier") {
    std::ofstream(folder + unquoted(row.parts.at(1)), std::ios::binary) << unquoted(row.parts.at(2));
    return {};
  }
  if (kind == "preparer" || kind == "passe") {
    session.eval("(progn " + joined(row.parts, 1) + ")");
    return {};
  }
  if (kind == "erreur") return compared(errorOf(session, row.parts.at(1)), unquoted(row.parts.at(2)));
  if (kind == "demande")
    return compared(answered(session, row.parts.at(1), typed(file, row.line, row.parts.at(2))),
                    session.eval("'" + row.parts.at(3)));
  const bool says = kind == "dit" || kind == "ecrit" || kind == "refuse" || kind == "tape";
  if (!says) {
    if (row.parts.size() != 2) return "an expression and its value are expected";
    return compared(session.eval(kind), session.eval("'" + row.parts[1]));
  }
  session.transcript();
  std::string said, value = "nil";
  if (kind == "tape") {
    said = session.feed(typed(file, row.line, row.parts.at(1)));
  } else {
    value = session.eval(row.parts.at(1));
    said = session.transcript();
  }
  if (kind == "refuse" && value != "nil") return "got      " + value + "\nexpected nil";
  if (kind == "ecrit") return compared(said, unquoted(row.parts.at(2)));
  for (std::size_t i = 2; i < row.parts.size(); ++i) {
    const bool except = row.parts[i].front() == '(';
    const auto parts = except ? partsOf({row.line, row.parts[i]}, file) : std::vector<std::string>{"dit", row.parts[i]};
    if (except && parts.at(0) != "sauf") return "a part or (sauf PART...) is expected: " + row.parts[i];
    for (std::size_t k = 1; k < parts.size(); ++k)
      if ((said.find(unquoted(parts[k])) == std::string::npos) != except)
        return (except ? "not expected " : "expected ") + parts[k] + "\nin " + said;
  }
  return {};
}

}  // namespace

std::ostream& operator<<(std::ostream& out, const Situation& situation) { return out << situation.name; }

std::vector<Situation> situations(const std::string& folder) {
  std::vector<std::string> files;
  for (const auto& entry : std::filesystem::directory_iterator(folder))
    if (entry.path().extension() == ".lsp") files.push_back(entry.path().string());
  std::sort(files.begin(), files.end());
  std::vector<Situation> found;
  for (const std::string& file : files) {
    std::ifstream in(file, std::ios::binary);
    const std::string text{std::istreambuf_iterator<char>(in), {}};
    Reader reader(file, found);
    for (const Form& form : forms(text, 1, file)) reader.take(form);
    reader.finish();
  }
  return found;
}

void run(Session& session, const Situation& situation, const std::string& folder) {
  for (Row row : situation.rows) {
    for (std::string& part : row.parts) part = replaced(replaced(part, "<dossier>", folder), "<source>", KAVEL_SOURCE);
    std::string wrong;
    try {
      wrong = fault(session, situation.file, row, folder);
    } catch (const std::exception& error) {
      wrong = std::string("error    ") + error.what();
    }
    if (!wrong.empty()) ADD_FAILURE_AT(situation.file.c_str(), row.line) << joined(row.parts, 0) << wrong;
  }
}

}  // namespace kaveltest
