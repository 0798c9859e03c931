#include "Platform/Linux/Journal/JournalLog.h"

#include <QByteArray>

#define SD_JOURNAL_SUPPRESS_LOCATION
#include <systemd/sd-journal.h>
#include <unistd.h>

#include <cstdio>

namespace tolvar {

namespace {

/// Asked before each line: sending without a journal succeeds and says nothing.
bool hasJournal() {
    return access("/run/systemd/journal/socket", W_OK) == 0;
}

bool sendToJournal(const QByteArray& category, const QByteArray& message) {
    return sd_journal_send("MESSAGE=%s", message.constData(), "PRIORITY=3",
                           "SYSLOG_IDENTIFIER=tolvar", "TOLVAR_SUBSYSTEM=app.tolvar.Tolvar",
                           "TOLVAR_CATEGORY=%s", category.constData(), nullptr) == 0;
}

} // namespace

void JournalLog::error(const QString& category, const QString& message) {
    const QByteArray categoryText = category.toUtf8();
    const QByteArray messageText = message.toUtf8();
    if (!hasJournal() || !sendToJournal(categoryText, messageText))
        std::fprintf(stderr, "%s: %s\n", categoryText.constData(), messageText.constData());
}

} // namespace tolvar
