#include "hwxcore/os/detail/VirtualDevices.h"

#include <algorithm>

namespace NQORHWX20::detail {

namespace {

constexpr int kCdRom = 1;
constexpr std::string_view kDeviceFile = "Device File:";

enum class EState { kSeekClass, kSeekDevice, kSeekFile };

bool Holds(std::string_view line, std::string_view part) {
  return line.find(part) != std::string_view::npos;
}

// Once a class is found, its device may stand in a later block. Contract: blocks-run-on.
EState Next(EState state, std::string_view line, const TVirtualDeviceClass& deviceClass) {
  switch (state) {
    case EState::kSeekClass:
      return Holds(line, deviceClass.fClassLine) ? EState::kSeekDevice : state;
    case EState::kSeekDevice:
      if (!Holds(line, "Device:")) return state;
      return Holds(line, deviceClass.fMarker) ? EState::kSeekFile : EState::kSeekClass;
    default:
      return Holds(line, kDeviceFile) ? EState::kSeekClass : state;
  }
}

// Contract: device-text-untrimmed.
std::string_view DeviceText(std::string_view line, bool inParentheses) {
  const std::size_t parenthesis = line.find('(');
  if (inParentheses && parenthesis != std::string_view::npos) return line.substr(parenthesis);
  const std::size_t end = line.find(kDeviceFile) + kDeviceFile.size();
  return line.substr(std::min(end + 1, line.size()));  // one blank follows, or nothing
}

}  // namespace

TVirtualDeviceClass VirtualDeviceClass(int deviceClass) {
  switch (deviceClass) {
    case 0:
      return {"Hardware Class: disk", "Virtual", "--disk"};
    case kCdRom:
      return {"Hardware Class: cdrom", "0x4012", "--cdrom"};
    case 2:
      return {"Hardware Class: keyboard", "0x4012", "--keyboard"};
    case 3:
      return {"Hardware Class: mouse", "0x4012", "--mouse"};
    default:  // Contract: unknown-class-takes-all.
      return {};
  }
}

void ReadVirtualDevices(std::string_view text, int deviceClass, bool useAlternateName,
                        std::vector<std::string>& devices) {
  const TVirtualDeviceClass searched = VirtualDeviceClass(deviceClass);
  const bool inParentheses = useAlternateName && deviceClass != kCdRom;  // Contract: cd-rom-name.
  EState state = EState::kSeekClass;
  std::size_t end;
  // Contract: unended-line-unread.
  while ((end = text.find('\n')) != std::string_view::npos) {
    const std::string_view line = text.substr(0, end);
    const EState next = Next(state, line, searched);
    if (state == EState::kSeekFile && next == EState::kSeekClass) {
      devices.emplace_back(DeviceText(line, inParentheses));
    }
    state = next;
    text.remove_prefix(end + 1);
  }
}

}  // namespace NQORHWX20::detail
