// Measuring an audio file.
#include <cassert>
#include <cmath>
#include <cstdint>

#include "audio/mp3.h"
#include "base/failure.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m\\a.mp3";

// Whether the file has a frame, be it one that holds a reserved value.
bool Measure(const std::string& content) {
  FakeFiles files;
  files.Put(kPath, content);
  double milliseconds = -1;
  bool found = true;
  try {
    found = GetMP3Duration(files, kPath, milliseconds);
    assert(found == (milliseconds >= 0) && std::isfinite(milliseconds));
  } catch (const Failure&) {
    assert(milliseconds == -1);
  }
  files.Delete(kPath);  // throws when it has been left open
  return found;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  constexpr std::size_t kShortest = 256, kFirstPiece = 4096;
  const std::string content(reinterpret_cast<const char*>(data), size);
  const bool found = Measure(content);
  if (size < kShortest) return 0;
  // Behind silence, so that what is read first ends somewhere in the content, the same frame is found.
  assert(Measure(std::string(kFirstPiece - data[size - 1] % kShortest, '\0') + content) == found);
  return 0;
}

}  // namespace tagrix
