// Writing tags into an audio file: whatever it holds, only they change.
#include <cassert>
#include <cstdint>

#include "base/failure.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "tags/id3tag.h"
#include "tags/id3v2.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kPath = L"C:\\m\\a.mp3";
constexpr std::size_t kId3v1 = 128;  // bytes

void Write(TestContext& test, const std::string& content, bool id3v1, bool id3v2) {
  const TagFields fields{L"Title", L"1", L"Artist", L"Album", L"1974", L"Comment", L"Rock"};
  test.files.Put(kPath, content);
  const std::size_t old = id3v2 ? GetID3v2Size(test.files, kPath) : 0;
  QuietProgress progress;
  bool written = false;
  try {
    written = WriteTags({test.files, test.codePage, {}}, fields, kPath, id3v1, id3v2, progress);
  } catch (const Failure&) {
    assert(id3v1 && content.size() < kId3v1);
  }
  const std::string now = test.files.Content(kPath);
  assert(test.files.AllFiles().size() == 1 && (written || now == content));
  if (!written) return;

  const std::string tag = id3v2 ? BuildID3v2(fields, test.codePage) : "";
  assert(now.starts_with(tag));
  const std::string_view before = std::string_view(content).substr(old),
                         after = std::string_view(now).substr(tag.size());
  assert(after.size() == before.size());
  const std::size_t sound = before.size() - (id3v1 ? std::min(kId3v1, before.size()) : 0);
  assert(after.substr(0, sound) == before.substr(0, sound));
  assert(!id3v1 || before.size() < kId3v1 || after.substr(sound).starts_with("TAGTitle "));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static TestContext test;
  const std::string content(reinterpret_cast<const char*>(data), size);
  Write(test, content, true, true);
  Write(test, content, true, false);
  Write(test, content, false, true);
  return 0;
}

}  // namespace tagrix
