// Writing tags by the standard into an audio file: whatever its tags hold, the sound stays as it is, the old frames are
// among the new ones, and writing the same again changes nothing. A journal from anywhere changes no file by itself.
#include <algorithm>
#include <cassert>
#include <cstdint>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "tags/standard_id3v2.h"
#include "tags/standard_tags.h"
#include "tags/tag_layout.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m\\a.mp3";
constexpr const wchar_t* kJournal = L"C:\\m\\tagrix.journal";

StandardWritten Write(TestContext& test, const std::wstring& title) {
  const TagFields fields{title, L"1", L"Artist", L"Album", L"1974", L"Comment", L"Rock"};
  const TagPorts ports{test.files, test.codePage, {}};
  QuietProgress progress;
  TagJournal journal(test.files, L"C:\\m");
  const TagOutlook outlook = LookAtTags(ports, fields, kPath, true, true);
  if (!outlook.patches.empty()) journal.Add({L"a.mp3", outlook.patches});
  journal.Save();
  return WriteStandardTags(ports, fields, kPath, true, true, journal, progress);
}

// The bytes that are no tag of ours, and the frames that are kept.
std::vector<std::string> Look(TestContext& test) {
  const std::string content = test.files.Content(kPath);
  const auto file = test.files.OpenForReading(kPath);
  const TagLayout layout = LocateTags(*file);
  std::vector<std::string> tags = ReadSpans(*file, layout.leading);
  for (const std::string& tag : ReadSpans(*file, layout.appended)) tags.push_back(tag);
  const Id3v2Frames frames = ReadId3v2Frames(std::move(tags));
  std::vector<std::string> seen(1);
  std::uint64_t from = layout.Sound();
  for (const TagSpan& gone : layout.appended) {
    seen[0] += content.substr(from, gone.begin - from);
    from = gone.end;
  }
  seen[0] += content.substr(from, layout.End() - from);
  for (const Id3v2Frame& frame : frames.frames) {
    if (!IsReplaced(frame, frames.version)) seen.push_back(frame.id + std::string(frame.data));
  }
  return seen;
}

void WriteTwice(const std::string& content) {
  TestContext test;
  test.files.Put(kPath, content);
  const auto before = Look(test);
  if (!Write(test, L"Title").written) {
    assert(test.files.Content(kPath) == content);
    return;
  }
  const std::string once = test.files.Content(kPath);
  assert(Look(test) == before);
  assert(Write(test, L"Title").aside.empty() && test.files.Content(kPath) == once);
  Write(test, L"T\x4E00");
  assert(Look(test) == before && test.files.AllFiles().size() == 1);
}

void ReadJournal(const std::string& journal) {
  TestContext test;
  test.files.Put(kPath, journal);
  test.files.Put(kJournal, journal);
  RecoverTags(test.files, L"C:\\m");
  assert(!test.files.Has(kJournal) && test.files.Content(kPath).size() >= journal.size());
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string content(reinterpret_cast<const char*>(data), size);
  if (content.starts_with("TagrixJ1")) {
    ReadJournal(content);
  } else {
    WriteTwice(content);
  }
  return 0;
}

}  // namespace tagrix
