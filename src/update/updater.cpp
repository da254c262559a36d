#include "update/updater.h"

#include <memory>
#include <optional>
#include <utility>

#include "base/failure.h"
#include "base/letter_case.h"
#include "base/text.h"
#include "core/long_work.h"
#include "core/messages.h"
#include "core/notices.h"
#include "storage/small_files.h"
#include "update/transfer.h"
#include "update/update_rules.h"
#include "update/update_window.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kInfoFolder = L"/ostrelco/files";
constexpr const wchar_t* kInfoFile = L"upd.dat";
constexpr std::uint64_t kLongestInfo = 1 << 20;          // bytes; three lines are enough
constexpr std::uint64_t kLongestInstaller = 1ull << 30;  // where the server announces no size

std::wstring UpdFolder(const Context& context) { return context.programFolder + L"\\upd"; }
std::wstring InfoPath(const Context& context) { return UpdFolder(context) + L"\\" + kInfoFile; }

FtpRequest Request(const Context& context, const std::wstring& host, std::wstring folder, const std::wstring& file,
                   std::uint64_t limit) {
  FtpRequest request;
  request.user = L"anonymous";
  request.password = L"rova_plint";
  request.host = host;
  request.remoteFolder = std::move(folder);
  request.remoteFile = file;
  request.localPath = UpdFolder(context) + L"\\" + file;
  request.limit = limit;
  return request;
}

// Downloads while events run; false when it failed or the user cancelled.
bool Download(Context& context, const FtpRequest& request, const Progress& progress) {
  std::optional<bool> complete;
  const Transfer transfer(context.ftp, request, [&](bool whole) { complete = whole; });
  while (!complete && !progress.Cancelled()) {
    context.events.DoEvents();
    if (!complete && !progress.Cancelled()) context.events.Wait(20);
  }
  return complete.value_or(false);
}

// "upd.dat" for as long as it is needed.
class UpdateInfo {
 public:
  explicit UpdateInfo(Context& context) : context_(context) {}
  ~UpdateInfo() {
    try {
      if (FileExists(context_.files, InfoPath(context_))) context_.files.Delete(InfoPath(context_));
    } catch (const Failure&) {  // the next check replaces it
    }
  }
  UpdateInfo(const UpdateInfo&) = delete;
  UpdateInfo& operator=(const UpdateInfo&) = delete;

  // False when it could not be fetched.
  bool Fetch(const std::wstring& host, const Progress& progress) {
    try {
      if (!FolderExists(context_.files, UpdFolder(context_))) context_.files.CreateFolder(UpdFolder(context_));
      if (!Download(context_, Request(context_, host, kInfoFolder, kInfoFile, kLongestInfo), progress)) return false;
      text_ = context_.codePage.ToText(ReadWholeFile(context_.files, InfoPath(context_)));
      return true;
    } catch (const Failure&) {
      return false;
    }
  }
  std::wstring Value(std::wstring_view key) const { return Trim(ProfileValue(text_, publisher::kProduct, key)); }

 private:
  Context& context_;
  std::wstring text_;
};

// The path of the installer; nothing when it was not downloaded.
std::optional<std::wstring> FetchInstaller(Context& context, const UpdateInfo& info, const std::wstring& host) {
  const std::wstring name = info.Value(L"FileName");
  auto result = DownloadResult::Failed;
  const FtpRequest request = Request(context, host, info.Value(L"Path"), name, kLongestInstaller);
  if (IsBareFileName(name) && !EqualIgnoringCase(name, kInfoFile)) {
    if (FileExists(context.files, request.localPath)) context.files.Delete(request.localPath);
    const LongWork work(context);
    result = DownloadInWindow(context, request);
  }
  if (result == DownloadResult::Failed) context.prompts.Message(context.Text(message::kDownloadFailed));
  if (result != DownloadResult::Complete) return {};
  return request.localPath;
}

std::wstring Filled(Context& context, int message) { return FillMessage(context.Text(message), {publisher::kProduct}); }

// Fetches "upd.dat" and compares; the path of the installer when a new one has been downloaded.
std::optional<std::wstring> LookForInstaller(Context& context, bool silent, const std::wstring& host) {
  UpdateInfo info(context);
  bool fetched = false, cancelled = false;
  {
    const auto work = silent ? std::make_unique<SilentWork>(context) : std::make_unique<LongWork>(context);
    work->Status(context.Text(message::kLookingForUpdate));
    fetched = info.Fetch(host, *work);
    cancelled = work->Cancelled();
  }
  if (!fetched) {
    if (!silent && cancelled) {
      ShowCancelMessage(context);
    } else if (!silent) {
      context.prompts.Message(context.Text(message::kUpdateInfoFailed));
    }
    return {};
  }
  if (LeadingNumber(info.Value(L"build")) > publisher::kRevision) {
    if (!context.prompts.Question(Filled(context, message::kNewVersion))) return {};
    return FetchInstaller(context, info, host);
  }
  if (!silent) {
    context.prompts.Message(FillMessage(context.Text(message::kUpToDate),
                                        {publisher::kProduct, std::to_wstring(publisher::kMajor),
                                         std::to_wstring(publisher::kMinor), std::to_wstring(publisher::kRevision)}));
  }
  return {};
}

void StartInstaller(Context& context, const std::wstring& installer) {
  if (!context.mayQuit()) return;
  context.prompts.Message(Filled(context, message::kDownloadComplete));
  if (context.shell.Start(installer, L"\"" + installer + L"\"") == nullptr) {
    context.prompts.Message(FillMessage(context.Text(message::kInstallerNotStarted), {installer}));
    return;
  }
  context.ftp.Close();
  context.events.DoEvents();
  context.quit();
}

}  // namespace

void CheckForUpdate(Context& context, bool silent, const std::wstring& host) {
  const bool test = !context.settings.Get(setting::kBypass);
  if (host.empty() || (test && !context.ftp.InternetConnected())) {
    if (!silent) context.prompts.Message(context.Text(message::kNoConnection));
    return;
  }
  if (const auto installer = LookForInstaller(context, silent, host)) StartInstaller(context, *installer);
}

void CheckForUpdateAtStart(Context& context, const std::wstring& host) {
  if (context.settings.Get(setting::kAutoUpdate)) CheckForUpdate(context, true, host);
}

}  // namespace tagrix
