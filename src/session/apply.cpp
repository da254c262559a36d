#include "session/apply.h"

#include <cstdint>
#include <utility>

#include "base/file_names.h"
#include "base/letter_case.h"
#include "base/paths.h"
#include "base/text.h"
#include "session/name_plan.h"
#include "session/rename_pattern.h"
#include "storage/m3u.h"
#include "storage/small_files.h"
#include "tags/standard_tags.h"
#include "tags/tag_journal.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kComment = L"Tagged By Tagrix";

// One run over the files of a session.
class Run {
 public:
  Run(AlbumSession& session, const ApplyOrder& order, const TagPorts& ports, Progress& progress, ApplyWatcher& watcher)
      : session_(session),
        order_(order),
        ports_(ports),
        progress_(progress),
        watcher_(watcher),
        journal_(ports.files, session.folder) {}

  bool Whole() {
    RecoverTags(ports_.files, session_.folder);
    CompleteDisc();
    if (!ChooseStyle()) return false;
    RecordNames();
    const int count = FileCount(session_);
    for (int i = 0; i < count; ++i) {
      if (!Next(i, session_.files[Index(i)].name)) return false;
      if (!IsApplied(i)) continue;
      ApplyFile(i);
      watcher_.FileDone(i);
    }
    if (!Next(count, {})) return false;
    if (order_.playlist) WritePlaylist();
    return true;
  }

 private:
  static std::size_t Index(int i) { return static_cast<std::size_t>(i); }

  void RecordNames() {
    session_.journal.Clear();
    for (const AlbumFile& file : session_.files) session_.journal.Record(file.name);
  }

  void CompleteDisc() {
    Disc& disc = session_.disc;
    disc.album = Trim(disc.album);
    if (!disc.year || !IsYear(*disc.year)) disc.year = order_.currentYear;
  }

  // Says which file comes next and lets pending events run. False when the user has cancelled.
  bool Next(int i, const std::wstring& name) {
    progress_.Status(name.empty() ? order_.status : order_.status + L" " + name);
    progress_.Percent(Percentage(i, FileCount(session_)));
    progress_.LetEventsRun();
    return !progress_.Cancelled();
  }

  bool IsApplied(int i) const { return !session_.files[Index(i)].fake && i < TrackCount(session_); }

  // Finds out which files are written by the standard, and saves what is overwritten in them. False when the user
  // cancelled.
  bool ChooseStyle() {
    const int count = FileCount(session_);
    byStandard_.assign(Index(count), false);
    std::optional<TagStyle> style = order_.tagStyle;
    if ((!order_.id3v1 && !order_.id3v2) || style == TagStyle::Classic) return true;
    TagStyleReasons reasons;
    std::vector<PatchedFile> patched;
    for (int i = 0; i < count; ++i) {
      if (!IsApplied(i)) continue;
      const std::wstring& name = session_.files[Index(i)].name;
      progress_.Percent(Percentage(i, count));
      progress_.Pass(name);
      if (progress_.Cancelled()) return false;
      byStandard_[Index(i)] = LookAt(i, reasons, patched);
    }
    if (!style && reasons != TagStyleReasons()) {
      style = watcher_.ChooseTagStyle(reasons);
      if (!style) return false;
      if (style == TagStyle::Classic) byStandard_.assign(Index(count), false);
    }
    if (style == TagStyle::Standard) SaveOverwritten(std::move(patched));
    return true;
  }

  // Whether the file is to be written by the standard. Where that can't be seen it is: nothing gets lost.
  bool LookAt(int i, TagStyleReasons& reasons, std::vector<PatchedFile>& patched) const {
    const std::wstring& name = session_.files[Index(i)].name;
    try {
      TagOutlook outlook = LookAtTags(ports_, FieldsOf(i), AlbumPath(session_, name), order_.id3v1, order_.id3v2);
      if (!outlook.concerns.Any()) return false;
      CountReasons(outlook.concerns, reasons);
      if (!outlook.patches.empty()) patched.push_back({name, std::move(outlook.patches)});
    } catch (const Failure&) {
    }
    return true;
  }

  static void CountReasons(const TagConcerns& concerns, TagStyleReasons& reasons) {
    reasons.dropsFrames += concerns.dropsFrames ? 1 : 0;
    reasons.oldTag += concerns.oldTag ? 1 : 0;
    reasons.longText += concerns.longText ? 1 : 0;
    reasons.foreignText += concerns.foreignText ? 1 : 0;
    reasons.overwritesEnd += concerns.overwritesEnd ? 1 : 0;
  }

  void SaveOverwritten(std::vector<PatchedFile> patched) {
    for (PatchedFile& file : patched) journal_.Add(std::move(file));
    journal_.Save();
  }

  void ApplyFile(int i) {
    const AlbumFile& file = session_.files[Index(i)];
    if (const auto found = ports_.files.Find(AlbumPath(session_, file.name)); found && found->readOnly) {
      watcher_.Tell({Trouble::ReadOnly, file.name});
      return;
    }
    if (order_.id3v1 || order_.id3v2) WriteFileTags(i);
    if (order_.rename && !journal_.HalfWritten(file.name)) RenameByPattern(i);
  }

  TagFields FieldsOf(int i) const {
    const Disc& disc = session_.disc;
    return {.title = WithoutControls(disc.tracks[Index(i)].title),
            .track = std::to_wstring(i + 1),
            .artist = Trim(WithoutControls(disc.artist)),
            .album = WithoutControls(disc.album),
            .year = *disc.year,
            .comment = kComment,
            .genre = Trim(WithoutControls(disc.genre))};
  }

  void WriteFileTags(int i) {
    const std::wstring name = session_.files[Index(i)].name, path = AlbumPath(session_, name);
    try {
      const bool written = byStandard_[Index(i)]
                               ? WriteByStandard(i, name, path)
                               : WriteTags(ports_, FieldsOf(i), path, order_.id3v1, order_.id3v2, progress_);
      if (!written) watcher_.Tell({Trouble::TagsNotWritten, name});
    } catch (const Failure& failure) {
      const bool inPlace = failure.Tried() == Action::Replace;
      watcher_.Tell({inPlace ? Trouble::NotReplaced : Trouble::TagsNotWritten, name, path, &failure});
    }
  }

  bool WriteByStandard(int i, const std::wstring& name, const std::wstring& path) {
    const auto [written, aside] =
        WriteStandardTags(ports_, FieldsOf(i), path, order_.id3v1, order_.id3v2, journal_, progress_);
    std::wstring fields;
    for (const std::string& field : aside) fields += (fields.empty() ? L"" : L", ") + Widen(field);
    if (!fields.empty()) watcher_.Tell({Trouble::KeptAside, name, fields});
    return written;
  }

  void RenameByPattern(int i) {
    AlbumFile& file = session_.files[Index(i)];
    const std::wstring name = NewFileName(session_, i, order_.renamePattern, order_.currentYear);
    const std::wstring target = AlbumPath(session_, name);
    if (name == file.name) return;
    switch (IsNoName(session_, name) ? Renamed::Failed
                                     : TryRename(ports_.files, AlbumPath(session_, file.name), target)) {
      case Renamed::Done: {
        const auto found = ports_.files.Find(target);
        file.name = found ? found->name : name;
        watcher_.NameChanged(i);
        break;
      }
      case Renamed::Taken:
        watcher_.Tell({Trouble::NameTaken, file.name, name});
        break;
      case Renamed::Failed:
        watcher_.Tell({Trouble::NotRenamed, file.name, target});
    }
  }

  std::wstring PlaylistFolder() const {
    const std::wstring& chosen = order_.playlistMode.folder;
    // A folder directly below a drive keeps its playlist: the program puts none into a root.
    if (order_.playlistMode.place == 1 && Split(session_.folder, L"\\").size() >= 3) {
      return std::wstring(FolderPart(session_.folder));
    }
    if (order_.playlistMode.place == 2 && FolderExists(ports_.files, chosen)) return chosen;
    return session_.folder;
  }

  // The album's folder lends its name when the pattern makes none.
  std::wstring PlaylistName() const {
    const Disc& disc = session_.disc;
    std::wstring name = ExpandPattern(order_.playlistPattern, disc.artist, disc.album, 0, {}, *disc.year, disc.genre);
    if (Trim(name).empty()) name = CleanAndTrimFileName(FileNamePart(session_.folder));
    return name;
  }

  void WritePlaylist() {
    const std::wstring folder = PlaylistFolder();
    std::wstring lines;
    for (const AlbumFile& file : session_.files) {
      if (!file.fake) lines += PlaylistLine(AlbumPath(session_, file.name), folder);
    }
    const bool utf8 = !InCodePage(ports_.codePage, lines);
    const std::wstring name = PlaylistFileName(PlaylistName(), utf8), target = WithBackslash(folder) + name;
    if (FileExists(ports_.files, target) && !watcher_.MayReplacePlaylist(target)) return;
    WritePlaylistFile(ports_.files, ports_.codePage, target, lines, utf8);
    if (utf8) watcher_.Tell({Trouble::PlaylistInUtf8, name});
    watcher_.PlaylistWritten(target);
  }

  AlbumSession& session_;
  const ApplyOrder& order_;
  const TagPorts& ports_;
  Progress& progress_;
  ApplyWatcher& watcher_;
  TagJournal journal_;
  std::vector<bool> byStandard_;  // by file
};

class UndoneFiles : public UndoList {
 public:
  UndoneFiles(AlbumSession& session, Files& files, ApplyWatcher& watcher)
      : session_(session), files_(files), watcher_(watcher) {}

  int Count() const override { return FileCount(session_); }
  std::wstring Path(int i) const override {
    const AlbumFile& file = session_.files[static_cast<std::size_t>(i)];
    return file.fake ? std::wstring() : AlbumPath(session_, file.name);
  }
  std::wstring PathOf(const std::wstring& former) const override { return AlbumPath(session_, former); }
  void Restored(int i, const std::wstring& former) override {
    const auto found = files_.Find(PathOf(former));
    session_.files[static_cast<std::size_t>(i)].name = found ? found->name : former;
    watcher_.NameChanged(i);
  }
  void Kept(int i, const std::wstring& formerPath, Renamed result) override {
    watcher_.Tell({result == Renamed::Taken ? Trouble::NameTaken : Trouble::NotRenamed, Path(i), formerPath});
  }

 private:
  AlbumSession& session_;
  Files& files_;
  ApplyWatcher& watcher_;
};

}  // namespace

bool Apply(AlbumSession& session, const ApplyOrder& order, const TagPorts& ports, Progress& progress,
           ApplyWatcher& watcher) {
  return Run(session, order, ports, progress, watcher).Whole();
}

Undone UndoApply(AlbumSession& session, Files& files, Progress& progress, ApplyWatcher& watcher) {
  UndoneFiles list(session, files, watcher);
  return UndoRenames(files, session.journal, list, progress);
}

}  // namespace tagrix
