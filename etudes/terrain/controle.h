// Why a surface has nothing under an axis: too far away, x and y exchanged, degrees for metres, feet for metres.
// Each is proposed only when it would bring the two together.
#pragma once
#include <string>

#include "etudes/surfaces/point.h"

namespace etu {

// A sentence for a surface that doesn't meet the axis.
std::wstring pourquoiHors(const etendue& axe, const etendue& surface);

}  // namespace etu
