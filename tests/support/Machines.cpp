#include "support/Machines.h"

#include <utmp.h>

#include <algorithm>
#include <filesystem>

using namespace std::string_literals;

namespace hwxtest {

namespace {

const std::string kTables = "sys/firmware/dmi/tables";
const std::string kKernelCopy = "sys/class/dmi/id";

std::string Path(const std::string& directory, const std::string& name) {
  return directory + "/" + name;
}

std::string Padded(std::string text, std::size_t width) {
  text.resize(std::max(text.size(), width), ' ');
  return text;
}

// The files in which the kernel repeats what the firmware says of the system.
void AddKernelCopy(const std::string& directory, const SmbiosSystem& system) {
  const auto add = [&directory](const char* name, const std::string& text) {
    if (!text.empty()) {
      WriteMachineFile(directory, Path(kKernelCopy, name), text + "\n");
    }
  };
  add("sys_vendor", system.manufacturer);
  add("product_name", system.productName);
  add("product_version", system.version);
  add("product_serial", system.serialNumber);
  add("product_sku", system.skuNumber);
  add("product_family", system.family);
}

SmbiosSystem RackServer() {
  return {"Example Systems", "Example Rack Server 3650 -[7915AC1]-", "07", "KQ12345", "7915AC1-EX",
          "Example Rack"};
}

std::string MakeFixedForm(const std::string& directory, const std::string& productName) {
  AddDebian(directory, "fixed");
  AddFirmware(directory, {"QOR", productName, "02", "KQ54321"});
  return directory;
}

}  // namespace

std::string MakeRackServer(const std::string& directory) {
  AddDebian(directory, "rack7");
  AddFirmware(directory, RackServer());
  AddKernelCopy(directory, RackServer());
  AddScsiDevice(directory, {"0:0:0:0", "0", "EXMPL", "DISK 15K", "A1", "sda", "sg0"});
  AddScsiDevice(directory, {"0:0:10:0", "13", "EXMPL", "EXP BACKPLANE", "3.04", "", "sg2"});
  AddScsiDevice(directory, {"0:0:2:0", "0", "EXMPL", "USB Memory Key", "1.0", "sdb", "sg1"});
  AddScsiDevice(directory, {"1:0:0:0", "5", "EXMPL", "DVD-ROM 8x", "B7", "sr0", "sg3"});
  std::filesystem::create_directories(directory + "/sys/bus/scsi/devices/host0");
  std::filesystem::create_directories(directory + "/sys/bus/scsi/devices/target0:0:0");
  return directory;
}

std::string MakeK3455(const std::string& directory) {
  return MakeFixedForm(directory, "QOR eCorvex k3455-[7940AB1]");
}

std::string MakeK225(const std::string& directory) {
  return MakeFixedForm(directory, "QOR eCorvex k225-[8647CD2]");
}

std::string MakeK3500(const std::string& directory) {
  return MakeFixedForm(directory, "QOR eCorvex k3500- 8837EF3 -");
}

std::string MakeK3500Short(const std::string& directory) {
  return MakeFixedForm(directory, "QOR eCorvex k3500- 8837EF3-");
}

std::string MakeVirtualMachine(const std::string& directory) {
  AddDebian(directory, "guest");
  AddKernelCopy(directory, {"Example Hypervisors", "Virtual Machine 9", "", "", "", ""});
  return directory;
}

std::string MakeContainer(const std::string& directory) {
  AddDebian(directory, "c0ffee");
  return directory;
}

std::string MakeFillerMachine(const std::string& directory) {
  AddDebian(directory, "filler");
  AddFirmware(directory, {"   ", "To Be Filled By O.E.M.", "Default string", "Default string"});
  return directory;
}

std::string MakeBrokenMachine(const std::string& directory) {
  SmbiosTables tables;
  tables.AddSystem(RackServer()).AddEnd();
  tables.WriteDirectory(Path(directory, kTables));
  std::filesystem::resize_file(Path(directory, kTables + "/DMI"), 40);
  const std::string garbage = "\x7f\0\xff\xfe=\"'\\\n=\nNAME\n"s;
  const std::string endless(1 << 20, 'x');
  WriteMachineFile(directory, "etc/os-release", garbage + garbage);
  WriteMachineFile(directory, "proc/sys/kernel/hostname", endless);
  WriteMachineFile(directory, "proc/sys/kernel/pid_max", "99999999999999999999999\n");
  WriteMachineFile(directory, "proc/stat", "btime 18446744073709551615\n");
  WriteMachineFile(directory, "proc/meminfo",
                   "MemTotal: 18446744073709551615 kB\nMemFree: -1 kB\nSwapTotal: 1 kB\nSwapFree:");
  WriteMachineFile(directory, "run/utmp", UtmpRecord("root") + "cut off");
  std::filesystem::create_directories(Path(directory, kKernelCopy + "/product_name"));
  WriteMachineFile(directory, kKernelCopy + "/sys_vendor", endless);
  AddScsiDevice(directory, {"0:0:0:0", "not a number", std::nullopt, std::nullopt, "A1", "", ""});
  std::filesystem::create_directories(directory + "/sys/bus/scsi/devices/0:0:0:0/model");
  return directory;
}

std::string MakeLockedMachine(const std::string& directory) {
  using std::filesystem::perms;
  MakeRackServer(directory);
  for (const std::string& path :
       {kTables + "/smbios_entry_point", kTables + "/DMI", kKernelCopy + "/product_serial"}) {
    std::filesystem::permissions(Path(directory, path), perms::none);
  }
  std::filesystem::permissions(directory, perms(0755));
  return directory;
}

void WriteMachineFile(const std::string& directory, const std::string& path,
                      const std::string& text) {
  const std::string file = Path(directory, path);
  std::filesystem::create_directories(std::filesystem::path(file).parent_path());
  WriteBytes(file, Bytes(text.begin(), text.end()));
}

void AddDebian(const std::string& directory, const std::string& hostName) {
  const auto add = [&directory](const char* path, const std::string& text) {
    WriteMachineFile(directory, path, text);
  };
  add("etc/os-release",
      "PRETTY_NAME=\"Debian GNU/Linux 12 (bookworm)\"\nNAME=\"Debian GNU/Linux\"\n"
      "VERSION_ID=\"12\"\nVERSION=\"12 (bookworm)\"\nID=debian\n");
  add("proc/sys/kernel/hostname", hostName + "\n");
  add("proc/sys/kernel/osrelease", "6.1.0-13-amd64\n");
  add("proc/sys/kernel/pid_max", "4194304\n");
  add("proc/stat",
      "cpu  1 2 3 4\ncpu0 1 2 3 4\nintr 5 0 1\nctxt 9\nbtime 1700000000\nprocesses 8\n");
  add("proc/meminfo",
      "MemTotal:       16777216 kB\nMemFree:         8388608 kB\nMemAvailable:   12582912 kB\n"
      "SwapTotal:       2097152 kB\nSwapFree:        1048576 kB\nHugePages_Total:       0\n");
  add("proc/1/comm", "init\n");
  add("proc/42/comm", "a\n");
  add("proc/4711/comm", "b\n");
  add("run/utmp", UtmpRecord("reboot", BOOT_TIME) + UtmpRecord("alice") + UtmpRecord("bob") +
                      UtmpRecord("carol", DEAD_PROCESS));
}

void AddFirmware(const std::string& directory, const SmbiosSystem& system) {
  SmbiosTables tables;
  tables.AddBios("Example Systems", "-[EXE105A-1.05]-", "03/01/2021").AddSystem(system).AddEnd();
  tables.WriteDirectory(Path(directory, kTables));
}

void AddScsiDevice(const std::string& directory, const ScsiDevice& device) {
  const std::string place = "sys/bus/scsi/devices/" + device.address;
  std::filesystem::create_directories(Path(directory, place));
  const auto add = [&](const char* name, const std::optional<std::string>& text,
                       std::size_t width) {
    if (text) {
      WriteMachineFile(directory, place + name, Padded(*text, width) + "\n");
    }
  };
  add("/type", device.type, 0);
  add("/vendor", device.vendor, 8);
  add("/model", device.model, 16);
  add("/rev", device.revision, 4);
  const auto attach = [&](const char* driver, const std::string& name) {
    if (!name.empty()) {
      std::filesystem::create_directories(Path(Path(directory, place), Path(driver, name)));
    }
  };
  attach("block", device.block);
  attach("scsi_generic", device.generic);
}

std::string UtmpRecord(const std::string& user, std::int16_t type) {
  struct utmp record {};
  record.ut_type = type;
  user.copy(record.ut_user, sizeof record.ut_user);
  return std::string(reinterpret_cast<const char*>(&record), sizeof record);
}

}  // namespace hwxtest
