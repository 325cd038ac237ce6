#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <iostream>

#include "hwxcore/value/TDetailedException.h"
#include "hwxkit/ChildReading.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using std::chrono::milliseconds;
using testing::ElementsAre;
using testing::IsEmpty;

// The detail of what `call` throws.
template <typename Call>
std::string DetailOf(Call call) {
  try {
    call();
  } catch (const TDetailedException& failure) {
    return failure.GetDetail();
  }
  return "nothing thrown";
}

// Ample for a child that does something, also on a busy machine; waited for by those that hang.
constexpr milliseconds kClassTime(1500);

// A provider with a sound class and a broken one. The broken one gives an instance, and then does
// what the test is about.
class BrokenProvider : public testing::Test {
 protected:
  Ptr<ICIMNamespace> Open(const std::function<void()>& misdeed) {
    const auto open = [misdeed] {
      const auto ns = TMemoryNamespace::Create("root");
      TClassBuilder(ns, "EX_Broken")
          .Key("ID", "string")
          .Source([misdeed](TInstanceList& list) {
            list.Add().Set("ID", "before");
            misdeed();
          })
          .Commit();
      TClassBuilder(ns, "EX_Sound")
          .Key("ID", "string")
          .Source([](TInstanceList& list) { list.Add().Set("ID", "sound"); })
          .Commit();
      return ns;
    };
    return OpenInChild(open, fLimits,
                       [this](const std::string& notice) { fNotices.push_back(notice); });
  }

  std::string WhyBroken(ICIMNamespace& ns) {
    return DetailOf([&] { Instances(*ns.GetClass("EX_Broken", {})); });
  }

  void ExpectSound(ICIMNamespace& ns) {
    EXPECT_THAT(Instances(*ns.GetClass("EX_Sound", {})), ElementsAre("sound"));
  }

  TChildLimits fLimits;
  Strings fNotices;
};

TEST_F(BrokenProvider, ThatIsKilledCostsItsClassAlone) {
  const auto ns = Open([] { ::raise(SIGKILL); });
  EXPECT_EQ(WhyBroken(*ns), "it was killed by SIGKILL");
  ExpectSound(*ns);
}

TEST_F(BrokenProvider, ThatExitsCostsItsClassAlone) {
  const auto ns = Open([] { ::_exit(0); });
  EXPECT_EQ(WhyBroken(*ns), "it exited with status 0");
  ExpectSound(*ns);
}

TEST_F(BrokenProvider, ThatHangsCostsItsClassAlone) {
  fLimits.fClassTime = kClassTime;
  const auto ns = Open([] {
    while (true)
      ::pause();
  });
  EXPECT_EQ(WhyBroken(*ns), "it gave nothing for 1500 ms");
  ExpectSound(*ns);
}

TEST_F(BrokenProvider, ThatThrowsSaysWhyAndKeepsWhatItGave) {
  const auto ns = Open([] { throw std::runtime_error("unplugged"); });
  Strings seen;
  const auto see = [&](Ptr<ICIMInstance> instance) {
    seen.push_back(NameOf(instance));
    return true;
  };
  EXPECT_EQ(DetailOf([&] { ns->GetClass("EX_Broken", {})->EnumerateInstances(see, false, {}); }),
            "unplugged");
  EXPECT_THAT(seen, ElementsAre("before"));
}

TEST_F(BrokenProvider, ThatThrowsAStatusPassesItOn) {
  const auto ns = Open([] { throw THWXException(kHWXStatusAccessDenied); });
  EXPECT_EQ(StatusOf([&] { Instances(*ns->GetClass("EX_Broken", {})); }), kHWXStatusAccessDenied);
  EXPECT_EQ(WhyBroken(*ns), "");
}

TEST_F(BrokenProvider, ThatThrowsANumberCostsItsClassAlone) {
  const auto ns = Open([] { throw 42; });
  EXPECT_EQ(WhyBroken(*ns), "it threw what is no exception");
  ExpectSound(*ns);
}

TEST_F(BrokenProvider, ThatPrintsIsHeardOfAndKeepsItsData) {
  const auto ns = Open([] { std::cout << "NOISE" << std::endl; });
  EXPECT_THAT(Instances(*ns->GetClass("EX_Broken", {})), ElementsAre("before"));
  EXPECT_THAT(fNotices, ElementsAre("the class EX_Broken printed 'NOISE' on its standard output"));
}

TEST_F(BrokenProvider, ThatPrintsWithoutEndDoesNotFillThePipe) {
  const auto ns = Open([] { std::cout << std::string(10000000, 'x'); });
  EXPECT_THAT(Instances(*ns->GetClass("EX_Broken", {})), ElementsAre("before"));
  ASSERT_EQ(fNotices.size(), 1u);
  EXPECT_LT(fNotices.front().size(), 200u);
}

TEST_F(BrokenProvider, ThatWasLostIsNotTriedAgain) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  const auto ns = Open([&] {
    EXPECT_EQ(::write(ends[1], "x", 1), 1);
    ::raise(SIGKILL);
  });
  const std::string why = WhyBroken(*ns);
  EXPECT_EQ(WhyBroken(*ns), why);
  ::close(ends[1]);
  char bytes[8];
  EXPECT_EQ(::read(ends[0], bytes, sizeof bytes), 1);
  ::close(ends[0]);
}

TEST_F(BrokenProvider, TakesItsOwnChildrenAlong) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  fLimits.fClassTime = kClassTime;
  const auto ns = Open([] {
    if (::fork() == 0)
      while (true)
        ::pause();
    while (true)
      ::pause();
  });
  WhyBroken(*ns);
  ::close(ends[1]);
  char byte;
  EXPECT_EQ(::read(ends[0], &byte, 1), 0) << "somebody holds the other end";
  ::close(ends[0]);
}

TEST_F(BrokenProvider, HasTheTimeForEverything) {
  fLimits.fDeadline = std::chrono::steady_clock::now() + kClassTime;
  const auto ns = Open([] {
    while (true)
      ::pause();
  });
  EXPECT_EQ(WhyBroken(*ns), "the time for everything is over");
}

TEST(ProviderThatDoesNotOpen, SaysWhy) {
  const auto thrown = []() -> Ptr<ICIMNamespace> {
    throw TDetailedException(kHWXStatusNotFound, "no such module");
  };
  EXPECT_EQ(DetailOf([&] { OpenInChild(thrown, TChildLimits()); }), "no such module");
  EXPECT_EQ(StatusOf([&] { OpenInChild(thrown, TChildLimits()); }), kHWXStatusNotFound);

  const auto killed = []() -> Ptr<ICIMNamespace> { return ::raise(SIGKILL), nullptr; };
  EXPECT_EQ(DetailOf([&] { OpenInChild(killed, TChildLimits()); }), "it was killed by SIGKILL");

  const auto none = [] { return Ptr<ICIMNamespace>(); };
  EXPECT_EQ(DetailOf([&] { OpenInChild(none, TChildLimits()); }), "it has no namespace to open");
}

TEST(ProviderThatOpensOnce, IsNotTriedAThirdTime) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  bool isFirst = true;
  const auto open = [&]() -> Ptr<ICIMNamespace> {
    EXPECT_EQ(::write(ends[1], "x", 1), 1);
    if (!isFirst) throw std::runtime_error("gone");
    const auto ns = TMemoryNamespace::Create("root");
    for (const char* name : {"EX_One", "EX_Two", "EX_Three"})
      TClassBuilder(ns, name)
          .Key("ID", "string")
          .Source([](TInstanceList&) { ::raise(SIGKILL); })
          .Commit();
    return ns;
  };
  const auto ns = OpenInChild(open, TChildLimits());
  isFirst = false;
  const auto why = [&](const char* name) {
    return DetailOf([&] { Instances(*ns->GetClass(name, {})); });
  };
  EXPECT_EQ(why("EX_One"), "it was killed by SIGKILL");
  EXPECT_EQ(why("EX_Two"), "gone");
  EXPECT_EQ(why("EX_Three"), "gone");
  ::close(ends[1]);
  char bytes[8];
  EXPECT_EQ(::read(ends[0], bytes, sizeof bytes), 2);
  ::close(ends[0]);
}

TEST(CallInChild, TellsWhatBecameOfTheCall) {
  TChildLimits limits;
  const auto why = [&](const std::function<std::string()>& call) {
    return DetailOf([&] { CallInChild(call, limits); });
  };
  EXPECT_EQ(why([]() -> std::string { ::_exit(3); }), "it exited with status 3");
  EXPECT_EQ(why([]() -> std::string { throw std::runtime_error("so"); }), "so");
  limits.fClassTime = kClassTime;
  EXPECT_EQ(why([]() -> std::string {
              while (true)
                ::pause();
            }),
            "it gave nothing for 1500 ms");
}

}  // namespace
}  // namespace hwxtest
