// What a test does to the ports of Windows from outside.
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "base/text.h"
#include "contract/cases.h"

namespace tagrix {

std::string Place(const char* name) {
  const char* place = std::getenv(name);
  if (place == nullptr) throw std::runtime_error(std::string(name) + " is missing: with_servers.py must run this");
  return place;
}

void DeleteRegistryKey(const std::wstring& key) { RegDeleteTreeW(HKEY_CURRENT_USER, key.c_str()); }

FilesCase::FilesCase() {
  const testing::TestInfo& test = *testing::UnitTest::GetInstance()->current_test_info();
  folder = Widen("Z:" + Place("TAGRIX_FOLDER") + "/" + test.name());
  std::replace(folder.begin(), folder.end(), L'/', L'\\');
  std::filesystem::remove_all(folder);  // where the test is repeated
  files.CreateFolder(folder);
}

bool FilesCase::Lenient() { return GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "wine_get_version") != nullptr; }

void FilesCase::SetReadOnly(const std::wstring& path) { SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_READONLY); }

std::wstring FilesCase::ShareRoot() {
  const std::wstring own = L"\\\\localhost\\C$";
  if (!Lenient()) return GetFileAttributesW(own.c_str()) == INVALID_FILE_ATTRIBUTES ? L"" : own;
  // Wine's shares are folders of its prefix.
  std::filesystem::create_directories("Z:" + Place("WINEPREFIX") + "/dosdevices/unc/server/share");
  return L"\\\\server\\share";
}

bool FilesCase::AddLink(const std::wstring& path) {
  return CreateSymbolicLinkW(path.c_str(), L"..", SYMBOLIC_LINK_FLAG_DIRECTORY) != 0 && files.Find(path);
}

bool CloseTitled(const std::wstring& title) {
  const HWND window = FindWindowW(nullptr, title.c_str());
  return window != nullptr && PostMessageW(window, WM_CLOSE, 0, 0);
}

std::wstring ShellCase::Copied() {
  OpenClipboard(nullptr);
  const HGLOBAL copied = GetClipboardData(CF_UNICODETEXT);
  std::wstring text = copied == nullptr ? L"" : static_cast<const wchar_t*>(GlobalLock(copied));
  CloseClipboard();
  return text;
}

FtpCase::FtpCase() {
  request.user = L"someone";
  request.password = L"secret";
  request.host = L"127.0.0.1";
  request.port = Port("TAGRIX_FTP_PORT");
}

void FtpCase::Offer(const std::string& path, const std::string& content) {
  std::ofstream("Z:" + Place("TAGRIX_FTP_FOLDER") + path, std::ios::binary) << content;
}

HttpsCase::HttpsCase()
    : store_(CertOpenStore(CERT_STORE_PROV_SYSTEM_W, 0, 0, CERT_SYSTEM_STORE_CURRENT_USER, L"Root")) {
  std::ifstream file("Z:" + Place("TAGRIX_CERTIFICATE"), std::ios::binary);
  const std::string bytes(std::istreambuf_iterator<char>(file), {});
  if (!CertAddEncodedCertificateToStore(store_, X509_ASN_ENCODING, reinterpret_cast<const BYTE*>(bytes.data()),
                                        static_cast<DWORD>(bytes.size()), CERT_STORE_ADD_REPLACE_EXISTING,
                                        &certificate_) ||
      !CertControlStore(store_, 0, CERT_STORE_CTRL_COMMIT, nullptr)) {
    throw std::runtime_error("the trusted certificates can't be changed");
  }
}

HttpsCase::~HttpsCase() {
  CertDeleteCertificateFromStore(certificate_);
  CertCloseStore(store_, 0);
}

}  // namespace tagrix
