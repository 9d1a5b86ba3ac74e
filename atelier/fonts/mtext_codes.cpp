// The reader of inline codes: a stack of formats for the braces, one token at a time.
// Numbers go through std::from_chars, so that the locale does not matter.
#include "atelier/fonts/mtext_codes.h"

#include <charconv>
#include <cmath>
#include <numbers>

namespace atelier::fonts {

namespace {

std::optional<double> real(std::string_view s) {
  if (s.starts_with('+')) s.remove_prefix(1);
  double value = 0;
  const auto [end, error] = std::from_chars(s.data(), s.data() + s.size(), value);
  return error == std::errc() && end == s.data() + s.size() && std::isfinite(value) ? std::optional(value)
                                                                                    : std::nullopt;
}

class Reader {
 public:
  Reader(std::u32string_view text, const MTextFormat& start) : text_(text), format_(start) {}

  std::vector<MTextToken> read() {
    while (at_ < text_.size()) step();
    return std::move(tokens_);
  }

 private:
  std::u32string_view text_;
  std::size_t at_ = 0;
  MTextFormat format_;
  char32_t align_ = 0;
  std::vector<MTextFormat> saved_;
  std::vector<MTextToken> tokens_;
  bool fresh_ = true;  // the next character starts a word: the format changed, or a token ended

  MTextToken& push(MTextToken::Kind kind) {
    tokens_.push_back({kind, {}, {}, 0, align_, format_});
    fresh_ = true;
    return tokens_.back();
  }

  void put(char32_t c) {
    if (c == U' ') {
      push(MTextToken::Kind::space).text = U" ";
      return;
    }
    if (fresh_) push(MTextToken::Kind::word);
    fresh_ = false;
    tokens_.back().text.push_back(c);
  }

  void step() {
    std::size_t length = 1;
    if (const char32_t c = characterCode(text_, at_, length)) {
      at_ += length;
      return put(c);
    }
    const char32_t c = text_[at_++];
    switch (c) {
      case U'\n': return void(push(MTextToken::Kind::newline));
      case U'\r': return;
      case U'\t': return put(U' ');
      case U'{': return saved_.push_back(format_);
      case U'}': return restore();
      case U'^': return caret();
      case U'\\': return code();
      default: return put(c);
    }
  }

  void restore() {
    if (saved_.empty()) return put(U'}');
    format_ = saved_.back();
    saved_.pop_back();
    fresh_ = true;
  }

  // Control characters as the drawing file writes them: ^I tab, ^J end of line, ^M nothing, "^ " a caret.
  void caret() {
    const char32_t next = at_ < text_.size() ? text_[at_] : 0;
    if (next != U'I' && next != U'J' && next != U'M' && next != U' ') return put(U'^');
    ++at_;
    if (next == U'J') return void(push(MTextToken::Kind::newline));
    if (next != U'M') put(next == U'I' ? U' ' : U'^');
  }

  std::u32string_view parameter() {
    const std::size_t end = std::min(text_.find(U';', at_), text_.size());
    const auto value = text_.substr(at_, end - at_);
    at_ = std::min(end + 1, text_.size());
    return value;
  }

  void code() {
    if (at_ >= text_.size()) return put(U'\\');
    const char32_t c = text_[at_++];
    switch (c) {
      case U'P':
      case U'X': return void(push(MTextToken::Kind::newline));
      case U'N': return void(push(MTextToken::Kind::column));
      case U'~': return put(0xA0);
      case U'\\':
      case U'{':
      case U'}': return put(c);
      case U'L':
      case U'l': return bar(format_.underline, c == U'L');
      case U'O':
      case U'o': return bar(format_.overline, c == U'O');
      case U'K':
      case U'k': return bar(format_.strike, c == U'K');
      case U'S': return stack();
      case U'f':
      case U'F': return font(encodeUtf8(parameter()));
      case U'p': return paragraph(parameter());
      default: break;
    }
    if (std::u32string_view(U"HCcWQTAM").find(c) == std::u32string_view::npos) return put(c);
    number(c, encodeUtf8(parameter()));
  }

  void bar(bool& which, bool on) {
    which = on;
    fresh_ = true;
  }

  void number(char32_t code, std::string_view parameter) {
    fresh_ = true;
    const bool times = code == U'H' && (parameter.ends_with('x') || parameter.ends_with('X'));
    if (times) parameter.remove_suffix(1);
    const auto value = real(parameter);
    if (!value) return;
    if (code == U'H' && *value > 0) format_.height = times ? format_.height * *value : *value;
    if (code == U'W' && *value > 0) format_.font.widthFactor = *value;
    if (code == U'Q') format_.font.oblique = *value * std::numbers::pi / 180;
    if (code == U'C' && *value >= 0 && *value <= 256) {
      format_.colourIndex = static_cast<int>(*value);
      format_.colourRgb.reset();
    }
    if (code == U'c' && *value >= 0 && *value < 16777216) {
      const auto bgr = static_cast<std::uint32_t>(*value);
      format_.colourRgb = ((bgr & 0xFF) << 16) | (bgr & 0xFF00) | (bgr >> 16);
    }
  }

  // "Arial|b1|i0|c0|p34", or the name of a stroke font file.
  void font(std::string_view parameter) {
    fresh_ = true;
    const std::size_t bar = parameter.find('|');
    if (bar != 0 && !parameter.empty()) format_.font.file = std::string(parameter.substr(0, bar));
    const std::string_view flags = bar < parameter.size() ? parameter.substr(bar) : std::string_view{};
    format_.font.bold = flags.find("|b1") != std::string_view::npos;
    format_.font.italic = flags.find("|i1") != std::string_view::npos;
  }

  // Of the paragraph properties only the alignment counts here: \pqc; and the like.
  void paragraph(std::u32string_view properties) {
    const std::size_t q = properties.find(U'q');
    if (q == std::u32string_view::npos || q + 1 >= properties.size()) return;
    const char32_t align = properties[q + 1];
    align_ = std::u32string_view(U"lcrjd").find(align) == std::u32string_view::npos ? 0 : align;
  }

  void stack() {
    MTextToken& token = push(MTextToken::Kind::stack);
    bool below = false;
    for (; at_ < text_.size() && text_[at_] != U';'; ++at_) {
      char32_t c = text_[at_];
      const bool divides = !below && (c == U'/' || c == U'#' || c == U'^');
      if (c == U'\\' && at_ + 1 < text_.size()) c = text_[++at_];
      if (divides) token.divider = c, below = true;
      else (below ? token.lower : token.text).push_back(c);
    }
    if (at_ < text_.size()) ++at_;
  }
};

}  // namespace

std::vector<MTextToken> readMText(std::u32string_view contents, const MTextFormat& start) {
  return Reader(contents, start).read();
}

}  // namespace atelier::fonts
