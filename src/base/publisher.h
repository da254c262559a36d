// Every constant that names the publisher or a server: product, sites, mail, FreeDB hosts.
#ifndef TAGRIX_BASE_PUBLISHER_H
#define TAGRIX_BASE_PUBLISHER_H

namespace tagrix::publisher {

inline constexpr const wchar_t* kProduct = L"Tagrix";

// The program's version; the resource holds the same (CMake's project version).
inline constexpr int kMajor = TAGRIX_VERSION_MAJOR, kMinor = TAGRIX_VERSION_MINOR, kRevision = TAGRIX_VERSION_PATCH;

inline constexpr const wchar_t* kWebSite = L"http://www.tagrix.example";
inline constexpr const wchar_t* kWebHost = L"www.tagrix.example";  // named in the CDDB hello
inline constexpr const wchar_t* kCddbClient = kProduct;            // the client as registered with gnudb
inline constexpr const wchar_t* kSupportMail = L"support@tagrix.example";
inline constexpr const wchar_t* kAuthors = L"Tagrix contributors";

// The web site with FreeDB's keyword search; the links on its pages begin with it, too.
inline constexpr const wchar_t* kFreeDbWebSite = L"http://www.freedb.org";

// The servers that carry the database on, row 0 the one to use by default.
struct FreeDbServer {
  const wchar_t* host;
  const wchar_t* label;
};
inline constexpr const wchar_t* kGnudb = L"gnudb.gnudb.org";
inline constexpr const wchar_t* kDbPowerAmp = L"freedb.dbpoweramp.com";
inline constexpr FreeDbServer kFreeDbServers[] = {
    {kGnudb, L"Random FreeDB Server"},      {kDbPowerAmp, L"Dortmund, Germany"},
    {kGnudb, L"Vienna, Austria"},           {kDbPowerAmp, L"Sydney, Australia"},
    {kGnudb, L"Sofia, Bulgaria"},           {kDbPowerAmp, L"Winnipeg, Manitoba, Canada"},
    {kGnudb, L"Edmonton, Alberta, Canada"}, {kDbPowerAmp, L"Berlin, Germany"},
    {kGnudb, L"Valencia, Spain"},           {kDbPowerAmp, L"Tampere, Finland"},
    {kGnudb, L"Betzdorf, Luxemburg"},
};

// The publisher's FTP server for updates; empty: none is configured and no update check takes place.
inline constexpr const wchar_t* kFtpHost = L"";

// The maker of the CD burning program, and its page on that program.
inline constexpr const wchar_t* kBurnerMakerSite = L"http://www.vso.example";
inline constexpr const wchar_t* kBurnerSite = L"http://www.vso.example/copytodvd";

}  // namespace tagrix::publisher

#endif
