#include "album/search.h"

#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "album/file_list.h"
#include "album/source_notices.h"
#include "base/text.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "dialogs/ask_query.h"

namespace tagrix {
namespace {

void ClearResults(AlbumPage& page) {
  for (Button* button : {&page.apply_btn, &page.fetch_btn}) button->SetEnabled(false);
  page.session.hits.clear();
  page.resalb_lst.Clear();
  InitResFrm(page);
}

void FetchHits(AlbumPage& page, Context& context, const NamedSource& asked, bool any, Progress& progress) {
  progress.Status(Contacting(context, asked.name));
  const SourceReply reply = asked.source.Search(
      {page.session.words, any},
      [&](std::vector<DiscHit> hits) {
        std::vector<std::wstring> titles;
        titles.reserve(hits.size());
        for (const DiscHit& hit : hits) titles.push_back(hit.title);
        page.resalb_lst.Append(std::move(titles));
        std::move(hits.begin(), hits.end(), std::back_inserter(page.session.hits));
      },
      progress);
  const bool found = !page.session.hits.empty();
  page.fetch_btn.SetEnabled(found);
  ShowHitCount(page, context);
  if (found) {
    page.resalb_lst.SelectOnly(0);  // the way goes on from it, by Enter, too
    page.resalb_lst.TakeFocus();
  }
  if (reply.answer != Answer::Given) {
    ShowNoAnswer(context, asked.name, reply, FillMessage(context.Text(message::kNoDiscAnswer), {asked.name}));
  } else if (!found) {
    context.prompts.Message(context.Text(message::kNothingFound));
  }
}

}  // namespace

void GoClicked(AlbumPage& page, Context& context, const SourceList& sources) {
  SetBusy(context, true);
  if (page.session.files.empty()) {
    context.prompts.Message(context.Text(message::kNoFiles));
  } else {
    SearchAlbums(page, context, sources, false);
  }
}

void MoreClicked(AlbumPage& page, Context& context, const SourceList& sources) {
  SearchAlbums(page, context, sources, true);
  page.more_btn.SetEnabled(false);
}

void SearchAlbums(AlbumPage& page, Context& context, const SourceList& sources, bool orMode) {
  const bool wasMore = page.more_btn.Enabled();
  page.more_btn.SetEnabled(false);
  if (!orMode && page.apply_btn.Enabled() && !context.prompts.Question(context.Text(message::kDiscardAlbum))) return;
  if (!orMode && !AskForWords(context, page.session.folder, sources, page.session.words)) {
    page.more_btn.SetEnabled(wasMore);
    SetBusy(context, false);
    return;
  }
  LongWork work(context, {&page.go_btn});
  ClearResults(page);
  ShowHitCount(page, context);
  if (!orMode) page.session.source = context.settings.Get(setting::kSource);
  if (page.session.words.empty()) return;
  FetchHits(page, context, SourceCalled(sources, page.session.source), orMode, work);
  page.more_btn.SetEnabled(!orMode);
}

}  // namespace tagrix
