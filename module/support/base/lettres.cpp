// Letters without regard to case, and the ANSI code page Windows-1252.
// The page: https://encoding.spec.whatwg.org/index-windows-1252.txt
#include "module/support/base/lettres.h"

#include <algorithm>
#include <array>
#include <boost/locale/encoding_utf.hpp>

namespace plv {

namespace {

// What stands for the bytes 80 to 9F; the rest of the page is Latin-1.
constexpr std::array<wchar_t, 32> kPage80 = {0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021,
                                             0x02C6, 0x2030, 0x0160, 0x2039, 0x0152, 0x008D, 0x017D, 0x008F,
                                             0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022, 0x2013, 0x2014,
                                             0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

constexpr std::wstring_view kMajusculesHorsLatin1 = L"ŒŠŽŸ";
constexpr std::wstring_view kMinusculesHorsLatin1 = L"œšžÿ";

bool entre(wchar_t c, wchar_t a, wchar_t b) { return c >= a && c <= b; }

// Letters and their capitals stand 32 places apart in ASCII and in Latin-1 (0xD7 and 0xF7 are signs).
bool estMajusculeLatine(wchar_t c) { return entre(c, L'A', L'Z') || (entre(c, 0xC0, 0xDE) && c != 0xD7); }
bool estMinusculeLatine(wchar_t c) { return entre(c, L'a', L'z') || (entre(c, 0xE0, 0xFE) && c != 0xF7); }

char octet(wchar_t c) {
  if (c < 0x80 || entre(c, 0xA0, 0xFF)) return static_cast<char>(c);
  const auto place = std::find(kPage80.begin(), kPage80.end(), c);
  return place == kPage80.end() ? '?' : static_cast<char>(0x80 + (place - kPage80.begin()));
}

wchar_t caractere(char o) {
  const auto n = static_cast<unsigned char>(o);
  return n >= 0x80 && n < 0xA0 ? kPage80[n - 0x80u] : static_cast<wchar_t>(n);
}

template <class Regle>
std::wstring transforme(std::wstring_view texte, Regle regle) {
  std::wstring resultat(texte);
  std::transform(resultat.begin(), resultat.end(), resultat.begin(), regle);
  return resultat;
}

}  // namespace

wchar_t minuscule(wchar_t c) {
  if (estMajusculeLatine(c)) return static_cast<wchar_t>(c + 32);
  const auto place = kMajusculesHorsLatin1.find(c);
  return place == std::wstring_view::npos ? c : kMinusculesHorsLatin1[place];
}

wchar_t majuscule(wchar_t c) {
  if (estMinusculeLatine(c)) return static_cast<wchar_t>(c - 32);
  const auto place = kMinusculesHorsLatin1.find(c);
  return place == std::wstring_view::npos ? c : kMajusculesHorsLatin1[place];
}

bool estAlphanumerique(wchar_t c) {
  const bool autreLettre = c == 0xAA || c == 0xB5 || c == 0xBA || c == 0xDF || entre(c, 0x100, 0x24F);
  return entre(c, L'0', L'9') || estMajusculeLatine(c) || estMinusculeLatine(c) || c == 0xFF || autreLettre;
}

std::wstring enMinuscules(std::wstring_view texte) { return transforme(texte, minuscule); }
std::wstring enMajuscules(std::wstring_view texte) { return transforme(texte, majuscule); }

bool egalSansCasse(std::wstring_view a, std::wstring_view b) {
  return a.size() == b.size() && egalSansCasse(a, b, a.size());
}

bool egalSansCasse(std::wstring_view a, std::wstring_view b, std::size_t n) {
  if (a.size() < n || b.size() < n) return false;
  return std::equal(a.begin(), a.begin() + static_cast<std::ptrdiff_t>(n), b.begin(),
                    [](wchar_t x, wchar_t y) { return minuscule(x) == minuscule(y); });
}

std::wstring sansBlancs(std::wstring_view texte) {
  const auto debut = texte.find_first_not_of(L" \t");
  if (debut == std::wstring_view::npos) return {};
  return std::wstring(texte.substr(debut, texte.find_last_not_of(L" \t") - debut + 1));
}

std::wstring depuisAnsi(std::string_view octets) {
  try {
    return boost::locale::conv::utf_to_utf<wchar_t>(octets.data(), octets.data() + octets.size(),
                                                    boost::locale::conv::stop);
  } catch (const boost::locale::conv::conversion_error&) {
    std::wstring texte(octets.size(), L'\0');
    std::transform(octets.begin(), octets.end(), texte.begin(), caractere);
    return texte;
  }
}

std::string versAnsi(std::wstring_view texte) {
  std::string octets(texte.size(), '\0');
  std::transform(texte.begin(), texte.end(), octets.begin(), octet);
  return octets;
}

std::string nomDeFichier(std::wstring_view nom) {
  return boost::locale::conv::utf_to_utf<char>(nom.data(), nom.data() + nom.size());
}
std::wstring depuisNomDeFichier(std::string_view nom) {
  return boost::locale::conv::utf_to_utf<wchar_t>(nom.data(), nom.data() + nom.size());
}

}  // namespace plv
