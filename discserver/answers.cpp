#include "answers.h"

#include <sstream>

namespace discserver {
namespace {

std::string Escaped(std::string_view text) {
  std::string html;
  for (const char c : text) {
    if (c == '&') {
      html += "&amp;";
    } else if (c == '<') {
      html += "&lt;";
    } else {
      html += c;
    }
  }
  return html;
}

std::vector<std::string> Words(std::string_view text) {
  std::vector<std::string> words;
  std::istringstream pieces{std::string(text)};
  for (std::string word; pieces >> word;) words.push_back(word);
  return words;
}

}  // namespace

std::string SearchPage(const std::vector<Record>& records, std::string_view webSite, std::string_view words) {
  std::ostringstream page;
  page << "<html>\r\n<head><title>Search results</title></head>\r\n<body>\r\n"
       << "<h2>Discs with " << Escaped(words) << "</h2>\r\n<table>\r\n";
  for (const Record* record : FindByWords(records, words)) {
    page << "<tr><td>" << record->category << "</td><td><a href=\"" << webSite
         << "/freedb_search_fmt.php?cat=" << record->category << "&id=" << record->id << "\">"
         << (record->otherVersion ? "<font size=-1>" : "") << Escaped(record->title)
         << (record->otherVersion ? "</font>" : "") << "</a></td></tr>\r\n";
  }
  page << "</table>\r\n</body>\r\n</html>\r\n";
  return page.str();
}

std::string CddbReply(const std::vector<Record>& records, std::string_view command, std::string_view hello) {
  const std::vector<std::string> words = Words(command);
  if (words.size() != 4 || words[0] != "cddb" || words[1] != "read") return "500 Unrecognized command.\r\n";
  if (Words(hello).size() != 4) return "409 No handshake.\r\n";
  const Record* record = FindById(records, words[2], words[3]);
  if (record == nullptr) return "401 " + words[2] + " " + words[3] + " No such CD entry in database.\r\n";
  return "210 " + words[2] + " " + words[3] + " CD database entry follows (until terminating `.')\r\n" + record->text +
         ".\r\n";
}

}  // namespace discserver
