// FileSerializer: the tagged binary stream in a file.
// A tag is written without a look at the result: the value after it fails when the tag did.
#include "module/support/serie/FileSerializer.h"

#include <fcntl.h>
#include <sys/stat.h>
#ifdef _WIN32
#include <io.h>
#else
#include <unistd.h>
#endif

#include <array>
#include <bit>
#include <cstring>

#include "module/support/base/lettres.h"

namespace plv {

namespace {

static_assert(std::endian::native == std::endian::little);

#ifdef O_BINARY
constexpr int kBinaire = O_BINARY;
#else
constexpr int kBinaire = 0;
#endif
constexpr std::size_t kTamponEcriture = 1024;
constexpr std::size_t kTamponLecture = 256;  // kept as it is: a quarter of the writer's, both belong to the format

// Byte by byte: a narrow text is in the code page, whatever else its bytes might mean together.
std::wstring depuisPage(const char* texte) {
  std::wstring resultat;
  for (; *texte; ++texte) resultat += depuisAnsi(std::string_view(texte, 1));
  return resultat;
}

}  // namespace

FileSerializer::FileSerializer(const char* chemin, bool enEcriture)
    : fichier(enEcriture ? open(chemin, O_RDWR | O_CREAT | O_TRUNC | kBinaire, S_IRUSR | S_IWUSR)
                         : open(chemin, O_RDONLY | kBinaire)),
      ouvert(fichier != -1),
      valide(ouvert) {}

FileSerializer::~FileSerializer() {
  if (ouvert && valide) close(fichier);
}

bool FileSerializer::lire(void* donnees, std::size_t octets) {
  return valide && read(fichier, donnees, octets) == static_cast<ssize_t>(octets);
}
bool FileSerializer::ecrire(const void* donnees, std::size_t octets) {
  return valide && write(fichier, donnees, octets) == static_cast<ssize_t>(octets);
}

bool FileSerializer::attendre(char etiquette) {
  if (!valide) return false;
  const auto place = lseek(fichier, 0, SEEK_CUR);
  char lue = 0;
  if (lire(&lue, 1) && lue == etiquette) return true;
  lseek(fichier, place, SEEK_SET);
  return false;
}

void FileSerializer::rewind() {
  if (valide) lseek(fichier, 0, SEEK_SET);
}

Adesk::UInt32 FileSerializer::peekMarker() {
  if (!valide) return kSansMarqueur;
  const auto place = lseek(fichier, 0, SEEK_CUR);
  Adesk::UInt32 marqueur = 0;
  const bool complet = lire(&marqueur, sizeof marqueur);
  lseek(fichier, place, SEEK_SET);
  return complet ? marqueur : kSansMarqueur;
}

bool FileSerializer::expectMarker(Adesk::UInt32 marqueur) {
  if (!valide) return false;
  const auto place = lseek(fichier, 0, SEEK_CUR);
  Adesk::UInt32 lu = 0;
  if (lire(&lu, sizeof lu) && lu == marqueur) return true;
  lseek(fichier, place, SEEK_SET);
  return false;
}

bool FileSerializer::writeMarker(Adesk::UInt32 marqueur) { return ecrire(&marqueur, sizeof marqueur); }

bool FileSerializer::writeAcString(const AcString& texte) {
  const std::wstring copie = texte.kACharPtr();
  return writeString(copie);
}
bool FileSerializer::readAcString(AcString& texte) {
  std::wstring copie = texte.kACharPtr();
  const bool lu = readString(copie);
  texte = AcString(copie.c_str());
  return lu;
}

bool FileSerializer::writeBool(bool valeur) { return writeInt(valeur ? 1 : 0); }

bool FileSerializer::readBool(bool& valeur) {
  Adesk::Int32 entier = 0;
  if (!readInt(entier)) return false;
  valeur = entier != 0;
  return entier == 0 || entier == 1;
}

bool FileSerializer::writeByte(Adesk::Int8 valeur) { return ecrire(&valeur, 1); }
bool FileSerializer::writeByte(std::uint8_t valeur) { return ecrire(&valeur, 1); }
bool FileSerializer::readByte(Adesk::Int8& valeur) { return lire(&valeur, 1); }
bool FileSerializer::readByte(std::uint8_t& valeur) { return lire(&valeur, 1); }

bool FileSerializer::writeBlock(const void* donnees, Adesk::UInt32 octets) {
  ecrire("b", 1);
  return ecrire(donnees, octets);
}
bool FileSerializer::readBlock(void* donnees, Adesk::UInt32 octets) { return attendre('b') && lire(donnees, octets); }

bool FileSerializer::writeInt64(Adesk::Int64 valeur) { return writeBlock(&valeur, sizeof valeur); }
bool FileSerializer::readInt64(Adesk::Int64& valeur) { return readBlock(&valeur, sizeof valeur); }

bool FileSerializer::writeShort(Adesk::Int16 valeur) {
  ecrire("s", 1);
  return ecrire(&valeur, sizeof valeur);
}
bool FileSerializer::readShort(Adesk::Int16& valeur) { return attendre('s') && lire(&valeur, sizeof valeur); }

bool FileSerializer::writeDouble(double valeur) {
  ecrire("d", 1);
  return ecrire(&valeur, sizeof valeur);
}
bool FileSerializer::readDouble(double& valeur) { return attendre('d') && lire(&valeur, sizeof valeur); }

bool FileSerializer::writeInt(Adesk::Int32 valeur) {
  ecrire("i", 1);
  return ecrire(&valeur, sizeof valeur);
}
bool FileSerializer::readInt(Adesk::Int32& valeur) { return attendre('i') && lire(&valeur, sizeof valeur); }

bool FileSerializer::writeEnum(Adesk::Int32 valeur) {
  ecrire("e", 1);
  return writeInt(valeur);
}
bool FileSerializer::readEnum(Adesk::Int32& valeur) { return attendre('e') && readInt(valeur); }

// A text that has no room in the buffer isn't begun.
bool FileSerializer::writeString(const std::wstring& texte) {
  std::array<char, kTamponEcriture> tampon{};
  const std::string etroit = versAnsi(texte);
  if (etroit.size() >= tampon.size()) return false;
  std::memcpy(tampon.data(), etroit.data(), etroit.size());
  ecrire("c", 1);
  writeInt(static_cast<Adesk::Int32>(texte.size()));
  return writeBlock(tampon.data(), static_cast<Adesk::UInt32>(texte.size() + 1));
}

bool FileSerializer::readString(std::wstring& texte) {
  if (!attendre('c')) return false;
  texte.clear();
  std::array<char, kTamponLecture + 1> tampon{};  // and a zero after whatever a damaged file holds
  Adesk::Int32 n = -1;
  if (!readInt(n) || n < 0 || static_cast<std::size_t>(n) >= kTamponLecture) return false;
  if (!readBlock(tampon.data(), static_cast<Adesk::UInt32>(n + 1))) return false;
  texte = depuisPage(tampon.data());
  return texte.size() == static_cast<std::size_t>(n);
}

}  // namespace plv
