// The grid on which lines through a corridor are compared: whole multiples of 2^-40 m (a picometre) from a local origin.
// On it every comparison is exact, so that no tolerance can hide or invent a vertex. It reaches two thousand kilometres.
#pragma once
#include <cstddef>
#include <cstdint>

namespace etu {

__extension__ typedef __int128 entierLong;

inline constexpr double kPasGrille = 0x1p-40, kParMetre = 0x1p40;
inline constexpr double kPorteeGrille = 0x1p21;  // metres: products of differences of coordinates stay below 2^124
// A limit is moved outwards by this much (6e-11 m), which is more than rounding moves it or, on a ground of any slope, its
// station: no line of the real corridor is lost.
inline constexpr std::int64_t kMargeGrille = 64;

struct pointGrille {
  std::int64_t x = 0, y = 0;
  std::size_t rang = 0;  // of the door of the corridor at this point, or of the last one before it
};

// Positive where c lies above the line from a to b (a on the left), negative below, 0 on it.
inline entierLong hauteurSur(const pointGrille& a, const pointGrille& b, const pointGrille& c) {
  return static_cast<entierLong>(b.x - a.x) * (c.y - a.y) - static_cast<entierLong>(b.y - a.y) * (c.x - a.x);
}

}  // namespace etu
