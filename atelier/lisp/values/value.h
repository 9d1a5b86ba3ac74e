// An AutoLISP value in one 64-bit word, and the cells that it may point to.
// Reals and integers are stored in the word itself; all other values are tagged pointers into the interpreter's heap.
#pragma once

#include <bit>
#include <cassert>
#include <cstdint>
#include <limits>
#include <memory>
#include <string>
#include <string_view>

namespace atelier::lisp {

enum class Type : std::uint8_t {
  Nil,
  Integer,
  Real,
  String,
  Symbol,
  List,
  Subr,
  SpecialForm,
  UserSubr,
  External,
  EntityName,
  SelectionSet,
  File,
  ErrorObject
};

struct Pair;
struct Symbol;
struct Text;
struct Box;
struct Primitive;

// Layout of the word:
//   top bits 0000         a pointer to a 16-byte aligned cell, its kind in the low four bits
//   0002 .. fffc          an IEEE double, 2^49 added to its bits
//   fffe                  a 32-bit integer in the low half
// A Value can be copied freely; the interpreter that made it must outlive it, and its garbage collector must find it
// (see root.h).
class Value {
 public:
  constexpr Value() = default;

  static constexpr Value integer(std::int32_t number) {
    return Value(kIntegerMark | static_cast<std::uint32_t>(number));
  }
  static constexpr Value real(double number) {
    if (number != number) number = std::numeric_limits<double>::quiet_NaN();
    return Value(std::bit_cast<std::uint64_t>(number) + kRealOffset);
  }
  // The 32-bit integer of the lowest bits, which is what sums and products of integers are.
  static constexpr Value wrapped(std::int64_t number) { return integer(static_cast<std::int32_t>(number)); }
  // An integer when `number` fits in 32 bits, else the real that is nearest to it.
  static constexpr Value integerOrReal(std::int64_t number) {
    return number == static_cast<std::int32_t>(number) ? integer(static_cast<std::int32_t>(number))
                                                       : real(static_cast<double>(number));
  }

  constexpr explicit operator bool() const { return bits_ != kNil; }
  constexpr bool operator==(const Value&) const = default;  // same word: the identity, not AutoLISP's eq

  constexpr bool isNil() const { return bits_ == kNil; }
  constexpr bool isInteger() const { return bits_ >= kIntegerMark; }
  constexpr bool isNumber() const { return (bits_ & kNumberMask) != 0; }
  constexpr bool isReal() const { return isNumber() && !isInteger(); }
  constexpr bool isPair() const { return has(kPair); }
  constexpr bool isList() const { return isPair() || isNil(); }
  constexpr bool isSymbol() const { return has(kSymbol); }
  constexpr bool isString() const { return has(kText); }
  constexpr bool isUserSubr() const { return has(kUserSubr); }
  constexpr bool isPrimitive() const { return has(kSubr) || has(kSpecial) || has(kExternal); }
  constexpr bool isEntity() const { return has(kEntity); }
  constexpr bool isSelection() const { return has(kSelection); }
  constexpr bool isFile() const { return has(kFile); }
  constexpr bool isErrorObject() const { return has(kError); }
  Type type() const;

  // The accessors require the matching type (built-ins check first, see arguments.h).
  constexpr std::int32_t integer() const { return static_cast<std::int32_t>(bits_ & 0xffffffffu); }
  constexpr double real() const { return std::bit_cast<double>(bits_ - kRealOffset); }
  constexpr double number() const { return isInteger() ? integer() : real(); }
  std::string_view text() const;                   // UTF-8
  std::uint32_t characters() const;                // of a string, in code points
  const std::string& name() const;                 // of a symbol, upper case
  std::uint64_t entity() const;                    // the host's opaque entity name
  const std::shared_ptr<void>& selection() const;  // the host's selection object
  Value car() const;                               // of a pair or a user function
  Value cdr() const;

  Pair* pair() const { return pointer<Pair>(); }
  Symbol* symbol() const { return pointer<Symbol>(); }
  Text* string() const { return pointer<Text>(); }
  Primitive* primitive() const { return pointer<Primitive>(); }
  Box* box() const { return pointer<Box>(); }

  // The kinds of cells. Pairs come first because they are tested most.
  enum Tag : std::uint64_t {
    kPair = 0,
    kSymbol = 1,
    kText = 2,
    kSubr = 3,
    kSpecial = 4,
    kUserSubr = 5,
    kExternal = 6,
    kEntity = 7,
    kSelection = 8,
    kFile = 9,
    kNilTag = 10,
    kError = 11,
    kNumber = 15
  };
  template <class Cell>
  static Value pointing(const Cell* cell, Tag tag) {
    return Value(reinterpret_cast<std::uint64_t>(cell) | tag);
  }
  constexpr Tag tag() const { return isPointer() ? static_cast<Tag>(bits_ & kTagMask) : kNumber; }
  constexpr bool isPointer() const { return (bits_ & kPointerMask) == 0; }
  constexpr std::uint64_t bits() const { return bits_; }

 private:
  static constexpr std::uint64_t kNil = 10;
  static constexpr std::uint64_t kTagMask = 0xf;
  static constexpr std::uint64_t kPointerMask = 0xffff'0000'0000'0000;
  static constexpr std::uint64_t kNumberMask = 0xfffe'0000'0000'0000;
  static constexpr std::uint64_t kIntegerMark = 0xfffe'0000'0000'0000;
  static constexpr std::uint64_t kRealOffset = 0x0002'0000'0000'0000;

  constexpr explicit Value(std::uint64_t bits) : bits_(bits) {}
  constexpr bool has(Tag tag) const { return (bits_ & (kPointerMask | kTagMask)) == tag; }
  template <class Cell>
  Cell* pointer() const {
    return reinterpret_cast<Cell*>(bits_ & ~kTagMask);
  }

  std::uint64_t bits_ = kNil;
};
static_assert(sizeof(Value) == 8 && std::is_trivially_copyable_v<Value>);

inline constexpr Value nil{};

// A list cell. A user function points to one too: ((parameters . body) . name).
struct Pair {
  Value car, cdr;
};

// A symbol lives as long as its interpreter; its value is the innermost binding (shallow binding).
struct alignas(16) Symbol {
  Value value;
  std::string name;
};

// The bytes of one or several strings. A string that ends where its bytes end is appended to in place, so
// that a string built a character at a time costs a linear time.
struct TextBytes {
  std::uint32_t references, used, capacity;
  char* data() { return reinterpret_cast<char*>(this + 1); }
};

struct Text {
  TextBytes* bytes;
  std::uint32_t size, characters;
};

// A cell for rare kinds of values.
struct Box {
  std::uint64_t kind;  // a Value::Tag, or 0 for a free cell
  union {
    std::uint64_t entity;
    std::shared_ptr<void>* object;  // selection set, open file, or caught error
  };
};

inline Value Value::car() const { return pair()->car; }
inline Value Value::cdr() const { return pair()->cdr; }
inline std::string_view Value::text() const { return {string()->bytes->data(), string()->size}; }
inline std::uint32_t Value::characters() const { return string()->characters; }
inline const std::string& Value::name() const { return symbol()->name; }
inline std::uint64_t Value::entity() const { return box()->entity; }
inline const std::shared_ptr<void>& Value::selection() const { return *box()->object; }

// The elements of a list for a range-for; a dotted end is left out.
class Items {
 public:
  explicit Items(Value list) : list_(list) {}
  class Iterator {
   public:
    explicit Iterator(Value rest) : rest_(rest) {}
    Value operator*() const { return rest_.car(); }
    Iterator& operator++() {
      rest_ = rest_.cdr();
      return *this;
    }
    bool operator!=(const Iterator&) const { return rest_.isPair(); }

   private:
    Value rest_;
  };
  Iterator begin() const { return Iterator(list_); }
  Iterator end() const { return Iterator(nil); }

 private:
  Value list_;
};

}  // namespace atelier::lisp
