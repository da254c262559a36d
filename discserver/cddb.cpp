#include "discserver/cddb.h"

#include <algorithm>
#include <charconv>
#include <vector>

#include "discserver/search.h"
#include "discserver/text.h"
#include "discserver/xmcd.h"

namespace discserver {
namespace {

constexpr int kMostProtocol = 6, kYearProtocol = 5, kExactListProtocol = 4, kSitesProtocol = 3;
constexpr const char* kUntilDot = " (until terminating `.')\r\n";

struct Command {
  const CddbRequest& request;
  std::vector<std::string> words;
  int protocol;
};

// Lines that are to be ended by CR LF, and the dot after them.
std::string Listed(std::string_view lines) {
  std::string text;
  for (const char c : lines) text += c == '\n' ? "\r\n" : std::string(1, c);
  return text + ".\r\n";
}

std::string DiscLines(const std::vector<Disc>& discs) {
  std::string lines;
  for (const Disc& disc : discs) lines += disc.category + " " + disc.id + " " + disc.title + "\n";
  return lines;
}

std::string Read(Store& store, const Command& command) {
  if (command.words.size() != 4) return "500 Command syntax error.\r\n";
  const std::string disc = command.words[2] + " " + command.words[3];
  const auto record = store.Find(command.words[2], command.words[3]);
  if (!record) return "401 " + disc + " No such CD entry in database.\r\n";
  return "210 " + disc + " CD database entry follows" + kUntilDot +
         Listed(command.protocol < kYearProtocol ? WithoutYearAndGenre(record->text) : record->text);
}

// "cddb query DISCID TRACKS OFFSET... SECONDS": by the id alone, which follows from the rest.
std::string AnswerQuery(Store& store, const Command& command) {
  if (command.words.size() < 5) return "500 Command syntax error.\r\n";
  const auto discs = store.WithId(command.words[2]);
  if (discs.empty()) return "202 No match for disc ID " + command.words[2] + ".\r\n";
  if (discs.size() == 1) return "200 " + discs[0].category + " " + discs[0].id + " " + discs[0].title + "\r\n";
  const bool exact = command.protocol >= kExactListProtocol;
  return std::string(exact ? "210 Found exact matches, list follows" : "211 Found inexact matches, list follows") +
         kUntilDot + Listed(DiscLines(discs));
}

std::string Find(Store& store, const Command& command) {
  const auto query = ArtistAndAlbumQuery(ToUtf8(command.request.artist), ToUtf8(command.request.album));
  std::vector<Disc> discs;
  for (Hit& hit : Search(store, query, kMostHits)) discs.push_back(std::move(hit.disc));
  if (discs.empty()) return "202 No match found.\r\n";
  return "200 Found " + std::to_string(discs.size()) + " matches, list follows" + kUntilDot + Listed(DiscLines(discs));
}

std::string Status(Store& store, const Command& command) {
  std::int64_t all = 0;
  std::string categories;
  for (const auto& [category, discs] : store.Categories()) {
    all += discs;
    categories += "    " + category + ": " + std::to_string(discs) + "\n";
  }
  return std::string("210 OK, status information follows") + kUntilDot +
         Listed("Server status:\n    current proto: " + std::to_string(command.protocol) +
                "\n    max proto: " + std::to_string(kMostProtocol) +
                "\n    interface: http\n    gets: no\n    puts: no\n    updates: no\n    posting: no\n    validation: "
                "accepted\n    quotes: yes\n    strip ext: no\n    secure: no\nDatabase entries: " +
                std::to_string(all) + "\nDatabase entries by category:\n" + categories);
}

std::string Categories(Store& store) {
  std::string lines;
  for (const auto& [category, discs] : store.Categories()) lines += category + "\n";
  return std::string("210 OK, category list follows") + kUntilDot + Listed(lines);
}

// The only site that is known is this one.
std::string Sites(const Command& command) {
  const std::string& site = command.request.site;
  const std::size_t colon = std::min(site.rfind(':'), site.size());
  const std::string host = site.substr(0, colon), port = colon == site.size() ? "80" : site.substr(colon + 1);
  const std::string place = " N000.00 W000.00 Disc server\n";
  return std::string("210 OK, site information follows") + kUntilDot +
         Listed(command.protocol < kSitesProtocol ? host + " " + port + place
                                                  : host + " http " + port + " /~cddb/cddb.cgi" + place);
}

std::string Help() {
  return std::string("210 OK, help information follows") + kUntilDot +
         Listed(
             "The following commands are supported:\n    CDDB LSCAT | QUERY | READ, HELP, MOTD, SEARCH, SITES, STAT, "
             "VER\n");
}

std::string AnswerCommand(Store& store, const Command& command) {
  const auto is = [&command](std::size_t place, std::string_view name) {
    return command.words.size() > place && command.words[place] == name;
  };
  if (is(0, "ver")) return "200 discserver 1.0, for discs in the xmcd format.\r\n";
  if (is(0, "help")) return Help();
  if (is(0, "motd")) return "401 No message of the day available.\r\n";
  if (is(0, "sites")) return Sites(command);
  if (is(0, "stat")) return Status(store, command);
  if (is(0, "search")) return Find(store, command);
  if (!is(0, "cddb") || !(is(1, "read") || is(1, "query") || is(1, "lscat"))) return "500 Unrecognized command.\r\n";
  if (is(1, "lscat")) return Categories(store);
  return is(1, "read") ? Read(store, command) : AnswerQuery(store, command);
}

}  // namespace

CddbReply AnswerCddb(Store& store, const CddbRequest& request) {
  int protocol = 1;
  const char* end = request.protocol.data() + request.protocol.size();
  const auto [stop, error] = std::from_chars(request.protocol.data(), end, protocol);
  if (!request.protocol.empty() && (error != std::errc() || stop != end || protocol < 1 || protocol > kMostProtocol)) {
    return {"501 Illegal protocol level.\r\n"};
  }
  if (Words(request.hello).size() < 4) return {"409 No handshake.\r\n"};
  Command command{request, Words(request.command), protocol};
  for (std::string& word : command.words) {
    for (char& c : word) c = c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
  }
  const std::string text = AnswerCommand(store, command);
  const bool utf8 = protocol == kMostProtocol;
  return {utf8 ? text : ToLatin1(text), utf8};
}

}  // namespace discserver
