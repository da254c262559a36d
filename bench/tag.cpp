// tag FOLDER: WriteTags, both tags, of every MP3 file; then the memory that it took beyond what was there before.
#include "base/text.h"
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "tags/id3tag.h"

int main(int, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  tagrix::FakeCodePage codePage;
  tagrix::QuietProgress progress;
  const tagrix::TagFields fields{L"A title", L"7", L"An artist", L"An album", L"1974", L"A comment", L"Rock"};
  const auto names = tagrix::Mp3Names(arguments[1]);
  const std::size_t idle = tagrix::MemoryKib();
  std::size_t written = 0;
  tagrix::TimeEach(names, [&](const std::string& name) {
    const std::wstring path = folder.path + tagrix::Widen(name);
    if (tagrix::WriteTags({*folder.files, codePage, {}}, fields, path, true, true, progress)) ++written;
    progress = {};
  });
  const std::size_t peak = tagrix::PeakMemoryKib();
  std::printf("kib %zu\n", peak > idle ? peak - idle : 0);
  return written == names.size() ? 0 : 1;
}
