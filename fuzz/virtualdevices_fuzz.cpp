// Virtual devices out of any output of hwinfo, for every class.

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

#include "Require.h"
#include "hwxcore/os/detail/VirtualDevices.h"

namespace {

using fuzz::Require;
using Bytes = std::vector<std::uint8_t>;
using Texts = std::vector<std::string>;

Texts Read(const std::string& text, int deviceClass, bool useAlternateName) {
  Texts devices;
  NQORHWX20::detail::ReadVirtualDevices(text, deviceClass, useAlternateName, devices);
  return devices;
}

// Only whole lines, without their line feeds.
Texts Lines(const std::string& text) {
  Texts lines;
  std::size_t start = 0;
  for (std::size_t end; (end = text.find('\n', start)) != std::string::npos; start = end + 1)
    lines.push_back(text.substr(start, end - start));
  return lines;
}

bool Holds(const std::string& line, std::string_view part) {
  return line.find(part) != std::string::npos;
}

// Told once more, by looking ahead from each class line: the first line behind it that holds
// "Device:" decides, and the first line behind that with a device file is the one.
Texts ExpectedLines(const Texts& lines, int deviceClass) {
  const auto texts = NQORHWX20::detail::VirtualDeviceClass(deviceClass);
  const auto seek = [&](Texts::const_iterator from, std::string_view part) {
    return std::find_if(from, lines.end(), [part](const auto& line) { return Holds(line, part); });
  };
  Texts found;
  auto line = lines.begin();
  while ((line = seek(line, texts.fClassLine)) != lines.end()) {
    if ((line = seek(std::next(line), "Device:")) == lines.end()) break;
    const bool isMarked = Holds(*line++, texts.fMarker);
    if (!isMarked) continue;
    if ((line = seek(line, "Device File:")) == lines.end()) break;
    found.push_back(*line++);
  }
  return found;
}

std::string ExpectedDevice(const std::string& line, bool inParentheses) {
  if (inParentheses && Holds(line, "(")) return line.substr(line.find('('));
  std::string rest = line.substr(line.find("Device File:") + 12);
  if (!rest.empty()) rest.erase(0, 1);
  return rest;
}

void Check(const std::string& text, int deviceClass, bool useAlternateName) {
  Texts devices = ExpectedLines(Lines(text), deviceClass);
  for (std::string& device : devices)
    device = ExpectedDevice(device, useAlternateName && deviceClass != 1);
  Require(Read(text, deviceClass, useAlternateName) == devices);
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  const std::string texts[] = {
      "  Hardware Class: disk\n  Device: \"Virtual Disk\"\n  Device File: /dev/sdb (/dev/sg2)\n",
      "  Hardware Class: cdrom\n  Device: usb 0x4012\n  Device File: /dev/sr0 (/dev/sg1)\n",
      "  Hardware Class: keyboard\n  Device: 0x4012\n  Device File: /dev/input/event4\n"
      "  Hardware Class: mouse\n  SubDevice: x\n  Device: 0x4012\n  Device File: /dev/mice (a)\n",
      "Hardware Class: mouse\nDevice: 0x4012\n\nDevice File:\nHardware Class: disk\nDevice: x\n"};
  std::vector<Bytes> seeds;
  for (const std::string& text : texts)
    seeds.emplace_back(text.begin(), text.end());
  return seeds;
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  for (int deviceClass = -1; deviceClass <= 4; ++deviceClass) {
    Check(text, deviceClass, false);
    Check(text, deviceClass, true);
  }
  return 0;
}
