// The desktop.
#include "atelier/desktop/window/application.h"
#include "programs/applications.h"

int main(int argc, char** argv) {
  kavel::registerApplications();
  return atelier::desktop::run(argc, argv);
}
