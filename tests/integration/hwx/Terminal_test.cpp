// What hwx prints on a terminal: fitted to its width, in bold where it knows that.

#include <gmock/gmock.h>
#include <sys/ioctl.h>

#include <algorithm>
#include <sstream>

#include "integration/hwx/HwxProcess.h"
#include "support/Machines.h"
#include "support/TerminalProcess.h"

namespace hwxtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class TerminalTest : public testing::Test {
 protected:
  TerminalTest() { fHwx.On(MakeRackServer(fMachine.Path())).Set("TERM", "xterm"); }

  // What stands on a terminal of that width in the end.
  std::string Shown(const std::vector<std::string>& arguments, unsigned short width) const {
    TerminalProcess child([&] {
      const winsize size = {24, width, 0, 0};
      ::ioctl(STDOUT_FILENO, TIOCSWINSZ, &size);
      fHwx.Become(arguments);
    });
    EXPECT_EQ(child.End(), 0);
    return child.Screen();
  }

  static std::size_t LongestLine(const std::string& text) {
    std::size_t longest = 0;
    std::istringstream lines(text);
    for (std::string line; std::getline(lines, line);)
      longest = std::max(longest, line.find_last_not_of('\r') + 1);
    return longest;
  }

  const TemporaryDirectory fMachine;
  HwxProcess fHwx;
};

TEST_F(TerminalTest, TablesFitTheWidth) {
  fHwx.Set("NO_COLOR", "1");
  for (const unsigned short width : std::vector<unsigned short>{40, 80, 200}) {
    for (const char* command : {"show", "summary"}) {
      const std::string shown = Shown({"--firmware", HWX_TEST_SAMPLE_DUMP, command}, width);
      EXPECT_THAT(shown, HasSubstr("Example")) << command;
      EXPECT_LE(LongestLine(shown), width) << command << " at " << width << "\n" << shown;
    }
  }
}

TEST_F(TerminalTest, TheProgramAloneShowsTheMachine) {
  const std::string shown = Shown({}, 80);
  EXPECT_THAT(shown, HasSubstr("\033[1mMachine\033[0m"));
  EXPECT_THAT(shown, HasSubstr("KQ12345"));
}

TEST_F(TerminalTest, NothingIsBoldForThoseWhoWantNoColour) {
  fHwx.Set("NO_COLOR", "1");
  EXPECT_THAT(Shown({"summary"}, 80), Not(HasSubstr("\033[1m")));
  EXPECT_THAT(Shown({"summary", "--color", "always"}, 80), HasSubstr("\033[1m"));
  fHwx.Set("NO_COLOR", "").Set("TERM", "dumb");
  EXPECT_THAT(Shown({"summary"}, 80), Not(HasSubstr("\033[1m")));
}

}  // namespace
}  // namespace hwxtest
