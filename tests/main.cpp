// Runs the tests of a program. One that takes too long is named and ends the program, whatever its thread waits for.
#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <memory>
#include <thread>
#include <utility>

#ifdef _WIN32
#include <windows.h>
#endif

namespace tagrix {
namespace {

constexpr int kLimit = 60;  // seconds

struct Running {
  std::atomic<const testing::TestInfo*> test = nullptr;  // none between two tests
  std::atomic<int> seconds = 0;
};

class Listener : public testing::EmptyTestEventListener {
 public:
  explicit Listener(std::shared_ptr<Running> running) : running_(std::move(running)) {}
  void OnTestStart(const testing::TestInfo& test) override {
    running_->seconds = 0;
    running_->test = &test;
  }
  void OnTestEnd(const testing::TestInfo&) override { running_->test = nullptr; }

 private:
  const std::shared_ptr<Running> running_;
};

[[noreturn]] void Watch(Running& running) {
  while (true) {
    std::this_thread::sleep_for(std::chrono::seconds(1));
    const testing::TestInfo* test = running.test;
    if (test == nullptr || ++running.seconds < kLimit) continue;
    std::printf("[  FAILED  ] %s.%s still runs after %d seconds\n\n 1 FAILED TEST\n", test->test_suite_name(),
                test->name(), kLimit);
    std::fflush(stdout);
#ifdef _WIN32
    TerminateProcess(GetCurrentProcess(), EXIT_FAILURE);  // std::_Exit waits for the loader's lock
#endif
    std::_Exit(EXIT_FAILURE);
  }
}

}  // namespace
}  // namespace tagrix

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  const auto running = std::make_shared<tagrix::Running>();
  std::thread([running] { tagrix::Watch(*running); }).detach();
  testing::UnitTest::GetInstance()->listeners().Append(new tagrix::Listener(running));
  return RUN_ALL_TESTS();
}
