// Letters without regard to case, and the ANSI code page, for the letters that this page has.
// Independent of the locale: the platform's own functions would follow it.
#pragma once
#include <string>
#include <string_view>

namespace plv {

wchar_t minuscule(wchar_t lettre);
wchar_t majuscule(wchar_t lettre);
bool estAlphanumerique(wchar_t caractere);  // letters with accents included
std::wstring enMinuscules(std::wstring_view texte);
std::wstring enMajuscules(std::wstring_view texte);
bool egalSansCasse(std::wstring_view a, std::wstring_view b);
// Compares the first n characters only; a text that is shorter than that never matches.
bool egalSansCasse(std::wstring_view a, std::wstring_view b, std::size_t n);
// Without the blanks and tabs at both ends.
std::wstring sansBlancs(std::wstring_view texte);

// Text of a file: read as UTF-8 when all of it is valid UTF-8, else as Windows-1252.
std::wstring depuisAnsi(std::string_view octets);
// Windows-1252; a character that the page hasn't becomes "?".
std::string versAnsi(std::wstring_view texte);

// Names of files: UTF-8 here, whatever the locale.
std::string nomDeFichier(std::wstring_view nom);
std::wstring depuisNomDeFichier(std::string_view nom);

}  // namespace plv
