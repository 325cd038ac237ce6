#include "smbios/smbios.h"

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <climits>
#include <cstring>
#include <type_traits>

#include "support/ChildProcess.h"
#include "support/ScopedEnvironment.h"
#include "support/SmbiosTables.h"
#include "support/TemporaryDirectory.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;

static_assert(std::is_same_v<decltype(TSmBiosStatus::code), int>);
static_assert(offsetof(TSmBiosStatus, code) == 0);
static_assert(kSmBiosOK == 0 && kSmBiosReadFailed == 3 && kSmBiosNoStructure == 5);

class SmBios : public testing::Test {
 protected:
  ~SmBios() override { smBiosClose(&fHandle); }

  int Load(const Bytes& dump) {
    smBiosClose(&fHandle);
    hwxtest::WriteBytes(fDirectory / "dump", dump);
    return smBiosLoad(nullptr, &fHandle).code;
  }

  // Copies into a buffer of exactly the given capacity; `fLength` is what came back.
  int GetFirst(int type, int capacity = 1024) {
    fBuffer.assign(static_cast<std::size_t>(capacity), 0xAA);
    fLength = capacity;
    return smBiosGetFirst(fHandle, type, fBuffer.data(), &fLength).code;
  }

  Bytes Copied() const { return Bytes(fBuffer.begin(), fBuffer.begin() + fLength); }

  hwxtest::TemporaryDirectory fDirectory;
  hwxtest::ScopedEnvironment fVariable{"HWX_SMBIOS_TABLES", fDirectory / "dump"};
  void* fHandle = nullptr;
  Bytes fBuffer;
  int fLength = 0;
};

TEST_F(SmBios, CopiesAStructureWithItsStringsAndOneNulByteMore) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {1, 2}, {"ab", "c"}).AddEnd().Dump64()), 0);
  ASSERT_EQ(GetFirst(1), 0);
  EXPECT_EQ(Copied(), (Bytes{1, 6, 0, 0, 1, 2, 'a', 'b', 0, 'c', 0, 0, 0}));
  EXPECT_EQ(fBuffer[13], 0xAA);
}

TEST_F(SmBios, CopiesAStructureWithoutStringsWithItsTwoNulBytesOnly) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {1, 2}).AddEnd().Dump64()), 0);
  ASSERT_EQ(GetFirst(1), 0);
  EXPECT_EQ(Copied(), (Bytes{1, 6, 0, 0, 1, 2, 0, 0}));
  EXPECT_EQ(fBuffer[8], 0xAA);
}

TEST_F(SmBios, CopiesStringsByteForByte) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {}, {"\xC3\xA9\xFF "}).AddEnd().Dump32()), 0);
  ASSERT_EQ(GetFirst(1), 0);
  EXPECT_EQ(Copied(), (Bytes{1, 4, 0, 0, 0xC3, 0xA9, 0xFF, ' ', 0, 0, 0}));
}

TEST_F(SmBios, CopiesTheFirstStructureOfTheType) {
  ASSERT_EQ(Load(SmbiosTables().Add(2, {9}).Add(1, {7}).Add(1, {8}).AddEnd().Dump64()), 0);
  ASSERT_EQ(GetFirst(1), 0);
  EXPECT_EQ(fBuffer[4], 7);
  ASSERT_EQ(GetFirst(127), 0);
  EXPECT_EQ(fLength, 6);
}

TEST_F(SmBios, AbsentTypeIsCode5) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {}).AddEnd().Dump64()), 0);
  for (const int type : {0, 2, 126, 255, 256, 257, -1, INT_MIN, INT_MAX}) {
    EXPECT_EQ(GetFirst(type), 5) << type;
    EXPECT_EQ(fLength, 0);
    EXPECT_EQ(fBuffer, Bytes(1024, 0xAA));
  }
}

TEST_F(SmBios, StructureIsCopiedWholeOrNotAtAll) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {}, {"ab"}).AddEnd().Dump64()), 0);
  for (int capacity = 0; capacity < 9; ++capacity) {
    fBuffer.reserve(1);  // so that the pointer isn't null for a capacity of 0
    EXPECT_EQ(GetFirst(1, capacity), kSmBiosBufferTooSmall) << capacity;
    EXPECT_EQ(fLength, 0);
    EXPECT_EQ(fBuffer, Bytes(static_cast<std::size_t>(capacity), 0xAA));
  }
  EXPECT_EQ(GetFirst(1, 9), 0);
  EXPECT_EQ(fLength, 9);
}

TEST_F(SmBios, NegativeCapacityIsTooSmall) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {}).AddEnd().Dump64()), 0);
  char buffer[16];
  int length = -1;
  EXPECT_EQ(smBiosGetFirst(fHandle, 1, buffer, &length).code, kSmBiosBufferTooSmall);
  EXPECT_EQ(length, 0);
}

TEST_F(SmBios, HandleKeepsWhatWasLoaded) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {7}).AddEnd().Dump64()), 0);
  hwxtest::WriteBytes(fDirectory / "dump", {});
  EXPECT_EQ(GetFirst(1), 0);
  EXPECT_EQ(GetFirst(1), 0);
}

TEST_F(SmBios, EachLoadReadsAgain) {
  ASSERT_EQ(Load(SmbiosTables().Add(1, {7}).AddEnd().Dump64()), 0);
  ASSERT_EQ(Load(SmbiosTables().Add(1, {8}).AddEnd().Dump64()), 0);
  ASSERT_EQ(GetFirst(1), 0);
  EXPECT_EQ(fBuffer[4], 8);
}

TEST_F(SmBios, ReadsADirectory) {
  SmbiosTables().Add(1, {7}).AddEnd().WriteDirectory(fDirectory / "tables");
  fVariable.Set(fDirectory / "tables");
  ASSERT_EQ(smBiosLoad(nullptr, &fHandle).code, 0);
  EXPECT_EQ(GetFirst(1), 0);
}

TEST_F(SmBios, VariableThatNamesNothingIsAbsent) {
  for (const std::string& nothing : {std::string(), fDirectory / "none"}) {
    fVariable.Set(nothing);
    void* handle = this;
    EXPECT_EQ(smBiosLoad(nullptr, &handle).code, kSmBiosAbsent) << nothing;
    EXPECT_EQ(handle, nullptr);
  }
}

TEST_F(SmBios, WithoutTheVariableThisMachinesTablesAreRead) {
  fVariable.Set(std::nullopt);
  struct stat status {};
  const bool present = ::stat("/sys/firmware/dmi/tables", &status) == 0;
  const int code = smBiosLoad(nullptr, &fHandle).code;
  EXPECT_EQ(code == kSmBiosAbsent, !present) << code;
  EXPECT_EQ(code == kSmBiosOK, fHandle != nullptr);
}

TEST_F(SmBios, DumpCutBeforeTheEndOfTheSystemIsRefusedAtEveryLength) {
  const SmbiosTables tables = SmbiosTables().AddSystem({"Maker", "Box"});
  const Bytes dump = SmbiosTables(tables).AddEnd().Dump32();
  for (std::size_t size = 0; size < 32 + tables.Table().size(); ++size) {
    EXPECT_EQ(Load(Bytes(dump.begin(), dump.begin() + static_cast<std::ptrdiff_t>(size))),
              kSmBiosMalformed)
        << size;
    EXPECT_EQ(fHandle, nullptr);
  }
}

TEST_F(SmBios, DamageBeforeTheBiosOrTheSystemIsRefused) {
  const Bytes damage(6, 0);
  const auto system = SmbiosTables().AddSystem({"Maker", "Box"});
  const auto bios = SmbiosTables().AddBios("Maker", "V1", "");
  EXPECT_EQ(Load(SmbiosTables(system).AddRaw(damage).Dump64()), kSmBiosMalformed);
  EXPECT_EQ(Load(SmbiosTables(bios).AddRaw(damage).Dump64()), kSmBiosMalformed);
}

TEST_F(SmBios, DamageBehindTheBiosAndTheSystemCostsWhatLiesBehindIt) {
  auto tables = SmbiosTables().AddBios("Maker", "V1", "").AddSystem({"Maker", "Box"});
  tables.AddRaw(Bytes(6, 0)).Add(2, {1}).AddEnd();
  ASSERT_EQ(Load(tables.Dump64()), kSmBiosOK);
  EXPECT_EQ(GetFirst(0), kSmBiosOK);
  EXPECT_EQ(GetFirst(1), kSmBiosOK);
  EXPECT_EQ(GetFirst(2), kSmBiosMalformed);
  EXPECT_EQ(fLength, 0);
}

TEST_F(SmBios, RefusedPermissionHasItsCode) {
  hwxtest::WriteBytes(fDirectory / "dump", SmbiosTables().AddEnd().Dump64());
  ASSERT_EQ(::chmod(fDirectory.Path().c_str(), 0755), 0);
  ASSERT_EQ(::chmod((fDirectory / "dump").c_str(), 0), 0);
  hwxtest::RunScene("root's rights can't be given up", [&] {
    if (!hwxtest::BecomeUnprivileged()) return hwxtest::kSceneNotAllowed;
    EXPECT_EQ(smBiosLoad(nullptr, &fHandle).code, kSmBiosNoPermission);
    EXPECT_EQ(fHandle, nullptr);
    return 0;
  });
}

TEST_F(SmBios, NullPointersAreRefused) {
  char buffer[16];
  int length = sizeof buffer;
  EXPECT_EQ(smBiosLoad(nullptr, nullptr).code, kSmBiosInvalidArgument);
  EXPECT_EQ(smBiosGetFirst(nullptr, 1, buffer, &length).code, kSmBiosInvalidArgument);
  EXPECT_EQ(length, 0);
  ASSERT_EQ(Load(SmbiosTables().Add(1, {}).AddEnd().Dump64()), 0);
  length = sizeof buffer;
  EXPECT_EQ(smBiosGetFirst(fHandle, 1, nullptr, &length).code, kSmBiosInvalidArgument);
  EXPECT_EQ(smBiosGetFirst(fHandle, 1, buffer, nullptr).code, kSmBiosInvalidArgument);
  EXPECT_EQ(smBiosClose(nullptr).code, kSmBiosInvalidArgument);
}

TEST_F(SmBios, CloseMakesTheHandleNullAndMayBeRepeated) {
  ASSERT_EQ(Load(SmbiosTables().AddEnd().Dump64()), 0);
  ASSERT_NE(fHandle, nullptr);
  EXPECT_EQ(smBiosClose(&fHandle).code, 0);
  EXPECT_EQ(fHandle, nullptr);
  EXPECT_EQ(smBiosClose(&fHandle).code, 0);
}

}  // namespace
