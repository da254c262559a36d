#include "tags/genres.h"

#include <algorithm>

#include "base/letter_case.h"

namespace tagrix {

std::size_t GetIDXFromStyleName(const std::vector<std::wstring>& styles, std::wstring_view name) {
  constexpr std::size_t kUnknown = 135;  // "Other"
  const auto found =
      std::find_if(styles.begin(), styles.end(), [&](const auto& style) { return EqualIgnoringCase(style, name); });
  return found == styles.end() ? kUnknown : static_cast<std::size_t>(found - styles.begin());
}

}  // namespace tagrix
