// Allocation, marking and sweeping. Free cells are found from the mark bits as they are needed: sweeping
// pairs costs nothing, and only strings and boxes, which own memory, are visited one by one.
#include "atelier/lisp/values/heap.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <new>

#if defined(__SANITIZE_ADDRESS__)
#define KAVEL_NO_ASAN __attribute__((no_sanitize_address))
#elif defined(__has_feature)
#if __has_feature(address_sanitizer)
#define KAVEL_NO_ASAN __attribute__((no_sanitize("address")))
#endif
#endif
#ifndef KAVEL_NO_ASAN
#define KAVEL_NO_ASAN
#endif

namespace atelier::lisp {
namespace {

// Between two collections at least this much is allocated: small enough for the processor's cache.
constexpr std::size_t kLeastCells = std::size_t{1} << 19;
constexpr std::size_t kLeastBytes = std::size_t{32} << 20;
constexpr std::size_t kLongest = std::size_t{1} << 28;  // bytes of a string
constexpr std::size_t kPiece = std::size_t{1} << 20;    // bytes of a string that are copied at a stretch
constexpr std::size_t kPairsBetweenLooks = std::size_t{1} << 16;

}  // namespace

std::size_t countCharacters(std::string_view utf8) {
  return static_cast<std::size_t>(
      std::count_if(utf8.begin(), utf8.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xc0) != 0x80; }));
}

Heap::~Heap() {
  for (std::uintptr_t address : blocks_) {
    Block* block = reinterpret_cast<Block*>(address);
    if (block->kind != kPairs) {
      std::memset(block->marks, 0, sizeof block->marks);
      sweepBlock(block);
    }
    std::free(block);
  }
}

// --- Allocation

void Heap::addBlock(Kind kind) {
  void* memory = std::aligned_alloc(kBlockSize, kBlockSize);
  if (!memory) throw std::bad_alloc();
  std::memset(memory, 0, kBlockSize);
  Block* block = static_cast<Block*>(memory);
  block->kind = kind;
  pools_[kind].blocks.push_back(block);
  const auto address = reinterpret_cast<std::uintptr_t>(block);
  blocks_.insert(std::upper_bound(blocks_.begin(), blocks_.end(), address), address);
}

// The next run of cells that the last collection found free.
bool Heap::nextRun(Pool& pool) {
  for (; pool.block < pool.blocks.size(); ++pool.block, pool.cell = kFirstCell) {
    Block* block = pool.blocks[pool.block];
    while (pool.cell < kCells) {
      const std::uint64_t used = block->marks[pool.cell / 64] >> (pool.cell % 64);
      if (used & 1) {
        pool.cell += static_cast<std::size_t>(std::countr_one(used));
        continue;
      }
      const std::size_t first = pool.cell;
      while (pool.cell < kCells) {  // the run goes on until the next mark
        const std::uint64_t rest = block->marks[pool.cell / 64] >> (pool.cell % 64);
        if (rest) {
          pool.cell += static_cast<std::size_t>(std::countr_zero(rest));
          break;
        }
        pool.cell += 64 - pool.cell % 64;
      }
      pool.next = cellAt(block, first);
      pool.end = cellAt(block, pool.cell);
      allocated_ += pool.cell - first;
      return true;
    }
  }
  return false;
}

void Heap::refill(Kind kind, Value keep1, Value keep2) {
  Pool& pool = pools_[kind];
  const bool enough = allocated_ > std::max(kLeastCells, live_) || bytesAllocated_ > bytesUntilCollection();
  if (!enough && nextRun(pool)) return;
  if (enough) {
    pending_.push_back(keep1);
    pending_.push_back(keep2);
    collect();
    if (nextRun(pool)) return;
  }
  addBlock(kind);
  nextRun(pool);
}

// Grows with the memory in use, cells included, since a collection has to visit it.
std::size_t Heap::bytesUntilCollection() const { return std::max({kLeastBytes, bytesKept_, live_ * sizeof(Cell)}); }

// Strings and boxes are small compared with their contents: the rest of a run of cells could stand for gigabytes.
void Heap::weigh(Kind kind, std::size_t bytes) {
  bytesAllocated_ += bytes;
  if (bytesAllocated_ > bytesUntilCollection()) pools_[kind].end = pools_[kind].next;
}

Box* Heap::box(Value::Tag kind, std::size_t weight) {
  weigh(kBoxes, weight);
  Cell* memory = cell(kBoxes);
  Box* box = new (memory) Box;
  box->kind = kind;
  box->object = nullptr;
  return box;
}

// --- Strings

TextBytes* Heap::newBytes(std::size_t size, std::size_t capacity) {
  if (capacity > 0x7fff'ffff) throw std::length_error("string too long");
  void* memory = std::malloc(sizeof(TextBytes) + capacity);
  if (!memory) throw std::bad_alloc();
  weigh(kTexts, capacity);
  bytesLive_ += capacity;
  return new (memory) TextBytes{0, static_cast<std::uint32_t>(size), static_cast<std::uint32_t>(capacity)};
}

void Heap::release(TextBytes* bytes) {
  if (bytes->references > 0 && --bytes->references) return;
  bytesLive_ -= bytes->capacity;
  std::free(bytes);
}

Value Heap::textCell(TextBytes* bytes, std::size_t size, std::size_t characters) {
  ++bytes->references;  // before the cell, whose allocation may collect the string that shares the bytes
  Cell* memory = cell(kTexts);
  Text* text = new (memory) Text{bytes, static_cast<std::uint32_t>(size), static_cast<std::uint32_t>(characters)};
  return Value::pointing(text, Value::kText);
}

// Getting new memory pages is slow: a long string is copied in pieces, so that the user can interrupt between them.
void Heap::append(TextBytes& bytes, std::string_view text) {
  while (!text.empty()) {
    const std::string_view piece = text.substr(0, kPiece);
    std::memcpy(bytes.data() + bytes.used, piece.data(), piece.size());
    bytes.used += static_cast<std::uint32_t>(piece.size());
    text.remove_prefix(piece.size());
    if (!text.empty()) roots_.betweenPieces();
  }
}

Value Heap::string(std::string_view utf8) {
  TextBytes* bytes = newBytes(0, std::max<std::size_t>(utf8.size(), 4));
  std::size_t characters = 0;
  try {
    for (std::string_view rest = utf8; !rest.empty();) {
      const std::string_view piece = rest.substr(0, kPiece);
      append(*bytes, piece);
      characters += countCharacters(piece);
      rest.remove_prefix(piece.size());
      if (!rest.empty()) roots_.betweenPieces();
    }
  } catch (...) {
    release(bytes);
    throw;
  }
  return textCell(bytes, utf8.size(), characters);
}

Value Heap::concatenate(const Value* parts, std::size_t count) {
  std::size_t size = 0, characters = 0;
  for (std::size_t i = 0; i < count; ++i) {
    size += parts[i].string()->size;
    characters += parts[i].characters();
  }
  if (size > kLongest) throw std::length_error("string too long");
  Text* first = count ? parts[0].string() : nullptr;
  const bool extends = first && first->size == first->bytes->used && size <= first->bytes->capacity;
  TextBytes* bytes = extends ? first->bytes : newBytes(0, size < 32 ? std::max<std::size_t>(size, 4) : 2 * size);
  bytes->used = extends ? first->size : 0;
  try {
    for (std::size_t part = extends ? 1 : 0; part < count; ++part) append(*bytes, parts[part].text());
  } catch (...) {
    if (extends) bytes->used = first->size;
    else release(bytes);
    throw;
  }
  return textCell(bytes, size, characters);
}

// --- Collection

bool Heap::setMark(const void* cell) {
  std::uint64_t& word = blockOf(cell)->marks[indexOf(cell) / 64];
  const std::uint64_t bit = std::uint64_t{1} << (indexOf(cell) % 64);
  if (word & bit) return false;
  word |= bit;
  return true;
}

bool Heap::isMarked(const void* cell) { return blockOf(cell)->marks[indexOf(cell) / 64] >> (indexOf(cell) % 64) & 1; }

void Heap::mark(Value value) {
  for (;;) {
    switch (value.tag()) {
      case Value::kPair:
      case Value::kUserSubr: {
        Pair* pair = value.pair();
        if (!setMark(pair) || !mayGoOn()) return;
        if (pair->car.isPair() || pair->car.isUserSubr()) pending_.push_back(pair->car);
        else mark(pair->car);
        value = pair->cdr;
        continue;
      }
      case Value::kText:
      case Value::kEntity:
      case Value::kSelection:
      case Value::kFile:
      case Value::kError: setMark(value.box()); return;
      default: return;
    }
  }
}

// Lets the user interrupt a collection, which takes long for a heap of gigabytes.
bool Heap::mayGoOn() {
  if (++visited_ % kPairsBetweenLooks == 0) abandoned_ |= roots_.isStopping();
  return !abandoned_;
}

void Heap::drain() {
  while (!pending_.empty()) {
    const Value value = pending_.back();
    pending_.pop_back();
    mark(value);
  }
}

const Heap::Block* Heap::blockAt(std::uintptr_t address) const {
  const std::uintptr_t base = address & ~(kBlockSize - 1);
  return std::binary_search(blocks_.begin(), blocks_.end(), base) ? reinterpret_cast<const Block*>(base) : nullptr;
}

KAVEL_NO_ASAN __attribute__((noinline)) void Heap::markConservatively(const void* low, const void* high) {
  if (!low) low = __builtin_frame_address(0);  // below it lie the registers that the caller has spilled
  if (blocks_.empty()) return;
  const std::uintptr_t least = blocks_.front(), most = blocks_.back() + kBlockSize;
  auto word = reinterpret_cast<const std::uintptr_t*>(reinterpret_cast<std::uintptr_t>(low) & ~std::uintptr_t{7});
  for (; word < static_cast<const std::uintptr_t*>(high); ++word) {
    const std::uintptr_t address = *word & ~std::uintptr_t{15};
    if (address < least || address >= most) continue;
    const Block* block = blockAt(address);
    if (!block || indexOf(reinterpret_cast<void*>(address)) < kFirstCell) continue;
    const Cell* found = reinterpret_cast<const Cell*>(address);
    if (found->words[0] == 0 && found->words[1] == 0) continue;  // never used
    if (block->kind == kPairs) {
      mark(Value::pointing(reinterpret_cast<Pair*>(address), Value::kPair));
      drain();
    } else {
      setMark(reinterpret_cast<void*>(address));
    }
  }
}

void Heap::collect() {
  ++collections_;
  visited_ = 0;
  abandoned_ = false;
  for (std::uintptr_t address : blocks_) {
    Block* block = reinterpret_cast<Block*>(address);
    std::memset(block->marks, 0, sizeof block->marks);
  }
  drain();
  roots_.markRoots(*this);
  drain();
  if (abandoned_) keepAll();
  else roots_.afterMarking(*this);
  sweep();
}

// A collection that was interrupted frees nothing; the next one begins from the start.
void Heap::keepAll() {
  for (std::uintptr_t address : blocks_) {
    Block* block = reinterpret_cast<Block*>(address);
    std::memset(block->marks, 0xFF, sizeof block->marks);
  }
}

void Heap::releaseCell(Kind kind, Cell* cell) {
  void* memory = cell;
  if (kind == kTexts) {
    Text* text = static_cast<Text*>(memory);
    if (text->bytes) release(text->bytes);
    text->bytes = nullptr;
  } else {
    Box* box = static_cast<Box*>(memory);
    if (box->kind && box->kind != Value::kEntity) delete box->object;
    box->kind = 0;
  }
}

void Heap::sweepBlock(Block* block) {
  for (std::size_t index = kFirstCell; index < kCells; ++index) {
    const std::uint64_t marks = block->marks[index / 64];
    if (marks == ~std::uint64_t{0}) index |= 63;
    else if (!(marks >> (index % 64) & 1)) releaseCell(block->kind, cellAt(block, index));
  }
}

void Heap::sweep() {
  live_ = 0;
  for (Pool& pool : pools_) {
    // The unused cells of the present run are not marked, and so are free again.
    pool.next = pool.end = nullptr;
    pool.block = 0;
    pool.cell = kFirstCell;
    for (Block* block : pool.blocks) {
      if (block->kind != kPairs) sweepBlock(block);
      for (std::uint64_t word : block->marks) live_ += static_cast<std::size_t>(std::popcount(word));
    }
  }
  allocated_ = bytesAllocated_ = 0;
  bytesKept_ = bytesLive_;
}

}  // namespace atelier::lisp
