#include <windows.h>
// Need windows.h before them.
#include <objidl.h>
// Needs objidl.h before it.
#include <gdiplus.h>

#include <stdexcept>
#include <string>

#include "ui/driver.h"

namespace tagrix::ui {
namespace {

constexpr CLSID kPngEncoder = {0x557cf406, 0x1a04, 0x11d3, {0x9a, 0x73, 0x00, 0x00, 0xf8, 0x1e, 0xf3, 0x2e}};

struct BitmapTraits {
  using Handle = HBITMAP;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { DeleteObject(handle); }
};

RECT AreaOf(HWND window) {
  RECT area{0, 0, GetSystemMetrics(SM_CXSCREEN), GetSystemMetrics(SM_CYSCREEN)};
  if (window != nullptr) GetWindowRect(window, &area);
  return area;
}

Unique<BitmapTraits> CopyScreen(const RECT& area) {
  const int width = area.right - area.left, height = area.bottom - area.top;
  const HDC screen = GetDC(nullptr), copy = CreateCompatibleDC(screen);
  Unique<BitmapTraits> bitmap(CreateCompatibleBitmap(screen, width, height));
  const HGDIOBJ before = SelectObject(copy, bitmap.Get());
  BitBlt(copy, 0, 0, width, height, screen, area.left, area.top, SRCCOPY);
  SelectObject(copy, before);
  DeleteDC(copy);
  ReleaseDC(nullptr, screen);
  return bitmap;
}

}  // namespace

void SaveScreenshot(const std::filesystem::path& file, HWND window) {
  std::filesystem::create_directories(file.parent_path());
  ULONG_PTR token = 0;
  const Gdiplus::GdiplusStartupInput input;
  Gdiplus::GdiplusStartup(&token, &input, nullptr);
  const Unique<BitmapTraits> bitmap = CopyScreen(AreaOf(window));
  const Gdiplus::Status status = Gdiplus::Bitmap(bitmap.Get(), nullptr).Save(file.c_str(), &kPngEncoder, nullptr);
  Gdiplus::GdiplusShutdown(token);
  if (status != Gdiplus::Ok) throw std::runtime_error("cannot write " + file.string());
}

}  // namespace tagrix::ui
