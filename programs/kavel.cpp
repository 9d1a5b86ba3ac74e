// The headless program.
#include "atelier/console/console.h"
#include "programs/applications.h"

int main(int argc, char** argv) {
  kavel::registerApplications();
  return atelier::console::run(argc, argv);
}
