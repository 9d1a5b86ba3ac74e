// The tagged binary stream: its bytes, and what a reader gets who probes for another type.
// No published function makes one, so it is called directly.
#include <gtest/gtest.h>
#include <unistd.h>

#include <filesystem>
#include <fstream>
#include <functional>
#include <limits>
#include <sstream>

#include "module/support/serie/FileSerializer.h"

using plv::FileSerializer;
using namespace std::string_literals;

namespace {

struct Serie : ::testing::Test {
  ~Serie() override { std::filesystem::remove(chemin); }
  std::string octets() const {
    std::ostringstream texte;
    texte << std::ifstream(chemin, std::ios::binary).rdbuf();
    return texte.str();
  }
  std::string ecrits(const std::function<bool(FileSerializer&)>& ecrire) const {
    FileSerializer serie(chemin.c_str(), true);
    EXPECT_TRUE(ecrire(serie));
    return octets();
  }
  void poser(const std::string& donnees) const { std::ofstream(chemin, std::ios::binary) << donnees; }
  const std::string chemin = std::filesystem::temp_directory_path() / ("kavel-serie-" + std::to_string(getpid()));
};

TEST_F(Serie, BytesOfEachType) {
  const struct {
    const char* type;
    std::function<bool(FileSerializer&)> ecrire;
    std::string octets;
  } rangees[] = {
      {"int", [](auto& s) { return s.writeInt(-2); }, "i\xFE\xFF\xFF\xFF"s},
      {"bool", [](auto& s) { return s.writeBool(true); }, "i\1\0\0\0"s},
      {"short", [](auto& s) { return s.writeShort(258); }, "s\2\1"s},
      {"double", [](auto& s) { return s.writeDouble(1.0); }, "d\0\0\0\0\0\0\xF0\x3F"s},
      {"int64", [](auto& s) { return s.writeInt64(1); }, "b\1\0\0\0\0\0\0\0"s},
      {"enum", [](auto& s) { return s.writeEnum(7); }, "ei\7\0\0\0"s},
      {"byte", [](auto& s) { return s.writeByte(std::uint8_t{200}) && s.writeByte(Adesk::Int8{-1}); }, "\xC8\xFF"s},
      {"block", [](auto& s) { return s.writeBlock("xyz", 3); }, "bxyz"s},
      {"marker", [](auto& s) { return s.writeMarker(0x44434241); }, "ABCD"s},
      {"empty string", [](auto& s) { return s.writeString(L""); }, "ci\0\0\0\0b\0"s},
      {"string", [](auto& s) { return s.writeAcString(L"pré €"); }, "ci\5\0\0\0bpr\xE9 \x80\0"s}};
  for (const auto& r : rangees) EXPECT_EQ(ecrits(r.ecrire), r.octets) << r.type;
}

TEST_F(Serie, ReadsBackWhatItWroteAndStaysPutOnAnotherTag) {
  FileSerializer s(chemin.c_str(), true);
  EXPECT_TRUE(s.writeMarker(42) && s.writeInt(5) && s.writeDouble(-0.1) && s.writeShort(-3) && s.writeEnum(2) &&
              s.writeInt64(std::numeric_limits<Adesk::Int64>::min()) && s.writeString(L"Ã© Œ") && s.writeBool(false));
  s.rewind();
  Adesk::Int32 entier = 0, enumeration = 0;
  double reel = 9;
  Adesk::Int16 court = 0;
  Adesk::Int64 grand = 0;
  AcString texte;
  bool logique = true;
  EXPECT_EQ(s.peekMarker(), 42u);
  EXPECT_FALSE(s.expectMarker(41));
  EXPECT_TRUE(s.expectMarker(42));
  EXPECT_FALSE(s.readDouble(reel));
  EXPECT_EQ(reel, 9);
  EXPECT_FALSE(s.readEnum(enumeration));
  EXPECT_TRUE(s.readInt(entier) && s.readDouble(reel) && s.readShort(court) && s.readEnum(enumeration) &&
              s.readInt64(grand) && s.readAcString(texte) && s.readBool(logique));
  EXPECT_EQ(entier, 5);
  EXPECT_EQ(reel, -0.1);
  EXPECT_EQ(court, -3);
  EXPECT_EQ(enumeration, 2);
  EXPECT_EQ(grand, std::numeric_limits<Adesk::Int64>::min());
  EXPECT_EQ(texte, L"Ã© Œ");
  EXPECT_FALSE(logique);
  EXPECT_EQ(s.peekMarker(), plv::kSansMarqueur);
  EXPECT_FALSE(s.readInt(entier));
}

TEST_F(Serie, ABooleanOfTwoIsTrueAndAFailure) {
  poser("i\2\0\0\0"s);
  FileSerializer s(chemin.c_str(), false);
  bool logique = false;
  EXPECT_FALSE(s.readBool(logique));
  EXPECT_TRUE(logique);
}

TEST_F(Serie, StringsHaveTheFormatsLimits) {
  const struct {
    std::size_t n;
    bool ecrit, lu;
  } rangees[] = {{255, true, true}, {256, true, false}, {1023, true, false}, {1024, false, false}};
  for (const auto& r : rangees) {
    FileSerializer s(chemin.c_str(), true);
    EXPECT_EQ(s.writeString(std::wstring(r.n, L'a')), r.ecrit) << r.n;
    s.rewind();
    std::wstring texte;
    EXPECT_EQ(s.readString(texte), r.lu) << r.n;
  }
}

TEST_F(Serie, DamagedStringsAreRefused) {
  for (const std::string& donnees :
       {"ci\xFF\xFF\xFF\xFF"s + "b", "ci\3\0\0\0bab"s, "ci\3\0\0\0ba\0bc"s, "ci\3\0"s, "c"s}) {
    poser(donnees);
    std::wstring texte = L"avant";
    EXPECT_FALSE(FileSerializer(chemin.c_str(), false).readString(texte)) << donnees;
  }
}

TEST_F(Serie, AnAbsentFileIsNotValid) {
  FileSerializer s((chemin + "-absent").c_str(), false);
  Adesk::Int32 entier = 0;
  EXPECT_FALSE(s.estValide());
  EXPECT_FALSE(s.writeInt(1));
  EXPECT_FALSE(s.readInt(entier));
  EXPECT_EQ(s.peekMarker(), plv::kSansMarqueur);
}

}  // namespace
