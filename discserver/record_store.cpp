#include "record_store.h"

#include <algorithm>
#include <fstream>
#include <sstream>

namespace discserver {
namespace {

// The lower-case letter of ISO 8859-1, or the digit; 0 when the character is neither.
char WordCharacter(char character) {
  const auto c = static_cast<unsigned char>(character);
  if ((c >= 'A' && c <= 'Z') || (c >= 0xC0 && c <= 0xDE && c != 0xD7)) return static_cast<char>(c + 0x20);
  const bool keeps = (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || (c >= 0xDF && c != 0xF7);
  return keeps ? character : '\0';
}

std::set<std::string> WordsOf(std::string_view text) {
  std::set<std::string> words;
  std::string word;
  for (const char character : text) {
    if (const char c = WordCharacter(character)) {
      word += c;
    } else if (!word.empty()) {
      words.insert(std::move(word));
      word.clear();
    }
  }
  if (!word.empty()) words.insert(std::move(word));
  return words;
}

Record LoadRecord(const std::filesystem::path& path) {
  constexpr std::string_view kTitle = "DTITLE=";
  Record record;
  record.category = path.parent_path().filename().string();
  record.id = path.filename().string();
  std::ifstream file(path, std::ios::binary);
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with('\r')) line.pop_back();
    if (line.starts_with(kTitle)) record.title += line.substr(kTitle.size());
    record.text += line + "\r\n";
  }
  record.words = WordsOf(record.title);
  return record;
}

}  // namespace

std::vector<Record> LoadRecords(const std::filesystem::path& folder) {
  std::vector<Record> records;
  for (const auto& category : std::filesystem::directory_iterator(folder)) {
    if (!category.is_directory()) continue;
    for (const auto& file : std::filesystem::directory_iterator(category)) {
      Record record = LoadRecord(file.path());
      if (!record.title.empty()) records.push_back(std::move(record));
    }
  }
  std::sort(records.begin(), records.end(), [](const Record& a, const Record& b) {
    return a.category != b.category ? a.category < b.category : a.id < b.id;
  });
  std::set<std::string_view> titles;
  for (Record& record : records) record.otherVersion = !titles.insert(record.title).second;
  return records;
}

std::vector<const Record*> FindByWords(const std::vector<Record>& records, std::string_view words) {
  bool any = false;
  std::string wanted;
  std::istringstream pieces{std::string(words)};
  for (std::string piece; pieces >> piece;) {
    if (piece == "OR") {
      any = true;
    } else {
      wanted += piece + " ";
    }
  }
  const std::set<std::string> keys = WordsOf(wanted);
  std::vector<const Record*> found;
  if (keys.empty()) return found;
  for (const Record& record : records) {
    const auto holds = [&](const std::string& key) { return record.words.contains(key); };
    if (any ? std::any_of(keys.begin(), keys.end(), holds) : std::all_of(keys.begin(), keys.end(), holds)) {
      found.push_back(&record);
    }
  }
  return found;
}

const Record* FindById(const std::vector<Record>& records, std::string_view category, std::string_view id) {
  const auto found = std::find_if(records.begin(), records.end(),
                                  [&](const Record& record) { return record.category == category && record.id == id; });
  return found == records.end() ? nullptr : &*found;
}

}  // namespace discserver
