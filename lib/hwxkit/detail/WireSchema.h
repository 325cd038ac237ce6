// A namespace's schema, and instances, as messages; see Wire.h.

#ifndef HWXKIT_DETAIL_WIRESCHEMA_H
#define HWXKIT_DETAIL_WIRESCHEMA_H

#include <boost/shared_ptr.hpp>
#include <string>
#include <string_view>
#include <vector>

#include "hwxcore/schema/ICIMNamespace.h"

namespace NQORHWX20 {

class ICIMInstance;
class TInstanceList;
class TMemoryNamespace;

}  // namespace NQORHWX20

namespace NQORHWX20::detail {

/// All classes, each behind its superclass.
std::vector<boost::shared_ptr<ICIMClass>> AllClassesOf(ICIMNamespace& ns);

/// The qualifier declarations.
std::string QualifierDeclsMessage(ICIMNamespace& ns);

/// What a class itself has: nothing that it inherits.
std::string ClassMessage(ICIMClass& cimClass);

std::string InstanceMessage(ICIMInstance& instance);

/// Declares in `ns` what the message holds. Throws what the kit throws for what it doesn't take,
/// and `kHWXStatusInvalidFormat` for a broken message.
void TakeQualifierDecls(std::string_view message, TMemoryNamespace& ns);

/// Defines a class in `ns`. Throws likewise; there is no such class then. A class that refers to
/// one which isn't there yet throws `kHWXStatusUnknownClass`.
void TakeClass(std::string_view message, const boost::shared_ptr<TMemoryNamespace>& ns);

/// Adds an instance to the list. Throws likewise; the list is unchanged then.
void TakeInstance(std::string_view message, const boost::shared_ptr<TMemoryNamespace>& ns,
                  TInstanceList& instances);

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_WIRESCHEMA_H
