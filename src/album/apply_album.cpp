#include "album/apply_album.h"

#include <string>

#include "base/text.h"
#include "core/failure_text.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "session/apply.h"

namespace tagrix {
namespace {

// Tells each incident in a message box of its own, when it happens.
class Boxes : public ApplyWatcher {
 public:
  Boxes(AlbumPage& page, Context& context, int clash) : page_(page), context_(context), clash_(clash) {}

  void Tell(const Incident& incident) override {
    switch (incident.trouble) {
      case Trouble::ReadOnly:
        return Box(message::kReadOnly, {incident.name});
      case Trouble::TagsNotWritten:
        if (incident.failure == nullptr) return Box(message::kTagsNotWritten, {});
        return Box(message::kTagFailure, {incident.name, FailureText(context_.language, *incident.failure)});
      case Trouble::NameTaken:
        return clash_ == message::kUndoClash ? Box(clash_, {incident.target, incident.name})
                                             : Box(clash_, {incident.name, incident.target});
      case Trouble::NotReplaced:
      case Trouble::NotRenamed:
        return ShowRenameFailure(context_, incident.target);
    }
  }
  void NameChanged(int i) override {
    page_.mp3_lst.SetItemText(i, page_.session.files.at(static_cast<std::size_t>(i)).name);
  }
  bool MayReplacePlaylist(const std::wstring&) override {
    return context_.prompts.Question(context_.Text(message::kPlaylistExists));
  }

 private:
  void Box(int message, const std::vector<std::wstring>& values) {
    context_.prompts.Message(FillMessage(context_.Text(message), values));
  }

  AlbumPage& page_;
  Context& context_;
  const int clash_;
};

ApplyOrder OrderOf(const AlbumPage& page, Context& context) {
  return {.rename = page.ren_chk.On(),
          .playlist = page.pls_chk.On(),
          .id3v1 = page.ID3v1_chk.On(),
          .id3v2 = page.ID3v2_chk.On(),
          .renamePattern = context.settings.Get(setting::kPattern),
          .playlistPattern = context.settings.Get(setting::kPlaylist),
          .playlistMode = ParsePlaylistMode(context.settings.Get(setting::kPlaylistMode)),
          .currentYear = std::to_wstring(context.clock.CurrentYear()),
          .status = context.Text(message::kApplying)};
}

// The fields can be corrected by hand.
void TakeFields(AlbumPage& page) {
  Disc& disc = page.session.disc;
  disc.artist = page.artist_txt.Text();
  disc.album = page.album_txt.Text();
  disc.year = page.year_txt.Text();
  disc.genre = page.genre_txt.Text();
}

void ShowCompleted(AlbumPage& page) {
  page.album_txt.SetText(page.session.disc.album);
  page.year_txt.SetText(page.session.disc.year.value_or(std::wstring()));
}

// False when the user cancelled.
bool ApplySession(AlbumPage& page, Context& context, const ApplyOrder& order) {
  LongWork work(context, {&page.session_frm, &page.go_btn, &page.fetch_btn, &page.apply_btn, &page.more_btn});
  Boxes boxes(page, context, message::kApplyClash);
  page.undo_btn.SetEnabled(true);
  TakeFields(page);
  const bool whole = Apply(page.session, order, {context.files, context.codePage, context.styles}, work, boxes);
  ShowCompleted(page);
  return whole;
}

}  // namespace

void ApplyClicked(AlbumPage& page, Context& context) {
  const ApplyOrder order = OrderOf(page, context);
  if (!order.rename && !order.playlist && !order.id3v1 && !order.id3v2) {
    context.prompts.Message(context.Text(message::kNoOption));
  } else if (FileCount(page.session) != TrackCount(page.session)) {
    context.prompts.Message(context.Text(message::kCountsDiffer));
  } else if (ApplySession(page, context, order)) {
    context.prompts.Message(context.Text(message::kDone));
  } else {
    ShowCancelMessage(context);
  }
}

void UndoClicked(AlbumPage& page, Context& context) {
  Undone undone{};
  {
    LongWork work(context, {&page.session_frm});
    Boxes boxes(page, context, message::kUndoClash);
    undone = UndoApply(page.session, context.files, work, boxes);
  }
  if (undone == Undone::All) page.undo_btn.SetEnabled(false);
  if (undone == Undone::Cancelled) ShowCancelMessage(context);
}

}  // namespace tagrix
