// Reads solid-model data, text and binary.
// A pointer is the number of a record; the first record after the header has the number 0.
#include "atelier/database/solids/solid_data.h"

#include <algorithm>
#include <cctype>
#include <cstdint>
#include <cstring>

#include "atelier/base/text.h"

namespace atelier::solid {

namespace {

constexpr std::size_t kHeaderLines = 3;

// Words separated by blanks; a string preceded by its length ("@9 my string") is one word.
class Words {
 public:
  explicit Words(std::string_view text) : text_(text) {}
  bool next(std::string_view& word) {
    while (at_ < text_.size() && blank(text_[at_])) ++at_;
    if (at_ == text_.size()) return false;
    const std::size_t start = at_;
    while (at_ < text_.size() && !blank(text_[at_])) ++at_;
    word = text_.substr(start, at_ - start);
    if (word.front() == '@')
      if (const auto length = parseInteger(word.substr(1)); length && *length >= 0) {
        const std::size_t from = std::min(at_ + 1, text_.size());
        word = text_.substr(from, static_cast<std::size_t>(*length));
        at_ = from + word.size();
      }
    return true;
  }

 private:
  static bool blank(char c) { return c == ' ' || c == '\n' || c == '\r' || c == '\t'; }
  std::string_view text_;
  std::size_t at_ = 0;
};

Token tokenOf(std::string_view word) {
  if (word.size() > 1 && word.front() == '$')
    if (const auto target = parseInteger(word.substr(1))) return Pointer{static_cast<long>(*target)};
  if (const auto value = parseReal(word)) return *value;
  return std::string(word);
}

class Binary {
 public:
  explicit Binary(std::string_view bytes) : bytes_(bytes) {}

  Table read() {
    Table table;
    if (!header()) return table;
    Record record;
    while (step(record))
      if (ended_) {
        table.push_back(std::move(record));
        record = {};
        ended_ = false;
      }
    return table;
  }

 private:
  enum Tag : unsigned char {
    character = 2,
    shortInteger = 3,
    integer = 4,
    single = 5,
    real = 6,
    text8 = 7,
    text16 = 8,
    text32 = 9,
    yes = 10,
    no = 11,
    pointer = 12,
    typeEnd = 13,
    typePart = 14,
    open = 15,
    close = 16,
    recordEnd = 17,
    literal = 18,
    place = 19,
    direction = 20,
    choice = 21,
    pair = 22,
    wide = 23
  };

  template <class T>
  bool take(T& value) {
    if (bytes_.size() - at_ < sizeof(T)) return false;
    std::memcpy(&value, bytes_.data() + at_, sizeof(T));
    at_ += sizeof(T);
    return true;
  }
  template <class Length>
  bool takeText(std::string& text) {
    Length length{};
    if (!take(length) || bytes_.size() - at_ < static_cast<std::size_t>(length)) return false;
    text.assign(bytes_.substr(at_, static_cast<std::size_t>(length)));
    at_ += text.size();
    return true;
  }
  template <class T>
  bool number(Record& record, int count = 1) {
    for (; count > 0; --count) {
      T value{};
      if (!take(value)) return false;
      record.tokens.emplace_back(static_cast<double>(value));
    }
    return true;
  }
  template <class Length>
  bool text(Record& record) {
    std::string word;
    if (!takeText<Length>(word)) return false;
    record.tokens.emplace_back(std::move(word));
    return true;
  }

  // Signature, four counts, three texts and three tolerances.
  bool header() {
    for (const std::string_view signature : {"ACIS BinaryFile", "ASM BinaryFile4"})
      if (bytes_.starts_with(signature)) at_ = signature.size();
    if (at_ == 0 || bytes_.size() < at_ + 16) return false;
    at_ += 16;
    Record skipped;
    for (int i = 0; i < 6; ++i)
      if (!step(skipped)) return false;
    return true;
  }

  bool typeName(Record& record, bool last) {
    std::string part;
    if (!takeText<std::uint8_t>(part)) return false;
    type_ += (type_.empty() ? "" : "-") + part;
    if (!last) return true;
    if (record.type.empty()) record.type = type_;
    else record.tokens.emplace_back(type_);
    type_.clear();
    return true;
  }

  // Reads one value; false at the end or at a tag that the form does not have.
  bool step(Record& record) {
    std::uint8_t tag = 0;
    if (!take(tag)) return false;
    switch (tag) {
      case character: return number<std::int8_t>(record);
      case shortInteger: return number<std::int16_t>(record);
      case integer:
      case choice: return number<std::int32_t>(record);
      case single: return number<float>(record);
      case real: return number<double>(record);
      case text8: return text<std::uint8_t>(record);
      case text16: return text<std::uint16_t>(record);
      case text32:
      case literal: return text<std::uint32_t>(record);
      // The sense of an edge is stored as a flag that says whether it is reversed.
      case yes: record.tokens.emplace_back("reversed"); return true;
      case no: record.tokens.emplace_back("forward"); return true;
      case pointer: {
        std::int32_t target = 0;
        if (!take(target)) return false;
        record.tokens.emplace_back(Pointer{target});
        return true;
      }
      case typeEnd: return typeName(record, true);
      case typePart: return typeName(record, false);
      case open: record.tokens.emplace_back("{"); return true;
      case close: record.tokens.emplace_back("}"); return true;
      case recordEnd: ended_ = true; return true;
      case place:
      case direction: return number<double>(record, 3);
      case pair: return number<double>(record, 2);
      case wide: return number<std::int64_t>(record);
      default: return false;
    }
  }

  std::string_view bytes_;
  std::size_t at_ = 0;
  std::string type_;
  bool ended_ = false;
};

}  // namespace

std::vector<double> Record::reals() const {
  std::vector<double> values;
  for (const Token& token : tokens)
    if (const double* value = std::get_if<double>(&token)) values.push_back(*value);
  return values;
}
std::size_t Record::count(std::string_view word) const {
  return static_cast<std::size_t>(std::count_if(tokens.begin(), tokens.end(), [&](const Token& token) {
    const std::string* text = std::get_if<std::string>(&token);
    return text && *text == word;
  }));
}

std::string revealed(std::string_view hidden) {
  std::string text(hidden);
  for (char& c : text)
    if (static_cast<unsigned char>(c) > ' ') c = static_cast<char>(159 - static_cast<unsigned char>(c));
  return text;
}

Table readText(std::string_view text) {
  for (std::size_t line = 0; line < kHeaderLines; ++line) {
    const std::size_t end = text.find('\n');
    if (end == std::string_view::npos) return {};
    text.remove_prefix(end + 1);
  }
  Table table;
  Record record;
  Words words(text);
  for (std::string_view word; words.next(word);) {
    if (word == "#") {
      table.push_back(std::move(record));
      record = {};
    } else if (record.type.empty()) {
      // Records may begin with their number: "-12 face ...".
      if (!(word.front() == '-' && word.size() > 1 && std::isdigit(static_cast<unsigned char>(word[1]))))
        record.type = word;
    } else {
      record.tokens.push_back(tokenOf(word));
    }
  }
  return table;
}

std::vector<double> numbersIn(std::string_view text) {
  std::vector<double> numbers;
  Words words(text);
  for (std::string_view word; words.next(word);) {
    const std::optional<double> value = parseReal(word);
    if (!value) break;
    numbers.push_back(*value);
  }
  return numbers;
}

Table readBinary(std::string_view bytes) { return Binary(bytes).read(); }

const Record* pointed(const Table& table, const Record& from, std::string_view type, std::size_t n) {
  const bool ending = type.starts_with('*');
  if (ending) type.remove_prefix(1);
  for (const Token& token : from.tokens) {
    const Pointer* pointer = std::get_if<Pointer>(&token);
    if (!pointer || pointer->target < 0 || static_cast<std::size_t>(pointer->target) >= table.size()) continue;
    const Record& record = table[static_cast<std::size_t>(pointer->target)];
    if ((ending ? record.type.ends_with(type) : record.type == type) && n-- == 0) return &record;
  }
  return nullptr;
}

}  // namespace atelier::solid
