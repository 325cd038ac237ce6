// A consumer plug-in named "null", whose entry makes no object.

extern "C" void* null_CreateINamespaceConsumer() {
  return nullptr;
}
