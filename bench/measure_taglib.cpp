// measure_taglib FOLDER: TagLib's fast reading of every MP3 file.
#include <taglib/fileref.h>

#include "bench/machine.h"

int main(int, char** arguments) {
  const std::string folder = std::string(arguments[1]) + "/";
  double total = 0;
  tagrix::TimeEach(tagrix::Mp3Names(folder), [&](const std::string& name) {
    const TagLib::FileRef file((folder + name).c_str(), true, TagLib::AudioProperties::Fast);
    total += file.audioProperties()->lengthInMilliseconds();
  });
  std::printf("total %.0f\n", total);
}
