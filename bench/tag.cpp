// tag FOLDER: WriteTags, both tags, of every MP3 file; then the memory that it took beyond what was there before.
#include "bench/disk_context.h"
#include "core/text.h"
#include "tags/id3tag.h"

int main(int, char** arguments) {
  tagrix::DiskContext disk(arguments[1]);
  const tagrix::TagFields fields{L"A title", L"7", L"An artist", L"An album", L"1974", L"A comment", L"Rock"};
  const auto names = tagrix::Mp3Names(arguments[1]);
  const std::size_t idle = tagrix::MemoryKib();
  std::size_t written = 0;
  tagrix::TimeEach(names, [&](const std::string& name) {
    if (tagrix::WriteTags(disk.context, fields, disk.folder.path + tagrix::Widen(name), true, true)) ++written;
  });
  const std::size_t peak = tagrix::PeakMemoryKib();
  std::printf("kib %zu\n", peak > idle ? peak - idle : 0);
  return written == names.size() && disk.fakes.prompts.messages.empty() ? 0 : 1;
}
