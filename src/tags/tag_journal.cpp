#include "tags/tag_journal.h"

#include <algorithm>
#include <memory>
#include <optional>
#include <string_view>
#include <utility>

#include "base/failure.h"
#include "base/paths.h"
#include "base/utf8.h"
#include "storage/small_files.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kName = L"tagrix.journal";
constexpr std::string_view kJournalMark = "TagrixJ1";
constexpr std::size_t kChecksum = 8;  // bytes

// FNV-1a of 64 bits (RFC 9923): a journal that did not arrive whole on the disk has another one.
std::uint64_t Checksum(std::string_view bytes) {
  std::uint64_t sum = 0xCBF29CE484222325;
  for (const char c : bytes) sum = (sum ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return sum;
}

// Numbers have eight bytes, the lowest first; texts follow their length.
std::string NumberBytes(std::uint64_t number) {
  std::string bytes;
  for (int i = 0; i < 8; ++i, number >>= 8) bytes += static_cast<char>(number & 0xFF);
  return bytes;
}

std::string TextBytes(std::string_view text) { return NumberBytes(text.size()).append(text); }

class JournalReader {
 public:
  explicit JournalReader(std::string_view bytes) : rest_(bytes) {}
  bool Good() const { return good_; }

  std::string_view Bytes(std::uint64_t count) {
    good_ = good_ && count <= rest_.size();
    const std::string_view bytes = rest_.substr(0, good_ ? static_cast<std::size_t>(count) : 0);
    rest_.remove_prefix(bytes.size());
    return bytes;
  }
  std::uint64_t Number() {
    std::uint64_t number = 0;
    const std::string_view bytes = Bytes(8);
    for (std::size_t i = bytes.size(); i-- > 0;) number = number << 8 | static_cast<unsigned char>(bytes[i]);
    return number;
  }
  std::string Text() { return std::string(Bytes(Number())); }

 private:
  std::string_view rest_;
  bool good_ = true;
};

std::string JournalBytes(const std::vector<PatchedFile>& files) {
  std::string bytes = NumberBytes(files.size());
  for (const PatchedFile& file : files) {
    bytes += TextBytes(ToUtf8(file.name)) + NumberBytes(file.patches.size());
    for (const TagPatch& patch : file.patches) {
      bytes += NumberBytes(patch.offset) + TextBytes(patch.before) + TextBytes(patch.after);
    }
  }
  return std::string(kJournalMark) + NumberBytes(Checksum(bytes)) + bytes;
}

// Nothing unless all of it is there.
std::vector<PatchedFile> ParseJournal(std::string_view bytes) {
  JournalReader reader(bytes);
  std::vector<PatchedFile> files;
  if (reader.Bytes(kJournalMark.size()) != kJournalMark) return {};
  if (reader.Number() != Checksum(bytes.substr(std::min(bytes.size(), kJournalMark.size() + kChecksum)))) return {};
  for (std::uint64_t count = reader.Number(); count > 0 && reader.Good(); --count) {
    PatchedFile& file = files.emplace_back();
    file.name = FromUtf8(reader.Text()).value_or(std::wstring());
    for (std::uint64_t patches = reader.Number(); patches > 0 && reader.Good(); --patches) {
      TagPatch& patch = file.patches.emplace_back();
      patch.offset = reader.Number();
      patch.before = reader.Text();
      patch.after = reader.Text();
    }
  }
  return reader.Good() ? files : std::vector<PatchedFile>();
}

enum class State { Before, After, Between, Other };

// What of a patch the file holds now. Another file may bear the name meanwhile.
State StateOf(File& file, const TagPatch& patch) {
  std::string now(patch.before.size(), '\0');
  now.resize(file.Read(patch.offset, now.data(), now.size()));
  if (now == patch.before) return State::Before;
  if (now == patch.after) return State::After;
  if (now.size() != patch.before.size() || now.size() != patch.after.size()) return State::Other;
  for (std::size_t i = 0; i < now.size(); ++i) {
    if (now[i] != patch.before[i] && now[i] != patch.after[i]) return State::Other;
  }
  return State::Between;
}

bool WrittenInPart(File& file, const std::vector<TagPatch>& patches) {
  std::size_t finished = 0, untouched = 0;
  for (const TagPatch& patch : patches) {
    const State state = StateOf(file, patch);
    if (state == State::Other) return false;
    if (state == State::After) ++finished;
    if (state == State::Before) ++untouched;
  }
  return finished < patches.size() && untouched < patches.size();
}

void Write(File& file, const std::vector<TagPatch>& patches, std::string TagPatch::*bytes) {
  for (const TagPatch& patch : patches) file.Write(patch.offset, patch.*bytes);
  file.Flush();
}

void PutBack(Files& files, const std::wstring& folder, const PatchedFile& patched) {
  const std::wstring path = folder + patched.name;
  // Only files of this folder, whatever a journal says that came with it.
  if (patched.name.find_first_of(L"\\/:") != patched.name.npos || !FileExists(files, path)) return;
  if (!WrittenInPart(*files.OpenForReading(path), patched.patches)) return;
  Write(*files.OpenForWriting(path), patched.patches, &TagPatch::before);
}

}  // namespace

TagJournal::TagJournal(Files& files, std::wstring folder)
    : files_(files), path_(WithBackslash(std::move(folder)) + kName) {}

TagJournal::~TagJournal() {
  if (!saved_ || !halfWritten_.empty()) return;
  try {
    files_.Delete(path_);
  } catch (const Failure&) {
    // It stays; every file is finished, so that it will change nothing.
  }
}

void TagJournal::Save() {
  if (patched_.empty()) return;
  const std::unique_ptr<File> file = files_.Create(path_);
  saved_ = true;
  file->Write(0, JournalBytes(patched_));
  file->Flush();
}

std::vector<PatchedFile>::const_iterator TagJournal::FindFile(const std::wstring& name) const {
  return std::find_if(patched_.begin(), patched_.end(), [&](const PatchedFile& file) { return file.name == name; });
}

bool TagJournal::Knows(const std::wstring& name) const { return FindFile(name) != patched_.end(); }

bool TagJournal::Holds(const std::wstring& name, const std::vector<TagPatch>& patches) const {
  const auto file = FindFile(name);
  return saved_ && file != patched_.end() && file->patches == patches;
}

void TagJournal::Patch(File& file, const std::wstring& name) {
  const std::vector<TagPatch>& patches = FindFile(name)->patches;
  try {
    Write(file, patches, &TagPatch::after);
  } catch (const Failure&) {
    halfWritten_.push_back(name);
    Write(file, patches, &TagPatch::before);
    halfWritten_.pop_back();
    throw;
  }
}

bool TagJournal::HalfWritten(const std::wstring& name) const {
  return std::find(halfWritten_.begin(), halfWritten_.end(), name) != halfWritten_.end();
}

void RecoverTags(Files& files, const std::wstring& folder) {
  const std::wstring inside = WithBackslash(folder), path = inside + kName;
  if (!FileExists(files, path)) return;
  for (const PatchedFile& file : ParseJournal(ReadWholeFile(files, path))) PutBack(files, inside, file);
  files.Delete(path);
}

}  // namespace tagrix
