#include <algorithm>

#include "unit/providers/linux/ProviderFixture.h"

namespace hwxtest {

namespace {

using NQORHWX20::TCIMSchemaHelper;

using Product = ProviderTest;

TEST_F(Product, HasAVersionOfFourPartsThatEndsInTheBuild) {
  ASSERT_EQ(List("QORSG_HWXProduct").size(), 1u);
  EXPECT_EQ(ReadText("QORSG_HWXProduct", "Name"), "hwx");
  const std::string version = TCIMSchemaHelper::GetDataSourceVersion(fNamespace, {});
  EXPECT_EQ(std::count(version.begin(), version.end(), '.'), 3);
  EXPECT_EQ(version.rfind(HWX_VERSION ".", 0), 0u) << version;
  EXPECT_EQ(TCIMSchemaHelper::GetDataSourceBuildVersion(fNamespace),
            TCIMSchemaHelper::GetDataSourceBuild(fNamespace, {}));
  EXPECT_THAT(TCIMSchemaHelper::GetDataSourceBuild(fNamespace, {}),
              ::testing::Not(::testing::IsEmpty()));
}

}  // namespace

}  // namespace hwxtest
