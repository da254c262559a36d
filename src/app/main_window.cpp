#include "app/main_window.h"

#include <algorithm>
#include <string>
#include <vector>

#include "album/album_mod.h"
#include "album/album_table.h"
#include "album/file_list.h"
#include "base/failure.h"
#include "base/publisher.h"
#include "base/text.h"
#include "core/dispatch.h"
#include "core/failure_text.h"
#include "core/load_language.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "storage/small_files.h"
#include "tools/about/about_mod.h"
#include "tools/bulk/bulk_mod.h"
#include "tools/burn/burn_mod.h"
#include "tools/lister/lister_mod.h"
#include "tools/playlist/pls_mod.h"
#include "tools/setup/setup_mod.h"
#include "update/updater.h"

namespace tagrix {
namespace {

constexpr int kAlbumPage = 0, kBulkPage = 2, kPlaylistPage = 3, kBurnPage = 4, kSetupPage = 5, kAboutPage = 6;
constexpr int kPageButtonWidth = 124;  // the same for all, wider than the captions
constexpr std::size_t kStyleCount = 148;

// The page buttons' captions and icons, in their order.
struct PageButton {
  int caption;
  const wchar_t* icon;
};
constexpr PageButton kPageButtons[] = {
    {message::kAlbumPage, L"\\skin\\Desktop.ico"},   {message::kListerPage, L"\\skin\\file_liste.ico"},
    {message::kBulkPage, L"\\skin\\sweep disk.ico"}, {message::kPlaylistPage, L"\\skin\\playlist.ico"},
    {message::kBurnPage, L"\\skin\\mp3cda.ico"},     {message::kSetupPage, L"\\skin\\ico456.ico"},
    {message::kAboutPage, L"\\skin\\ocinst.ico"},
};

}  // namespace

MainWindow::MainWindow(Context& shared) : context(shared) {
  form.caption = publisher::kProduct;
  form.startSize = {1000, 700};
  form.layout = Layout();
  form.firstFocus = context.page_btn.data();
  for (std::size_t i = 0; i < workfrm.size(); ++i) {
    const int page = static_cast<int>(i);
    context.page_btn[i].clicked = Command(context, [this, page] { ShowPage(page); });
  }
  ShowPage(0);
  // Not a command: it has to work while one runs.
  context.cancel_btn.clicked = [this] { Cancel(); };
  context.mayQuit = [this] { return MayLeaveAlbum(album, context); };
  context.quit = [this] { form.Close(); };
  form.escaped = [this] { context.cancel_btn.Click(); };
  form.canClose = [this] { return CanClose(); };
  form.dropped = Command(context, [this](const std::vector<std::wstring>& paths) { Drop(paths); });
  form.shown = [this] {
    if (!openAtStart.empty()) RunCommand(context, [this] { OpenAlbum(album, context, openAtStart); });
    RunNotice(context, [this] { DetectCopyToDvd(context); });
    RunNotice(context, [this] { CheckForUpdateAtStart(context); });
  };
  form.closed = [this] {
    context.ftp.Close();
    KeepWindow();
  };
  form.keyPressed = [this](FormKey key, int page) { return PressKey(key, page); };
  form.progress = &context.progress_box;
  form.steps = {{&album.go_btn, &album.fetch_btn, &album.apply_btn},
                {&lister.lister_go_btn},
                {&bulk.bulk_go_btn},
                {&playlist.pls_go_btn},
                {&burn.burn_btn},
                {&setup.setup_ok_btn}};
}

bool MainWindow::PressKey(FormKey key, int page) {
  const int count = static_cast<int>(workfrm.size());
  switch (key) {
    case FormKey::NextPage:
      page = (page_ + 1) % count;
      break;
    case FormKey::PreviousPage:
      page = (page_ + count - 1) % count;
      break;
    case FormKey::Page:
      break;
    case FormKey::Undo:
      if (page_ == kAlbumPage) album.undo_btn.Click();
      if (page_ == kBulkPage) bulk.bulk_undo_btn.Click();
      return page_ == kAlbumPage || page_ == kBulkPage;
    case FormKey::Reload:
      if (page_ == kAlbumPage) RunCommand(context, [this] { ReloadAlbum(album, context); });
      return true;
    case FormKey::Help:
      RunNotice(context, [this] { OpenManual(); });
      return true;
  }
  if (page < count) context.page_btn[static_cast<std::size_t>(page)].Click();
  return true;
}

void MainWindow::OpenManual() {
  const std::wstring path = context.programFolder + L"\\manual\\manual.html";
  if (FileExists(context.files, path) && context.shell.OpenFile(path)) return;
  context.prompts.Message(context.Text(message::kNoManual));
}

// What the setting says that only others write goes before the size of the last time.
void MainWindow::RestoreWindow() {
  const std::wstring kept = context.settings.Get(setting::kWindow);
  const std::vector<std::wstring> parts = Split(kept, L" ");
  if (parts.size() >= 2) {
    constexpr int kWidest = 10'000;
    form.startSize = {std::clamp(LeadingInteger(parts[0]), 1, kWidest),
                      std::clamp(LeadingInteger(parts[1]), 1, kWidest)};
  }
  form.maximised = context.settings.Get(setting::kFullscreen) || kept.ends_with(L" m");
  const std::wstring page = context.settings.Get(setting::kPage);
  if (page.size() == 1 && page[0] >= L'0' && page[0] < L'0' + static_cast<int>(workfrm.size())) Show(page[0] - L'0');
}

void MainWindow::KeepWindow() {
  context.settings.Put(setting::kWindow, std::to_wstring(form.startSize.width) + L" " +
                                             std::to_wstring(form.startSize.height) + (form.maximised ? L" m" : L""));
  context.settings.Put(setting::kPage, std::to_wstring(page_));
}

void MainWindow::Cancel() {
  if (AtWork(context) || context.running) return CancelWork(context);
  // Busy though nothing runs: a search that was refused leaves it so.
  SetBusy(context, false);
  context.status_lbl.SetText({});
}

bool MainWindow::CanClose() {
  if (IsBusy(context) || context.running) {
    ShowNotice(context, context.Text(message::kStillAtWork));
    return false;
  }
  if (!MayLeaveAlbum(album, context)) return false;
  CancelAllWork(context);  // what still waits in the background (a silent update check) ends
  return true;
}

void MainWindow::Drop(const std::vector<std::wstring>& paths) {
  const auto shown = std::find_if(workfrm.begin(), workfrm.end(), [](const Frame& page) { return page.Visible(); });
  switch (shown - workfrm.begin()) {
    case kAlbumPage:
      return OpenAlbum(album, context, paths.front());
    case kBulkPage:
      return DropOnBulk(bulk, context, paths);
    case kPlaylistPage:
      return DropOnPlaylist(playlist, context, paths);
    case kBurnPage:
      return DropOnBurn(burn, context, paths);
    default:
      return;
  }
}

Node MainWindow::Layout() {
  std::vector<Node> buttons;
  for (Button& button : context.page_btn) buttons.push_back(Stretch(1, MinSize(kPageButtonWidth, 0, button)));
  return Margin(
      kWideGap,
      Column({Row(std::move(buttons)),
              Stretch(1, Stack({Framed(workfrm[0], AlbumLayout(album)), Framed(workfrm[1], ListerLayout(lister)),
                                Framed(workfrm[2], BulkLayout(bulk)), Framed(workfrm[3], PlaylistLayout(playlist)),
                                Framed(workfrm[4], BurnLayout(burn)), Framed(workfrm[5], SetupLayout(setup)),
                                Framed(workfrm[6], AboutLayout(about))})),
              Row({Stretch(1, context.status_lbl), MinSize(160, 0, context.progress_box), context.cancel_btn})}));
}

bool MainWindow::StartUp() try {
  SetBusy(context, false);
  InitAlbumPage(album, context);
  album.info_btn.SetEnabled(false);
  if (!FileExists(context.files, context.programFolder + L"\\" + kEnglishFile)) {
    context.prompts.Message(L"Default language file (English) missing !!");
    return false;
  }
  LoadLanguage();
  if (!FolderExists(context.files, context.programFolder + L"\\skin")) {
    context.prompts.Message(L"default images missing, please reinstall Tagrix");
    return false;
  }
  LoadStyles();
  LoadIcons();
  ShowSamples(setup, context);
  InitAboutPage(about, context, [this] { CheckForUpdate(context, false); });
  InitListerPage(lister, context);
  InitBulkPage(bulk, context);
  InitBurnPage(burn, context);
  InitSetupPage(setup, context, [this] { transme(); });
  InitPlaylistPage(playlist, context);
  album.fetch_btn.SetEnabled(false);
  album.apply_btn.SetEnabled(false);
  RestoreWindow();
  album.genre_txt.SetText(L"Unknown");
  return true;
} catch (const EndProgram&) {
  return false;
} catch (const Failure& failure) {
  context.prompts.Message(FailureText(context.language, failure));
  return false;
}

void MainWindow::LoadLanguage() {
  setup.setup_lngcmb.Add(L"English");
  listlangues(context, setup.setup_lngcmb);
  const std::wstring chosen = context.settings.Get(setting::kLanguage) + L".lf";
  const bool usable = chosen.size() > 3 && FileExists(context.files, context.programFolder + L"\\" + chosen);
  try {
    loadlangue(context, setup.setup_lngcmb, usable ? chosen : kEnglishFile);
  } catch (const Failure&) {
    if (!usable) throw;
    loadlangue(context, setup.setup_lngcmb, kEnglishFile);
  }
  transme();
}

void MainWindow::LoadStyles() {
  const std::wstring path = context.programFolder + L"\\styles.dat";
  if (!FileExists(context.files, path)) {
    context.prompts.Message(context.Text(message::kNoStyles));
    album.helpgenre_btn.SetEnabled(false);
    return;
  }
  context.styles = TextLines(context.codePage.ToText(ReadWholeFile(context.files, path)));
  if (context.styles.size() < kStyleCount) context.prompts.Message(context.Text(message::kStylesTooShort));
  if (context.styles.size() > kStyleCount) context.styles.resize(kStyleCount);
}

void MainWindow::LoadIcons() {
  for (std::size_t i = 0; i < std::size(kPageButtons); ++i) {
    context.page_btn[i].SetImage(context.programFolder + kPageButtons[i].icon);
  }
}

void MainWindow::Show(int page) {
  page_ = page;
  for (std::size_t k = 0; k < workfrm.size(); ++k) {
    const bool shown = static_cast<int>(k) == page;
    workfrm[k].SetVisible(shown);
    context.page_btn[k].SetMarked(shown);
  }
  if (page == kSetupPage) LoadTagStyle(setup, context);
  context.progress_box.SetVisible(page != kBulkPage);  // it has one of its own
  NamePageButtons();
}

// A screen reader can't see which one is marked.
void MainWindow::NamePageButtons() {
  for (std::size_t k = 0; k < workfrm.size(); ++k) {
    const std::wstring caption = context.Text(kPageButtons[k].caption);
    context.page_btn[k].SetSpokenName(
        static_cast<int>(k) == page_ ? FillMessage(context.Text(message::kCurrentPage), {caption}) : caption);
  }
}

void MainWindow::ShowPage(int page) {
  Show(page);
  context.status_lbl.SetText({});  // what it said was about the page before
  if (page == kAboutPage) context.shell.PlaySoundFile(context.programFolder + L"\\OCsound.wav");
}

void MainWindow::transme() {
  for (std::size_t i = 0; i < std::size(kPageButtons); ++i) {
    context.page_btn[i].SetText(DoubleAmpersands(context.Text(kPageButtons[i].caption)));
  }
  NamePageButtons();
  context.progress_box.SetSpokenName(context.Text(message::kProgress));
  TranslateAboutPage(about, context);
  TranslateAlbumPage(album, context);
  TranslateAlbumTable(album, context);
  TranslateListerPage(lister, context);
  TranslateBulkPage(bulk, context);
  TranslateBurnPage(burn, context);
  TranslateSetupPage(setup, context);
  TranslatePlaylistPage(playlist, context);
  context.cancel_btn.SetText(context.Text(message::kCancel));
}

}  // namespace tagrix
