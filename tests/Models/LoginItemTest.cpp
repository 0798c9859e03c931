#include "Models/LoginItem.h"

#include "Support/FakeLoginItemService.h"
#include "Support/Texts.h"

#include <gtest/gtest.h>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

class LoginItemTest : public testing::Test {
protected:
    void expectCalls(int registrations, int unregistrations) const {
        EXPECT_EQ(service.registrations, registrations);
        EXPECT_EQ(service.unregistrations, unregistrations);
    }

    test::FakeLoginItemService service;
};

TEST_F(LoginItemTest, IsOnWhenEnabledOrWaitingForApproval) {
    EXPECT_FALSE(LoginItem::isOn(LoginItemStatus::notRegistered));
    EXPECT_TRUE(LoginItem::isOn(LoginItemStatus::enabled));
    EXPECT_TRUE(LoginItem::isOn(LoginItemStatus::requiresApproval));
    EXPECT_FALSE(LoginItem::isOn(LoginItemStatus::notFound));
}

TEST_F(LoginItemTest, RegistersWhenItIsOff) {
    for (const auto off : {LoginItemStatus::notRegistered, LoginItemStatus::notFound}) {
        service = {};
        service.current = off;
        EXPECT_EQ(LoginItem::setEnabled(service, true), std::nullopt);
        expectCalls(1, 0);
    }
}

TEST_F(LoginItemTest, DoesNotRegisterTwice) {
    for (const auto on : {LoginItemStatus::enabled, LoginItemStatus::requiresApproval}) {
        service = {};
        service.current = on;
        service.error = u"must not be asked"_s;
        EXPECT_EQ(LoginItem::setEnabled(service, true), std::nullopt);
        expectCalls(0, 0);
    }
}

TEST_F(LoginItemTest, UnregistersWhenItIsOnOrWaitsForApproval) {
    for (const auto on : {LoginItemStatus::enabled, LoginItemStatus::requiresApproval}) {
        service = {};
        service.current = on;
        EXPECT_EQ(LoginItem::setEnabled(service, false), std::nullopt);
        expectCalls(0, 1);
    }
}

TEST_F(LoginItemTest, DoesNotUnregisterWhatIsOff) {
    for (const auto off : {LoginItemStatus::notRegistered, LoginItemStatus::notFound}) {
        service = {};
        service.current = off;
        EXPECT_EQ(LoginItem::setEnabled(service, false), std::nullopt);
        expectCalls(0, 0);
    }
}

TEST_F(LoginItemTest, PassesOnWhatTheSystemSays) {
    service.error = u"No"_s;
    EXPECT_EQ(LoginItem::setEnabled(service, true), u"No"_s);
    service.current = LoginItemStatus::enabled;
    EXPECT_EQ(LoginItem::setEnabled(service, false), u"No"_s);
}

} // namespace
} // namespace tolvar
