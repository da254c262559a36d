#include "discserver/freedb_page.h"

#include <set>
#include <sstream>

#include "discserver/search.h"
#include "discserver/text.h"

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

}  // namespace

std::string SearchPage(Store& store, std::string_view webSite, std::string_view words) {
  const std::string asked = ToUtf8(std::string(words));
  std::ostringstream page;
  page << "<html>\r\n<head><title>Search results</title></head>\r\n<body>\r\n"
       << "<h2>Discs with " << Escaped(ToLatin1(asked)) << "</h2>\r\n<table>\r\n";
  std::set<std::string> titles;
  for (const auto& [disc, text, score] : Search(store, WordsQuery(asked), kMostHits)) {
    const bool otherVersion = !titles.insert(disc.title).second;
    page << "<tr><td>" << disc.category << "</td><td><a href=\"" << webSite
         << "/freedb_search_fmt.php?cat=" << disc.category << "&id=" << disc.id << "\">"
         << (otherVersion ? "<font size=-1>" : "") << Escaped(ToLatin1(disc.title)) << (otherVersion ? "</font>" : "")
         << "</a></td></tr>\r\n";
  }
  page << "</table>\r\n</body>\r\n</html>\r\n";
  return page.str();
}

}  // namespace discserver
