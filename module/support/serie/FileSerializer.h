// FileSerializer: the tagged binary stream in a file.
// The format and the operations are described in VardaneSerializer.h.
#pragma once
#include "module/support/base/Uncopyable.h"
#include "module/support/serie/VardaneSerializer.h"

namespace plv {

class FileSerializer : public VardaneSerializer, private Uncopyable {
 public:
  // For writing, the file is created or emptied, and may be read back; it belongs to its owner alone. A file that
  // doesn't open leaves a stream that isn't valid, and every operation on it fails.
  FileSerializer(const char* chemin, bool enEcriture);
  ~FileSerializer();
  bool estValide() const { return valide; }

  void rewind() override;
  Adesk::UInt32 peekMarker() override;
  bool expectMarker(Adesk::UInt32 marqueur) override;
  bool writeMarker(Adesk::UInt32 marqueur) override;
  bool writeAcString(const AcString& texte) override;
  bool writeBool(bool valeur) override;
  bool writeInt64(Adesk::Int64 valeur) override;
  bool writeShort(Adesk::Int16 valeur) override;
  bool writeByte(Adesk::Int8 valeur) override;
  bool writeByte(std::uint8_t valeur) override;
  bool writeDouble(double valeur) override;
  bool writeBlock(const void* donnees, Adesk::UInt32 octets) override;
  bool writeInt(Adesk::Int32 valeur) override;
  bool writeString(const std::wstring& texte) override;
  bool writeEnum(Adesk::Int32 valeur) override;
  bool readAcString(AcString& texte) override;
  bool readBool(bool& valeur) override;
  bool readInt64(Adesk::Int64& valeur) override;
  bool readByte(Adesk::Int8& valeur) override;
  bool readByte(std::uint8_t& valeur) override;
  bool readDouble(double& valeur) override;
  bool readBlock(void* donnees, Adesk::UInt32 octets) override;
  bool readInt(Adesk::Int32& valeur) override;
  bool readString(std::wstring& texte) override;
  bool readShort(Adesk::Int16& valeur) override;
  bool readEnum(Adesk::Int32& valeur) override;

 private:
  bool lire(void* donnees, std::size_t octets);
  bool ecrire(const void* donnees, std::size_t octets);
  bool attendre(char etiquette);

  Adesk::Int32 fichier;  // its descriptor
  bool ouvert, valide;
};

}  // namespace plv
