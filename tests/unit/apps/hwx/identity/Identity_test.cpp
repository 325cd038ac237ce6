#include "hwx/identity/Identity.h"

#include <gtest/gtest.h>

#include <stdexcept>

#include "unit/apps/hwx/identity/MadeMachine.h"
#include "unit/apps/hwx/identity/ReasonOf.h"

namespace hwx {
namespace {

using hwxtest::MadeMachine;
using hwxtest::ReasonOf;
using NQORHWX20::TCIMValue;

TEST(Identity, HoldsWhatTheMachineTells) {
  const TIdentity identity = AskIdentity(MadeMachine().Open());
  EXPECT_EQ(identity.fMachineType.fValue, "7915");
  EXPECT_EQ(identity.fModel.fValue, "AC1");
  EXPECT_EQ(identity.fProductName.fValue, "Rack Server -[7915AC1]-");
  EXPECT_EQ(identity.fSerialNumber.fValue, "KQ12345");
  EXPECT_EQ(identity.fSystemName.fValue, "rack7");
  EXPECT_EQ(identity.fOperatingSystemName.fValue, "Debian GNU/Linux");
  EXPECT_EQ(identity.fOperatingSystemVersion.fValue, "12");
  EXPECT_EQ(identity.fOperatingSystemType.fValue, 36);
  EXPECT_EQ(identity.fOperatingSystemTypeName.fValue, "LINUX");
  EXPECT_EQ(identity.fDataSourceVersion.fValue, "1.2.3.4");
  EXPECT_EQ(identity.fDataSourceBuild.fValue, "4");
}

TEST(Identity, HasNoReasonWhereThereIsAValue) {
  const TIdentity identity = AskIdentity(MadeMachine().Open());
  EXPECT_EQ(identity.fMachineType.fReason, "");
  EXPECT_EQ(identity.fModel.fReason, "");
  EXPECT_EQ(identity.fSerialNumber.fReason, "");
  EXPECT_EQ(identity.fOperatingSystemType.fReason, "");
  EXPECT_EQ(identity.fDataSourceBuild.fReason, "");
}

TEST(Identity, QuotesAProductNameThatHoldsNoMachineType) {
  const TIdentity identity = AskIdentity(MadeMachine().Product("Box 5").Open());
  EXPECT_EQ(ReasonOf(identity.fMachineType), "product name \"Box 5\" holds no machine type");
  EXPECT_EQ(ReasonOf(identity.fModel), "product name \"Box 5\" holds no machine type");
  EXPECT_EQ(identity.fProductName.fValue, "Box 5");
}

TEST(Identity, TellsAGuessFromAFact) {
  const TIdentity fact = AskIdentity(MadeMachine().Open());
  EXPECT_FALSE(fact.fMachineType.fIsGuess);
  EXPECT_FALSE(fact.fModel.fIsGuess);
  const TIdentity guess = AskIdentity(MadeMachine().Product("AB305CD").Open());
  EXPECT_EQ(guess.fMachineType.fValue, "AB30");
  EXPECT_TRUE(guess.fMachineType.fIsGuess);
  EXPECT_EQ(guess.fModel.fValue, "5CD");
  EXPECT_TRUE(guess.fModel.fIsGuess);
}

TEST(Identity, TellsThatTheModelIsUnknown) {
  const TIdentity identity = AskIdentity(MadeMachine().Product("Box -[7915]-").Open());
  EXPECT_EQ(identity.fMachineType.fValue, "7915");
  EXPECT_EQ(ReasonOf(identity.fModel), "the product name holds a machine type, but no model");
}

TEST(Identity, TellsThatTheModelIsBlankInAFixedForm) {
  const TIdentity identity =
      AskIdentity(MadeMachine().Product("QOR eCorvex k225-[8647   ]").Open());
  EXPECT_EQ(identity.fMachineType.fValue, "8647");
  EXPECT_EQ(ReasonOf(identity.fModel), "the product name holds a machine type, but no model");
}

TEST(Identity, TellsABlankText) {
  const TIdentity identity =
      AskIdentity(MadeMachine().Product("  ").Serial(" ").Name("").Build("").Open());
  EXPECT_EQ(ReasonOf(identity.fMachineType), "the product name is blank");
  EXPECT_EQ(ReasonOf(identity.fProductName), "the product name is blank");
  EXPECT_EQ(ReasonOf(identity.fSerialNumber), "the serial number is blank");
  EXPECT_EQ(ReasonOf(identity.fSystemName), "the system name is blank");
  EXPECT_EQ(ReasonOf(identity.fDataSourceBuild), "the data source build is blank");
}

TEST(Identity, TellsAFillerFromASerialNumber) {
  const TIdentity identity = AskIdentity(MadeMachine().Serial("To Be Filled By O.E.M.").Open());
  EXPECT_EQ(ReasonOf(identity.fSerialNumber),
            "\"To Be Filled By O.E.M.\" is a filler, not a serial number");
}

TEST(Identity, TellsAFillerFromAProductName) {
  const TIdentity identity = AskIdentity(MadeMachine().Product("System Product 0").Open());
  EXPECT_EQ(identity.fProductName.fValue, "System Product 0");
  for (const char* filler : {"Default string", "to be filled by o.e.m.", "-----", "0"}) {
    EXPECT_EQ(ReasonOf(AskIdentity(MadeMachine().Product(filler).Open()).fProductName),
              "\"" + std::string(filler) + "\" is a filler, not a product name");
  }
}

TEST(Identity, TakesTheBuildAsANumberToo) {
  EXPECT_EQ(AskIdentity(MadeMachine().Build(TCIMValue(42u)).Open()).fDataSourceBuild.fValue, "42");
}

TEST(Identity, ShowsAnUnknownTypeByItsNumber) {
  const TIdentity identity =
      AskIdentity(MadeMachine().OSType(static_cast<unsigned short>(999)).Open());
  EXPECT_EQ(identity.fOperatingSystemType.fValue, 999);
  EXPECT_EQ(ReasonOf(identity.fOperatingSystemTypeName), "no name for the number 999");
}

TEST(Identity, KeepsTheOtherAnswersWhenOneFails) {
  MadeMachine machine;
  machine.Without("QORSG_OperatingSystem");
  const TIdentity identity = AskIdentity(machine.Open());
  EXPECT_EQ(identity.fMachineType.fValue, "7915");
  EXPECT_EQ(ReasonOf(identity.fOperatingSystemName),
            "the provider lacks the class QORSG_OperatingSystem");
  EXPECT_EQ(identity.fOperatingSystemType.fReason,
            "the provider lacks the class QORSG_OperatingSystem");
  EXPECT_EQ(ReasonOf(identity.fOperatingSystemTypeName),
            "the provider lacks the class QORSG_OperatingSystem");
  EXPECT_EQ(identity.fDataSourceVersion.fValue, "1.2.3.4");
}

TEST(Identity, OfAnEmptyNamespaceIsReasonsAlone) {
  MadeMachine machine;
  machine.Without("QORSG_ComputerSystem");
  machine.Without("QORSG_OperatingSystem");
  machine.Without("QORSG_HWXProduct");
  const TIdentity identity = AskIdentity(machine.Open());
  for (const auto* answer : {&identity.fMachineType, &identity.fModel, &identity.fProductName,
                             &identity.fSerialNumber, &identity.fSystemName}) {
    EXPECT_EQ(ReasonOf(*answer), "the provider lacks the class QORSG_ComputerSystem");
  }
  EXPECT_EQ(ReasonOf(identity.fDataSourceVersion), "the provider lacks the class QORSG_HWXProduct");
  EXPECT_EQ(ReasonOf(identity.fDataSourceBuild), "the provider lacks the class QORSG_HWXProduct");
}

TEST(Identity, TellsAProviderThatFails) {
  const auto fail = [] { throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusAccessDenied); };
  const TIdentity identity = AskIdentity(MadeMachine().Before(MadeMachine::kComputer, fail).Open());
  EXPECT_EQ(ReasonOf(identity.fMachineType), "the provider failed: access denied");
  EXPECT_EQ(ReasonOf(identity.fSerialNumber), "the provider failed: access denied");
  EXPECT_EQ(ReasonOf(identity.fSystemName), "the provider failed: access denied");
  EXPECT_EQ(identity.fOperatingSystemVersion.fValue, "12");
}

TEST(Identity, TellsAProviderThatThrowsItsOwnException) {
  const auto fail = [] { throw std::runtime_error("no more ink"); };
  const TIdentity identity = AskIdentity(MadeMachine().Before(MadeMachine::kComputer, fail).Open());
  EXPECT_EQ(ReasonOf(identity.fMachineType), "the provider failed: no more ink");
  EXPECT_EQ(ReasonOf(identity.fProductName), "the provider failed: no more ink");
}

TEST(Identity, TellsAFailureThatComesAndGoes) {
  int calls = 0;
  const auto failOnce = [&calls] {
    if (++calls == 1) throw NQORHWX20::THWXException(NQORHWX20::kHWXStatusTransferFailure);
  };
  const TIdentity identity =
      AskIdentity(MadeMachine().Before(MadeMachine::kComputer, failOnce).Open());
  EXPECT_EQ(ReasonOf(identity.fMachineType), "the provider failed: kHWXStatusTransferFailure");
  EXPECT_EQ(identity.fProductName.fValue, "Rack Server -[7915AC1]-");
}

}  // namespace
}  // namespace hwx
