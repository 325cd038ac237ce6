#include "hwx/Run.h"

int main(int argc, char** argv) {
  return hwx::Run(argc, argv);
}
