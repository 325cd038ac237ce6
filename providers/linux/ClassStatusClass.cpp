#include "providers/linux/EmptyClasses.h"
#include "providers/linux/LiveClass.h"

namespace linux_machine {

void DefineClassStatus(const boost::shared_ptr<NQORHWX20::TMemoryNamespace>& ns) {
  using Row = TEmptyClass;
  TLiveClass<Row>(ns, "QORSG_ClassStatus", &FindEmptyClasses)
      .Key("ClassName", &Row::fName)
      .Set("Reason", &Row::fReason)
      .Commit();
}

}  // namespace linux_machine
