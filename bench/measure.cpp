// measure FOLDER [exactly]: GetMP3Duration of every MP3 file; MeasureExactly instead.
#include "audio/exact_measure.h"
#include "audio/mp3.h"
#include "base/text.h"
#include "bench/machine.h"

int main(int count, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  const bool exactly = count > 2;
  double total = 0;
  tagrix::TimeEach(tagrix::Mp3Names(arguments[1]), [&](const std::string& name) {
    const std::wstring path = folder.path + tagrix::Widen(name);
    double milliseconds = 0;
    if (exactly) {
      const auto length = tagrix::MeasureExactly(*folder.files, path);
      if (length) milliseconds = length->Milliseconds();
    } else {
      tagrix::GetMP3Duration(*folder.files, path, milliseconds);
    }
    total += milliseconds;
  });
  std::printf("total %.0f\n", total);
}
