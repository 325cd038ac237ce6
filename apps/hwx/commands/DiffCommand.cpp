#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/Difference.h"
#include "hwx/inventory/DifferenceReport.h"
#include "hwx/text/Output.h"

namespace hwx {

namespace {

// The exit statuses that programs which compare files have.
constexpr int kDifferent = 1;
constexpr int kTrouble = 2;

std::string WhyNoProperty(const std::string& text) {
  const std::size_t dot = text.find('.');
  const bool isGood = dot != std::string::npos && dot != 0 && dot + 1 != text.size();
  return isGood ? "" : "\"" + text + "\" isn't CLASS.PROPERTY";
}

TIgnoredProperty IgnoredProperty(const std::string& text) {
  const std::size_t dot = text.find('.');
  return {text.substr(0, dot), text.substr(dot + 1)};
}

class TDiffCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app = program.add_subcommand("diff", "Show what differs between two files");
    app->footer("Exit status: 0 when the instances are equal, 1 when they differ, 2 for trouble.");
    AddText(*app, "old", fOldPath, "A file that \"hwx collect\" wrote", "OLD")->required();
    AddText(*app, "new", fNewPath, "A later one", "NEW")->required();
    app->add_option("--ignore", fIgnored,
                    "Leave a property out, also in subclasses of the\n"
                    "class; may be given several times")
        ->check(CLI::Validator(WhyNoProperty, ""))
        ->type_name("CLASS.PROPERTY")
        ->expected(1)
        ->take_all();
    AddFileReading(*app, fReading);
    AddJson(*app, fJson);
    app->add_flag("--raw", fIsRaw, "Show values as they are stored");
    app->add_flag("--words", fHasWords, "In JSON, tell what values mean too");
    return app;
  }

  int Run(const TGlobalOptions&) override {
    const auto oldSide = LoadContainer(*fOldPath, fReading);
    const auto newSide = LoadContainer(*fNewPath, fReading);
    const TDifference difference = Compare(*oldSide, *newSide, Ignored());
    WriteOutput(Text(difference));
    if (!difference.fIsComplete) return kTrouble;
    return difference.IsEmpty() ? kExitOK : kDifferent;
  }

  int FailureStatus() const override { return kTrouble; }

 private:
  std::string Text(const TDifference& difference) const {
    if (fJson) return DifferenceJson(difference, fHasWords ? EValues::kMeant : EValues::kStored);
    return DifferenceText(difference, fIsRaw ? EValues::kStored : EValues::kMeant);
  }

  std::vector<TIgnoredProperty> Ignored() const {
    std::vector<TIgnoredProperty> ignored;
    for (const std::string& text : fIgnored)
      ignored.push_back(IgnoredProperty(text));
    return ignored;
  }

  std::optional<std::string> fOldPath;
  std::optional<std::string> fNewPath;
  std::vector<std::string> fIgnored;
  TFileReading fReading;
  bool fJson = false;
  bool fIsRaw = false;
  bool fHasWords = false;
};

}  // namespace

CommandPtr MakeDiffCommand() {
  return std::make_unique<TDiffCommand>();
}

}  // namespace hwx
