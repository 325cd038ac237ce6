#include "hwxkit/ChildReading.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <memory>

#include "hwxcore/value/TDetailedException.h"
#include "support/NamespaceText.h"
#include "support/RandomNamespace.h"
#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using testing::ElementsAre;
using testing::IsEmpty;

// A class that refers to a later one comes behind it, so classes may stand in another order.
Strings SortedLines(ICIMNamespace& ns) {
  Strings lines = NamespaceLines(ns);
  std::sort(lines.begin(), lines.end());
  return lines;
}

TEST(OpenInChild, HasAllOfTheSchemaAndTheInstances) {
  for (std::uint64_t seed = 1; seed <= 20; ++seed) {
    const auto there = RandomNamespace(seed);
    const auto read = OpenInChild([&] { return there; }, TChildLimits(),
                                  [](const std::string& notice) { ADD_FAILURE() << notice; });
    EXPECT_EQ(Difference(SortedLines(*there), SortedLines(*read)), "") << "seed " << seed;
  }
}

TEST(OpenInChild, HasTheNotesAndFlavorsOfElements) {
  const auto there = TMemoryNamespace::Create("root");
  const auto decl = there->CreateQualifierDecl("Q", true, kScopeAny, kFlavorDefault, {});
  decl->Commit({});
  const auto made = there->CreateClass("EX_Disk", {}, {});
  const auto qualifier =
      boost::static_pointer_cast<TMemoryQualifier>(made->CreateQualifier(decl, true, {}));
  qualifier->SetFlavor(kFlavorToInstance);
  qualifier->Commit({});
  const auto method = made->CreateMethodDecl("Erase", Type::kCIMTypeUInt32, {});
  const auto parameter = boost::static_pointer_cast<TMemoryParameterDecl>(
      method->CreateParameterDecl("With", Type::kCIMTypeReference, {}));
  TElementNotes notes;
  notes.fReferencedClass = "EX_Disk";
  parameter->SetNotes(notes);
  parameter->Commit({});
  made->Commit({});
  const auto read = OpenInChild([&] { return there; }, TChildLimits());
  const auto disk = boost::static_pointer_cast<TMemoryClass>(read->GetClass("EX_Disk", {}));
  EXPECT_EQ(boost::static_pointer_cast<TMemoryQualifier>(disk->GetQualifier("Q", {}))->GetFlavor(),
            unsigned{kFlavorToInstance});
  const auto with = boost::static_pointer_cast<TMemoryParameterDecl>(
      disk->FindMethodDecl("Erase")->GetParameterDecl("With", {}));
  EXPECT_EQ(with->GetNotes().fReferencedClass, "EX_Disk");
}

class ReadInChild : public testing::Test {
 protected:
  // The namespace of a provider with one class, which runs `fill` for its instances.
  Ptr<ICIMNamespace> Open(const TInstanceSource& fill) {
    return OpenInChild(
        [fill] {
          const auto ns = TMemoryNamespace::Create("root");
          TClassBuilder(ns, "EX_Disk")
              .Key("ID", "string")
              .Property("Reader", "uint32")
              .Source(fill)
              .Commit();
          return ns;
        },
        TChildLimits(), [this](const std::string& notice) { fNotices.push_back(notice); });
  }

  Strings fNotices;
};

TEST_F(ReadInChild, RunsTheProviderInAnotherProcess) {
  const auto ns = Open([](TInstanceList& disks) {
    disks.Add().Set("ID", "sda").Set("Reader", static_cast<unsigned int>(::getpid()));
  });
  const auto disk = ns->GetClass("EX_Disk", {});
  unsigned int reader = 0;
  disk->EnumerateInstances(
      [&](Ptr<ICIMInstance> instance) {
        reader = instance->GetProperty("Reader", {})->GetUInt32Value();
        return true;
      },
      false, {});
  EXPECT_NE(reader, 0u);
  EXPECT_NE(reader, static_cast<unsigned int>(::getpid()));
}

TEST_F(ReadInChild, AsksForInstancesAnewEachTime) {
  const auto count = std::make_shared<int>(0);  // each process has its own
  const auto ns = Open([count](TInstanceList& disks) {
    for (int i = 0; i <= *count; ++i)
      disks.Add().Set("ID", std::to_string(i));
    ++*count;
  });
  const auto disk = ns->GetClass("EX_Disk", {});
  EXPECT_THAT(Instances(*disk), ElementsAre("0"));
  EXPECT_THAT(Instances(*disk), ElementsAre("0", "1"));
  EXPECT_EQ(*count, 0);
}

TEST_F(ReadInChild, EndsTheChildWithTheNamespace) {
  int ends[2];
  ASSERT_EQ(::pipe(ends), 0);
  auto ns = Open([](TInstanceList&) {});
  ::close(ends[1]);  // the child has the only end left
  char byte;
  ns.reset();
  EXPECT_EQ(::read(ends[0], &byte, 1), 0);
  ::close(ends[0]);
}

TEST_F(ReadInChild, GivesTheChildNoInput) {
  const auto ns = Open([](TInstanceList& disks) {
    char byte;
    if (::read(STDIN_FILENO, &byte, 1) == 0) disks.Add().Set("ID", "end of input");
  });
  EXPECT_THAT(Instances(*ns->GetClass("EX_Disk", {})), ElementsAre("end of input"));
}

TEST_F(ReadInChild, FindsAnInstanceByItsKeys) {
  const auto ns = Open([](TInstanceList& disks) { disks.Add().Set("ID", "sda"); });
  TCIMReference path(ns, TCIMContext());
  path.SetClass(ns->GetClass("EX_Disk", {}));
  path.AddKeyValue("ID", "sda");
  EXPECT_EQ(NameOf(ns->GetInstance(path, {})), "sda");
}

TEST_F(ReadInChild, SaysNothingOfASoundProvider) {
  const auto ns = Open([](TInstanceList& disks) { disks.Add().Set("ID", "sda"); });
  Instances(*ns->GetClass("EX_Disk", {}));
  EXPECT_THAT(fNotices, IsEmpty());
}

TEST(OpenInChildOfForwardReferences, TakesClassesThatReferToLaterOnes) {
  const auto open = [] {
    const auto ns = TMemoryNamespace::Create("root");
    TClassBuilder(ns, "EX_Base").Abstract().Commit();
    TClassBuilder(ns, "EX_Later").Key("ID", "string").Commit();
    // Presented behind its superclass, and so before the class that it refers to.
    TClassBuilder(ns, "EX_Holder", "EX_Base").KeyReference("Held", "EX_Later").Commit();
    return ns;
  };
  const auto read = OpenInChild(open, TChildLimits());
  EXPECT_EQ(Difference(*open(), *read, kAsCopied), "");
}

TEST(CallInChild, ReturnsWhatTheCallReturns) {
  const std::string large(1000000, 'x');
  EXPECT_EQ(CallInChild([] { return std::string("a\0b", 3); }, TChildLimits()),
            std::string("a\0b", 3));
  EXPECT_EQ(CallInChild([&] { return large; }, TChildLimits()), large);
}

}  // namespace
}  // namespace hwxtest
