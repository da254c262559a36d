#include "album/apply.h"

#include <cstdint>
#include <string>

#include "album/session_run.h"
#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/m3u.h"
#include "core/messages.h"
#include "core/paths.h"
#include "core/rename_pattern.h"
#include "core/text.h"
#include "tags/id3tag.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kComment = L"Tagged By Tagrix";

std::wstring PatternSetting(Context& context, const wchar_t* name, std::wstring_view standard) {
  std::wstring pattern = context.settings.Get(name);
  return pattern.empty() ? std::wstring(standard) : pattern;
}

bool AnyOption(const AlbumPage& page) {
  return page.ren_chk.On() || page.pls_chk.On() || page.ID3v2_chk.On() || page.ID3v1_chk.On();
}

void WriteEntryTags(AlbumPage& page, Context& context, int i, const std::wstring& path) {
  TagFields fields;
  fields.title = page.new_lst.ItemText(i);
  fields.track = std::to_wstring(i + 1);
  fields.artist = Trim(page.artist_txt.Text());
  fields.album = Trim(page.album_txt.Text());
  fields.year = page.year_txt.Text();
  fields.comment = kComment;
  fields.genre = Trim(page.genre_txt.Text());
  if (!WriteTags(context, fields, path, page.ID3v1_chk.On(), page.ID3v2_chk.On())) {
    context.prompts.Message(context.Text(message::kTagsNotWritten));
  }
}

void RenameByPattern(AlbumPage& page, Context& context, int i) {
  const std::wstring expanded = ExpandPattern(RenamePattern(context), page.artist_txt.Text(), page.album_txt.Text(),
                                              static_cast<std::int16_t>(i + 1), page.new_lst.ItemText(i),
                                              page.year_txt.Text(), page.genre_txt.Text());
  const std::wstring base = CleanAndTrimFileName(expanded), name = base + L"." + ToLower(page.format);
  const std::wstring current = page.mp3_lst.ItemText(i);
  if (base.empty()) {
    ShowRenameFailure(context, EntryPath(page, name));
  } else if (name != current) {
    RenameEntry(page, context, i, name, FillMessage(context.Text(message::kApplyClash), {current, name}));
  }
}

void ApplyEntry(AlbumPage& page, Context& context, int i) {
  const std::wstring name = page.mp3_lst.ItemText(i), path = EntryPath(page, name);
  if (IsFakeTrack(name)) return;
  if (const auto found = context.files.Find(path); found && found->readOnly) {
    context.prompts.Message(FillMessage(context.Text(message::kReadOnly), {name}));
    return;
  }
  if (page.ID3v1_chk.On() || page.ID3v2_chk.On()) WriteEntryTags(page, context, i, path);
  if (page.ren_chk.On()) RenameByPattern(page, context, i);
}

// The setting "PlaylistMode": a digit, 1 for the parent folder and 2 for the folder that follows it.
std::wstring PlaylistFolder(Context& context, const std::wstring& albumFolder) {
  const std::wstring mode = context.settings.Get(L"PlaylistMode");
  const int place = LeadingInteger(mode.substr(0, 1));
  // A folder directly below a drive keeps its playlist: the program puts none into a root.
  if (place == 1 && Split(albumFolder, L"\\").size() >= 3) return std::wstring(FolderPart(albumFolder));
  if (place == 2 && FolderExists(context, mode.substr(1))) return mode.substr(1);
  return albumFolder;
}

// The album's folder lends its name when the pattern makes none.
std::wstring PlaylistName(AlbumPage& page, Context& context) {
  const std::wstring name = ExpandPattern(PlaylistPattern(context), page.artist_txt.Text(), page.album_txt.Text(), 0,
                                          {}, page.year_txt.Text(), page.genre_txt.Text());
  return Trim(name).empty() ? CleanAndTrimFileName(FileNamePart(page.path_txt.Text())) : name;
}

void WriteAlbumPlaylist(AlbumPage& page, Context& context) {
  const std::wstring folder = PlaylistFolder(context, page.path_txt.Text());
  const std::wstring target = WithBackslash(folder) + PlaylistName(page, context) + L".m3u";
  if (FileExists(context, target) && !context.prompts.Question(context.Text(message::kPlaylistExists))) return;
  std::wstring lines;
  for (int i = 0; i < page.mp3_lst.Count(); ++i) {
    const std::wstring& name = page.mp3_lst.ItemText(i);
    if (!IsFakeTrack(name)) lines += PlaylistLine(EntryPath(page, name), folder);
  }
  WritePlaylistFile(context, target, lines);
}

void RecordNames(AlbumPage& page) {
  page.undo_lst.Clear();
  for (int i = 0; i < page.mp3_lst.Count(); ++i) page.undo_lst.Add(page.mp3_lst.ItemText(i));
  page.undo_btn.SetEnabled(true);
}

void CompleteDisc(AlbumPage& page, Context& context) {
  page.album_txt.SetText(Trim(page.album_txt.Text()));
  if (!IsYear(page.year_txt.Text())) page.year_txt.SetText(CurrentYear(context));
}

// False when the user cancelled.
bool ApplySession(AlbumPage& page, Context& context) {
  const RestoreOnFailure restore{&page.go_btn, &page.fetch_btn, &page.apply_btn, &page.more_btn};
  SessionRun run(page, context);
  const auto enableSteps = [&](bool enabled) {
    for (Button* button : {&page.go_btn, &page.fetch_btn, &page.apply_btn, &page.more_btn}) button->SetEnabled(enabled);
  };
  enableSteps(false);
  RecordNames(page);
  CompleteDisc(page, context);
  bool all = true;
  const int count = page.mp3_lst.Count();
  for (int i = 0; i < count && all; ++i) {
    all = run.Next(i, context.Text(message::kApplying) + L" " + DoubleAmpersands(page.mp3_lst.ItemText(i)));
    if (all) ApplyEntry(page, context, i);
  }
  all = all && run.Next(count, context.Text(message::kApplying));
  if (all && page.pls_chk.On()) WriteAlbumPlaylist(page, context);
  enableSteps(true);
  return all;
}

}  // namespace

std::wstring RenamePattern(Context& context) { return PatternSetting(context, L"Pattern", kDefaultPattern); }
std::wstring PlaylistPattern(Context& context) { return PatternSetting(context, L"Playlist", kDefaultPlaylistPattern); }

void ApplyClicked(AlbumPage& page, Context& context) {
  if (!AnyOption(page)) {
    context.prompts.Message(context.Text(message::kNoOption));
  } else if (page.mp3_lst.Count() != page.new_lst.Count()) {
    context.prompts.Message(context.Text(message::kCountsDiffer));
  } else if (ApplySession(page, context)) {
    context.prompts.Message(context.Text(message::kDone));
  } else {
    ShowCancelMessage(context);
  }
}

}  // namespace tagrix
