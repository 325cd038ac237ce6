// A plug-in that needs a function of the plug-in "registering", and says so nowhere.

extern "C" int registering_Answer();

extern "C" int dependent_Answer() {
  return registering_Answer();
}
