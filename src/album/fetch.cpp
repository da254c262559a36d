#include "album/fetch.h"

#include <string>

#include "album/file_list.h"
#include "album/search.h"
#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"
#include "freedb/cddb.h"

namespace tagrix {
namespace {

// Fills artist, album, year and `new_lst`. False when no record came; what was filled before stays then.
bool ReadDisc(AlbumPage& page, Context& context, HttpClient& http, int album) {
  page.new_lst.Clear();
  std::wstring url = CddbReadUrl(context.settings, page.categ_lst.ItemText(album), page.discid_lst.ItemText(album));
  const auto disc = ParseDiscRecord(http.GetWebSite(url));
  http.ErrorOccured();
  if (!disc) return false;
  const auto text = [&](const std::string& bytes) { return context.codePage.ToText(bytes); };
  page.artist_txt.SetText(text(disc->artist));
  page.album_txt.SetText(text(disc->album));
  page.year_txt.SetText(disc->year ? text(*disc->year) : CurrentYear(context));
  for (const DiscTrack& track : disc->tracks) page.new_lst.Add(text(track.title), track.frames);
  return true;
}

void ShowTracks(AlbumPage& page) {
  page.tracks_lst.Clear();
  std::vector<std::wstring> lines;
  lines.reserve(static_cast<size_t>(page.new_lst.Count()));
  for (int i = 0; i < page.new_lst.Count(); ++i) {
    lines.push_back(L"[" + TwoDigits(i + 1) + L"] " + page.new_lst.ItemText(i));
  }
  page.tracks_lst.Append(std::move(lines));
}

void OfferFakes(AlbumPage& page, Context& context) {
  const int missing = page.tracks_lst.Count() - page.mp3_lst.Count();
  if (missing <= 0 || !context.prompts.Question(context.Text(message::kOfferFakes))) return;
  AddFakes(page, missing);
}

}  // namespace

void FetchAlbum(AlbumPage& page, Context& context, HttpClient& http) {
  const int album = page.resalb_lst.SelectedIndex();
  if (album < 0) return;
  const RestoreOnFailure restore{&page.fetch_btn, &page.go_btn, &page.more_btn};
  context.cancelled = false;
  for (Button* button : {&page.fetch_btn, &page.apply_btn, &page.go_btn, &page.more_btn}) button->SetEnabled(false);
  SetStatus(context, kContacting);
  if (ReadDisc(page, context, http, album)) {
    page.apply_btn.SetEnabled(true);
    page.genre_txt.SetText(page.categ_lst.ItemText(album));
    ShowTracks(page);
    OfferFakes(page, context);
  } else {
    context.prompts.Message(context.Text(message::kReadFailed));
  }
  SetStatus(context, L"");
  for (Button* button : {&page.fetch_btn, &page.more_btn, &page.go_btn}) button->SetEnabled(true);
}

}  // namespace tagrix
