// Runs the tests of a program. One that takes too long is named and ends the program, whatever its thread waits for.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <mutex>
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

// One thread for the whole run: one a test, with its beginning and end, once stood still between two tests under Wine.
class Watch : public testing::EmptyTestEventListener {
 public:
  void OnTestProgramStart(const testing::UnitTest&) override {
    thread_ = std::thread([this] { Look(); });
  }
  void OnTestStart(const testing::TestInfo& test) override { Set(&test); }
  void OnTestEnd(const testing::TestInfo&) override { Set(nullptr); }
  void OnTestProgramEnd(const testing::UnitTest&) override {
    ended_ = true;
    thread_.join();
  }

 private:
  void Set(const testing::TestInfo* test) {
    const std::lock_guard lock(mutex_);
    test_ = test;
    begun_ = std::chrono::steady_clock::now();
  }
  void Look() {
    while (!ended_) {
      std::this_thread::sleep_for(std::chrono::milliseconds(50));
      const std::lock_guard lock(mutex_);
      if (test_ != nullptr && std::chrono::steady_clock::now() - begun_ > kLimit) End(*test_);
    }
  }

  std::atomic<bool> ended_ = false;
  std::mutex mutex_;
  const testing::TestInfo* test_ = nullptr;  // that runs
  std::chrono::steady_clock::time_point begun_;
  std::thread thread_;
};

}  // namespace
}  // namespace tagrix

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  testing::UnitTest::GetInstance()->listeners().Append(new tagrix::Watch);
  return RUN_ALL_TESTS();
}
