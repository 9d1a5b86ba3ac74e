// Cutting rows into fields and reading numbers of them.
#include "etudes/reseaux/rangees.h"

#include <algorithm>

#include "etudes/fichiers/nombres.h"
#include "etudes/surfaces/point.h"
#include "module/support/base/lettres.h"
#include "module/support/base/nombres.h"

namespace etu {

namespace {

// 0+120.50 as metres.
std::optional<double> stationDe(const std::wstring& texte) {
  const auto plus = texte.find(L'+', 1);
  if (plus == std::wstring::npos) return nombreDe(texte);
  const auto kilometres = nombreDe(texte.substr(0, plus)), metres = nombreDe(texte.substr(plus + 1));
  if (!kilometres || !metres || *metres < 0 || *metres >= 1000) return {};
  return *kilometres * 1000 + (texte.front() == L'-' ? -*metres : *metres);
}

}  // namespace

rangee::rangee(const std::wstring& texte, std::size_t numero) : m_numero(numero), m_texte(plv::sansBlancs(texte)) {
  for (std::size_t debut = 0; debut <= m_texte.size();) {
    const std::size_t fin = std::min(m_texte.find(L';', debut), m_texte.size());
    m_champs.push_back(plv::sansBlancs(m_texte.substr(debut, fin - debut)));
    debut = fin + 1;
  }
  while (m_champs.size() > 1 && m_champs.back().empty()) m_champs.pop_back();
  m_champs.front() = plv::enMinuscules(m_champs.front());
}

bool rangee::muette() const { return m_texte.empty() || m_texte.front() == L'#' || m_texte == L";"; }

const std::wstring& rangee::champ(std::size_t i) const {
  static const std::wstring kVide;
  return i < m_champs.size() ? m_champs[i] : kVide;
}

std::optional<double> rangee::nombre(std::size_t i, const wchar_t* quoi) const {
  if (champ(i).empty()) return {};
  const auto valeur = nombreDe(champ(i));
  if (!valeur) refuser(std::wstring(quoi) + L": un nombre est attendu, et non \"" + champ(i) + L"\"");
  return valeur;
}

double rangee::nombreVoulu(std::size_t i, const wchar_t* quoi) const {
  const auto valeur = nombre(i, quoi);
  if (!valeur) refuser(std::wstring(quoi) + L" manque");
  return *valeur;
}

double rangee::nombreOu(std::size_t i, const wchar_t* quoi, double sinon) const {
  return nombre(i, quoi).value_or(sinon);
}

double rangee::positif(std::size_t i, const wchar_t* quoi, double sinon) const {
  const double valeur = nombreOu(i, quoi, sinon);
  if (valeur < 0) refuser(std::wstring(quoi) + L": " + champ(i) + L" est négatif");
  return valeur;
}

double rangee::station(std::size_t i, const wchar_t* quoi) const {
  if (champ(i).empty()) refuser(std::wstring(quoi) + L" manque");
  const auto valeur = stationDe(champ(i));
  if (!valeur) refuser(std::wstring(quoi) + L": une station est attendue, et non \"" + champ(i) + L"\"");
  return *valeur;
}

const std::wstring& rangee::texteVoulu(std::size_t i, const wchar_t* quoi) const {
  if (champ(i).empty()) refuser(std::wstring(quoi) + L" manque");
  return champ(i);
}

void rangee::auPlus(std::size_t champs, const wchar_t* forme) const {
  if (m_champs.size() > champs) refuser(std::wstring(L"trop de champs; attendu: ") + forme);
}

void rangee::refuser(const std::wstring& pourquoi) const {
  throw refus{L"rangée " + std::to_wstring(m_numero) + L", \"" + m_texte.substr(0, 80) + L"\": " + pourquoi};
}

std::vector<rangee> lues(const rangees& textes) {
  std::vector<rangee> resultat;
  for (std::size_t i = 0; i < textes.size(); ++i) {
    rangee r(textes[i], i + 1);
    if (!r.muette()) resultat.push_back(std::move(r));
  }
  return resultat;
}

std::wstring enTexte(double valeur, int decimales) {
  std::wstring texte = plv::texteFixe(valeur, decimales);
  if (texte.find(L'.') != std::wstring::npos) {
    texte.erase(texte.find_last_not_of(L'0') + 1);
    if (texte.back() == L'.') texte.pop_back();
  }
  return texte == L"-0" ? L"0" : texte;
}

}  // namespace etu
