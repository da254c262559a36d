// disc_clients PORT CLIENTS COUNT: so many clients at once that ask the disc server for so many searches each, over new
// connections. Prints the answers' times in milliseconds, the answers a second, and how many were lost.
#include <algorithm>
#include <array>
#include <chrono>
#include <cstdio>
#include <random>
#include <string>
#include <thread>
#include <vector>

#include "bench/loopback_client.h"

namespace {

using Clock = std::chrono::steady_clock;

// Words as bench/disc_archive makes them, the most frequent first.
constexpr std::array kFrequent = {"the", "of", "a", "and", "in", "to", "love", "you", "me", "on", "live", "my"};
constexpr std::array kSeldom = {"night", "blue", "vol", "music", "jenka", "ticor", "houlo", "elba", "fagri", "zenwa"};

// Two to four words, at least one of them frequent.
std::string Words(std::mt19937& dice) {
  std::string words = kFrequent[dice() % kFrequent.size()];
  for (auto left = 1 + dice() % 3; left > 0; --left) {
    words += "+";
    words += dice() % 2 == 0 ? kFrequent[dice() % kFrequent.size()] : kSeldom[dice() % kSeldom.size()];
  }
  return words;
}

// The three searches by turns.
std::string Request(std::mt19937& dice, int turn) {
  std::string words = Words(dice);
  std::string path = "/freedb_search.php?words=" + words;
  if (turn % 3 == 1) path = "/~cddb/cddb.cgi?cmd=search&artist=" + words + "&album=" + words + "&hello=a+b+c+d&proto=6";
  if (turn % 3 == 2) {
    for (std::size_t at = words.find('+'); at != words.npos; at = words.find('+', at + 5))
      words.replace(at, 1, "+AND+");
    path = "/ws/2/release?query=" + words + "&limit=50&fmt=json";
  }
  return "GET " + path + " HTTP/1.0\r\n\r\n";
}

bool IsAnswered(int port, const std::string& request) {
  const std::string answer = loopback::Ask(port, request);
  return answer.find(" 200 ") < 16 && (answer.ends_with("\r\n") || answer.ends_with("}"));
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 4) return 2;
  const int port = std::stoi(arguments[1]);
  const auto clients = std::stoul(arguments[2]), requests = std::stoul(arguments[3]);
  std::vector<std::vector<double>> times(clients);
  std::vector<std::size_t> lost(clients);
  const auto start = Clock::now();
  std::vector<std::thread> threads;
  for (std::size_t client = 0; client < clients; ++client) {
    threads.emplace_back([&, client] {
      std::mt19937 dice(static_cast<unsigned>(client));
      for (std::size_t i = 0; i < requests; ++i) {
        const std::string request = Request(dice, static_cast<int>(i));
        const auto before = Clock::now();
        if (!IsAnswered(port, request)) ++lost[client];
        times[client].push_back(std::chrono::duration<double, std::milli>(Clock::now() - before).count());
      }
    });
  }
  for (std::thread& thread : threads) thread.join();
  const double seconds = std::chrono::duration<double>(Clock::now() - start).count();
  std::vector<double> all;
  std::size_t allLost = 0;
  for (std::size_t client = 0; client < clients; ++client) {
    all.insert(all.end(), times[client].begin(), times[client].end());
    allLost += lost[client];
  }
  std::sort(all.begin(), all.end());
  std::printf("median %.3f\np95 %.3f\nslowest %.3f\nrate %.1f\nlost %zu\n", all[all.size() / 2],
              all[all.size() * 95 / 100], all.back(), static_cast<double>(all.size()) / seconds, allLost);
}
