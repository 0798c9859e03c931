#include "Platform/Linux/Journal/JournalLog.h"

#include "Support/ChildProcess.h"

#include <QByteArray>
#include <QByteArrayList>
#include <QDir>

#include <gtest/gtest.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <cstring>

namespace tolvar {
namespace {

using namespace Qt::StringLiterals;

/// A journal of one socket, where the real one listens. To be used with own mounts.
class FakeJournal {
public:
    FakeJournal() {
        EXPECT_TRUE(QDir().mkpath(u"/run/systemd/journal"_s));
        sockaddr_un address{};
        address.sun_family = AF_UNIX;
        std::strcpy(address.sun_path, "/run/systemd/journal/socket");
        EXPECT_EQ(bind(m_socket, reinterpret_cast<sockaddr*>(&address), sizeof address), 0);
    }
    ~FakeJournal() { close(m_socket); }
    FakeJournal(const FakeJournal&) = delete;
    FakeJournal& operator=(const FakeJournal&) = delete;

    /// The fields of the line that was sent first, as "NAME=value".
    QByteArrayList received() {
        QByteArray datagram(10'000, '\0');
        const auto size = recv(m_socket, datagram.data(), 10'000, MSG_DONTWAIT);
        return datagram.left(size < 0 ? 0 : size).trimmed().split('\n');
    }

private:
    int m_socket = socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC, 0);
};

TEST(JournalLog, SendsTheMessageWithItsFieldsToTheJournal) {
    test::withOwnMounts([] {
        test::mountSmallDisk(u"/run"_s, "1m");
        FakeJournal journal;
        testing::internal::CaptureStderr();
        JournalLog().error(u"WebsiteBlocker"_s, u"100 % of “Firefox” failed"_s);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
        auto fields = journal.received();
        std::sort(fields.begin(), fields.end());
        EXPECT_EQ(fields.join("\n"), "MESSAGE=100 % of “Firefox” failed\n"
                                     "PRIORITY=3\n"
                                     "SYSLOG_IDENTIFIER=tolvar\n"
                                     "TOLVAR_CATEGORY=WebsiteBlocker\n"
                                     "TOLVAR_SUBSYSTEM=app.tolvar.Tolvar");
    });
}

TEST(JournalLog, WritesToStandardErrorWhereThereIsNoJournal) {
    test::withOwnMounts([] {
        test::mountSmallDisk(u"/run"_s, "1m");
        testing::internal::CaptureStderr();
        JournalLog().error(u"Preferences"_s, u"100 % “full”"_s);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Preferences: 100 % “full”\n");
    });
}

TEST(JournalLog, WritesToStandardErrorWhenTheJournalDied) {
    test::withOwnMounts([] {
        test::mountSmallDisk(u"/run"_s, "1m");
        { FakeJournal died; }
        testing::internal::CaptureStderr();
        JournalLog().error(u"Preferences"_s, u"message"_s);
        EXPECT_EQ(testing::internal::GetCapturedStderr(), "Preferences: message\n");
    });
}

} // namespace
} // namespace tolvar
