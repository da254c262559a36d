#include "album/search.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

#include "album/file_list.h"
#include "core/dispatch.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"
#include "dialogs/ask_query.h"
#include "freedb/search_page.h"

namespace tagrix {
namespace {

void ClearResults(AlbumPage& page) {
  for (Button* button : {&page.apply_btn, &page.go_btn, &page.fetch_btn}) button->SetEnabled(false);
  for (ListBox* list : {&page.discid_lst, &page.categ_lst, &page.resalb_lst}) list->Clear();
  InitResFrm(page);
}

// Events run between batches, so that the window goes on answering while a page of a million links is listed.
void ListHits(AlbumPage& page, Context& context, std::string_view web) {
  constexpr int kBatch = 4096;  // links
  LinkScanner scanner(web, context.codePage.ToBytes(RecordMarker()));
  auto link = scanner.Next();
  while (link && !context.cancelled) {
    std::vector<std::wstring> categories, discIds, titles;
    for (int i = 0; i < kBatch && link; ++i, link = scanner.Next()) {
      const auto hit = DecodeHit(*link);
      if (!hit) continue;
      categories.push_back(context.codePage.ToText(hit->category));
      discIds.push_back(context.codePage.ToText(hit->discId));
      titles.push_back(context.codePage.ToText(hit->title));
    }
    page.categ_lst.Append(std::move(categories));
    page.discid_lst.Append(std::move(discIds));
    page.resalb_lst.Append(std::move(titles));
    context.events.DoEvents();
  }
}

void FetchHits(AlbumPage& page, Context& context, HttpClient& http, std::wstring_view words) {
  SetStatus(context, kContacting);
  std::wstring url = SearchUrl(words);
  ListHits(page, context, http.GetWebSite(url));
  const bool found = page.resalb_lst.Count() > 0;
  page.fetch_btn.SetEnabled(found);
  if (!found) context.prompts.Message(context.Text(message::kNothingFound));
  http.ErrorOccured();
  SetStatus(context, L"");
}

}  // namespace

void GoClicked(AlbumPage& page, Context& context, HttpClient& http) {
  SetBusy(context, true);
  if (page.mp3_lst.Count() == 0) {
    context.prompts.Message(context.Text(message::kNoFiles));
  } else {
    SearchAlbums(page, context, http, false);
  }
}

void MoreClicked(AlbumPage& page, Context& context, HttpClient& http) {
  SearchAlbums(page, context, http, true);
  page.more_btn.SetEnabled(false);
}

void SearchAlbums(AlbumPage& page, Context& context, HttpClient& http, bool orMode) {
  // A failure leaves no album to apply or to retrieve; a new search can always start.
  const RestoreOnFailure restore{&page.go_btn};
  page.more_btn.SetEnabled(false);
  if (!orMode && page.apply_btn.Enabled() && !context.prompts.Question(context.Text(message::kDiscardAlbum))) return;
  SetBusy(context, true);
  context.cancelled = false;
  http.ResetReceivedCount();
  ClearResults(page);
  if (orMode) {
    page.query_txt.SetText(Replace(page.query_txt.Text(), L" ", L" OR "));
  } else {
    AskForWords(context, page.path_txt.Text(), page.query_txt);
  }
  if (const std::wstring words = Trim(page.query_txt.Text()); !words.empty()) {
    FetchHits(page, context, http, words);
    page.more_btn.SetEnabled(!orMode);
  }
  page.go_btn.SetEnabled(true);
  SetBusy(context, false);
}

}  // namespace tagrix
