#include <algorithm>
#include <optional>
#include <string>
#include <vector>

#include "hwx/commands/CommandOptions.h"
#include "hwx/commands/Commands.h"
#include "hwx/filter/Filter.h"
#include "hwx/inventory/Collection.h"
#include "hwx/inventory/Containers.h"
#include "hwx/inventory/EmptyClasses.h"
#include "hwx/inventory/Machine.h"
#include "hwx/inventory/OneMachine.h"
#include "hwx/inventory/ShowReport.h"
#include "hwx/text/Failure.h"
#include "hwx/text/FittedTable.h"
#include "hwx/text/Output.h"
#include "hwx/text/Words.h"

namespace hwx {

using namespace NQORHWX20;

namespace {

// What stands behind the colon of "NAME:desc".
std::string OrderIn(const std::string& sort) {
  const std::size_t colon = sort.find(':');
  return colon == std::string::npos ? "asc" : Lower(sort.substr(colon + 1));
}

bool IsOrder(const std::string& sort) {
  return sort.front() != ':' && (OrderIn(sort) == "asc" || OrderIn(sort) == "desc");
}

class TShowCommand : public ICommand {
 public:
  CLI::App* AddTo(CLI::App& program) override {
    CLI::App* const app =
        program.add_subcommand("show", "Show what a file holds, or this machine without one");
    AddText(*app, "file", fPath, "A file that \"hwx collect\" wrote", "FILE");
    AddChoice(*app);
    AddLook(*app);
    AddFileReading(*app, fReading);
    return app;
  }

  // What can't go together is told before anything is read.
  std::optional<std::string> TakeArguments(const std::vector<std::string>& arguments) override {
    if (IsWhole() && (fWhere || fSort || !fColumns.empty()))
      return "--where, --sort and --columns aren't for " + fFormat + ", which is a whole file";
    if (fSort && !IsOrder(*fSort)) return "--sort takes NAME, NAME:asc or NAME:desc";
    if (fIsRaw && fHasWords) return "--raw and --words exclude each other";
    try {
      if (fWhere) fFilter.emplace(*fWhere);
    } catch (const TFailure& failure) {
      return failure.what();
    }
    return ICommand::TakeArguments(arguments);
  }

  int Run(const TGlobalOptions& options) override {
    const NamespacePtr ns = fPath ? LoadContainer(*fPath, fReading) : OpenMachine(options);
    if (IsWhole()) return PrintWhole(ns);
    const TClasses classes = Chosen(*ns);
    TReading reading = ReadInstances(classes);
    const std::size_t read = reading.InstanceCount();
    if (fFilter) KeepMatching(reading, *fFilter);
    if (fSort) Sort(reading);
    if (!fColumns.empty()) KeepProperties(reading, fColumns);
    if (IsForPeople() && fColumns.empty() && IsOfOneMachine(*ns)) LeaveOutOwner(reading);
    WriteOutput(Text(reading));
    if (reading.InstanceCount() == 0) TellWhyNothing(*ns, read, classes);
    return reading.fIsComplete ? kExitOK : kExitFailed;
  }

 private:
  void AddChoice(CLI::App& app) {
    AddList(app, "--class", fClasses,
            "Show instances of NAME and its subclasses only; \"*\"\n"
            "and \"?\" in it stand for other characters",
            "NAME");
    AddList(app, "--columns,--property", fColumns, "Show these properties only, in this order",
            "NAME");
    AddText(app, "--where", fWhere,
            "Show instances only of which this is true, such as\n"
            "'Capacity>8GiB and Manufacturer~\"acme\"'",
            "CONDITION");
    AddText(app, "--sort", fSort, "Sort by this property; \"NAME:desc\" for the largest first",
            "NAME");
  }

  void AddLook(CLI::App& app) {
    AddFormat(app, fFormat, {"table", "json", "jsonl", "csv", "xml", "mof"});
    app.add_flag("--associations", fHasAssociations,
                 "In a table of all classes, what belongs to what too");
    app.add_flag("--long", fIsLong, "In a table, a line for each property");
    app.add_flag("--wide", fIsWide, "In a table, lines longer than the terminal is wide");
    app.add_flag("--no-header", fHasNoHeader, "In a table and in CSV, no names above");
    app.add_flag("--raw", fIsRaw, "In a table, values as they are stored");
    app.add_flag("--words", fHasWords, "In JSON and CSV, what values mean too");
  }

  bool IsForPeople() const { return fFormat == "table"; }

  // What people want to see of a machine: neither the net of what belongs to what nor a list of
  // what there isn't, unless they ask for it.
  TClasses Chosen(ICIMNamespace& ns) const {
    TClasses classes = ClassesLike(ns, fClasses);
    if (!IsForPeople() || !fClasses.empty()) return classes;
    if (!fHasAssociations) classes = WithoutAssociations(classes);
    const auto isStatus = [](const ClassPtr& cimClass) {
      return cimClass->GetName(TCIMContext()) == kClassStatus;
    };
    classes.erase(std::remove_if(classes.begin(), classes.end(), isStatus), classes.end());
    return classes;
  }

  void TellWhyNothing(ICIMNamespace& ns, std::size_t read, const TClasses& classes) const {
    ReportNote(WhyNothing(read, classes.size()));
    if (read != 0) return;
    for (const std::string& line : WhyEmpty(ns, classes))
      ReportNote(line);
  }

  bool IsWhole() const { return fFormat == "xml" || fFormat == "mof"; }

  // A file is printed as it stands; a machine, or a part of a file, is collected first.
  int PrintWhole(const NamespacePtr& ns) const {
    const auto language = fFormat == "mof" ? EContainerText::kMOF : EContainerText::kXML;
    if (fPath && fClasses.empty()) {
      PrintContainer(ns, language);
      return kExitOK;
    }
    const TCollection collection = Collect(ns, ClassesLike(*ns, fClasses));
    PrintContainer(collection.fContainer, language);
    return collection.fIsComplete ? kExitOK : kExitFailed;
  }

  void Sort(TReading& reading) const {
    SortInstances(reading, fSort->substr(0, fSort->find(':')), OrderIn(*fSort) == "desc");
  }

  std::string Text(const TReading& reading) const {
    const EValues plain = fHasWords ? EValues::kMeant : EValues::kStored;
    if (fFormat == "json") return ShowJson(reading, plain);
    if (fFormat == "jsonl") return ShowJsonLines(reading, plain);
    if (fFormat == "csv") return ShowCsv(reading, plain, !fHasNoHeader);
    const EValues values = fIsRaw ? EValues::kStored : EValues::kMeant;
    if (fIsLong) return ShowLong(reading, values);
    return ShowColumns(reading,
                       {values, fColumns, fIsWide ? std::nullopt : OutputWidth(), !fHasNoHeader});
  }

  std::string WhyNothing(std::size_t read, std::size_t classes) const {
    if (read != 0)
      return "nothing to show: none of " + std::to_string(read) + " instances is as asked for";
    const std::string where = fPath ? "in " + *fPath : std::string("on this machine");
    return "nothing to show: " +
           (classes == 1 ? std::string("the class has no instance ")
                         : "none of " + std::to_string(classes) + " classes has an instance ") +
           where;
  }

  std::optional<std::string> fPath;
  std::vector<std::string> fClasses;
  std::vector<std::string> fColumns;
  std::optional<std::string> fWhere;
  std::optional<TFilter> fFilter;
  std::optional<std::string> fSort;
  TFileReading fReading;
  std::string fFormat = "table";
  bool fHasAssociations = false;
  bool fIsLong = false;
  bool fIsWide = false;
  bool fHasNoHeader = false;
  bool fIsRaw = false;
  bool fHasWords = false;
};

}  // namespace

CommandPtr MakeShowCommand() {
  return std::make_unique<TShowCommand>();
}

}  // namespace hwx
