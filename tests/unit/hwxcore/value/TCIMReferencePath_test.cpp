// Reading and printing of object paths.

#include "unit/hwxcore/value/ReferenceTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::Pair;

class TCIMReferencePath : public ReferenceTest {
 protected:
  // Expects `path` to fail, with one log line or none, and returns what the reference is left with.
  TCIMReference Failed(const std::string& path, int status,
                       const std::vector<ScopedLogCapture::Line>& lines) {
    TCIMReference reference = Empty();
    ScopedLogCapture log;
    EXPECT_EQ(StatusOf([&] { reference.SetPath(path); }), status) << path;
    EXPECT_EQ(log.Lines(), lines) << path;
    return reference;
  }

  TCIMReference Invalid(const std::string& path, const std::string& message) {
    return Failed(path, kHWXStatusInvalidReference, {{"Error", message + path}});
  }
};

TEST_F(TCIMReferencePath, ReadsKeysTypedByTheirDeclarations) {
  const TCIMReference reference = Parsed("root:Thing.Id=\"5\",Name=\"a\\\"b\"");
  EXPECT_EQ(reference.GetClassName(), "Thing");
  EXPECT_THAT(Keys(reference), ElementsAre("Id=5", "Name=a\"b"));
  reference.EnumerateKeyBindings([](std::pair<std::string, TCIMValue> key) {
    const auto type = key.first == "Id" ? TCIMValue::TCIMType::kCIMTypeUInt32
                                        : TCIMValue::TCIMType::kCIMTypeString;
    EXPECT_EQ(key.second.GetType(), type);
    return true;
  });
  EXPECT_EQ(reference.GetPath(), "Thing.Id=\"5\",Name=\"a\\\"b\"");
}

TEST_F(TCIMReferencePath, PrintsKeysInTheOrderOfTheirNames) {
  EXPECT_EQ(Parsed("x:Thing.Name=\"n\",Id=\"7\"").GetPath(), "Thing.Id=\"7\",Name=\"n\"");
}

TEST_F(TCIMReferencePath, TakesADotForAComma) {
  EXPECT_THAT(Keys(Parsed("root:Thing.Id=\"5\".Name=\"x\"")), ElementsAre("Id=5", "Name=x"));
  EXPECT_THAT(Keys(Parsed("root:Thing.Name=\"x\".Id=\"5\"")), ElementsAre("Id=5", "Name=x"));
}

TEST_F(TCIMReferencePath, KeepsTheFirstOfTwoEqualKeys) {
  EXPECT_THAT(Keys(Parsed("root:Thing.Id=\"5\",Id=\"6\"")), ElementsAre("Id=5"));
}

TEST_F(TCIMReferencePath, BindsAClassWithoutKeys) {
  const TCIMReference reference = Parsed("Thing");
  EXPECT_EQ(reference.GetClassName(), "Thing");
  EXPECT_EQ(reference.GetPath(), "Thing");
}

TEST_F(TCIMReferencePath, DropsTheNamespaceTextAndKeepsTheLabel) {
  const TCIMReference reference = Parsed("any text at all:Thing.Id=\"5\"");
  EXPECT_EQ(reference.GetNameSpaceName(), "");
  EXPECT_EQ(reference.GetNamespace(), fNamespace);
}

TEST_F(TCIMReferencePath, TakesAPathWithoutColonForAClassName) {
  Failed("Thing.Id=\"5\"", kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, KeepsTheNamespaceTextInAClassNameWithoutKeys) {
  Failed("root:Thing", kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, CountsADotOnlyBehindTheColon) {
  EXPECT_THAT(Keys(Parsed("a.b.c:Thing.Id=\"5\"")), ElementsAre("Id=5"));
}

TEST_F(TCIMReferencePath, TakesAColonInAValueForTheNamespaceSeparator) {
  Failed("Thing.Name=\"a:b\"", kHWXStatusUnknownClass, {});
  Invalid("Thing.Name=\"a:b.c\"", "Reference specifies invalid class, path=");
  EXPECT_THAT(Keys(Parsed("r:Thing.Name=\"a:b\"")), ElementsAre("Name=a:b"));
}

TEST_F(TCIMReferencePath, AnEmptyPathIsAnUnknownClass) {
  Failed("", kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, ReportsAnInvalidClass) {
  const TCIMReference left =
      Invalid("root:Nothing.Id=\"5\"", "Reference specifies invalid class, path=");
  EXPECT_EQ(StatusOf([&] { left.GetClass(); }), kHWXStatusInvalidReference);
}

TEST_F(TCIMReferencePath, ReportsAMissingSeparator) {
  Invalid("root:Thing.Id=\"5\"Name=\"x\"", "Reference missing '.' or ',', path=");
  Invalid("root:Thing.Id=\"5\";Name=\"x\"", "Reference missing '.' or ',', path=");
  Invalid("root:Thing.Id=\"5\" ", "Reference missing '.' or ',', path=");
}

TEST_F(TCIMReferencePath, ReportsAMissingValue) {
  Invalid("root:Thing.Id", "Reference missing property value, path=");
  Invalid("root:Thing.", "Reference missing property value, path=");
}

TEST_F(TCIMReferencePath, ReportsATrailingSeparatorAndKeepsWhatItRead) {
  TCIMReference left = Invalid("root:Thing.Id=\"5\",", "Reference missing property value, path=");
  EXPECT_EQ(left.GetPath(), "Thing.Id=\"5\"");
  EXPECT_EQ(StatusOf([&] { left.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
}

TEST_F(TCIMReferencePath, ReportsAnInvalidProperty) {
  const std::string path = "root:Thing.Size=\"5\"";
  Failed(path, kHWXStatusInvalidReference,
         {{"Error", "Reference specifies invalid property, property=Size, path=" + path}});
}

TEST_F(TCIMReferencePath, DoesNotTrimNames) {
  const std::string path = "root:Thing.Id =\"5\"";
  Failed(path, kHWXStatusInvalidReference,
         {{"Error", "Reference specifies invalid property, property=Id , path=" + path}});
}

TEST_F(TCIMReferencePath, ReportsAnUnquotedValueAtDebugLevel) {
  for (const std::string path : {"root:Thing.Id=5", "root:Thing.Id=", "root:Thing.Id='5'"}) {
    Failed(path, kHWXStatusInvalidReference,
           {{"Debug", "Reference missing opening '\"', path=" + path}});
  }
}

TEST_F(TCIMReferencePath, ReportsAMissingClosingMark) {
  Invalid("root:Thing.Id=\"5", "Reference missing closing '\"', path=");
  Invalid("root:Thing.Id=\"", "Reference missing closing '\"', path=");
  Invalid("root:Thing.Name=\"a\\", "Reference missing closing '\"', path=");
  Invalid("root:Thing.Name=\"a\\\"", "Reference missing closing '\"', path=");
}

TEST_F(TCIMReferencePath, UnescapesMarksAndBackslashesAlone) {
  const auto name = [&](const std::string& quoted) {
    return Keys(Parsed("r:Thing.Name=\"" + quoted + "\"")).at(0).substr(5);
  };
  EXPECT_EQ(name("a\\\\b"), "a\\b");
  EXPECT_EQ(name("\\\""), "\"");
  EXPECT_EQ(name("a\\nb"), "a\\nb");
  EXPECT_EQ(name("\\\\\\\""), "\\\"");
  EXPECT_EQ(name(""), "");
  EXPECT_EQ(name("a,b.c=d:e"), "a,b.c=d:e");
  EXPECT_EQ(name(std::string("a\0b", 3)), std::string("a\0b", 3));
}

TEST_F(TCIMReferencePath, EveryTextSurvivesPrintingAndReading) {
  for (const std::string text : {"", "\\", "\"", "\\\"", "\\\\", "a\"b\\c", "\n\t", "\xff\x80"}) {
    TCIMReference reference = Empty();
    reference.SetClassName("Thing");
    reference.AddKeyValue("Name", TCIMValue(text));
    EXPECT_EQ(Keys(Parsed("r:" + reference.GetPath())), Keys(reference)) << text;
  }
}

TEST_F(TCIMReferencePath, WhatIsPrintedNeedsANamespaceTextToBeRead) {
  Failed(Parsed("r:Thing.Id=\"5\"").GetPath(), kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, ReadsNumbersAsTheTextConstructorDoes) {
  EXPECT_THAT(Keys(Parsed("r:Thing.Id=\"0x10\"")), ElementsAre("Id=16"));
  EXPECT_THAT(Keys(Parsed("r:Thing.Id=\"abc\"")), ElementsAre("Id=0"));
}

TEST_F(TCIMReferencePath, ReadsDateTimesAndBooleans) {
  EXPECT_EQ(Parsed("r:Event.At=\"20070102030405.000006+060\",Ok=\"true\"").GetPath(),
            "Event.At=\"20070102030405.000006+060\",Ok=\"true\"");
  Failed("r:Event.At=\"yesterday\"", kHWXStatusInvalidDateTime, {});
}

TEST_F(TCIMReferencePath, CannotReadACharacter) {
  Failed("r:Letter.Sign=\"A\"", kHWXStatusTypeMismatch,
         {{"Error", "Core: Declaration type: char16 Value type: string"}});
}

TEST_F(TCIMReferencePath, ReadsNestedReferencesUnescaped) {
  const TCIMReference link = Parsed("r:Link.From=\"r:Thing.Id=\"1\"\",Label=\"x\"");
  EXPECT_THAT(Keys(link), ElementsAre("From=Thing.Id=\"1\"", "Label=x"));
  EXPECT_EQ(link.GetPath(), "Link.From=\"Thing.Id=\"1\"\",Label=\"x\"");
}

TEST_F(TCIMReferencePath, ReadsTwoNestedReferences) {
  const TCIMReference link =
      Parsed("r:Link.From=\"r:Thing.Id=\"1\",Name=\"a\"\",To=\"s:Thing.Id=\"2\"\"");
  EXPECT_THAT(Keys(link), ElementsAre("From=Thing.Id=\"1\",Name=\"a\"", "To=Thing.Id=\"2\""));
}

TEST_F(TCIMReferencePath, APrintedNestedPathCannotBeReadAgain) {
  // The nested path has no colon: all the rest is the name of a class.
  Failed("r:" + Parsed("r:Link.From=\"r:Thing.Id=\"1\"\"").GetPath(), kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, ANestedPathMayRunToTheEndWithoutItsMark) {
  EXPECT_THAT(Keys(Parsed("r:Link.From=\"r:Thing.Id=\"1\"")), ElementsAre("From=Thing.Id=\"1\""));
}

TEST_F(TCIMReferencePath, ANestedPathNeedsKeysOfItsOwn) {
  // With no dot behind it, the rest of the whole path is the name of a class.
  Failed("r:Link.From=\"r:Thing\"", kHWXStatusUnknownClass, {});
  Failed("r:Link.From=\"Thing\",Label=\"x\"", kHWXStatusUnknownClass, {});
  // With one, the search for it runs on through the outer path.
  Invalid("r:Link.From=\"r:Thing\",To=\"r:Thing.Id=\"2\"\"",
          "Reference specifies invalid class, path=");
}

TEST_F(TCIMReferencePath, AFailedNestedPathLeavesTheOuterKeysInFrontOfIt) {
  const TCIMReference left = Invalid("r:Link.Label=\"x\",From=\"r:None.Id=\"1\"\"",
                                     "Reference specifies invalid class, path=");
  EXPECT_THAT(Keys(left), ElementsAre("Label=x"));
}

TEST_F(TCIMReferencePath, ANullKeyCannotBePrinted) {
  TCIMReference reference = Empty();
  reference.SetClassName("Thing");
  reference.AddKeyValue("Name", TCIMValue(TCIMValue::TCIMType::kCIMTypeString, 0));
  EXPECT_EQ(StatusOf([&] { reference.GetPath(); }), kHWXStatusValueIsNULL);
}

TEST_F(TCIMReferencePath, PrintsNothingWithoutAClass) {
  EXPECT_EQ(StatusOf([&] { Empty().GetPath(); }), kHWXStatusInvalidReference);
}

TEST_F(TCIMReferencePath, SetPathNeedsAnEmptyReferenceWithANamespace) {
  TCIMReference bound = Parsed("Thing");
  EXPECT_EQ(StatusOf([&] { bound.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
  TCIMReference nowhere({}, TCIMContext{});
  EXPECT_EQ(StatusOf([&] { nowhere.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
  TCIMReference orphan = Empty();
  fNamespace.reset();
  EXPECT_EQ(StatusOf([&] { orphan.SetPath("Thing"); }), kHWXStatusInvalidOpSequence);
}

TEST_F(TCIMReferencePath, ParsePathStandsOnTheClosingMarkOfANestedPath) {
  const std::string path = "=\"r:Thing.Id=\"1\"\",rest";
  TCIMReference parser = Empty(), target = Empty();
  unsigned long position = 1;
  parser.GetBody()->ParsePath(target.GetBody(), path, position);
  EXPECT_EQ(path.substr(position), "\",rest");
  EXPECT_THAT(Keys(target), ElementsAre("Id=1"));
  EXPECT_THAT(Keys(parser), IsEmpty());
}

TEST_F(TCIMReferencePath, ParsePathWithoutANamespaceEndsInAStatus) {
  TCIMReference parser({}, TCIMContext{}), target = Empty();
  unsigned long position = 0;
  EXPECT_EQ(StatusOf([&] {
              parser.GetBody()->ParsePath(target.GetBody(), "r:Thing.Id=\"1\"", position);
            }),
            kHWXStatusInvalidOpSequence);
}

TEST_F(TCIMReferencePath, AFaultBehindTheClassLeavesTheClass) {
  for (const std::string path :
       {"r:Thing.", "r:Thing.Id", "r:Thing.Size=\"5\"", "r:Thing.Id=\"5"}) {
    TCIMReference left = Empty();
    EXPECT_EQ(StatusOf([&] { left.SetPath(path); }), kHWXStatusInvalidReference) << path;
    EXPECT_EQ(left.GetPath(), "Thing") << path;
    EXPECT_EQ(StatusOf([&] { left.SetPath("Thing"); }), kHWXStatusInvalidOpSequence) << path;
  }
}

TEST_F(TCIMReferencePath, AnUnknownClassLeavesAReferenceThatTakesAPath) {
  TCIMReference left = Failed("Nothing", kHWXStatusUnknownClass, {});
  left.SetPath("r:Thing.Id=\"5\"");
  EXPECT_EQ(left.GetPath(), "Thing.Id=\"5\"");
}

TEST_F(TCIMReferencePath, AValueOfAWrongTypeLeavesTheKeysInFrontOfIt) {
  const TCIMReference left =
      Failed("r:Event.Ok=\"true\",At=\"never\"", kHWXStatusInvalidDateTime, {});
  EXPECT_EQ(left.GetPath(), "Event.Ok=\"true\"");
}

TEST_F(TCIMReferencePath, ASecondColonStaysInTheClassName) {
  Invalid("a:b:Thing.Id=\"5\"", "Reference specifies invalid class, path=");
}

TEST_F(TCIMReferencePath, TheNamespaceTextMayBeEmpty) {
  EXPECT_THAT(Keys(Parsed(":Thing.Id=\"5\"")), ElementsAre("Id=5"));
  Failed(":Thing", kHWXStatusUnknownClass, {});
}

TEST_F(TCIMReferencePath, TakesACommaOnlyBehindAKey) {
  // The class name runs up to a dot.
  Invalid("r:Thing,Id=\"5\".Name=\"x\"", "Reference specifies invalid class, path=");
}

TEST_F(TCIMReferencePath, ANameRunsOnToTheNextEqualsSign) {
  const std::string path = "r:Thing.Id,Name=\"x\"";
  Failed(path, kHWXStatusInvalidReference,
         {{"Error", "Reference specifies invalid property, property=Id,Name, path=" + path}});
}

TEST_F(TCIMReferencePath, ACharacterBehindANestedPathMustBeASeparator) {
  Invalid("r:Link.From=\"r:Thing.Id=\"1\"x\"", "Reference missing '.' or ',', path=");
  Invalid("r:Link.From=\"r:Thing.Id=\"1\"\"x", "Reference missing '.' or ',', path=");
}

TEST_F(TCIMReferencePath, AnUnquotedNestedPathIsReportedAtDebugLevel) {
  const std::string path = "r:Link.From=r:Thing.Id=\"1\"";
  Failed(path, kHWXStatusInvalidReference,
         {{"Debug", "Reference missing opening '\"', path=" + path}});
}

TEST_F(TCIMReferencePath, AnEscapedMarkDoesNotOpenANestedPath) {
  const std::string path = "r:Link.From=\"r:Thing.Id=\\\"1\\\"\"";
  Failed(path, kHWXStatusInvalidReference,
         {{"Debug", "Reference missing opening '\"', path=" + path}});
}

}  // namespace
}  // namespace hwxtest
