#pragma once

#include <QObject>
#include <QSocketNotifier>

namespace tolvar {

/// Turns the signals that ask a process to end (SIGTERM, SIGINT, SIGHUP) into an ordinary event of
/// the event loop. At most one of these lives at a time; afterwards the signals end the process.
/// A signal that is ignored beforehand stays ignored.
class QuitSignals final : public QObject {
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

Q_SIGNALS:
    void quitRequested();

private:
    QSocketNotifier m_notifier;
};

} // namespace tolvar
