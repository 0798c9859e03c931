#pragma once

#include "Platform/Interfaces/NotificationCenter.h"
#include "Support/Journal.h"

#include <map>

namespace tolvar::test {

/// A notification service whose answers the test gives, when it likes. Journal lines: "ask for
/// permission", "notify BODY".
class FakeNotificationCenter final : public NotificationCenter {
public:
    explicit FakeNotificationCenter(Journal& journal)
        : m_journal(journal) {}

    /// What is on screen, by identifier.
    std::map<QString, NotificationContent> shown;
    /// The questions that were not answered yet, oldest first.
    std::vector<std::function<void(const NotificationAuthorization&)>> authorizationRequests;
    std::vector<std::function<void(std::optional<QString> error)>> deliveries;

    void
    requestAuthorization(std::function<void(const NotificationAuthorization&)> answered) override {
        m_journal.record(QStringLiteral("ask for permission"));
        authorizationRequests.push_back(std::move(answered));
    }
    void add(const QString& identifier, const NotificationContent& content,
             std::function<void(std::optional<QString> error)> delivered) override {
        m_journal.record(QStringLiteral("notify ") + content.body);
        shown.insert_or_assign(identifier, content);
        deliveries.push_back(std::move(delivered));
    }
    Subscription observeOpened(std::function<void(const QString&)>) override { return {}; }

private:
    Journal& m_journal;
};

} // namespace tolvar::test
