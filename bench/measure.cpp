// measure FOLDER: GetMP3Duration of every MP3 file.
#include "audio/mp3.h"
#include "base/text.h"
#include "bench/machine.h"

int main(int, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  double total = 0;
  tagrix::TimeEach(tagrix::Mp3Names(arguments[1]), [&](const std::string& name) {
    double milliseconds = 0;
    tagrix::GetMP3Duration(*folder.files, folder.path + tagrix::Widen(name), milliseconds);
    total += milliseconds;
  });
  std::printf("total %.0f\n", total);
}
