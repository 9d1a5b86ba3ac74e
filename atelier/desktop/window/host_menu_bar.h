// The host's pull-down menus as menus of the window.
#pragma once
#include <QMenuBar>
#include <functional>
#include <vector>

namespace atelier::desktop {

class HostMenuBar {
 public:
  // Receives the text and the lines of an entry.
  using Run = std::function<void(const std::string& label, const std::vector<std::string>& lines)>;
  // The menus are placed before `before`, the window's own last menu.
  HostMenuBar(QMenuBar& bar, QAction* before, Run run);
  ~HostMenuBar();
  HostMenuBar(const HostMenuBar&) = delete;
  HostMenuBar& operator=(const HostMenuBar&) = delete;
  // Builds the menus again from the host's.
  void rebuild();

 private:
  QMenuBar& bar_;
  QAction* const before_;
  const Run run_;
  std::vector<QMenu*> menus_;
};

}  // namespace atelier::desktop
