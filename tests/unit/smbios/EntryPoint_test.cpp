#include "smbios/EntryPoint.h"

#include <gtest/gtest.h>

#include <memory>

#include "support/SmbiosTables.h"

namespace {

using hwxtest::Bytes;
using hwxtest::SmbiosTables;
using smbios::EEntryPointForm;
using smbios::TEntryPoint;

// On the heap with nothing behind it, so that the sanitizer sees a read past the end.
std::string Parse(const Bytes& bytes, TEntryPoint& entryPoint) {
  const std::unique_ptr<std::uint8_t[]> exact(new std::uint8_t[bytes.size()]);
  std::copy(bytes.begin(), bytes.end(), exact.get());
  return smbios::ParseEntryPoint(exact.get(), bytes.size(), entryPoint);
}

std::string Problem(const Bytes& bytes) {
  TEntryPoint entryPoint;
  return Parse(bytes, entryPoint);
}

SmbiosTables SmallTables() {
  return SmbiosTables().Add(200, {1, 2}, {"text"}).AddEnd();
}

TEST(EntryPoint, Reads32BitForm) {
  TEntryPoint entryPoint;
  ASSERT_EQ(Parse(SmallTables().EntryPoint32(0xFEDCBA98), entryPoint), "");
  EXPECT_EQ(entryPoint.fSize, 31u);
  EXPECT_EQ(entryPoint.fMajor, 2);
  EXPECT_EQ(entryPoint.fMinor, 8);
  EXPECT_EQ(entryPoint.fForm, EEntryPointForm::k32Bit);
  EXPECT_EQ(entryPoint.fTableAddress, 0xFEDCBA98u);
  EXPECT_EQ(entryPoint.fTableSize, SmallTables().Table().size());
  EXPECT_EQ(entryPoint.fStructureCount, 2u);
}

TEST(EntryPoint, Reads64BitForm) {
  TEntryPoint entryPoint;
  ASSERT_EQ(Parse(SmallTables().EntryPoint64(0xFEDCBA9876543210), entryPoint), "");
  EXPECT_EQ(entryPoint.fSize, 24u);
  EXPECT_EQ(entryPoint.fMajor, 3);
  EXPECT_EQ(entryPoint.fMinor, 2);
  EXPECT_EQ(entryPoint.fForm, EEntryPointForm::k64Bit);
  EXPECT_EQ(entryPoint.fTableAddress, 0xFEDCBA9876543210u);
  EXPECT_EQ(entryPoint.fTableSize, SmallTables().Table().size());
  EXPECT_EQ(entryPoint.fStructureCount, 0u);
}

TEST(EntryPoint, ReadsTheFormOfBeforeVersion21) {
  TEntryPoint entryPoint;
  ASSERT_EQ(Parse(SmallTables().LegacyEntryPoint(0xFEDCBA98), entryPoint), "");
  EXPECT_EQ(entryPoint.fSize, 15u);
  EXPECT_EQ(entryPoint.fMajor, 2);
  EXPECT_EQ(entryPoint.fMinor, 0);
  EXPECT_EQ(entryPoint.fForm, EEntryPointForm::kLegacy);
  EXPECT_EQ(entryPoint.fTableAddress, 0xFEDCBA98u);
  EXPECT_EQ(entryPoint.fTableSize, SmallTables().Table().size());
  EXPECT_EQ(entryPoint.fStructureCount, 2u);
}

TEST(EntryPoint, HasTheMinorVersionThatAMakerMeant) {
  const auto minor = [](std::uint8_t major, std::uint8_t told) {
    Bytes bytes = SmallTables().EntryPoint32();
    bytes[6] = major;
    bytes[7] = told;
    hwxtest::FixChecksums32(bytes);
    TEntryPoint entryPoint;
    EXPECT_EQ(Parse(bytes, entryPoint), "");
    return entryPoint.fMinor;
  };
  EXPECT_EQ(minor(2, 31), 3);
  EXPECT_EQ(minor(2, 33), 3);
  EXPECT_EQ(minor(2, 51), 6);
  EXPECT_EQ(minor(2, 32), 32);
  EXPECT_EQ(minor(3, 31), 31);
}

TEST(EntryPoint, BytesBehindItDontMatter) {
  Bytes bytes32 = SmallTables().EntryPoint32();
  Bytes bytes64 = SmallTables().EntryPoint64();
  bytes32.insert(bytes32.end(), 100, 0xAA);
  bytes64.insert(bytes64.end(), 100, 0xAA);
  EXPECT_EQ(Problem(bytes32), "");
  EXPECT_EQ(Problem(bytes64), "");
}

TEST(EntryPoint, TruncatedAtEveryLengthIsRefused) {
  for (const Bytes& whole : {SmallTables().LegacyEntryPoint(), SmallTables().EntryPoint32(),
                             SmallTables().EntryPoint64()}) {
    for (std::size_t size = 0; size < whole.size(); ++size) {
      EXPECT_NE(Problem(Bytes(whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(size))),
                "")
          << size;
    }
  }
}

// Each byte counts in a sum, the anchors besides: no single change goes unnoticed.
TEST(EntryPoint, AnyChangedByteIsRefused) {
  for (const Bytes& whole : {SmallTables().LegacyEntryPoint(), SmallTables().EntryPoint32(),
                             SmallTables().EntryPoint64()}) {
    for (std::size_t i = 0; i < whole.size(); ++i) {
      Bytes bytes = whole;
      ++bytes[i];
      EXPECT_NE(Problem(bytes), "") << i;
    }
  }
}

TEST(EntryPoint, RefusalLeavesTheResultAlone) {
  TEntryPoint entryPoint;
  entryPoint.fMajor = 42;
  Bytes bytes = SmallTables().EntryPoint32();
  ++bytes[7];
  EXPECT_EQ(Parse(bytes, entryPoint), "the entry point's checksum is wrong");
  EXPECT_EQ(entryPoint.fMajor, 42);
}

TEST(EntryPoint, TellsWhatIsWrongWith32BitForm) {
  const Bytes sound = SmallTables().EntryPoint32();
  EXPECT_EQ(Problem(Bytes(sound.begin(), sound.end() - 1)), "the entry point is truncated");
  Bytes bytes = sound;
  bytes[5] = 0x1D;
  EXPECT_EQ(Problem(bytes), "the entry point's length is wrong");
  bytes[5] = 0x20;
  EXPECT_EQ(Problem(bytes), "the entry point's length is wrong");
  bytes = sound;
  ++bytes[4];
  EXPECT_EQ(Problem(bytes), "the entry point's checksum is wrong");
  bytes = sound;
  bytes[0x10] = '-';
  hwxtest::FixChecksums32(bytes);
  EXPECT_EQ(Problem(bytes), "the entry point lacks its inner anchor");
  bytes = sound;
  ++bytes[0x16];  // breaks both sums, of which only the outer one is mended
  --bytes[4];
  EXPECT_EQ(Problem(bytes), "the entry point's inner checksum is wrong");
}

TEST(EntryPoint, TellsWhatIsWrongWith64BitForm) {
  const Bytes sound = SmallTables().EntryPoint64();
  EXPECT_EQ(Problem(Bytes(sound.begin(), sound.end() - 1)), "the entry point is truncated");
  Bytes bytes = sound;
  bytes[6] = 23;
  EXPECT_EQ(Problem(bytes), "the entry point's length is wrong");
  bytes[6] = 25;
  EXPECT_EQ(Problem(bytes), "the entry point's length is wrong");
  bytes = sound;
  ++bytes[5];
  EXPECT_EQ(Problem(bytes), "the entry point's checksum is wrong");
}

TEST(EntryPoint, TellsWhatIsWrongWithTheFormOfBeforeVersion21) {
  const Bytes sound = SmallTables().LegacyEntryPoint();
  EXPECT_EQ(Problem(Bytes(sound.begin(), sound.end() - 1)), "the entry point is truncated");
  Bytes bytes = sound;
  ++bytes[5];
  EXPECT_EQ(Problem(bytes), "the entry point's checksum is wrong");
}

TEST(EntryPoint, UnknownBytesAreRefused) {
  EXPECT_EQ(Problem({}), "the entry point is empty");
  EXPECT_EQ(Problem(Bytes(64, 0)), "no entry point is known by its first bytes");
  EXPECT_EQ(Problem({'_', 'S', 'M'}), "no entry point is known by its first bytes");
}

// Makers followed version 2.1 of the format, which tells one byte too few.
TEST(EntryPoint, LengthOf30IsTakenAs31) {
  Bytes bytes = SmallTables().EntryPoint32();
  bytes[5] = 30;
  hwxtest::FixChecksums32(bytes);
  EXPECT_EQ(Problem(bytes), "");
}

TEST(EntryPoint, LongerEntryPointsOfLaterVersionsAreRead) {
  Bytes bytes = SmallTables().EntryPoint64();
  bytes.resize(40, 0x11);
  bytes[6] = 40;
  hwxtest::FixChecksums64(bytes);
  TEntryPoint entryPoint;
  EXPECT_EQ(Parse(bytes, entryPoint), "");
  EXPECT_EQ(entryPoint.fSize, 40u);
}

}  // namespace
