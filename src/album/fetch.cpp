#include "album/fetch.h"

#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "album/album_table.h"
#include "album/file_list.h"
#include "album/source_notices.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/trackedit.h"

namespace tagrix {
namespace {

void ShowDisc(AlbumPage& page, Context& context) {
  const Disc& disc = page.session.disc;
  page.artist_txt.SetText(disc.artist);
  page.album_txt.SetText(disc.album);
  page.year_txt.SetText(disc.year ? *disc.year : std::to_wstring(context.clock.CurrentYear()));
  page.genre_txt.SetText(disc.genre);
  std::vector<std::wstring> lines;
  lines.reserve(disc.tracks.size());
  for (int i = 0; i < TrackCount(page.session); ++i) lines.push_back(TrackLine(page.session, i));
  page.tracks_lst.Clear();
  page.tracks_lst.Append(std::move(lines));
  ShowTable(page);
}

void OfferFakes(AlbumPage& page, Context& context) {
  const int missing = TrackCount(page.session) - FileCount(page.session);
  if (missing <= 0 || !context.prompts.Question(context.Text(message::kOfferFakes))) return;
  AddFakes(page, missing);
}

// Without a record nothing of the former one is left to be applied.
void ReadDisc(AlbumPage& page, Context& context, const NamedSource& asked, const DiscHit& hit, Progress& progress) {
  page.session.disc.tracks.clear();
  page.tracks_lst.Clear();
  ShowTable(page);
  page.apply_btn.SetEnabled(false);
  std::optional<Disc> disc;
  const SourceReply reply = asked.source.Read(hit, disc, progress);
  if (!disc) return ShowNoAnswer(context, asked.name, reply, context.Text(message::kReadFailed));
  page.session.disc = std::move(*disc);
  page.settled = false;
  ShowDisc(page, context);
  page.apply_btn.SetEnabled(true);
  MeasureLengths(page, context, progress);
  OfferFakes(page, context);
}

}  // namespace

void FetchAlbum(AlbumPage& page, Context& context, const SourceList& sources) {
  const int album = page.resalb_lst.SelectedIndex();
  if (album < 0) return;
  {
    LongWork work(context, {&page.fetch_btn, &page.go_btn, &page.more_btn});
    const NamedSource& asked = SourceCalled(sources, page.session.source);
    work.Status(Contacting(context, asked.name));
    ReadDisc(page, context, asked, page.session.hits.at(static_cast<std::size_t>(album)), work);
  }
  page.more_btn.SetEnabled(true);
}

void EditTrack(AlbumPage& page, Context& context) {
  const int i = page.tracks_lst.SelectedIndex();
  if (i < 0 || !EditTrackName(context, page.session.disc.tracks.at(static_cast<std::size_t>(i)))) return;
  page.tracks_lst.SetItemText(i, TrackLine(page.session, i));
  RefreshTable(page);
}

}  // namespace tagrix
