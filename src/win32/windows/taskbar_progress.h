// How far a long operation is, on the window's button in the taskbar.
#ifndef TAGRIX_WIN32_WINDOWS_TASKBAR_PROGRESS_H
#define TAGRIX_WIN32_WINDOWS_TASKBAR_PROGRESS_H

#include <windows.h>

struct ITaskbarList3;

namespace tagrix {

class TaskbarProgress {
 public:
  TaskbarProgress() = default;
  ~TaskbarProgress();
  TaskbarProgress(const TaskbarProgress&) = delete;
  TaskbarProgress& operator=(const TaskbarProgress&) = delete;

  // 0 and 100 per cent show none.
  void Show(HWND window, int percent);

 private:
  ITaskbarList3* list_ = nullptr;
  bool started_ = false;  // COM; where there is no taskbar it is asked for only once
  int shown_ = 0;
};

}  // namespace tagrix

#endif
