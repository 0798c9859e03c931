#pragma once

#include <QProcess>
#include <QString>
#include <QTemporaryDir>

namespace tolvar::test {

/// A PulseAudio server of the test's own, with one sink that plays nowhere. While it lives, the
/// libraries of this process find it and no other.
class PulseServer {
public:
    PulseServer();
    ~PulseServer();
    PulseServer(const PulseServer&) = delete;
    PulseServer& operator=(const PulseServer&) = delete;

    void start();
    /// Ends it without a farewell.
    void kill();
    /// It answers nobody until `wakeUp`.
    void hang();
    void wakeUp();

    /// How many streams play into it, silent ones included.
    qsizetype streams() const;
    /// What pactl says to these words.
    QString ask(const QStringList& words) const;

private:
    QString socket() const;

    QTemporaryDir m_folder;
    QProcess m_daemon;
};

} // namespace tolvar::test
