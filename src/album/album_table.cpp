#include "album/album_table.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "base/text.h"
#include "core/dispatch.h"
#include "core/messages.h"
#include "session/album_lengths.h"
#include "views/comparison_table.h"

namespace tagrix {
namespace {

std::wstring NewNameCell(AlbumPage& page, Context& context, int i) {
  const auto at = static_cast<std::size_t>(i);
  if (at < page.outcomes.size() && !page.outcomes[at].empty()) return page.outcomes[at];
  if (!page.ren_chk.On()) return {};
  if (!page.names) {
    page.names.emplace(page.session, context.files, context.settings.Get(setting::kPattern),
                       std::to_wstring(context.clock.CurrentYear()));
  }
  const std::optional<PlannedName>& planned = page.names->At(i);
  if (!planned) return {};
  switch (planned->trouble) {
    case NameTrouble::None:
      break;
    case NameTrouble::Taken:
      return kDoubtSign + context.Text(message::kNameTaken) + L": " + planned->name;
    case NameTrouble::TooLong:
      return kDoubtSign + context.Text(message::kPathTooLong) + L": " + planned->name;
    case NameTrouble::Empty:
      return kDoubtSign + context.Text(message::kNoNewName);
  }
  return planned->name;
}

ComparedRow RowAt(const AlbumPage& page, int i) {
  const auto at = static_cast<std::size_t>(i);
  return {at < page.session.files.size() ? page.session.files[at].name : std::wstring(),
          i < page.tracks_lst.Count() ? page.tracks_lst.ItemText(i) : std::wstring(), KnownPlaceAt(page.session, i)};
}

void ShowVerdict(AlbumPage& page, Context& context) {
  const Diagnosis diagnosis = Diagnose(KnownPlacesOf(page.session));
  page.verdict_lbl.SetText(diagnosis.verdict == Verdict::Nothing ? std::wstring() : VerdictText(context, diagnosis));
}

}  // namespace

void InitAlbumTable(AlbumPage& page, Context& context) {
  ShowComparison(
      page.mp3_lst, context, [&](int i) { return RowAt(page, i); },
      [&](int i) { return NewNameCell(page, context, i); });
  // Before there is a disc no file can be one too many.
  page.mp3_lst.mark = [&page, mark = page.mp3_lst.mark](int i) {
    const RowMark known = mark(i);
    return TrackCount(page.session) == 0 && known == RowMark::Doubtful ? RowMark::None : known;
  };
  page.mp3_lst.doubleClicked = [&](int i) {
    if (i < page.tracks_lst.Count()) page.tracks_lst.DoubleClickItem(i);
  };
  page.tableChanged = [&] { ShowVerdict(page, context); };
  const auto edited = Notice(context, [&] {
    TakeFields(page);
    RefreshTable(page);
  });
  for (TextBox* field : {&page.artist_txt, &page.album_txt, &page.year_txt, &page.genre_txt}) field->edited = edited;
  page.ren_chk.clicked = Notice(context, [&] { RefreshTable(page); });
}

void TranslateAlbumTable(AlbumPage& page, Context& context) {
  SetComparisonColumns(page.mp3_lst, context, true);
  ShowVerdict(page, context);
  RefreshTable(page);
}

void ShowTable(AlbumPage& page) {
  ListBox& table = page.mp3_lst;
  const std::vector<AlbumFile>& files = page.session.files;
  const int count = std::max(FileCount(page.session), TrackCount(page.session));
  const auto name = [&](int i) {
    const auto at = static_cast<std::size_t>(i);
    return at < files.size() ? files[at].name : std::wstring();
  };
  if (table.Count() > count) table.Clear();
  int i = 0;
  for (; i < table.Count(); ++i) table.SetItemText(i, name(i));
  std::vector<std::wstring> more;
  for (; i < count; ++i) more.push_back(name(i));
  table.Append(std::move(more));
  RefreshTable(page);
  if (page.tableChanged) page.tableChanged();
}

void RefreshTable(AlbumPage& page) {
  page.names.reset();
  page.outcomes.clear();
  page.mp3_lst.Refresh();
}

void TakeFields(AlbumPage& page) {
  Disc& disc = page.session.disc;
  disc.artist = page.artist_txt.Text();
  disc.album = page.album_txt.Text();
  disc.year = page.year_txt.Text();
  disc.genre = page.genre_txt.Text();
}

void MeasureLengths(AlbumPage& page, Context& context, Progress& progress) {
  MeasureUnknown(page.session, context.files, progress, [&](int file, int count) {
    progress.Status(FillMessage(context.Text(message::kMeasuring), {std::to_wstring(file), std::to_wstring(count)}));
  });
  page.mp3_lst.Refresh();
  if (page.tableChanged) page.tableChanged();
}

}  // namespace tagrix
