#include "win32/windows/taskbar_progress.h"

// Need windows.h before them.
#include <objbase.h>
#include <shobjidl.h>

#include <utility>

namespace tagrix {

TaskbarProgress::~TaskbarProgress() {
  if (list_ != nullptr) list_->Release();
  if (started_) CoUninitialize();
}

void TaskbarProgress::Show(HWND window, int percent) {
  percent %= 100;
  if (percent == std::exchange(shown_, percent)) return;
  if (!started_) {
    started_ = SUCCEEDED(CoInitializeEx(nullptr, COINIT_APARTMENTTHREADED));
    void* found = nullptr;
    if (SUCCEEDED(CoCreateInstance(CLSID_TaskbarList, nullptr, CLSCTX_INPROC_SERVER, IID_ITaskbarList3, &found))) {
      list_ = static_cast<ITaskbarList3*>(found);
      list_->HrInit();
    }
  }
  if (list_ == nullptr) return;
  list_->SetProgressState(window, percent == 0 ? TBPF_NOPROGRESS : TBPF_NORMAL);
  if (percent > 0) list_->SetProgressValue(window, static_cast<ULONGLONG>(percent), 100);
}

}  // namespace tagrix
