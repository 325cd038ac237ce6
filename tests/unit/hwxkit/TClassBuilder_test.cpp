#include "hwxkit/TClassBuilder.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

class ClassBuilder : public KitTest {};

TEST_F(ClassBuilder, DefinesAClassThatIsThereWithItsCommit) {
  auto builder = Build("EX_Disk");
  builder.Description("A disk.").Key("ID", "string", "Its name.").Property("Size", "uint64");
  EXPECT_FALSE(fNamespace->FindClass("EX_Disk"));
  const auto disk = builder.Commit();
  EXPECT_EQ(fNamespace->FindClass("EX_Disk"), disk);
  EXPECT_THAT(Properties(*disk), ElementsAre("ID", "Size"));
  EXPECT_EQ(disk->GetQualifier("Description", {})->GetValue({}), TCIMValue("A disk."));
  const auto id = disk->FindPropertyDecl("ID");
  EXPECT_THAT(Qualifiers(*id), ElementsAre("Description", "Key"));
  EXPECT_TRUE(id->IsKey());
  EXPECT_TRUE(id->GetDefaultValue({}).IsNull());
  EXPECT_THAT(Qualifiers(*disk->FindPropertyDecl("Size")), IsEmpty());  // no empty description
}

TEST_F(ClassBuilder, LeavesNothingWithoutCommit) {
  Build("EX_Disk").Property("Size", "uint64");
  EXPECT_FALSE(fNamespace->FindClass("EX_Disk"));
}

TEST_F(ClassBuilder, GivesQualifiersToWhatWasDeclaredLast) {
  const auto disk = Build("EX_Disk")
                        .Qualifier("Version", "1.0")
                        .Property("Size", "uint64")
                        .Qualifier("Units", "Bytes")
                        .Method("Eject", "uint32")
                        .Description("Throws it out.")
                        .Parameter("Hard", "boolean", "Without asking.")
                        .Parameter("Left", "boolean")
                        .Qualifier("In", false)
                        .Commit();
  EXPECT_THAT(Qualifiers(*disk), ElementsAre("Version"));
  EXPECT_THAT(Qualifiers(*disk->FindPropertyDecl("Size")), ElementsAre("Units"));
  const auto eject = disk->GetMethodDecl("Eject", {});
  EXPECT_THAT(Qualifiers(*eject), ElementsAre("Description"));
  EXPECT_THAT(Qualifiers(*eject->GetParameterDecl("Hard", {})), ElementsAre("Description"));
  EXPECT_THAT(Qualifiers(*eject->GetParameterDecl("Left", {})), ElementsAre("In"));
}

TEST_F(ClassBuilder, MarksTheClassWhateverWasDeclaredLast) {
  const auto marked = Build("EX_Marked").Property("A", "string").Abstract().Association().Commit();
  EXPECT_TRUE(marked->IsAbstract({}));
  EXPECT_TRUE(marked->IsAssociation({}));
}

TEST_F(ClassBuilder, MarksWhatOverrides) {
  Build("EX_Device").Property("Size", "uint64").Method("Eject", "uint32").Commit();
  const auto disk =
      Build("EX_Disk", "EX_Device").Property("SIZE", "uint64").Method("EJECT", "uint32").Commit();
  EXPECT_EQ(disk->FindPropertyDecl("Size")->GetQualifier("Override", {})->GetValue({}),
            TCIMValue("SIZE"));
  EXPECT_TRUE(disk->FindMethodDecl("Eject")->HasQualifier("Override", {}));
  // A subclass of that one inherits the declaration without the mark.
  const auto part = Build("EX_Part", "EX_Disk").Commit();
  EXPECT_FALSE(part->FindPropertyDecl("Size")->HasQualifier("Override", {}));
}

TEST_F(ClassBuilder, DeclaresReferencesWithTheirClass) {
  const auto disk = Build("EX_Disk").Key("ID", "string").Commit();
  const auto on = Build("EX_On")
                      .Association()
                      .KeyReference("Disk", "EX_Disk")
                      .Reference("Spare", "EX_Disk", "Another.")
                      .Commit();
  for (const char* name : {"Disk", "Spare"}) {
    const TCIMValue& value = on->FindPropertyDecl(name)->GetDefaultValue({});
    EXPECT_TRUE(value.IsReference());
    EXPECT_TRUE(value.IsNull());
    EXPECT_EQ(value.GetReferencedClass(), disk);
  }
  EXPECT_TRUE(on->FindPropertyDecl("Disk")->IsKey());
  EXPECT_FALSE(on->FindPropertyDecl("Spare")->IsKey());
}

TEST_F(ClassBuilder, SetsDefaultsAndStaticValues) {
  const auto disk = Build("EX_Disk")
                        .PropertyWithDefault("Count", 4)
                        .StaticValue("Count", 5)
                        .Property("Size", "uint64")
                        .Commit();
  EXPECT_EQ(disk->FindPropertyDecl("Count")->GetDefaultValue({}), TCIMValue(4));
  EXPECT_EQ(disk->GetStaticProperty("Count", {})->GetValue({}), TCIMValue(5));
  EXPECT_THAT(Properties(*disk), ElementsAre("Count", "Size"));
}

TEST_F(ClassBuilder, RefusesQualifiersBehindAStaticValue) {
  auto builder = Build("EX_Disk");
  builder.PropertyWithDefault("Count", 4).StaticValue("Count", 5);
  EXPECT_EQ(StatusOf([&] { builder.Qualifier("Units", "Pieces"); }), kHWXStatusInvalidOpSequence);
}

TEST_F(ClassBuilder, RefusesAParameterWithoutAMethod) {
  auto builder = Build("EX_Disk");
  EXPECT_EQ(StatusOf([&] { builder.Parameter("Hard", "boolean"); }), kHWXStatusInvalidOpSequence);
  builder.Method("Eject", "uint32").Property("Size", "uint64");
  EXPECT_EQ(StatusOf([&] { builder.Parameter("Hard", "boolean"); }), kHWXStatusInvalidOpSequence);
}

TEST_F(ClassBuilder, PassesOnTheFailuresOfTheKit) {
  Build("EX_Disk").Commit();
  EXPECT_EQ(StatusOf([&] { Build("EX_Disk"); }), kHWXStatusAlreadyExists);
  EXPECT_EQ(StatusOf([&] { Build("EX Disk"); }), kHWXStatusInvalidCIMName);
  EXPECT_EQ(StatusOf([&] { Build("EX_Sub", "EX_None"); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { Build("EX_A").Qualifier("None", true); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { Build("EX_A").Qualifier("Key", "yes"); }), kHWXStatusTypeMismatch);
  EXPECT_EQ(StatusOf([&] { Build("EX_A").Reference("R", "EX_A"); }), kHWXStatusNotFound);
  EXPECT_EQ(StatusOf([&] { Build("EX_A").Property("A", "uint64").Property("a", "uint64"); }),
            kHWXStatusAlreadyExists);
}

TEST(DeclaredType, IsATagOrASchemasNameOfIt) {
  EXPECT_EQ(TDeclaredType(Type::kCIMTypeReal32).Get(), Type::kCIMTypeReal32);
  EXPECT_EQ(TDeclaredType("uint8").Get(), Type::kCIMTypeUInt8);
  EXPECT_EQ(TDeclaredType("DateTime").Get(), Type::kCIMTypeDateTime);
  EXPECT_EQ(TDeclaredType("string[]").Get(), kStringArray);
  for (const char* name : {"", "[]", "text", "string[", "string[][]", " string"})
    EXPECT_EQ(StatusOf([&] { const TDeclaredType type(name); }), kHWXStatusTypeMismatch) << name;
}

// The standard qualifiers.

TEST_F(ClassBuilder, DeclaresTheStandardQualifiersOnceAndKeepsThoseThatAreThere) {
  const auto mine = Declare("Units", 1, kFlavorRestricted);
  Build("EX_A");
  Build("EX_B");
  EXPECT_EQ(fNamespace->GetQualifierDecl("Units", {}), mine);
  const auto all = NamesFrom<ICIMQualifierDecl>(
      [&](const auto& callback) { fNamespace->EnumerateQualifierDecls(callback, {}); });
  EXPECT_EQ(all.size(), 21u);
}

TEST_F(ClassBuilder, DeclaresTheStandardQualifiersWithTheirFlavors) {
  DeclareStandardQualifiers(*fNamespace);
  const auto flavor = [&](const char* name) {
    return fNamespace->GetQualifierDecl(name, {})->GetFlavor({});
  };
  const auto scope = [&](const char* name) {
    return fNamespace->GetQualifierDecl(name, {})->GetScope({});
  };
  for (const char* name : {"Abstract", "Deprecated", "Override"})
    EXPECT_EQ(flavor(name), kFlavorEnableOverride) << name;
  EXPECT_EQ(flavor("Version"), kFlavorEnableOverride | unsigned{kFlavorTranslatable});
  for (const char* name : {"Aggregate", "Aggregation", "Association", "In", "Key", "Out",
                           "Propagated", "Required", "Weak"})
    EXPECT_EQ(flavor(name), kFlavorToSubclass) << name;
  for (const char* name : {"MaxLen", "PUnit", "Read", "ValueMap", "Write"})
    EXPECT_EQ(flavor(name), kFlavorDefault) << name;
  for (const char* name : {"Description", "Units", "Values"}) {
    EXPECT_EQ(flavor(name), kFlavorDefault | unsigned{kFlavorTranslatable}) << name;
  }
  EXPECT_EQ(scope("Abstract"), unsigned{kScopeClass} | kScopeAssociation | kScopeIndication);
  EXPECT_EQ(scope("Key"), unsigned{kScopeProperty} | kScopeReference);
  EXPECT_EQ(scope("Read"), kScopeProperty);
  EXPECT_EQ(scope("ValueMap"), unsigned{kScopeProperty} | kScopeMethod | kScopeParameter);
  EXPECT_EQ(scope("Weak"), kScopeReference);
  EXPECT_TRUE(fNamespace->GetQualifierDecl("Units", {})->IsOverridable({}));
  EXPECT_FALSE(fNamespace->GetQualifierDecl("Key", {})->IsOverridable({}));
}

}  // namespace
}  // namespace hwxtest
