// A library of Windows that is loaded when it is first needed, to keep the start short.
#ifndef TAGRIX_WIN32_LAZY_LIBRARY_H
#define TAGRIX_WIN32_LAZY_LIBRARY_H

#include <windows.h>

#include <cstring>

namespace tagrix {

class LazyLibrary {
 public:
  explicit LazyLibrary(const wchar_t* name) : name_(name) {}
  ~LazyLibrary() {
    if (module_ != nullptr) FreeLibrary(module_);
  }
  LazyLibrary(const LazyLibrary&) = delete;
  LazyLibrary& operator=(const LazyLibrary&) = delete;

  // The function of that name and type; null when the system has none.
  template <typename Function>
  Function* Get(const char* function) {
    if (module_ == nullptr) module_ = LoadLibraryExW(name_, nullptr, LOAD_LIBRARY_SEARCH_SYSTEM32);
    if (module_ == nullptr) return nullptr;
    const FARPROC found = GetProcAddress(module_, function);
    Function* result = nullptr;
    static_assert(sizeof found == sizeof result);
    std::memcpy(&result, &found, sizeof result);
    return result;
  }

 private:
  const wchar_t* name_;
  HMODULE module_ = nullptr;
};

}  // namespace tagrix

#endif
