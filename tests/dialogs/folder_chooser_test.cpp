#include "dialogs/folder_chooser.h"

#include <gtest/gtest.h>

#include "dialogs/fixtures.h"

namespace tagrix {
namespace {

using Paths = std::vector<std::wstring>;

struct FolderChooser : testing::Test {
  FolderChooser() {
    for (const wchar_t* path : {L"C:\\M\\b.mp3", L"C:\\M\\a.OGG", L"C:\\M\\notes.txt", L"C:\\M\\mp3", L"C:\\M\\x_mp3",
                                L"C:\\M\\A\\deep\\1.wav", L"C:\\M\\A\\2.ape", L"C:\\M\\B\\3.wma"}) {
      test.files.Put(path);
    }
    test.files.AddLink(L"C:\\M\\A\\up");
    test.files.Put(L"C:\\M\\A\\up\\loop.mp3");
    test.files.AddFolder(L"C:\\M\\album.mp3");
    test.files.AddFolder(test.files.musicFolder);
    test.context.settings.Put(L"LastDir", L"C:\\M");
  }
  void Choose(ChooserMode mode, std::function<void(Form&)> user) {
    test.prompts.dialogs.push_back(std::move(user));
    ChooseFolder(test.context, mode, {.folder = &folder, .format = &format, .files = &files, .alsoKnown = &known});
  }
  void Choose(ChooserMode mode, const std::wstring& path, bool recurse = false) {
    Choose(mode, [&](Form& form) {
      Find<TreeBox>(form.layout, "Dir1").SetPath(path);
      if (recurse) Find<CheckBox>(form.layout, "recurse_chk").Click();
      PressOk(form);
    });
  }
  std::wstring LastDir() { return test.context.settings.Get(L"LastDir"); }

  TestContext test;
  TextBox folder{"folder"};
  std::wstring format = L"before";
  ListBox files{"files"}, known{"known"};
};

TEST_F(FolderChooser, OpensOnTheFolderUsedLast) {
  const wchar_t* const music = L"C:\\Users\\me\\Music";
  for (const auto& expected : {std::pair(L" c:\\m\\a\\ ", L"c:\\m\\a"),
                               {L"C:", L"C:\\"},
                               {L"", music},
                               {L"C:\\gone", music},
                               {L"C:\\M\\b.mp3", music}}) {
    test.context.settings.Put(L"LastDir", expected.first);
    Choose(ChooserMode::Album, [&](Form& form) {
      EXPECT_EQ(Find<ComboBox>(form.layout, "Drive1").Text(), L"C:");
      EXPECT_EQ(Find<TreeBox>(form.layout, "Dir1").Path(), expected.second) << expected.first;
    });
  }
}

TEST_F(FolderChooser, PreviewsTheFilesOfTheChosenFormat) {
  test.files.AddFolder(L"D:");
  Choose(ChooserMode::SetupFolder, [&](Form& form) {
    auto& preview = Find<ListBox>(form.layout, "file_lst");
    auto& tree = Find<TreeBox>(form.layout, "Dir1");
    EXPECT_EQ(preview.Texts(), Paths{L"b.mp3"});
    Find<ComboBox>(form.layout, "format_cmb").Choose(1);
    EXPECT_EQ(preview.Texts(), Paths{L"a.OGG"});
    tree.SetPath(L"C:\\M\\A");
    EXPECT_EQ(preview.Texts(), Paths{});
    EXPECT_EQ(tree.children(L"C:\\M"), (Paths{L"A", L"album.mp3", L"B"}));
    EXPECT_EQ(tree.children(L"C:\\gone"), Paths{});
    Find<ComboBox>(form.layout, "Drive1").Choose(1);
    EXPECT_EQ(tree.Path(), L"D:\\");
  });
}

TEST_F(FolderChooser, HandsOverTheFolderUnlessCancelled) {
  Choose(ChooserMode::Album, [&](Form& form) {
    Find<TreeBox>(form.layout, "Dir1").SetPath(L"C:\\M\\A");
    form.RequestClose();
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(LastDir() + folder.Text() + format, L"C:\\Mbefore");
  Choose(static_cast<ChooserMode>(9), L"C:\\M\\B");  // an unknown mode only remembers the folder
  EXPECT_EQ(LastDir() + folder.Text() + format, L"C:\\M\\Bbefore");

  for (int mode : {1, 2, 3, 5, 7}) {
    Choose(static_cast<ChooserMode>(mode), L"C:\\M\\A");
    EXPECT_EQ(folder.Text() + LastDir(), L"C:\\M\\AC:\\M\\A");
    Choose(static_cast<ChooserMode>(mode), L"C:\\");
    EXPECT_EQ(folder.Text() + format, mode == 1 ? L"C:MP3" : L"C:before");
    format = L"before";
  }
  EXPECT_EQ(files.Count(), 0);
}

TEST_F(FolderChooser, CollectsAudioFilesBreadthFirstAndAFileTwiceOnlyForAPlaylist) {
  Paths all{L"C:\\M\\a.OGG", L"C:\\M\\b.mp3", L"C:\\M\\mp3", L"C:\\M\\x_mp3"};
  Choose(ChooserMode::BulkFiles, L"C:\\M");
  EXPECT_EQ(files.Texts(), all);
  all.insert(all.end(), {L"C:\\M\\A\\2.ape", L"C:\\M\\B\\3.wma", L"C:\\M\\A\\deep\\1.wav"});
  Choose(ChooserMode::BulkFiles, L"C:\\M", true);
  EXPECT_EQ(files.Texts(), all);
  EXPECT_EQ(test.context.status_lbl.Text(), L"");

  // From a drive root, and no name that is nothing but an ending for a playlist.
  Paths twice = all;
  std::erase(all, L"C:\\M\\mp3");
  twice.insert(twice.end(), all.begin(), all.end());
  Choose(ChooserMode::PlaylistFiles, L"C:\\", true);
  EXPECT_EQ(files.Texts(), twice);

  files.Clear();
  files.Add(L"c:\\m\\B.MP3");
  for (const wchar_t* path : {L"C:\\M\\x_MP3", L"C:\\M\\mp3"}) known.Add(path);
  Choose(ChooserMode::BurnFiles, L"C:\\M");
  EXPECT_EQ(files.Texts(), (Paths{L"c:\\m\\B.MP3", L"C:\\M\\a.OGG"}));
}

TEST_F(FolderChooser, PassesOverFoldersThatCantBeReadAndAddsNothingWhenCancelled) {
  test.files.beforeCall = [&](const std::wstring& path) {
    if (path == L"C:\\M\\A\\") test.files.FailCall(1);
  };
  Choose(ChooserMode::BulkFiles, L"C:\\M", true);
  EXPECT_EQ(files.Count(), 5);
  EXPECT_EQ(files.ItemText(4), L"C:\\M\\B\\3.wma");
  EXPECT_TRUE(test.prompts.messages.empty());

  files.Clear();
  Choose(ChooserMode::BulkFiles, [&](Form& form) {
    // The chosen folder itself: the user is told and may choose another one.
    Find<TreeBox>(form.layout, "Dir1").SetPath(L"C:\\M\\A");
    PressOk(form);
    EXPECT_EQ(test.prompts.messages.size(), 1u);
    EXPECT_FALSE(form.Closing());

    Find<TreeBox>(form.layout, "Dir1").SetPath(L"C:\\M");
    Find<CheckBox>(form.layout, "recurse_chk").Click();
    test.events.rounds = 0;
    test.events.eachTime = [&] {
      EXPECT_FALSE(Find<Button>(form.layout, "ok_btn").Enabled());
      if (test.events.rounds == 2) Find<Button>(form.layout, "cancel_btn").Click();
    };
    PressOk(form);
    EXPECT_TRUE(form.Closing());
  });
  EXPECT_EQ(files.Count(), 0);
  EXPECT_EQ(test.events.rounds, 2);
}

}  // namespace
}  // namespace tagrix
