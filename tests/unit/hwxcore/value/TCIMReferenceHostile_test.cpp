// Paths made to do harm: deep, long, and both.

#include <pthread.h>

#include <functional>

#include "support/Sanitizers.h"
#include "unit/hwxcore/value/ReferenceTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

constexpr int kDeepest = 200;  // the references within one another that a path may have

#ifdef HWXTESTS_ADDRESS_SANITIZER
constexpr std::size_t kSmallStack = 4 * 1024 * 1024;  // its frames are several times as large
#else
constexpr std::size_t kSmallStack = 512 * 1024;
#endif

class TCIMReferenceHostile : public ReferenceTest {
 protected:
  // A path with that many references within one another.
  static std::string Nested(int depth) {
    std::string path, end;
    for (int i = 0; i < depth; ++i) {
      path += "r:Chain.Next=\"";
      end += "\"";
    }
    return path + "r:Thing.Id=\"1\"" + end;
  }

  int StatusOfPath(const std::string& path) const {
    return StatusOf([&] { Parsed(path); });
  }
};

void* RunFunction(void* function) {
  (*static_cast<const std::function<void()>*>(function))();
  return nullptr;
}

// Runs `function` to its end on a thread with a stack of that many bytes.
void RunOnStack(std::size_t size, const std::function<void()>& function) {
  pthread_attr_t attributes;
  pthread_attr_init(&attributes);
  ASSERT_EQ(pthread_attr_setstacksize(&attributes, size), 0);
  pthread_t thread;
  ASSERT_EQ(pthread_create(&thread, &attributes, &RunFunction,
                           const_cast<std::function<void()>*>(&function)),
            0);
  pthread_join(thread, nullptr);
  pthread_attr_destroy(&attributes);
}

TEST_F(TCIMReferenceHostile, NestsToALimit) {
  const TCIMReference deepest = Parsed(Nested(kDeepest));
  const std::string printed = deepest.GetPath();
  EXPECT_EQ(printed.substr(0, 24), "Chain.Next=\"Chain.Next=\"");
  EXPECT_EQ(printed.size(), 12u * kDeepest + 12u + kDeepest);
}

TEST_F(TCIMReferenceHostile, ReportsWhatNestsTooDeeply) {
  const std::string path = Nested(kDeepest + 1);
  TCIMReference left = Empty();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { left.SetPath(path); }), kHWXStatusInvalidReference);
  EXPECT_THAT(log.Lines(), ElementsAre(Pair("Error", "Reference nests too deeply, path=" + path)));
  EXPECT_EQ(left.GetPath(), "Chain");
}

TEST_F(TCIMReferenceHostile, TheDeepestPathNeedsLittleStack) {
  const std::string path = Nested(kDeepest);
  bool equal = false;
  RunOnStack(kSmallStack, [&] {
    const TCIMReference reference = Parsed(path);
    const TCIMReference copy(reference);
    equal = copy == reference && !(copy < reference) && copy.GetPath() == reference.GetPath();
  });
  EXPECT_TRUE(equal);
}

TEST_F(TCIMReferenceHostile, AHundredThousandLevelsEndInAStatus) {
  EXPECT_EQ(StatusOfPath(Nested(100000)), kHWXStatusInvalidReference);
  std::string open;
  for (int i = 0; i < 100000; ++i)
    open += "r:Chain.Next=\"";
  EXPECT_EQ(StatusOfPath(open), kHWXStatusInvalidReference);
}

// Each level must not double the work of the one below.
TEST_F(TCIMReferenceHostile, DeepReferencesCompareInOneWalk) {
  const TCIMReference one = Parsed(Nested(kDeepest)), other = Parsed(Nested(kDeepest));
  EXPECT_TRUE(one == other);
  EXPECT_FALSE(one < other);
  EXPECT_FALSE(other < one);
}

TEST_F(TCIMReferenceHostile, AMegabyteOfBackslashesIsHalfAsMany) {
  EXPECT_THAT(Keys(Parsed("r:Thing.Name=\"" + std::string(1 << 20, '\\') + "\"")),
              ElementsAre("Name=" + std::string(1 << 19, '\\')));
}

TEST_F(TCIMReferenceHostile, AnOddBackslashTakesTheClosingMark) {
  const std::string path = "r:Thing.Name=\"" + std::string((1 << 20) + 1, '\\') + "\"";
  TCIMReference left = Empty();
  ScopedLogCapture log;
  EXPECT_EQ(StatusOf([&] { left.SetPath(path); }), kHWXStatusInvalidReference);
  const std::vector<ScopedLogCapture::Line> lines = {
      {"Error", "Reference missing closing '\"', path=" + path}};
  EXPECT_TRUE(log.Lines() == lines);  // without printing them
}

TEST_F(TCIMReferenceHostile, AMegabyteOfOneCharacterEndsInAStatus) {
  for (const char c : {'.', ',', ':', '=', '"', '\\', 'x', '\0', '\n'}) {
    const std::string many(1 << 20, c);
    EXPECT_NE(StatusOfPath(many), kHWXStatusOK) << c;
    EXPECT_NE(StatusOfPath("r:Thing" + many), kHWXStatusOK) << c;
    EXPECT_NE(StatusOfPath("r:Thing." + many), kHWXStatusOK) << c;
    EXPECT_NE(StatusOfPath("r:Thing.Id=" + many), kHWXStatusOK) << c;
    EXPECT_NE(StatusOfPath("r:Thing.Id=\"1\"" + many), kHWXStatusOK) << c;
    EXPECT_NE(StatusOfPath("r:Link.From=\"" + many), kHWXStatusOK) << c;
  }
}

TEST_F(TCIMReferenceHostile, AHundredThousandEqualKeysAreOne) {
  std::string path = "r:Thing.Id=\"5\"";
  for (int i = 0; i < 100000; ++i)
    path += ",Id=\"6\"";
  EXPECT_THAT(Keys(Parsed(path)), ElementsAre("Id=5"));
}

TEST_F(TCIMReferenceHostile, AHundredThousandReferencesBesideOneAnotherAreOne) {
  std::string path = "r:Link.From=\"r:Thing.Id=\"5\"\"";
  for (int i = 0; i < 100000; ++i)
    path += ",From=\"r:Thing.Id=\"6\"\"";
  EXPECT_THAT(Keys(Parsed(path)), ElementsAre("From=Thing.Id=\"5\""));
}

TEST_F(TCIMReferenceHostile, EveryPrefixOfAPathEndsInAStatusOrAResult) {
  const std::string path =
      "r:Link.From=\"r:Thing.Id=\"1\",Name=\"a\\\"\\\\b\"\",Label=\"x\",To=\"s:Thing.Id=\"2\"\"";
  for (std::size_t length = 0; length <= path.size(); ++length) {
    TCIMReference left = Empty();
    const int status = StatusOf([&] { left.SetPath(path.substr(0, length)); });
    EXPECT_TRUE(status == kHWXStatusOK || status == kHWXStatusUnknownClass ||
                status == kHWXStatusInvalidReference)
        << length;
    const int bound = length < 7 ? kHWXStatusInvalidReference : kHWXStatusOK;  // "r:Link."
    EXPECT_EQ(StatusOf([&] { left.GetPath(); }), bound) << length;
  }
}

TEST_F(TCIMReferenceHostile, AnyStartingPlaceEndsInAStatusOrAResult) {
  const std::string path = "r:Link.From=\"r:Thing.Id=\"1\"\"";
  for (unsigned long start = 0; start <= path.size() + 2; ++start) {
    const TCIMReference parser = Empty();
    TCIMReference target = Empty();
    unsigned long position = start;
    const int status =
        StatusOf([&] { parser.GetBody()->ParsePath(target.GetBody(), path, position); });
    EXPECT_TRUE(status == kHWXStatusOK || status == kHWXStatusUnknownClass ||
                status == kHWXStatusInvalidReference)
        << start;
  }
}

}  // namespace
}  // namespace hwxtest
