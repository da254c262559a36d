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
    RunCommand(context, [&] { CheckForUpdate(context, silent, host); });
    EXPECT_FALSE(files.Has(kInfo));  // never outlives a check
    EXPECT_TRUE(!context.busy && context.status_lbl.Text().empty());
    EXPECT_FALSE(ftp.ended || ftp.progress);
  }
  // Lets the transfers go on while a dialog is open.
  std::function<void(Form&)> Wait() {
    return [&](Form& form) {
      EXPECT_TRUE(context.busy);
      for (int i = 0; i < 9 && !form.Closing(); ++i) events.DoEvents();
    };
  }
  std::wstring host = L"ftp.test";
  int quits = 0;
};

using Texts = std::vector<std::wstring>;

TEST_F(Updater, DownloadsTheInstallerStartsItAndEnds) {
  files.Put(kInstaller, "old");
  prompts.dialogs.push_back([&](Form& form) {
    EXPECT_FALSE(files.Has(kInstaller));  // the old one is gone before anything arrives
    events.ticks += 500;
    Wait()(form);
    EXPECT_TRUE(form.Closing());
    const auto text = [&](const char* name) { return Find<Label>(form.layout, name).Text(); };
    EXPECT_EQ(form.caption + L"|" + text("file_lbl"), L"O-Updater|File : setup.exe");
    EXPECT_EQ(text("progress_lbl") + L"|" + text("speed_lbl"), L"9 bytes of 9 bytes [100%]|18 bytes/s");
    EXPECT_EQ(Find<ProgressBox>(form.layout, "download_bar").Percent(), 100);
  });
  Check(true);
  EXPECT_EQ(prompts.questions, Texts{L"<56> Tagrix"});
  EXPECT_EQ(prompts.messages, Texts{L"<57> Tagrix"});
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

TEST_F(Updater, SaysOnlyWhenAskedThatNothingCameOfIt) {
  const auto expect = [&](const wchar_t* message, int failingCall = 0) {
    for (const bool silent : {true, false}) {
      prompts.messages.clear();
      files.FailCall(failingCall);
      Check(silent);
      EXPECT_EQ(prompts.messages, silent ? Texts{} : Texts{message});
    }
  };
  expect(L"<60>", 1);  // the folder can't be created
  EXPECT_TRUE(ftp.requests.empty());
  ftp.remote[L"/ostrelco/files/upd.dat"] = std::string(2 << 20, '=');
  expect(L"<60>");
  for (const wchar_t* build : {L"0", L"", L"none", L"-1"}) {
    Offer(L"setup.exe", build);
    expect(L"<59> Tagrix 1.0.0");
  }
  ftp.remote.clear();
  expect(L"<60>");

  ftp.connected = false;
  ftp.requests.clear();
  for (const wchar_t* bypass : {L"", L"0", L" 1"}) {
    context.settings.Put(L"Bypass", bypass);
    expect(L"<55>");
  }
  EXPECT_TRUE(ftp.requests.empty());
  context.settings.Put(L"Bypass", L"1");
  expect(L"<60>");
  ftp.requests.clear();
  for (const wchar_t* automatic : {L"0", L"yes"}) {
    EXPECT_TRUE(ftp.requests.empty());
    context.settings.Put(L"AutoUpd", automatic);
    CheckForUpdateAtStart(context, host);
  }
  EXPECT_EQ(ftp.requests.size(), 1u);
  host = L"";  // no server is configured
  expect(L"<55>");
}

TEST_F(Updater, NeverStartsWhatWasRefusedDidNotArriveOrLeadsElsewhere) {
  Offer(L"setup.exe", L"0.5 beta");
  prompts.answers = {false};
  Check(true);
  EXPECT_EQ(prompts.questions.size(), 1u);
  EXPECT_TRUE(prompts.shown.empty());
  for (const wchar_t* name : {L"gone.exe", L"..\\setup.exe", L"/new/setup.exe", L"UPD.dat", L""}) {
    Offer(name);
    prompts.messages.clear();
    prompts.dialogs = {Wait()};
    Check(true);
    EXPECT_EQ(prompts.messages, Texts{L"<58>"});
    EXPECT_EQ(prompts.shown.size(), 1u);  // only for the first, which is a name for a file
  }
  EXPECT_TRUE(shell.programs.empty());

  Offer(L"setup.exe");
  shell.canStart = false;
  prompts.messages.clear();
  prompts.dialogs = {Wait()};
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

TEST_F(Updater, StopsWaitingForAStalledServerWhenTheUserCancelsOrPressesTheButton) {
  ftp.stall = true;
  events.eachTime = [&] {
    EXPECT_TRUE(context.busy);
    EXPECT_EQ(context.status_lbl.Text(), L"<149>");
    if (events.ticks > 5000) context.cancelled = true;
  };
  Check(false);
  EXPECT_EQ(prompts.messages, Texts{L"<177>"});

  events.eachTime = nullptr;
  events.Post([&] {
    ftp.stall = false;
    Offer(L"setup.exe", L"0");
    Check(false);
  });
  CheckForUpdate(context, true, host);  // gives way to it
  EXPECT_EQ(prompts.messages, (Texts{L"<177>", L"<59> Tagrix 1.0.0"}));
}

}  // namespace
}  // namespace tagrix
