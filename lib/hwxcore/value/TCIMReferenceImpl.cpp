#include "hwxcore/value/TCIMReferenceImpl.h"

#include <algorithm>
#include <memory>

#include "hwxcore/diagnostics/detail/Log.h"
#include "hwxcore/schema/ICIMClass.h"
#include "hwxcore/schema/ICIMInstance.h"
#include "hwxcore/schema/ICIMNamespace.h"
#include "hwxcore/schema/ICIMPropertyDecl.h"
#include "hwxcore/schema/detail/Existing.h"
#include "hwxcore/value/TCIMReference.h"
#include "hwxcore/value/TCIMReferenceValueImpl.h"
#include "hwxcore/value/THWXException.h"

namespace NQORHWX20 {

namespace {

using detail::Existing;

// How deeply references may nest. Each level takes about 1 KB of stack, here and wherever the
// values are copied, compared or destroyed: more than this could exhaust the stack of a small
// thread.
constexpr unsigned kMaxNesting = 200;

[[noreturn]] void Refuse(const std::string& message) {
  detail::LogError(message);
  throw THWXException(kHWXStatusInvalidReference);
}

// Runs a look-up of the schema. If nothing is found, it logs `message()` and throws
// `kHWXStatusInvalidReference`. Any other failure goes on as a new exception with its status.
template <typename LookUp, typename Message>
auto LookUpOrThrow(LookUp lookUp, Message message) {
  try {
    return Existing(lookUp());
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) Refuse(message());
    throw THWXException(failure.GetStatus());
  }
}

bool IsSpecial(char c) {
  return c == '"' || c == '\\';
}

// The first quotation mark or backslash at or behind `position`, else the end.
std::size_t FindSpecial(const std::string& text, std::size_t position) {
  while (position < text.size() && !IsSpecial(text[position]))
    ++position;
  return position;
}

// Reads the text of a scalar, whose opening mark is at `position`, and moves to the closing mark.
std::string ParseQuotedText(const std::string& path, unsigned long& position) {
  std::string text;
  while (true) {
    const std::size_t start = position + 1;
    position = FindSpecial(path, start);
    text.append(path, start, position - start);
    if (position < path.size() && path[position] == '"') return text;
    if (++position >= path.size()) Refuse("Reference missing closing '\"', path=" + path);
    // Before any other character the backslash stays. Contract: two-characters-escaped.
    if (!IsSpecial(path[position])) text += '\\';
    text += path[position];
  }
}

void AppendEscaped(std::string& path, const std::string& text) {
  path.reserve(path.size() + text.size() +
               static_cast<std::size_t>(std::count_if(text.begin(), text.end(), IsSpecial)));
  for (const char c : text) {
    if (IsSpecial(c)) path += '\\';
    path += c;
  }
}

}  // namespace

TCIMReferenceImpl::TCIMReferenceImpl(TCIMReference* owner, boost::shared_ptr<ICIMNamespace> ns,
                                     TCIMContext context)
    : fOwner(owner), fNamespace(ns), fContext(context) {}

TCIMReferenceImpl::TCIMReferenceImpl(TCIMReference* owner, const TCIMReferenceImpl& other)
    : fOwner(owner),
      fNamespace(other.fNamespace),
      fContext(other.fContext),
      fClass(other.fClass),
      fKeyBindings(other.fKeyBindings),
      fElement(other.fElement),
      fNameSpaceName(other.fNameSpaceName) {}

TCIMReferenceImpl::~TCIMReferenceImpl() = default;

void TCIMReferenceImpl::SetPath(const std::string& path) {
  if (!fNamespace.lock() || !fKeyBindings.empty() || fClass) {  // Contract: path-set-once.
    throw THWXException(kHWXStatusInvalidOpSequence);
  }
  unsigned long position = 0;
  ParsePath(this, path, position);
}

void TCIMReferenceImpl::ParsePath(TCIMReferenceImpl* target, const std::string& path,
                                  unsigned long& position) {
  ParsePathAtDepth(target, path, position, 0);
}

void TCIMReferenceImpl::ParsePathAtDepth(TCIMReferenceImpl* target, const std::string& path,
                                         unsigned long& position, unsigned depth) {
  const bool nested = position != 0;
  if (nested) ++position;
  // A dot counts only behind a colon. Without both, all the rest is the name of a class.
  // Contract: dot-behind-colon, class-name-with-namespace, nested-path-needs-keys.
  const std::size_t colon = path.find(':', position);
  const std::size_t dot = colon == std::string::npos ? colon : path.find('.', colon);
  if (dot == std::string::npos) {
    target->SetClassName(position < path.size() ? path.substr(position) : std::string());
    position = path.size();
    return;
  }
  // Contract: namespace-text-dropped.
  const std::string className = path.substr(colon + 1, dot - colon - 1);
  const boost::shared_ptr<ICIMNamespace> ns = fNamespace.lock();
  if (!ns) throw THWXException(kHWXStatusInvalidOpSequence);
  const boost::shared_ptr<ICIMClass> keyClass =
      LookUpOrThrow([&] { return ns->GetClass(className, fContext); },
                    [&] { return "Reference specifies invalid class, path=" + path; });
  target->SetClass(keyClass);  // Contract: failed-path-leaves-keys.
  for (position = dot; position < path.size(); ++position) {
    if (nested && path[position] == '"') return;  // or at the end. Contract: nested-path-unclosed.
    ParseKey(target, ns, *keyClass, path, position, depth);
  }
}

// Reads a key, whose separator is at `position`, and moves to the closing mark of its value.
void TCIMReferenceImpl::ParseKey(TCIMReferenceImpl* target,
                                 const boost::shared_ptr<ICIMNamespace>& ns, ICIMClass& keyClass,
                                 const std::string& path, unsigned long& position, unsigned depth) {
  if (path[position] != ',' && path[position] != '.') {  // Contract: dot-for-comma.
    Refuse("Reference missing '.' or ',', path=" + path);
  }
  const std::size_t equals = path.find('=', position);
  if (equals == std::string::npos) {
    Refuse("Reference missing property value, path=" + path);
  }
  const std::string name = path.substr(position + 1, equals - position - 1);
  const boost::shared_ptr<ICIMPropertyDecl> decl = LookUpOrThrow(
      [&] { return keyClass.GetPropertyDecl(name, TCIMContext()); },
      [&] { return "Reference specifies invalid property, property=" + name + ", path=" + path; });
  position = equals + 1;
  if (position >= path.size() || path[position] != '"') {
    // Contract: opening-mark-at-debug.
    detail::LogDebug("Reference missing opening '\"', path=", path);
    throw THWXException(kHWXStatusInvalidReference);
  }
  // A map of this one key. Its entry is moved to the target: where references nest, each level
  // would copy all levels below it.
  std::map<std::string, TCIMValue> key;
  // Contract: default-value-decides.
  if (decl->GetDefaultValue(TCIMContext()).IsReference()) {
    if (depth >= kMaxNesting) Refuse("Reference nests too deeply, path=" + path);
    auto nested = std::make_unique<TCIMReferenceValueImpl>(TCIMReference(ns, fContext));
    ParsePathAtDepth(nested->GetReference().GetBody(), path, position, depth + 1);
    key[name].SetBody(std::move(nested));
  } else {
    std::string text = ParseQuotedText(path, position);
    const TCIMValue::TCIMType type = decl->GetType(TCIMContext());
    key.try_emplace(name, type, text, ns);  // Contract: no-char16-key-in-path.
  }
  target->CheckKey(name, key.begin()->second);
  target->fKeyBindings.insert(target->fKeyBindings.end(), key.extract(key.begin()));
}

// Contract: path-printed-otherwise.
std::string TCIMReferenceImpl::GetPath() const {
  std::string path;
  AppendPath(path);
  return path;
}

void TCIMReferenceImpl::AppendPath(std::string& path) const {
  path += GetClassName();
  char separator = '.';
  for (const auto& [name, value] : fKeyBindings) {
    path += separator;
    path += name;
    path += "=\"";
    if (const TCIMReference* const reference = TCIMReferenceValueImpl::In(value)) {
      // Contract: nested-path-unescaped.
      reference->GetBody()->AppendPath(path);
    } else {
      AppendEscaped(path, value.ToString(10));
    }
    path += '"';
    separator = ',';
  }
}

void TCIMReferenceImpl::AddKeyValue(const std::string& name, const TCIMValue& value) {
  CheckKey(name, value);
  // Keys mostly come in order, so the end is tried first. Contract: first-key-stays.
  fKeyBindings.try_emplace(fKeyBindings.end(), name, value);
}

void TCIMReferenceImpl::CheckKey(const std::string& name, const TCIMValue& value) const {
  if (!fClass) throw THWXException(kHWXStatusInvalidOpSequence);
  const TCIMValue::TCIMType declared =
      Existing(fClass->GetPropertyDecl(name, TCIMContext()))->GetType(TCIMContext());
  if (declared == value.GetType()) return;  // Contract: key-of-exact-type.
  detail::LogError("Core: Declaration type: " + declared.ToString() +
                   " Value type: " + value.GetType().ToString());
  throw THWXException(kHWXStatusTypeMismatch);
}

void TCIMReferenceImpl::EnumerateKeyBindings(
    const boost::function<bool(std::pair<std::string, TCIMValue>)>& callback) const {
  for (const auto& key : fKeyBindings) {
    if (!callback(key)) return;
  }
}

void TCIMReferenceImpl::SetNamespace(boost::shared_ptr<ICIMNamespace> ns) {
  fNamespace = ns;
}

// Contract: namespace-held-weakly.
boost::shared_ptr<ICIMNamespace> TCIMReferenceImpl::GetNamespace() const {
  return fNamespace.lock();
}

void TCIMReferenceImpl::SetContext(TCIMContext context) {
  fContext.swap(context);
}

void TCIMReferenceImpl::SetNameSpaceName(std::string name) {
  fNameSpaceName.swap(name);
}

std::string TCIMReferenceImpl::GetNameSpaceName() const {
  return fNameSpaceName;
}

void TCIMReferenceImpl::SetClass(boost::shared_ptr<ICIMClass> newClass) {
  if (!fKeyBindings.empty()) throw THWXException(kHWXStatusInvalidOpSequence);
  fClass = newClass;
}

void TCIMReferenceImpl::SetClassName(const std::string& name) {
  const boost::shared_ptr<ICIMNamespace> ns = fNamespace.lock();
  if (!ns || !fKeyBindings.empty()) throw THWXException(kHWXStatusInvalidOpSequence);
  try {
    // Contract: unknown-class-unlogged.
    fClass = ns->GetClass(name, fContext);
  } catch (const THWXException& failure) {
    if (failure.GetStatus() == kHWXStatusNotFound) throw THWXException(kHWXStatusUnknownClass);
    throw THWXException(failure.GetStatus());
  }
}

boost::shared_ptr<ICIMClass> TCIMReferenceImpl::GetClass() const {
  if (!fClass) throw THWXException(kHWXStatusInvalidReference);
  return fClass;
}

const std::string& TCIMReferenceImpl::GetClassName() const {
  return GetClass()->GetName(TCIMContext());
}

void TCIMReferenceImpl::Clear() {
  // Contract: clear-keeps-context.
  fNamespace.reset();
  fClass.reset();
  fKeyBindings.clear();
  fElement.reset();
}

boost::shared_ptr<ICIMElement> TCIMReferenceImpl::GetCIMElement(bool classOnly) const {
  if (classOnly || fKeyBindings.empty()) return fClass;  // Contract: class-for-element.
  if (!fElement) {
    // Contract: element-found-once, element-of-class-namespace.
    const boost::shared_ptr<ICIMNamespace> ns = GetClass()->GetNamespace(TCIMContext());
    if (!ns) throw THWXException(kHWXStatusNotFound);
    fElement = ns->GetInstance(*fOwner, TCIMContext());
    if (!fElement) throw THWXException(kHWXStatusNotFound);
  }
  return fElement;
}

bool TCIMReferenceImpl::operator==(const TCIMReferenceImpl& other) const {
  // Contract: label-in-equality-alone.
  return fClass == other.fClass && fKeyBindings == other.fKeyBindings &&
         fNameSpaceName == other.fNameSpaceName;
}

bool TCIMReferenceImpl::operator<(const TCIMReferenceImpl& other) const {
  return Compare(other) < 0;
}

int TCIMReferenceImpl::CompareValues(const TCIMValue& one, const TCIMValue& other) {
  const TCIMReference* const reference = TCIMReferenceValueImpl::In(one);
  const TCIMReference* const otherReference = TCIMReferenceValueImpl::In(other);
  if (reference != nullptr && otherReference != nullptr) {
    return reference->GetBody()->Compare(*otherReference->GetBody());
  }
  if (one < other) return -1;
  return other < one ? 1 : 0;
}

// The order of the maps of keys. It looks at each nested reference once: to ask whether one is
// less, and then the other, would double the time with each level. Contract: classes-by-pointer.
int TCIMReferenceImpl::Compare(const TCIMReferenceImpl& other) const {
  if (fClass != other.fClass) return fClass < other.fClass ? -1 : other.fClass < fClass ? 1 : 0;
  auto mine = fKeyBindings.begin();
  auto theirs = other.fKeyBindings.begin();
  for (; mine != fKeyBindings.end() && theirs != other.fKeyBindings.end(); ++mine, ++theirs) {
    int difference = mine->first.compare(theirs->first);
    if (difference == 0) difference = CompareValues(mine->second, theirs->second);
    if (difference != 0) return difference;
  }
  if (mine != fKeyBindings.end()) return 1;
  return theirs != other.fKeyBindings.end() ? -1 : 0;
}

}  // namespace NQORHWX20
