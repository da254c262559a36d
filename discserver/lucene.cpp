#include "discserver/lucene.h"

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

namespace discserver {
namespace {

constexpr std::string_view kBlanks = " \t\r\n";
constexpr int kDeepest = 20;

struct Token {
  enum class Kind { Word, Phrase, Field, Open, Close, And, Or, Not, Plus, End };
  Kind kind;
  std::string text;  // of words and phrases, escapes undone; of a field, its name
};

class Lexer {
 public:
  explicit Lexer(std::string_view text) : rest_(text) {}

  Token Next() {
    rest_.remove_prefix(std::min(rest_.find_first_not_of(kBlanks), rest_.size()));
    if (rest_.empty()) return {Token::Kind::End, ""};
    for (const auto& [sign, kind] : kSigns) {
      if (!Take(sign)) continue;
      if (kind == Token::Kind::Close) SkipModifiers();
      return {kind, ""};
    }
    if (Take("\"")) return Phrase();
    if (std::string_view("[]{}/").find(rest_[0]) != std::string_view::npos) {
      throw QueryError("Ranges and regular expressions are not supported");
    }
    return Word();
  }

 private:
  static constexpr std::pair<std::string_view, Token::Kind> kSigns[] = {
      {"(", Token::Kind::Open}, {")", Token::Kind::Close}, {"&&", Token::Kind::And}, {"||", Token::Kind::Or},
      {"!", Token::Kind::Not},  {"-", Token::Kind::Not},   {"+", Token::Kind::Plus}};

  bool Take(std::string_view sign) {
    if (!rest_.starts_with(sign)) return false;
    rest_.remove_prefix(sign.size());
    return true;
  }
  // Takes a character, or the one after a backslash.
  char TakeCharacter() {
    if (rest_[0] == '\\' && rest_.size() > 1) rest_.remove_prefix(1);
    const char c = rest_[0];
    rest_.remove_prefix(1);
    return c;
  }
  // "^2.5" and "~0.8" say how much a term counts, and how near is near enough.
  void SkipModifiers() {
    while (!rest_.empty() && (rest_[0] == '^' || rest_[0] == '~')) {
      rest_.remove_prefix(1);
      rest_.remove_prefix(std::min(rest_.find_first_not_of("0123456789."), rest_.size()));
    }
  }
  Token Phrase() {
    std::string text;
    while (!rest_.empty() && rest_[0] != '"') text += TakeCharacter();
    if (!Take("\"")) throw QueryError("A quote is not closed");
    SkipModifiers();
    return {Token::Kind::Phrase, text};
  }
  Token Word() {
    constexpr std::string_view kEnds = " \t\r\n()\":^~";
    std::string text;
    bool escaped = false;
    while (!rest_.empty() && kEnds.find(rest_[0]) == kEnds.npos) {
      escaped = escaped || rest_[0] == '\\';
      // An escaped star is punctuation, not the end of a prefix.
      text += rest_.starts_with("\\*") ? (TakeCharacter(), ' ') : TakeCharacter();
    }
    if (Take(":")) return {Token::Kind::Field, text};
    if (text.empty()) throw QueryError("A term is missing");
    SkipModifiers();
    if (!escaped && text == "AND") return {Token::Kind::And, ""};
    if (!escaped && text == "OR") return {Token::Kind::Or, ""};
    if (!escaped && text == "NOT") return {Token::Kind::Not, ""};
    return {Token::Kind::Word, text};
  }

  std::string_view rest_;
};

// What is joined within one pair of parentheses, as expressions of FTS5.
struct Group {
  std::vector<std::string> wanted, required, excluded;
};

std::string Join(const std::vector<std::string>& parts, std::string_view sign) {
  std::string joined;
  for (const std::string& part : parts) joined.append(joined.empty() ? "(" : sign).append(part);
  return joined + ")";
}

// What is required leaves what is merely wanted without effect on what is found.
std::string Expression(const Group& group) {
  if (group.required.empty() && group.wanted.empty()) return "";
  const std::string found = group.required.empty() ? Join(group.wanted, " OR ") : Join(group.required, " AND ");
  return group.excluded.empty() ? found : "(" + found + " NOT " + Join(group.excluded, " OR ") + ")";
}

class Parser {
 public:
  explicit Parser(std::string_view text) : lexer_(text) { Advance(); }

  Group Parse() {
    Group group = ParseGroup("", 0);
    if (token_.kind != Token::Kind::End) throw QueryError("A closing parenthesis has no opening one");
    return group;
  }

 private:
  void Advance() { token_ = lexer_.Next(); }

  // AND makes both of its sides required, OR leaves them as they are.
  Group ParseGroup(std::string_view column, int depth) {
    if (depth > kDeepest) throw QueryError("The query is nested too deep");
    Group group;
    bool afterAnd = false;
    while (token_.kind != Token::Kind::End && token_.kind != Token::Kind::Close) {
      bool excluded = false, required = afterAnd;
      for (; token_.kind == Token::Kind::Not || token_.kind == Token::Kind::Plus; Advance()) {
        (token_.kind == Token::Kind::Not ? excluded : required) = true;
      }
      std::string clause = ParseClause(column, depth);
      afterAnd = token_.kind == Token::Kind::And;
      if (afterAnd || token_.kind == Token::Kind::Or) {
        Advance();
        if (token_.kind == Token::Kind::End || token_.kind == Token::Kind::Close) {
          throw QueryError("A term is missing");
        }
      }
      if (clause.empty()) continue;
      if (++clauses_ > kMostClauses * 2) throw QueryError("The query has too many terms");
      (excluded ? group.excluded : required || afterAnd ? group.required : group.wanted).push_back(std::move(clause));
    }
    return group;
  }

  // Empty for a term without letters.
  std::string ParseClause(std::string_view column, int depth) {
    if (token_.kind == Token::Kind::Field) {
      column = Column(token_.text);
      Advance();
    }
    const Token token = token_;
    Advance();
    switch (token.kind) {
      case Token::Kind::Word:
        return WordClause(token.text, column);
      case Token::Kind::Phrase:
        return WordClause(token.text + " ", column);
      case Token::Kind::Open: {
        std::string expression = Expression(ParseGroup(column, depth + 1));
        if (token_.kind != Token::Kind::Close) throw QueryError("A parenthesis is not closed");
        Advance();
        return expression;
      }
      default:
        throw QueryError("A term is missing");
    }
  }

  static std::string_view Column(std::string_view field) {
    if (field == "release") return "album";
    if (field == "artist") return "artist";
    throw QueryError("Only the fields release and artist can be searched");
  }

  Lexer lexer_;
  Token token_{Token::Kind::End, ""};
  std::size_t clauses_ = 0;
};

}  // namespace

Query ParseLucene(std::string_view text) {
  Group group = Parser(text).Parse();
  if (group.required.empty() && group.excluded.empty() && group.wanted.size() > 1) {
    return {std::move(group.wanted), true};
  }
  const std::string expression = Expression(group);
  return expression.empty() ? Query{} : Query{{expression}, false};
}

}  // namespace discserver
