// tag_album FOLDER TITLE [ARTIST]: applies an album to the folder, both tags by the standard; the title of each file is
// TITLE and its number. Texts are UTF-8. Prints the time, and the bytes written for all files together.
#include "base/text.h"
#include "base/utf8.h"
#include "bench/machine.h"
#include "fakes/fakes.h"
#include "fakes/quiet_progress.h"
#include "session/apply.h"

namespace tagrix {
namespace {

// Counts what is written.
class CountedFile : public File {
 public:
  CountedFile(std::unique_ptr<File> file, std::uint64_t& written) : file_(std::move(file)), written_(written) {}
  std::uint64_t Size() override { return file_->Size(); }
  std::size_t Read(std::uint64_t offset, char* buffer, std::size_t count) override {
    return file_->Read(offset, buffer, count);
  }
  void Write(std::uint64_t offset, std::string_view bytes) override {
    written_ += bytes.size();
    file_->Write(offset, bytes);
  }
  void Flush() override { file_->Flush(); }

 private:
  std::unique_ptr<File> file_;
  std::uint64_t& written_;
};

class CountedFiles : public Files {
 public:
  explicit CountedFiles(Files& files) : files_(files) {}
  std::uint64_t Written() const { return written_; }

  std::optional<FileInfo> Find(const std::wstring& path) override { return files_.Find(path); }
  std::unique_ptr<File> OpenForReading(const std::wstring& path) override { return files_.OpenForReading(path); }
  std::unique_ptr<File> OpenForWriting(const std::wstring& path) override {
    return std::make_unique<CountedFile>(files_.OpenForWriting(path), written_);
  }
  std::unique_ptr<File> Create(const std::wstring& path) override {
    return std::make_unique<CountedFile>(files_.Create(path), written_);
  }
  void Rename(const std::wstring& from, const std::wstring& to) override { files_.Rename(from, to); }
  void Replace(const std::wstring& from, const std::wstring& over) override { files_.Replace(from, over); }
  void Delete(const std::wstring& path) override { files_.Delete(path); }
  void CreateFolder(const std::wstring& path) override { files_.CreateFolder(path); }
  void List(const std::wstring& folder, const std::wstring& pattern,
            const std::function<bool(const FileInfo&)>& entry) override {
    files_.List(folder, pattern, entry);
  }
  std::vector<std::wstring> Drives() override { return files_.Drives(); }
  bool HasVolumeLabel(const std::wstring& drive) override { return files_.HasVolumeLabel(drive); }
  std::wstring MusicFolder() override { return files_.MusicFolder(); }
  std::wstring DesktopFolder() override { return files_.DesktopFolder(); }

 private:
  Files& files_;
  std::uint64_t written_ = 0;
};

struct Watcher : ApplyWatcher {
  void Tell(const Incident& incident) override {
    const std::string name = ToUtf8(incident.name), target = ToUtf8(incident.target);
    std::fprintf(stderr, "incident %d: %s %s\n", static_cast<int>(incident.trouble), name.c_str(), target.c_str());
    good = good && incident.trouble == Trouble::KeptAside;
  }
  void NameChanged(int) override {}
  bool MayReplacePlaylist(const std::wstring&) override { return true; }
  std::optional<TagStyle> ChooseTagStyle(const TagStyleReasons&) override { return TagStyle::Standard; }
  bool good = true;
};

int TagAlbum(const std::filesystem::path& path, std::string_view title, std::string_view artist) {
  const RealFolder drive = OpenFolder(path.parent_path());
  CountedFiles files(*drive.files);
  FakeCodePage codePage;
  QuietProgress progress;
  Watcher watcher;
  AlbumSession session;
  session.folder = drive.path + Widen(path.filename().string());
  session.files = ReadAlbumFolder(files, session.folder, session.format);
  session.disc = {FromUtf8(artist).value(), L"An album", L"Rock", L"1974", {}};
  for (int i = 1; i <= FileCount(session); ++i) {
    session.disc.tracks.push_back({FromUtf8(title).value() + L" " + std::to_wstring(i)});
  }
  ApplyOrder order;
  order.id3v1 = order.id3v2 = true;
  order.tagStyle = TagStyle::Standard;
  bool whole = false;
  Time("milliseconds", [&] { whole = Apply(session, order, {files, codePage, {}}, progress, watcher); });
  std::printf("bytes %llu\n", static_cast<unsigned long long>(files.Written()));
  return whole && watcher.good ? 0 : 1;
}

}  // namespace
}  // namespace tagrix

int main(int count, char** arguments) {
  return tagrix::TagAlbum(arguments[1], arguments[2], count > 3 ? arguments[3] : "An artist");
}
