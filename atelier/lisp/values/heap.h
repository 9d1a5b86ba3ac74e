// The cells of one interpreter: allocated one after the other from free runs, with mark and sweep when these are used
// up. Roots are symbols, stacks, Root objects, and every word of the machine stack that could point to a cell.
#pragma once

#include <array>
#include <cstddef>
#include <string_view>
#include <vector>

#include "atelier/lisp/values/value.h"

namespace atelier::lisp {

class Heap;

// Gives the heap its roots during a collection.
class RootSource {
 public:
  virtual void markRoots(Heap& heap) = 0;
  // Called when all living cells are marked and none is freed yet: weak tables drop cells that aren't marked.
  virtual void afterMarking(Heap& heap) = 0;
  // Called now and then during a long copy; may throw to stop it.
  virtual void betweenPieces() = 0;
  // Asked now and then during a collection: whether to stop it, because the user has interrupted the program.
  virtual bool isStopping() const = 0;

 protected:
  ~RootSource() = default;
};

class Heap {
 public:
  explicit Heap(RootSource& roots) : roots_(roots) {}
  Heap(const Heap&) = delete;
  Heap& operator=(const Heap&) = delete;
  ~Heap();

  Pair* pair(Value car, Value cdr) {
    Pool& pool = pools_[kPairs];
    if (pool.next == pool.end) refill(kPairs, car, cdr);
    Pair* cell = static_cast<Pair*>(static_cast<void*>(pool.next++));
    cell->car = car;
    cell->cdr = cdr;
    return cell;
  }
  Value string(std::string_view utf8);
  // The parts joined into one string; appended in place when the first part allows it.
  Value concatenate(const Value* parts, std::size_t count);
  // `weight`: about the number of bytes that the object uses elsewhere; they count for the time of the next collection.
  Box* box(Value::Tag kind, std::size_t weight = 0);

  void collect();
  void mark(Value value);
  // Marks all cells to which the words in [low, high) may point; from the caller's frame on when `low` is null.
  void markConservatively(const void* low, const void* high);
  static bool isMarked(const void* cell);
  std::size_t collections() const { return collections_; }
  std::size_t cells() const { return live_; }  // that were alive at the last collection

 private:
  enum Kind : std::size_t { kPairs, kTexts, kBoxes, kKinds };
  struct Cell {
    std::uint64_t words[2];
  };
  static constexpr std::size_t kBlockSize = std::size_t{1} << 20;
  static constexpr std::size_t kCells = kBlockSize / sizeof(Cell);
  static constexpr std::size_t kFirstCell = 576;  // the mark bits are before it
  struct Block {
    std::uint64_t marks[kCells / 64];
    Kind kind;
  };
  static_assert(sizeof(Block) <= kFirstCell * sizeof(Cell));
  // State of the allocation of one kind: the free run [next, end), and the block and cell from which to search on.
  struct Pool {
    Cell* next = nullptr;
    Cell* end = nullptr;
    std::vector<Block*> blocks;
    std::size_t block = 0, cell = kFirstCell;
  };

  static Block* blockOf(const void* cell) {
    return reinterpret_cast<Block*>(reinterpret_cast<std::uintptr_t>(cell) & ~(kBlockSize - 1));
  }
  static std::size_t indexOf(const void* cell) {
    return (reinterpret_cast<std::uintptr_t>(cell) & (kBlockSize - 1)) / sizeof(Cell);
  }
  static bool setMark(const void* cell);  // true when it was not set
  static Cell* cellAt(Block* block, std::size_t index) { return reinterpret_cast<Cell*>(block) + index; }

  void refill(Kind kind, Value keep1 = nil, Value keep2 = nil);
  bool nextRun(Pool& pool);
  void addBlock(Kind kind);
  std::size_t bytesUntilCollection() const;
  void weigh(Kind kind, std::size_t bytes);
  Cell* cell(Kind kind) {
    Pool& pool = pools_[kind];
    if (pool.next == pool.end) refill(kind);
    return pool.next++;
  }
  const Block* blockAt(std::uintptr_t address) const;
  void drain();
  bool mayGoOn();
  void keepAll();
  void sweep();
  void sweepBlock(Block* block);
  void releaseCell(Kind kind, Cell* cell);
  TextBytes* newBytes(std::size_t size, std::size_t capacity);
  void release(TextBytes* bytes);
  void append(TextBytes& bytes, std::string_view text);
  Value textCell(TextBytes* bytes, std::size_t size, std::size_t characters);

  RootSource& roots_;
  std::array<Pool, kKinds> pools_;
  std::vector<std::uintptr_t> blocks_;  // every block, ascending
  std::vector<Value> pending_;          // pairs whose parts are still to mark
  std::size_t allocated_ = 0;           // cells handed out in runs since the last collection
  // Of strings: held now, held after the last collection; of strings and boxes: taken since then.
  std::size_t bytesLive_ = 0, bytesKept_ = 0, bytesAllocated_ = 0;
  std::size_t live_ = 0, collections_ = 0;
  std::size_t visited_ = 0;  // pairs that this collection has marked
  bool abandoned_ = false;   // this collection
};

// The number of code points of valid UTF-8.
std::size_t countCharacters(std::string_view utf8);

}  // namespace atelier::lisp
