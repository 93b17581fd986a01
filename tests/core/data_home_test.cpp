#include "core/data_home.h"

#include "tests/support/testing.h"

namespace tarvex {

namespace fs = std::filesystem;

TEST(DataHome, GivenThenBesideTheProgramThenTheUsersOwnCopy) {
    const test::TempFolder top;
    const fs::path& root = top.path();
    const fs::path user = root / "home";
    top.makeFolder("project/data/Dat");
    top.makeFolder("project/build/release");
    top.makeFolder("usr/bin");
    top.makeFolder("usr/share/tarvex/data/Dat");
    top.makeFolder("elsewhere");
    test::writeBytes(root / "usr/share/tarvex/data/Dat/dL1.dat", "terms");

    const fs::path built = root / "project/build/release/tarvex", installed = root / "usr/bin/tarvex";
    EXPECT_EQ(findDataTree(root / "elsewhere", built, user), root / "elsewhere");
    EXPECT_EQ(findDataTree({}, built, user), root / "project/data");
    EXPECT_EQ(findDataTree({}, installed, user), user / "tarvex");
    EXPECT_EQ(test::readBytes(user / "tarvex/Dat/dL1.dat"), "terms");
    EXPECT_EQ(std::distance(fs::directory_iterator(user), {}), 1);  // no passing copy left

    // the second start keeps what the user has changed
    test::writeBytes(user / "tarvex/Dat/dL1.dat", "mine");
    EXPECT_EQ(findDataTree({}, installed, user), user / "tarvex");
    EXPECT_EQ(test::readBytes(user / "tarvex/Dat/dL1.dat"), "mine");

    EXPECT_THROW(findDataTree(root / "none", built, user), OpenFailure);
    EXPECT_THROW(findDataTree({}, root / "elsewhere/bin/tarvex", root / "other"), OpenFailure);
    test::writeBytes(root / "file", "");
    EXPECT_THROW(findDataTree({}, installed, root / "file"), OpenFailure);  // nowhere to copy to
}

}  // namespace tarvex
