#ifndef HWXKIT_DETAIL_ENUMERATE_H
#define HWXKIT_DETAIL_ENUMERATE_H

#include <boost/function.hpp>
#include <boost/shared_ptr.hpp>
#include <vector>

namespace NQORHWX20::detail {

/// Presents the items until `callback` returns false, and then returns false itself. The items are
/// a copy: the callback may change what they came from.
template <typename TItem, typename TPresented>
bool Enumerate(const std::vector<boost::shared_ptr<TItem> > items,
               const boost::function<bool(boost::shared_ptr<TPresented>)>& callback) {
  for (const auto& item : items) {
    if (!callback(item)) return false;
  }
  return true;
}

}  // namespace NQORHWX20::detail

#endif  // HWXKIT_DETAIL_ENUMERATE_H
