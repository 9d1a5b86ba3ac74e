// Reading numbers independently of the locale.
#include "etudes/fichiers/nombres.h"

#include <charconv>
#include <cmath>

namespace etu {

std::optional<double> nombreDe(std::string_view texte) {
  const auto blanc = [](char c) { return c == ' ' || c == '\t' || c == '\r' || c == '"'; };
  while (!texte.empty() && blanc(texte.front())) texte.remove_prefix(1);
  while (!texte.empty() && blanc(texte.back())) texte.remove_suffix(1);
  if (texte.starts_with('+') && !texte.starts_with("+-")) texte.remove_prefix(1);
  if (texte.empty() || texte.size() > 40) return {};
  char point[40];
  std::size_t n = 0;
  for (const char c : texte) point[n++] = c == ',' ? '.' : c;
  double valeur = 0;
  const auto [fin, erreur] = std::from_chars(point, point + n, valeur);
  if (erreur != std::errc() || fin != point + n || !std::isfinite(valeur)) return {};
  return valeur;
}

std::optional<double> nombreDe(std::wstring_view texte) {
  std::string etroit;
  for (const wchar_t c : texte) etroit += c > 0 && c < 128 ? static_cast<char>(c) : '?';
  return nombreDe(etroit);
}

std::wstring compte(std::size_t nombre, const std::wstring& mot) {
  return std::to_wstring(nombre) + L" " + mot + (nombre > 1 ? L"s" : L"");
}

}  // namespace etu
