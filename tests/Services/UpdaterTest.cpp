#include "Services/Updater.h"

#include "Support/FakeUpdateSource.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace tolvar {
namespace {

class UpdaterTest : public testing::Test {
protected:
    void makeUpdater() {
        updater = std::make_unique<Updater>(source);
        QObject::connect(updater.get(), &Updater::canCheckForUpdatesChanged, updater.get(),
                         [this](bool can) { canCheck.push_back(can); });
        QObject::connect(updater.get(), &Updater::automaticallyChecksForUpdatesChanged,
                         updater.get(), [this](bool checks) { automatic.push_back(checks); });
    }

    test::FakeUpdateSource source;
    std::unique_ptr<Updater> updater;
    std::vector<bool> canCheck;
    std::vector<bool> automatic;
};

TEST_F(UpdaterTest, TakesTheStateOfItsSource) {
    source.automatic = true;
    makeUpdater();
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
}

TEST_F(UpdaterTest, CannotCheckWhileACheckRuns) {
    makeUpdater();
    source.setCanCheck(false);
    EXPECT_FALSE(updater->canCheckForUpdates());
    source.setCanCheck(false);
    source.setCanCheck(true);
    EXPECT_TRUE(updater->canCheckForUpdates());
    EXPECT_EQ(canCheck, (std::vector{false, true}));
}

TEST_F(UpdaterTest, PassesTheSwitchOn) {
    makeUpdater();
    updater->setAutomaticallyChecksForUpdates(true);
    EXPECT_TRUE(source.automatic);
    updater->setAutomaticallyChecksForUpdates(true);
    updater->setAutomaticallyChecksForUpdates(false);
    EXPECT_FALSE(source.automatic);
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_EQ(automatic, (std::vector{true, false}));
}

TEST_F(UpdaterTest, AsksItsSourceToCheck) {
    makeUpdater();
    updater->checkForUpdates();
    EXPECT_EQ(source.checks, 1);
}

TEST_F(UpdaterTest, OnlyKeepsItsSwitchWhereNoUpdatesAreOffered) {
    source.available = false;
    source.automatic = true;
    makeUpdater();
    EXPECT_FALSE(updater->canCheckForUpdates());
    EXPECT_FALSE(updater->automaticallyChecksForUpdates());
    EXPECT_FALSE(source.isObserved());

    source.automatic = false;
    updater->setAutomaticallyChecksForUpdates(true);
    updater->checkForUpdates();
    EXPECT_TRUE(updater->automaticallyChecksForUpdates());
    EXPECT_EQ(automatic, std::vector{true});
    EXPECT_FALSE(source.automatic);
    EXPECT_EQ(source.checks, 0);
}

TEST_F(UpdaterTest, StopsListeningWithItsLife) {
    makeUpdater();
    EXPECT_TRUE(source.isObserved());
    updater.reset();
    EXPECT_FALSE(source.isObserved());
}

} // namespace
} // namespace tolvar
