#pragma once

#include "Platform/Interfaces/SystemLog.h"

namespace tolvar {

/// The systemd journal, with priority 3 (error), SYSLOG_IDENTIFIER=tolvar,
/// TOLVAR_SUBSYSTEM=app.tolvar.Tolvar and the category as TOLVAR_CATEGORY; standard error, as
/// "Category: message", where there is no journal.
class JournalLog final : public SystemLog {
public:
    void error(const QString& category, const QString& message) override;
};

} // namespace tolvar
