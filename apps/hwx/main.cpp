#include "hwx/commands/Run.h"

int main(int argc, char** argv) {
  return hwx::Run(argc, argv);
}
