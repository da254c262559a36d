// disc_archive FILE COUNT [many]: writes an archive of synthetic disc records, always the same ones; packed by the
// file's extension. With "many" a file holds a thousand records. Prints how much text the records hold together.
#include <archive.h>
#include <archive_entry.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <iostream>
#include <random>
#include <string>
#include <vector>

namespace {

constexpr std::array kCategories = {"blues",  "classical", "country", "data", "folk",      "jazz",
                                    "newage", "reggae",    "rock",    "misc", "soundtrack"};

// Words as titles have them: the n-th is met n times as seldom as the first.
class Words {
 public:
  Words() {
    words_ = {"the",  "of",   "a",     "and",  "in",  "to",   "love", "you",      "me",  "on",
              "live", "my",   "i",     "for",  "de",  "la",   "best", "it",       "vol", "music",
              "hits", "from", "night", "blue", "all", "with", "no",   "caf\u00E9"};
    constexpr std::array kSyllables = {"ba", "cor", "di", "el", "fa", "gri", "hou", "jen", "ka",      "lo",
                                       "mi", "nor", "pe", "ro", "su", "ti",  "ver", "wa",  "y\u00F6", "zen"};
    while (words_.size() < 150000) {
      std::string word;
      for (std::size_t n = words_.size(); n > 0; n /= kSyllables.size()) word += kSyllables[n % kSyllables.size()];
      words_.push_back(word);
    }
  }

  std::string Title(std::mt19937_64& dice, int most) const {
    std::string title;
    for (int left = 1 + static_cast<int>(dice() % static_cast<unsigned>(most)); left > 0; --left) {
      const double place = std::pow(static_cast<double>(words_.size()), std::generate_canonical<double, 32>(dice)) - 1;
      std::string word = words_[static_cast<std::size_t>(place)];
      if (word[0] >= 'a') word[0] = static_cast<char>(word[0] - 32);
      title += (title.empty() ? "" : " ") + word;
    }
    return title;
  }

 private:
  std::vector<std::string> words_;
};

std::string Record(const Words& words, const std::string& id, std::mt19937_64& dice) {
  const int tracks = 4 + static_cast<int>(dice() % 18);
  std::string head = "# xmcd CD database file\n#\n# Track frame offsets:\n", titles, extras;
  int frames = 150;
  for (int i = 0; i < tracks; ++i) {
    const std::string number = std::to_string(i);
    head += "#\t" + std::to_string(frames) + "\n";
    frames += 6000 + static_cast<int>(dice() % 18000);
    titles += "TTITLE" + number + "=" + words.Title(dice, 6) + "\n";
    extras += "EXTT" + number + "=\n";
  }
  head += "#\n# Disc length: " + std::to_string(frames / 75) +
          " seconds\n#\n# Revision: " + std::to_string(dice() % 6) +
          "\n# Processed by: cddbd v1.5.2PL0\n# Submitted via: generator 1.0\n#\nDISCID=";
  std::mt19937_64 artist(dice() % 500000);
  return head + id + "\nDTITLE=" + words.Title(artist, 3) + " / " + words.Title(dice, 6) +
         "\nDYEAR=" + std::to_string(1960 + dice() % 60) + "\nDGENRE=Rock\n" + titles + "EXTD=\n" + extras +
         "PLAYORDER=\n";
}

void Write(archive* out, const std::string& path, const std::string& text) {
  archive_entry* entry = archive_entry_new();
  archive_entry_set_pathname(entry, path.c_str());
  archive_entry_set_filetype(entry, AE_IFREG);
  archive_entry_set_perm(entry, 0644);
  archive_entry_set_size(entry, static_cast<la_int64_t>(text.size()));
  const bool written = archive_write_header(out, entry) == ARCHIVE_OK &&
                       archive_write_data(out, text.data(), text.size()) == static_cast<la_ssize_t>(text.size());
  archive_entry_free(entry);
  if (!written) throw std::runtime_error(archive_error_string(out));
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return 2;
  const std::uint32_t records = static_cast<std::uint32_t>(std::stoul(arguments[2]));
  const bool many = count > 3;
  const Words words;
  std::mt19937_64 dice(1);
  archive* out = archive_write_new();
  if (archive_write_set_format_filter_by_ext_def(out, arguments[1], ".tar") != ARCHIVE_OK ||
      archive_write_open_filename(out, arguments[1]) != ARCHIVE_OK) {
    std::cerr << archive_error_string(out) << "\n";
    return 1;
  }
  std::size_t bytes = 0;
  std::string file;
  for (std::uint32_t i = 0; i < records; ++i) {
    char id[9];
    std::snprintf(id, sizeof id, "%08x", static_cast<unsigned>(i * 2654435761U));  // all differ, in no order
    const std::string text = Record(words, id, dice);
    bytes += text.size();
    const std::string folder = kCategories[std::uint64_t{i} * kCategories.size() / records] + std::string("/");
    if (!many) {
      Write(out, folder + id, text);
      continue;
    }
    file += "#FILENAME=" + std::string(id) + "\n" + text;
    if (i % 1000 == 999 || i + 1 == records) {
      Write(out, folder + "part" + std::to_string(i), file);
      file.clear();
    }
  }
  archive_write_close(out);
  archive_write_free(out);
  std::cout << "bytes " << bytes << "\n";
}
