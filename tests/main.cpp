// Runs the tests of a program. One that takes too long is named and ends the program, whatever its thread waits for.
#include <gtest/gtest.h>

#include <chrono>
#include <condition_variable>
#include <cstdio>
#include <cstdlib>
#include <mutex>
#include <stop_token>
#include <thread>

#ifdef _WIN32
#include <windows.h>
#endif

namespace tagrix {
namespace {

constexpr std::chrono::seconds kLimit{60};

[[noreturn]] void End(const testing::TestInfo& test) {
  std::printf("[  FAILED  ] %s.%s still runs after %d seconds\n\n 1 FAILED TEST\n", test.test_suite_name(), test.name(),
              static_cast<int>(kLimit.count()));
  std::fflush(stdout);
#ifdef _WIN32
  TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);  // std::_Exit waits for the loader's lock
#endif
  std::_Exit(EXIT_FAILURE);
}

class Watch : public testing::EmptyTestEventListener {
 public:
  void OnTestStart(const testing::TestInfo& test) override {
    thread_ = std::jthread([&test](const std::stop_token& ended) {
      std::mutex mutex;
      std::unique_lock lock(mutex);
      std::condition_variable_any().wait_for(lock, ended, kLimit, [] { return false; });
      if (!ended.stop_requested()) End(test);
    });
  }
  void OnTestEnd(const testing::TestInfo&) override { thread_ = {}; }

 private:
  std::jthread thread_;
};

}  // namespace
}  // namespace tagrix

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new tagrix::Watch);
  return RUN_ALL_TESTS();
}
