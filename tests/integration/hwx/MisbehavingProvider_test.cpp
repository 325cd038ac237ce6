// What a provider that crashes, hangs, exits, throws or prints costs who runs hwx.

#include <gmock/gmock.h>
#include <poll.h>

#include "integration/hwx/HwxTest.h"

namespace hwxtest {
namespace {

using ::testing::HasSubstr;
using ::testing::Not;

class MisbehavingProvider : public HwxTest {
 protected:
  MisbehavingProvider() {
    fTree.Use(fHwx);
    fTree.Remove("libplugin.nsp.so");
    fTree.AddLink("libplugin.nsp.so", HWX_TEST_MISBEHAVING_PROVIDER);
  }

  HwxResult RunWith(const std::string& misdeed, const std::string& when,
                    std::vector<std::string> arguments) {
    fHwx.Set("HWX_TEST_MISDEED", misdeed).Set("HWX_TEST_WHEN", when);
    return fHwx.Run(arguments);
  }

  // The class that misbehaves is told, the others are shown.
  void ExpectCostsItsClass(const std::string& misdeed, const std::string& words) {
    const HwxResult result = RunWith(misdeed, "class", {"show", "--class-timeout", "2"});
    EXPECT_EQ(result.fStatus, 1);
    EXPECT_EQ(result.fErr,
              "hwx: the class EX_Misbehaving is incomplete: the provider failed: " + words + "\n");
    EXPECT_THAT(result.fOut, HasSubstr("first"));
    EXPECT_THAT(result.fOut, HasSubstr("last"));
  }

  HwxTree fTree;
};

TEST_F(MisbehavingProvider, IsSoundWithoutAMisdeed) {
  const HwxResult result = Succeed({"show"});
  EXPECT_THAT(result.fOut, HasSubstr("before"));
}

TEST_F(MisbehavingProvider, CostsAClassWhenItIsKilled) {
  ExpectCostsItsClass("kill", "it was killed by SIGKILL");
}

TEST_F(MisbehavingProvider, CostsAClassWhenItExits) {
  ExpectCostsItsClass("exit", "it exited with status 0");
}

TEST_F(MisbehavingProvider, CostsAClassWhenItHangs) {
  ExpectCostsItsClass("hang", "it gave nothing for 2 s");
}

TEST_F(MisbehavingProvider, CostsAClassWhenItThrowsANumber) {
  ExpectCostsItsClass("throw number", "it threw what is no exception");
}

TEST_F(MisbehavingProvider, KeepsWhatCameBeforeItThrew) {
  ExpectCostsItsClass("throw", "the wire is cut");
  EXPECT_THAT(RunWith("throw", "class", {"show"}).fOut, HasSubstr("before"));
}

TEST_F(MisbehavingProvider, DoesNotSpoilTheOutputByPrinting) {
  const HwxResult result = RunWith("print", "class", {"show", "--format", "json"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fErr, "hwx: the class EX_Misbehaving printed 'NOISE' on its standard output\n");
  EXPECT_THAT(result.fOut, Not(HasSubstr("NOISE")));
  EXPECT_TRUE(result.Json().is_object());
}

TEST_F(MisbehavingProvider, IsToldWhenItBreaksAsItIsLoaded) {
  const std::pair<std::string, std::string> ends[] = {{"kill", "it was killed by SIGKILL"},
                                                      {"exit", "it exited with status 0"},
                                                      {"hang", "it gave nothing for 2 s"}};
  for (const auto& [misdeed, words] : ends) {
    const HwxResult result = RunWith(misdeed, "load", {"identity", "--class-timeout", "2"});
    EXPECT_EQ(result.fStatus, 1);
    EXPECT_EQ(result.fOut, "");
    EXPECT_EQ(result.fErr, "hwx: the provider can't be loaded: " + words + "\n");
  }
}

TEST_F(MisbehavingProvider, DoesNoHarmToTheListOfProviders) {
  const std::pair<std::string, std::string> ends[] = {{"kill", "it was killed by SIGKILL"},
                                                      {"exit", "it exited with status 0"},
                                                      {"hang", "it gave nothing for 2 s"}};
  for (const auto& [misdeed, words] : ends) {
    const HwxResult result =
        RunWith(misdeed, "load", {"providers", "--json", "--class-timeout", "2"});
    EXPECT_EQ(result.fStatus, 0);
    const nlohmann::json providers = result.Json()["providers"];
    ASSERT_EQ(providers.size(), 2u);
    EXPECT_EQ(providers[0]["loads"], true);
    EXPECT_EQ(providers[1]["reason"], words);
  }
}

TEST_F(MisbehavingProvider, DoesNoHarmAfterTheWorkIsDone) {
  const HwxResult result = RunWith("kill", "end", {"show"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fErr, "");
}

TEST_F(MisbehavingProvider, HasTheDeadlineForAllOfIt) {
  const HwxResult result = RunWith("hang", "class", {"show", "--deadline", "3"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_THAT(result.fErr, HasSubstr("the time for everything is over"));
  EXPECT_THAT(result.fOut, HasSubstr("first"));
}

TEST_F(MisbehavingProvider, LeavesNoProcessBehind) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  RunWith("hang", "class", {"show", "--class-timeout", "2"});
  ::close(ends[1]);
  constexpr int kPatience = 60000;
  pollfd end = {ends[0], POLLIN, 0};
  EXPECT_EQ(::poll(&end, 1, kPatience), 1) << "a process holds the other end";
  ::close(ends[0]);
}

}  // namespace
}  // namespace hwxtest
