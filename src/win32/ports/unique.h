// The one owner of system handles: move-only, closes what it holds.
#ifndef TAGRIX_WIN32_PORTS_UNIQUE_H
#define TAGRIX_WIN32_PORTS_UNIQUE_H

#include <windows.h>

#include <utility>

namespace tagrix {

// `Traits` has the type `Handle` and the functions `None()`, the value that stands for no handle, and `Close(Handle)`.
template <typename Traits>
class Unique {
 public:
  using Handle = typename Traits::Handle;

  Unique() = default;
  explicit Unique(Handle handle) : handle_(handle) {}
  Unique(Unique&& other) noexcept : handle_(other.Release()) {}
  Unique& operator=(Unique&& other) noexcept {
    Reset(other.Release());
    return *this;
  }
  ~Unique() { Reset(); }

  Handle Get() const { return handle_; }
  explicit operator bool() const { return handle_ != Traits::None(); }
  Handle Release() { return std::exchange(handle_, Traits::None()); }
  void Reset(Handle handle = Traits::None()) {
    if (handle_ != Traits::None() && handle_ != handle) Traits::Close(handle_);
    handle_ = handle;
  }

 private:
  Handle handle_ = Traits::None();
};

// Kernel objects whose creation answers null when it fails.
struct KernelTraits {
  using Handle = HANDLE;
  static Handle None() { return nullptr; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using UniqueKernel = Unique<KernelTraits>;

// Files, whose creation answers INVALID_HANDLE_VALUE when it fails.
struct FileTraits {
  using Handle = HANDLE;
  static Handle None() { return INVALID_HANDLE_VALUE; }
  static void Close(Handle handle) { CloseHandle(handle); }
};
using UniqueFile = Unique<FileTraits>;

}  // namespace tagrix

#endif
