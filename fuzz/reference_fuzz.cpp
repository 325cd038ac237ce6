// Object paths from any text, beside a plain reader of the same grammar: the same status, the same
// class and keys also where it fails, and what is printed reads back as it was.

#include <algorithm>
#include <cctype>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

#include "Require.h"
#include "hwxcore/diagnostics/ILogger.h"
#include "hwxcore/schema/TRootObject.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMValue.h"
#include "hwxcore/value/THWXException.h"
#include "hwxkit/TClassBuilder.h"
#include "hwxkit/TMemoryNamespace.h"
#include "support/StatusOf.h"

namespace {

using fuzz::Require;
using hwxtest::StatusOf;
using namespace NQORHWX20;
using Bytes = std::vector<std::uint8_t>;

constexpr int kDeepest = 200;  // the references within one another that a path may have

boost::shared_ptr<TMemoryNamespace> MakeNamespace() {
  const auto ns = TMemoryNamespace::Create("root");
  TClassBuilder(ns, "Thing").Key("Id", "uint32").Key("Name", "string").Commit();
  TClassBuilder(ns, "Link")
      .KeyReference("From", "Thing")
      .KeyReference("To", "Thing")
      .Key("Label", "string")
      .Commit();
  return ns;
}

std::string Lower(std::string text) {
  std::transform(text.begin(), text.end(), text.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return text;
}

// What a path is read as: a class, and its keys as they are printed.
struct TModel {
  std::string fClass;
  std::map<std::string, std::string> fKeys;
  bool fHasReferences = false;  // what is printed then can't be read

  std::string Print() const {
    std::string path = fClass;
    for (const auto& key : fKeys)
      path += (path == fClass ? "." : ",") + key.first + "=\"" + key.second + "\"";
    return path;
  }
};

// The plain reader. Each step answers whether the next one is to go on; else `fStatus` tells why.
class TReader {
 public:
  explicit TReader(const std::string& path) : fPath(path) {}

  int Read(TModel& model) {
    ReadPath(model, false);
    return fStatus;
  }

 private:
  static const std::map<std::string, std::map<std::string, char>>& Schema() {
    static const std::map<std::string, std::map<std::string, char>> schema = {
        {"thing", {{"id", 'n'}, {"name", 's'}}},
        {"link", {{"from", 'r'}, {"to", 'r'}, {"label", 's'}}},
    };
    return schema;
  }

  bool Fail(int status) {
    fStatus = status;
    return false;
  }

  bool Bind(TModel& model, const std::string& name, int status) {
    const std::string known = Lower(name);
    if (Schema().count(known) == 0) return Fail(status);
    model.fClass = known == "thing" ? "Thing" : "Link";
    return true;
  }

  bool ReadPath(TModel& model, bool nested) {
    const std::size_t start = fAt;
    const std::size_t colon = fPath.find(':', start);
    const std::size_t dot = colon == std::string::npos ? colon : fPath.find('.', colon);
    fAt = std::min(dot, fPath.size());
    if (dot == std::string::npos) return Bind(model, fPath.substr(start), kHWXStatusUnknownClass);
    const std::string name = fPath.substr(colon + 1, dot - colon - 1);
    if (!Bind(model, name, kHWXStatusInvalidReference)) return false;
    while (fAt < fPath.size() && !(nested && fPath[fAt] == '"')) {
      if (!ReadKey(model)) return false;
    }
    return true;
  }

  bool ReadKey(TModel& model) {
    const std::size_t equals = fPath.find('=', fAt);
    const bool separated = fPath[fAt] == '.' || fPath[fAt] == ',';
    if (!separated || equals == std::string::npos) return Fail(kHWXStatusInvalidReference);
    const std::string name = fPath.substr(fAt + 1, equals - fAt - 1);
    const auto& properties = Schema().at(Lower(model.fClass));
    const auto property = properties.find(Lower(name));
    fAt = equals + 2;
    if (property == properties.end() || fAt > fPath.size() || fPath[fAt - 1] != '"') {
      return Fail(kHWXStatusInvalidReference);
    }
    std::string text;
    if (!(property->second == 'r' ? ReadNested(text) : ReadScalar(text))) return false;
    if (property->second == 'n') {
      TCIMValue::TCIMType type = TCIMValue::TCIMType::kCIMTypeUInt32;
      text = TCIMValue(type, text, boost::shared_ptr<ICIMNamespace>()).ToString(10);
    }
    if (property->second == 's') text = Escaped(text);
    if (property->second == 'r') model.fHasReferences = true;
    model.fKeys.emplace(name, text);
    ++fAt;  // the closing mark, or the end
    return true;
  }

  bool ReadNested(std::string& text) {
    if (++fDepth > kDeepest) return Fail(kHWXStatusInvalidReference);
    TModel nested;
    if (!ReadPath(nested, true)) return false;
    --fDepth;
    text = nested.Print();
    return true;
  }

  bool ReadScalar(std::string& text) {
    bool escaped = false;
    for (; fAt < fPath.size(); ++fAt) {
      const char c = fPath[fAt];
      const bool special = c == '"' || c == '\\';
      if (special && !escaped) {
        if (c == '"') return true;
        escaped = true;
      } else {
        if (escaped && !special) text += '\\';
        text += c;
        escaped = false;
      }
    }
    return Fail(kHWXStatusInvalidReference);
  }

  static std::string Escaped(const std::string& text) {
    std::string escaped;
    for (const char c : text)
      escaped += (c == '"' || c == '\\' ? "\\" : "") + std::string(1, c);
    return escaped;
  }

  const std::string& fPath;
  std::size_t fAt = 0;
  int fDepth = 0;
  int fStatus = kHWXStatusOK;
};

void CheckCopy(const TCIMReference& reference) {
  const TCIMReference copy(reference);
  Require(copy == reference);
  Require(!(copy < reference) && !(reference < copy));
}

// What is printed has to be led by a namespace text, but for a class alone.
void CheckReadsBack(const TCIMReference& reference, const TModel& model) {
  if (model.fHasReferences) return;
  const std::string path = (model.fKeys.empty() ? "" : "text:") + model.Print();
  Require(TCIMReference(reference.GetNamespace(), path, TCIMContext()) == reference);
}

Bytes Seed(const std::string& text) {
  return Bytes(text.begin(), text.end());
}

std::string Deep(int depth) {
  std::string path = "r:Thing.Id=\"1\"";
  for (int i = 0; i < depth; ++i)
    path = "r:Link.To=\"" + path + "\"";
  return path;
}

}  // namespace

std::vector<Bytes> FuzzSeeds() {
  return {Seed("Thing"),
          Seed("root:Thing"),
          Seed("Thing.Id=\"5\""),
          Seed("root:Thing.Id=\"5\",Name=\"a\\\"b\\\\c\\d\""),
          Seed("root:thing.NAME=\"x\".id=\"0x1F\",Id=\"7\""),
          Seed("root:Thing.Name=\"a:b.c=d,e\","),
          Seed("r:Link.From=\"r:Thing.Id=\"1\",Name=\"a\"\",To=\"s:Thing.Id=\"2\"\",Label=\"z\""),
          Seed("r:Link.From=\"r:Thing.Id=\"1\""),
          Seed("r:Link.From=\"r:Thing\",To=\"r:Thing.Id=\"2\"\""),
          Seed(Deep(5)),
          Seed(Deep(kDeepest - 1))};
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const boost::shared_ptr<ICIMNamespace> ns = MakeNamespace();
  const std::string path(reinterpret_cast<const char*>(data), size);
  TModel model;
  const int expected = TReader(path).Read(model);
  TCIMReference reference(ns, TCIMContext());
  Require(StatusOf([&] { reference.SetPath(path); }) == expected);
  if (model.fClass.empty()) {
    Require(StatusOf([&] { reference.GetPath(); }) == kHWXStatusInvalidReference);
  } else {
    Require(reference.GetPath() == model.Print());
    CheckReadsBack(reference, model);
  }
  CheckCopy(reference);
  TRootObject::GetCoreLogger()->ClearLog();
  return 0;
}
