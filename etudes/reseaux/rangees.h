// Rows of text "word;value;value": what files of networks and trench types are made of, and what the drawing keeps of them.
// Empty rows and those that begin with # are passed over. Whatever is wrong throws a `refus` that names the row.
#pragma once
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace etu {

using rangees = std::vector<std::wstring>;

// One row with its number, from 1, and its fields without the blanks around them and without empty ones at the end.
class rangee {
 public:
  rangee(const std::wstring& texte, std::size_t numero);

  bool muette() const;
  const std::wstring& mot() const { return champ(0); }
  std::size_t nombreDeChamps() const { return m_champs.size(); }
  // Empty past the end.
  const std::wstring& champ(std::size_t i) const;

  // A finite number; none for an empty field.
  std::optional<double> nombre(std::size_t i, const wchar_t* quoi) const;
  double nombreVoulu(std::size_t i, const wchar_t* quoi) const;
  double nombreOu(std::size_t i, const wchar_t* quoi, double sinon) const;
  // No number below zero.
  double positif(std::size_t i, const wchar_t* quoi, double sinon) const;
  // A number, or a station written 0+120.
  double station(std::size_t i, const wchar_t* quoi) const;
  const std::wstring& texteVoulu(std::size_t i, const wchar_t* quoi) const;
  void auPlus(std::size_t champs, const wchar_t* forme) const;

  [[noreturn]] void refuser(const std::wstring& pourquoi) const;

 private:
  std::size_t m_numero;
  std::wstring m_texte;
  std::vector<std::wstring> m_champs;
};

// The rows that say something.
std::vector<rangee> lues(const rangees& textes);

// A number as rows have it: at most so many decimals, none that are zero at the end.
std::wstring enTexte(double valeur, int decimales = 6);

}  // namespace etu
