#include "tags/id3tag.h"

#include <algorithm>
#include <memory>
#include <string_view>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/paths.h"
#include "core/text.h"
#include "tags/id3v1.h"
#include "tags/id3v2.h"
#include "tags/tagged_file.h"

namespace tagrix {
namespace {

constexpr std::size_t kPiece = 1 << 20;  // what is copied at a time; at most 3 MiB
constexpr const wchar_t* kTemporaryName = L"temp";

// A new file beside the audio file, removed again unless it was put in place.
class Temporary {
 public:
  Temporary(Files& files, std::wstring path) : files_(files), path_(std::move(path)), file_(files.Create(path_)) {}
  ~Temporary() {
    file_.reset();
    if (placed_) return;
    try {
      files_.Delete(path_);
    } catch (const Failure&) {
      // The next rewrite in this folder takes it over.
    }
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  void Append(std::string_view bytes) {
    file_->Write(size_, bytes);
    size_ += bytes.size();
  }

  // Makes sure that all of it is on the disk.
  void Finish() {
    file_->Flush();
    if (file_->Size() != size_) throw Failure(L"Write", path_, L"The file is not complete.");
    file_.reset();
  }

  void Replace(const std::wstring& path) {
    files_.Replace(path_, path);
    placed_ = true;
  }

 private:
  Files& files_;
  std::wstring path_;
  std::unique_ptr<File> file_;
  std::uint64_t size_ = 0;
  bool placed_ = false;
};

bool CanBeTagged(Files& files, const std::wstring& path) {
  // A path to a file that is there, with a drive, needs no look at the drive.
  if (path.size() < 3 || path[1] != L':' || EqualIgnoringCase(FileNamePart(path), kTemporaryName)) return false;
  const auto found = files.Find(path);
  return found && !found->folder && !found->readOnly;
}

void ShowStep(Context& context, const wchar_t* step, const std::wstring& path) {
  SetStatus(context, step + DoubleAmpersands(Trim(path)));
  context.events.DoEvents();
}

// What replaces the last bytes of the file: with an old tag all but its mark, without one the mark, too.
std::string Id3v1Bytes(File& file, bool labelled, const std::string& record, const std::wstring& path) {
  const bool tagged = labelled && HasID3v1(file);
  std::string bytes = tagged ? record : std::string(kId3v1Mark) + record;
  if (file.Size() < bytes.size()) throw Failure(L"Write the ID3v1 tag", path, L"The file is too short.");
  return bytes;
}

// Copies what stands from `from` to before `to`, letting pending events run.
void Copy(Context& context, File& source, std::uint64_t from, std::uint64_t to, Temporary& target,
          const std::wstring& path) {
  if (from >= to) return;
  const auto longest = static_cast<std::size_t>(std::min<std::uint64_t>(kPiece, to - from));
  const auto piece = std::make_unique_for_overwrite<char[]>(longest);
  while (from < to) {
    const auto count = static_cast<std::size_t>(std::min<std::uint64_t>(longest, to - from));
    if (source.Read(from, piece.get(), count) != count) throw Failure(L"Copy", path, L"The file has become shorter.");
    target.Append({piece.get(), count});
    from += count;
    context.events.DoEvents();
  }
}

// Puts the new tag before what stands in the file from `oldTag` on, the last bytes replaced by `tail`. The header of
// the old tag is not counted in `oldTag`, so the last 10 bytes of the old tag stay: kept.
void Rewrite(Context& context, const std::wstring& path, std::unique_ptr<File> file, const std::string& newTag,
             std::uint64_t oldTag, std::string_view tail) {
  Temporary temporary(context.files, std::wstring(FolderPart(path)) + kTemporaryName);
  temporary.Append(newTag);
  const std::uint64_t end = file->Size() - tail.size();
  Copy(context, *file, oldTag, end, temporary, path);
  if (oldTag > end) tail.remove_prefix(static_cast<std::size_t>(oldTag - end));
  temporary.Append(tail);
  temporary.Finish();
  file.reset();
  try {
    temporary.Replace(path);
  } catch (const Failure&) {
    ShowRenameFailure(context, path);
  }
}

}  // namespace

bool WriteTags(Context& context, const TagFields& fields, const std::wstring& path, bool id3v1, bool id3v2) {
  if (!CanBeTagged(context.files, path)) return false;
  if (id3v1 || id3v2) {
    const bool labelled = OnLabelledVolume(context.files, path);
    std::unique_ptr<File> file = id3v2 ? context.files.OpenForReading(path) : context.files.OpenForWriting(path);
    const std::uint64_t oldTag = id3v2 && labelled ? GetID3v2Size(*file) : 0;
    if (oldTag > 0 && (oldTag >= kId3v2FirstByte || oldTag + kId3v2HeaderSize > file->Size())) return false;
    std::string tail;
    if (id3v1) {
      const std::string record = BuildID3v1(fields, context.styles, context.codePage);
      ShowStep(context, L"Updating ID3v1 : ", path);
      tail = Id3v1Bytes(*file, labelled, record, path);
      if (!id3v2) file->Write(file->Size() - tail.size(), tail);
    }
    if (id3v2) {
      ShowStep(context, L"Updating ID3v2 : ", path);
      Rewrite(context, path, std::move(file), BuildID3v2(fields, context.codePage), oldTag, tail);
    }
  }
  SetStatus(context, L"");
  return true;
}

}  // namespace tagrix
