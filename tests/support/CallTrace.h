#ifndef HWXTESTS_SUPPORT_CALLTRACE_H
#define HWXTESTS_SUPPORT_CALLTRACE_H

#include <functional>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "hwxcore/value/TCIMContext.h"
#include "hwxcore/value/THWXException.h"

namespace hwxtest {

/// The calls of schema objects, in their order, and what a test wants to happen in them. See
/// `TracedNamespace`, which makes the objects.
///
/// Thread-safety: none.
class CallTrace {
 public:
  /// One line a call: "source.EX_Disk.GetName", with the context behind it unless it is empty:
  /// "source.GetClass(EX_Disk) {nspID=plugin}". An enumeration that its callback ended has
  /// " stopped" as a further line.
  const std::vector<std::string>& Calls() const { return fCalls; }
  void Forget() { fCalls.clear(); }

  /// Makes a call run `action` first.
  void Do(const std::string& call, const std::function<void()>& action) { fActions[call] = action; }

  /// Makes a call throw.
  void Fail(const std::string& call, NQORHWX20::EHWXStatusCode status) {
    Do(call, [status] { throw NQORHWX20::THWXException(status); });
  }

  /// Makes a call return an empty pointer without passing it on.
  void Withhold(const std::string& call) { fWithheld.insert(call); }

  /// Writes a call down and does what was asked for it. Returns whether its result is withheld.
  bool Record(const std::string& call, const NQORHWX20::TCIMContext& context) {
    if (fQuiet) return false;
    std::string line = call;
    for (const auto& entry : context) {
      line += (line == call ? " {" : ", ") + entry.first + "=" + entry.second.ToString(10);
    }
    fCalls.push_back(line + (context.empty() ? "" : "}"));
    const auto action = fActions.find(call);
    if (action != fActions.end()) action->second();
    return fWithheld.count(call) != 0;
  }

  /// While it lives, nothing is recorded (true) or everything is (false): what a traced object does
  /// for itself is no call of the code under test, but what it calls back is.
  class Quiet {
   public:
    Quiet(CallTrace& trace, bool quiet) : fTrace(trace), fBefore(trace.fQuiet) {
      fTrace.fQuiet = quiet;
    }
    ~Quiet() { fTrace.fQuiet = fBefore; }
    Quiet(const Quiet&) = delete;
    Quiet& operator=(const Quiet&) = delete;

   private:
    CallTrace& fTrace;
    const bool fBefore;
  };

 private:
  std::vector<std::string> fCalls;
  std::map<std::string, std::function<void()> > fActions;
  std::set<std::string> fWithheld;
  bool fQuiet = false;
};

}  // namespace hwxtest

#endif  // HWXTESTS_SUPPORT_CALLTRACE_H
