// VardaneSerializer: a tagged binary stream. A value has a tag of one byte ahead of it, so that a reader can probe for
// an optional field; raw 32-bit markers may stand between the values.
//
// The format, little-endian, without a header:
//   i  32-bit integer; a boolean is one with 0 or 1      d  double                s  16-bit integer
//   b  block of bytes, whose length isn't stored; a 64-bit integer is one of 8 bytes
//   c  string: an i with its length n, then a b with the n+1 bytes of its narrow text and zero (Windows-1252)
//   e  enumeration: an i after the tag                  w  reserved
// A raw byte and a marker have no tag.
#pragma once
#include <cstdint>
#include <string>

#include "hote/acstring.h"
#include "hote/adesk.h"

namespace plv {

inline constexpr Adesk::UInt32 kSansMarqueur = 0xFFFFFFFF;

// Every operation but the first two says whether it succeeded. A tagged read that meets another tag leaves the stream
// where it was, and its target alone.
class VardaneSerializer {
 public:
  virtual void rewind() = 0;
  virtual Adesk::UInt32 peekMarker() = 0;                 // kSansMarqueur when no 4 bytes are left
  virtual bool expectMarker(Adesk::UInt32 marqueur) = 0;  // another one is left to be read
  virtual bool writeMarker(Adesk::UInt32 marqueur) = 0;
  virtual bool writeAcString(const AcString& texte) = 0;
  virtual bool writeBool(bool valeur) = 0;
  virtual bool writeInt64(Adesk::Int64 valeur) = 0;
  virtual bool writeShort(Adesk::Int16 valeur) = 0;
  virtual bool writeByte(Adesk::Int8 valeur) = 0;
  virtual bool writeByte(std::uint8_t valeur) = 0;
  virtual bool writeDouble(double valeur) = 0;
  virtual bool writeBlock(const void* donnees, Adesk::UInt32 octets) = 0;
  virtual bool writeInt(Adesk::Int32 valeur) = 0;
  virtual bool writeString(const std::wstring& texte) = 0;  // at most 1023 characters
  virtual bool writeEnum(Adesk::Int32 valeur) = 0;
  virtual bool readAcString(AcString& texte) = 0;
  virtual bool readBool(bool& valeur) = 0;  // kept as it is: a number other than 0 and 1 is true, and a failure
  virtual bool readInt64(Adesk::Int64& valeur) = 0;
  virtual bool readByte(Adesk::Int8& valeur) = 0;
  virtual bool readByte(std::uint8_t& valeur) = 0;
  virtual bool readDouble(double& valeur) = 0;
  virtual bool readBlock(void* donnees, Adesk::UInt32 octets) = 0;
  virtual bool readInt(Adesk::Int32& valeur) = 0;
  virtual bool readString(std::wstring& texte) = 0;  // of at most 255 characters: the format's limit
  virtual bool readShort(Adesk::Int16& valeur) = 0;
  virtual bool readEnum(Adesk::Int32& valeur) = 0;

 protected:
  ~VardaneSerializer() = default;
};

}  // namespace plv
