// Measuring an audio file exactly.
#include <cassert>
#include <cstdint>

#include "audio/exact_measure.h"
#include "fakes/fakes.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  tagrix::FakeFiles files;
  files.Put(L"C:\\a.mp3", std::string(reinterpret_cast<const char*>(data), size));
  const std::optional<tagrix::ExactLength> length = tagrix::MeasureExactly(files, L"C:\\a.mp3");
  files.Delete(L"C:\\a.mp3");  // throws when it has been left open
  // The densest sound there is: frames of free format, 8000 Hz, counted at the 48000 Hz of the first.
  assert(!length || length->samples <= size * 1152 * 6 / 24);
  return 0;
}
