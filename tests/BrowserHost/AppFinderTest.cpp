#include "BrowserHost/AppFinder.h"

#include "Support/NoFurtherFiles.h"

#include <QTemporaryDir>

#include <gtest/gtest.h>

#include <cerrno>

namespace tolvar::test {
namespace {

TEST(AnAppFinder, TellsThatThereIsNoFolderToWaitIn) {
    AppFinder finder("/proc/nowhere/tolvar");
    EXPECT_FALSE(finder.connect());
    EXPECT_EQ(finder.watch(), -1);
    EXPECT_EQ(finder.watchError(), ENOENT);
}

TEST(AnAppFinder, TellsThatTheFolderCannotBeWatchedThoughThereIsOne) {
    const QTemporaryDir above;
    AppFinder finder(above.filePath(QStringLiteral("tolvar")).toStdString());
    const NoFurtherFiles limit;
    EXPECT_FALSE(finder.connect());
    EXPECT_EQ(finder.watch(), -1);
    EXPECT_EQ(finder.watchError(), EMFILE);
}

} // namespace
} // namespace tolvar::test
