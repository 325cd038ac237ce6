// Which references the kit stores.

#include "hwxkit/detail/ReferencedClass.h"

#include "unit/hwxkit/KitTesting.h"

namespace hwxtest {
namespace {

using namespace NQORHWX20;

class StoredReference : public KitTest {
 protected:
  StoredReference() {
    Build("EX_Device").Key("ID", "string").Commit();
    Build("EX_Disk", "EX_Device").Commit();
    Build("EX_Other").Key("ID", "string").Commit();
    Build("EX_Path").KeyReference("To", "EX_Disk").Commit();
    fSlot = Build("EX_Slot")
                .Reference("Disk", "EX_Device")
                .PropertyWithDefault("Any", Null(Type::kCIMTypeReference))
                .Commit();
  }

  TCIMValue Value(const std::string& path) const {
    TCIMReference reference(fNamespace, path, {});
    return TCIMValue(reference);
  }

  // What storing a value in an instance and in the class ends in.
  int Stored(const std::string& property, const TCIMValue& value) {
    const int status =
        StatusOf([&] { fSlot->NewInstance()->SetPropertyValue(property, value, {}); });
    EXPECT_EQ(StatusOf([&] { fSlot->SetStaticPropertyValue(property, value, {}); }), status);
    return status;
  }

  Ptr<TMemoryClass> fSlot;
};

TEST_F(StoredReference, LeadsToTheDeclaredClassOrASubclass) {
  EXPECT_EQ(Stored("Disk", Value("r:EX_Device.ID=\"a\"")), kHWXStatusOK);
  EXPECT_EQ(Stored("Disk", Value("r:EX_Disk.ID=\"a\"")), kHWXStatusOK);
  EXPECT_EQ(Stored("Disk", Value("EX_Disk")), kHWXStatusOK);
  EXPECT_EQ(Stored("Disk", Value("r:EX_Other.ID=\"a\"")), kHWXStatusInvalidClass);
}

TEST_F(StoredReference, KeepsWhatItWasSetTo) {
  fSlot->SetStaticPropertyValue("Disk", Value("r:EX_Disk.ID=\"a\""), {});
  const TCIMReference kept = fSlot->GetStaticProperty("Disk", {})->GetValue({});
  EXPECT_EQ(kept.GetPath(), "EX_Disk.ID=\"a\"");
  EXPECT_EQ(kept.GetNamespace(), fNamespace);
}

TEST_F(StoredReference, LeadsAnywhereIfNoClassIsDeclared) {
  EXPECT_EQ(Stored("Any", Value("r:EX_Other.ID=\"a\"")), kHWXStatusOK);
}

TEST_F(StoredReference, MayBeNullOfADeclaredClassOrOfNone) {
  EXPECT_EQ(Stored("Disk", ReferenceTo(fNamespace->FindClass("EX_Disk"))), kHWXStatusOK);
  EXPECT_EQ(Stored("Disk", Null(Type::kCIMTypeReference)), kHWXStatusOK);
  EXPECT_EQ(Stored("Disk", ReferenceTo(fNamespace->FindClass("EX_Other"))), kHWXStatusInvalidClass);
}

TEST_F(StoredReference, MayLeadToAnotherNamespaceByName) {
  const auto other = TMemoryNamespace::Create("other");
  TClassBuilder(other, "ex_device").Key("ID", "string").Commit();
  TCIMReference reference(other, "r:EX_Device.ID=\"a\"", {});
  EXPECT_EQ(Stored("Disk", TCIMValue(reference)), kHWXStatusOK);
}

TEST_F(StoredReference, MustHaveAClass) {
  TCIMReference none(fNamespace, {});
  TCIMValue value;
  EXPECT_EQ(StatusOf([&] { value.Set(none); }), kHWXStatusInvalidReference);
  EXPECT_EQ(Stored("Disk", value), kHWXStatusInvalidReference);
  EXPECT_EQ(Stored("Any", value), kHWXStatusInvalidReference);
}

TEST_F(StoredReference, MayBeADefaultValue) {
  const auto made = Build("EX_Rack")
                        .PropertyWithDefault("Disk", Value("r:EX_Disk.ID=\"a\""))
                        .Commit()
                        ->NewInstance();
  EXPECT_EQ(made->GetProperty("Disk", {})->GetValue({}).ToString(10), "EX_Disk.ID=\"a\"");
}

TEST_F(StoredReference, LeadsToNoOpenClassNeitherInItsKeys) {
  const auto open = Create("EX_Open", fNamespace->FindClass("EX_Disk"));
  TCIMReference direct(fNamespace, {});
  direct.SetClass(open);
  EXPECT_EQ(StatusOf([&] { open->CreatePropertyDecl("Self", TCIMValue(direct), {}); }),
            kHWXStatusInvalidClass);
  TCIMReference nesting(fNamespace, "EX_Path", {});
  nesting.AddKeyValue("To", TCIMValue(direct));
  EXPECT_EQ(StatusOf([&] { open->CreatePropertyDecl("Self", TCIMValue(nesting), {}); }),
            kHWXStatusInvalidClass);
  const TCIMValue array(Type::kCIMTypeReference, 0, {TCIMValue(nesting)});
  EXPECT_EQ(StatusOf([&] { open->CreatePropertyDecl("Self", array, {}); }), kHWXStatusInvalidClass);
}

}  // namespace
}  // namespace hwxtest
