// "upd.dat", which describes the newest version of the program.
#include <cassert>
#include <cmath>
#include <cstdint>

#include "base/publisher.h"
#include "base/text.h"
#include "fakes/fakes.h"
#include "update/update_rules.h"

namespace tagrix {

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::wstring text = FakeCodePage().ToText({reinterpret_cast<const char*>(data), size});
  const std::vector<wchar_t> exact(text.begin(), text.end());  // so that reading beyond its end shows
  for (const wchar_t* key : {L"build", L"FileName", L"Path"}) {
    const std::wstring value = ProfileValue({exact.data(), exact.size()}, publisher::kProduct, key);
    assert(text.find(value) != text.npos && value.find_first_of(L"\r\n") == value.npos);
    assert(std::isfinite(LeadingNumber(value)));
    if (!IsBareFileName(value)) continue;
    assert(!value.empty() && value.find_first_of(L"/\\:") == value.npos && value.find(L"..") == value.npos);
  }
  return 0;
}

}  // namespace tagrix
