#include <dlfcn.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "hwxcore/os/TLoadException.h"
#include "hwxcore/os/TOSSpecific.h"
#include "hwxcore/value/THWXException.h"
#include "support/PluginRoot.h"
#include "support/ScopedLogCapture.h"
#include "support/StatusOf.h"

using hwxtest::PluginRoot;
using hwxtest::ScopedLogCapture;
using NQORHWX20::TDetailedException;
using NQORHWX20::THWXException;
using NQORHWX20::TLoadException;
using NQORHWX20::TOSSpecific;
using testing::EndsWith;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace {

const char kBroken[] = "this is no module\n";

// Line of the trace with level 4, without what stands before the text.
std::string TraceText(const std::string& standardError) {
  const std::string level = "[4] ";
  const std::size_t begin = standardError.find(level);
  return begin == std::string::npos ? standardError : standardError.substr(begin + level.size());
}

// The detail of the `TLoadException` that `load` throws.
template <typename Load>
std::string LoaderWords(Load load) {
  try {
    load();
  } catch (const TLoadException& failure) {
    return failure.GetDetail();
  }
  return "no such exception";
}

// How the loader tells that there is no such file.
std::string NoFile(const std::string& path) {
  return path + ": cannot open shared object file: No such file or directory";
}

TEST(LoadNSPLibrary, RunsTheLoadTimeCodeAndNothingElse) {
  PluginRoot root;
  root.AddPlugin("registering_provider.so", "libanyname.nsp.so");
  EXPECT_EQ(root.Run({"registered:registering", "load-nsp:anyname", "registered:registering",
                      "registered:anyname"})
                .fOut,
            "log 0 Failed to find nsp named registering\nstatus 15\n"
            "loaded\n"
            "registered\n"
            "log 0 Failed to find nsp named anyname\nstatus 15\n");
}

TEST(LoadNSPLibrary, MakesTheSymbolsVisibleToModulesLoadedLater) {
  PluginRoot root;
  root.AddPlugin("registering_provider.so", "libregistering.nsp.so");
  root.AddPlugin("dependent_plugin.so", "libdependent.nsp.so");
  EXPECT_EQ(root.Run({"symbol:registering_Answer", "load-nsp:registering",
                      "symbol:registering_Answer", "load-nsp:dependent"})
                .fOut,
            "not visible\nloaded\nvisible\nloaded\n");
}

TEST(LoadNSPLibrary, BindsAllSymbolsAtOnce) {
  PluginRoot root;
  root.AddPlugin("dependent_plugin.so", "libdependent.nsp.so");
  EXPECT_EQ(root.Run({"load-nsp:dependent"}).fOut,
            "log 0 Couldn't load NSP: dependent (" + root.Path() +
                "/libdependent.nsp.so: undefined symbol: registering_Answer)\nstatus 11\n");
}

TEST(LoadNSPLibrary, KeepsTheModuleMapped) {
  PluginRoot root;
  root.AddPlugin("registering_provider.so", "libregistering.nsp.so");
  const std::string mapped = "mapped:" + root / "libregistering.nsp.so";
  EXPECT_EQ(root.Run({mapped, "load-nsp:registering", mapped}).fOut,
            "not mapped\nloaded\nmapped\n");
}

TEST(LoadNSPLibrary, SaysWhyAFileCannotBeLoaded) {
  PluginRoot root;
  root.AddFile("libbroken.nsp.so", kBroken);
  EXPECT_EQ(root.Run({"load-nsp:absent", "load-nsp:broken"}).fOut,
            "log 0 Couldn't load NSP: absent (" + root.Path() +
                "/libabsent.nsp.so: cannot open shared object file: No such file or directory)\n"
                "status 11\n"
                "log 0 Couldn't load NSP: broken (" +
                root.Path() + "/libbroken.nsp.so: file too short)\nstatus 11\n");
}

TEST(LoadNSPLibrary, ReadsTheReasonOnce) {
  EXPECT_THROW(TOSSpecific::LoadNSPLibrary("absent"), THWXException);
  EXPECT_EQ(::dlerror(), nullptr);
}

TEST(LoadNSPLibrary, CarriesTheLoadersWords) {
  EXPECT_EQ(LoaderWords([] { TOSSpecific::LoadNSPLibrary("absent"); }),
            NoFile(TOSSpecific::GetHWXRootPath() + "/libabsent.nsp.so"));
}

TEST(LoadNSPLibrary, TracesThePathAboveLevelThreeOnly) {
  PluginRoot root;
  root.AddPlugin("registering_provider.so", "libregistering.nsp.so");
  EXPECT_EQ(root.Run({"load-nsp:registering"}).fErr, "");
  EXPECT_EQ(root.Run({"load-nsp:registering"}, "3").fErr, "");
  EXPECT_EQ(TraceText(root.Run({"load-nsp:registering"}, "4").fErr),
            "TOSSpecific::LoadNSPLibrary modulePath: " + root.Path() + "/libregistering.nsp.so\n");
}

TEST(LoadNSPLibrary, TracesThePathBeforeItFails) {
  PluginRoot root;
  const PluginRoot::Result result = root.Run({"load-nsp:absent"}, "4");
  EXPECT_EQ(TraceText(result.fErr),
            "TOSSpecific::LoadNSPLibrary modulePath: " + root.Path() + "/libabsent.nsp.so\n");
  EXPECT_THAT(result.fErr, HasSubstr("TOSSpecificLinuxPlugins.cpp:"));
  EXPECT_THAT(result.fOut, EndsWith("status 11\n"));
}

TEST(LoadNSCLibrary, ReturnsWhatTheEntryReturnsAtEachCall) {
  PluginRoot root;
  root.AddPlugin("counting_consumer.so", "libcounting.nsc.so");
  EXPECT_EQ(root.Run({"load-nsc:counting", "load-nsc:counting"}).fOut,
            "consumer 1001\nconsumer 1002\n");
}

TEST(LoadNSCLibrary, ReturnsANullUntested) {
  PluginRoot root;
  root.AddPlugin("null_consumer.so", "libnull.nsc.so");
  EXPECT_EQ(root.Run({"load-nsc:null"}).fOut, "consumer 0\n");
}

TEST(LoadNSCLibrary, MakesTheSymbolsVisibleToModulesLoadedLater) {
  PluginRoot root;
  root.AddPlugin("counting_consumer.so", "libcounting.nsc.so");
  EXPECT_EQ(root.Run({"load-nsc:counting", "symbol:counting_CreateINamespaceConsumer"}).fOut,
            "consumer 1001\nvisible\n");
}

TEST(LoadNSCLibrary, KeepsAModuleWithoutTheEntryOpen) {
  PluginRoot root;
  root.AddPlugin("counting_consumer.so", "libother.nsc.so");
  const std::string path = root / "libother.nsc.so";
  EXPECT_EQ(root.Run({"load-nsc:other", "mapped:" + path}).fOut,
            "log 0 Couldn't find 'CreateINamespaceConsumer' in " + path +
                "\nstatus 15\n"
                "mapped\n");
}

TEST(LoadNSCLibrary, SaysWhyAFileCannotBeLoaded) {
  PluginRoot root;
  root.AddFile("libbroken.nsc.so", kBroken);
  root.AddPlugin("dependent_plugin.so", "libdependent.nsc.so");
  EXPECT_EQ(root.Run({"load-nsc:broken", "load-nsc:dependent"}).fOut,
            "log 0 Couldn't load NSC: broken (" + root.Path() +
                "/libbroken.nsc.so: file too short)\nstatus 11\n"
                "log 0 Couldn't load NSC: dependent (" +
                root.Path() +
                "/libdependent.nsc.so: undefined symbol: registering_Answer)\nstatus 11\n");
}

TEST(LoadNSCLibrary, CarriesTheLoadersWords) {
  EXPECT_EQ(LoaderWords([] { TOSSpecific::LoadNSCLibrary("absent"); }),
            NoFile(TOSSpecific::GetHWXRootPath() + "/libabsent.nsc.so"));
}

TEST(LoadNSCLibrary, DoesNotTakeAProviderForAConsumer) {
  PluginRoot root;
  root.AddPlugin("counting_consumer.so", "libcounting.nsp.so");
  EXPECT_THAT(root.Run({"load-nsc:counting"}).fOut, EndsWith("status 11\n"));
}

TEST(LoadNSCLibrary, TracesThePathAboveLevelThreeOnly) {
  PluginRoot root;
  root.AddPlugin("null_consumer.so", "libnull.nsc.so");
  EXPECT_EQ(root.Run({"load-nsc:null"}, "3").fErr, "");
  EXPECT_EQ(TraceText(root.Run({"load-nsc:null"}, "4").fErr),
            "TOSSpecific::LoadNSCLibrary modulePath: " + root.Path() + "/libnull.nsc.so\n");
}

TEST(LoadPluginLibrary, ReturnsTheLoadersHandle) {
  const std::string path = PluginRoot::BuiltPlugin("counting_consumer.so");
  void* const module = TOSSpecific::LoadPluginLibrary(path);
  ASSERT_NE(module, nullptr);
  EXPECT_NE(::dlsym(module, "counting_CreateINamespaceConsumer"), nullptr);
  EXPECT_NE(::dlsym(RTLD_DEFAULT, "counting_CreateINamespaceConsumer"), nullptr);
  EXPECT_EQ(TOSSpecific::LoadPluginLibrary(path), module);
  ::dlclose(module);
  ::dlclose(module);
}

TEST(LoadPluginLibrary, TakesThePathAsItStandsAndTracesNothing) {
  PluginRoot root;
  root.AddPlugin("counting_consumer.so", "anything");
  const PluginRoot::Result result = root.Run({"load-plugin:" + root / "anything"}, "4");
  EXPECT_EQ(result.fOut, "handle\n");
  EXPECT_EQ(result.fErr, "");
}

TEST(LoadPluginLibrary, BindsAllSymbolsAtOnce) {
  PluginRoot root;
  EXPECT_THAT(root.Run({"load-plugin:" + PluginRoot::BuiltPlugin("dependent_plugin.so")}).fOut,
              EndsWith("undefined symbol: registering_Answer\nstatus 11\n"));
}

TEST(LoadPluginLibrary, LogsTheReasonAndPrintsItWithThePhraseTwice) {
  ScopedLogCapture log;
  testing::internal::CaptureStdout();
  EXPECT_EQ(hwxtest::StatusOf([] { TOSSpecific::LoadPluginLibrary("/nowhere/libx.pi.so"); }),
            NQORHWX20::kHWXStatusFileSystemError);
  const std::string logged =
      "ERROR: Failed to load plugin.  Reason: /nowhere/libx.pi.so: cannot open shared object "
      "file: No such file or directory";
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "Failed to load plugin.  Reason: " + logged);
  EXPECT_THAT(log.Lines(), testing::ElementsAre(testing::Pair("Error", logged)));
  EXPECT_EQ(::dlerror(), nullptr);
}

TEST(LoadPluginLibrary, CarriesTheLoadersWords) {
  testing::internal::CaptureStdout();
  EXPECT_EQ(LoaderWords([] { TOSSpecific::LoadPluginLibrary("/nowhere/libx.pi.so"); }),
            NoFile("/nowhere/libx.pi.so"));
  testing::internal::GetCapturedStdout();
}

}  // namespace
