// The main window: the seven pages, what stands around them, start-up and shut-down.
#ifndef TAGRIX_APP_MAIN_WINDOW_H
#define TAGRIX_APP_MAIN_WINDOW_H

#include <array>
#include <string>
#include <vector>

#include "album/album_page.h"
#include "core/context.h"
#include "forms/form.h"
#include "tools/about/about_page.h"
#include "tools/bulk/bulk_page.h"
#include "tools/burn/burn_page.h"
#include "tools/lister/lister_page.h"
#include "tools/playlist/pls_page.h"
#include "tools/setup/setup_page.h"

namespace tagrix {

class MainWindow {
 public:
  explicit MainWindow(Context& context);
  MainWindow(const MainWindow&) = delete;
  MainWindow& operator=(const MainWindow&) = delete;

  // Reads the settings, the language, the genres and the icons and prepares every page. False when the program has to
  // end; the user has been told why.
  bool StartUp();

  // Shows one page instead of the others: 0 album, 1 lister, 2 bulk renamer, 3 playlist, 4 burning, 5 setup, 6 about.
  void ShowPage(int page);

  // Puts the loaded language texts into the window and all of its pages.
  void transme();

  std::wstring openAtStart;  // a folder, or a file in it, to open as an album when the window has appeared; or none

  Context& context;
  Form form{"tagrix"};

  AlbumPage album;
  ListerPage lister;
  BulkPage bulk;
  PlaylistPage playlist;
  BurnPage burn;
  SetupPage setup;
  AboutPage about;

  std::array<Frame, 7> workfrm{Frame("workfrm0"), Frame("workfrm1"), Frame("workfrm2"), Frame("workfrm3"),
                               Frame("workfrm4"), Frame("workfrm5"), Frame("workfrm6")};

 private:
  Node Layout();
  // Ends what runs, or the busy state in which nothing does.
  void Cancel();
  bool CanClose();
  // Files and folders dropped on the page in view go the way of its buttons.
  void Drop(const std::vector<std::wstring>& paths);
  void Show(int page);
  void NamePageButtons();
  bool PressKey(FormKey key, int page);
  void OpenManual();
  // The size of the window and its page are those of the last time.
  void RestoreWindow();
  void KeepWindow();
  void LoadLanguage();
  void LoadStyles();
  void LoadIcons();

  int page_ = 0;  // in view
};

}  // namespace tagrix

#endif
