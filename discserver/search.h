// Searching artists and titles: from what clients ask to the discs that answer it best.
#ifndef TAGRIX_DISCSERVER_SEARCH_H
#define TAGRIX_DISCSERVER_SEARCH_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "discserver/store.h"

namespace discserver {

// Expressions of FTS5, each for a word, a phrase or a group of them.
struct Query {
  std::vector<std::string> clauses;
  bool any = false;  // whether one of them is enough
};

// Everything asked for is cut off here: no client needs more words, and no list more hits.
constexpr std::size_t kMostClauses = 16, kMostHits = 200;

// The expression for one word in a column ("artist", "album"; empty for both); empty for a text without any letter or
// digit. A word that ends with "*" stands for all that begin like it. Text that holds punctuation is a phrase.
std::string WordClause(std::string_view word, std::string_view column);
// All of the words (UTF-8), or with "OR" among them any.
Query WordsQuery(std::string_view words);
// Artist and album apart, or the same words for both where they are equal; either may be empty.
Query ArtistAndAlbumQuery(std::string_view artist, std::string_view album);

struct Hit {
  Disc disc;
  std::string text;  // of the record
  int score = 0;     // 1 to 100, how much of the query the disc answers
};

// The best hits first: those that answer more clauses, seldom ones before common ones, and among them short titles.
std::vector<Hit> Search(Store& store, const Query& query, std::size_t most);

}  // namespace discserver

#endif
