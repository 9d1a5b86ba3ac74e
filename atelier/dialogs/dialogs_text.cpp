// Tables, values and keywords of dialogs on the command line.
// Cells are trimmed: padding meant for a list control is not needed in a table.
#include "atelier/dialogs/dialogs_text.h"

#include <algorithm>
#include <cwctype>

#include "atelier/base/text.h"

namespace atelier {
namespace {

using dialogues::Alignment;
using dialogues::Control;
using dialogues::List;

// The letter without its accent; other characters are unchanged.
wchar_t plain(wchar_t c) {
  static const std::wstring accented = L"àâäéèêëîïôöùûüçÀÂÄÉÈÊËÎÏÔÖÙÛÜÇ", letters = L"aaaeeeeiioouuucAAAEEEEIIOOUUUC";
  const std::size_t at = accented.find(c);
  return at == accented.npos ? c : letters[at];
}

bool isAlphanumeric(wchar_t c) {
  return (c >= L'0' && c <= L'9') || (c >= L'A' && c <= L'Z') || (c >= L'a' && c <= L'z');
}

std::wstring trimmedCell(const std::wstring& cell) { return toWide(trimmed(toUtf8(cell))); }

std::wstring padded(const std::wstring& text, std::size_t width, Alignment alignment) {
  const std::size_t room = width > text.size() ? width - text.size() : 0;
  const std::size_t left = alignment == Alignment::left ? 0 : alignment == Alignment::right ? room : room / 2;
  return std::wstring(left, L' ') + text + std::wstring(room - left, L' ');
}

// The cells of a row as shown; the colour of a cell is shown as its number.
std::vector<std::wstring> cellsOf(const List& list, const dialogues::Row& row) {
  std::vector<std::wstring> cells;
  for (const std::wstring& cell : row.cells) cells.push_back(trimmedCell(cell));
  cells.resize(std::max<std::size_t>(list.columns().size(), 1));
  if (list.colourColumn && *list.colourColumn < static_cast<int>(cells.size()))
    cells[static_cast<std::size_t>(*list.colourColumn)] += L"[" + std::to_wstring(row.data) + L"]";
  return cells;
}

std::string tableOf(const List& list) {
  std::vector<std::vector<std::wstring>> lines;
  if (!list.columns().empty()) {
    lines.emplace_back();
    for (const auto& column : list.columns()) lines.back().push_back(trimmedCell(column.title));
  }
  const std::size_t heads = lines.size();
  for (const auto& row : list.rows()) lines.push_back(cellsOf(list, row));
  std::vector<std::size_t> widths(std::max<std::size_t>(list.columns().size(), 1));
  for (const auto& line : lines)
    for (std::size_t i = 0; i < widths.size(); ++i) widths[i] = std::max(widths[i], line[i].size());
  const std::size_t numbers = std::to_string(list.rows().size()).size();

  std::wstring text;
  for (std::size_t i = 0; i < lines.size(); ++i) {
    const int row = static_cast<int>(i) - static_cast<int>(heads);
    const bool chosen = std::binary_search(list.selection().begin(), list.selection().end(), row);
    std::wstring line =
        (chosen ? L"* " : L"  ") + padded(row < 0 ? L"" : std::to_wstring(row + 1), numbers, Alignment::right);
    for (std::size_t c = 0; c < widths.size(); ++c)
      line += L"  " +
              padded(lines[i][c], widths[c], list.columns().empty() ? Alignment::left : list.columns()[c].alignment);
    text += line.substr(0, line.find_last_not_of(L' ') + 1) + L"\n";
  }
  return list.rows().empty() ? toUtf8(text) + "  (liste vide)\n" : toUtf8(text);
}

std::string valueOf(const Control& control) {
  switch (control.kind()) {
    case Control::Kind::edit: return toUtf8(static_cast<const dialogues::Edit&>(control).value());
    case Control::Kind::check: return static_cast<const dialogues::Check&>(control).value() ? "oui" : "non";
    case Control::Kind::colour: return std::to_string(static_cast<const dialogues::Colour&>(control).index());
    case Control::Kind::combo: {
      const auto& combo = static_cast<const dialogues::Combo&>(control);
      const bool chosen = combo.index() >= 0 && combo.index() < static_cast<int>(combo.choices().size());
      return chosen ? toUtf8(combo.choices()[static_cast<std::size_t>(combo.index())]) : std::string();
    }
    default: return {};
  }
}

}  // namespace

std::string keywordOf(const std::wstring& label) {
  std::string word;
  bool first = true;
  for (wchar_t c : label) {
    c = plain(c);
    if (isAlphanumeric(c))
      word.push_back(
          static_cast<char>(first ? std::towupper(static_cast<std::wint_t>(c)) : static_cast<std::wint_t>(c)));
    first = !isAlphanumeric(c);
  }
  return word;
}

std::string nameOf(const Control& control) {
  if (!control.label().empty()) return keywordOf(control.label());
  return control.frame().empty() ? "Liste" : keywordOf(control.frame());
}

Match match(const std::string& typed, const std::string& word) {
  constexpr std::size_t kShortest = 3;
  const std::string given = upperCase(keywordOf(toWide(typed)));
  std::string capitals;
  std::copy_if(word.begin(), word.end(), std::back_inserter(capitals), [](char c) { return c >= 'A' && c <= 'Z'; });
  if (given == upperCase(word) || given == capitals) return Match::whole;
  return given.size() >= kShortest && upperCase(word).starts_with(given) ? Match::beginning : Match::no;
}

std::string textOf(const Control& control) {
  switch (control.kind()) {
    case Control::Kind::button:
    case Control::Kind::picture: return {};
    case Control::Kind::text: return toUtf8(control.label()) + "\n";
    case Control::Kind::list: return tableOf(static_cast<const List&>(control));
    default: return "  " + nameOf(control) + " = " + valueOf(control) + "\n";
  }
}

std::optional<std::vector<int>> rowsOf(std::string_view text, int count) {
  std::vector<int> rows;
  text = trimmed(text);
  if (text.empty()) return rows;
  if (text == "*") text = {};
  const bool all = text.empty();
  for (int i = 0; all && i < count; ++i) rows.push_back(i);
  while (!text.empty()) {
    const std::size_t comma = text.find(',');
    const std::string_view part = text.substr(0, comma);
    const std::size_t dash = part.find('-');
    const auto from = parseInteger(part.substr(0, dash));
    const auto to = dash == part.npos ? from : parseInteger(part.substr(dash + 1));
    if (!from || !to || *from < 1 || *to > count) return std::nullopt;
    for (std::int64_t row = *from; row <= *to; ++row) rows.push_back(static_cast<int>(row - 1));
    text = comma == text.npos ? std::string_view() : text.substr(comma + 1);
  }
  return rows;
}

}  // namespace atelier
