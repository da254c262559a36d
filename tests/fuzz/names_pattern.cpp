// File names made of a record's texts: the input's lines are a pattern and the six texts.
#include <cassert>

#include "base/text.h"
#include "fakes/fakes.h"
#include "session/rename_pattern.h"

namespace tagrix {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kLongest = 400;  // longer texts only take longer
  if (size > kLongest) return 0;
  const std::wstring text = FakeCodePage().ToText({reinterpret_cast<const char*>(data), size});
  const std::vector<std::wstring> lines = Split(text, L"\n");
  if (lines.size() != 6) return 0;
  const std::wstring name =
      ExpandPattern(lines[0], lines[1], lines[2], static_cast<std::int16_t>(size), lines[3], lines[4], lines[5]);
  assert(name.find_first_of(L"/\\:?*\"<>|") == name.npos);
  assert(name.size() <= 7 * (size + 32767));  // tokens within texts don't multiply
  return 0;
}

}  // namespace tagrix
