// A language file.
#include <cassert>
#include <cstdint>

#include "core/language.h"
#include "fakes/fakes.h"

namespace tagrix {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = FakeCodePage().ToText({reinterpret_cast<const char*>(data), size});
  const std::vector<wchar_t> exact(text.begin(), text.end());  // so that reading beyond its end shows
  std::size_t length = 0;
  for (const std::wstring& message : ParseLanguageFile({exact.data(), exact.size()})) {
    assert(message.find_first_of(L"\r\n") == message.npos && text.find(message) != text.npos);
    length += message.size() + 3;
  }
  assert(length <= size);
  return 0;
}

}  // namespace tagrix
