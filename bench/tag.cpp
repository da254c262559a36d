// tag FOLDER: WriteTags, both tags, of every MP3 file; then the memory that it took beyond what was there before.
#include "bench/machine.h"
#include "core/text.h"
#include "fakes/fakes.h"
#include "tags/id3tag.h"

int main(int, char** arguments) {
  const tagrix::RealFolder folder = tagrix::OpenFolder(arguments[1]);
  tagrix::TestContext fakes;
  tagrix::Context context(tagrix::Ports{*folder.files, fakes.registry, fakes.codePage, fakes.events, fakes.clock,
                                        fakes.shell, fakes.prompts, fakes.socket, fakes.ftp},
                          L"C:\\Tagrix");
  const tagrix::TagFields fields{L"A title", L"7", L"An artist", L"An album", L"1974", L"A comment", L"Rock"};
  const auto names = tagrix::Mp3Names(arguments[1]);
  const std::size_t idle = tagrix::MemoryKib();
  std::size_t written = 0;
  tagrix::TimeEach(names, [&](const std::string& name) {
    if (tagrix::WriteTags(context, fields, folder.path + tagrix::Widen(name), true, true)) ++written;
  });
  const std::size_t peak = tagrix::PeakMemoryKib();
  std::printf("kib %zu\n", peak > idle ? peak - idle : 0);
  return written == names.size() && fakes.prompts.messages.empty() ? 0 : 1;
}
