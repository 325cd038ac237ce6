#include "hwx/text/Output.h"

#include <gtest/gtest.h>

#include <functional>

#include "support/ChildProcess.h"
#include "support/PseudoTerminal.h"

namespace hwx {
namespace {

// What stands on a terminal that `body` has for its error stream.
std::string ShownBy(const std::function<void()>& body) {
  const hwxtest::PseudoTerminal terminal;
  EXPECT_TRUE(terminal.IsOpen());
  const int status = hwxtest::RunInChild([&] {
    terminal.Take(STDERR_FILENO);
    body();
    return 0;
  });
  EXPECT_EQ(status, 0);
  return terminal.Shown();
}

TEST(ShowProgress, GivesWayToTheNextLineAndToMessages) {
  EXPECT_EQ(ShownBy([] {
              ShowProgress("one");
              ShowProgress("two");
              ReportError("trouble");
              ReportError("more");
            }),
            "one\r\033[Ktwo\r\033[Khwx: trouble\r\nhwx: more\r\n");
}

TEST(ShowProgress, GivesWayToTheOutput) {
  EXPECT_EQ(ShownBy([] {
              ShowProgress("one");
              WriteOutput("");
            }),
            "one\r\033[K");
}

TEST(ShowProgress, IsPrintable) {
  EXPECT_EQ(ShownBy([] { ShowProgress("a\033b"); }), "a\\x1bb");
}

TEST(ReportNote, IsLeftOutWhenTheProgramIsQuiet) {
  EXPECT_EQ(ShownBy([] {
              ReportNote("one");
              SetQuiet(true);
              ReportNote("two");
              ShowProgress("three");
              ReportError("trouble");
            }),
            "hwx: one\r\nhwx: trouble\r\n");
}

TEST(ShowProgress, WritesNothingWhereThereIsNoTerminal) {
  testing::internal::CaptureStderr();
  ShowProgress("one");
  ReportError("trouble");
  EXPECT_EQ(testing::internal::GetCapturedStderr(), "hwx: trouble\n");
}

}  // namespace
}  // namespace hwx
