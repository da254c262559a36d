#include "fuzz/mutations.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <random>
#include <vector>

namespace tagrix {
namespace {

std::vector<std::string> Corpus(const std::string& folder) {
  std::vector<std::string> inputs;
  for (const auto& entry : std::filesystem::directory_iterator(TAGRIX_CORPUS "/" + folder)) {
    std::ifstream file(entry.path(), std::ios::binary);
    inputs.emplace_back(std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>());
  }
  std::sort(inputs.begin(), inputs.end());
  return inputs;
}

class Mutator {
 public:
  explicit Mutator(const std::vector<std::string>& corpus) : corpus_(corpus) {}

  std::string Mutate(std::string input) {
    for (std::size_t i = 0; i < 1 + Below(6); ++i) Change(input);
    return input;
  }

 private:
  std::size_t Below(std::size_t limit) { return limit == 0 ? 0 : random_() % limit; }

  // Most changes fall near the start, where headers stand.
  std::size_t Place(const std::string& input) {
    return Below(Below(3) == 0 ? input.size() : std::min<std::size_t>(input.size(), 64));
  }

  void Change(std::string& input) {
    constexpr std::string_view kTelling("\0\xFF\xFB\x7F\x80\n%\"<9", 10);
    const std::string telling(1, kTelling[Below(kTelling.size())]);
    const std::size_t at = Place(input), length = 1 + Below(Below(2) == 0 ? 4 : 200);
    const std::string& other = corpus_[Below(corpus_.size())];
    switch (Below(7)) {
      case 0:
        if (!input.empty()) input[at] = static_cast<char>(input[at] ^ 1 << Below(8));
        break;
      case 1:
        input.replace(at, 1, telling);
        break;
      case 2:
        input.erase(at, length);
        break;
      case 3:
        input.insert(at, std::string(input, Place(input), length));
        break;
      case 4:
        input.insert(at, std::string(length, telling[0]));
        break;
      case 5:
        input.resize(Below(input.size() + 1));
        break;
      default:
        input.replace(at, length, other, Below(other.size()), length);
    }
  }

  const std::vector<std::string>& corpus_;
  std::mt19937 random_{20260101};
};

}  // namespace

void Fuzz(const std::string& folder, int rounds, const std::function<void(const std::string&)>& target) {
  const std::vector<std::string> corpus = Corpus(folder);
  ASSERT_FALSE(corpus.empty());
  Mutator mutator(corpus);
  for (const std::string& saved : corpus) {
    for (int round = 0; round <= rounds; ++round) {
      const std::string input = round == 0 ? saved : mutator.Mutate(saved);
      target(input);
      if (testing::Test::HasFailure()) {
        std::ofstream("fuzz-failure." + folder, std::ios::binary) << input;
        FAIL() << "in round " << round << "; the input is in fuzz-failure." << folder;
      }
    }
  }
}

}  // namespace tagrix
