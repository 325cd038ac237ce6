// `hwx identity` on whole machines, as the real program with the real provider.

#include <gmock/gmock.h>

#include "integration/hwx/HwxTest.h"
#include "support/Machines.h"
#include "support/Sanitizers.h"

namespace hwxtest {
namespace {

using nlohmann::json;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const std::string kSampleMachine = HWX_TEST_SAMPLE_DUMP;

json Value(const json& value) {
  return {{"value", value}};
}

json Reason(const std::string& reason) {
  return {{"value", nullptr}, {"reason", reason}};
}

class IdentityTest : public HwxTest {
 protected:
  /// The answers, from a run that must go well and report nothing.
  json Ask(std::vector<std::string> arguments = {}) {
    arguments.insert(arguments.begin(), {"identity", "--json"});
    return Succeed(arguments).Json();
  }

  std::string TablesOf(const TemporaryDirectory& machine) const {
    return machine / "sys/firmware/dmi/tables";
  }

  TemporaryDirectory fMachine;
};

TEST_F(IdentityTest, ShowsARackServerWhole) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  const json answers = Ask();
  EXPECT_EQ(answers["machineType"], Value("7915"));
  EXPECT_EQ(answers["model"], Value("AC1"));
  EXPECT_EQ(answers["productName"], Value("Example Rack Server 3650 -[7915AC1]-"));
  EXPECT_EQ(answers["serialNumber"], Value("KQ12345"));
  EXPECT_EQ(answers["biosIdentifier"], Value("EX"));
  EXPECT_EQ(answers["machineTypeByBios"], Value("7915"));
  EXPECT_EQ(answers["systemName"], Value("rack7"));
  EXPECT_EQ(answers["operatingSystemName"], Value("Debian GNU/Linux"));
  EXPECT_EQ(answers["operatingSystemVersion"], Value("12"));
  EXPECT_EQ(answers["operatingSystemType"], Value(36));
  EXPECT_EQ(answers["operatingSystemTypeName"], Value("LINUX"));
  EXPECT_EQ(answers["dataSourceVersion"]["value"].get<std::string>().substr(0, 2), "0.");
  EXPECT_TRUE(answers["dataSourceBuild"]["value"].is_string());
  EXPECT_EQ(answers.size(), 14u);
}

TEST_F(IdentityTest, ShowsTheSameToPeople) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  const HwxResult result = fHwx.Run({"identity"});
  EXPECT_EQ(result.fStatus, 0);
  EXPECT_EQ(result.fErr, "");
  EXPECT_THAT(result.fOut, HasSubstr("Machine type              7915\n"
                                     "Model                     AC1\n"
                                     "Product name              Example Rack Server 3650 "
                                     "-[7915AC1]-\n"
                                     "Serial number             KQ12345\n"
                                     "BIOS identifier           EX\n"
                                     "Machine type by BIOS      7915\n"
                                     "System name               rack7\n"
                                     "Operating system          Debian GNU/Linux\n"
                                     "Operating system version  12\n"
                                     "Operating system type     36 (LINUX)\n"
                                     "Xen domain                "));
}

TEST_F(IdentityTest, ReadsEachFixedForm) {
  const struct {
    std::string (*fMake)(const std::string&);
    const char* fType;
    const char* fModel;
  } kForms[] = {{&MakeK3455, "7940", "AB1"},
                {&MakeK225, "8647", "CD2"},
                {&MakeK3500, "8837", "EF3"},
                {&MakeK3500Short, "8837", "EF3"}};
  for (const auto& form : kForms) {
    const TemporaryDirectory machine;
    fHwx.On(form.fMake(machine.Path()));
    const json answers = Ask();
    EXPECT_EQ(answers["machineType"], Value(form.fType));
    EXPECT_EQ(answers["model"], Value(form.fModel));
    EXPECT_EQ(answers["serialNumber"], Value("KQ54321"));
  }
}

TEST_F(IdentityTest, ShowsWhatTheKernelKnowsOfAVirtualMachine) {
  fHwx.On(MakeVirtualMachine(fMachine.Path()));
  const json answers = Ask();
  EXPECT_EQ(answers["productName"], Value("Virtual Machine 9"));
  EXPECT_EQ(answers["machineType"],
            Reason("product name \"Virtual Machine 9\" holds no machine type"));
  EXPECT_EQ(answers["serialNumber"],
            Reason("no firmware tables: " + TablesOf(fMachine) + " is absent"));
  EXPECT_EQ(answers["systemName"], Value("guest"));
}

TEST_F(IdentityTest, TellsThatAContainerHasNoFirmware) {
  fHwx.On(MakeContainer(fMachine.Path()));
  const json answers = Ask();
  const json absent = Reason("no firmware tables: " + TablesOf(fMachine) + " is absent");
  for (const char* key : {"machineType", "model", "productName", "serialNumber", "biosIdentifier",
                          "machineTypeByBios"})
    EXPECT_EQ(answers[key], absent) << key;
  EXPECT_EQ(answers["systemName"], Value("c0ffee"));
}

TEST_F(IdentityTest, TellsFillerFromValues) {
  fHwx.On(MakeFillerMachine(fMachine.Path()));
  const json answers = Ask();
  EXPECT_EQ(answers["machineType"],
            Reason("product name \"To Be Filled By O.E.M.\" holds no machine type"));
  EXPECT_EQ(answers["productName"],
            Reason("\"To Be Filled By O.E.M.\" is a filler, not a product name"));
  EXPECT_EQ(answers["serialNumber"], Reason("\"Default string\" is a filler, not a serial number"));
}

TEST_F(IdentityTest, AnswersOnABrokenMachine) {
  fHwx.On(MakeBrokenMachine(fMachine.Path()));
  const json answers = Ask();
  EXPECT_EQ(answers.size(), 14u);
  EXPECT_THAT(answers["serialNumber"]["reason"].get<std::string>(), HasSubstr("malformed: "));
  for (const auto& [key, answer] : answers.items()) {
    EXPECT_TRUE(!answer["value"].is_null() || !answer["reason"].get<std::string>().empty()) << key;
  }
}

TEST_F(IdentityTest, NeedsRootForLockedTables) {
  const HwxTree tree(HwxTree::kCopies);
  tree.Use(fHwx);
  fHwx.On(MakeLockedMachine(fMachine.Path())).Unprivileged();
  const HwxResult result = fHwx.Run({"identity", "--json"});
  ASSERT_EQ(result.fStatus, 0) << result.fErr;
  const json answers = result.Json();
  EXPECT_THAT(answers["serialNumber"]["reason"].get<std::string>(), HasSubstr("needs root: "));
  EXPECT_EQ(answers["machineType"], Value("7915"));  // the kernel shows the product to all
  EXPECT_EQ(answers["systemName"], Value("rack7"));
}

TEST_F(IdentityTest, ReadsTheSampleDumpInPlaceOfTheMachine) {
  fHwx.On(MakeContainer(fMachine.Path()));
  const json answers = Ask({"--firmware", kSampleMachine});
  EXPECT_EQ(answers["machineType"], Value("7915"));
  EXPECT_EQ(answers["model"], Value("AC1"));
  EXPECT_EQ(answers["serialNumber"], Value("KQ12345"));
  EXPECT_EQ(answers["systemName"], Value("c0ffee"));  // the firmware's alone is another's
}

TEST_F(IdentityTest, ReadsADirectoryOfTables) {
  const TemporaryDirectory other;
  MakeK225(other.Path());
  fHwx.On(MakeRackServer(fMachine.Path()));
  const json answers = Ask({"--firmware", TablesOf(other)});
  EXPECT_EQ(answers["machineType"], Value("8647"));
  EXPECT_EQ(answers["serialNumber"], Value("KQ54321"));
}

TEST_F(IdentityTest, TakesTheOptionBeforeTheVariable) {
  fHwx.On(MakeContainer(fMachine.Path())).Set("HWX_SMBIOS_TABLES", "/nowhere");
  EXPECT_EQ(Ask({"--firmware", kSampleMachine})["machineType"], Value("7915"));
}

TEST_F(IdentityTest, TellsBadTablesOfTheVariableAsReasons) {
  fHwx.On(MakeRackServer(fMachine.Path())).Set("HWX_SMBIOS_TABLES", "/nowhere");
  EXPECT_EQ(Ask()["serialNumber"], Reason("no firmware tables: /nowhere is absent"));
}

TEST_F(IdentityTest, FailsForFirmwareThatIsAbsent) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  const HwxResult result = fHwx.Run({"identity", "--firmware", "/nowhere/tables.bin"});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_EQ(result.fErr,
            "hwx: --firmware /nowhere/tables.bin: no firmware tables: /nowhere/tables.bin is "
            "absent\n");
}

TEST_F(IdentityTest, FailsForFirmwareThatIsMalformed) {
  const std::string cut = fMachine / "cut.bin";
  std::filesystem::copy_file(kSampleMachine, cut);
  std::filesystem::resize_file(cut, 100);
  const HwxResult result = fHwx.Run({"identity", "--json", "--firmware", cut});
  EXPECT_EQ(result.fStatus, 1);
  EXPECT_EQ(result.fOut, "");
  EXPECT_THAT(result.fErr, HasSubstr("hwx: --firmware " + cut + ": malformed: "));
}

TEST_F(IdentityTest, TellsTheDomainOfAHypervisor) {
  fHwx.On(MakeRackServer(fMachine.Path()));
  EXPECT_EQ(Ask()["xenDomain"], Value("none"));
  WriteMachineFile(fMachine.Path(), "proc/xen/capabilities", "control_d\n");
  EXPECT_EQ(Ask()["xenDomain"], Value("control"));
}

TEST_F(IdentityTest, KeepsControlCharactersOfFirmwareFromTheTerminal) {
  AddDebian(fMachine.Path(), "odd\x1b[2J");
  AddFirmware(fMachine.Path(), {"Maker", "Box \x1b]0;owned\x07\xff", "1", "K\xC2\x9B", "", ""});
  fHwx.On(fMachine.Path());
  for (const std::vector<std::string>& command :
       {std::vector<std::string>{"identity"}, {"identity", "--json"}}) {
    const HwxResult result = fHwx.Run(command);
    EXPECT_EQ(result.fStatus, 0);
    for (const char raw : {'\x1b', '\x07', '\xff', '\x9b'})
      EXPECT_EQ(result.fOut.find(raw), std::string::npos) << result.fOut;
  }
  EXPECT_EQ(Ask()["productName"], Value("Box \x1b]0;owned\x07\xEF\xBF\xBD"));
}

}  // namespace
}  // namespace hwxtest
