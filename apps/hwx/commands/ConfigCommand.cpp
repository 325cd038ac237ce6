#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/text/ConfigReport.h"
#include "hwx/text/Failure.h"
#include "hwx/text/Output.h"
#include "hwxcore/diagnostics/TConfig.h"
#include "hwxcore/os/TOSSpecific.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

std::string FilePath() {
  return TOSSpecific::GetHWXRootPath() + "/dct/dct.cfg";
}

// The library doesn't tell why there are no keys.
std::string WhyNoKeys(TConfig& config) {
  if (!TOSSpecific::FileExists(FilePath())) return "is absent";
  if (TOSSpecific::GetFileSize(FilePath()) == 0) return "is empty";
  return config.parseConfigFile() ? "holds no keys" : "can't be read";
}

std::vector<std::string> Keys() {
  TConfig& config = *TConfig::GetInstance();
  std::vector<std::string> keys = config.listKeys();
  if (keys.empty()) throw TFailure("no configuration: " + FilePath() + " " + WhyNoKeys(config));
  return keys;
}

std::string Value(const std::string& key) {
  Keys();
  std::string value = TConfig::GetInstance()->getValue(key);
  if (value.empty()) throw TFailure(FilePath() + " has no key \"" + key + "\"");
  return value;
}

class TConfigCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand(
        "config", "Show the keys of the configuration file, or the value of one");
    AddJson(*app, fJson);
    AddText(*app, "key", fKey, "Show the value of this key", "KEY");
    return app;
  }

  // The key may stand behind dashes, in case it looks like an option.
  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    if (fKey || arguments.size() != 1) return ICommand::TakeArguments(arguments);
    fKey = arguments.front();
    return std::nullopt;
  }

  int Run(const TGlobalOptions&) override {
    WriteOutput(fKey ? ValueReport(*fKey) : KeysReport());
    return kExitOK;
  }

 private:
  std::string KeysReport() const {
    const std::vector<std::string> keys = Keys();
    return fJson ? ConfigKeysJson(FilePath(), keys) : ConfigKeysText(keys);
  }

  std::string ValueReport(const std::string& key) const {
    const std::string value = Value(key);
    return fJson ? ConfigValueJson(FilePath(), key, value) : ConfigValueText(value);
  }

  bool fJson = false;
  std::optional<std::string> fKey;
};

}  // namespace

CommandPtr MakeConfigCommand() {
  return std::make_unique<TConfigCommand>();
}

}  // namespace hwx
