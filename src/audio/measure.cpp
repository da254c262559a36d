#include "audio/measure.h"

#include "audio/exact_measure.h"
#include "audio/mp3.h"
#include "base/failure.h"
#include "base/text.h"

namespace tagrix {
namespace {

// Of a header that is not valid, too: 0.
std::int32_t MeasureQuickly(Files& files, const std::wstring& path, const std::function<bool()>& goOn) {
  double milliseconds = 0;
  try {
    return GetMP3Duration(files, path, milliseconds, [&] { goOn(); }) ? RoundToInteger(milliseconds) : 0;
  } catch (const Failure& failure) {
    if (failure.Tried() != Action::Measure) throw;
    return 0;
  }
}

}  // namespace

FileTime MeasureFile(Files& files, const std::wstring& path, const std::function<bool()>& goOn) {
  const std::int32_t milliseconds = MeasureQuickly(files, path, goOn);
  return milliseconds != 0 ? FileTime{milliseconds} : MeasureFileExactly(files, path, goOn);
}

FileTime MeasureFileExactly(Files& files, const std::wstring& path, const std::function<bool()>& goOn) {
  const std::optional<ExactLength> length = MeasureExactly(files, path, goOn);
  return {length ? RoundToInteger(length->Milliseconds()) : 0, true};
}

}  // namespace tagrix
