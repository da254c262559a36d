// The part of Lucene's query language that searches of releases use. Source: the query parser syntax of Apache Lucene.
#ifndef TAGRIX_DISCSERVER_LUCENE_H
#define TAGRIX_DISCSERVER_LUCENE_H

#include <stdexcept>
#include <string_view>

#include "discserver/search.h"

namespace discserver {

// What a client asks isn't understood; with a text for him.
struct QueryError : std::runtime_error {
  using std::runtime_error::runtime_error;
};

// Reads words, quoted phrases, groups in parentheses and prefixes, in the fields "release", "artist" or both; joined by
// AND, OR, NOT, "+", "-" and their other spellings, by OR where nothing stands between them. Boosts and fuzziness are
// read over. `text` is UTF-8. Throws QueryError for anything else.
Query ParseLucene(std::string_view text);

}  // namespace discserver

#endif
