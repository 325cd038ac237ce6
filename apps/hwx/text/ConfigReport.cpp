#include "hwx/text/ConfigReport.h"

#include "hwx/text/Json.h"
#include "hwx/text/Printable.h"

namespace hwx {

std::string ConfigKeysText(const std::vector<std::string>& keys) {
  std::string text;
  for (const std::string& key : keys)
    text += Printable(key) + "\n";
  return text;
}

std::string ConfigKeysJson(const std::string& file, const std::vector<std::string>& keys) {
  return JsonText({{"file", file}, {"keys", keys}});
}

std::string ConfigValueText(const std::string& value) {
  return Printable(value) + "\n";
}

std::string ConfigValueJson(const std::string& file, const std::string& key,
                            const std::string& value) {
  return JsonText({{"file", file}, {"key", key}, {"value", value}});
}

}  // namespace hwx
