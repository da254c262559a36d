#include "win32/ports/system_message.h"

#include <algorithm>

namespace tagrix {

std::wstring SystemMessage(DWORD error) {
  wchar_t buffer[512];
  const DWORD length =
      FormatMessageW(FORMAT_MESSAGE_FROM_SYSTEM | FORMAT_MESSAGE_IGNORE_INSERTS | FORMAT_MESSAGE_MAX_WIDTH_MASK,
                     nullptr, error, 0, buffer, static_cast<DWORD>(std::size(buffer)), nullptr);
  std::wstring text(buffer, length);
  while (!text.empty() && text.back() <= L' ') text.pop_back();
  return text.empty() ? L"Error " + std::to_wstring(error) : text;
}

Failure LastErrorFailure(Action action, const std::wstring& path) {
  return Failure(action, path, SystemMessage(GetLastError()));
}

}  // namespace tagrix
