// The published function of this room; its arguments and results are in the table of etudes/porte/table.cpp.
#pragma once

namespace etu {

void et_ligneCout();

}  // namespace etu
