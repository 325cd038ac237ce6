#include <gtest/gtest.h>

#include <atomic>
#include <set>
#include <string>
#include <thread>
#include <vector>

#include "hwxcore/hwxcore.h"
#include "hwxkit/hwxkit.h"

using namespace NQORHWX20;

namespace {

// The kit isn't safe for threads, so copies that ran at the same time would be seen.
TEST(TCIMCopyThreaded, CopiesInstancesOneAtATime) {
  constexpr unsigned kThreads = 4;
  constexpr unsigned kEach = 200;
  const auto source = TMemoryNamespace::Create("from");
  const auto target = TMemoryNamespace::Create("to");
  for (const auto& ns : {source, target})
    TClassBuilder(ns, "EX_Disk").Key("Id", "uint32").Property("Label", "string").Commit();
  const auto disk = source->FindClass("EX_Disk");
  std::vector<boost::shared_ptr<ICIMInstance> > instances;
  for (unsigned id = 0; id < kThreads * kEach; ++id) {
    const auto instance = disk->NewInstance();
    instance->Set("Id", id).Set("Label", "disk " + std::to_string(id));
    disk->AddInstance(instance);
    instances.push_back(instance);
  }

  std::atomic<unsigned> ready(0);
  std::vector<std::thread> threads;
  for (unsigned thread = 0; thread < kThreads; ++thread) {
    threads.emplace_back([&, thread] {
      ++ready;
      while (ready < kThreads)
        std::this_thread::yield();
      for (unsigned count = 0; count < kEach; ++count)
        TCIMCopy::CopyInstance(instances[thread * kEach + count], target);
    });
  }
  for (std::thread& thread : threads)
    thread.join();

  std::set<std::string> labels;
  target->FindClass("EX_Disk")->EnumerateInstances(
      [&](boost::shared_ptr<ICIMInstance> copy) {
        labels.insert(copy->GetProperty("Label", {})->GetStringValue());
        return true;
      },
      false, {});
  EXPECT_EQ(labels.size(), kThreads * kEach);
}

}  // namespace
