// The plug-ins of the programs.
#pragma once

namespace kavel {

// Registers both with the host; every drawing opened afterwards has their functions. Called once at the program's start.
void registerApplications();

}  // namespace kavel
