#include "forms/captions.h"

#include "base/letter_case.h"

namespace tagrix {

std::wstring WithoutAccessKeys(std::wstring_view caption) {
  std::wstring shown;
  for (std::size_t i = 0; i < caption.size(); ++i) {
    if (caption[i] == L'&' && ++i == caption.size()) break;
    shown += caption[i];
  }
  return shown;
}

wchar_t AccessKeyOf(std::wstring_view caption) {
  for (std::size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] == L'&' && caption[++i] != L'&') return ToLower(caption[i]);
  }
  return 0;
}

}  // namespace tagrix
