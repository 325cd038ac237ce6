#include "hwxkit/ChildReading.h"

#include <algorithm>
#include <map>
#include <memory>
#include <utility>
#include <vector>

#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/value/TDetailedException.h"
#include "hwxkit/TChildLostException.h"
#include "hwxkit/TInstanceList.h"
#include "hwxkit/TMemoryClass.h"
#include "hwxkit/TMemoryNamespace.h"
#include "hwxkit/detail/Child.h"
#include "hwxkit/detail/Wire.h"
#include "hwxkit/detail/WireSchema.h"

namespace NQORHWX20 {

namespace {

using detail::TChild;
using detail::TMessage;
using detail::TParentLine;
using TClock = std::chrono::steady_clock;

// What the two sides say to each other. The parent asks for the schema, or for the instances of a
// class; the child answers in items, and ends each answer by `kDone` or `kFailed`.
enum EMessageKind : std::uint8_t {
  kAskSchema,
  kAskInstances,
  kName,
  kQualifierDecls,
  kClass,
  kInstance,
  kSpoilt,  // in the place of an item that can't be sent: the reason
  kDone,
  kFailed
};

// Whole seconds as such, other times in milliseconds.
std::string TimeText(std::chrono::milliseconds time) {
  const auto count = time.count();
  return count % 1000 == 0 ? std::to_string(count / 1000) + " s" : std::to_string(count) + " ms";
}

// The child's side.

// The failure that is being handled, as a message.
std::string FailureMessage() {
  detail::TWireWriter message;
  try {
    throw;
  } catch (const TDetailedException& failure) {
    message.Number(static_cast<std::uint32_t>(failure.GetStatus()));
    message.Text(failure.GetDetail());
  } catch (const THWXException& failure) {  // mostly its text is only the name of the status
    const std::string words = failure.what();
    message.Number(static_cast<std::uint32_t>(failure.GetStatus()));
    message.Text(words == failure.GetStatus().TranslateStatusCode() ? std::string() : words);
  } catch (const std::exception& failure) {
    message.Number(kHWXStatusFail);
    message.Text(failure.what());
  } catch (...) {
    message.Number(kHWXStatusFail);
    message.Text("it threw what is no exception");
  }
  return message.Bytes();
}

// Does a piece of work, and sends how it ended.
template <typename Work>
void Answer(TParentLine& parent, Work work) {
  try {
    work();
    parent.Send(kDone, "");
  } catch (...) {
    parent.Send(kFailed, FailureMessage());
  }
}

// Sends an item. If it can't be made, the reason is sent in its place, and the others follow.
template <typename Compose>
void SendItem(TParentLine& parent, std::uint8_t kind, Compose compose) {
  std::string message;
  try {
    message = compose();
  } catch (...) {
    parent.Send(kSpoilt, FailureMessage());
    return;
  }
  parent.Send(kind, message);
}

void SendSchema(TParentLine& parent, ICIMNamespace& ns) {
  parent.Send(kName, ns.GetName(TCIMContext()));
  parent.Send(kQualifierDecls, detail::QualifierDeclsMessage(ns));
  for (const auto& cimClass : detail::AllClassesOf(ns))
    SendItem(parent, kClass, [&] { return detail::ClassMessage(*cimClass); });
}

void SendInstances(TParentLine& parent, ICIMNamespace& ns, const std::string& className) {
  const auto send = [&](boost::shared_ptr<ICIMInstance> instance) {
    SendItem(parent, kInstance, [&] { return detail::InstanceMessage(*instance); });
    return true;
  };
  ns.GetClass(className, TCIMContext())->EnumerateInstances(send, false, TCIMContext());
}

void Serve(TParentLine& parent, const TNamespaceOpener& open) {
  boost::shared_ptr<ICIMNamespace> ns;
  Answer(parent, [&] {
    ns = open();
    if (!ns) throw TDetailedException(kHWXStatusNotFound, "it has no namespace to open");
  });
  while (const auto question = ns ? parent.Receive() : std::nullopt) {
    Answer(parent, [&] {
      if (question->fKind == kAskSchema) return SendSchema(parent, *ns);
      SendInstances(parent, *ns, question->fText);
    });
  }
}

// The parent's side.

std::string WordsOf(const TDetailedException& failure) {
  return failure.GetDetail().empty() ? failure.what() : failure.GetDetail();
}

// The failure that a message tells of.
TDetailedException Told(const std::string& message) {
  detail::TWireReader reader(message, {});
  const auto status = static_cast<EHWXStatusCode>(
      std::min(reader.Number(), static_cast<std::uint32_t>(fdrStatusEnd)));
  return {status, reader.Text()};
}

// Talks with a child, and starts another if that one is lost.
class TSession {
 public:
  TSession(TNamespaceOpener open, const TChildLimits& limits, TChildNotice notice)
      : fOpen(std::move(open)), fLimits(limits), fNotice(std::move(notice)) {}

  boost::shared_ptr<TMemoryNamespace> ReadSchema();
  void FillInstances(TInstanceList& instances);
  void SetNamespace(const boost::shared_ptr<TMemoryNamespace>& ns) { fNamespace = ns; }

 private:
  using TTaker = std::function<void(const TMessage&)>;

  void RequireChild();
  void Ask(std::uint8_t kind, const std::string& text, const std::string& what, const TTaker& take);
  void TakeAnswer(const std::string& what, const TTaker& take);
  [[noreturn]] void Lose(TChild::TDeadline start, bool anythingCame);
  void TellOutput(const std::string& what);
  void Tell(const std::string& notice) const;
  void DefineClasses(std::vector<std::string> messages,
                     const boost::shared_ptr<TMemoryNamespace>& ns);

  const TNamespaceOpener fOpen;
  const TChildLimits fLimits;
  const TChildNotice fNotice;
  std::unique_ptr<TChild> fChild;
  boost::weak_ptr<TMemoryNamespace> fNamespace;
  std::string fWhyNotOpen;
  std::map<std::string, std::string> fLost;  // classes that cost a child, and why
};

void TSession::Tell(const std::string& notice) const {
  if (fNotice) fNotice(notice);
}

void TSession::TellOutput(const std::string& what) {
  std::string output = fChild->TakeOutput();
  if (output.empty()) return;
  constexpr std::size_t kMostShown = 100;
  if (output.size() > kMostShown) output = output.substr(0, kMostShown) + "...";
  while (!output.empty() && output.back() == '\n')
    output.pop_back();
  Tell(what + " printed '" + output + "' on its standard output");
}

// A provider that can't be opened once isn't tried again.
void TSession::RequireChild() {
  if (fChild) return;
  if (!fWhyNotOpen.empty()) throw TChildLostException(fWhyNotOpen);
  fChild = std::make_unique<TChild>([this](TParentLine& parent) { Serve(parent, fOpen); },
                                    fLimits.fMemory);
  try {
    TakeAnswer("the provider", [](const TMessage&) {});
  } catch (const TDetailedException& failure) {
    fWhyNotOpen = WordsOf(failure);
    fChild.reset();
    throw;
  }
}

void TSession::Ask(std::uint8_t kind, const std::string& text, const std::string& what,
                   const TTaker& take) {
  RequireChild();
  fChild->Send(kind, text);
  TakeAnswer(what, take);
}

void TSession::Lose(TChild::TDeadline start, bool anythingCame) {
  const auto child = std::move(fChild);
  if (!child->WhyLost().empty()) throw TChildLostException(child->WhyLost());
  const bool isOwn = TClock::now() - start >= fLimits.fClassTime;
  const std::string time = TimeText(fLimits.fClassTime);
  if (!isOwn) throw TChildLostException("the time for everything is over");
  throw TChildLostException(anythingCame ? "it wasn't done after " + time
                                         : "it gave nothing for " + time);
}

void TSession::TakeAnswer(const std::string& what, const TTaker& take) {
  const auto start = TClock::now();
  const auto deadline = std::min(start + fLimits.fClassTime, fLimits.fDeadline);
  bool anythingCame = false;
  while (true) {
    const auto message = fChild->Receive(deadline);
    TellOutput(what);
    if (!message) Lose(start, anythingCame);
    anythingCame = true;
    if (message->fKind == kDone) return;
    if (message->fKind == kFailed) throw Told(message->fText);
    take(*message);
  }
}

// A class may refer to one that comes later. What fails in one round is tried again in the next, as
// long as a round takes any.
void TSession::DefineClasses(std::vector<std::string> messages,
                             const boost::shared_ptr<TMemoryNamespace>& ns) {
  std::string why;
  for (std::size_t before = 0; !messages.empty() && messages.size() != before;) {
    before = messages.size();
    std::vector<std::string> waiting;
    for (std::string& message : messages) {
      try {
        detail::TakeClass(message, ns);
      } catch (const THWXException& failure) {
        why = failure.what();
        waiting.push_back(std::move(message));
      }
    }
    messages = std::move(waiting);
  }
  for (const std::string& message : messages)
    Tell("the class " + detail::TWireReader(message, {}).Text() + " can't be taken: " + why);
}

boost::shared_ptr<TMemoryNamespace> TSession::ReadSchema() {
  std::string name;
  std::string qualifiers;
  std::vector<std::string> classes;
  Ask(kAskSchema, "", "the provider", [&](const TMessage& message) {
    if (message.fKind == kName) name = message.fText;
    if (message.fKind == kQualifierDecls) qualifiers = message.fText;
    if (message.fKind == kClass) classes.push_back(message.fText);
    if (message.fKind == kSpoilt) Tell("a class can't be read: " + WordsOf(Told(message.fText)));
  });
  auto ns = TMemoryNamespace::Create(name);
  detail::TakeQualifierDecls(qualifiers, *ns);
  DefineClasses(std::move(classes), ns);
  return ns;
}

void TSession::FillInstances(TInstanceList& instances) {
  const std::string name = instances.GetClass()->GetName(TCIMContext());
  const auto lost = fLost.find(name);
  if (lost != fLost.end()) throw TChildLostException(lost->second);
  const auto ns = fNamespace.lock();
  std::string spoilt;
  const auto take = [&](const TMessage& message) {
    if (message.fKind != kInstance) {
      spoilt = message.fText;
      return;
    }
    try {
      detail::TakeInstance(message.fText, ns, instances);
    } catch (...) {  // the other instances are taken
      spoilt = FailureMessage();
    }
  };
  try {
    Ask(kAskInstances, name, "the class " + name, take);
  } catch (const TDetailedException& failure) {
    if (!fChild) fLost[name] = failure.GetDetail();
    throw;
  }
  if (!spoilt.empty()) throw Told(spoilt);
}

}  // namespace

boost::shared_ptr<ICIMNamespace> OpenInChild(const TNamespaceOpener& open,
                                             const TChildLimits& limits,
                                             const TChildNotice& notice) {
  const auto session = std::make_shared<TSession>(open, limits, notice);
  const auto ns = session->ReadSchema();
  session->SetNamespace(ns);
  for (const auto& cimClass : ns->GetClasses()) {
    if (cimClass->IsAbstract(TCIMContext())) continue;
    cimClass->SetInstanceSource(
        [session](TInstanceList& instances) { session->FillInstances(instances); });
  }
  return ns;
}

std::string CallInChild(const std::function<std::string()>& call, const TChildLimits& limits) {
  TChild child(
      [&call](TParentLine& parent) {
        std::string result;
        Answer(parent, [&] { parent.Send(kName, call()); });
      },
      limits.fMemory);
  const auto deadline = std::min(TClock::now() + limits.fClassTime, limits.fDeadline);
  std::string result;
  while (const auto message = child.Receive(deadline)) {
    if (message->fKind == kDone) return result;
    if (message->fKind == kFailed) throw Told(message->fText);
    result = message->fText;
  }
  const std::string& why = child.WhyLost();
  throw TChildLostException(why.empty() ? "it gave nothing for " + TimeText(limits.fClassTime)
                                        : why);
}

}  // namespace NQORHWX20
