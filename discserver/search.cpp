#include "discserver/search.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

#include "discserver/text.h"

namespace discserver {
namespace {

bool IsAsciiWordCharacter(char c) {
  return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') ||
         static_cast<unsigned char>(c) >= 0x80;
}

// The general punctuation of Unicode (dashes, quotes) as blanks: it begins with the bytes E2 80 or E2 81.
std::string WithoutDashes(std::string_view text) {
  std::string plain(text);
  for (std::size_t at = plain.find('\xE2'); at != plain.npos && at + 2 < plain.size();
       at = plain.find('\xE2', at + 1)) {
    if (plain[at + 1] == '\x80' || plain[at + 1] == '\x81') plain.replace(at, 3, " ");
  }
  return plain;
}

std::string Joined(const std::vector<std::string>& clauses) {
  std::string all;
  for (const std::string& clause : clauses) all.append(all.empty() ? "(" : " AND (").append(clause).append(")");
  return all;
}

// Seldom clauses first. How common one is shows in how far the index has to be walked for its first discs.
void SortByRarity(Store& store, std::vector<std::string>& clauses, std::size_t most) {
  std::vector<std::pair<std::pair<std::size_t, std::int64_t>, std::string>> ranked;
  for (const std::string& clause : clauses) {
    const auto places = store.Match(clause, most);
    if (!places.empty()) ranked.push_back({{places.size(), -places.back()}, clause});
  }
  std::sort(ranked.begin(), ranked.end());
  clauses.clear();
  for (auto& [rarity, clause] : ranked) clauses.push_back(std::move(clause));
}

// Expressions for a query that one clause satisfies, best first: all clauses, all but the commonest, and so on down to
// the rarest alone, and then the others alone.
std::vector<std::pair<std::string, std::size_t>> Stages(const std::vector<std::string>& clauses) {
  std::vector<std::pair<std::string, std::size_t>> stages;  // expression, how many clauses it holds
  for (std::size_t n = clauses.size(); n > 0; --n) {
    stages.emplace_back(Joined({clauses.begin(), clauses.begin() + static_cast<std::ptrdiff_t>(n)}), n);
  }
  for (std::size_t i = 1; i < clauses.size(); ++i) stages.emplace_back(clauses[i], 1);
  return stages;
}

}  // namespace

std::string WordClause(std::string_view word, std::string_view column) {
  const bool prefix = word.ends_with('*');
  std::string text = WithoutDashes(word);
  std::replace_if(
      text.begin(), text.end(), [](char c) { return !IsAsciiWordCharacter(c); }, ' ');
  const std::size_t first = text.find_first_not_of(' ');
  if (first == text.npos) return "";
  text = text.substr(first, text.find_last_not_of(' ') + 1 - first);
  return (column.empty() ? "" : std::string(column) + " : ") + "\"" + text + "\"" + (prefix ? " *" : "");
}

Query WordsQuery(std::string_view words) {
  Query query;
  for (const std::string& word : Words(WithoutDashes(words))) {
    if (word == "OR") {
      query.any = true;
    } else if (std::string clause = WordClause(word, ""); !clause.empty() && query.clauses.size() < kMostClauses) {
      query.clauses.push_back(std::move(clause));
    }
  }
  return query;
}

Query ArtistAndAlbumQuery(std::string_view artist, std::string_view album) {
  if (artist == album) return WordsQuery(artist);
  Query query;
  for (const auto& [column, words] : {std::pair("artist", artist), std::pair("album", album)}) {
    for (const std::string& word : Words(WithoutDashes(words))) {
      std::string clause = WordClause(word, column);
      if (!clause.empty() && query.clauses.size() < kMostClauses) query.clauses.push_back(std::move(clause));
    }
  }
  return query;
}

std::vector<Hit> Search(Store& store, const Query& query, std::size_t most) {
  most = std::min(most, kMostHits);
  std::vector<Hit> hits;
  std::vector<std::string> clauses = query.clauses;
  const std::size_t asked = clauses.size();
  if (clauses.empty()) return hits;
  std::vector<std::pair<std::string, std::size_t>> stages{{Joined(clauses), asked}};
  if (query.any && asked > 1) {
    SortByRarity(store, clauses, most);
    stages = Stages(clauses);
  }
  std::unordered_set<std::int64_t> seen;
  for (const auto& [expression, held] : stages) {
    if (hits.size() >= most) break;
    for (const std::int64_t place : store.Match(expression, most)) {
      if (hits.size() >= most || !seen.insert(place).second) continue;
      auto record = store.At(place);
      if (record)
        hits.push_back({std::move(record->disc), std::move(record->text), static_cast<int>(100 * held / asked)});
    }
  }
  return hits;
}

}  // namespace discserver
