#include "tags/id3v2_conversion.h"

#include <algorithm>
#include <iterator>

#include "tags/id3v2_header.h"

namespace tagrix {
namespace {

// Frames with the same data under another name: those of the standard, then those that came into use beside it.
constexpr std::string_view kNames[][2] = {
    {"BUF", "RBUF"}, {"CNT", "PCNT"}, {"COM", "COMM"}, {"CRA", "AENC"}, {"ETC", "ETCO"}, {"EQU", "EQUA"},
    {"GEO", "GEOB"}, {"IPL", "IPLS"}, {"MCI", "MCDI"}, {"MLL", "MLLT"}, {"POP", "POPM"}, {"REV", "RVRB"},
    {"RVA", "RVAD"}, {"SLT", "SYLT"}, {"STC", "SYTC"}, {"TAL", "TALB"}, {"TBP", "TBPM"}, {"TCM", "TCOM"},
    {"TCO", "TCON"}, {"TCR", "TCOP"}, {"TDA", "TDAT"}, {"TDY", "TDLY"}, {"TEN", "TENC"}, {"TFT", "TFLT"},
    {"TIM", "TIME"}, {"TKE", "TKEY"}, {"TLA", "TLAN"}, {"TLE", "TLEN"}, {"TMT", "TMED"}, {"TOA", "TOPE"},
    {"TOF", "TOFN"}, {"TOL", "TOLY"}, {"TOR", "TORY"}, {"TOT", "TOAL"}, {"TP1", "TPE1"}, {"TP2", "TPE2"},
    {"TP3", "TPE3"}, {"TP4", "TPE4"}, {"TPA", "TPOS"}, {"TPB", "TPUB"}, {"TRC", "TSRC"}, {"TRD", "TRDA"},
    {"TRK", "TRCK"}, {"TSI", "TSIZ"}, {"TSS", "TSSE"}, {"TT1", "TIT1"}, {"TT2", "TIT2"}, {"TT3", "TIT3"},
    {"TXT", "TEXT"}, {"TXX", "TXXX"}, {"TYE", "TYER"}, {"UFI", "UFID"}, {"ULT", "USLT"}, {"WAF", "WOAF"},
    {"WAR", "WOAR"}, {"WAS", "WOAS"}, {"WCM", "WCOM"}, {"WCP", "WCOP"}, {"WPB", "WPUB"}, {"WXX", "WXXX"},
    {"GP1", "GRP1"}, {"MVI", "MVIN"}, {"MVN", "MVNM"}, {"PCS", "PCST"}, {"TCP", "TCMP"}, {"TCT", "TCAT"},
    {"TDR", "TDRL"}, {"TDS", "TDES"}, {"TID", "TGID"}, {"TKW", "TKWD"}, {"TS2", "TSO2"}, {"TSA", "TSOA"},
    {"TSC", "TSOC"}, {"TSP", "TSOP"}, {"TST", "TSOT"}, {"WFD", "WFED"},
};

// A picture tells its kind in three letters in 2.2, as a MIME type later.
std::optional<ConvertedFrame> NewerPicture(std::string_view data) {
  constexpr std::size_t kType = 4;
  if (data.size() <= kType) return std::nullopt;
  std::string format(data.substr(1, 3));
  std::transform(format.begin(), format.end(), format.begin(),
                 [](char c) { return c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c; });
  if (format.find('\0') != format.npos) return std::nullopt;
  const std::string mime = format == "-->" ? format : format == "jpg" ? "image/jpeg" : "image/" + format;
  return ConvertedFrame{"APIC", 0, data[0] + mime + '\0' + std::string(data.substr(kType))};
}

}  // namespace

std::optional<ConvertedFrame> FromVersion2(std::string_view id, std::string_view data) {
  if (id == "PIC") return NewerPicture(data);
  const auto* found =
      std::find_if(std::begin(kNames), std::end(kNames), [&](const auto& name) { return name[0] == id; });
  if (found == std::end(kNames)) return std::nullopt;
  return ConvertedFrame{std::string((*found)[1]), 0, std::string(data)};
}

std::optional<ConvertedFrame> FromVersion3(std::string_view id, std::uint16_t flags, std::string_view data) {
  const bool compressed = (flags & 0x80) != 0, encrypted = (flags & 0x40) != 0, grouped = (flags & 0x20) != 0;
  auto newFlags = static_cast<std::uint16_t>(flags >> 1 & 0x7000);
  const std::size_t before = (compressed ? 4 : 0) + (encrypted ? 1 : 0) + (grouped ? 1 : 0);
  if (data.size() <= before) return std::nullopt;
  std::string result;
  if (grouped) {
    newFlags |= 0x40;
    result += data[before - 1];
  }
  if (encrypted) {
    newFlags |= 0x04;
    result += data[compressed ? 4 : 0];
  }
  if (compressed) {
    newFlags |= 0x08 | 0x01;  // compressed data is preceded by its length, here in 7 bits a byte
    const std::uint32_t length = BigEndian(data.substr(0, 4));
    if (length >= kSyncsafeEnd) return std::nullopt;
    result += SyncsafeBytes(length);
  }
  return ConvertedFrame{std::string(id), newFlags, result.append(data.substr(before))};
}

}  // namespace tagrix
