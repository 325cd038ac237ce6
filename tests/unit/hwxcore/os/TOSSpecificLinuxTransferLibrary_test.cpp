// How libcurl is found, bound and given back.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ChildProcess.h"
#include "support/TransferRoot.h"

using hwxtest::TransferRoot;
using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::StartsWith;

namespace {

const std::string kLazy = " 1";

class TransferLibrary : public testing::Test {
 protected:
  TransferLibrary() { hwxtest::MakeFile(fFile, "text"); }

  /// Uploads; the steps that follow come behind.
  std::string Upload(const std::vector<std::string>& then = {}) {
    std::vector<std::string> steps = {"upload:ftp://host/name|" + fFile};
    steps.insert(steps.end(), then.begin(), then.end());
    return fRoot.Run(steps);
  }

  /// The name of the libcurl that was used.
  std::string Used() const {
    const TransferRoot::Lines calls = fRoot.CurlCalls();
    const std::string front = "curl_global_init 3 of ";
    return calls.empty() ? "none" : calls.front().substr(front.size());
  }

  TransferRoot fRoot;
  std::string fFile = fRoot.Scratch("file");
};

TEST_F(TransferLibrary, TriesSixPathsInOrder) {
  if (!TransferRoot::TracesLoader()) GTEST_SKIP() << "calls of the loader can't be traced";
  Upload();
  const std::string path = "dlopen " + fRoot.Path() + "/libcurl.so";
  EXPECT_THAT(fRoot.LoaderCalls(),
              ElementsAre(path + kLazy, path + ".4" + kLazy, path + kLazy, path + ".4" + kLazy,
                          path + ".3" + kLazy, path + ".2" + kLazy, "dlerror text"));
}

TEST_F(TransferLibrary, SaysWhyTheLastPathFailed) {
  EXPECT_EQ(Upload(),
            "status 35\nError: TOSSpecific|CurlTransferFile: Error opening curl library: " +
                fRoot.NotFound("libcurl.so.2") + "\n");
  EXPECT_THAT(fRoot.CurlCalls(), IsEmpty());
}

TEST_F(TransferLibrary, AFailureToOpenItCarriesTheLoadersWords) {
  EXPECT_THAT(fRoot.Run({"upload:ftp://host/name|" + fFile, "last-failure"}),
              EndsWith("load exception: " + fRoot.NotFound("libcurl.so.2") + "\n"));
}

TEST_F(TransferLibrary, IsFoundUnderEachOfItsNames) {
  for (const char* name : {"libcurl.so", "libcurl.so.4", "libcurl.so.3", "libcurl.so.2"}) {
    TransferRoot root;
    root.AddCurl("stub_curl", name);
    EXPECT_EQ(root.Run({"upload:ftp://host/name|" + fFile}), "returned 0\n");
    EXPECT_EQ(root.CurlCalls().front(), std::string("curl_global_init 3 of ") + name);
  }
}

TEST_F(TransferLibrary, OfTheFirstNameIsPreferred) {
  for (const char* name : {"libcurl.so.2", "libcurl.so.3", "libcurl.so.4", "libcurl.so"}) {
    std::filesystem::remove(fRoot.Scratch("trace"));
    fRoot.AddCurl("stub_curl", name);
    EXPECT_EQ(Upload(), "returned 0\n");
    EXPECT_EQ(Used(), name);
  }
}

TEST_F(TransferLibrary, IsPassedOverWhereItCannotBeLoaded) {
  hwxtest::MakeFile(fRoot / "libcurl.so", "no module");
  std::filesystem::create_directory(fRoot / "libcurl.so.4");
  fRoot.AddCurl("stub_curl", "libcurl.so.3");
  EXPECT_EQ(Upload(), "returned 0\n");
  EXPECT_EQ(Used(), "libcurl.so.3");
}

TEST_F(TransferLibrary, IsNotSearchedForElsewhere) {
  const std::string elsewhere = fRoot.Scratch("elsewhere");
  std::filesystem::create_directory(elsewhere);
  for (const char* name : {"libcurl.so", "libcurl.so.4"})
    std::filesystem::create_symlink(TransferRoot::BuiltCurl("stub_curl"), elsewhere + "/" + name);
  fRoot.Set("LD_LIBRARY_PATH", fRoot.Path() + ":" + elsewhere);
  EXPECT_THAT(fRoot.Run({"chdir:" + elsewhere, "upload:ftp://host/name|" + fFile}),
              HasSubstr("status 35\n"));
}

// The module's directory can't be told then, and a name alone would be searched for.
TEST_F(TransferLibrary, IsNotSearchedForByAModuleThatWasLoadedByARelativePath) {
  const std::string elsewhere = fRoot.Scratch("elsewhere");
  std::filesystem::create_directory(elsewhere);
  for (const char* name : {"libcurl.so", "libcurl.so.4"})
    std::filesystem::create_symlink(TransferRoot::BuiltCurl("stub_curl"), elsewhere + "/" + name);
  fRoot.Set("LD_LIBRARY_PATH", "root:" + elsewhere);
  const int result = hwxtest::RunInChild([&] {
    std::filesystem::current_path(fRoot.Scratch(""));
    EXPECT_EQ(fRoot.Run({"chdir:" + elsewhere, "upload:ftp://host/name|" + fFile}),
              "chdir 0\nstatus 35\n"
              "Error: TOSSpecific|CurlTransferFile: Error opening curl library: root/libcurl.so.4: "
              "cannot open shared object file: No such file or directory\n");
    return 0;
  });
  EXPECT_EQ(result, 0);
  EXPECT_THAT(fRoot.CurlCalls(), IsEmpty());
}

TEST_F(TransferLibrary, LooksUpSixFunctionsAndThenInitialises) {
  if (!TransferRoot::TracesLoader()) GTEST_SKIP() << "calls of the loader can't be traced";
  fRoot.AddCurl("stub_curl", "libcurl.so");
  Upload();
  EXPECT_THAT(fRoot.Trace(), StartsWith("dlopen " + fRoot / "libcurl.so" + kLazy +
                                        "\n"
                                        "dlsym curl_global_init\n"
                                        "dlerror null\n"
                                        "dlsym curl_easy_init\n"
                                        "dlerror null\n"
                                        "dlsym curl_easy_setopt\n"
                                        "dlerror null\n"
                                        "dlsym curl_easy_perform\n"
                                        "dlerror null\n"
                                        "dlsym curl_easy_cleanup\n"
                                        "dlerror null\n"
                                        "dlsym curl_global_cleanup\n"
                                        "dlerror null\n"
                                        "curl_global_init 3 of libcurl.so\n"
                                        "curl_easy_init\n"
                                        "curl_easy_setopt 10010 "));
}

TEST_F(TransferLibrary, IsClosedLastAndOnceAfterSuccess) {
  if (!TransferRoot::TracesLoader()) GTEST_SKIP() << "calls of the loader can't be traced";
  fRoot.AddCurl("stub_curl", "libcurl.so");
  Upload();
  EXPECT_THAT(fRoot.Trace(), EndsWith("\ncurl_easy_cleanup\ncurl_global_cleanup\ndlclose\n"));
  EXPECT_THAT(fRoot.LoaderCalls(), testing::Contains("dlclose").Times(1));
}

TEST_F(TransferLibrary, IsUnmappedAfterSuccess) {
  fRoot.AddCurl("stub_curl", "libcurl.so");
  EXPECT_EQ(Upload({"mapped:stub_curl.so"}), "returned 0\nnot mapped\n");
}

TEST_F(TransferLibrary, StaysMappedAfterAnException) {
  fRoot.AddCurl("stub_curl", "libcurl.so");
  fRoot.Set("STUB_CURL_REFUSES", "85");
  EXPECT_THAT(Upload({"mapped:stub_curl.so"}), EndsWith("\nmapped\n"));
  EXPECT_THAT(fRoot.LoaderCalls(), Not(testing::Contains("dlclose")));
}

class TransferWithout : public testing::TestWithParam<std::string> {};

TEST_P(TransferWithout, EndsInTheExceptionAboutTheMissingText) {
  TransferRoot root;
  root.AddCurl("without_" + GetParam(), "libcurl.so");
  EXPECT_EQ(root.Run({"upload:ftp://host/name|/nowhere", "proxy:user|word|10.0.0.1|80",
                      "mapped:without_" + GetParam()}),
            "exception basic_string: construction from null is not valid\n"
            "exception basic_string: construction from null is not valid\n"
            "mapped\n");
  EXPECT_THAT(root.CurlCalls(), IsEmpty());  // all six are looked up before one is called
  if (!TransferRoot::TracesLoader()) return;
  EXPECT_THAT(root.Trace(), EndsWith("dlsym " + GetParam() + "\ndlerror text\ndlerror null\n"));
}

INSTANTIATE_TEST_SUITE_P(Functions, TransferWithout,
                         testing::Values("curl_global_init", "curl_easy_init", "curl_easy_setopt",
                                         "curl_easy_perform", "curl_easy_cleanup",
                                         "curl_global_cleanup"));

TEST_F(TransferLibrary, FailsWithoutAHandle) {
  fRoot.AddCurl("stub_curl", "libcurl.so");
  fRoot.Set("STUB_CURL_NO_HANDLE", "1");
  EXPECT_EQ(Upload({"mapped:stub_curl.so"}),
            "status 35\nError: TOSSpecific|CurlTransferFile: Error initalizing curl\nmapped\n");
  EXPECT_THAT(fRoot.CurlCalls(), ElementsAre("curl_global_init 3 of libcurl.so", "curl_easy_init"));
}

TEST_F(TransferLibrary, TakesNoNoticeOfAFailedInitialisation) {
  fRoot.AddCurl("stub_curl", "libcurl.so");
  fRoot.Set("STUB_CURL_GLOBAL_FAILS", "1");
  EXPECT_EQ(Upload(), "returned 0\n");
}

TEST_F(TransferLibrary, IsOpenedAgainAfterAFailure) {
  fRoot.AddCurl("stub_curl", "libcurl.so");
  const std::string upload = "upload:ftp://host/name|" + fFile;
  EXPECT_EQ(fRoot.Run({"set:STUB_CURL_RESULT|7", upload, "unset:STUB_CURL_RESULT", upload,
                       "mapped:stub_curl.so"}),
            "status 34\nError: TOSSpecific|CurlTransferFile: Error connecting to Server\n"
            "returned 0\nmapped\n");
  EXPECT_THAT(fRoot.CurlCalls(), testing::Contains("curl_global_init 3 of libcurl.so").Times(2));
}

}  // namespace
