// What the command "media" prints; see IdentityReport.h.
// Thread-safety: functions without state.

#ifndef HWX_MEDIA_MEDIAREPORT_H
#define HWX_MEDIA_MEDIAREPORT_H

#include <string>
#include <vector>

#include "hwx/media/Media.h"

namespace hwx {

/// A line for each drive, or why there is none.
std::string MediaText(const TAnswer<std::vector<TMedium>>& media);

/// {"media": [{"device": "...", "description": "...", "mountPoints": ["...", ...]}, ...]}, with
/// "reason" where the drives can't be told.
std::string MediaJson(const TAnswer<std::vector<TMedium>>& media);

}  // namespace hwx

#endif  // HWX_MEDIA_MEDIAREPORT_H
