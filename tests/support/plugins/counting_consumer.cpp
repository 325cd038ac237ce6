// A consumer plug-in named "counting". Its entry returns another value at each call: 1001, 1002...

#include <cstdint>

extern "C" void* counting_CreateINamespaceConsumer() {
  static std::uintptr_t last = 1000;
  return reinterpret_cast<void*>(++last);
}
