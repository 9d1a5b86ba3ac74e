// The reader of DCL.
// A definition is "name : prototype { attributes and tiles }"; inside, tiles are ": prototype { }" or a name alone.
#include "atelier/dialogs/dcl.h"

#include <algorithm>

#include "atelier/base/error.h"
#include "atelier/base/text.h"

namespace atelier::dcl {
namespace {

constexpr int kDeepest = 100;

// Buttons that every dialog may name.
constexpr std::string_view kPredefined = R"(
ok_button : button { label = "OK"; key = "accept"; is_default = true; }
cancel_button : button { label = "Annuler"; key = "cancel"; is_cancel = true; }
help_button : button { label = "Aide"; key = "help"; }
info_button : button { label = "Info"; key = "info"; }
retirement_button : button { fixed_width = true; width = 8; alignment = centered; }
retirement_row : row { fixed_width = true; alignment = centered; }
edit12_box : edit_box { edit_width = 12; }
edit32_box : edit_box { edit_width = 32; }
default_dcl_settings : tile { audit_level = 0; }
image_block : image { }
icon_image : image_button { color = 0; width = 12; aspect_ratio = 0.66; }
errtile : text { key = "error"; }
ok_only : row { ok_button; }
ok_cancel : row { ok_button; cancel_button; }
ok_cancel_help : row { ok_button; cancel_button; help_button; }
ok_cancel_help_info : row { ok_button; cancel_button; help_button; info_button; }
ok_cancel_err : column { ok_cancel; errtile; }
ok_cancel_help_errtile : column { ok_cancel_help; errtile; }
)";

constexpr std::string_view kTypes[] = {"dialog",
                                       "row",
                                       "column",
                                       "boxed_row",
                                       "boxed_column",
                                       "radio_row",
                                       "radio_column",
                                       "boxed_radio_row",
                                       "boxed_radio_column",
                                       "button",
                                       "edit_box",
                                       "list_box",
                                       "popup_list",
                                       "text",
                                       "text_part",
                                       "paragraph",
                                       "concatenation",
                                       "toggle",
                                       "radio_button",
                                       "slider",
                                       "image",
                                       "image_button",
                                       "spacer",
                                       "spacer_0",
                                       "spacer_1",
                                       "tile",
                                       "cluster"};

class Reader {
 public:
  Reader(const std::string& file, std::string_view text, Definitions& into)
      : file_(file), text_(text), definitions_(into) {
    next();
  }

  void all() {
    while (!token_.empty()) {
      if (token_ == "@include") {  // it names files with the host's own tiles, which are predefined here
        next();
        next();
        continue;
      }
      const std::string name = word("le nom d'une boîte ou d'un groupe");
      expect(":");
      definitions_[name] = tile(0);
    }
  }

 private:
  Tile tile(int depth) {
    if (depth > kDeepest) fail("des groupes moins imbriqués");
    Tile made = prototype(word("un type"));
    expect("{");
    while (token_ != "}") {
      if (token_ == ":") {
        next();
        made.children.push_back(tile(depth + 1));
        continue;
      }
      const std::string name = word("un attribut, un groupe ou }");
      if (token_ == "=") {
        next();
        if (token_.empty() && !quoted_) fail("une valeur");
        made.attributes[name] = quoted_ ? token_ : lowerCase(token_);
        next();
        expect(";");
      } else {
        made.children.push_back(prototype(name));
        expect(";");
      }
    }
    next();
    return made;
  }

  Tile prototype(const std::string& name) {
    if (const auto known = definitions_.find(name); known != definitions_.end()) return known->second;
    if (std::find(std::begin(kTypes), std::end(kTypes), name) == std::end(kTypes))
      fail("un type connu au lieu de " + name);
    Tile made;
    made.type = name;
    return made;
  }

  std::string word(const char* expected) {
    if (token_.empty() || quoted_ || std::string_view("{}:;=").find(token_[0]) != std::string_view::npos)
      fail(expected);
    std::string found = lowerCase(token_);
    next();
    return found;
  }
  void expect(std::string_view sign) {
    if (token_ != sign || quoted_) fail(std::string(sign));
    next();
  }
  [[noreturn]] void fail(const std::string& expected) const {
    throw Error(file_ + ", ligne " + std::to_string(line_) + ": " + expected + " attendu, \"" + token_ + "\" trouvé");
  }
  static std::string lowerCase(std::string text) {
    for (char& c : text)
      if (c >= 'A' && c <= 'Z') c = static_cast<char>(c + 32);
    return text;
  }

  void skipBlanks() {
    while (at_ < text_.size()) {
      const std::string_view rest = text_.substr(at_);
      std::size_t end = at_;
      if (rest.starts_with("//")) end = std::min(text_.find('\n', at_), text_.size());
      else if (rest.starts_with("/*")) end = std::min(text_.find("*/", at_ + 2), text_.size() - 2) + 2;
      else if (static_cast<unsigned char>(rest[0]) <= ' ') end = at_ + 1;
      if (end == at_) return;
      line_ += static_cast<int>(std::count(text_.begin() + static_cast<std::ptrdiff_t>(at_),
                                           text_.begin() + static_cast<std::ptrdiff_t>(end), '\n'));
      at_ = end;
    }
  }

  void next() {
    skipBlanks();
    token_.clear();
    quoted_ = at_ < text_.size() && text_[at_] == '"';
    if (quoted_) {
      for (++at_; at_ < text_.size() && text_[at_] != '"'; ++at_) {
        const bool escape = text_[at_] == '\\' && at_ + 1 < text_.size();
        if (escape) ++at_;
        token_ += escape && text_[at_] == 'n' ? '\n' : escape && text_[at_] == 't' ? '\t' : text_[at_];
      }
      ++at_;
      return;
    }
    constexpr std::string_view kSigns = "{}:;=";
    if (at_ < text_.size() && kSigns.find(text_[at_]) != kSigns.npos) {
      token_ = text_[at_++];
      return;
    }
    while (at_ < text_.size() && static_cast<unsigned char>(text_[at_]) > ' ' && text_[at_] != '"' &&
           kSigns.find(text_[at_]) == kSigns.npos)
      token_ += text_[at_++];
  }

  const std::string& file_;
  std::string_view text_;
  Definitions& definitions_;
  std::size_t at_ = 0;
  int line_ = 1;
  std::string token_;
  bool quoted_ = false;
};

}  // namespace

std::string Tile::attribute(std::string_view name, std::string_view otherwise) const {
  const auto found = attributes.find(name);
  return found == attributes.end() ? std::string(otherwise) : found->second;
}

Definitions read(const std::string& file, std::string_view text) {
  Definitions definitions;
  Reader(file, kPredefined, definitions).all();
  Reader(file, text, definitions).all();
  return definitions;
}

}  // namespace atelier::dcl
