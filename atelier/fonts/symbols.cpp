// Signs by their letters. Reference: the tolerance command of the CAD reference; names of the signs as in ISO 1101.
#include "atelier/fonts/symbols.h"

#include <algorithm>
#include <iterator>

namespace atelier::fonts {
namespace {

struct Symbol {
  char32_t letter, sign;
};
constexpr Symbol kSymbols[] = {
    {U'a', U'\u2220'},  // angularity
    {U'b', U'\u27C2'},  // perpendicularity
    {U'c', U'\u23E5'},  // flatness
    {U'd', U'\u2313'},  // surface profile
    {U'e', U'\u25CB'},  // roundness
    {U'f', U'\u2225'},  // parallelism
    {U'g', U'\u232D'},  // cylindricity
    {U'h', U'\u2197'},  // circular run-out
    {U'i', U'\u232F'},  // symmetry
    {U'j', U'\u2316'},  // position
    {U'k', U'\u2312'},  // line profile
    {U'l', U'\u24C1'},  // least material
    {U'm', U'\u24C2'},  // most material
    {U'n', U'\u00D8'},  // diameter
    {U'p', U'\u24C5'},  // projected zone
    {U'r', U'\u25CE'},  // concentricity
    {U's', U'\u24C8'},  // regardless of size
    {U't', U'\u2330'},  // total run-out
    {U'u', U'\u23E4'},  // straightness
};

char32_t folded(char32_t c) { return c >= U'A' && c <= U'Z' ? c + 32 : c; }

}  // namespace

bool hasSymbols(std::string_view file) {
  constexpr std::string_view kName = "gdt";
  const std::string_view stem = file.substr(0, file.find('.'));
  return std::ranges::equal(stem, kName, [](char a, char b) {
    return folded(static_cast<unsigned char>(a)) == static_cast<unsigned char>(b);
  });
}

char32_t symbolFor(char32_t letter) {
  const auto* symbol = std::ranges::find(kSymbols, folded(letter), &Symbol::letter);
  return symbol == std::end(kSymbols) ? letter : symbol->sign;
}

}  // namespace atelier::fonts
