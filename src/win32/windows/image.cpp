#include "win32/windows/image.h"

// Need windows.h and COM's types before them.
#include <objidl.h>
//
#include <gdiplus.h>

#include <cstddef>
#include <vector>

#include "base/letter_case.h"
#include "base/text.h"

namespace tagrix {
namespace {

constexpr BYTE kFaded = 120;  // of 255

namespace flat = Gdiplus::DllExports;

// GDI+ from its start to its end.
class Decoder {
 public:
  Decoder() {
    const Gdiplus::GdiplusStartupInput input;
    if (Gdiplus::GdiplusStartup(&token_, &input, nullptr) != Gdiplus::Ok) token_ = 0;
  }
  ~Decoder() {
    if (token_ != 0) Gdiplus::GdiplusShutdown(token_);
  }
  Decoder(const Decoder&) = delete;
  Decoder& operator=(const Decoder&) = delete;

  UniqueBitmap Read(const std::wstring& path) const {
    UniqueBitmap result;
    Gdiplus::GpBitmap* picture = nullptr;
    if (token_ == 0 || flat::GdipCreateBitmapFromFile(path.c_str(), &picture) != Gdiplus::Ok) return result;
    HBITMAP bitmap = nullptr;
    if (flat::GdipCreateHBITMAPFromBitmap(picture, &bitmap, 0) == Gdiplus::Ok) result.Reset(bitmap);
    flat::GdipDisposeImage(picture);
    return result;
  }

 private:
  ULONG_PTR token_ = 0;
};

// A 32-bit bitmap, from the top row down.
UniqueBitmap NewBitmap(int width, int height, void*& bits) {
  BITMAPINFO info{};
  info.bmiHeader.biSize = sizeof info.bmiHeader;
  info.bmiHeader.biWidth = width;
  info.bmiHeader.biHeight = -height;
  info.bmiHeader.biPlanes = 1;
  info.bmiHeader.biBitCount = 32;
  return UniqueBitmap(CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
}

std::vector<BYTE> ReadAll(const std::wstring& path) {
  constexpr LONGLONG kMost = 1 << 22;
  const UniqueFile file(CreateFileW(path.c_str(), GENERIC_READ, FILE_SHARE_READ, nullptr, OPEN_EXISTING, 0, nullptr));
  LARGE_INTEGER size{};
  if (!file || !GetFileSizeEx(file.Get(), &size) || size.QuadPart > kMost) return {};
  std::vector<BYTE> bytes(static_cast<std::size_t>(size.QuadPart));
  DWORD count = 0;
  if (!ReadFile(file.Get(), bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr)) count = 0;
  bytes.resize(count);
  return bytes;
}

// One picture of an icon file.
struct IconPicture {
  int side = 0;
  const BYTE* pixels = nullptr;  // blue, green, red, alpha; from the bottom row up
};

// The smallest picture that is large enough, else the largest, of those that hold 32 bits a pixel; none: empty. The
// format: https://devblogs.microsoft.com/oldnewthing/20101018-00/?p=12513
IconPicture BestPicture(const std::vector<BYTE>& file, int side) {
  const auto number = [&](std::size_t at, int bytes) {
    std::size_t value = 0;
    for (int i = bytes - 1; i >= 0; --i) value = value << 8 | file[at + static_cast<std::size_t>(i)];
    return value;
  };
  IconPicture best;
  const std::size_t count = file.size() < 6 ? 0 : number(4, 2);
  for (std::size_t entry = 6; entry < 6 + 16 * count && entry + 16 <= file.size(); entry += 16) {
    constexpr std::size_t kHeader = sizeof(BITMAPINFOHEADER);
    const std::size_t at = number(entry + 12, 4);
    if (at > file.size() || file.size() - at < kHeader || number(at, 4) != kHeader) continue;  // or a PNG file
    const std::size_t width = number(at + 4, 4), height = number(at + 8, 4) / 2;               // of picture and mask
    if (width == 0 || width > 256 || width != height || number(at + 14, 2) != 32) continue;
    if (file.size() - at < kHeader + 4 * width * height) continue;
    const int found = static_cast<int>(width);
    const bool better = best.side < side ? found > best.side : found >= side && found < best.side;
    if (better) best = {found, file.data() + at + kHeader};
  }
  return best;
}

// Much quicker than by an icon of the system's, and the start needs many.
UniqueBitmap FromPicture(const IconPicture& picture) {
  void* bits = nullptr;
  UniqueBitmap bitmap = NewBitmap(picture.side, picture.side, bits);
  if (!bitmap) return bitmap;
  auto* to = static_cast<BYTE*>(bits);
  for (int row = picture.side - 1; row >= 0; --row) {
    const BYTE* from = picture.pixels + 4 * static_cast<std::ptrdiff_t>(row) * picture.side;
    for (int i = 0; i < picture.side; ++i, from += 4, to += 4) {
      for (int part = 0; part < 3; ++part) to[part] = static_cast<BYTE>(from[part] * from[3] / 255);
      to[3] = from[3];
    }
  }
  return bitmap;
}

// A 32-bit bitmap holding the icon; the drawing system premultiplies by itself.
UniqueBitmap FromIcon(HICON icon, int side) {
  void* bits = nullptr;
  UniqueBitmap bitmap = NewBitmap(side, side, bits);
  const UniqueMemoryDc dc(CreateCompatibleDC(nullptr));
  const Selected selected(dc.Get(), bitmap.Get());
  DrawIconEx(dc.Get(), 0, 0, icon, side, side, 0, nullptr, DI_NORMAL);
  return bitmap;
}

}  // namespace

void Image::Load(const std::wstring& path, int height) {
  *this = Image();
  if (path.size() > 4 && EqualIgnoringCase(path.substr(path.size() - 4), L".ico")) {
    const std::vector<BYTE> file = ReadAll(path);
    if (const IconPicture best = BestPicture(file, height); best.side > 0) {
      bitmap_ = FromPicture(best);
    } else if (!file.empty()) {
      const UniqueIcon icon(
          static_cast<HICON>(LoadImageW(nullptr, path.c_str(), IMAGE_ICON, height, height, LR_LOADFROMFILE)));
      if (icon) bitmap_ = FromIcon(icon.Get(), height);
    }
  } else if (!path.empty()) {
    bitmap_ = Decoder().Read(path);
  }
  BITMAP facts{};
  if (!bitmap_ || GetObjectW(bitmap_.Get(), sizeof facts, &facts) == 0) return;
  pixels_ = {static_cast<int>(facts.bmWidth), static_cast<int>(facts.bmHeight)};
  height_ = height;
}

Size Image::Extent(int widest) const {
  if (pixels_.width == 0 || pixels_.height == 0) return {};
  const int width = MulDiv(pixels_.width, height_, pixels_.height);
  if (width <= widest) return {width, height_};
  return {widest, MulDiv(height_, widest, width)};
}

void Image::Draw(HDC dc, Rect area, bool faded) const {
  if (!bitmap_) return;
  const UniqueMemoryDc memory(CreateCompatibleDC(dc));
  const Selected selected(memory.Get(), bitmap_.Get());
  const BLENDFUNCTION blend{AC_SRC_OVER, 0, faded ? kFaded : BYTE{255}, AC_SRC_ALPHA};
  GdiAlphaBlend(dc, area.x, area.y, area.width, area.height, memory.Get(), 0, 0, pixels_.width, pixels_.height, blend);
}

}  // namespace tagrix
