#include "update/updater.h"

#include <gtest/gtest.h>

#include "core/dispatch.h"
#include "fakes/fakes.h"

namespace tagrix {
namespace {

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
  void Check(bool silent) {
    RunCommand(context, [&] { CheckForUpdate(context, silent, L"ftp.test"); });
    EXPECT_FALSE(files.Has(kInfo));  // never outlives a check
    EXPECT_FALSE(context.busy);
    EXPECT_EQ(context.status_lbl.Text(), L"");
    EXPECT_FALSE(ftp.ended || ftp.progress);
  }
  // Lets the transfers go on while a dialog is open.
  std::function<void(Form&)> Wait() {
    return [&](Form& form) {
      EXPECT_TRUE(context.busy);
      for (int i = 0; i < 9 && !form.Closing(); ++i) events.DoEvents();
    };
  }
  int quits = 0;
};

using Texts = std::vector<std::wstring>;

TEST_F(Updater, DownloadsTheInstallerStartsItAndEnds) {
  files.Put(kInstaller, "old");
  std::wstring caption, file, progress, speed;
  prompts.dialogs.push_back([&](Form& form) {
    EXPECT_FALSE(files.Has(kInstaller));  // the old one is gone before anything arrives
    events.ticks += 500;
    Wait()(form);
    EXPECT_TRUE(form.Closing());
    caption = form.caption;
    file = Find<Label>(form.layout, "file_lbl").Text();
    progress = Find<Label>(form.layout, "progress_lbl").Text();
    speed = Find<Label>(form.layout, "speed_lbl").Text();
    EXPECT_EQ(Find<ProgressBox>(form.layout, "download_bar").Percent(), 100);
  });
  Check(true);
  EXPECT_EQ(prompts.questions, Texts{L"<56> Tagrix"});
  EXPECT_EQ(prompts.messages, Texts{L"<57> Tagrix"});
  EXPECT_EQ(caption, L"O-Updater");
  EXPECT_EQ(file, L"File : setup.exe");
  EXPECT_EQ(progress, L"9 bytes of 9 bytes [100%]");
  EXPECT_EQ(speed, L"18 bytes/s");
  EXPECT_EQ(shell.programs, Texts{kInstaller});
  EXPECT_EQ(shell.commandLines, Texts{L"\"C:\\Tagrix\\upd\\setup.exe\""});
  EXPECT_EQ(files.Content(kInstaller), "installer");
  EXPECT_EQ(quits, 1);

  ASSERT_EQ(ftp.requests.size(), 2u);
  for (const FtpRequest& request : ftp.requests) {
    EXPECT_EQ(request.user + L" " + request.password + L" " + request.host, L"anonymous rova_plint ftp.test");
    EXPECT_EQ(request.port, 21);
  }
}

TEST_F(Updater, ComparesTheBuildNumber) {
  for (const wchar_t* build : {L"0", L"", L"none", L"-1"}) {
    Offer(L"setup.exe", build);
    Check(true);
    EXPECT_EQ(prompts.messages, Texts{});
    Check(false);
    EXPECT_EQ(prompts.messages, Texts{L"<59> Tagrix 1.0.0"});
    prompts.messages.clear();
  }
  ftp.remote[L"/ostrelco/files/upd.dat"] = std::string("\0\xff[=\r", 5);
  Check(true);
  EXPECT_TRUE(prompts.questions.empty());
  Offer(L"setup.exe", L"0.5 beta");
  prompts.answers = {false};
  Check(true);
  EXPECT_EQ(prompts.questions.size(), 1u);
  EXPECT_TRUE(prompts.shown.empty());
}

TEST_F(Updater, SaysOnlyWhenAskedThatNothingCameOfIt) {
  const auto expect = [&](const Texts& messages) {
    Check(true);
    EXPECT_EQ(prompts.messages, Texts{});
    Check(false);
    EXPECT_EQ(prompts.messages, messages);
    prompts.messages.clear();
  };
  for (const bool silent : {true, false}) {
    files.FailCall(1);  // the folder can't be created
    Check(silent);
    EXPECT_EQ(prompts.messages, silent ? Texts{} : Texts{L"<60>"});
  }
  EXPECT_TRUE(ftp.requests.empty());
  prompts.messages.clear();
  ftp.remote.clear();
  expect({L"<60>"});
  ftp.remote[L"/ostrelco/files/upd.dat"] = std::string(2 << 20, '=');
  expect({L"<60>"});
  ftp.remote.clear();

  ftp.connected = false;
  const std::size_t requests = ftp.requests.size();
  for (const wchar_t* bypass : {L"", L"0", L"true", L" 1"}) {
    context.settings.Put(L"Bypass", bypass);
    expect({L"<55>"});
  }
  EXPECT_EQ(ftp.requests.size(), requests);
  context.settings.Put(L"Bypass", L"1");
  expect({L"<60>"});

  CheckForUpdate(context, true, L"");  // no server is configured
  EXPECT_EQ(prompts.messages, Texts{});
  CheckForUpdate(context, false, L"");
  EXPECT_EQ(prompts.messages, Texts{L"<55>"});
}

TEST_F(Updater, NeverStartsWhatDidNotArriveOrLeadsElsewhere) {
  ftp.remote.erase(L"/new/setup.exe");
  prompts.dialogs.push_back(Wait());
  Check(true);
  EXPECT_EQ(prompts.messages, Texts{L"<58>"});
  for (const wchar_t* name : {L"..\\setup.exe", L"C:\\setup.exe", L"/new/setup.exe", L"UPD.dat", L""}) {
    Offer(name);
    prompts.messages.clear();
    ftp.requests.clear();
    Check(true);
    EXPECT_EQ(prompts.messages, Texts{L"<58>"});
    EXPECT_EQ(ftp.requests.size(), 1u);
  }
  EXPECT_TRUE(shell.programs.empty());
  EXPECT_EQ(quits, 0);
}

TEST_F(Updater, GoesOnWhenTheInstallerDoesNotStart) {
  shell.canStart = false;
  prompts.dialogs.push_back(Wait());
  Check(false);
  EXPECT_EQ(prompts.messages, (Texts{L"<57> Tagrix", std::wstring(L"<150> ") + kInstaller}));
  EXPECT_EQ(quits, 0);
}

TEST_F(Updater, AsksBeforeTheDownloadIsGivenUp) {
  prompts.answers = {true, false, true};  // download; go on; give up
  prompts.dialogs.push_back([&](Form& form) {
    form.RequestClose();
    EXPECT_FALSE(form.Closing());
    form.RequestClose();
    EXPECT_TRUE(form.Closing());
  });
  Check(true);
  EXPECT_EQ(prompts.questions.at(1), L"This will cancel the update. Continue anyway ?");
  events.DoEvents();  // what was under way
  EXPECT_FALSE(files.Has(kInstaller));
  EXPECT_EQ(prompts.messages, Texts{});
  EXPECT_EQ(quits, 0);
}

TEST_F(Updater, StopsWaitingForAStalledServerWhenTheUserCancels) {
  ftp.stall = true;
  events.eachTime = [&] {
    EXPECT_TRUE(context.busy);
    EXPECT_EQ(context.status_lbl.Text(), L"<149>");
    if (events.ticks > 5000) context.cancelled = true;
  };
  Check(false);
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});
}

TEST_F(Updater, ASilentCheckGivesWayToTheButton) {
  ftp.stall = true;
  events.Post([&] {
    ftp.stall = false;
    Offer(L"setup.exe", L"0");
    Check(false);
  });
  CheckForUpdate(context, true, L"ftp.test");
  EXPECT_EQ(prompts.messages, Texts{L"<59> Tagrix 1.0.0"});
  EXPECT_TRUE(prompts.questions.empty());
}

TEST_F(Updater, TheSettingSwitchesTheStartCheckOff) {
  context.settings.Put(L"AutoUpd", L"0");
  CheckForUpdateAtStart(context, L"ftp.test");
  EXPECT_TRUE(ftp.requests.empty());
  context.settings.Put(L"AutoUpd", L"yes");
  Offer(L"setup.exe", L"0");
  CheckForUpdateAtStart(context, L"ftp.test");
  EXPECT_EQ(ftp.requests.size(), 1u);
}

}  // namespace
}  // namespace tagrix
