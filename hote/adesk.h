// The host's basic types: numbers, characters, entity names, result chains and their codes.
// Every other header of this folder includes it.
#pragma once
#include <cstddef>
#include <cstdint>

using ACHAR = wchar_t;
#define ACRX_T(text) L##text

namespace Adesk {
using Int8 = std::int8_t;
using UInt8 = std::uint8_t;
using Int16 = std::int16_t;
using UInt16 = std::uint16_t;
using Int32 = std::int32_t;
using UInt32 = std::uint32_t;
using Int64 = std::int64_t;
using UInt64 = std::uint64_t;
using Boolean = bool;
using UIntPtr = std::uintptr_t;
using IntPtr = std::intptr_t;
using GsMarker = std::intptr_t;
inline constexpr bool kFalse = false;
inline constexpr bool kTrue = true;
}  // namespace Adesk

using ads_real = double;
using ads_point = ads_real[3];     // drawing units, world coordinates unless a function says otherwise
using ads_name = std::int64_t[2];  // an entity's name or a selection set's; opaque

struct ads_binary {
  short clen;  // bytes, at most 127
  char* buf;
};

union ads_u_val {
  ads_real rreal;
  ads_real rpoint[3];
  short rint;
  ACHAR* rstring;
  std::int64_t rlname[2];
  Adesk::Int32 rlong;
  Adesk::Int64 mnInt64;
  ads_binary rbinary;
};

// A node of a chain of arguments, results, XDATA or Xrecord items. Chains are made by acutNewRb and
// acutBuildList and released by acutRelRb.
struct resbuf {
  resbuf* rbnext;
  short restype;  // a result-type code below, or a DXF group code
  ads_u_val resval;
};

// Result-type codes.
inline constexpr int RTNONE = 5000;
inline constexpr int RTREAL = 5001;
inline constexpr int RTPOINT = 5002;
inline constexpr int RTSHORT = 5003;
inline constexpr int RTANG = 5004;
inline constexpr int RTSTR = 5005;
inline constexpr int RTENAME = 5006;
inline constexpr int RTPICKS = 5007;
inline constexpr int RTORINT = 5008;
inline constexpr int RT3DPOINT = 5009;
inline constexpr int RTLONG = 5010;
inline constexpr int RTVOID = 5014;
inline constexpr int RTLB = 5016;
inline constexpr int RTLE = 5017;
inline constexpr int RTDOTE = 5018;
inline constexpr int RTNIL = 5019;
inline constexpr int RTDXF0 = 5020;
inline constexpr int RTT = 5021;
inline constexpr int RTRESBUF = 5023;

// Status codes of the host's functions.
inline constexpr int RTNORM = 5100;
inline constexpr int RTERROR = -5001;
inline constexpr int RTCAN = -5002;
inline constexpr int RTREJ = -5003;
inline constexpr int RTFAIL = -5004;
inline constexpr int RTKWORD = -5005;

// Bits of acedInitGet.
inline constexpr int RSG_NONULL = 1;
inline constexpr int RSG_NOZERO = 2;
inline constexpr int RSG_NONEG = 4;
inline constexpr int RSG_NOLIM = 8;
inline constexpr int RSG_DASH = 32;
inline constexpr int RSG_2D = 64;
inline constexpr int RSG_OTHER = 128;

namespace Acad {
// The codes used here; their numbers are the host's.
enum ErrorStatus {
  eOk = 0,
  eNotImplementedYet = 1,
  eNotApplicable = 2,
  eInvalidInput = 3,
  eOutOfMemory = 6,
  eInvalidOpenState = 8,
  eHandleExists = 10,
  eNullHandle = 11,
  eUnknownHandle = 13,
  eHandleInUse = 14,
  eNullObjectPointer = 15,
  eNullObjectId = 16,
  eNullBlockName = 17,
  eContainerNotEmpty = 18,
  eNullEntityPointer = 19,
  eIllegalEntityType = 20,
  eKeyNotFound = 21,
  eDuplicateKey = 22,
  eInvalidIndex = 23,
  eNoDatabase = 24,
  eAlreadyInGroup = 25,
  eAlreadyInDb = 26,
  eInvalidDxfCode = 29,
  eNotThatKindOfClass = 32,
  eWasErased = 43,
  ePermanentlyErased = 44,
  eWasOpenForRead = 45,
  eWasOpenForWrite = 46,
  eWasOpenForUndo = 47,
  eWasNotifying = 48,
  eNotOpenForWrite = 53,
  eNotOpenForRead = 54,
  eHadMultipleReaders = 57,
  eOnLockedLayer = 60,
  eInvalidKey = 67,
  eFileNotFound = 70,
  eFilerError = 71,
  eFileAccessErr = 72,
  eInvalidExtents = 80,
  eDegenerateGeometry = 85,
  eBadDxfSequence = 90,
  eDuplicateRecordName = 91,
  eRegappIdNotFound = 97,
  eCannotBeErasedByCaller = 98,
  eObjectToBeDeleted = 158
};
}  // namespace Acad
