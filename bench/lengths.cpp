// lengths FOLDER             each MP3 file's samples and sampling rate, as measured exactly; "0 0" where there are none
// lengths FOLDER FRAMES...   the files in the order of tracks of so many CD frames, as Auto Sort finds it
#include <cstdio>

#include "audio/exact_measure.h"
#include "base/text.h"
#include "bench/machine.h"
#include "fakes/quiet_progress.h"
#include "session/measure_album.h"

namespace tagrix {
namespace {

void PrintLengths(const RealFolder& folder, const std::vector<std::string>& names) {
  for (const std::string& name : names) {
    const std::optional<ExactLength> length = MeasureExactly(*folder.files, folder.path + Widen(name));
    std::printf("%llu %d %s\n", length ? static_cast<unsigned long long>(length->samples) : 0,
                length ? length->samplingRate : 0, name.c_str());
  }
}

struct Listener : MeasureWatcher {
  void Measured(std::size_t, std::int32_t) override {}
  void NotRead(const Failure& failure) override { throw failure; }
};

void PrintOrder(const RealFolder& folder, const std::vector<std::string>& names, char** frames) {
  AlbumSession session;
  session.folder = folder.path;
  for (const std::string& name : names) session.files.push_back({Widen(name)});
  for (; *frames != nullptr; ++frames) session.disc.tracks.push_back({L"", std::atoi(*frames)});
  QuietProgress progress;
  Listener listener;
  const AlbumTimes times = MeasureAlbum(session, *folder.files, progress, listener);
  for (const int from : SortAlbum(session, times, progress)) {
    std::printf("%s\n", names[static_cast<std::size_t>(from)].c_str());
  }
}

}  // namespace
}  // namespace tagrix

int main(int count, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  const std::vector<std::string> names = tagrix::Mp3Names(arguments[1]);
  if (count == 2) {
    tagrix::PrintLengths(folder, names);
  } else {
    tagrix::PrintOrder(folder, names, arguments + 2);
  }
}
