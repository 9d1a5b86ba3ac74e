// The plug-ins of the programs.
#pragma once

namespace kavel {

// Makes both known to the host; every drawing opened afterwards has their functions. Once a program.
void registerApplications();

}  // namespace kavel
