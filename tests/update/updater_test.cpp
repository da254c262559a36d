#include "update/updater.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "core/dispatch.h"
#include "core/long_work.h"
#include "fakes/fakes.h"
#include "update/update_rules.h"

namespace tagrix {
namespace {

TEST(Profile, IsReadAsTheSystemReadsIt) {
  constexpr std::wstring_view kText =
      L"build=1\r\n; comment\r\n[other]\nbuild=2\r\n[ TAGRIX ] x\r\n ;build=3\r\nnonsense\r\n\tBuild = \t\"4\" \r\n"
      L"build=5\r\nPath=/a=b\r\nempty=\r\n[tagrix]\r\nlate=6";
  EXPECT_EQ(ProfileValue(kText, L"Tagrix", L"build"), L"4");
  EXPECT_EQ(ProfileValue(kText, L"Tagrix", L"path"), L"/a=b");
  for (const wchar_t* missing : {L"empty", L"late", L"nonsense"}) {
    EXPECT_EQ(ProfileValue(kText, L"Tagrix", missing), L"");
  }
}

TEST(FileNamesFromTheNet, StayInTheirFolder) {
  EXPECT_TRUE(IsBareFileName(L"tagrix-1.2 setup.exe"));
  for (const wchar_t* name : {L"", L".", L"..", L"a..exe", L"a/b.exe", L"a\\b.exe", L"C:a.exe", L"a.exe:s", L"a?.exe",
                              L"a*.exe", L"a\".exe", L"a.exe.", L"a.exe ", L"a\tb.exe", L"con.exe"}) {
    EXPECT_FALSE(IsBareFileName(name)) << std::wstring(name).size();
  }
}

TEST(Sizes, AreShownInStepsOf1024) {
  const struct {
    std::uint64_t bytes;
    const wchar_t* text;
  } cases[] = {{1023, L"1023 bytes"}, {1024, L"1.00 Kb"}, {1024 * 1024 - 1, L"1023.99 Kb"}, {5ull << 30, L"5.00 Gb"}};
  for (const auto& [bytes, text] : cases) EXPECT_EQ(DisplaySize(bytes), text);
  EXPECT_EQ(DownloadProgress(1024, 3072), L"1.00 Kb of 3.00 Kb [33%]");
  EXPECT_EQ(DownloadProgress(1024, 0), L"1.00 Kb");
  EXPECT_EQ(DownloadPercent(5, 4), 100);
}

constexpr const wchar_t* kInfo = L"C:\\Tagrix\\upd\\upd.dat";
constexpr const wchar_t* kInstaller = L"C:\\Tagrix\\upd\\setup.exe";

struct Updater : testing::Test, TestContext {
  Updater() {
    files.AddFolder(L"C:\\Tagrix");
    context.quit = [&] { ++quits; };
    Offer(L"setup.exe");
    ftp.remote[L"/new/setup.exe"] = "installer";
  }
  void Offer(const std::wstring& name, const std::wstring& build = L"1") {
    ftp.remote[L"/ostrelco/files/upd.dat"] =
        codePage.ToBytes(L"[Tagrix]\r\nbuild = " + build + L" \r\nFileName= " + name + L"\r\nPath=/new\r\n");
  }
  // What the user is told by a check.
  Texts Check(bool silent) {
    prompts.messages.clear();
    RunCommand(context, [&] { CheckForUpdate(context, silent, host); });
    EXPECT_FALSE(files.Has(kInfo));  // never outlives a check
    EXPECT_FALSE(ftp.ended || ftp.progress);
    return prompts.messages;
  }
  // Lets the transfers go on while a dialog is open.
  std::function<void(Form&)> Wait() {
    return [&](Form& form) {
      for (int i = 0; i < 9 && !form.Closing(); ++i) events.DoEvents();
    };
  }
  std::wstring host = L"ftp.test";
  int quits = 0;
};

TEST_F(Updater, DownloadsTheInstallerStartsItAndEnds) {
  files.Put(kInstaller, "old");
  prompts.dialogs.push_back([&](Form& form) {
    EXPECT_FALSE(files.Has(kInstaller));  // the old one is gone before anything arrives
    events.ticks += 500;
    Wait()(form);
    EXPECT_TRUE(form.Closing());
    EXPECT_EQ(Find<Label>(form.layout, "progress_lbl").Text(), L"9 bytes of 9 bytes [100%]");
    EXPECT_EQ(Find<Label>(form.layout, "speed_lbl").Text(), L"18 bytes/s");
    EXPECT_EQ(Find<ProgressBox>(form.layout, "download_bar").Percent(), 100);
  });
  EXPECT_EQ(Check(true), Texts{L"<57> Tagrix"});
  EXPECT_EQ(prompts.questions, Texts{L"<56> Tagrix"});
  EXPECT_EQ(shell.commandLines, Texts{L"\"C:\\Tagrix\\upd\\setup.exe\""});
  EXPECT_EQ(files.Content(kInstaller), "installer");
  EXPECT_EQ(quits, 1);

  context.mayQuit = [] { return false; };
  prompts.dialogs.push_back(Wait());
  EXPECT_EQ(Check(true), Texts{});
  EXPECT_EQ(shell.commandLines.size(), 1U);
  EXPECT_EQ(ftp.requests.at(1).user, L"anonymous");
  EXPECT_EQ(ftp.requests.at(1).password, L"rova_plint");
}

TEST_F(Updater, SaysOnlyWhenAskedThatNothingCameOfIt) {
  const auto expect = [&](const wchar_t* message, int failingCall = 0) {
    for (const bool silent : {true, false}) {
      files.FailCall(failingCall);
      EXPECT_EQ(Check(silent), silent ? Texts{} : Texts{message});
    }
  };
  expect(L"<60>", 1);  // the folder can't be created
  ftp.remote[L"/ostrelco/files/upd.dat"] = std::string(2 << 20, '=');
  expect(L"<60>");
  Offer(L"setup.exe", L"none");
  expect(L"<59> Tagrix 1 0 0");
  ftp.remote.clear();
  ftp.connected = false;
  expect(L"<55>");
  context.settings.Put(setting::kBypass, true);
  expect(L"<60>");
  host = L"";  // no server is configured
  expect(L"<55>");
}

TEST_F(Updater, ChecksAtTheStartWhenTheUserWantsIt) {
  for (const bool automatic : {false, true}) {
    context.settings.Put(setting::kAutoUpdate, automatic);
    CheckForUpdateAtStart(context, host);
    EXPECT_EQ(ftp.requests.empty(), !automatic);
  }
}

TEST_F(Updater, NeverStartsWhatWasRefusedDidNotArriveOrLeadsElsewhere) {
  Offer(L"setup.exe", L"0.5 beta");
  prompts.answers = {false};
  EXPECT_EQ(Check(true), Texts{});
  EXPECT_TRUE(prompts.shown.empty());
  for (const wchar_t* name : {L"gone.exe", L"..\\setup.exe", L"UPD.dat", L""}) {
    Offer(name);
    prompts.dialogs = {Wait()};
    EXPECT_EQ(Check(true), Texts{L"<58>"});
    EXPECT_EQ(prompts.shown.size(), 1u);  // only for the first, which is a name for a file
  }
  EXPECT_TRUE(shell.programs.empty());

  Offer(L"setup.exe");
  shell.canStart = false;
  prompts.dialogs = {Wait()};
  EXPECT_EQ(Check(false), (Texts{L"<57> Tagrix", std::wstring(L"<225> ") + kInstaller}));
  EXPECT_EQ(quits, 0);
}

TEST_F(Updater, AsksBeforeTheDownloadIsGivenUp) {
  prompts.answers = {true, false, true};  // download; go on; give up
  prompts.dialogs.push_back([&](Form& form) {
    EXPECT_TRUE(IsBusy(context));
    for (const bool closes : {false, true}) {
      form.RequestClose();
      EXPECT_EQ(form.Closing(), closes);
    }
  });
  EXPECT_EQ(Check(true), Texts{});
  EXPECT_EQ(prompts.questions.at(1), L"This will cancel the update. Continue anyway ?");
  events.DoEvents();  // what was under way
  EXPECT_FALSE(files.Has(kInstaller));
}

TEST_F(Updater, CancelEndsACheckOfTheUsersAndOnlyTheEndOfTheProgramASilentOne) {
  ftp.stall = true;
  for (const bool silent : {false, true}) {
    int rounds = 0;
    events.eachTime = [&] {
      EXPECT_EQ(context.status_lbl.Text(), silent ? L"" : L"<224>");
      CancelWork(context);
      if (++rounds == 5) CancelAllWork(context);
      if (rounds > 5) throw std::runtime_error("still waiting");
    };
    EXPECT_EQ(Check(silent), silent ? Texts{} : Texts{L"<177>"});
    EXPECT_EQ(rounds, silent ? 5 : 1);
  }
}

TEST_F(Updater, ASilentCheckThatWaitsGivesWayToTheUsers) {
  ftp.stall = true;
  events.Post([&] {
    ftp.stall = false;
    Offer(L"setup.exe", L"0");
    EXPECT_EQ(Check(false), Texts{L"<59> Tagrix 1 0 0"});
  });
  CheckForUpdate(context, true, host);
}

}  // namespace
}  // namespace tagrix
