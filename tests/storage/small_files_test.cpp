#include "storage/small_files.h"

#include <gtest/gtest.h>

#include "fakes/fakes.h"

namespace tagrix {
namespace {

TEST(WritingAFile, LeavesTheOldOneAndWhatLiesBesideItWhereverItFails) {
  bool failed = true;
  for (int n = 1; failed; ++n) {
    TestContext test;
    test.files.Put(L"C:\\m\\list.m3u", "old");
    test.files.Put(L"C:\\m\\list.m3u.new", "the user's");
    test.files.FailCall(n);
    try {
      WriteWholeFile(test.files, L"C:\\m\\list.m3u", "new");
      EXPECT_GT(n, 4);
      failed = false;
    } catch (const Failure&) {
    }
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u"), failed ? "old" : "new") << n;
    EXPECT_EQ(test.files.Content(L"C:\\m\\list.m3u.new"), "the user's");
    EXPECT_EQ(test.files.AllFiles().size(), 2u) << n;
  }
}

}  // namespace
}  // namespace tagrix
