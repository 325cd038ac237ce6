#include "providers/linux/CpuInfo.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

// The words in which the kernels of several architectures describe their processors.

namespace hwxtest {

namespace {

using namespace linux_machine;
using ::testing::IsEmpty;

std::vector<TLogicalProcessor> ParsedCpuInfo(const std::string& text) {
  return ParseCpuInfo(text).fProcessors;
}

TLogicalProcessor FirstOfCpuInfo(const std::string& text) {
  return ParsedCpuInfo(text).at(0);
}

TEST(CpuInfo, ReadsPower) {
  const auto power = FirstOfCpuInfo(
      "processor\t: 0\ncpu\t\t: POWER9, altivec supported\n"
      "clock\t\t: 2300.000000MHz\nrevision\t: 2.2 (pvr 004e 1202)\n");
  EXPECT_EQ(power.fModelName, "POWER9, altivec supported");
  EXPECT_EQ(power.fVendor, "IBM");
  EXPECT_EQ(power.fMegaHertz, 2300u);
}

TEST(CpuInfo, NamesArmPartsByTheirNumbers) {
  const auto arm = FirstOfCpuInfo(
      "processor\t: 0\nBogoMIPS\t: 50.00\nCPU implementer\t: 0x41\n"
      "CPU architecture: 8\nCPU variant\t: 0x3\nCPU part\t: 0xd0c\n"
      "CPU revision\t: 1\n");
  EXPECT_EQ(arm.fModelName, "Neoverse-N1");
  EXPECT_EQ(arm.fVendor, "ARM");
  EXPECT_EQ(arm.fStepping, "r3p1");
  const auto unknown = FirstOfCpuInfo(
      "processor : 0\nmodel name : ARMv8 Processor rev 0 (v8l)\n"
      "CPU implementer : 0xfe\nCPU part : 0xfff\nCPU revision : 4\n");
  EXPECT_EQ(unknown.fModelName, "ARMv8 Processor rev 0 (v8l)");
  EXPECT_FALSE(unknown.fVendor);
  EXPECT_EQ(unknown.fStepping, "4");
}

TEST(CpuInfo, FindsSeveralProcessorsInOneParagraph) {
  const auto phone = ParsedCpuInfo(
      "Processor\t: AArch64 Processor rev 3 (aarch64)\nprocessor\t: 0\n"
      "processor\t: 1\nprocessor\t: 2\nFeatures\t: fp asimd\n"
      "CPU implementer\t: 0x41\nCPU part\t: 0xd03\n\nHardware\t: Example\n");
  ASSERT_EQ(phone.size(), 3u);
  EXPECT_EQ(phone[2].fNumber, 2u);
  EXPECT_EQ(phone[2].fModelName, "Cortex-A53");
  EXPECT_NE(phone[0].fCore, phone[1].fCore);
}

TEST(CpuInfo, TakesWhatIsSaidOfAllFromParagraphsWithoutNumbers) {
  const auto armv7 = ParsedCpuInfo(
      "Processor\t: ARMv7 Processor rev 5 (v7l)\n\nprocessor\t: 0\n"
      "BogoMIPS\t: 38.40\n\nprocessor\t: 1\n\n"
      "CPU implementer\t: 0x41\nCPU part\t: 0xc07\nCPU revision\t: 5\n");
  ASSERT_EQ(armv7.size(), 2u);
  EXPECT_EQ(armv7[1].fModelName, "Cortex-A7");
  EXPECT_EQ(FirstOfCpuInfo("Processor : ARM926EJ-S rev 5\n\nprocessor : 0\n").fModelName,
            "ARM926EJ-S rev 5");
}

TEST(CpuInfo, ReadsRiscV) {
  const auto named =
      FirstOfCpuInfo("processor : 0\nhart : 1\nisa : rv64imafdc\nuarch : sifive,u74-mc\n");
  EXPECT_EQ(named.fModelName, "sifive,u74-mc");
  EXPECT_EQ(named.fVendor, "sifive");
  EXPECT_EQ(FirstOfCpuInfo("processor : 0\nisa : rv64imafdc\n").fModelName, "rv64imafdc");
}

TEST(CpuInfo, ReadsLoongArch) {
  const auto logical = ParsedCpuInfo(
      "system type\t: generic\n\nprocessor\t: 0\npackage\t: 0\ncore\t: 0\n"
      "Model Name\t: Loongson-3A5000\nCPU MHz\t: 2500.00\n"
      "Address Sizes\t: 48 bits physical, 48 bits virtual\n\n"
      "processor\t: 1\npackage\t: 1\ncore\t: 0\n");
  ASSERT_EQ(logical.size(), 2u);
  EXPECT_EQ(logical[0].fModelName, "Loongson-3A5000");
  EXPECT_EQ(logical[0].fVendor, "Loongson");
  EXPECT_EQ(logical[0].fMegaHertz, 2500u);
  EXPECT_EQ(logical[0].fAddressWidth, 48);
  EXPECT_EQ(logical[1].fPackage, "1");
}

TEST(CpuInfo, ReadsMainframes) {
  const auto numbered = ParsedCpuInfo(
      "vendor_id : IBM/S390\n# processors : 2\nprocessor 0: version = FF,"
      "  identification = 2733E8,  machine = 3906\n\n"
      "cpu number : 0\ncpu MHz dynamic : 5000\ncpu MHz static : 5200\n\n"
      "cpu number : 1\n");
  ASSERT_EQ(numbered.size(), 2u);
  EXPECT_EQ(numbered[0].fModelName, "Machine type 3906");
  EXPECT_EQ(numbered[0].fVendor, "IBM/S390");
  EXPECT_EQ(numbered[0].fMegaHertz, 5000u);
  EXPECT_EQ(numbered[0].fMaxMegaHertz, 5200u);
}

TEST(CpuInfo, KeepsWhatIsSaidOfAllWhereNoneHasANumber) {
  const TCpuInfo sparc = ParseCpuInfo(
      "cpu\t\t: UltraSparc T5 (Niagara5)\nncpus active\t: 8\n"
      "Cpu0ClkTck\t: 00000000d693a400\nCPU0:\t\tonline\n");
  EXPECT_THAT(sparc.fProcessors, IsEmpty());
  EXPECT_EQ(sparc.fShared.fModelName, "UltraSparc T5 (Niagara5)");
  EXPECT_EQ(sparc.fShared.fMegaHertz, 3600u);
}

TEST(CpuInfo, PassesOverWhatIsNoProcessor) {
  EXPECT_THAT(ParsedCpuInfo(""), IsEmpty());
  EXPECT_THAT(ParsedCpuInfo("\n\n\n"), IsEmpty());
  EXPECT_THAT(ParsedCpuInfo("Hardware : board\nSerial : 1\n\nprocessor : x\n"), IsEmpty());
  EXPECT_THAT(ParsedCpuInfo("processor : 18446744073709551616\n"), IsEmpty());
  EXPECT_THAT(ParsedCpuInfo(std::string("\xFF:\xFE\0\n:\n", 7)), IsEmpty());
}

TEST(CpuInfo, HasNothingOfNumbersThatAreNone) {
  const auto logical = ParsedCpuInfo(
      "processor : 0\ncpu MHz : 99999999999.0\naddress sizes : many bits\nmodel name :\n");
  ASSERT_EQ(logical.size(), 1u);
  EXPECT_FALSE(logical[0].fMegaHertz);
  EXPECT_FALSE(logical[0].fAddressWidth);
  EXPECT_FALSE(logical[0].fModelName);
}

TEST(CpuInfo, KeepsBytesOfWhateverEncoding) {
  EXPECT_EQ(ParsedCpuInfo("processor: 0\nmodel name: \xFF\xFE x\n").at(0).fModelName, "\xFF\xFE x");
}

}  // namespace

}  // namespace hwxtest
