#include "album/apply_album.h"

#include <algorithm>
#include <string>
#include <vector>

#include "album/album_table.h"
#include "album/apply_report.h"
#include "album/file_list.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "dialogs/ask_user.h"
#include "dialogs/autosort.h"
#include "session/album_lengths.h"
#include "session/apply.h"
#include "views/comparison_table.h"

namespace tagrix {
namespace {

ApplyOrder OrderOf(const AlbumPage& page, Context& context) {
  return {.rename = page.ren_chk.On(),
          .playlist = page.pls_chk.On(),
          .id3v1 = page.ID3v1_chk.On(),
          .id3v2 = page.ID3v2_chk.On(),
          .renamePattern = context.settings.Get(setting::kPattern),
          .playlistPattern = context.settings.Get(setting::kPlaylist),
          .playlistMode = ParsePlaylistMode(context.settings.Get(setting::kPlaylistMode)),
          .currentYear = std::to_wstring(context.clock.CurrentYear()),
          .status = context.Text(message::kApplying),
          .tagStyle = ParseTagStyle(context.settings.Get(setting::kTagStyle))};
}

bool Tagging(const ApplyOrder& order) { return order.id3v1 || order.id3v2; }

void ShowCompleted(AlbumPage& page) {
  page.album_txt.SetText(page.session.disc.album);
  page.year_txt.SetText(page.session.disc.year.value_or(std::wstring()));
}

// Whether the lengths speak against giving each file the title beside it.
bool SpeaksAgainst(const Diagnosis& diagnosis, const std::vector<Place>& places) {
  switch (diagnosis.verdict) {
    case Verdict::Nothing:
    case Verdict::Fits:
    case Verdict::FitsAsMeasured:
    case Verdict::TracksWithoutFile:
    case Verdict::FilesWithoutTrack:
      return false;
    case Verdict::PartlyFits:
      return std::any_of(places.begin(), places.end(), [](const Place& place) { return FitOf(place) == Fit::Wrong; });
    default:
      return true;
  }
}

enum class Doubt { Sort, Apply, Leave };

// Asks what to do when the lengths speak against the order; measures what isn't measured before.
Doubt AskAboutOrder(AlbumPage& page, Context& context) {
  {
    LongWork work(context, {&page.session_frm});
    MeasureLengths(page, context, work);
    if (work.Cancelled()) return Doubt::Leave;
  }
  const std::vector<Place> places = KnownPlacesOf(page.session);
  const Diagnosis diagnosis = Diagnose(places);
  if (!SpeaksAgainst(diagnosis, places)) return Doubt::Apply;
  const bool canSort = CanBeSorted(page.session);
  const UserAnswer answer =
      AskUser(context, {.text = VerdictText(context, diagnosis),
                        .answers = {context.Text(message::kSortFirst), context.Text(message::kApplyAsIs),
                                    context.Text(message::kCancel)},
                        .standard = canSort ? 0 : 2,
                        .tick = {},
                        .closed = canSort ? std::vector<int>{} : std::vector<int>{0}});
  constexpr Doubt kDoubts[] = {Doubt::Sort, Doubt::Apply, Doubt::Leave};
  return kDoubts[answer.chosen];
}

// Whether the files stand in the order in which they are to be applied, or the user says so.
bool OrderIsMeant(AlbumPage& page, Context& context) {
  for (;;) {
    switch (AskAboutOrder(page, context)) {
      case Doubt::Apply:
        return true;
      case Doubt::Leave:
        return false;
      case Doubt::Sort:
        if (!AutoSort(context, page.session, true)) return false;
        ShowTable(page);
        UpdateFileButtons(page);
    }
  }
}

void ApplySession(AlbumPage& page, Context& context, const ApplyOrder& order) {
  ApplyReport report(page, context, message::kApplyClash);
  int heading = message::kUnexpectedError;
  try {
    LongWork work(context, {&page.session_frm, &page.go_btn, &page.fetch_btn, &page.apply_btn, &page.more_btn});
    page.undo_btn.SetEnabled(true);
    TakeFields(page);
    const bool whole = Apply(page.session, order, {context.files, context.codePage, context.styles}, work, report);
    heading = whole ? message::kDone : message::kCancelled;
    ShowCompleted(page);
  } catch (const Failure& failure) {
    report.Stopped(failure);
  }
  ShowTable(page);
  page.outcomes = report.Outcomes(Tagging(order));
  report.Show(heading, Tagging(order));
}

}  // namespace

void ApplyClicked(AlbumPage& page, Context& context) {
  const ApplyOrder order = OrderOf(page, context);
  if (!order.rename && !order.playlist && !Tagging(order)) {
    context.prompts.Message(context.Text(message::kNoOption));
  } else if (FileCount(page.session) != TrackCount(page.session)) {
    context.prompts.Message(context.Text(message::kCountsDiffer));
  } else if (!(order.rename || Tagging(order)) || OrderIsMeant(page, context)) {
    ApplySession(page, context, order);
  }
}

void UndoClicked(AlbumPage& page, Context& context) {
  Undone undone{};
  ApplyReport report(page, context, message::kUndoClash);
  {
    LongWork work(context, {&page.session_frm});
    undone = UndoApply(page.session, context.files, work, report);
  }
  ShowTable(page);
  if (undone == Undone::All) page.undo_btn.SetEnabled(false);
  if (undone == Undone::Cancelled || report.AnyIncident()) {
    report.ShowUndone(undone == Undone::Cancelled ? message::kCancelled : message::kDone);
  }
}

}  // namespace tagrix
