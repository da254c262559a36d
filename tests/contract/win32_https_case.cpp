// A certificate that is trusted during a test.
#include <fstream>
#include <iterator>
#include <stdexcept>

#include "contract/cases.h"
#include "contract/https_case.h"

namespace tagrix {
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

int HttpsCase::Port(const char* variable) { return std::stoi(Place(variable)); }

std::wstring HttpsCase::Site(const char* variable, const wchar_t* host) {
  return host + std::to_wstring(Port(variable));
}

}  // namespace tagrix
