#include "update/updater.h"

#include <optional>

#include "core/failure.h"
#include "core/helpers.h"
#include "core/messages.h"
#include "core/text.h"
#include "update/transfer.h"
#include "update/upd.h"
#include "update/update_rules.h"

namespace tagrix {
namespace {

constexpr const wchar_t* kInfoFolder = L"/ostrelco/files";
constexpr const wchar_t* kInfoFile = L"upd.dat";
constexpr std::uint64_t kLongestInfo = 1 << 20;  // bytes; three lines are enough

std::wstring UpdFolder(const Context& context) { return context.programFolder + L"\\upd"; }
std::wstring InfoPath(const Context& context) { return UpdFolder(context) + L"\\" + kInfoFile; }

FtpRequest Request(const Context& context, const std::wstring& host, std::wstring folder, const std::wstring& file) {
  FtpRequest request;
  request.user = L"anonymous";
  request.password = L"rova_plint";
  request.host = host;
  request.remoteFolder = std::move(folder);
  request.remoteFile = file;
  request.localPath = UpdFolder(context) + L"\\" + file;
  return request;
}

// Downloads while events run; false when it failed or the user cancelled.
bool Download(Context& context, const FtpRequest& request) {
  std::optional<bool> complete;
  const Transfer transfer(context.ftp, request, [&](bool whole) { complete = whole; });
  while (!complete && !context.cancelled) {
    context.events.DoEvents();
    if (!complete && !context.cancelled) context.events.Wait(20);
  }
  return complete.value_or(false);
}

// "upd.dat" for as long as it is needed.
class UpdateInfo {
 public:
  explicit UpdateInfo(Context& context) : context_(context) {}
  ~UpdateInfo() {
    try {
      if (FileExists(context_, InfoPath(context_))) context_.files.Delete(InfoPath(context_));
    } catch (const Failure&) {  // the next check replaces it
    }
  }
  UpdateInfo(const UpdateInfo&) = delete;
  UpdateInfo& operator=(const UpdateInfo&) = delete;

  // False when it could not be fetched.
  bool Fetch(const std::wstring& host) {
    try {
      if (!FolderExists(context_, UpdFolder(context_))) context_.files.CreateFolder(UpdFolder(context_));
      if (!Download(context_, Request(context_, host, kInfoFolder, kInfoFile))) return false;
      const auto file = context_.files.Find(InfoPath(context_));
      if (!file || file->size > kLongestInfo) return false;
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
  const FtpRequest request = Request(context, host, info.Value(L"Path"), name);
  if (IsBareFileName(name) && !EqualIgnoringCase(name, kInfoFile)) {
    if (FileExists(context, request.localPath)) context.files.Delete(request.localPath);
    SetBusy(context, true);
    result = DownloadInWindow(context, request);
    SetBusy(context, false);
  }
  if (result == DownloadResult::Failed) context.prompts.Message(context.Text(message::kDownloadFailed));
  if (result != DownloadResult::Complete) return {};
  return request.localPath;
}

std::wstring Filled(Context& context, int message) { return FillMessage(context.Text(message), {publisher::kProduct}); }

// Fetches "upd.dat" and compares; the path of the installer when a new one has been downloaded.
std::optional<std::wstring> LookForInstaller(Context& context, bool silent, const std::wstring& host) {
  UpdateInfo info(context);
  const bool fetched = info.Fetch(host);
  if (!silent) {
    SetBusy(context, false);
    SetStatus(context, L"");
  }
  if (!fetched) {
    if (!silent && context.cancelled) {
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
  context.cancelled = false;
  const bool test = context.settings.Get(L"Bypass") != L"1";
  if (host.empty() || (test && !context.ftp.InternetConnected())) {
    if (!silent) context.prompts.Message(context.Text(message::kNoConnection));
    return;
  }
  if (!silent) {
    SetBusy(context, true);
    SetStatus(context, context.Text(message::kLookingForUpdate));
  }
  if (const auto installer = LookForInstaller(context, silent, host)) StartInstaller(context, *installer);
}

void CheckForUpdateAtStart(Context& context, const std::wstring& host) {
  if (context.settings.Get(L"AutoUpd") != L"0") CheckForUpdate(context, true, host);
}

}  // namespace tagrix
