#ifndef HWXCORE_SCHEMA_TADDTOVECTORCALLBACK_H
#define HWXCORE_SCHEMA_TADDTOVECTORCALLBACK_H

#include <boost/shared_ptr.hpp>
#include <vector>

namespace NQORHWX20 {

/// An enumeration callback that appends each element to the caller's vector, which must outlive the
/// enumeration, and always goes on.
///
/// Thread-safety: that of the vector.
template <typename T>
class TAddToVectorCallback {
 public:
  explicit TAddToVectorCallback(std::vector<boost::shared_ptr<T> >* vector) : fVector(vector) {}

  bool operator()(boost::shared_ptr<T> element) const {
    fVector->push_back(element);
    return true;
  }

 private:
  std::vector<boost::shared_ptr<T> >* fVector;
};

}  // namespace NQORHWX20

#endif  // HWXCORE_SCHEMA_TADDTOVECTORCALLBACK_H
