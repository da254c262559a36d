#include "dialogs/folder_chooser.h"

#include <gtest/gtest.h>

#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

struct FolderChooser : testing::Test, TestContext {
  FolderChooser() {
    for (const wchar_t* path : {L"C:\\M\\b.mp3", L"C:\\M\\a.OGG", L"C:\\M\\notes.txt", L"C:\\M\\mp3", L"C:\\M\\x_mp3",
                                L"C:\\M\\A\\deep\\1.wav", L"C:\\M\\A\\2.ape", L"C:\\M\\B\\3.wma"}) {
      files.Put(path);
    }
    files.AddLink(L"C:\\M\\A\\up");
    files.Put(L"C:\\M\\A\\up\\loop.mp3");
    files.AddFolder(L"C:\\M\\album.mp3");
    files.AddFolder(files.musicFolder);
    context.settings.Put(setting::kLastDir, L"C:\\M");
  }
  std::optional<ChosenFolder> Choose(ChooserMode mode, std::function<void(Form&)> user) {
    prompts.dialogs.push_back(std::move(user));
    return ChooseFolder(context, mode);
  }
  Texts Collect(ChooserMode mode, std::function<void(Form&)> user) {
    prompts.dialogs.push_back(std::move(user));
    return ChooseAudioFiles(context, mode, {&known, &alsoKnown});
  }
  std::wstring LastDir() { return context.settings.Get(setting::kLastDir); }
  ListBox known{"known"}, alsoKnown{"alsoKnown"};
};

TEST_F(FolderChooser, OpensOnTheFolderUsedLast) {
  const wchar_t* const music = L"C:\\Users\\me\\Music";
  for (const auto& [last, opened] :
       {std::pair(L" c:\\m\\a\\ ", L"c:\\m\\a"), {L"C:", L"C:\\"}, {L"C:\\gone", music}, {L"C:\\M\\b.mp3", music}}) {
    context.settings.Put(setting::kLastDir, last);
    Choose(ChooserMode::Album, [folder = opened](Form& form) {
      EXPECT_EQ(Find<ComboBox>(form.layout, "Drive1").Text(), L"C:");
      EXPECT_EQ(Find<TreeBox>(form.layout, "Dir1").Path(), folder);
    });
  }
}

TEST_F(FolderChooser, TakesATypedPathAndOtherPlaces) {
  const auto typed = [&](const wchar_t* path) {
    return Choose(ChooserMode::Album, [path](Form& form) {
      Find<TextBox>(form.layout, "path_txt").Type(path);
      PressOk(form);
    });
  };
  EXPECT_EQ(typed(L" \"c:\\m\\A\\\" ")->path, L"c:\\m\\A");
  EXPECT_EQ(LastDir(), L"c:\\m\\A");
  EXPECT_FALSE(typed(L"C:\\gone"));
  EXPECT_EQ(prompts.messages, Texts{L"<230> C:\\gone"});
  files.AddFolder(L"\\\\nas\\music\\Live");
  EXPECT_EQ(typed(L"\\\\nas\\music\\Live\\")->path, L"\\\\nas\\music\\Live");

  files.AddFolder(files.DesktopFolder());
  prompts.networkFolder = L"\\\\nas\\music";
  Choose(ChooserMode::Album, [&](Form& form) {
    auto& path = Find<TextBox>(form.layout, "path_txt");
    EXPECT_EQ(path.Text(), L"\\\\nas\\music\\Live") << "used last";
    const auto go = [&](const char* button) {
      Find<Button>(form.layout, button).Click();
      return path.Text();
    };
    EXPECT_EQ(go("music_btn"), files.musicFolder);
    EXPECT_EQ(go("desktop_btn"), files.DesktopFolder());
    EXPECT_EQ(go("network_btn"), prompts.networkFolder);
  });
}

TEST_F(FolderChooser, DroppedFilesAndFoldersGoByTheSameRules) {
  known.Add(L"C:\\M\\A\\2.ape");
  const auto among = [&](ChooserMode mode) {
    return AudioFilesAmong(context, {L"C:\\M\\b.mp3", L"C:\\M\\notes.txt", L"C:\\M\\A", L"C:\\M\\mp3"}, mode, {&known});
  };
  EXPECT_EQ(among(ChooserMode::BulkFiles), (Texts{L"C:\\M\\b.mp3", L"C:\\M\\A\\deep\\1.wav", L"C:\\M\\mp3"}));
  EXPECT_EQ(among(ChooserMode::PlaylistFiles), (Texts{L"C:\\M\\b.mp3", L"C:\\M\\A\\2.ape", L"C:\\M\\A\\deep\\1.wav"}));
}

TEST_F(FolderChooser, PreviewsTheFilesOfTheChosenFormat) {
  files.AddFolder(L"D:");
  Choose(ChooserMode::SetupFolder, [&](Form& form) {
    auto& preview = Find<ListBox>(form.layout, "file_lst");
    auto& tree = Find<TreeBox>(form.layout, "Dir1");
    EXPECT_EQ(preview.Texts(), Texts{L"b.mp3"});
    Find<ComboBox>(form.layout, "format_cmb").Choose(1);
    EXPECT_EQ(preview.Texts(), Texts{L"a.OGG"});
    EXPECT_EQ(tree.children(L"C:\\M"), (Texts{L"A", L"album.mp3", L"B"}));
    Find<ComboBox>(form.layout, "Drive1").Choose(1);
    EXPECT_EQ(tree.Path(), L"D:\\");
    EXPECT_EQ(preview.Texts(), Texts{});
  });
}

TEST_F(FolderChooser, ReturnsTheFolderUnlessCancelled) {
  EXPECT_FALSE(Choose(ChooserMode::Album, [](Form& form) {
    Find<TreeBox>(form.layout, "Dir1").SetPath(L"C:\\M\\A");
    form.RequestClose();
  }));
  EXPECT_EQ(LastDir(), L"C:\\M");
  EXPECT_FALSE(Choose(static_cast<ChooserMode>(9), Pick(L"C:\\M\\B")));  // an unknown mode only remembers the folder
  EXPECT_EQ(LastDir(), L"C:\\M\\B");
  for (const auto& [mode, folder, path] : {std::tuple(1, L"C:\\M\\A", L"C:\\M\\A"), {7, L"C:\\", L"C:"}}) {
    const auto chosen = Choose(static_cast<ChooserMode>(mode), Pick(folder));
    EXPECT_EQ(chosen.value().path, path);
    EXPECT_EQ(chosen.value().format, L"MP3");
  }
}

TEST_F(FolderChooser, CollectsAudioFilesBreadthFirstAndAFileTwiceOnlyForAPlaylist) {
  Texts all{L"C:\\M\\a.OGG", L"C:\\M\\b.mp3", L"C:\\M\\mp3", L"C:\\M\\x_mp3"};
  EXPECT_EQ(Collect(ChooserMode::BulkFiles, Pick(L"C:\\M")), all);
  all.insert(all.end(), {L"C:\\M\\A\\2.ape", L"C:\\M\\B\\3.wma", L"C:\\M\\A\\deep\\1.wav"});
  EXPECT_EQ(Collect(ChooserMode::BulkFiles, Pick(L"C:\\M", true)), all);

  known.Add(L"c:\\m\\B.MP3");
  for (const wchar_t* path : {L"C:\\M\\x_MP3", L"C:\\M\\mp3"}) alsoKnown.Add(path);
  EXPECT_EQ(Collect(ChooserMode::BurnFiles, Pick(L"C:\\M")), Texts{L"C:\\M\\a.OGG"});
  // From a drive's root; a playlist takes no name that is nothing but an ending.
  std::erase(all, L"C:\\M\\mp3");
  EXPECT_EQ(Collect(ChooserMode::PlaylistFiles, Pick(L"C:\\", true)), all);
}

TEST_F(FolderChooser, TellsWhichFoldersCantBeReadAndReturnsNothingWhenCancelled) {
  files.beforeCall = [&](const std::wstring& path) {
    if (path == L"C:\\M\\A\\") files.FailCall(1);
  };
  EXPECT_EQ(Collect(ChooserMode::BulkFiles, Pick(L"C:\\M", true)).back(), L"C:\\M\\B\\3.wma");
  EXPECT_EQ(prompts.messages, Texts{L"<228> \r\nC:\\M\\A"});
  const auto user = [&](Form& form) {
    Pick(L"C:\\M\\A")(form);  // the chosen folder itself: another one may be chosen
    EXPECT_EQ(prompts.messages.size(), 2u);
    EXPECT_FALSE(form.Closing());
    events.rounds = 0;
    events.eachTime = [&] {
      EXPECT_FALSE(Find<Button>(form.layout, "ok_btn").Enabled());
      if (events.rounds == 3) form.RequestClose();  // some have been found
    };
    Pick(L"C:\\M", true)(form);
    EXPECT_TRUE(form.Closing());
  };
  EXPECT_EQ(Collect(ChooserMode::BulkFiles, user), Texts{});
}

}  // namespace
}  // namespace tagrix
